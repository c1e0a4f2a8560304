#include "desktop/peers/peer_factory.h"

#include "desktop/peers/bar_peer.h"
#include "desktop/peers/browser_peer.h"
#include "desktop/peers/button_peer.h"
#include "desktop/peers/form_peer.h"
#include "desktop/peers/list_peer.h"
#include "desktop/peers/menu_peer.h"
#include "desktop/peers/picture_peer.h"
#include "desktop/peers/player_peer.h"
#include "desktop/peers/rich_text_peer.h"
#include "desktop/peers/tree_peer.h"

#include <QWidget>

static Peer* MakeMenuPeer(PeerContext& context, Control& control, Peer& container, FormPeer& window)
{
    if (auto* const menu = dynamic_cast<Menu*>(&control))
        return new MenuPeer(context, *menu, *window.MenuBar());
    if (auto* const entry = dynamic_cast<MenuEntry*>(&control))
        return new MenuEntryPeer(context, *entry, static_cast<MenuPeer&>(container).Shown());
    return nullptr;
}

/// The peer of one kind, if the control is of that kind.
template <class Kind, class KindPeer>
static Peer* Make(PeerContext& context, Control& control, QWidget& ground)
{
    auto* const kind = dynamic_cast<Kind*>(&control);
    return kind ? new KindPeer(context, *kind, ground) : nullptr;
}

static Peer* MakeFillOrBox(PeerContext& context, Control& control, QWidget& ground)
{
    if (auto* const shape = dynamic_cast<Shape*>(&control))
        return new FillPeer(context, control, shape->FillColor, ground);
    if (auto* const line = dynamic_cast<Line*>(&control))
        return new FillPeer(context, control, line->BorderColor, ground);
    auto* const box = dynamic_cast<TextBox*>(&control);
    if (box && box->MultiLine)
        return new TextBoxPeer(context, *box, ground);
    return box ? new LinePeer(context, *box, ground) : nullptr;
}

Peer* MakePeer(PeerContext& context, Control& control, Peer& container, FormPeer& window)
{
    if (auto* const peer = MakeMenuPeer(context, control, container, window))
        return peer;
    if (auto* const timer = dynamic_cast<Timer*>(&control))
        return new TimerPeer(context, *timer, *window.Widget());
    using Maker = Peer* (*)(PeerContext&, Control&, QWidget&);
    constexpr Maker makers[] = { Make<Label, LabelPeer>, Make<CommandButton, ButtonPeer>,
        Make<RichTextBox, RichTextPeer>, MakeFillOrBox, Make<Image, ImagePeer>,
        Make<PictureBox, PictureBoxPeer>, Make<XPContainer, XPContainerPeer>,
        Make<TreeView, TreePeer>, Make<ScrollBar, ScrollBarPeer>, Make<ProgressBar, ProgressPeer>,
        Make<StatusBar, StatusBarPeer>, Make<CheckBox, CheckPeer>, Make<ComboBox, ComboPeer>,
        Make<WebBrowser, BrowserPeer>, Make<WindowsMediaPlayer, PlayerPeer> };
    for (auto const maker : makers)
        if (auto* const peer = maker(context, control, *container.Ground()))
            return peer;
    return nullptr;
}
