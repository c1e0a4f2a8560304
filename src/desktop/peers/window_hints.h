#pragma once
// Window properties that Qt doesn't set. Only X11; elsewhere the functions do nothing.

class QWindow;

/// Keeps a window that isn't up yet out of the task bar.
void HideFromTaskBar(QWindow const& window);
/// Keeps a window that is up above `owner`. Qt does this for dialogs only.
void TellOwner(QWindow const& window, QWindow const& owner);
