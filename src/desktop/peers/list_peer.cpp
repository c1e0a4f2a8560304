#include "desktop/peers/list_peer.h"

#include "desktop/peers/convert.h"

#include <QComboBox>
#include <QLabel>

ComboPeer::ComboPeer(PeerContext& context, ComboBox& control, QWidget& ground)
    : Peer(context, control, new QComboBox(&ground))
    , m_list(control)
    , m_shown(static_cast<QComboBox&>(*Widget()))
{
    // To assistive tools the name of a combo box is its value, unless a label names it.
    auto* const label = new QLabel(&ground);
    label->setTextFormat(Qt::PlainText);
    label->setText(ToQString(control.accessibleName));
    label->setBuddy(&m_shown);
    label->hide();
    connect(&m_shown, &QComboBox::activated, this,
        [this](int index) { Act([&](Input& input) { input.Choose(m_list, index); }); });
}

void ComboPeer::Mirror()
{
    QStringList entries;
    for (auto const& entry : m_list.List())
        entries.append(ToQString(entry));
    QStringList shown;
    for (int i = 0; i < m_shown.count(); ++i)
        shown.append(m_shown.itemText(i));
    if (shown != entries) {
        m_shown.clear();
        m_shown.addItems(entries);
    }
    m_shown.setCurrentIndex(m_list.ListIndex);
    MirrorLook(m_list, m_shown, false);
    Peer::Mirror();
}

TimerPeer::TimerPeer(PeerContext& context, Timer& control, QObject& owner)
    : Peer(context, control, &owner)
    , m_timer(control)
{
    connect(&m_ticking, &QTimer::timeout, this,
        [this] { Act([&](Input& input) { input.Fire(m_timer); }); });
}

void TimerPeer::Mirror()
{
    bool const runs = m_timer.Enabled && m_timer.Interval > 0;
    if (!runs)
        m_ticking.stop();
    else if (!m_ticking.isActive() || m_ticking.interval() != m_timer.Interval)
        m_ticking.start(m_timer.Interval);
}
