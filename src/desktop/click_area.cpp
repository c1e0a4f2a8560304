#include "desktop/click_area.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace {

class ClickAreaAccess final : public QAccessibleWidget {
public:
    explicit ClickAreaAccess(ClickArea& area)
        : QAccessibleWidget(&area, QAccessible::Button)
        , m_area(area)
    {
    }

    QStringList actionNames() const override
    {
        return m_area.isEnabled() ? QStringList { pressAction() } : QStringList();
    }
    void doAction(QString const& name) override
    {
        if (name == pressAction() && m_area.isEnabled() && m_area.press)
            m_area.press();
    }

private:
    ClickArea& m_area;
};

QAccessibleInterface* MakeAccess(QString const&, QObject* object)
{
    auto* const area = dynamic_cast<ClickArea*>(object);
    return area ? new ClickAreaAccess(*area) : nullptr;
}

}

void RegisterClickAreas()
{
    QAccessible::installFactory(MakeAccess);
}
