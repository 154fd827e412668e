#pragma once

#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

#include "canvas/draw_form.h"
#include "entities/name_tables.h"
#include "repository/list_plan.h"
#include "repository/stored_identity.h"
#include "repository/stored_rows.h"

namespace orvent::repository {

/// What lies between a window and the stored rows of its scenario. It refers to the window, and holds until that or
/// the rows change.
class RowPlan {
  public:
    RowPlan(canvas::DrawForm& form, const entities::CatalogueTables& tables, const StoredRows& rows);

    /// The names of nodes that the repository holds in another way than the window shows them, or that only one of
    /// them has; "(edges)" stands for the edges. A node that no save writes does not count.
    const std::vector<std::string>& differing() const { return differing_; }

    /// How many identifiers the order of rows takes: those of stored rows that are inserted anew.
    const IdentifierNeed& anew() const { return anew_; }

    /// Brings the rows of all lists in order and marks what the save has to rewrite; see `ListPlan`.
    void carryOut(StatementCache& repository, bool inOrder) const;

  private:
    void planNode(canvas::LabelsD& node, const NodeRows& rows);
    void planActivity(entities::ActivityProperties& activity, const NodeRows& rows);
    void planFunctions(entities::ActivityProperties& activity, const NodeRows& rows);
    void planRecordSet(entities::RecordSetProperties& recordSet, const NodeRows& rows);
    template <class Members>
    void planMembers(Members& members, const std::vector<MemberRow>& rows, ListPlan::List list,
                     entities::NodeKindCode kind);
    void plan(ListPlan::List list, long long& anew);
    void compareNode(bool* Changed, bool same);
    void compareLines(const canvas::DrawForm& form, const StoredRows& rows);

    const entities::CatalogueTables& tables_;
    std::unordered_set<long long> deletedMembers_;  ///< rows that the save removes anyhow
    std::unordered_set<long long> deletedFunctions_;
    std::vector<ListPlan> lists_;
    std::vector<bool*> nodes_;  ///< `Changed` of those whose own rows are to be rewritten
    IdentifierNeed anew_;
    std::vector<std::string> differing_;
    bool differs_ = false;  ///< the node at hand
};

}  // namespace orvent::repository
