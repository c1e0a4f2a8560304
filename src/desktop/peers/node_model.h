#pragma once
// The nodes of a tree as a model for Qt's item views, without a copy.

#include "controls/tree_view.h"
#include "desktop/peers/pictures.h"

#include <QAbstractItemModel>
#include <QIcon>

#include <unordered_map>

class NodeModel final : public QAbstractItemModel {
public:
    NodeModel(TreeView& tree, Pictures& pictures);

    /// Takes in the nodes that were added, or all if the tree was cleared; true if all.
    bool Follow();
    QModelIndex IndexOf(Node const& node) const;
    static Node& NodeAt(QModelIndex const& index)
    {
        return *static_cast<Node*>(index.internalPointer());
    }

    QModelIndex index(int row, int column, QModelIndex const& parent = {}) const override;
    QModelIndex parent(QModelIndex const& index) const override;
    int rowCount(QModelIndex const& parent = {}) const override;
    int columnCount(QModelIndex const& = {}) const override { return 1; }
    QVariant data(QModelIndex const& index, int role) const override;

private:
    void TakeAnew();
    void TakeRest();
    std::pmr::vector<Node*> const& ChildrenOf(Node const* node) const;
    QIcon IconOf(Node const& node) const;

    TreeView& m_tree;
    Pictures& m_pictures;
    mutable std::unordered_map<std::size_t, QIcon> m_icons;
    std::unordered_map<Node const*, int> m_rows; // how many children the view knows of
    std::size_t m_known = 0;
    unsigned m_revision = 0;
};
