#pragma once

#include "entities/attributes.h"
#include "repository/scenario_statements.h"

namespace orvent::repository {

/// Runs `visit(links, kind)` for each list of links that a save writes for a member, in the order in which it does.
/// All other links come back from their far ends; those of an input are written only where the order of several sources
/// means something.
template <class Member, class Visit>
void eachStoredLinks(const Member& member, entities::NodeKindCode kind, Visit visit) {
    if constexpr (requires { member.ProvidedFrom; }) {
        if (kind == entities::KindOutput || (kind == entities::KindInput && member.ProvidedFrom.count() > 1)) {
            visit(member.ProvidedFrom, sql::kProvidedFrom);
        }
        if (kind == entities::KindOutput) {
            visit(member.RegulatedFrom, sql::kRegulatedFrom);
        }
        if (kind != entities::KindInput) {
            visit(member.ProviderFor, sql::kProviderFor);
        }
    } else if (kind != entities::KindFunctionOutput) {
        visit(member.RegulatedFrom, sql::kRegulatedFrom);
    }
}

}  // namespace orvent::repository
