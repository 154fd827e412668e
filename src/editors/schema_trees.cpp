#include "editors/schema_trees.h"

#include <algorithm>
#include <array>
#include <utility>

#include "editors/function_nodes.h"
#include "entities/key_grammar.h"

namespace orvent::editors {

using namespace entities;
using forms::Tree;
using forms::TreeNode;

std::string treeKey(LinkType type, const std::string& key) {
    switch (type) {
        case LinkRecordSet:
            return "DB." + key;
        case LinkActivity:
            return "GRAPH." + BeforeFirstDot(key) + "." + AfterSecondDot(key);
        case LinkFunction:
        case LinkConstant:
            return "GRAPH." + key;
        default:
            return {};
    }
}

namespace {

/// A node that nothing uses yet, with the picture of what it stands for.
TreeNode schemaNode(SchemaKind kind, const std::string& key, const std::string& text, std::int16_t tag) {
    constexpr std::array<const char*, 8> kImages = {
        "Graph", "Activity-UnChecked", "Activity-Out-UnChecked", "Constant-UnChecked", "Function-UnChecked",
        "DB",    "RS-UnChecked",       "Field-UnChecked"};
    TreeNode node{key, text, tag, kImages[static_cast<std::size_t>(kind)]};
    node.Kind = static_cast<std::int16_t>(kind);
    return node;
}

template <class Attributes>
void addLeaves(Tree& tree, Tree::Node& parent, const Attributes& attributes, SchemaKind kind) {
    for (const AttributeProperties& attribute : attributes) {
        tree.add(schemaNode(kind, parent.value().Key + "." + attribute.Key, attribute.Attribute_Name,
                            attribute.Attribute_Type),
                 &parent);
    }
}

/// Two activities with one function would hold one row.
std::string refusalOf(const canvas::Canvas& form, const canvas::LabelsD& function, const canvas::LabelsD& edited) {
    const canvas::LabelsD* owner = ownerOfFunction(form, function);
    return owner && owner != &edited ? "This function belongs to " + owner->Caption() + " already." : std::string();
}

void addNode(const canvas::Canvas& form, const canvas::LabelsD& node, const canvas::LabelsD& edited, Tree& graph,
             Tree::Node& graphRoot, Tree& database, Tree::Node& databaseRoot) {
    const std::string& name = node.Caption();
    // A zoom view shows a neighbour twice that is read and written; the first one is the node.
    if (graph.find("GRAPH." + name) || database.find("DB." + name)) {
        return;
    }
    if (const ActivityProperties* activity = node.activity(); activity && &node != &edited) {
        addLeaves(graph, graph.add(schemaNode(SchemaKind::activity, "GRAPH." + name, name, 4), &graphRoot),
                  activity->Act_Outputs, SchemaKind::activityOutput);
    } else if (const RecordSetProperties* recordSet = node.recordSet()) {
        const std::int16_t level = recordSet->RecordSet_Outputs.count() > 0 ? 2 : 3;
        addLeaves(database, database.add(schemaNode(SchemaKind::recordSet, "DB." + name, name, level), &databaseRoot),
                  recordSet->RecordSet_Outputs, SchemaKind::field);
    } else if (const auto* constant = node.entity<ParameterProperties>();
               constant && node.NodeType() == canvas::NodeTypeConstant) {
        graph.add(schemaNode(SchemaKind::constant, "GRAPH." + name, name, constant->Parameter_Type), &graphRoot);
    } else if (const auto* function = node.entity<FunctionProperties>();
               function && function->Function_Source != SourceActivityType) {
        TreeNode shown = schemaNode(SchemaKind::function, "GRAPH." + name, name, function->Function_Type);
        shown.Refusal = refusalOf(form, node, edited);
        graph.add(std::move(shown), &graphRoot);
    }
}

TreeNode root(SchemaKind kind, const char* key, const char* text) {
    TreeNode node = schemaNode(kind, key, text, 1);
    node.Expanded = true;
    return node;
}

}  // namespace

void buildSchemaTrees(const canvas::Canvas& form, const canvas::LabelsD& edited, Tree& graph, Tree& database) {
    graph.rebuild([&] {
        database.rebuild([&] {
            graph.Clear();
            database.Clear();
            Tree::Node& graphRoot = graph.add(root(SchemaKind::graph, "GRAPH", "Graph"));
            Tree::Node& databaseRoot = database.add(root(SchemaKind::database, "DB", "Record Sets"));
            for (const canvas::LabelsD& node : form.Labels) {
                if (form.isZoom() && form.NamesColl.Item(node.KeyName()) != node.Index()) {
                    continue;  // a second copy shows what the first one has, or had
                }
                addNode(form, node, edited, graph, graphRoot, database, databaseRoot);
            }
        });
    });
}

void recomputeParent(Tree& tree, Tree::Node& parent) {
    const int used = parent.checkedChildren();
    const bool all = used > 0 && static_cast<std::size_t>(used) == parent.children().size();
    const char* state = all ? "Checked" : used > 0 ? "UnderChecked" : "UnChecked";
    const std::string image = forms::withState(parent.value().Image, state);
    if (parent.value().Checked == all && parent.value().Image == image) {
        return;
    }
    tree.alter(parent, [&](TreeNode& node) {
        node.Checked = all;
        node.Image = image;
    });
}

void recomputeParents(Tree& tree) {
    for (const auto& treeRoot : tree.roots()) {
        for (const auto& parent : treeRoot->children()) {
            if (!parent->children().empty()) {
                recomputeParent(tree, *parent);
            }
        }
    }
}

std::optional<ActList> SchemaMarks::firstUser(const Uses& uses) {
    for (const ActList list : kActLists) {
        if (!uses[list].empty()) {
            return list;
        }
    }
    return std::nullopt;
}

Tree* SchemaMarks::treeOf(const std::string& nodeKey) const {
    return graph_.find(nodeKey) ? &graph_ : database_.find(nodeKey) ? &database_ : nullptr;
}

void SchemaMarks::mark(const std::string& nodeKey, ActList list, const std::string& rowKey) {
    const Tree* tree = treeOf(nodeKey);
    const Tree::Node* node = tree ? tree->find(nodeKey) : nullptr;
    if (!node || !node->value().Refusal.empty()) {
        return;
    }
    Uses& uses = uses_[nodeKey];
    std::vector<std::string>& rows = uses[list];
    if (std::find(rows.begin(), rows.end(), rowKey) == rows.end()) {
        rows.push_back(rowKey);
    }
    show(nodeKey, uses);
}

void SchemaMarks::unmark(const std::string& nodeKey, ActList list, const std::string& rowKey) {
    const auto entry = uses_.find(nodeKey);
    if (entry == uses_.end()) {
        return;
    }
    std::erase(entry->second[list], rowKey);
    show(nodeKey, entry->second);
}

const std::vector<std::string>& SchemaMarks::rowsOf(const std::string& nodeKey, ActList list) const {
    static const std::vector<std::string> kNone;
    const auto entry = uses_.find(nodeKey);
    return entry == uses_.end() ? kNone : entry->second[list];
}

std::optional<ActList> SchemaMarks::userOf(const std::string& nodeKey) const {
    const auto entry = uses_.find(nodeKey);
    return entry == uses_.end() ? std::nullopt : firstUser(entry->second);
}

void SchemaMarks::show(const std::string& nodeKey, const Uses& uses) {
    const std::optional<ActList> user = firstUser(uses);
    const bool used = user.has_value();
    Tree& tree = *treeOf(nodeKey);
    Tree::Node& node = *tree.find(nodeKey);
    tree.alter(node, [&](TreeNode& value) {
        value.Checked = used;
        value.Image = forms::withState(value.Image, used ? "Checked" : "UnChecked");
        value.ForeColor = used ? kListColours[*user] : 0;
    });
    if (Tree::Node* parent = node.parent(); parent && parent->parent()) {
        recompute(tree, *parent);
    }
}

void SchemaMarks::recompute(Tree& tree, Tree::Node& parent) {
    if (bulk_ > 0) {
        touched_.emplace(&parent, &tree);
    } else {
        recomputeParent(tree, parent);
    }
}

void SchemaMarks::rename(const std::string& formerKey, const std::string& key, const std::string& text) {
    Tree* tree = treeOf(formerKey);
    if (Tree::Node* node = tree ? tree->find(formerKey) : nullptr) {
        tree->rename(*node, key, text);
        if (auto uses = uses_.extract(formerKey)) {
            uses.key() = key;
            uses_.insert(std::move(uses));
        }
    }
}

void SchemaMarks::clear() {
    const Bulk bulk(*this);
    for (auto& [nodeKey, uses] : uses_) {
        uses = {};
        show(nodeKey, uses);
    }
    uses_.clear();
}

SchemaMarks::Bulk::~Bulk() {
    if (--marks_.bulk_ == 0) {
        for (const auto& [parent, tree] : std::exchange(marks_.touched_, {})) {
            recomputeParent(*tree, *parent);
        }
    }
}

}  // namespace orvent::editors
