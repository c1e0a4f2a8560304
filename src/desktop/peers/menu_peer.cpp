#include "desktop/peers/menu_peer.h"

#include "desktop/peers/convert.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

MenuPeer::MenuPeer(PeerContext& context, Menu& control, QMenuBar& bar)
    : Peer(context, control, static_cast<QObject*>(&bar))
    , m_menu(control)
    , m_shown(*bar.addMenu(QString()))
{
    m_shown.setObjectName(QString::fromUtf8(control.Name()));
    m_shown.setAccessibleDescription(m_shown.objectName());
}

void MenuPeer::Mirror()
{
    m_shown.setTitle(ToQString(m_menu.Caption));
    m_shown.setEnabled(m_menu.Enabled);
    m_shown.menuAction()->setVisible(m_menu.Visible);
}

MenuEntryPeer::MenuEntryPeer(PeerContext& context, MenuEntry& control, QMenu& menu)
    : Peer(context, control, static_cast<QObject*>(&menu))
    , m_entry(control)
    , m_shown(*menu.addAction(QString()))
{
    m_shown.setObjectName(QString::fromUtf8(control.Name()));
    m_shown.setSeparator(control.IsSeparator());
    connect(&m_shown, &QAction::triggered, this,
        [this] { Act([&](Input& input) { input.Click(m_entry); }); });
}

void MenuEntryPeer::Mirror()
{
    if (!m_entry.IsSeparator())
        m_shown.setText(ToQString(m_entry.Caption));
    m_shown.setShortcut(QKeySequence(ToQString(m_entry.Shortcut), QKeySequence::PortableText));
    m_shown.setEnabled(m_entry.Enabled);
    m_shown.setVisible(m_entry.Visible);
}
