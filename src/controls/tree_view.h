#pragma once
// A tree of nodes with texts and small pictures.

#include "controls/picture.h"

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <memory_resource>
#include <span>
#include <unordered_set>
#include <variant>
#include <vector>

class TreeView;

/// The picture of a node in the tree's image list: its place from 1, its key (a literal), or 0 for none.
using NodeImage = std::variant<int, char const*>;

/// A node of a tree. Its texts lie with the tree's.
class Node {
public:
    TextView Key() const { return m_key; }
    TextView Caption() const { return m_text; }
    /// Nothing for a node at the root.
    Node* Parent() const { return m_parent; }
    std::pmr::vector<Node*> const& Children() const { return m_children; }
    /// The place among the children of its parent, or at the root, from 0.
    int Row() const { return m_row; }

    bool Expanded() const { return m_expanded; }
    bool Bold() const { return m_bold; }
    Colour BackColor() const { return m_backColor; }
    TextView Tag() const { return m_tag; }
    NodeImage const& Image() const { return m_image; }
    NodeImage const& SelectedImage() const { return m_selectedImage; }

    void SetExpanded(bool expanded);
    void SetBold(bool bold);
    void SetBackColor(Colour colour);
    void SetTag(TextView tag);
    void SetImage(NodeImage image);
    void SetSelectedImage(NodeImage image);

    /// Made by its tree alone.
    Node(TreeView& tree, Node* parent, std::pmr::memory_resource* memory)
        : m_tree(tree)
        , m_parent(parent)
        , m_children(memory)
    {
    }

private:
    friend class TreeView;
    template <class Value> void Set(Value& member, Value value);

    TreeView& m_tree;
    Node* m_parent;
    std::pmr::vector<Node*> m_children;
    TextView m_key, m_text, m_tag;
    NodeImage m_image = 0, m_selectedImage = 0;
    Colour m_backColor = 0xFFFFFF;
    int m_row = 0;
    bool m_expanded = false;
    bool m_bold = false;
};

/// A node stays where it is in memory until the tree is cleared.
class TreeView final : public TextControl {
public:
    TreeView(Form& form, Control& container, char const* name, Bounds bounds);

    char const* Kind() const override { return "TreeView"; }
    bool CanFocus() const override { return true; }

    /// Adds a node at the root, or as the last child of a node of this tree. Keys are meant to be unique.
    Node& Add(TextView key, TextView text);
    Node& Add(Node& parent, TextView key, TextView text);
    void Clear();
    /// The first node with the key; nothing if there is none.
    Node* Find(TextView key) const;
    /// All nodes in the order in which they were added.
    std::pmr::deque<Node> const& Nodes() const { return m_content->nodes; }
    std::pmr::deque<Node>& Nodes() { return m_content->nodes; }
    std::pmr::vector<Node*> const& Roots() const { return m_content->roots; }
    Node* Selected() const { return m_selected; }
    void Select(Node* node);

    /// Sets the background of the whole tree, as the tree control's colour message does.
    void SetBackgroundColour(Colour colour) { BackColor = colour; }

    ImageList* Images = nullptr;
    std::function<void(Node& node)> NodeClick;

    /// How often the tree has been cleared: a host that has seen this count and a number of nodes needs only the rest.
    unsigned Revision() const { return m_revision; }
    void Reset() override;

private:
    friend class Node;

    // Nodes are found by their keys.
    struct KeyHash {
        using is_transparent = void;
        std::size_t operator()(TextView key) const { return std::hash<TextView>()(key); }
        std::size_t operator()(Node const* node) const { return (*this)(TextView(node->Key())); }
    };
    struct SameKey {
        using is_transparent = void;
        static TextView KeyOf(Node const* node) { return node->Key(); }
        static TextView KeyOf(TextView key) { return key; }
        bool operator()(auto const& left, auto const& right) const { return KeyOf(left) == KeyOf(right); }
    };

    /// Keeps the blocks that are given back, for the next content: a tree is often filled anew with nearly the same nodes, and
    /// fresh memory from the system takes longer than filling it.
    class KeptBlocks final : public std::pmr::memory_resource {
    public:
        ~KeptBlocks() override;

    private:
        void* do_allocate(std::size_t bytes, std::size_t alignment) override;
        void do_deallocate(void* block, std::size_t bytes, std::size_t alignment) override;
        bool do_is_equal(std::pmr::memory_resource const& other) const noexcept override { return this == &other; }

        std::multimap<std::size_t, void*> m_blocks; // by size in bytes
    };

    /// All that Clear forgets. It only grows until then, so its memory comes in large pieces and goes at once: the nodes have
    /// nothing outside it and are not destroyed one by one.
    struct Content {
        explicit Content(KeptBlocks& blocks)
            : memory(&blocks)
        {
        }

        std::pmr::monotonic_buffer_resource memory;
        std::span<char16_t> room; // for the next texts
        std::pmr::polymorphic_allocator<> allocator { &memory };
        std::pmr::deque<Node>& nodes = *allocator.new_object<std::pmr::deque<Node>>();
        std::pmr::vector<Node*>& roots = *allocator.new_object<std::pmr::vector<Node*>>();
        std::unordered_set<Node*, KeyHash, SameKey> byKey; // of the first `indexed` nodes: brought up to date by Find
        std::size_t indexed = 0;
    };

    Node& Enter(Node* parent, TextView key, TextView text);
    TextView Keep(TextView text);

    KeptBlocks m_blocks;
    std::unique_ptr<Content> m_content = std::make_unique<Content>(m_blocks);
    Node* m_selected = nullptr;
    unsigned m_revision = 0;
};
