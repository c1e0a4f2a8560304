// The viewer of the maps, opened from the menus of both screens and moved by bars, keys and hand.

#include "controls/picture.h"
#include "maps/bible_maps.h"
#include "support/pictures.h"
#include "support/program_fixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr int keyEscape = 27, keyLeft = 37, keyUp = 38, keyRight = 39, keyDown = 40;

class MapTest : public StudyTest {
protected:
    MapTest()
    {
        for (BibleMap const& each : bibleMaps)
            files.Put(
                MapFile(each.number), JpegHead(2000 + static_cast<unsigned>(each.number), 1500));
        files.Put(u"map7.jpg", JpegHead(300, 200));
        files.Put(u"map8.jpg", JpegHead(300, 2000));
        Start();
    }
    void OpenMap(int number, std::string const& screenForm = "frmContents")
    {
        Click(screenForm + "." + bibleMaps[number - 1].menuEntry);
    }
    /// Of the map within the viewport.
    std::string Place() { return Both(static_cast<int>(map.Left), static_cast<int>(map.Top)); }
    std::string Values() { return Both(across.Value, down.Value); }
    static std::string Both(int x, int y) { return std::to_string(x) + " " + std::to_string(y); }
    void Grab(float x, float y) { EXPECT_EQ(input.Mouse(map, MouseAction::Down, x, y), ""); }
    /// Moves the pointer by so much from where it is, over the map as it lies now.
    void Move(float x, float y)
    {
        pointerX += x;
        pointerY += y;
        EXPECT_EQ(input.Mouse(map, MouseAction::Move, pointerX - map.Left, pointerY - map.Top), "");
    }
    void GrabAt(float x, float y)
    {
        pointerX = x;
        pointerY = y;
        Grab(x - map.Left, y - map.Top);
    }
    void Let()
    {
        EXPECT_EQ(input.Mouse(map, MouseAction::Up, pointerX - map.Left, pointerY - map.Top), "");
    }
    void Tick() { EXPECT_EQ(input.Fire(timer), ""); }
    void Key(int keyCode) { EXPECT_EQ(Press(input, screen, *viewer.Focus(), keyCode, 0), ""); }

    Form& viewer = FormOf("frmMap");
    PictureBox& map = Get<PictureBox>("frmMap.Picture2");
    HScrollBar& across = Get<HScrollBar>("frmMap.HScroll1");
    VScrollBar& down = Get<VScrollBar>("frmMap.VScroll1");
    Timer& timer = Get<Timer>("frmMap.Timer1");
    float pointerX = 0, pointerY = 0; // in the viewport
};

} // namespace

TEST_F(MapTest, AllEntriesOfBothScreensOpenTheirMapInOneViewer)
{
    Open(u"james-1.dat:1");
    for (std::string const from : { "frmMain", "frmContents" }) {
        FormOf(from).Show();
        for (BibleMap const& each : bibleMaps) {
            SCOPED_TRACE(from + ": " + each.menuEntry);
            EXPECT_EQ(CaptionOf(from + "." + each.menuEntry),
                u"&" + FromNumber(each.number) + u" " + Text(each.title));
            OpenMap(each.number, from);
            EXPECT_EQ(screen.Active(), &viewer);
            EXPECT_EQ(viewer.Caption(), each.title);
            EXPECT_EQ(map.Picture(), MapFile(each.number));
            EXPECT_EQ(viewer.WindowState(), FormState::Maximised);
            EXPECT_TRUE(map.IsShown());
        }
    }
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(input.Close(viewer), "");
    EXPECT_TRUE(IsOpen("frmContents"));
}

TEST_F(MapTest, AnotherMapReusesTheWindowAsItIsAndANewOneIsMaximised)
{
    OpenMap(1);
    EXPECT_EQ(input.ChangeState(viewer, FormState::Normal), "");
    EXPECT_EQ(viewer.ScaleWidth, 573);
    EXPECT_EQ(viewer.ScaleHeight, 509);
    auto& grip = Get<PictureBox>("frmMap.Picture3");
    EXPECT_TRUE(grip.Visible);
    EXPECT_EQ(grip.Left, 573 - 14);
    EXPECT_EQ(grip.Top, 509 - 15);
    Key(keyRight);
    EXPECT_EQ(Place(), "-553 0");
    OpenMap(2);
    EXPECT_EQ(viewer.ScaleWidth, 573);
    EXPECT_EQ(Place(), "0 0");
    OpenMap(7);
    EXPECT_EQ(Place(), "136 154") << "centred";
    EXPECT_FALSE(grip.Visible || across.Visible || down.Visible);
    OpenMap(3);
    Key(keyDown);
    EXPECT_EQ(input.ChangeState(viewer, FormState::Maximised), "");
    EXPECT_FALSE(grip.Visible);
    EXPECT_EQ(Place(), "0 0") << "a resize goes back to the corner";
    Key(keyDown);
    EXPECT_EQ(input.ChangeState(viewer, FormState::Minimised), "");
    EXPECT_NE(Place(), "0 0") << "minimising doesn't";
    EXPECT_EQ(input.ChangeState(viewer, FormState::Normal), "");
    EXPECT_EQ(Place(), "0 0");
    Key(keyEscape);
    EXPECT_FALSE(viewer.IsLoaded());
    OpenMap(3);
    EXPECT_EQ(viewer.WindowState(), FormState::Maximised);
}

