// The kinds of control that have rules of their own.

#include "controls/list.h"
#include "controls/log_form.h"
#include "controls/xp_container.h"

using testing::ElementsAre;

namespace {

class KindsTest : public FormsTest {
protected:
    HScrollBar bar { a, a, "bar", {} };
    ProgressBar progress { a, a, "progress", {} };
    ComboBox combo { a, a, "combo", {}, { u"one", u"two" } };
    CheckBox check { a, a, "check", {} };
    TreeView tree { a, a, "tree", {} };
    Timer timer { a, "timer", 20 };
    PictureBox picture { a, a, "picture", {} };
    Label wrapped { a, a, "wrapped", { 0, 0, 1200, 100 } };
    StatusBar status { a, "status", { 0, 0, 10, 300 } };
};

}

TEST_F(KindsTest, AScrollBarTellsEveryChangeOfItsValueAndNoOther)
{
    bar.Change = [this] { a.Write("bar change " + std::to_string(bar.Value)); };
    bar.Scroll = [this] { a.Write("bar scroll " + std::to_string(bar.Value)); };
    a.Show();
    TakeLog();
    bar.Min = 1;
    bar.Max = 5;
    EXPECT_TRUE(TakeLog().empty()) << "assigning the limits raises nothing";
    bar.Value = 4;
    bar.Value = 4;
    bar.Value = 99;
    bar.Max = -3;
    EXPECT_THAT(TakeLog(), ElementsAre("a.bar change 4", "a.bar change 5"));
    EXPECT_EQ(bar.Max, -3) << "a maximum below the minimum stays as assigned";
    bar.Max = 5;
    input.DragThumb(bar, 2, true);
    input.Step(bar, BarStep::Less);
    input.Step(bar, BarStep::Less);
    input.DragThumb(bar, 3, false);
    input.DragThumb(bar, 1, true);
    EXPECT_THAT(TakeLog(),
        ElementsAre("a.first lost", "a.bar scroll 2", "a.bar change 2", "a.bar change 1", "a.bar scroll 3",
            "a.bar scroll 1"));
}

TEST_F(KindsTest, AProgressBarHoldsItsValueWithinItsLimits)
{
    progress.Max = 10;
    progress.Value = 11;
    EXPECT_EQ(progress.Value, 10);
    progress.Max = 0;
    progress.Value = 5;
    EXPECT_EQ(progress.Value, 0);
}

TEST_F(KindsTest, SettingAListIndexOrACheckBoxClicks)
{
    combo.Click = [this] { a.Write("combo " + ToUtf8(Text(combo.Text))); };
    check.Click = [this] { a.Write("check " + std::to_string(check.Value)); };
    a.Show();
    TakeLog();
    combo.ListIndex = 1;
    input.Choose(combo, 0);
    EXPECT_EQ(input.Choose(combo, 2), "combo has no entry 2");
    input.Click(check);
    EXPECT_THAT(TakeLog(), ElementsAre("a.combo two", "a.first lost", "a.combo one", "a.check 1"));
}

TEST_F(KindsTest, ATreeKeepsItsOrderAndFindsTheFirstNodeOfAKey)
{
    Node& root = tree.Add(u"r", u"Root");
    Node& child = tree.Add(root, u"r1", u"Child");
    EXPECT_EQ(tree.Find(u"r1"), &child);
    tree.Add(u"r", u"Again");
    EXPECT_EQ(tree.Find(u"r"), &root);
    EXPECT_EQ(tree.Roots().size(), 2U);
    EXPECT_EQ(tree.Find(u"none"), nullptr);
    tree.NodeClick = [this](Node& node) { a.Write("node " + ToUtf8(node.Key())); };
    a.Show();
    EXPECT_TRUE(tree.Nodes().empty()) << "loading a form empties its trees";
    Node& again = tree.Add(tree.Add(u"r", u"Root"), u"r1", u"Child");
    TakeLog();
    input.ClickNode(tree, again);
    EXPECT_THAT(TakeLog(), ElementsAre("a.first lost", "a.node r1"));
    EXPECT_TRUE(again.Parent()->Expanded());
    EXPECT_EQ(tree.Selected(), &again);
}

