// Pages, pictures and paper.

#include "base/code_page.h"
#include "base/nearest_code_page.h"
#include "desktop/desktop_fixture.h"
#include "desktop/qt_printer.h"
#include "desktop/scale.h"
#include "reader/chapter_page.h"

#include <QDir>
#include <QPrinterInfo>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTextFrame>

static std::string Jpeg(int width, int height)
{
    return Encoded(QImage(width, height, QImage::Format_RGB32));
}

TEST_F(DesktopTest, ThePageOfTheReaderHasItsBackgroundWhereverTheProgramLies)
{
    frmPage reader(screen);
    reader.Show();
    auto& shown = Shown<QTextBrowser>(reader.page);
    for (TextView const folder :
        { u"C:\\Program Files\\Sparrowfield Interactive Software\\Sparrowfield", u"/app",
            u"/home/a #1 ?%20/app", u"/home/\u0142\u00F3d\u017A \u0416" }) {
        files.applicationFolder = folder;
        files.Put(Text(folder) + u"\\bg.jpg", Jpeg(8, 8));
        for (auto const& page : { EmptyPage(folder),
                 *BuildChapterPage("Jude\r\n001 001 caf\xE9\r\n\r\n",
                     { Text(folder), false, ReadWantedVerses(u"Jude 1") }) }) {
            shown.setHtml({});
            files.Put(u"C:\\Temp\\p.htm", ToNearestCodePage(page).bytes);
            reader.page.Navigate(u"file://C:\\Temp\\p.htm");
            auto const ground = shown.document()->rootFrame()->frameFormat().background();
            EXPECT_EQ(ground.texture().width(), 8) << ToUtf8(page);
            EXPECT_EQ(shown.toPlainText().contains(QStringLiteral("caf\u00E9")), page.size() > 300);
        }
    }
    Unload(reader);
    Settle();
}

TEST_F(DesktopTest, PicturesTellTheirSize)
{
    files.Put(u"map1.jpg", Jpeg(30, 20));
    files.Put(u"map2.jpg", "no picture");
    auto const map = host.PictureSize(u"map1.jpg");
    ASSERT_TRUE(map);
    EXPECT_EQ(map->width, 30);
    EXPECT_EQ(host.PictureSize(u":lamp")->width, 35);
    for (TextView const name : { u"map2.jpg", u"map3.jpg", u"", u":nothing" })
        EXPECT_FALSE(host.PictureSize(name)) << ToUtf8(name);
}

TEST(Scale, WindowsGrowAsFarAsTheScreenHasRoom)
{
    struct {
        QSize room; // at the scale
        double scale, part;
    } const rows[] = {
        { { 1366, 768 }, 1, 1 },
        { { 800, 600 }, 1, 1 },
        { { 640, 480 }, 1, 1 },
        { { 1920, 1080 }, 2, 1 },
        { { 683, 384 }, 2, 0.64 },
        { { 1280, 300 }, 2, 0.5 },
        { { 400, 1000 }, 1.25, 0.8 },
    };
    for (auto const& row : rows)
        EXPECT_DOUBLE_EQ(FittingPart({ 800, 600 }, row.room, row.scale), row.part) << row.part;
    qputenv("QT_SCALE_FACTOR", "2");
    {
        PartOfScale const smaller(0.75);
        EXPECT_EQ(qgetenv("QT_SCALE_FACTOR"), "1.5");
    }
    EXPECT_EQ(qgetenv("QT_SCALE_FACTOR"), "2");
    qunsetenv("QT_SCALE_FACTOR");
    {
        PartOfScale const smaller(0.75);
        EXPECT_EQ(qgetenv("QT_SCALE_FACTOR"), "0.75");
    }
    EXPECT_FALSE(qEnvironmentVariableIsSet("QT_SCALE_FACTOR"));
}

TEST(QtPrinterTest, WithoutAPrinterANoteGoesToAFileThatIsNamed)
{
    if (!QPrinterInfo::defaultPrinter().isNull())
        GTEST_SKIP() << "this machine has a printer";
    QTemporaryDir home;
    auto const before = qgetenv("HOME");
    qputenv("HOME", home.path().toUtf8());
    std::vector<Text> messages;
    QtPrinter printer([&](Text message) { messages.push_back(std::move(message)); });
    for (TextView const title : { u"", u"", u"a/b: \u201Cc\u201D" }) {
        if (!title.empty())
            printer.SetTitle(title);
        printer.SetFont({ u"Arial", 12, false });
        for (int i = 0; i < 100; ++i) { // more than a page
            printer.Print(u"A line of a note");
            EXPECT_GT(printer.CurrentX(), 0);
            printer.EndLine();
        }
        printer.EndDoc();
    }
    qputenv("HOME", before);
    ASSERT_EQ(messages.size(), 3u);
    EXPECT_TRUE(Contains(messages[0], u"Sparrowfield note.pdf"));
    EXPECT_TRUE(Contains(messages[1], u"Sparrowfield note 2.pdf"));
    EXPECT_TRUE(Contains(messages[2], u"Sparrowfield a_b_ \u201Cc\u201D.pdf"));
    EXPECT_TRUE(messages[2].starts_with(u"There is no printer. \u201Ca/b: "));
}
