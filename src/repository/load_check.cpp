#include "repository/load_check.h"

#include <algorithm>
#include <vector>

#include "canvas/owners.h"
#include "entities/link_types.h"
#include "links/far_end.h"
#include "platform/name_list.h"
#include "repository/row_plan.h"
#include "repository/stored_links.h"

namespace orvent::repository {

using canvas::DrawForm;
using links::Direction;

namespace {

/// Looks at the links that are stored with their holders.
class StoredLinks {
  public:
    explicit StoredLinks(const DrawForm& form) : form_(form) {
        for (const canvas::LabelsD& node : form.Labels) {
            const int before = dangling_;
            canvas::withOwner(node, [this](const auto& owner) {
                entities::eachListDeep(owner, [this](const auto& list, entities::NodeKindCode kind) {
                    for (const auto& member : list) {
                        eachStoredLinks(member, kind, [&](const auto& links, sql::LinkKind of) {
                            look(directionOf(of), member, links);
                        });
                    }
                });
            });
            if (dangling_ > before) {
                holders_.push_back(node.Caption());
            }
        }
    }

    /// The nodes with links that lead to nothing.
    const std::vector<std::string>& holders() const { return holders_; }
    bool joinNodes() const { return joinNodes_; }

  private:
    static Direction directionOf(sql::LinkKind kind) {
        return kind == sql::kProvidedFrom    ? Direction::ProvidedFrom
               : kind == sql::kRegulatedFrom ? Direction::RegulatedFrom
                                             : Direction::ProviderFor;
    }

    template <class Holder, class Links>
    void look(Direction direction, const Holder& holder, const entities::Lazy<Links>& links) {
        const links::NearEnd near(holder);
        for (const auto& link : links) {
            if (!entities::leadsToAMember(link.type())) {
                continue;
            }
            const links::FarEndView far =
                links::findFarEnd(form_, direction, near, {link.name(), link.type(), link.key()}, nullptr);
            dangling_ += far.attribute || far.parameter ? 0 : 1;
            joinNodes_ = joinNodes_ || (far.attribute && direction == Direction::ProviderFor &&
                                        far.attribute->ParentKeyName != holder.ParentKeyName);
        }
    }

    const DrawForm& form_;
    int dangling_ = 0;
    bool joinNodes_ = false;
    std::vector<std::string> holders_;
};

}  // namespace

LoadFindings damageOf(DrawForm& form, const entities::CatalogueTables& tables, const StoredRows& rows) {
    std::string words;
    const auto tell = [&words](const char* what, const std::vector<std::string>& names) {
        words += names.empty() ? "" : std::string("\n") + what + platform::nameList(names) + ".";
    };
    const RowPlan plan(form, tables, rows);
    tell("Not as it is stored: ", plan.differing());
    std::vector<std::string> unknown;
    for (const std::string& name : rows.lineEnds) {
        if (!form.nodeNamed(name) && std::ranges::find(unknown, name) == unknown.end()) {
            unknown.push_back(name);
        }
    }
    tell("Edges lead to what is not there: ", unknown);
    const StoredLinks links(form);
    tell("Links lead to what is not there, in: ", links.holders());
    if (!words.empty()) {
        words = "The stored scenario is not whole; a save of it may have been broken off." + words +
                "\nPlease look it through and save it again.";
    }
    // Edges may have been deleted by hand, too.
    if (rows.lineEnds.empty() && links.joinNodes()) {
        words +=
            std::string(words.empty() ? "" : "\n") +
            "No edge is stored, though nodes are linked. If a save was broken off, Consistency draws the edges again.";
    }
    return {words, !plan.differing().empty()};
}

}  // namespace orvent::repository
