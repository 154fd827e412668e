#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "editors/schema_trees.h"
#include "editors/twin_names.h"
#include "entities/members.h"
#include "forms/list.h"
#include "forms/tree.h"

namespace orvent::editors {

/// How the three lists of the activity dialog show its copy of an activity, and which nodes of the trees their rows
/// use. The activity is never changed here but for its name.
class ActivityLists {
  public:
    /// All of it is the dialog's. The activity may become another one; `fill` shows it.
    ActivityLists(const std::shared_ptr<entities::ActivityProperties>& activity, ByList<forms::List>& lists,
                  forms::Tree& graph, forms::Tree& database, const entities::CatalogueTables& tables)
        : activity_(activity), lists_(lists), marks_(graph, database), tables_(tables) {}

    /// The members that a list shows, null where it shows others.
    template <class Member>
    auto* members(ActList number) const {
        return entities::listOf<Member>(*activity_, kMembers[number]);
    }
    /// The member behind a row, null when there is none of that kind.
    template <class Member>
    Member* member(ActList number, const std::string& key) const {
        auto* list = members<Member>(number);
        return list ? list->Item(key) : nullptr;
    }
    SchemaMarks& marks() { return marks_; }

    /// Fills all three and marks what they use in the trees.
    void fill();
    /// Marks or unmarks in the trees what the row uses.
    void MarkRowInTree(const forms::ListRow& row, ActList number, bool used);
    /// What the row of a key uses is marked no longer.
    void unmark(ActList number, const std::string& key);

    void add(ActList number, forms::ListRow row, int position = 0);
    void remove(ActList number, const std::string& key);
    /// Sets the text of a row, which its entity does not know yet.
    void setText(ActList number, int row, const std::string& text);
    /// Members, links and rows follow a new name of the activity.
    void renameOwner(const std::string& formerName, const std::string& newName);

    /// Set the columns again: of all rows, of one, or of those with a key.
    void refresh();
    void refresh(ActList number, int row);
    void refresh(const std::string& key);

    /// The rows whose entities a change of links of this key may have reached.
    std::vector<std::string> neighbours(const std::string& key) const;

  private:
    static constexpr ByList<entities::NodeKindCode> kMembers = {
        {entities::KindInput, entities::KindOutput, entities::KindParameter}};

    forms::List& list(ActList number) { return lists_[number]; }
    TwinNames& twins(ActList number) { return twins_[number]; }
    void addRows(ActList number);

    const std::shared_ptr<entities::ActivityProperties>& activity_;
    ByList<forms::List>& lists_;
    SchemaMarks marks_;
    const entities::CatalogueTables& tables_;
    ByList<TwinNames> twins_;
    bool filled_ = false;  ///< the lists have been filled once
};

}  // namespace orvent::editors
