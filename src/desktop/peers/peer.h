#pragma once
// The counterpart of a control on the desktop: shows it by a widget and passes the user's actions
// on it to the model. Each kind of control has its own kind of peer.

#include "controls/control.h"
#include "desktop/peers/peer_context.h"

#include <QObject>

class QKeyEvent;
class QWidget;

class Peer : public QObject {
public:
    /// The peer belongs to its widget, which is new, and dies with it.
    Peer(PeerContext& context, Control& control, QWidget* widget);
    /// For a control without a widget: the peer belongs to `owner`.
    Peer(PeerContext& context, Control& control, QObject* owner);

    Control& GetControl() const { return m_control; }
    /// Nothing for a control that is never visible, such as a timer.
    QWidget* Widget() const { return m_widget; }
    /// The parent widget of the controls within this one.
    virtual QWidget* Ground() const { return m_widget; }

    /// Called after each assignment, even of the same value.
    virtual void PropertyAssigned(PropertyBase const&) { }
    /// Updates the widget from the control.
    virtual void Mirror();

    bool isDirty = true; ///< waits to be mirrored
    /// its form is unloaded: no action is passed on any more
    bool isRetired = false;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Handles a key that no event handler has used; false if the widget is to get it.
    virtual bool TakeKey(QKeyEvent&) { return false; }
    /// True if the widget itself uses Enter or Escape, so that no default button is pressed.
    virtual bool WantsKey(int) const { return false; }
    /// True if a key that is also a shortcut is the widget's, unless a menu entry takes it.
    virtual bool EditsByShortcuts() const { return false; }

    void MirrorBounds();
    void MirrorState();
    /// Font and colours of a control with a text; `ground` false leaves the background as it is.
    void MirrorLook(TextControl const& control, QWidget& widget, bool ground = true);
    template <class Action> void Act(Action action)
    {
        if (!isRetired)
            m_context.Act(m_control, action);
    }
    bool MoveFocus(bool backwards);
    bool KeyPressed(QKeyEvent& event);
    void KeyReleased(QKeyEvent const& event);

    PeerContext& m_context;
    Control& m_control;

private:
    bool IsUsedByMenu(QKeyEvent const& event);
    void NameForAccess();

    QWidget* m_widget = nullptr;
};
