// The part of the desktop host that watches the application's events.

#include "controls/screen.h"
#include "desktop/desktop_host.h"
#include "desktop/peers/form_peer.h"
#include "desktop/peers/keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWheelEvent>
#include <QWidget>
#include <QWindow>

#include <cstdlib>

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
    if (isFree && watched->isWidgetType()) {
        if (event->type() == QEvent::KeyPress)
            return PressedShortcut(static_cast<QKeyEvent const&>(*event), window->ParentForm());
        if (event->type() == QEvent::Wheel)
            return TurnedWheel(
                static_cast<QWheelEvent const&>(*event), static_cast<QWidget const&>(*watched));
    }
    if (isFree)
        return false;
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

/// True if the wheel was turned with Ctrl over a reading pane: then it changes the size of letters.
bool DesktopHost::TurnedWheel(QWheelEvent const& wheel, QWidget const& at)
{
    Peer const* const peer = PeerOf(&at);
    bool const isForLetters
        = wheel.modifiers() == Qt::ControlModifier && peer && peer->GetControl().isReadingPane;
    if (!isForLetters)
        return false;
    m_turned += wheel.angleDelta().y();
    int const notches = m_turned / QWheelEvent::DefaultDeltasPerStep;
    m_turned %= QWheelEvent::DefaultDeltasPerStep;
    Form& form = peer->GetControl().ParentForm();
    for (int i = 0; i < std::abs(notches); ++i)
        m_context.Act(form, [&](Input& input) {
            input.PressShortcut(form, notches > 0 ? keyPlus : keyMinus, controlHeld);
        });
    return true;
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
