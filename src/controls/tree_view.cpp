#include "controls/tree_view.h"

#include <algorithm>

void Node::SetExpanded(bool expanded)
{
    m_expanded = expanded;
    m_tree.ContentChanged();
}

void Node::SetBold(bool bold)
{
    m_bold = bold;
    m_tree.ContentChanged();
}

void Node::SetBackColor(Colour colour)
{
    m_backColor = colour;
    m_tree.ContentChanged();
}

void Node::SetTag(TextView tag)
{
    m_tag = m_tree.Keep(tag);
}

void Node::SetImage(NodeImage image)
{
    m_image = image;
    m_tree.ContentChanged();
}

void Node::SetSelectedImage(NodeImage image)
{
    m_selectedImage = image;
    m_tree.ContentChanged();
}

TreeView::TreeView(Form& form, Control& container, char const* name, Bounds bounds)
    : TextControl(form, container, name, bounds)
{
}

Node& TreeView::Add(TextView key, TextView text)
{
    return Enter(nullptr, key, text);
}

Node& TreeView::Add(Node& parent, TextView key, TextView text)
{
    return Enter(&parent, key, text);
}

TextView TreeView::Keep(TextView text)
{
    auto* const kept = static_cast<char16_t*>(m_content->memory.allocate(text.size() * sizeof(char16_t), alignof(char16_t)));
    std::copy(text.begin(), text.end(), kept);
    return { kept, text.size() };
}

Node& TreeView::Enter(Node* parent, TextView key, TextView text)
{
    Node& node = m_content->nodes.emplace_back(*this, parent, &m_content->memory);
    node.m_key = Keep(key);
    node.m_text = Keep(text);
    auto& siblings = parent ? parent->m_children : m_content->roots;
    node.m_row = static_cast<int>(siblings.size());
    siblings.push_back(&node);
    ContentChanged();
    return node;
}

void TreeView::Clear()
{
    m_selected = nullptr;
    ++m_revision;
    if (!m_content->nodes.empty())
        m_content = std::make_unique<Content>();
    ContentChanged();
}

Node* TreeView::Find(TextView key) const
{
    auto& [memory, nodes, roots, byKey, indexed] = *m_content;
    for (; indexed < nodes.size(); ++indexed)
        byKey.insert(&nodes[indexed]);
    auto const found = byKey.find(key);
    return found == byKey.end() ? nullptr : *found;
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
