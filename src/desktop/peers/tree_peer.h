#pragma once
// Trees on the desktop.

#include "controls/tree_view.h"
#include "desktop/peers/node_model.h"
#include "desktop/peers/peer.h"

class NodeView;
class QModelIndex;

class TreePeer final : public Peer {
public:
    TreePeer(PeerContext& context, TreeView& control, QWidget& ground);
    void Mirror() override;

protected:
    bool TakeKey(QKeyEvent& event) override;
    bool WantsKey(int keyCode) const override;

private:
    void MirrorExpanded();
    void MirrorSelected();
    void MirrorView();
    QString TipOf(QModelIndex const& index) const;
    void Toggled(QModelIndex const& index, bool expanded);
    void Chosen(QModelIndex const& index);

    TreeView& m_tree;
    NodeModel m_model;
    NodeView& m_shown;
    std::vector<bool> m_expanded; // what the widget shows, for the nodes in their order
    std::vector<Node*> m_toggled; // by the user; the model may have refused
    unsigned m_timesEnsured = 0; // that a node was made visible
};
