// Each kind of control: what the model sets is shown, what the user does arrives.

#include "desktop/desktop_fixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTextDocumentFragment>
#include <QTextEdit>
#include <QToolTip>
#include <QTreeView>

TEST_F(DesktopTest, EveryWidgetBearsItsControlsNameAndPlace)
{
    form.lamp.ToolTipText = u"Answers";
    Open();
    for (Control* control : form.Controls()) {
        if (dynamic_cast<ImageList*>(control) || dynamic_cast<Timer*>(control)
            || dynamic_cast<Menu*>(control) || dynamic_cast<MenuEntry*>(control))
            continue;
        SCOPED_TRACE(control->Name());
        auto& widget = Shown(*control);
        EXPECT_EQ(widget.objectName().toStdString(), control->Name());
        EXPECT_EQ(widget.x(), Pixels(control->Left));
        EXPECT_EQ(widget.width(), Pixels(control->Width));
        EXPECT_TRUE(widget.isVisible());
    }
    EXPECT_EQ(Shown(form.passage).accessibleName(), "Scripture");
    EXPECT_EQ(Shown(form.name).accessibleName(), "");
}

TEST_F(DesktopTest, ClicksTakeTheFocusFirst)
{
    Open();
    struct Row {
        Control& control;
        char const* log;
    } const rows[] = {
        { form.answer, "-Text1, +Text3" },
        { form.next, "-Text3, +Command1, next clicked" },
        { form.tick, "-Command1, +Check1, tick clicked" },
        { form.lamp, "lamp clicked" },
        { form.name, "name clicked" },
        { form.bar, "-Check1, +ctlScrollbar, bar changed 1" }, // in the trough
        { form, "form clicked" },
    };
    EXPECT_EQ(form.Focus(), &form.passage);
    for (auto const& row : rows) {
        SCOPED_TRACE(row.control.Name());
        if (&row.control == &form)
            QTest::mouseClick(Shown(form).childAt(20, 300), Qt::LeftButton, {}, { 20, 300 });
        else
            ClickByWindow(row.control);
        EXPECT_EQ(form.TakeLog(), row.log);
    }
    EXPECT_EQ(form.tick.Value, 1);
    EXPECT_TRUE(Shown<QCheckBox>(form.tick).isChecked());
}

TEST_F(DesktopTest, AssignmentsShowAndAreNoActions)
{
    Open();
    form.tick.Value = 1;
    form.list.ListIndex = 1;
    form.bar.Value = 7;
    form.line.Text = u"John 3";
    form.next.Caption = u"Finish";
    form.name.Enabled = false;
    form.answer.Text = u"one\r\ntwo";
    form.TakeLog();
    host.HandlersEnded();
    EXPECT_TRUE(Shown<QCheckBox>(form.tick).isChecked());
    EXPECT_EQ(Shown<QComboBox>(form.list).currentText(), "second");
    EXPECT_EQ(Shown<QScrollBar>(form.bar).value(), 7);
    EXPECT_EQ(Shown<QLineEdit>(form.line).text(), "John 3");
    EXPECT_EQ(Shown<QPushButton>(form.next).text(), "Finish");
    EXPECT_FALSE(Shown(form.name).isEnabled());
    EXPECT_EQ(Shown<QTextEdit>(form.answer).toPlainText(), "one\ntwo");
    EXPECT_EQ(form.TakeLog(), "");
}

