#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace orvent::forms {

/// A node of a tree. It is changed through its tree only.
struct TreeNode {
    std::string Key = {};
    std::string Text = {};
    std::int16_t Tag = 0;
    std::string Image = {};  ///< key of its picture, base and state joined by "-"; a base alone has no state
    bool Checked = false;
    bool Bold = false;
    bool Expanded = false;
    std::int32_t ForeColor = 0;  ///< blue in the high byte
    std::string Refusal = {};    ///< why it cannot be used; then it is shown grey
    std::int16_t Kind = 0;       ///< what it stands for, in the words of its dialog
};

/// One change of a tree.
struct TreeChange;

/// Who shows a tree. Each change is told before and behind it.
class TreeListener {
  public:
    virtual ~TreeListener() = default;
    virtual void about(const TreeChange&) {}
    virtual void done(const TreeChange& change) = 0;
};

/// The nodes of a tree view: a plain value of a dialog's logic, which a window only shows. Two nodes may have one key;
/// then one of them is found.
class Tree {
  public:
    /// A node in its place.
    class Node : private TreeNode {
      public:
        const TreeNode& value() const { return *this; }
        Node* parent() const { return parent_; }    ///< null of a root
        int position() const { return position_; }  ///< among its parent's children, from 0
        const std::vector<std::unique_ptr<Node>>& children() const { return children_; }
        /// How many of the children are `Checked`; in constant time.
        int checkedChildren() const { return checkedChildren_; }
        /// What a narrowed tree shows: the node, if its own text or that of a node above it has the words; and how many
        /// of its children, in constant time. Nodes above those that are shown stand there, too.
        bool isShown() const;
        bool hasWords() const { return parent_ && hasWords_; }  ///< its own text has them
        int shownChildren() const;

      private:
        friend class Tree;
        explicit Node(TreeNode value, Node* parent) : TreeNode(std::move(value)), parent_(parent) {}

        Node* parent_;
        int position_ = 0;
        int checkedChildren_ = 0;
        bool hasWords_ = true;
        int childrenWithWords_ = 0;
        std::vector<std::unique_ptr<Node>> children_;
    };

    Tree() = default;
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;

    const std::vector<std::unique_ptr<Node>>& roots() const { return roots_; }
    Node* find(const std::string& Key) const;
    int Count() const { return static_cast<int>(byKey_.size()); }

    /// Adds a last child, a root when there is no parent.
    Node& add(TreeNode node, Node* parent = nullptr);
    void remove(Node& node);
    /// Changes the node in place, but not its key.
    void alter(Node& node, const std::function<void(TreeNode&)>& change);
    /// Gives the node another key and text.
    void rename(Node& node, const std::string& Key, const std::string& Text);
    void Clear();
    /// Many changes that are told as one.
    void rebuild(const std::function<void()>& changes);
    /// Narrows the tree to the nodes whose text has the words, whatever the case of letters, with all below and above
    /// them; no words show all. The text of a root is no answer: all would be shown.
    void narrow(const std::string& words);

    /// While one lives, nodes that are altered are told in the end, those of one parent together.
    class Gathering {
      public:
        explicit Gathering(Tree& tree) : tree_(tree) { ++tree_.gathering_; }
        ~Gathering();
        Gathering(const Gathering&) = delete;
        Gathering& operator=(const Gathering&) = delete;

      private:
        Tree& tree_;
    };

    /// Null: nobody shows it.
    void watch(TreeListener* listener) { listener_ = listener; }

  private:
    struct Range {
        int first, last;
    };

    void unlist(const Node& node);
    void unlistKey(const Node& node);
    void tell(const TreeChange& change, const std::function<void()>& act);
    void tellGathered();
    void lookForWords(Node& node) const;

    std::vector<std::unique_ptr<Node>> roots_;
    std::unordered_multimap<std::string, Node*> byKey_;
    TreeListener* listener_ = nullptr;
    bool quiet_ = false;  // within `rebuild`
    std::string words_;   // folded
    int gathering_ = 0;
    std::unordered_map<const Node*, Range> gathered_;  // by parent, the children that were altered
};

struct TreeChange {
    enum class Kind { inserted, removed, altered, reset };
    Kind kind;
    const Tree::Node* parent = nullptr;  ///< null: among the roots
    int position = 0;                    ///< from 0; of `altered` the first
    int last = 0;                        ///< of `altered`
};

/// `image` with the state behind its last "-" replaced; an image without a state stays.
std::string withState(const std::string& image, std::string_view state);

}  // namespace orvent::forms
