#pragma once
// Menus and their entries on the desktop.

#include "controls/menu.h"
#include "desktop/peers/peer.h"

class QAction;
class QMenu;
class QMenuBar;

class MenuPeer final : public Peer {
public:
    MenuPeer(PeerContext& context, Menu& control, QMenuBar& bar);
    void Mirror() override;
    QMenu& Shown() { return m_shown; }

private:
    Menu& m_menu;
    QMenu& m_shown;
};

class MenuEntryPeer final : public Peer {
public:
    MenuEntryPeer(PeerContext& context, MenuEntry& control, QMenu& menu);
    void Mirror() override;

private:
    MenuEntry& m_entry;
    QAction& m_shown;
};
