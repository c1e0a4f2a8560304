#include "desktop/peers/bar_peer.h"

#include "desktop/peers/access.h"
#include "desktop/peers/convert.h"

#include <QFrame>
#include <QLabel>
#include <QProgressBar>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>

ScrollBarPeer::ScrollBarPeer(PeerContext& context, ScrollBar& control, QWidget& ground)
    : Peer(context, control,
        new QScrollBar(control.IsHorizontal() ? Qt::Horizontal : Qt::Vertical, &ground))
    , m_bar(control)
    , m_shown(static_cast<QScrollBar&>(*Widget()))
{
    m_shown.setContextMenuPolicy(Qt::NoContextMenu);
    connect(&m_shown, &QScrollBar::actionTriggered, this,
        [this](int action) { ActionTriggered(action); });
    connect(&m_shown, &QScrollBar::sliderReleased, this, [this] {
        Act([&](Input& input) { input.DragThumb(m_bar, m_shown.sliderPosition(), true); });
    });
}

void ScrollBarPeer::Mirror()
{
    auto const [low, high] = std::minmax(m_bar.Min(), m_bar.Max());
    m_shown.setRange(low, high);
    m_shown.setInvertedAppearance(m_bar.Max < m_bar.Min);
    m_shown.setSingleStep(m_bar.SmallChange);
    m_shown.setPageStep(m_bar.LargeChange);
    m_shown.setValue(m_bar.Value);
    Peer::Mirror();
    // A tool tip with the value follows the thumb.
    if (m_shown.isSliderDown() && !m_shown.toolTip().isEmpty())
        QToolTip::showText(QCursor::pos(), m_shown.toolTip(), &m_shown);
}

void ScrollBarPeer::ActionTriggered(int action)
{
    Act([&](Input& input) {
        switch (action) {
        case QAbstractSlider::SliderSingleStepAdd:
            input.Step(m_bar, BarStep::More);
            break;
        case QAbstractSlider::SliderSingleStepSub:
            input.Step(m_bar, BarStep::Less);
            break;
        case QAbstractSlider::SliderPageStepAdd:
            input.Step(m_bar, BarStep::PageMore);
            break;
        case QAbstractSlider::SliderPageStepSub:
            input.Step(m_bar, BarStep::PageLess);
            break;
        default: // to an end by a key, or to a place by the thumb
            input.DragThumb(m_bar, m_shown.sliderPosition(), !m_shown.isSliderDown());
        }
    });
}

bool ScrollBarPeer::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Wheel)
        return Peer::eventFilter(watched, event);
    auto const turned = static_cast<QWheelEvent const&>(*event).angleDelta();
    Wheeled(turned.y() != 0 ? turned.y() : turned.x());
    return true;
}

void ScrollBarPeer::Wheeled(int degrees)
{
    constexpr int step = 120; // eighths of a degree, of one notch
    m_wheel += degrees;
    auto const direction = degrees > 0 ? BarStep::Less : BarStep::More;
    for (; std::abs(m_wheel) >= step; m_wheel -= degrees > 0 ? step : -step)
        Act([&](Input& input) { input.Step(m_bar, direction); });
}

static constexpr int aboveStatusPanels = 2; // pixels

/// The part of a status bar where its panels are, in pixels in its container.
static QRect PanelOf(StatusBar const& bar)
{
    Bounds const bounds { bar.Left, bar.Top, bar.Width, bar.Height };
    return ToPixels(bounds, bar.Container()->TwipsPerUnit()).adjusted(0, aboveStatusPanels, 0, 0);
}

ProgressPeer::ProgressPeer(PeerContext& context, ProgressBar& control, QWidget& ground)
    : Peer(context, control, new QProgressBar(&ground))
    , m_bar(control)
    , m_shown(static_cast<QProgressBar&>(*Widget()))
{
    m_shown.setTextVisible(false);
    m_shown.setRange(0, 1000);
}

void ProgressPeer::Mirror()
{
    auto const range = static_cast<double>(m_bar.Max - m_bar.Min);
    auto const filled = static_cast<double>(m_bar.Value - m_bar.Min);
    m_shown.setValue(range > 0 ? static_cast<int>(1000 * filled / range) : 0);
    Peer::Mirror();
    KeepOnStatusLine();
}

/// A form that lays itself out by its outer size misses the status line by some pixels, as the
/// frame of a real window has another height.
void ProgressPeer::KeepOnStatusLine()
{
    constexpr int edge = 1; // of the sunken panel
    auto bounds = m_shown.geometry();
    for (Control const* control : m_bar.ParentForm().Controls()) {
        auto const* const line = dynamic_cast<StatusBar const*>(control);
        if (!line || line->Container() != m_bar.Container())
            continue;
        auto const panel = PanelOf(*line).adjusted(0, edge, 0, -edge);
        if (!panel.intersects(bounds) || bounds.height() > panel.height())
            continue;
        bounds.moveTop(std::clamp(bounds.top(), panel.top(), panel.bottom() + 1 - bounds.height()));
        m_shown.setGeometry(bounds);
    }
}

StatusBarPeer::StatusBarPeer(PeerContext& context, StatusBar& control, QWidget& ground)
    : Peer(context, control, new QFrame(&ground))
    , m_bar(control)
    , m_first(*new QLabel(Widget()))
    , m_second(*new QLabel(Widget()))
{
    Widget()->setAutoFillBackground(true);
    SetRole(*Widget(), QAccessible::StatusBar);
    for (QLabel* panel : { &m_first, &m_second }) {
        panel->setTextFormat(Qt::PlainText);
        panel->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        panel->setIndent(3);
    }
    m_first.setObjectName(QStringLiteral("Panel1"));
    m_second.setObjectName(QStringLiteral("Panel2"));
}

void StatusBarPeer::Mirror()
{
    m_first.setText(ToQString(m_bar.Panel1));
    m_second.setText(ToQString(m_bar.Panel2));
    MirrorLook(m_bar, *Widget(), false);
    Peer::Mirror();
    int const width = Widget()->width();
    int const height = std::max(0, Widget()->height() - aboveStatusPanels);
    int const split = m_bar.Panel1Width > 0 ? std::min(width, Pixels(m_bar.Panel1Width)) : width;
    m_first.setGeometry(0, aboveStatusPanels, split, height);
    m_second.setGeometry(split + 2, aboveStatusPanels, std::max(0, width - split - 2), height);
    m_second.setVisible(split < width);
}
