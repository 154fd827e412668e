#include "forms/tree.h"

#include <algorithm>
#include <cassert>
#include <utility>

#include "platform/letter_case.h"

namespace orvent::forms {

Tree::Node* Tree::find(const std::string& Key) const {
    const auto entry = byKey_.find(Key);
    return entry == byKey_.end() ? nullptr : entry->second;
}

namespace {

/// Letters that are alike but for their case become one.
std::string folded(const std::string& text) {
    return platform::lowerLetters(platform::upperLetters(text));
}

}  // namespace

bool Tree::Node::isShown() const {
    return hasWords_ || (parent_ && parent_->parent_ && parent_->isShown());
}

int Tree::Node::shownChildren() const {
    return parent_ && isShown() ? static_cast<int>(children_.size()) : childrenWithWords_;
}

/// In one place whatever has changed, so that the parent's count follows.
void Tree::lookForWords(Node& node) const {
    const bool before = node.hasWords_;
    node.hasWords_ = words_.empty() || (node.parent_ && folded(node.Text).find(words_) != std::string::npos);
    if (node.parent_) {
        node.parent_->childrenWithWords_ += (node.hasWords_ ? 1 : 0) - (before ? 1 : 0);
    }
    for (const std::unique_ptr<Node>& child : node.children_) {
        lookForWords(*child);
    }
}

void Tree::narrow(const std::string& words) {
    words_ = folded(words);
    for (const std::unique_ptr<Node>& root : roots_) {
        lookForWords(*root);
    }
}

void Tree::tellGathered() {
    for (const auto& [parent, range] : std::exchange(gathered_, {})) {
        tell({TreeChange::Kind::altered, parent, range.first, range.last}, [] {});
    }
}

Tree::Gathering::~Gathering() {
    if (--tree_.gathering_ == 0) {
        tree_.tellGathered();
    }
}

void Tree::tell(const TreeChange& change, const std::function<void()>& act) {
    if (gathering_ > 0 && !quiet_) {
        if (change.kind == TreeChange::Kind::altered) {
            Range& range = gathered_.try_emplace(change.parent, Range{change.position, change.last}).first->second;
            range = {std::min(range.first, change.position), std::max(range.last, change.last)};
            return act();
        }
        // Places are about to change.
        const int gathering = std::exchange(gathering_, 0);
        tellGathered();
        gathering_ = gathering;
    }
    TreeListener* const listener = quiet_ ? nullptr : listener_;
    if (listener) {
        listener->about(change);
    }
    act();
    if (listener) {
        listener->done(change);
    }
}

Tree::Node& Tree::add(TreeNode value, Node* parent) {
    std::vector<std::unique_ptr<Node>>& siblings = parent ? parent->children_ : roots_;
    const int position = static_cast<int>(siblings.size());
    std::unique_ptr<Node> held(new Node(std::move(value), parent));
    Node& node = *held;
    node.position_ = position;
    tell({TreeChange::Kind::inserted, parent, position}, [&] {
        byKey_.emplace(node.Key, &node);
        siblings.push_back(std::move(held));
        if (parent) {
            parent->checkedChildren_ += node.Checked ? 1 : 0;
            ++parent->childrenWithWords_;
        }
        lookForWords(node);
    });
    return node;
}

void Tree::unlist(const Node& node) {
    for (const std::unique_ptr<Node>& child : node.children_) {
        unlist(*child);
    }
    unlistKey(node);
}

void Tree::unlistKey(const Node& node) {
    const auto [first, last] = byKey_.equal_range(node.Key);
    byKey_.erase(std::find_if(first, last, [&](const auto& entry) { return entry.second == &node; }));
}

void Tree::remove(Node& node) {
    Node* const parent = node.parent_;
    std::vector<std::unique_ptr<Node>>& siblings = parent ? parent->children_ : roots_;
    const int position = node.position_;
    tell({TreeChange::Kind::removed, parent, position}, [&] {
        unlist(node);
        if (parent) {
            parent->checkedChildren_ -= node.Checked ? 1 : 0;
            parent->childrenWithWords_ -= node.hasWords_ ? 1 : 0;
        }
        const auto next = siblings.erase(siblings.begin() + position);
        std::for_each(next, siblings.end(), [](const std::unique_ptr<Node>& each) { --each->position_; });
    });
}

void Tree::alter(Node& node, const std::function<void(TreeNode&)>& change) {
    tell({TreeChange::Kind::altered, node.parent_, node.position_, node.position_}, [&] {
        const bool before = node.Checked;
        const std::string text = words_.empty() ? std::string() : node.Text;
        change(node);
        if (node.parent_) {
            node.parent_->checkedChildren_ += (node.Checked ? 1 : 0) - (before ? 1 : 0);
        }
        if (!words_.empty() && node.Text != text) {
            lookForWords(node);
        }
    });
}

void Tree::rename(Node& node, const std::string& Key, const std::string& Text) {
    tell({TreeChange::Kind::altered, node.parent_, node.position_}, [&] {
        unlistKey(node);
        node.Key = Key;
        node.Text = Text;
        byKey_.emplace(node.Key, &node);
    });
}

void Tree::Clear() {
    tell({TreeChange::Kind::reset}, [this] {
        roots_.clear();
        byKey_.clear();
    });
}

void Tree::rebuild(const std::function<void()>& changes) {
    assert(!quiet_);
    tell({TreeChange::Kind::reset}, [&] {
        quiet_ = true;
        changes();
        quiet_ = false;
    });
}

std::string withState(const std::string& image, std::string_view state) {
    const std::size_t dash = image.rfind('-');
    return dash == std::string::npos ? image : image.substr(0, dash + 1) + std::string(state);
}

}  // namespace orvent::forms
