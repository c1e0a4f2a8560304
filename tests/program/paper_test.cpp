#include "documents/paper/print_document.h"
#include "support/bible_fixture.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// The lines of the only job since the last call, a bold one between stars; those of one page after
/// the other. Rules to write on are "___".
static std::vector<std::string> PrintedLines(HeadlessHost& host)
{
    auto const jobs = host.Recorder().TakeJobs();
    EXPECT_THAT(jobs, SizeIs(1));
    std::vector<std::string> lines;
    for (auto const& job : jobs)
        for (auto const& page : job.pages)
            for (auto const& piece : page) {
                auto const text
                    = piece.text.starts_with(u"___") ? std::string("___") : ToUtf8(piece.text);
                lines.push_back(piece.font.bold ? '*' + text + '*' : text);
            }
    return lines;
}

TEST_F(StudyTest, ALessonIsPrintedWithTheAnswersAsTheyAre)
{
    Open(u"james-1.dat:1");
    Write("frmMain.Text3", u"James\tthe\r\n\r\nservant");
    GoTo(3);
    Write("frmMain.Text3", u"not stored yet");
    auto const printed = [this](int shift) {
        EXPECT_EQ(Press(input, screen, FormOf("frmMain"), 'P', shift), "");
        return PrintedLines(host);
    };
    EXPECT_THAT(printed(controlHeld),
        ElementsAre("*A Working Faith*", "*Lesson 1, Part One: Faith Under Trial*", "James 1",
            "*1. Who wrote this?*", "*Look at the greeting.*", "James    the", "servant",
            "*2. How will you use it?*", "___", "___", "___", "Blankless", "not stored yet",
            "No label", "___", "___", "___", "A Working Faith", "1"));
    settings.unwritable = true;
    GoTo(5);
    Write("frmMain.Text3", u"Amen");
    Messages();
    EXPECT_THAT(printed(controlHeld | shiftHeld),
        ElementsAre("*A Working Faith*", "*Lesson 1, Part One: Faith Under Trial*", "James 1",
            "*1. Who wrote this?*", "*Look at the greeting.*", "James    the", "servant",
            "*Answer from Sparrowfield:*", "James, a servant.", "Of God.",
            "*2. How will you use it?*", "___", "___", "___", "Blankless", "not stored yet",
            "No label", "___", "___", "___", "The end.", "Go on.", "Amen", "A Working Faith", "1"))
        << "what couldn't be written is printed all the same";
    settings.unreadable = true;
    EXPECT_EQ(Press(input, screen, FormOf("frmMain"), 'P', controlHeld), "");
    EXPECT_THAT(host.Recorder().TakeJobs(), IsEmpty());
    EXPECT_THAT(Messages(), ElementsAre(HasSubstr("The lesson hasn't been printed.")));
}

TEST_F(BibleTest, TheNotesOnABookArePrintedInTheOrderOfItsChapters)
{
    for (auto const* const name :
        { u"John10", u"John2", u"John", u"Johnny1", u"1 John1", u"john3" })
        files.Put(NotePath(name), "on " + ToUtf8(name));
    files.Put(NotePath(u"John4"), " ");
    OpenReader();
    LookUp(u"John 1");
    WriteNote(u"just typed");
    EXPECT_EQ(Press(input, screen, FormOf("frmBible"), 'P', controlHeld), "");
    EXPECT_THAT(PrintedLines(host),
        ElementsAre("*Notes on John*", "*John*", "on John", "*John 1*", "just typed", "*John 2*",
            "on John2", "*john 3*", "on john3", "*John 10*", "on John10", "Notes on John", "1"));
    EXPECT_EQ(FormOf("frmBible").MousePointer(), pointerDefault);
    LookUp(u"Job 1");
    EXPECT_EQ(Press(input, screen, FormOf("frmBible"), 'P', controlHeld), "");
    EXPECT_THAT(Messages(), ElementsAre("There are no notes on Job yet."));
}

TEST(Paper, TextsStayWithinTheMarginsAndHeadingsWithTheirTexts)
{
    MemoryFileSystem files;
    HeadlessHost host(files);
    Document document { {}, u"T", {} };
    constexpr int lessons = 150;
    for (int lesson = 0; lesson < lessons; ++lesson) {
        // The headings come at all heights of a page.
        Text answer = u"\r\n\r\na word";
        for (int line = 0; line < lesson % 9; ++line)
            answer += u"\r\n";
        answer += Text(lesson % 4 == 0 ? 3000 : 30, u'\x4e00');
        document.sections.push_back(
            { u"Section", {}, { { u"1", u"1.", { u"Why?" }, answer, {} } } });
    }
    PrintDocument(host.DefaultPrinter(), document);
    auto const jobs = host.Recorder().TakeJobs();
    ASSERT_THAT(jobs, SizeIs(1));
    EXPECT_GT(jobs[0].pages.size(), 20U);
    std::size_t letters = 0;
    for (std::size_t number = 0; number < jobs[0].pages.size(); ++number) {
        auto const& page = jobs[0].pages[number];
        ASSERT_GT(page.size(), 2U);
        for (auto const& piece : page) {
            auto const width = host.MeasureText(piece.font, piece.text, 0).width;
            EXPECT_TRUE(piece.x >= 1080 && piece.x + width <= 11520 - 1080 + 1 && piece.y >= 1080
                && piece.y < 15120 - 500)
                << ToUtf8(piece.text);
            letters += static_cast<std::size_t>(std::ranges::count(piece.text, u'\x4e00'));
        }
        EXPECT_FALSE(page[page.size() - 3].font.bold) << "a heading above the foot";
        EXPECT_EQ(page.back().text, FromNumber(static_cast<int>(number) + 1));
    }
    EXPECT_EQ(letters, 38U * 3000 + 112U * 30);
}
