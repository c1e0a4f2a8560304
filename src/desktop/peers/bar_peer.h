#pragma once
// Scroll bars, progress bars and status bars on the desktop.

#include "controls/scroll_bar.h"
#include "desktop/peers/peer.h"

class QLabel;
class QProgressBar;
class QScrollBar;

class ScrollBarPeer final : public Peer {
public:
    ScrollBarPeer(PeerContext& context, ScrollBar& control, QWidget& ground);
    void Mirror() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ActionTriggered(int action);
    void Wheeled(int degrees);

    ScrollBar& m_bar;
    QScrollBar& m_shown;
    int m_wheel = 0; // eighths of a degree that make no whole step yet
};

class ProgressPeer final : public Peer {
public:
    ProgressPeer(PeerContext& context, ProgressBar& control, QWidget& ground);
    void Mirror() override;

private:
    void KeepOnStatusLine();

    ProgressBar& m_bar;
    QProgressBar& m_shown;
};

class StatusBarPeer final : public Peer {
public:
    StatusBarPeer(PeerContext& context, StatusBar& control, QWidget& ground);
    void Mirror() override;

private:
    StatusBar& m_bar;
    QLabel &m_first, &m_second;
};
