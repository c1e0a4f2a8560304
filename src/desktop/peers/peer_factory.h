#pragma once
// Makes the peer of a control after its kind.

#include "desktop/peers/peer.h"

/// `container` is the peer of the control's container, `window` that of its form. Nothing for a
/// control of which nothing is to be seen or done on the desktop, such as an image list.
class FormPeer;
Peer* MakePeer(PeerContext& context, Control& control, Peer& container, FormPeer& window);
