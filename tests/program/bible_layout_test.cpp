#include "support/bible_fixture.h"

namespace {

class BibleLayoutTest : public BibleTest {
protected:
    BibleLayoutTest() { OpenReader(); }

    float Of(std::string const& control, char const* property)
    {
        return std::get<float>(Get("frmBible." + control).FindProperty(property)->Get());
    }
    /// Gives the client area a size.
    void Resize(float width, float height)
    {
        auto& form = FormOf("frmBible");
        if (form.WindowState() != FormState::Normal) {
            EXPECT_EQ(input.ChangeState(form, FormState::Normal), "");
        }
        auto const frame = form.FrameSize();
        EXPECT_EQ(input.Resize(form, width + frame.width, height + frame.height), "");
    }
    /// All places of the layout, by "control.property".
    std::map<std::string, float> Places()
    {
        std::map<std::string, float> places;
        for (Control* const control : FormOf("frmBible").Controls())
            for (auto const* const property : { "Left", "Top", "Width", "Height" })
                if (auto const* const found = control->FindProperty(property))
                    places[std::string(control->Name()) + '.' + property]
                        = std::get<float>(found->Get());
        return places;
    }
};

TEST_F(BibleLayoutTest, HasItsFigures)
{
    struct {
        char const* control;
        float left, top, width, height;
    } const rows[] = {
        { "XPContainer3", 90, 90, 8745, 820 },
        { "cboVersion", 90, 420, 2175, 315 },
        { "txtVerse", 2355, 420, 1695, 315 },
        { "cmdOkay", 4080, 420, 1095, 315 },
        { "cmdPrev", 5895, 420, 1455, 315 },
        { "cmdNext", 7440, 420, 1215, 315 },
        { "XPContainer1", 90, 1000, 1391.65F, 6635 },
        { "TreeView1", 90, 450, 1211.65F, 6095 },
        { "XPContainer2", 1571.65F, 1000, 4282, 6635 },
        { "Text1", 90, 450, 4102, 6095 },
        { "XPContainer4", 5943.65F, 1000, 2891.35F, 6635 },
        { "txtNotes", 90, 450, 2711.35F, 6095 },
        { "cmdPrint", 2136.35F, 55, 615, 255 },
        { "ProgressBar1", 1500, 7795, 7125, 255 },
        { "StatusBar1", 0, 7725, 8925, 375 },
    };
    Resize(8925, 8100);
    EXPECT_EQ(Of("StatusBar1", "Panel1Width"), 1440);
    for (auto const& [control, left, top, width, height] : rows) {
        EXPECT_NEAR(Of(control, "Left"), left, 0.01F) << control;
        EXPECT_NEAR(Of(control, "Top"), top, 0.01F) << control;
        EXPECT_NEAR(Of(control, "Width"), width, 0.01F) << control;
        EXPECT_NEAR(Of(control, "Height"), height, 0.01F) << control;
    }
}

TEST_F(BibleLayoutTest, SharesOutTheWholeWidth)
{
    for (float width :
        { 8500.0F, 8501.0F, 8502.0F, 8503.0F, 10007.5F, 19200.0F, 57600.0F, 200000.0F }) {
        Resize(width, 8100);
        float const sum = Of("XPContainer1", "Width") + Of("XPContainer2", "Width")
            + Of("XPContainer4", "Width") + 4 * 90;
        EXPECT_NEAR(sum, width, 0.02F);
        EXPECT_NEAR(Of("XPContainer4", "Left") + Of("XPContainer4", "Width") + 90, width, 0.02F);
    }
}

TEST_F(BibleLayoutTest, MovesOnlyWhatASizeConcerns)
{
    Resize(9000, 8000);
    auto const before = Places();
    auto const changed = [&] {
        std::set<std::string> names;
        for (auto const& [place, value] : Places())
            if (before.at(place) != value)
                names.insert(place);
        return names;
    };
    Resize(9000, 9000);
    EXPECT_THAT(changed(),
        testing::ElementsAre("ProgressBar1.Top", "StatusBar1.Top", "Text1.Height",
            "TreeView1.Height", "XPContainer1.Height", "XPContainer2.Height", "XPContainer4.Height",
            "txtNotes.Height"));
    Resize(9400, 8000);
    EXPECT_THAT(changed(),
        testing::ElementsAre("ProgressBar1.Width", "StatusBar1.Width", "Text1.Width",
            "TreeView1.Width", "XPContainer1.Width", "XPContainer2.Left", "XPContainer2.Width",
            "XPContainer3.Width", "XPContainer4.Left", "XPContainer4.Width", "cmdNext.Left",
            "cmdPrev.Left", "cmdPrint.Left", "txtNotes.Width"));
    EXPECT_EQ(input.ChangeState(FormOf("frmBible"), FormState::Maximised), "");
    auto const maximised = Places();
    EXPECT_EQ(input.ChangeState(FormOf("frmBible"), FormState::Minimised), "");
    EXPECT_EQ(Places(), maximised);
    EXPECT_EQ(input.ChangeState(FormOf("frmBible"), FormState::Maximised), "");
    EXPECT_EQ(Places(), maximised);
}

TEST_F(BibleLayoutTest, EndsAtNothingInASmallWindow)
{
    for (float const size : { 0.0F, 100.0F, 1000.0F, 2000.0F, 4000.0F }) {
        Resize(size, size);
        for (auto const& [place, value] : Places()) {
            bool const isSize = place.ends_with(".Width") || place.ends_with(".Height");
            EXPECT_TRUE(!isSize || value >= 0) << place << " at " << size << ": " << value;
        }
    }
}

} // namespace
