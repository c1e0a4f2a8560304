#include "controls/tree_view.h"

#include <algorithm>

/// Characters of the texts for which memory is taken at once.
static constexpr std::size_t textBlock = 4096;

/// Children for which memory is taken with the first.
static constexpr std::size_t fewChildren = 2;

std::pmr::vector<Node*> const Node::noNodes;

void Node::SetExpanded(bool expanded)
{
    Set(m_expanded, expanded);
}

void Node::SetBold(bool bold)
{
    Set(m_bold, bold);
}

void Node::SetBackColor(Colour colour)
{
    Set(m_backColor, colour);
}

Node::Further& Node::TakeFurther()
{
    if (!m_further)
        m_further = m_tree.Make<Further>();
    return *m_further;
}

void Node::SetTag(TextView tag)
{
    TakeFurther().tag = m_tree.Intern(tag);
}

void Node::SetImage(NodeImage image)
{
    Set(m_image, image);
}

void Node::SetSelectedImage(NodeImage image)
{
    Set(TakeFurther().selectedImage, image);
}

/// Most of what a new node is given it has already, and the host needn't hear of that.
template <class Value> void Node::Set(Value& member, Value value)
{
    if (member == value)
        return;
    member = value;
    m_tree.ContentChanged();
}

TreeView::KeptBlocks::~KeptBlocks()
{
    for (auto const& [size, block] : m_blocks)
        ::operator delete(block);
}

void* TreeView::KeptBlocks::do_allocate(std::size_t bytes, std::size_t)
{
    auto const kept = m_blocks.find(bytes);
    if (kept == m_blocks.end())
        return ::operator new(bytes);
    return m_blocks.extract(kept).mapped();
}

void TreeView::KeptBlocks::do_deallocate(void* block, std::size_t bytes, std::size_t)
{
    m_blocks.emplace(bytes, block);
}

TreeView::TreeView(Form& form, Control& container, char const* name, Bounds bounds)
    : TextControl(form, container, name, bounds)
{
}

char16_t* TreeView::TakeRoom(std::size_t size)
{
    auto& room = m_content->room;
    if (room.size() < size) {
        auto const taken = std::max(size, textBlock);
        room = { std::pmr::polymorphic_allocator<char16_t>(&m_content->memory).allocate(taken),
            taken };
    }
    char16_t* const start = room.data();
    room = room.subspan(size);
    return start;
}

TextView TreeView::Intern(TextView text)
{
    if (text.empty())
        return {};
    char16_t* const kept = TakeRoom(text.size());
    std::copy(text.begin(), text.end(), kept);
    return { kept, text.size() };
}

static std::size_t SizeOf(TextParts const& parts)
{
    return parts[0].size() + parts[1].size() + parts[2].size();
}

static char16_t* Join(TextParts const& parts, char16_t* to)
{
    for (TextView const part : parts)
        if (!part.empty())
            to = std::copy(part.begin(), part.end(), to);
    return to;
}

Node& TreeView::Add(Node* parent, TextParts const& key, TextParts const& text, NodeLook const& look)
{
    Node& node = m_content->nodes.Add(*this, parent, look);
    auto const keySize = SizeOf(key), captionSize = SizeOf(text);
    char16_t* const texts = TakeRoom(keySize + captionSize);
    Join(text, Join(key, texts));
    node.m_texts = texts;
    node.m_keySize = static_cast<std::uint32_t>(keySize);
    node.m_captionSize = static_cast<std::uint32_t>(captionSize);
    if (!look.tag.empty())
        node.SetTag(look.tag);
    if (parent && !parent->m_children)
        parent->m_children = Make<std::pmr::vector<Node*>>(&m_content->memory);
    auto& siblings = parent ? *parent->m_children : m_content->roots;
    if (siblings.empty())
        siblings.reserve(fewChildren);
    node.m_row = static_cast<int>(siblings.size());
    siblings.push_back(&node);
    ContentChanged();
    return node;
}

void TreeView::Clear()
{
    m_selected = nullptr;
    m_ensuredVisible = nullptr;
    ++m_revision;
    if (!m_content->nodes.empty()) {
        m_content.reset();
        m_content = std::make_unique<Content>(m_blocks);
    }
    ContentChanged();
}

Node* TreeView::Find(TextView key) const
{
    auto& byKey = m_content->byKey;
    for (auto& indexed = m_content->indexed; indexed < m_content->nodes.size(); ++indexed)
        byKey.insert(&m_content->nodes[indexed]);
    auto const found = byKey.find(key);
    return found == byKey.end() ? nullptr : *found;
}

void TreeView::Select(Node* node)
{
    m_selected = node;
    ContentChanged();
}

void TreeView::EnsureVisible(Node& node)
{
    for (Node* parent = node.Parent(); parent; parent = parent->Parent())
        parent->SetExpanded(true);
    m_ensuredVisible = &node;
    ++m_timesEnsured;
    ContentChanged();
}

Text TreeView::ToolTipOf(Node const& node)
{
    Text tip;
    if (NodeToolTip)
        Raise(Event([&] { tip = NodeToolTip(node); }));
    return tip;
}

void TreeView::Reset()
{
    Control::Reset();
    Clear();
}
