#pragma once
// Peers of controls on which only the pointer acts: labels, pictures, shapes, panels.

#include "controls/label.h"
#include "controls/picture.h"
#include "controls/xp_container.h"
#include "desktop/peers/peer.h"

class QLabel;
class QMouseEvent;

/// Reports clicks and mouse events.
class SurfacePeer : public Peer {
public:
    using Peer::Peer;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void MirrorPointer(int pointer, TextView icon = {});

private:
    bool PointerActed(QMouseEvent const& event);
    bool HasMouseEvents() const
    {
        return m_control.MouseDown || m_control.MouseMove || m_control.MouseUp;
    }

    bool m_pressed = false;
};

class LabelPeer final : public SurfacePeer {
public:
    LabelPeer(PeerContext& context, Label& control, QWidget& ground);
    void Mirror() override;

private:
    Label& m_label;
    QLabel& m_shown;
};

/// A filled rectangle, for shapes and lines, through which the pointer passes.
class FillPeer final : public Peer {
public:
    FillPeer(
        PeerContext& context, Control& control, Property<Colour> const& colour, QWidget& ground);
    void Mirror() override;

private:
    Property<Colour> const& m_colour;
};

class XPContainerPeer final : public SurfacePeer {
public:
    XPContainerPeer(PeerContext& context, XPContainer& control, QWidget& ground);
    void Mirror() override;

private:
    XPContainer& m_panel;
    QLabel& m_caption;
};

/// The cursor of a MousePointer value; `icon` names the picture of a custom one.
class QCursor;
QCursor CursorOf(Pictures& pictures, int pointer, TextView icon);
