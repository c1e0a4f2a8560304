#pragma once
// A tree of nodes with texts and small pictures.

#include "controls/picture.h"

#include <deque>
#include <functional>
#include <unordered_map>
#include <variant>
#include <vector>

class TreeView;

/// The picture of a node in the tree's image list: its place from 1, its key, or 0 for none.
using NodeImage = std::variant<int, Text>;

class Node {
public:
    Text const& Key() const { return m_key; }
    Text const& Caption() const { return m_text; }
    /// Nothing for a node at the root.
    Node* Parent() const { return m_parent; }
    std::vector<Node*> const& Children() const { return m_children; }
    /// The place among the children of its parent, or at the root, from 0.
    int Row() const { return m_row; }

    bool Expanded() const { return m_expanded; }
    bool Bold() const { return m_bold; }
    Colour BackColor() const { return m_backColor; }
    Text const& Tag() const { return m_tag; }
    NodeImage const& Image() const { return m_image; }
    NodeImage const& SelectedImage() const { return m_selectedImage; }

    void SetExpanded(bool expanded);
    void SetBold(bool bold);
    void SetBackColor(Colour colour);
    void SetTag(Text tag);
    void SetImage(NodeImage image);
    void SetSelectedImage(NodeImage image);

private:
    friend class TreeView;
    TreeView* m_tree = nullptr;
    Node* m_parent = nullptr;
    std::vector<Node*> m_children;
    Text m_key, m_text, m_tag;
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

    /// Adds a node at the root, or as the last child of a node of this tree. A key that stands in the tree already
    /// gives the node that bears it, and nothing is added.
    Node& Add(Text key, Text text);
    Node& Add(Node& parent, Text key, Text text);
    void Clear();
    /// Nothing if no node has the key.
    Node* Find(TextView key) const;
    /// All nodes in the order in which they were added.
    std::deque<Node> const& Nodes() const { return m_nodes; }
    std::deque<Node>& Nodes() { return m_nodes; }
    std::vector<Node*> const& Roots() const { return m_roots; }
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
    friend class Input;
    Node& Enter(Node* parent, Text key, Text text);

    std::deque<Node> m_nodes;
    std::vector<Node*> m_roots;
    std::unordered_map<TextView, Node*> m_byKey; // views of the nodes' own keys
    Node* m_selected = nullptr;
    unsigned m_revision = 0;
};
