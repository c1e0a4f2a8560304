#pragma once
// What assistive tools are told of widgets whose class says too little: which kind of thing they
// are, and that they can be pressed.

#include <QAccessible>

#include <functional>

class QWidget;

/// Lets assistive tools see widgets as SetRole says. Once, with an application object.
void TellRoles();

/// Says what a widget is, in place of what its class would. Before anybody asks: when the widget is
/// made.
void SetRole(QWidget& widget, QAccessible::Role role);

/// A widget that can be pressed but isn't a button: beside what derives from QWidget. Assistive
/// tools may press it while it is enabled.
class Pressable {
public:
    virtual ~Pressable() = default;
    std::function<void()> press; ///< empty: nothing to press
    bool isTabStop = false; ///< reached by Tab though no click gives it the focus
};
