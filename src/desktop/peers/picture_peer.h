#pragma once
// Images and picture boxes on the desktop.

#include "desktop/peers/surface_peer.h"

class ImagePeer final : public SurfacePeer {
public:
    ImagePeer(PeerContext& context, Image& control, QWidget& ground);
    void PropertyAssigned(PropertyBase const& property) override
    {
        m_isStale |= &property == &m_image.Picture;
    }
    void Mirror() override;

protected:
    bool TakeKey(QKeyEvent& event) override;

private:
    Image& m_image;
    bool m_isStale = true; // the picture is to be loaded
};

class PictureBoxPeer final : public SurfacePeer {
public:
    PictureBoxPeer(PeerContext& context, PictureBox& control, QWidget& ground);
    void PropertyAssigned(PropertyBase const& property) override
    {
        m_isStale |= &property == &m_box.Picture;
    }
    void Mirror() override;

private:
    PictureBox& m_box;
    QWidget& m_border; // above the controls in the box
    bool m_isStale = true;
};
