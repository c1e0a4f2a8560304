// The part of the desktop host that watches the application's events.

#include "controls/screen.h"
#include "desktop/desktop_host.h"
#include "desktop/peers/form_peer.h"
#include "desktop/peers/keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>

FormPeer* DesktopHost::WindowOf(QObject const* receiver) const
{
    QWidget const* window = nullptr;
    if (receiver->isWidgetType())
        window = static_cast<QWidget const*>(receiver)->window();
    for (FormPeer* peer : m_windows)
        if (window ? peer->Widget() == window : peer->Widget()->windowHandle() == receiver)
            return peer;
    return nullptr;
}

Peer* DesktopHost::PeerOf(QWidget const* widget) const
{
    for (; widget && !widget->isWindow(); widget = widget->parentWidget())
        for (auto const& [control, peer] : m_peers)
            if (peer->Widget() == widget)
                return peer;
    return nullptr;
}

static bool IsAction(QEvent const& event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::Shortcut:
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::DragEnter:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

bool DesktopHost::eventFilter(QObject* watched, QEvent* event)
{
    if (!IsAction(*event) || (!watched->isWidgetType() && !watched->isWindowType()))
        return false;
    m_context.lastAct = std::chrono::steady_clock::now();
    FormPeer const* const window = WindowOf(watched);
    if (!window)
        return false;
    bool const isFree
        = !window->ParentForm().IsBusy() && m_context.input->Blocked(window->ParentForm()).empty();
    if (isFree)
        return event->type() == QEvent::KeyPress && watched->isWidgetType()
            && PressedShortcut(static_cast<QKeyEvent const&>(*event), window->ParentForm());
    // A widget would change itself before the model could refuse.
    event->setAccepted(event->type() != QEvent::ShortcutOverride);
    return true;
}

/// True if the key was a shortcut of the form: then no widget gets it.
bool DesktopHost::PressedShortcut(QKeyEvent const& key, Form& form)
{
    int const keyCode = KeyCodeOf(key), shift = ShiftOf(key);
    bool pressed = false;
    if (form.FindShortcut(keyCode, shift))
        m_context.Act(
            form, [&](Input& input) { pressed = input.PressShortcut(form, keyCode, shift); });
    return pressed;
}

void DesktopHost::WidgetFocused(QWidget* widget)
{
    if (!widget || m_context.IsMirroring() || !m_context.input || QApplication::activePopupWidget())
        return;
    Peer* const peer = PeerOf(widget);
    if (!peer || peer->GetControl().ParentForm().Focus() == &peer->GetControl())
        return;
    m_context.Act(peer->GetControl(), [&](Input& input) { input.Focus(peer->GetControl()); });
}
