// The kinds of control that have rules of their own.

#include "controls/list.h"
#include "controls/log_form.h"

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
};

} // namespace

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
        ElementsAre("a.first lost", "a.bar scroll 2", "a.bar change 2", "a.bar change 1",
            "a.bar scroll 3", "a.bar scroll 1"));
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
    picture.MouseMove = [this](float x, float y) {
        a.Write("move " + std::to_string(static_cast<int>(x)) + " "
            + std::to_string(static_cast<int>(y)));
    };
    timer.Tick = [this] { picture.Left = picture.Left - 30; };
    a.Show();
    input.Mouse(picture, MouseAction::Move, 100, 50);
    TakeLog();
    EXPECT_EQ(input.Fire(timer), "");
    EXPECT_THAT(TakeLog(), ElementsAre("a.move 130 50"));
    for (auto const& [enabled, interval] : { std::pair(false, 20), { true, 0 } }) {
        timer.Enabled = enabled;
        timer.Interval = interval;
        EXPECT_EQ(input.Fire(timer), "a.timer is off");
        timer.Fire();
        EXPECT_THAT(TakeLog(), ElementsAre());
    }
}

TEST_F(KindsTest, ALabelGrowsWithItsTextAndAPictureBoxWithItsPicture)
{
    wrapped.AutoSize = true;
    wrapped.WordWrap = true;
    wrapped.FontSize = 10;
    picture.AutoSize = true;
    files.Put(
        u"map.jpg", std::string("\xFF\xD8\xFF\xC0\0\x11\x08\0\x10\0\x20\3\0\0\0\0\0\0\0\0\0", 21));
    a.Show();
    wrapped.Caption = u"ten chars and more"; // Ten characters of 120 twips a line.
    EXPECT_EQ(wrapped.Height, 2 * 240);
    EXPECT_EQ(wrapped.Width, 1200);
    picture.Picture = u"map.jpg";
    EXPECT_EQ(picture.Width, 32 * 15);
    EXPECT_EQ(picture.Height, 16 * 15);
}
