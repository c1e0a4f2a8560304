#include "desktop/peers/window_hints.h"

#include <QGuiApplication>
#include <QWindow>

#if QT_CONFIG(xcb)
#include <cstdlib>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

/// Nothing on another window system.
static xcb_connection_t* Connection()
{
    auto const* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

static xcb_atom_t Atom(xcb_connection_t* connection, std::string_view name)
{
    auto const asked
        = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> const answer(
        xcb_intern_atom_reply(connection, asked, nullptr), std::free);
    return answer ? answer->atom : xcb_atom_t { XCB_ATOM_NONE };
}

static void Put(xcb_connection_t* connection, QWindow const& window, xcb_atom_t property,
    xcb_atom_t type, std::uint32_t value)
{
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE,
        static_cast<xcb_window_t>(window.winId()), property, type, 32, 1, &value);
    xcb_flush(connection);
}

void HideFromTaskBar(QWindow const& window)
{
    if (auto* const connection = Connection())
        Put(connection, window, Atom(connection, "_NET_WM_STATE"), XCB_ATOM_ATOM,
            Atom(connection, "_NET_WM_STATE_SKIP_TASKBAR"));
}

void TellOwner(QWindow const& window, QWindow const& owner)
{
    if (auto* const connection = Connection())
        Put(connection, window, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW,
            static_cast<std::uint32_t>(owner.winId()));
}
#else
void HideFromTaskBar(QWindow const&) { }
void TellOwner(QWindow const&, QWindow const&) { }
#endif
