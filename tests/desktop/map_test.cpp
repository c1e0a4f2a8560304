// The viewer of the maps with real pictures and a real pointer.

#include "controls/input.h"
#include "desktop/program_fixture.h"
#include "maps/bible_maps.h"
#include "support/pictures.h"

namespace {

/// Every pixel tells its place: red the column, green the row, in steps that survive the packing.
QImage Chart(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(x * 255 / width, y * 255 / height, 128));
    return image;
}

class MapOnDesktop : public ProgramOnDesktop {
protected:
    MapOnDesktop()
    {
        program.Start({});
        input.KeyPress(*program.GetScreen().Find("frmSplash"), u' ');
        Settle();
    }
    void OpenMap(int number)
    {
        input.Click(
            *program.GetScreen().Find("frmContents")->FindControl(bibleMaps[number - 1].menuEntry));
        Settle();
    }
    QWidget& Widget(char const* name)
    {
        return *Window("frmMap")->findChild<QWidget*>(QString::fromUtf8(name));
    }
    QPoint MapPlace() { return Widget("Picture2").pos(); }

    Input input { program.GetScreen() };
};

} // namespace

TEST_F(MapOnDesktop, TheMapFollowsTheHandAndIsShownPixelForPixel)
{
    auto const chart = Chart(2400, 1700);
    files.Put(u"map2.jpg", Encoded(chart));
    OpenMap(2);
    QWidget* const window = Window("frmMap");
    ASSERT_TRUE(window);
    EXPECT_EQ(window->windowTitle(), "The Exodus Route and Conquest of Canaan");
    auto* const handle = window->windowHandle();
    QPoint const start(400, 300);
    auto const moveTo = [&](QPoint by) {
        QTest::mouseMove(handle, start + by);
        QTest::qWait(60);
    };
    moveTo({ 0, 0 });
    QTest::mousePress(handle, Qt::LeftButton, {}, start);
    EXPECT_EQ(window->cursor().hotSpot(), QPoint(16, 16));
    auto const pointer = window->cursor().pixmap().toImage();
    EXPECT_EQ(pointer.size(), QSize(32, 32));
    EXPECT_GT(qAlpha(pointer.pixel(16, 3)), 200);
    auto const turned = pointer.transformed(QTransform().rotate(90));
    for (int at = 0; at < 32 * 32; ++at)
        EXPECT_NEAR(
            qAlpha(pointer.pixel(at % 32, at / 32)), qAlpha(turned.pixel(at % 32, at / 32)), 40)
            << "arrows in all four directions";
    moveTo({ -150, -90 });
    EXPECT_EQ(MapPlace(), QPoint(-150, -90));
    moveTo({ -180, -120 });
    EXPECT_EQ(MapPlace(), QPoint(-180, -120));
    QTest::qWait(100);
    EXPECT_EQ(MapPlace(), QPoint(-180, -120)) << "it rests with the pointer";
    auto const shown = Widget("Picture1").grab().toImage();
    QImage decoded;
    decoded.loadFromData(QByteArray::fromStdString(Encoded(chart)));
    for (QPoint const at : { QPoint(0, 0), QPoint(300, 0), QPoint(0, 200) })
        EXPECT_EQ(shown.pixelColor(at), Qt::black) << "the border shows over the map";
    for (QPoint const at : { QPoint(1, 1), QPoint(5, 5), QPoint(300, 200), QPoint(700, 500) })
        EXPECT_EQ(shown.pixel(at), decoded.pixel(at + QPoint(180, 120)));
    moveTo({ 2000, 2000 });
    EXPECT_EQ(MapPlace(), QPoint(0, 0));
    QTest::mouseRelease(handle, Qt::LeftButton, {}, QPoint(3000, 3000));
    EXPECT_EQ(window->cursor().shape(), Qt::ArrowCursor);
    moveTo({ -50, -50 });
    EXPECT_EQ(MapPlace(), QPoint(0, 0));
    QTest::keyClick(&Widget("Picture2"), Qt::Key_Down);
    EXPECT_LT(MapPlace().y(), -100);
    QTest::mousePress(handle, Qt::RightButton, {}, start);
    QTest::keyClick(&Widget("Picture2"), Qt::Key_Escape);
    Settle();
    EXPECT_FALSE(Window("frmMap")) << "Escape closes the viewer during a drag too";
    QTest::mouseRelease(Window("frmContents"), Qt::RightButton, {}, start);
    EXPECT_EQ(messages.count, 0);
}

TEST_F(MapOnDesktop, BadMaps)
{
    auto const good = Encoded(Chart(900, 700));
    struct Row {
        char const* about;
        std::string bytes;
        bool isShown;
    } const rows[] = {
        { "empty", "", false },
        { "a text", "This is no map.", false },
        { "cut in its head", good.substr(0, 30), false },
        { "cut in its picture", good.substr(0, good.size() / 2), false },
        { "its last byte is missing", good.substr(0, good.size() - 1), false },
        { "60,000 by 60,000", JpegHead(60000, 60000) + good.substr(200), false },
        { "something after its end", good + std::string(500, '\0'), true },
        { "long", Encoded(Chart(40000, 20)), true },
        { "one pixel", Encoded(Chart(1, 1)), true },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.about);
        messages.count = 0;
        messages.last.clear();
        files.Put(u"map1.jpg", row.bytes);
        OpenMap(1);
        EXPECT_EQ(messages.count, row.isShown ? 0 : 1);
        EXPECT_EQ(messages.last,
            row.isShown ? "" : "map1.jpg: the file is no picture that can be shown.");
        EXPECT_TRUE(Window("frmMap"));
        EXPECT_EQ(Widget("Picture2").isHidden() || Widget("Picture2").width() == 0, !row.isShown);
        QTest::keyClick(&Widget("Picture2"), Qt::Key_Right);
        Window("frmMap")->grab();
    }
    files.Put(u"map1.jpg", Encoded(Chart(40000, 20)));
    OpenMap(1);
    for (int i = 0; i < 100; ++i)
        QTest::keyClick(&Widget("Picture2"), Qt::Key_Right);
    EXPECT_EQ(MapPlace().x(), -32767) << "as far as a bar goes";
    Window("frmMap")->close();
    Settle();
    EXPECT_FALSE(Window("frmMap"));
}