TEST_F(DesktopTest, ScrollBarStepsDragsAndWheels)
{
    form.bar.Max = 50;
    form.bar.LargeChange = 10;
    Open();
    auto& bar = Shown<QScrollBar>(form.bar);
    bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(form.TakeLog(), "-Text1, +ctlScrollbar, bar changed 10");
    bar.setSliderDown(true);
    bar.setSliderPosition(20);
    bar.setSliderPosition(30);
    bar.setSliderDown(false);
    EXPECT_EQ(form.TakeLog(), "bar scrolled 20, bar scrolled 30, bar changed 30");
    QTest::keyClick(&bar, Qt::Key_End);
    EXPECT_EQ(form.TakeLog(), "bar scrolled 50, bar changed 50");
    form.bar.SmallChange = 3;
    QWheelEvent wheel(
        { 5, 5 }, bar.mapToGlobal(QPointF(5, 5)), {}, { 0, 120 }, {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&bar, &wheel);
    EXPECT_EQ(form.TakeLog(), "bar changed 47");
    EXPECT_EQ(bar.value(), 47);
    form.bar.Value = 0;
    form.bar.Max = -5;
    host.HandlersEnded();
    form.TakeLog();
    bar.triggerAction(QAbstractSlider::SliderSingleStepAdd);
    bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(form.TakeLog(), "bar changed -3, bar changed -5") << "a range below 0";
    EXPECT_EQ(bar.value(), -5);
    bar.setSliderDown(true);
    bar.setSliderPosition(-2);
    bar.setSliderDown(false);
    bar.triggerAction(QAbstractSlider::SliderPageStepSub);
    EXPECT_EQ(form.TakeLog(), "bar scrolled -2, bar changed -2, bar changed 0");
}

class frmBar final : public Form {
public:
    explicit frmBar(Screen& screen)
        : Form(screen, "frmBar", u"Bar", 6000, 4000)
    {
    }
    StatusBar bar { *this, "StatusBar1", { 0, 3700, 6000, 300 } };
};

TEST_F(DesktopTest, TheSecondPanelOfAStatusBarTakesWhatTheFirstLeaves)
{
    frmBar state(screen);
    state.Show();
    auto const& whole = Shown(state.bar);
    auto const& first = *whole.findChild<QLabel*>(QStringLiteral("Panel1"));
    auto const& second = *whole.findChild<QLabel*>(QStringLiteral("Panel2"));
    EXPECT_EQ(first.width(), whole.width());
    EXPECT_FALSE(second.isVisible());
    for (TextView const text : { u"", u"A text" }) {
        state.bar.Panel1Width = 1440;
        state.bar.Panel2 = Text(text);
        host.HandlersEnded();
        EXPECT_EQ(first.width(), 96);
        EXPECT_TRUE(second.isVisible());
        EXPECT_EQ(second.geometry().right(), whole.rect().right());
    }
    Unload(state);
    Settle();
}

TEST_F(DesktopTest, TreeFollowsItsNodesAndReportsClicksAndSigns)
{
    Node& first = form.tree.Add(u"a", u"First");
    first.SetExpanded(true);
    form.tree.Add(first, u"a1", u"Child").SetImage("book");
    Open(); // loading empties the tree
    Node& book = form.tree.Add(u"a", u"First");
    host.HandlersEnded();
    Node& chapter = form.tree.Add(book, u"a1", u"Child");
    chapter.SetImage("book");
    host.HandlersEnded();

    auto& tree = Shown<QTreeView>(form.tree);
    auto& model = *tree.model();
    auto const top = model.index(0, 0);
    ASSERT_EQ(model.rowCount(top), 1);
    EXPECT_FALSE(tree.isExpanded(top));
    EXPECT_FALSE(model.index(0, 0, top).data(Qt::DecorationRole).value<QIcon>().isNull());

    tree.setExpanded(top, true); // as its sign does
    EXPECT_TRUE(book.Expanded());
    form.TakeLog();
    auto const place = tree.visualRect(model.index(0, 0, top)).center();
    for (int i = 0; i < 2; ++i) // on what is selected already, too
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(form.TakeLog(), "node clicked a1, node clicked a1");
    EXPECT_EQ(form.tree.Selected(), &chapter);

    QTest::keyClick(&tree, Qt::Key_Up);
    EXPECT_EQ(form.tree.Selected(), &book);
    EXPECT_EQ(form.TakeLog(), "");
    QTest::keyClick(&tree, Qt::Key_Return);
    EXPECT_EQ(form.TakeLog(), "node clicked a");
    form.tree.Clear();
    host.HandlersEnded();
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(DesktopTest, ATreeScrollsToANodeAndShowsItsTipAndANameThatIsCutOff)
{
    Open();
    for (int book = 1; book <= 40; ++book) {
        Node& parent = form.tree.Add(FromNumber(book), u"Book");
        for (int chapter = 1; chapter <= 3; ++chapter)
            form.tree.Add(parent, FromNumber(book) + u"." + FromNumber(chapter), u"Chapter");
    }
    form.tree.Add(u"long", Text(100, u'w'));
    form.tree.NodeToolTip
        = [](Node const& node) { return node.Key() == u"30" ? Text(u"2 < 3\nno more") : Text(); };
    host.HandlersEnded();
    auto& tree = Shown<QTreeView>(form.tree);
    auto const rect = [&](TextView key) {
        return tree.visualRect(tree.model()->index(form.tree.Find(key)->Row(), 0));
    };
    auto const tip = [&](TextView key) {
        auto const place = QPoint(30, rect(key).center().y());
        QHelpEvent event(QEvent::ToolTip, place, tree.viewport()->mapToGlobal(place));
        QApplication::sendEvent(tree.viewport(), &event);
        auto const text = QToolTip::text();
        return (
            Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text)
            .toStdString();
    };
    Node& book = *form.tree.Find(u"30");
    book.SetExpanded(true);
    form.tree.EnsureVisible(book);
    host.HandlersEnded();
    auto const shown = rect(u"30");
    EXPECT_TRUE(tree.viewport()->rect().contains(QPoint(5, shown.bottom() + 3 * shown.height())))
        << "the node and its children";
    EXPECT_EQ(tip(u"29"), "");
    EXPECT_EQ(tip(u"30"), "2 < 3\nno more");
    EXPECT_EQ(tree.indexAt(shown.center()).data(Qt::AccessibleDescriptionRole).toString(),
        "2 < 3\nno more");
    tree.verticalScrollBar()->setValue(0);
    form.tree.Select(form.tree.Find(u"1"));
    host.HandlersEnded();
    EXPECT_EQ(tree.verticalScrollBar()->value(), 0) << "once for each call";
    form.tree.EnsureVisible(*form.tree.Find(u"long"));
    host.HandlersEnded();
    EXPECT_EQ(tip(u"long"), std::string(100, 'w'));
    Unload(form);
    Settle();
}

TEST_F(DesktopTest, ListChoiceArrives)
{
    Open();
    auto& list = Shown<QComboBox>(form.list);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(form.list.ListIndex, 0);
    EXPECT_EQ(form.TakeLog(), "-Text1, +cboVersion, list chosen");
}

TEST_F(DesktopTest, TimerTicksWhileItIsOn)
{
    int ticks = 0;
    form.timer.Tick = [&] { form.timer.Enabled = ++ticks < 3; };
    Open();
    QTest::qWait(30);
    EXPECT_EQ(ticks, 0);
    form.timer.Enabled = true;
    host.HandlersEnded();
    QTest::qWait(120);
    EXPECT_EQ(ticks, 3);
}
