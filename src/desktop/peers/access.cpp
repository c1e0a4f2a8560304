#include "desktop/peers/access.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

static char const roleProperty[] = "roleForAccess";

namespace {

class RoleAccess final : public QAccessibleWidget {
public:
    RoleAccess(QWidget& widget, QAccessible::Role role)
        : QAccessibleWidget(&widget, role)
    {
    }

    QAccessible::State state() const override
    {
        auto state = QAccessibleWidget::state();
        if (CanBePressed() && Area()->isTabStop)
            state.focusable = true;
        return state;
    }
    QStringList actionNames() const override
    {
        auto names = QAccessibleWidget::actionNames();
        if (CanBePressed())
            names.prepend(pressAction());
        return names;
    }
    void doAction(QString const& name) override
    {
        if (name != pressAction())
            QAccessibleWidget::doAction(name);
        else if (CanBePressed())
            Area()->press();
    }

private:
    Pressable* Area() const { return dynamic_cast<Pressable*>(widget()); }
    bool CanBePressed() const { return widget()->isEnabled() && Area() && Area()->press; }
};

QAccessibleInterface* MakeAccess(QString const&, QObject* object)
{
    auto* const widget = qobject_cast<QWidget*>(object);
    auto const role = widget ? widget->property(roleProperty) : QVariant();
    return role.isValid() ? new RoleAccess(*widget, static_cast<QAccessible::Role>(role.toInt()))
                          : nullptr;
}

} // namespace

void TellRoles()
{
    QAccessible::installFactory(MakeAccess);
}

void SetRole(QWidget& widget, QAccessible::Role role)
{
    widget.setProperty(roleProperty, static_cast<int>(role));
}