TEST_F(MapTest, ADragBringsTheGrabbedPointBackUnderThePointer)
{
    OpenMap(1);
    GrabAt(600, 500);
    EXPECT_EQ(viewer.MousePointer, pointerCustom);
    Tick();
    EXPECT_EQ(Place(), "0 0") << "holding still";
    Move(-120, -80);
    EXPECT_EQ(Place(), "0 0") << "the map moves on the timer alone";
    Tick();
    EXPECT_EQ(Place(), "-120 -80");
    Tick();
    Tick();
    EXPECT_EQ(Place(), "-120 -80") << "the pointer rests";
    Move(20, 0);
    Move(10, 30.5F);
    Tick();
    EXPECT_EQ(Place(), "-90 -50") << "49.5 goes to the even neighbour";
    Let();
    EXPECT_EQ(viewer.MousePointer, pointerDefault);
    EXPECT_NE(input.Fire(timer), "") << "off";
    Move(50, 50);
    EXPECT_EQ(Place(), "-90 -50");
}

TEST_F(MapTest, AnEdgeStopsOneAxisAndLeavesTheOther)
{
    OpenMap(1);
    GrabAt(600, 300);
    Move(200, -40);
    Tick();
    EXPECT_EQ(Place(), "0 -40");
    Move(0, -10000);
    Tick();
    Tick();
    EXPECT_EQ(down.Value, down.Max);
    EXPECT_EQ(across.Value, 0);
    Move(-10000, 10000);
    Tick();
    EXPECT_EQ(across.Value, across.Max);
    EXPECT_EQ(down.Value, 40);
}

TEST_F(MapTest, ADragMovesOnlyAlongTheAxisWhoseBarIsUp)
{
    OpenMap(8);
    ASSERT_TRUE(down.Visible && !across.Visible);
    auto const left = map.Left();
    GrabAt(700, 500);
    Move(-30, -60);
    Tick();
    EXPECT_EQ(Values(), "0 60");
    EXPECT_EQ(map.Left(), left);
    Key(keyRight);
    EXPECT_EQ(Values(), "0 60") << "nor does a key";
    Let();
    OpenMap(7);
    Grab(10, 10);
    EXPECT_EQ(viewer.MousePointer, pointerDefault) << "a map that fits can't be dragged";
    EXPECT_FALSE(timer.Enabled);
}

TEST_F(MapTest, KeysPageToTheEnds)
{
    OpenMap(1);
    EXPECT_EQ(input.ChangeState(viewer, FormState::Normal), "");
    EXPECT_EQ(across.LargeChange, 553);
    EXPECT_EQ(down.LargeChange, 489);
    struct {
        int key;
        char const* values;
    } const rows[] = { { keyUp, "0 0" }, { keyLeft, "0 0" }, { keyRight, "553 0" },
        { keyDown, "553 489" }, { keyDown, "553 978" }, { keyDown, "553 1007" },
        { keyDown, "553 1007" }, { keyRight, "1106 1007" }, { keyRight, "1444 1007" },
        { keyUp, "1444 518" }, { 'A', "1444 518" }, { 13, "1444 518" }, { keyLeft, "891 518" },
        { keyUp, "891 29" }, { keyUp, "891 0" } };
    for (auto const& row : rows) {
        Key(row.key);
        EXPECT_EQ(Values(), row.values);
    }
}

TEST_F(MapTest, ABarWithARangeBelowNothingGoesToItsEnd)
{
    files.Put(u"map5.jpg", JpegHead(567, 300));
    files.Put(u"map6.jpg", JpegHead(300, 503));
    OpenMap(1);
    EXPECT_EQ(input.ChangeState(viewer, FormState::Normal), "");
    struct {
        int map;
        ScrollBar& bar;
        int onward, back;
        Property<float>& place;
    } const rows[]
        = { { 5, across, keyRight, keyLeft, map.Left }, { 6, down, keyDown, keyUp, map.Top } };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.map);
        OpenMap(row.map);
        EXPECT_EQ(row.bar.Max, -6);
        EXPECT_EQ(row.place, 0);
        for (auto const& [key, value] : { std::pair(row.onward, -6), std::pair(row.onward, -6),
                 std::pair(row.back, 0), std::pair(row.back, 0) }) {
            Key(key);
            EXPECT_EQ(row.bar.Value, value);
            EXPECT_EQ(row.place, -value);
        }
        for (auto const& [step, value] :
            { std::pair(BarStep::More, -6), std::pair(BarStep::PageLess, 0),
                std::pair(BarStep::PageMore, -6), std::pair(BarStep::Less, 0) }) {
            EXPECT_EQ(input.Step(row.bar, step), "");
            EXPECT_EQ(row.bar.Value, value);
        }
        GrabAt(200, 200);
        Move(3, 3);
        Tick();
        Tick();
        Let();
        EXPECT_EQ(row.bar.Value, -6) << "by hand";
    }
}

