#include "forms/tree.h"

#include <algorithm>
#include <cassert>

namespace orvent::forms {

Tree::Node* Tree::find(const std::string& Key) const {
    const auto entry = byKey_.find(Key);
    return entry == byKey_.end() ? nullptr : entry->second;
}

void Tree::tell(const TreeChange& change, const std::function<void()>& act) {
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
        if (parent && node.Checked) {
            ++parent->checkedChildren_;
        }
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
        if (parent && node.Checked) {
            --parent->checkedChildren_;
        }
        const auto next = siblings.erase(siblings.begin() + position);
        std::for_each(next, siblings.end(), [](const std::unique_ptr<Node>& each) { --each->position_; });
    });
}

void Tree::alter(Node& node, const std::function<void(TreeNode&)>& change) {
    tell({TreeChange::Kind::altered, node.parent_, node.position_}, [&] {
        const bool before = node.Checked;
        change(node);
        if (node.parent_) {
            node.parent_->checkedChildren_ += (node.Checked ? 1 : 0) - (before ? 1 : 0);
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
