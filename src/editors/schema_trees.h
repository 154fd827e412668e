#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "canvas/canvas_form.h"
#include "entities/links.h"
#include "entities/name_tables.h"
#include "forms/tree.h"

namespace orvent::editors {

/// The lists of an entity dialog; a record set has the first alone.
enum class ActList { inputs, outputs, parameters };
inline constexpr ActList kInputs = ActList::inputs, kOutputs = ActList::outputs, kParameters = ActList::parameters;
inline constexpr std::array<ActList, 3> kActLists = {kInputs, kOutputs, kParameters};

/// One of something for each list.
template <class Item>
struct ByList : std::array<Item, kActLists.size()> {
    constexpr Item& operator[](ActList list) { return this->data()[static_cast<std::size_t>(list)]; }
    constexpr const Item& operator[](ActList list) const { return this->data()[static_cast<std::size_t>(list)]; }
};

/// The number of the tab that shows a list.
constexpr int tabOf(ActList list) {
    return static_cast<int>(list);
}

/// The colour of a list, which its tree nodes bear; blue in the high byte.
inline constexpr ByList<std::int32_t> kListColours = {{0x800000, 0x000080, 0x008000}};

/// What a node of the two trees stands for.
enum class SchemaKind : std::int16_t {
    graph,
    activity,
    activityOutput,
    constant,
    function,
    database,
    recordSet,
    field
};
inline SchemaKind kindOf(const forms::Tree::Node& node) {
    return static_cast<SchemaKind>(node.value().Kind);
}
inline bool isFunctionNode(const forms::Tree::Node& node) {
    return kindOf(node) == SchemaKind::function;
}
inline bool isConstantNode(const forms::Tree::Node& node) {
    return kindOf(node) == SchemaKind::constant;
}
/// Whether a node belongs to the tree of record sets.
inline bool isDatabaseNode(const forms::Tree::Node& node) {
    return kindOf(node) >= SchemaKind::database;
}

/// The tree node that a link leads to, empty for links that lead to none.
std::string treeKey(entities::LinkType type, const std::string& key);

/// Fills the two trees with what the canvas offers to the activity of the node `edited`.
void buildSchemaTrees(const canvas::Canvas& form, const canvas::LabelsD& edited, forms::Tree& graph,
                      forms::Tree& database);

/// Recomputes the parents below the roots: all children used, none, or some.
void recomputeParents(forms::Tree& tree);
void recomputeParent(forms::Tree& tree, forms::Tree::Node& parent);

/// Which rows use which tree node. A node is shown as used, in the colour of the first list that uses it, while a row
/// does.
class SchemaMarks {
  public:
    SchemaMarks(forms::Tree& graph, forms::Tree& database) : graph_(graph), database_(database) {}

    /// Both pass over a key that no node has.
    void mark(const std::string& nodeKey, ActList list, const std::string& rowKey);
    void unmark(const std::string& nodeKey, ActList list, const std::string& rowKey);

    /// The node bears another key and text; what uses it stays marked.
    void rename(const std::string& formerKey, const std::string& key, const std::string& text);

    /// Withdraws all marks.
    void clear();

    /// The rows of the list that use the node, as they came.
    const std::vector<std::string>& rowsOf(const std::string& nodeKey, ActList list) const;
    /// The list that uses a node, the first one of several; -1 for none.
    std::optional<ActList> userOf(const std::string& nodeKey) const;

    /// While one lives, parents are not recomputed; its end recomputes those whose children were marked.
    class Bulk {
      public:
        explicit Bulk(SchemaMarks& marks) : marks_(marks) { ++marks_.bulk_; }
        ~Bulk();
        Bulk(const Bulk&) = delete;
        Bulk& operator=(const Bulk&) = delete;

      private:
        SchemaMarks& marks_;
    };

  private:
    using Uses = ByList<std::vector<std::string>>;

    forms::Tree* treeOf(const std::string& nodeKey) const;
    static std::optional<ActList> firstUser(const Uses& uses);
    void show(const std::string& nodeKey, const Uses& uses);

    forms::Tree& graph_;
    forms::Tree& database_;
    void recompute(forms::Tree& tree, forms::Tree::Node& parent);

    std::unordered_map<std::string, Uses> uses_;
    int bulk_ = 0;
    std::unordered_map<forms::Tree::Node*, forms::Tree*> touched_;  // parents that wait for the end of `Bulk`
};

}  // namespace orvent::editors
