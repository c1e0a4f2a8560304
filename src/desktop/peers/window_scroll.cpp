#include "desktop/peers/window_scroll.h"

#include <QAbstractScrollArea>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>

static constexpr int step = 20; // pixels

WindowScroll::WindowScroll(QWidget& window, QWidget& client)
    : QObject(&window)
    , m_window(window)
    , m_client(client)
    , m_bar(*new QScrollBar(Qt::Vertical, &window))
{
    m_bar.hide();
    m_bar.setSingleStep(step);
    connect(&m_bar, &QScrollBar::valueChanged, this, [this] { Move(); });
}

QSize WindowScroll::Fit(QSize whole, int room)
{
    if (whole.height() <= room) {
        m_bar.hide();
        return whole;
    }
    if (whole != m_whole)
        m_bar.setValue(0);
    m_whole = whole;
    m_bar.show();
    return { whole.width() + m_bar.sizeHint().width(), room };
}

bool WindowScroll::IsCut() const
{
    return !m_bar.isHidden();
}

void WindowScroll::Arrange()
{
    auto const size = m_window.size();
    m_bar.setGeometry(m_whole.width(), 0, size.width() - m_whole.width(), size.height());
    m_bar.setRange(0, m_whole.height() - size.height());
    m_bar.setPageStep(size.height());
    Move();
    // Keys and wheel are seen at the window, before a control takes them.
    if (m_window.windowHandle())
        m_window.windowHandle()->installEventFilter(this);
}

void WindowScroll::Move()
{
    m_client.setGeometry(0, -m_bar.value(), m_whole.width(), m_whole.height());
}

void WindowScroll::ShowFocus()
{
    auto const* const focus = m_window.focusWidget();
    if (!focus || !IsCut())
        return;
    int const top = focus->mapTo(&m_window, QPoint()).y();
    int const below = top + focus->height() + step - m_window.height();
    if (top < 0)
        m_bar.setValue(m_bar.value() + top - step);
    else if (below > 0)
        m_bar.setValue(m_bar.value() + below);
}

/// Whether the widget has a use of its own for the wheel and the keys that scroll.
static bool ScrollsItself(QWidget const* widget)
{
    for (; widget && !widget->isWindow(); widget = widget->parentWidget())
        if (qobject_cast<QAbstractScrollArea const*>(widget)
            || qobject_cast<QLineEdit const*>(widget))
            return true;
    return false;
}

bool WindowScroll::eventFilter(QObject*, QEvent* event)
{
    if (!IsCut())
        return false;
    if (event->type() == QEvent::KeyPress)
        return KeyPressed(static_cast<QKeyEvent const&>(*event));
    return event->type() == QEvent::Wheel && Wheeled(static_cast<QWheelEvent const&>(*event));
}

bool WindowScroll::KeyPressed(QKeyEvent const& event)
{
    static constexpr struct {
        Qt::Key key;
        QAbstractSlider::SliderAction action;
    } keys[] = { { Qt::Key_Up, QAbstractSlider::SliderSingleStepSub },
        { Qt::Key_Down, QAbstractSlider::SliderSingleStepAdd },
        { Qt::Key_PageUp, QAbstractSlider::SliderPageStepSub },
        { Qt::Key_PageDown, QAbstractSlider::SliderPageStepAdd },
        { Qt::Key_Home, QAbstractSlider::SliderToMinimum },
        { Qt::Key_End, QAbstractSlider::SliderToMaximum } };
    if (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab)
        QTimer::singleShot(0, this, [this] { ShowFocus(); });
    if (event.modifiers() & ~Qt::KeypadModifier || ScrollsItself(m_window.focusWidget()))
        return false;
    for (auto const& pair : keys) {
        if (pair.key != event.key())
            continue;
        m_bar.triggerAction(pair.action);
        return true;
    }
    return false;
}

bool WindowScroll::Wheeled(QWheelEvent const& event)
{
    if (ScrollsItself(m_window.childAt(event.position().toPoint())))
        return false;
    constexpr int notch = 120, stepsPerNotch = 3;
    m_bar.setValue(m_bar.value() - event.angleDelta().y() * step * stepsPerNotch / notch);
    return true;
}
