#include "controls/tree_view.h"

void Node::SetExpanded(bool expanded)
{
    m_expanded = expanded;
    m_tree->ContentChanged();
}

void Node::SetBold(bool bold)
{
    m_bold = bold;
    m_tree->ContentChanged();
}

void Node::SetBackColor(Colour colour)
{
    m_backColor = colour;
    m_tree->ContentChanged();
}

void Node::SetTag(Text tag)
{
    m_tag = std::move(tag);
}

void Node::SetImage(NodeImage image)
{
    m_image = std::move(image);
    m_tree->ContentChanged();
}

void Node::SetSelectedImage(NodeImage image)
{
    m_selectedImage = std::move(image);
    m_tree->ContentChanged();
}

TreeView::TreeView(Form& form, Control& container, char const* name, Bounds bounds)
    : TextControl(form, container, name, bounds)
{
}

Node& TreeView::Add(Text key, Text text)
{
    return Enter(nullptr, std::move(key), std::move(text));
}

Node& TreeView::Add(Node& parent, Text key, Text text)
{
    return Enter(&parent, std::move(key), std::move(text));
}

Node& TreeView::Enter(Node* parent, Text key, Text text)
{
    if (auto const found = m_byKey.find(key); found != m_byKey.end())
        return *found->second;
    Node& node = m_nodes.emplace_back();
    node.m_tree = this;
    node.m_parent = parent;
    node.m_key = std::move(key);
    node.m_text = std::move(text);
    auto& siblings = parent ? parent->m_children : m_roots;
    node.m_row = static_cast<int>(siblings.size());
    siblings.push_back(&node);
    m_byKey.emplace(node.m_key, &node);
    ContentChanged();
    return node;
}

void TreeView::Clear()
{
    m_byKey.clear();
    m_roots.clear();
    m_nodes.clear();
    m_selected = nullptr;
    ++m_revision;
    ContentChanged();
}

Node* TreeView::Find(TextView key) const
{
    auto const found = m_byKey.find(key);
    return found == m_byKey.end() ? nullptr : found->second;
}

void TreeView::Select(Node* node)
{
    m_selected = node;
    ContentChanged();
}

void TreeView::Reset()
{
    Control::Reset();
    Clear();
}
