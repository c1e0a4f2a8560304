#include "desktop/peers/tree_peer.h"

#include "desktop/peers/convert.h"
#include "desktop/peers/keys.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QTreeView>

/// Tells apart how the current node came to change: by the keyboard or by the mouse, which is a
/// click at its release.
class NodeView final : public QTreeView {
public:
    using QTreeView::QTreeView;
    std::function<void(QModelIndex const&)> chosen;
    std::function<void()> released;

protected:
    void currentChanged(QModelIndex const& current, QModelIndex const& previous) override
    {
        QTreeView::currentChanged(current, previous);
        if (!m_pressed && current.isValid())
            chosen(current);
    }
    void mousePressEvent(QMouseEvent* event) override
    {
        m_pressed = true;
        QTreeView::mousePressEvent(event);
    }
    void mouseReleaseEvent(QMouseEvent* event) override
    {
        QTreeView::mouseReleaseEvent(event);
        m_pressed = false;
        released();
    }

private:
    bool m_pressed = false;
};

TreePeer::TreePeer(PeerContext& context, TreeView& control, QWidget& ground)
    : Peer(context, control, new NodeView(&ground))
    , m_tree(control)
    , m_model(control, context.pictures)
    , m_shown(static_cast<NodeView&>(*Widget()))
{
    m_shown.setModel(&m_model);
    m_shown.setHeaderHidden(true);
    m_shown.setUniformRowHeights(true);
    m_shown.setAutoScroll(false);
    m_shown.setExpandsOnDoubleClick(false);
    m_shown.setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_shown.setIconSize({ 16, 16 });
    m_shown.setIndentation(19);
    m_shown.header()->setStretchLastSection(false);
    m_shown.header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    connect(&m_shown, &QTreeView::expanded, this,
        [this](QModelIndex const& index) { Toggled(index, true); });
    connect(&m_shown, &QTreeView::collapsed, this,
        [this](QModelIndex const& index) { Toggled(index, false); });
    connect(&m_shown, &QTreeView::clicked, this, [this](QModelIndex const& index) {
        Act([&](Input& input) { input.ClickNode(m_tree, NodeModel::NodeAt(index)); });
    });
    m_shown.chosen = [this](QModelIndex const& index) { Chosen(index); };
    m_shown.released = [this] { Act([](Input&) {}); };
}

void TreePeer::Mirror()
{
    if (m_model.Follow()) {
        m_expanded.clear();
        m_toggled.clear();
    }
    m_expanded.resize(m_tree.Nodes().size());
    MirrorExpanded();
    MirrorSelected();
    MirrorLook(m_tree, m_shown, false);
    auto palette = m_shown.palette();
    palette.setColor(QPalette::Base, ToQColor(m_tree.BackColor));
    m_shown.setPalette(palette);
    Peer::Mirror();
    m_shown.viewport()->update();
}

void TreePeer::MirrorExpanded()
{
    for (Node const* node : m_toggled)
        m_shown.setExpanded(m_model.IndexOf(*node), node->Expanded());
    m_toggled.clear();
    std::size_t place = 0;
    for (Node const& node : m_tree.Nodes()) {
        bool const expanded = node.Expanded() && !node.Children().empty();
        if (expanded != m_expanded[place]) {
            m_shown.setExpanded(m_model.IndexOf(node), expanded);
            m_expanded[place] = expanded;
        }
        ++place;
    }
}

void TreePeer::MirrorSelected()
{
    Node const* const selected = m_tree.Selected();
    auto const index = selected ? m_model.IndexOf(*selected) : QModelIndex();
    if (m_shown.currentIndex() == index)
        return;
    m_shown.selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    bool isOpen = selected;
    for (Node const* parent = selected ? selected->Parent() : nullptr; parent;
         parent = parent->Parent())
        isOpen = isOpen && parent->Expanded();
    if (isOpen) // else the view would open the parents
        m_shown.scrollTo(index);
}

void TreePeer::Toggled(QModelIndex const& index, bool expanded)
{
    if (m_context.IsMirroring())
        return;
    Node& node = NodeModel::NodeAt(index);
    m_toggled.push_back(&node);
    Act([&](Input& input) { input.Expand(m_tree, node, expanded); });
}

void TreePeer::Chosen(QModelIndex const& index)
{
    Act([&](Input& input) {
        if (input.Blocked(m_tree).empty() && !m_tree.ParentForm().IsBusy())
            m_tree.Select(&NodeModel::NodeAt(index));
    });
}

bool TreePeer::TakeKey(QKeyEvent& event)
{
    bool const clicks = KeyCodeOf(event) == keyEnter || event.key() == Qt::Key_Space;
    Node* const node = m_tree.Selected();
    if (clicks && node)
        Act([&](Input& input) { input.ClickNode(m_tree, *node); });
    return clicks;
}

bool TreePeer::WantsKey(int keyCode) const
{
    return keyCode == keyEnter;
}