TEST_F(MapTest, BarsMoveTheMapAndNeverKeepTheFocus)
{
    OpenMap(1);
    EXPECT_EQ(input.Step(across, BarStep::More), "");
    EXPECT_EQ(Place(), "-20 0");
    EXPECT_EQ(viewer.Focus(), &map);
    EXPECT_EQ(input.Step(down, BarStep::PageMore), "");
    EXPECT_EQ(down.Value, std::min<int>(down.LargeChange, down.Max));
    EXPECT_EQ(input.DragThumb(across, 333, false), "");
    EXPECT_EQ(map.Left, -333) << "live, with the thumb still held";
    EXPECT_EQ(input.DragThumb(across, 340, true), "");
    EXPECT_EQ(map.Left, -340);
    EXPECT_EQ(input.Focus(down), "");
    EXPECT_EQ(viewer.Focus(), &map);
    Key(keyUp);
    EXPECT_EQ(map.Top, 0);
}

TEST_F(MapTest, AResizeDuringADragGoesOnFromTheCorner)
{
    OpenMap(1);
    EXPECT_EQ(input.ChangeState(viewer, FormState::Normal), "");
    GrabAt(600, 300);
    Move(-100, -100);
    Tick();
    EXPECT_EQ(Place(), "-100 -100");
    EXPECT_EQ(input.Resize(viewer, 12000, 9000), "");
    EXPECT_EQ(Place(), "0 0");
    EXPECT_TRUE(timer.Enabled);
    Move(-10, 0);
    Tick();
    EXPECT_EQ(Values(), "110 100") << "the grabbed point comes back under the pointer";
    Key(keyEscape);
    EXPECT_FALSE(viewer.IsLoaded());
    OpenMap(1);
    EXPECT_FALSE(timer.Enabled);
    EXPECT_EQ(viewer.MousePointer, pointerDefault);
    Move(-10, 0);
    EXPECT_EQ(Place(), "0 0");
}

TEST_F(MapTest, AModalFormEndsADrag)
{
    OpenMap(1);
    GrabAt(600, 300);
    Move(-100, -100);
    bool cameUp = false;
    host.serveModal = [&](Form& form) {
        cameUp = true;
        EXPECT_FALSE(timer.Enabled);
        EXPECT_EQ(viewer.MousePointer, pointerDefault);
        EXPECT_EQ(input.Close(form), "");
    };
    Node("frmContents.TreeView1", u"james-1.dat:1");
    ASSERT_TRUE(cameUp) << "the welcome";
    Move(-50, -50);
    EXPECT_FALSE(timer.Enabled);
    EXPECT_EQ(Place(), "0 0") << "the button was let go over the modal form";
    GrabAt(600, 300);
    Move(-100, -100);
    Tick();
    EXPECT_EQ(Place(), "-100 -100") << "the map can be grabbed again";
}

TEST_F(MapTest, WithoutAPictureTheViewerIsEmptyAndAMessageTellsWhy)
{
    struct {
        char const* about;
        std::optional<std::string> bytes;
        char const* message;
    } const rows[] = {
        { "missing", {}, "map4.jpg: the file doesn't exist." },
        { "empty", "", "map4.jpg: the file is no picture that can be shown." },
        { "a text", "no map", "map4.jpg: the file is no picture that can be shown." },
        { "without a size", JpegHead(0, 10),
            "map4.jpg: the file is no picture that can be shown." },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.about);
        files.Remove(u"map4.jpg");
        if (row.bytes)
            files.Put(u"map4.jpg", *row.bytes);
        OpenMap(1);
        OpenMap(4);
        EXPECT_THAT(Messages(), ElementsAre(row.message));
        EXPECT_EQ(viewer.Caption(), bibleMaps[3].title);
        EXPECT_EQ(screen.Active(), &viewer);
        EXPECT_EQ(map.Width, 0);
        EXPECT_FALSE(across.Visible || down.Visible);
        Key(keyDown);
        EXPECT_EQ(input.ChangeState(viewer, FormState::Normal), "");
        Key(keyEscape);
        EXPECT_FALSE(viewer.IsLoaded());
    }
    files.Put(u"map4.jpg", JpegHead(2000, 1500));
    OpenMap(4);
    EXPECT_EQ(map.Width, 2000);
}
