#include "desktop/peers/node_model.h"

#include "desktop/peers/convert.h"

#include <QBrush>

NodeModel::NodeModel(TreeView& tree, Pictures& pictures)
    : m_tree(tree)
    , m_pictures(pictures)
    , m_revision(tree.Revision())
{
}

bool NodeModel::Follow()
{
    auto const count = m_tree.Nodes().size();
    // Many new nodes are sooner taken in all at once.
    bool const anew = m_revision != m_tree.Revision() || count > 2 * m_known + 100;
    if (anew)
        TakeAnew();
    else if (count > m_known)
        TakeRest();
    return anew;
}

void NodeModel::TakeAnew()
{
    beginResetModel();
    m_rows.clear();
    for (auto const& node : m_tree.Nodes())
        ++m_rows[node.Parent()];
    m_known = m_tree.Nodes().size();
    m_revision = m_tree.Revision();
    endResetModel();
}

void NodeModel::TakeRest()
{
    auto const& nodes = m_tree.Nodes();
    while (m_known < nodes.size()) {
        Node* const parent = nodes[m_known].Parent();
        auto end = m_known + 1;
        while (end < nodes.size() && nodes[end].Parent() == parent)
            ++end;
        int const first = m_rows[parent];
        int const added = static_cast<int>(end - m_known);
        beginInsertRows(parent ? IndexOf(*parent) : QModelIndex(), first, first + added - 1);
        m_rows[parent] = first + added;
        m_known = end;
        endInsertRows();
    }
}

QModelIndex NodeModel::IndexOf(Node const& node) const
{
    return createIndex(node.Row(), 0, &node);
}

std::pmr::vector<Node*> const& NodeModel::ChildrenOf(Node const* node) const
{
    return node ? node->Children() : m_tree.Roots();
}

QModelIndex NodeModel::index(int row, int column, QModelIndex const& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    Node const* const above = parent.isValid() ? &NodeAt(parent) : nullptr;
    return createIndex(row, column, ChildrenOf(above)[static_cast<std::size_t>(row)]);
}

QModelIndex NodeModel::parent(QModelIndex const& index) const
{
    Node const* const above = index.isValid() ? NodeAt(index).Parent() : nullptr;
    return above ? IndexOf(*above) : QModelIndex();
}

int NodeModel::rowCount(QModelIndex const& parent) const
{
    auto const found = m_rows.find(parent.isValid() ? &NodeAt(parent) : nullptr);
    return found == m_rows.end() ? 0 : found->second;
}

QVariant NodeModel::data(QModelIndex const& index, int role) const
{
    Node const& node = NodeAt(index);
    bool const isTinted
        = node.BackColor() != m_tree.BackColor() && node.BackColor() != Rgb(255, 255, 255);
    switch (role) {
    case Qt::DisplayRole:
        return ToQString(node.Caption());
    case Qt::DecorationRole:
        return IconOf(node);
    case Qt::FontRole:
        return node.Bold() ? ToQFont({ m_tree.FontName, m_tree.FontSize, true }) : QVariant();
    case Qt::BackgroundRole:
        return isTinted ? QBrush(ToQColor(node.BackColor())) : QVariant();
    case Qt::AccessibleDescriptionRole: // asked for by assistive tools alone
        return ToQString(m_tree.ToolTipOf(node));
    default:
        return {};
    }
}

/// The place of an image in its list, from 1; 0 for none.
static std::size_t PlaceOf(std::vector<ImageList::Entry> const& entries, NodeImage const& image)
{
    auto const* const place = std::get_if<int>(&image);
    if (place)
        return *place > 0 && static_cast<std::size_t>(*place) <= entries.size()
            ? static_cast<std::size_t>(*place)
            : 0;
    std::string_view const key = std::get<char const*>(image);
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (!key.empty() && entries[i].key == key)
            return i + 1;
    return 0;
}

QIcon NodeModel::IconOf(Node const& node) const
{
    if (!m_tree.Images)
        return {};
    auto const& entries = m_tree.Images->Entries();
    auto place = m_tree.Selected() == &node ? PlaceOf(entries, node.SelectedImage()) : 0;
    if (place == 0)
        place = PlaceOf(entries, node.Image());
    if (place == 0)
        return {};
    auto& icon = m_icons[place];
    if (icon.isNull())
        icon = QIcon(m_pictures.Find(FromUtf8(entries[place - 1].picture)));
    return icon;
}
