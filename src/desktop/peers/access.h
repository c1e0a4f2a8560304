#pragma once
// Roles and actions for assistive tools of widgets whose class says too little.

#include <QAccessible>

#include <functional>

class QWidget;

/// Makes SetRole effective. Called once, with an application object.
void TellRoles();

/// The role of a widget, in place of that of its class. Called when the widget is made.
void SetRole(QWidget& widget, QAccessible::Role role);

/// A second base of a widget that isn't a button, but that assistive tools can press if enabled.
class Pressable {
public:
    virtual ~Pressable() = default;
    std::function<void()> press; ///< empty: nothing to press
    bool isTabStop = false; ///< reached by Tab though no click gives it the focus
};
