#pragma once
// Makes the peer of a control after its kind.

#include "desktop/peers/peer.h"

class FormPeer;

/// `container` is the peer of the control's container, `window` that of its form. Null for a
/// control without a peer, such as an image list.
Peer* MakePeer(PeerContext& context, Control& control, Peer& container, FormPeer& window);
