// What assistive tools see of each kind of control, and what they may do to it.

#include "desktop/desktop_fixture.h"

#include <QAccessible>

class AccessTest : public DesktopTest {
protected:
    QAccessibleInterface& Seen(Control const& control)
    {
        return *QAccessible::queryAccessibleInterface(&Shown(control));
    }
};

TEST_F(AccessTest, EachControlTellsWhatItIs)
{
    form.answer.accessibleName = u"Your answer";
    form.lamp.ToolTipText = u"Answers";
    form.list.accessibleName = u"Translation";
    Open();
    struct Row {
        Control& control;
        QAccessible::Role role;
        char const* name;
    } const rows[] = {
        { form, QAccessible::Window, "Every kind" },
        { form.panel, QAccessible::Grouping, "Scripture" },
        { form.passage, QAccessible::EditableText, "Scripture" },
        { form.answer, QAccessible::EditableText, "Your answer" },
        { form.line, QAccessible::EditableText, "Every kind" },
        { form.next, QAccessible::PushButton, "Next >" },
        { form.tick, QAccessible::CheckBox, "Tick" },
        { form.lamp, QAccessible::PushButton, "Answers" },
        { form.bar, QAccessible::ScrollBar, "Every kind" },
        { form.tree, QAccessible::Tree, "Every kind" },
        { form.name, QAccessible::StaticText, "A & B" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.control.Name());
        EXPECT_EQ(Seen(row.control).role(), row.role);
        EXPECT_EQ(Seen(row.control).text(QAccessible::Name).toStdString(), row.name);
    }
    // The list's own name is its value; another names it.
    auto const relations = Seen(form.list).relations(QAccessible::Label);
    ASSERT_EQ(relations.size(), 1);
    EXPECT_EQ(relations[0].first->text(QAccessible::Name), QStringLiteral("Translation"));
}

TEST_F(AccessTest, APictureThatIsAButtonCanBePressedWhileItIsEnabled)
{
    Open();
    auto* const actions = Seen(form.lamp).actionInterface();
    auto const press = QAccessibleActionInterface::pressAction();
    ASSERT_TRUE(actions->actionNames().contains(press));
    EXPECT_TRUE(Seen(form.lamp).state().focusable);
    actions->doAction(press);
    EXPECT_EQ(form.TakeLog(), "lamp clicked");
    form.onNext = [&] { form.lamp.Enabled = false; };
    Click(form.next);
    form.TakeLog();
    EXPECT_FALSE(actions->actionNames().contains(press));
    actions->doAction(press);
    EXPECT_EQ(form.TakeLog(), "");
}
