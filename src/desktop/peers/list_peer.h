#pragma once
// Drop-down lists and timers on the desktop.

#include "controls/list.h"
#include "controls/timer.h"
#include "desktop/peers/peer.h"

#include <QTimer>

class QComboBox;

class ComboPeer final : public Peer {
public:
    ComboPeer(PeerContext& context, ComboBox& control, QWidget& ground);
    void Mirror() override;

private:
    ComboBox& m_list;
    QComboBox& m_shown;
};

class TimerPeer final : public Peer {
public:
    TimerPeer(PeerContext& context, Timer& control, QObject& owner);
    void Mirror() override;

private:
    Timer& m_timer;
    QTimer m_ticking;
};