TEST_F(KindsTest, ARestingPointerIsReportedAnewWhenTheControlMoved)
{
    picture.MouseMove = [this](float x, float y) { a.Write("move " + std::to_string(static_cast<int>(x)) + " " + std::to_string(static_cast<int>(y))); };
    timer.Tick = [this] { picture.Left = picture.Left - 30; };
    a.Show();
    input.Mouse(picture, MouseAction::Move, 100, 50);
    TakeLog();
    EXPECT_EQ(input.Fire(timer), "");
    EXPECT_THAT(TakeLog(), ElementsAre("a.move 130 50"));
    timer.Enabled = false;
    EXPECT_EQ(input.Fire(timer), "a.timer is off");
}

TEST_F(KindsTest, ALabelGrowsWithItsTextAndAPictureBoxWithItsPicture)
{
    wrapped.AutoSize = true;
    wrapped.WordWrap = true;
    wrapped.FontSize = 10;
    picture.AutoSize = true;
    files.Put(u"map.gif", std::string("GIF89a\x20\x00\x10\x00", 10));
    a.Show();
    wrapped.Caption = u"ten chars and more"; // Ten characters of 120 twips a line.
    EXPECT_EQ(wrapped.Height, 2 * 240);
    EXPECT_EQ(wrapped.Width, 1200);
    picture.Picture = u"map.gif";
    EXPECT_EQ(picture.Width, 32 * 15);
    EXPECT_EQ(picture.Height, 16 * 15);
}

TEST_F(KindsTest, AStatusBarKeepsToTheBottom)
{
    a.Show();
    EXPECT_EQ(status.Top, 2000 - 300);
    EXPECT_EQ(status.Width, 3000);
    input.ChangeState(a, WindowState::Maximised);
    EXPECT_EQ(status.Width, a.ScaleWidth);
    EXPECT_EQ(status.Top, a.ScaleHeight - 300);
}

TEST_F(KindsTest, APanelPaintsBorderStripAndBody)
{
    XPContainer panel { a, a, "panel", { 0, 0, 10 * 15, 40 * 15 }, u"Panel" };
    panel.BorderColor = Rgb(1, 2, 3);
    auto const surface = panel.Surface();
    ASSERT_EQ(surface.Width(), 10);
    ASSERT_EQ(surface.Height(), 40);
    auto const at = [&](int x, int y) { return surface.Pixels()[static_cast<std::size_t>(y * 10 + x)]; };
    for (int i = 0; i < 40; ++i)
        EXPECT_EQ(at(9, i), Rgb(1, 2, 3)) << "right edge, row " << i;
    EXPECT_EQ(at(0, 39), Rgb(1, 2, 3));
    EXPECT_EQ(at(5, 1), panel.HeaderLightColor) << "the strip's first row";
    EXPECT_EQ(at(5, 23), panel.HeaderDarkColor) << "its last";
    EXPECT_EQ(at(5, 24), panel.BackLightColor) << "the body's first row";
    EXPECT_EQ(at(5, 38), panel.BackDarkColor) << "two rows before the gradient's end";
    panel.Theme = 9;
    EXPECT_EQ(panel.BorderColor, Rgb(0xF7, 0x9E, 0xA7));
    panel.Theme = 12;
    EXPECT_EQ(panel.BorderColor, Rgb(0xF7, 0x9E, 0xA7));
    panel.Height = 26 * 15; // A body of a single row has no gradient.
    EXPECT_EQ(panel.Surface().Pixels()[25 * 10], panel.BorderColor);
    panel.Height = 24 * 15; // As low as the strip, which lies above the border.
    EXPECT_EQ(panel.Surface().Pixels()[23 * 10 + 5], panel.HeaderDarkColor);
    panel.Style = 1;
    panel.Height = 5 * 15;
    EXPECT_EQ(panel.Surface().Pixels()[1 * 10 + 5], Rgb(254, 234, 236)) << "a fourth of the way from BackLightColor down";
    EXPECT_EQ(panel.Surface().Pixels()[4 * 10 + 5], panel.BorderColor);
    panel.BackLightColor = 0x80000005; // the system's window ground
    panel.BackDarkColor = 0x80000005;
    EXPECT_EQ(panel.Surface().Pixels()[2 * 10 + 5], Rgb(255, 255, 255));
    panel.Width = 0;
    EXPECT_EQ(panel.Surface().Width(), 0);
}
