#include "desktop/peers/tree_peer.h"

#include "desktop/peers/convert.h"
#include "desktop/peers/keys.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>
#include <QTreeView>

/// Distinguishes changes of the current node by the keyboard from clicks.
class NodeView final : public QTreeView {
public:
    using QTreeView::QTreeView;
    std::function<void(QModelIndex const&)> chosen;
    std::function<void()> released;
    std::function<QString(QModelIndex const&)> tipOf;
    std::function<QModelIndex()> broughtIntoView;

protected:
    void focusInEvent(QFocusEvent* event) override
    {
        if (event->reason() == Qt::OtherFocusReason)
            ShowCurrent();
        QTreeView::focusInEvent(event);
    }
    bool viewportEvent(QEvent* event) override
    {
        if (event->type() != QEvent::ToolTip)
            return QTreeView::viewportEvent(event);
        auto const& help = static_cast<QHelpEvent const&>(*event);
        auto const index = indexAt(help.pos());
        QToolTip::showText(help.globalPos(), index.isValid() ? tipOf(index) : toolTip(), viewport(),
            visualRect(index));
        return true;
    }
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
    /// Keys start from a visible node; Qt would start from the first.
    void ShowCurrent()
    {
        auto const isInView = [this](QModelIndex const& index) {
            return index.isValid() && viewport()->rect().intersects(visualRect(index));
        };
        auto const current = currentIndex();
        if (!current.isValid()) {
            auto const wanted = broughtIntoView();
            selectionModel()->setCurrentIndex(
                isInView(wanted) ? wanted : indexAt({}), QItemSelectionModel::NoUpdate);
        } else if (!isInView(current) && visualRect(current).isValid()) {
            scrollTo(current);
        }
    }

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
    m_shown.broughtIntoView = [this] {
        Node const* const node = m_tree.EnsuredVisible();
        return node ? m_model.IndexOf(*node) : QModelIndex();
    };
    m_shown.tipOf = [this](QModelIndex const& index) { return TipOf(index); };
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
    MirrorView();
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

void TreePeer::MirrorView()
{
    Node const* const node = m_tree.EnsuredVisible();
    if (std::exchange(m_timesEnsured, m_tree.TimesEnsured()) == m_tree.TimesEnsured() || !node)
        return;
    if (node->Expanded() && !node->Children().empty())
        m_shown.scrollTo(m_model.IndexOf(*node->Children().back()));
    m_shown.scrollTo(m_model.IndexOf(*node));
}

/// The name of a node, if the view cuts it off, and the model's tool tip.
QString TreePeer::TipOf(QModelIndex const& index) const
{
    int const left = m_shown.visualRect(index).left();
    int const right = left + m_shown.sizeHintForIndex(index).width();
    bool const isCutOff = left < 0 || right > m_shown.viewport()->width();
    Node const& node = NodeModel::NodeAt(index);
    Text tip = m_tree.ToolTipOf(node);
    if (isCutOff)
        tip = Text(node.Caption()) + (tip.empty() ? u"" : u"\n") + tip;
    return tip.empty() ? m_shown.toolTip() : ToToolTip(tip);
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
