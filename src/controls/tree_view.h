#pragma once
// A tree of nodes with texts and small pictures.

#include "controls/picture.h"

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <memory_resource>
#include <span>
#include <unordered_set>
#include <variant>
#include <vector>

class TreeView;

/// A picture of the tree's image list: its place from 1, its key (a literal), or 0 for none.
using NodeImage = std::variant<int, char const*>;

struct NodeLook {
    NodeImage image = 0;
    bool bold = false;
    Colour backColor = 0xFFFFFF;
    TextView tag = {};
};

/// A text in up to three parts.
using TextParts = std::array<TextView, 3>;

class Node {
public:
    TextView Key() const { return { m_texts, m_keySize }; }
    TextView Caption() const { return { m_texts + m_keySize, m_captionSize }; }
    /// Nothing for a node at the root.
    Node* Parent() const { return m_parent; }
    std::pmr::vector<Node*> const& Children() const { return m_children ? *m_children : noNodes; }
    /// The place among the children of its parent, or at the root, from 0.
    int Row() const { return m_row; }

    bool Expanded() const { return m_expanded; }
    bool Bold() const { return m_bold; }
    Colour BackColor() const { return m_backColor; }
    TextView Tag() const { return m_further ? m_further->tag : TextView(); }
    NodeImage const& Image() const { return m_image; }
    NodeImage SelectedImage() const { return m_further ? m_further->selectedImage : 0; }

    void SetExpanded(bool expanded);
    void SetBold(bool bold);
    void SetBackColor(Colour colour);
    void SetTag(TextView tag);
    void SetImage(NodeImage image);
    void SetSelectedImage(NodeImage image);

    /// Made by its tree alone.
    Node(TreeView& tree, Node* parent, NodeLook const& look)
        : m_tree(tree)
        , m_parent(parent)
        , m_image(look.image)
        , m_backColor(look.backColor)
        , m_bold(look.bold)
    {
    }

private:
    friend class TreeView;
    template <class Value> void Set(Value& member, Value value);

    /// What few nodes have.
    struct Further {
        TextView tag;
        NodeImage selectedImage = 0;
    };
    Further& TakeFurther();

    static std::pmr::vector<Node*> const noNodes;

    // A catalogue has tens of thousands of nodes, most of them leaves: they have to be small.
    TreeView& m_tree;
    Node* m_parent;
    std::pmr::vector<Node*>* m_children = nullptr; // made with the first child
    Further* m_further = nullptr; // made with the first of it
    char16_t const* m_texts = nullptr; // the key and, right after it, the caption
    std::uint32_t m_keySize = 0, m_captionSize = 0; // characters
    NodeImage m_image;
    Colour m_backColor;
    int m_row = 0;
    bool m_expanded = false;
    bool m_bold;
};

/// The nodes of a tree, in large blocks. They keep their addresses and are never destroyed, since
/// they own nothing outside the memory resource.
class NodeList {
public:
    template <class List, class Value> class Iterator {
    public:
        Iterator(List& list, std::size_t place)
            : m_list(list)
            , m_place(place)
        {
        }
        Value& operator*() const { return m_list[m_place]; }
        Iterator& operator++()
        {
            ++m_place;
            return *this;
        }
        bool operator==(Iterator const& other) const { return m_place == other.m_place; }

    private:
        List& m_list;
        std::size_t m_place;
    };

    explicit NodeList(std::pmr::memory_resource& memory)
        : m_memory(memory)
        , m_blocks(&memory)
    {
    }

    std::size_t size() const { return m_size; }
    bool empty() const { return m_size == 0; }
    Node& operator[](std::size_t place) { return m_blocks[place / blockSize][place % blockSize]; }
    Node const& operator[](std::size_t place) const
    {
        return m_blocks[place / blockSize][place % blockSize];
    }
    auto begin() { return Iterator<NodeList, Node>(*this, 0); }
    auto end() { return Iterator<NodeList, Node>(*this, m_size); }
    auto begin() const { return Iterator<NodeList const, Node const>(*this, 0); }
    auto end() const { return Iterator<NodeList const, Node const>(*this, m_size); }

    Node& Add(TreeView& tree, Node* parent, NodeLook const& look)
    {
        if (m_size % blockSize == 0)
            m_blocks.push_back(
                std::pmr::polymorphic_allocator<Node>(&m_memory).allocate(blockSize));
        Node* const node = new (m_blocks.back() + m_size % blockSize) Node(tree, parent, look);
        ++m_size;
        return *node;
    }

private:
    static constexpr std::size_t blockSize = 32;

    std::pmr::memory_resource& m_memory;
    std::pmr::vector<Node*> m_blocks;
    std::size_t m_size = 0;
};

