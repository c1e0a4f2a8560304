#include "desktop/peers/button_peer.h"

#include "desktop/peers/convert.h"
#include "desktop/peers/keys.h"

#include <QCheckBox>
#include <QPushButton>

ButtonPeer::ButtonPeer(PeerContext& context, CommandButton& control, QWidget& ground)
    : Peer(context, control, new QPushButton(&ground))
    , m_button(control)
    , m_shown(static_cast<QPushButton&>(*Widget()))
{
    m_shown.setAutoDefault(false);
    connect(&m_shown, &QPushButton::clicked, this,
        [this] { Act([&](Input& input) { input.Click(m_button); }); });
}

void ButtonPeer::Mirror()
{
    m_shown.setText(ToQString(m_button.Caption));
    m_shown.setDefault(m_button.Default);
    MirrorLook(m_button, m_shown, false);
    Peer::Mirror();
}

bool ButtonPeer::TakeKey(QKeyEvent& event)
{
    if (KeyCodeOf(event) != keyEnter)
        return false;
    Act([&](Input& input) { input.Click(m_button); });
    return true;
}

CheckPeer::CheckPeer(PeerContext& context, CheckBox& control, QWidget& ground)
    : Peer(context, control, new QCheckBox(&ground))
    , m_box(control)
    , m_shown(static_cast<QCheckBox&>(*Widget()))
{
    connect(&m_shown, &QCheckBox::clicked, this,
        [this] { Act([&](Input& input) { input.Click(m_box); }); });
}

void CheckPeer::Mirror()
{
    m_shown.setText(ToQString(m_box.Caption));
    m_shown.setChecked(m_box.Value != 0);
    MirrorLook(m_box, m_shown, false);
    Peer::Mirror();
}
