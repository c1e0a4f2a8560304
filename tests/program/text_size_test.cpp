#include "controls/key_codes.h"
#include "support/program_fixture.h"

TEST_F(StudyTest, TheSizeOfLettersIsOneForAllReadingPanesAndKept)
{
    Open(u"james-1.dat:1");
    auto const stored = [this] { return ToUtf8(settings.Value(u"Parameters", u"textsize")); };
    EXPECT_EQ(stored(), "(none)") << "only the user writes it";
    auto const places = [this] {
        std::vector<float> edges;
        for (Control const* control : FormOf("frmMain").Controls())
            edges.insert(edges.end(),
                { control->Left(), control->Top(), control->Width(), control->Height() });
        return edges;
    };
    auto const before = places();
    struct {
        int key, shift, times, percent;
    } const rows[] = {
        { keyMinus, controlHeld, 1, 90 },
        { keySubtract, controlHeld, 9, 50 },
        { '0', controlHeld, 1, 100 },
        { keyPlus, controlHeld, 2, 125 },
        { keyPlus, controlHeld | shiftHeld, 1, 150 },
        { keyPlus, 0, 1, 150 },
        { keyMinus, controlHeld | shiftHeld, 1, 150 },
        { keyAdd, controlHeld, 9, 300 },
    };
    for (auto const& row : rows) {
        for (int i = 0; i < row.times; ++i)
            Press(input, screen, FormOf("frmMain"), row.key, row.shift);
        EXPECT_EQ(screen.TextSize(), row.percent) << row.key;
        EXPECT_EQ(stored(), std::to_string(row.percent)) << row.key;
    }
    EXPECT_EQ(places(), before);
    EXPECT_EQ(Get("frmMain.Text2").LetterScale(), 3);
    EXPECT_EQ(Get("frmMain.lblPageTitle").LetterScale(), 1);
    EXPECT_EQ(Get<RichTextBox>("frmMain.Text3").FontSize, 8.25F) << "sizes of the model stay";
    EXPECT_EQ(Press(input, screen, FormOf("frmContents"), keyPlus, controlHeld),
        "frmContents isn't loaded");

    for (auto const& [value, percent] : { std::pair(u"125", 125), { u"140", 150 }, { u"", 100 },
             { u"9999999999", 300 }, { u"-7", 50 }, { u"x", 100 } }) {
        ProgramFixture next;
        EXPECT_TRUE(next.settings.Write(u"Parameters", u"textsize", value));
        next.Start();
        EXPECT_EQ(next.screen.TextSize(), percent) << ToUtf8(value);
        EXPECT_EQ(next.settings.Value(u"Parameters", u"textsize"), value);
    }
}

TEST_F(StudyTest, ThePublishersAnswerHasRoomForLettersOfAnySize)
{
    Open(u"james-1.dat:1");
    Write("frmMain.Text3", u"James");
    Click("frmMain.Image1");
    auto& answer = FormOf("frmAnswer");
    float const height = answer.Height, text = Get("frmAnswer.Label1").Height;
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(Press(input, screen, answer, keyPlus, controlHeld), "");
    EXPECT_GE(Get("frmAnswer.Label1").Height, 2 * text);
    EXPECT_EQ(answer.Height - height, Get("frmAnswer.Label1").Height - text);
    Click("frmAnswer.OKButton");
    Click("frmMain.Image1");
    EXPECT_GE(Get("frmAnswer.Label1").Height, 2 * text);
}