/// A node stays where it is in memory until the tree is cleared.
class TreeView final : public TextControl {
public:
    TreeView(Form& form, Control& container, char const* name, Bounds bounds);

    char const* Kind() const override { return "TreeView"; }
    bool CanFocus() const override { return true; }

    /// Adds a node at the root, or as the last child of a node of this tree. Keys are meant to be
    /// unique.
    Node& Add(TextView key, TextView text, NodeLook const& look = {})
    {
        return Add(nullptr, { key }, { text }, look);
    }
    Node& Add(Node& parent, TextView key, TextView text, NodeLook const& look = {})
    {
        return Add(&parent, { key }, { text }, look);
    }
    /// The same with texts in parts; at the root if `parent` is null.
    Node& Add(Node* parent, TextParts const& key, TextParts const& text, NodeLook const& look);
    void Clear();
    /// The first node with the key; nothing if there is none.
    Node* Find(TextView key) const;
    /// All nodes in the order in which they were added.
    NodeList const& Nodes() const { return m_content->nodes; }
    NodeList& Nodes() { return m_content->nodes; }
    std::pmr::vector<Node*> const& Roots() const { return m_content->roots; }
    Node* Selected() const { return m_selected; }
    void Select(Node* node);

    /// Opens the node's parents and has the host scroll it into view and, if it is open, as many of
    /// its children as there is room for.
    void EnsureVisible(Node& node);
    /// The node of the last such call; nothing if the tree has been cleared since.
    Node* EnsuredVisible() const { return m_ensuredVisible; }
    /// The number of such calls.
    unsigned TimesEnsured() const { return m_timesEnsured; }

    ImageList* Images = nullptr;
    std::function<void(Node& node)> NodeClick;
    /// Gives the tool tip of a node, with LF between its lines; empty for none.
    std::function<::Text(Node const& node)> NodeToolTip;
    /// Calls NodeToolTip as an event of the form.
    ::Text ToolTipOf(Node const& node);

    /// The number of calls of Clear. Until the next one, nodes are only added.
    unsigned Revision() const { return m_revision; }
    void Reset() override;

private:
    friend class Node;

    struct KeyHash {
        using is_transparent = void;
        std::size_t operator()(TextView key) const { return std::hash<TextView>()(key); }
        std::size_t operator()(Node const* node) const { return (*this)(TextView(node->Key())); }
    };
    struct SameKey {
        using is_transparent = void;
        static TextView KeyOf(Node const* node) { return node->Key(); }
        static TextView KeyOf(TextView key) { return key; }
        bool operator()(auto const& left, auto const& right) const
        {
            return KeyOf(left) == KeyOf(right);
        }
    };

    /// Keeps freed blocks for the next content: a tree is often refilled with nearly the same
    /// nodes, and fresh memory from the system takes longer than filling it.
    class KeptBlocks final : public std::pmr::memory_resource {
    public:
        ~KeptBlocks() override;

    private:
        void* do_allocate(std::size_t bytes, std::size_t alignment) override;
        void do_deallocate(void* block, std::size_t bytes, std::size_t alignment) override;
        bool do_is_equal(std::pmr::memory_resource const& other) const noexcept override
        {
            return this == &other;
        }

        std::multimap<std::size_t, void*> m_blocks; // by size in bytes
    };

    /// All that Clear drops at once.
    struct Content {
        explicit Content(KeptBlocks& blocks)
            : memory(&blocks)
        {
        }

        std::pmr::monotonic_buffer_resource memory;
        std::span<char16_t> room; // for the next texts
        NodeList nodes { memory };
        std::pmr::vector<Node*> roots { &memory };
        // of the first `indexed` nodes: brought up to date by Find
        std::unordered_set<Node*, KeyHash, SameKey> byKey;
        std::size_t indexed = 0;
    };

    /// An object that exists until the tree is cleared. Its destructor doesn't run.
    template <class Object, class... Arguments> Object* Make(Arguments&&... arguments)
    {
        auto* const room = std::pmr::polymorphic_allocator<Object>(&m_content->memory).allocate(1);
        return new (room) Object(std::forward<Arguments>(arguments)...);
    }
    /// Memory for so many characters until the tree is cleared.
    char16_t* TakeRoom(std::size_t size);
    TextView Intern(TextView text);

    KeptBlocks m_blocks;
    std::unique_ptr<Content> m_content = std::make_unique<Content>(m_blocks);
    Node* m_selected = nullptr;
    Node* m_ensuredVisible = nullptr;
    unsigned m_timesEnsured = 0;
    unsigned m_revision = 0;
};
