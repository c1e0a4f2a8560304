// What the disc's pictures and the welcome video may be like: the screens stay usable, and no
// message comes.

#include "desktop/program_fixture.h"

#include <ctime>

#include <QBuffer>
#include <QFile>
#include <QImageWriter>
#include <QMediaPlayer>
#include <QPointer>
#include <QTextBrowser>
#include <QTimer>

namespace {

std::string Small(char const* format)
{
    QImage image(40, 30, QImage::Format_RGB32);
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 40; ++x)
            image.setPixel(x, y, static_cast<unsigned>(x * y * 7919));
    return Encoded(image, format);
}

/// A JPEG whose frame claims this many pixels each way, over the body of a small one.
std::string Claiming(int size)
{
    auto bytes = Small("JPG");
    auto const frame = bytes.find("\xFF\xC0") + 5; // height and width, the high byte first
    for (std::size_t const at : { frame, frame + 2 }) {
        bytes[at] = static_cast<char>(size >> 8);
        bytes[at + 1] = static_cast<char>(size);
    }
    return bytes;
}

/// A progressive JPEG of 1000 by 1000 pixels with so many scans, each of which costs a pass.
std::string ManyScans(int scans)
{
    QImage image(1000, 1000, QImage::Format_RGB32);
    image.fill(Qt::gray);
    QBuffer buffer;
    QImageWriter writer(&buffer, "jpeg");
    writer.setProgressiveScanWrite(true);
    writer.write(image);
    auto const bytes = buffer.data().toStdString();
    auto const last = bytes.rfind("\xFF\xDA");
    auto const scan = bytes.substr(last, bytes.size() - 2 - last);
    std::string many = bytes.substr(0, last);
    for (int i = 0; i < scans; ++i)
        many += scan;
    return many + bytes.substr(bytes.size() - 2);
}

struct BadPicture {
    char const* about;
    std::string bytes;
};

std::vector<BadPicture> BadPictures()
{
    auto const jpeg = Small("JPG");
    auto const png = Small("PNG");
    return { { "empty", "" }, { "one byte", "\xFF" }, { "a text", "This is no picture.\r\n" },
        { "NULs", std::string(5000, '\0') }, { "the head of a JPEG", jpeg.substr(0, 20) },
        { "half a JPEG", jpeg.substr(0, jpeg.size() / 2) },
        { "half a PNG", png.substr(0, png.size() / 2) }, { "a PNG", png },
        { "more than can be held", Claiming(65500) }, { "nothing", Claiming(0) },
        { "thousands of scans", ManyScans(4000) },
        { "a bitmap's head alone", "BM" + std::string(52, '\x7F') },
        { "a GIF's head alone", "GIF89a\x28\x00\x1E\x00" } };
}

class frmPictures final : public Form {
public:
    explicit frmPictures(Screen& screen)
        : Form(screen, "frmPictures", u"Pictures", 6000, 4000)
    {
        ok.Click = [this] { ++clicks; };
    }
    int clicks = 0;
    Image image { *this, *this, "Image1", { 0, 0, 600, 600 }, u"bad.jpg" };
    PictureBox map { *this, *this, "picMap", { 0, 600, 600, 600 } };
    WebBrowser page { *this, *this, "Text1", { 2000, 0, 4000, 3000 } };
    CommandButton ok { *this, *this, "Command1", { 0, 3000, 900, 300 }, u"OK" };
};

