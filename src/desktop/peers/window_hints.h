#pragma once
// What Qt doesn't tell the window manager of a window by itself. Nothing happens on a window system
// other than X11.

class QWindow;

/// Keeps a window that isn't up yet out of the task bar.
void HideFromTaskBar(QWindow const& window);
/// Makes `owner` the window above which this one, which is up, has to stay. Qt says so of dialogs
/// alone.
void TellOwner(QWindow const& window, QWindow const& owner);
