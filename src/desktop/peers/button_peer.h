#pragma once
// Buttons and check boxes on the desktop.

#include "controls/button.h"
#include "desktop/peers/peer.h"

class QCheckBox;
class QPushButton;

class ButtonPeer final : public Peer {
public:
    ButtonPeer(PeerContext& context, CommandButton& control, QWidget& ground);
    void Mirror() override;

protected:
    bool TakeKey(QKeyEvent& event) override;

private:
    CommandButton& m_button;
    QPushButton& m_shown;
};

class CheckPeer final : public Peer {
public:
    CheckPeer(PeerContext& context, CheckBox& control, QWidget& ground);
    void Mirror() override;

private:
    CheckBox& m_box;
    QCheckBox& m_shown;
};