QByteArray WelcomeVideo()
{
    QFile file(QStringLiteral(SPARROWFIELD_SOURCE_DIR "/data/disc/sparrowfield.wmv"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST_F(DesktopTest, BadPicturesLeaveAScreenUsable)
{
    MessageWatch messages;
    frmPictures pictures(screen);
    pictures.map.AutoSize = true;
    pictures.Picture = u"bad.jpg";
    files.Put(u"C:\\Temp\\p.htm",
        "<html><body background=\"file://" + ToUtf8(files.ApplicationFolder())
            + "\\bg.jpg\">In the beginning</body></html>");
    auto const expectUsable = [&](char const* about) {
        SCOPED_TRACE(about);
        pictures.Show();
        pictures.map.Picture = u"bad.jpg";
        pictures.page.Navigate(u"file://C:\\Temp\\p.htm");
        Settle();
        Shown(pictures).grab();
        EXPECT_EQ(Shown<QTextBrowser>(pictures.page).toPlainText(), "In the beginning");
        pictures.clicks = 0;
        ClickByWindow(pictures.ok);
        EXPECT_EQ(pictures.clicks, 1);
        Unload(pictures);
        Settle();
    };
    expectUsable("missing");
    EXPECT_EQ(pictures.map.Width, 0);
    for (auto const& bad : BadPictures()) {
        files.Put(u"bad.jpg", bad.bytes);
        files.Put(files.ApplicationFolder() + u"\\bg.jpg", bad.bytes);
        EXPECT_FALSE(host.PictureSize(u"bad.jpg")) << bad.about;
        auto const start = std::clock();
        expectUsable(bad.about);
        EXPECT_LT(std::clock() - start, 2 * CLOCKS_PER_SEC) << bad.about;
    }
    files.MakeUnreadable(u"bad.jpg");
    expectUsable("unreadable");
    EXPECT_EQ(messages.count, 0);
}

TEST_F(ProgramOnDesktop, ABadVideoHoldsNobodyUp)
{
    files.Put(files.ApplicationFolder() + u"\\sparrowfield.wmv", "in the folder");
    struct Row {
        char const* about;
        QByteArray bytes;
    } const rows[]
        = { { "empty", "" }, { "a text", "This is no video." }, { "NULs", QByteArray(20000, '\0') },
              { "a playlist", "#EXTM3U\n#EXTINF:1,\nfile:///etc/passwd\n" },
              { "cut in its head", WelcomeVideo().left(300) },
              { "cut after its head", WelcomeVideo().left(20000) } };
    program.Start({});
    auto const watch = [&](char const* about) {
        SCOPED_TRACE(about);
        bool seen = false;
        QTimer act;
        act.setSingleShot(true);
        QObject::connect(&act, &QTimer::timeout, [&] {
            QWidget* const video = Window("frmVideo");
            seen = video;
            if (!video)
                return;
            video->grab();
            video->resize(500, 400);
            QTest::keyClick(
                video->findChild<QWidget*>(QStringLiteral("WindowsMediaPlayer1")), Qt::Key_Space);
            video->close();
        });
        act.start(150);
        ClickOn("frmSplash", "lblWelcomeVideo");
        Settle();
        EXPECT_TRUE(seen);
        EXPECT_FALSE(Window("frmVideo"));
        EXPECT_TRUE(Window("frmSplash"));
    };
    watch("missing");
    for (auto const& row : rows) {
        WriteVideo(row.bytes);
        watch(row.about);
    }
    ClickOn("frmSplash", "lblRunFromCD");
    Settle();
    EXPECT_TRUE(Window("frmContents"));
    EXPECT_EQ(messages.count, 0);
}

TEST_F(ProgramOnDesktop, ClosingTheVideoEndsItsPlayback)
{
    WriteVideo(WelcomeVideo());
    program.GetScreen().Find("frmVideo")->Show();
    QPointer<QMediaPlayer> const player = Window("frmVideo")->findChild<QMediaPlayer*>();
    ASSERT_TRUE(player);
    if (!QTest::qWaitFor([&] {
            return player->playbackState() == QMediaPlayer::PlayingState && player->position() > 0;
        }))
        GTEST_SKIP() << "no player for this video here: " << player->errorString().toStdString();
    Window("frmVideo")->close();
    Settle();
    EXPECT_FALSE(player) << "a player that is left would be heard on";
}
