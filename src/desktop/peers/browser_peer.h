#pragma once
// The browser control on the desktop. It shows a filtered copy of a page (controls/page_filter.h),
// which can load nothing but the background picture in the application folder.

#include "controls/media.h"
#include "desktop/peers/peer.h"

class PageView;

class BrowserPeer final : public Peer {
public:
    BrowserPeer(PeerContext& context, WebBrowser& control, QWidget& ground);

    /// Reads the page at a file address now and shows it; an empty page if it can't be read.
    void Navigate(TextView url);
    void Mirror() override;

private:
    PageView& m_shown;
};
