#pragma once

#include <string>
#include <vector>

#include "canvas/canvas.h"
#include "canvas/owners.h"
#include "entities/key_grammar.h"

namespace orvent::testkit {

inline const entities::EntityCollection<entities::AttributeProperties>* membersOf(const canvas::Canvas& form,
                                                                                  const std::string& node, bool read) {
    using namespace entities;
    const EntityCollection<AttributeProperties>* list = nullptr;
    if (const canvas::LabelsD* its = form.nodeNamed(node)) {
        const NodeKindCode kind = its->recordSet() ? KindRecordSetAttribute : read ? KindInput : KindOutput;
        canvas::withOwner(*its, [&](const auto& owner) { list = listOf<AttributeProperties>(owner, kind); });
    }
    return list;
}

/// What a node reads of another one: the place of the member, that of the link in it, and the column. Where `through`
/// is an activity between them, the column is what its input reads whose output the link leads to.
inline std::vector<std::string> readings(const canvas::Canvas& form, const std::string& reader,
                                         const std::string& source, const std::string& through = {}) {
    using namespace entities;
    std::vector<std::string> lines;
    const std::string& seen = through.empty() ? source : through;
    const auto* members = membersOf(form, reader, true);
    for (int at = 1; members && at <= members->Count(); ++at) {
        const AttributeProperties& member = *members->Item(at);
        for (int place = 1; place <= member.ProvidedFrom.count(); ++place) {
            const ProviderProperties& link = *member.ProvidedFrom.peek()->Item(place);
            if (link.name() != seen) {
                continue;
            }
            std::string column = link.key();
            if (!through.empty()) {
                const auto* output = membersOf(form, through, false)->Item(AfterSecondDot(column));
                const auto* input = output && output->ProvidedFrom.count() == 1
                                        ? membersOf(form, through, true)
                                              ->Item(AfterSecondDot(output->ProvidedFrom.peek()->Item(1)->key()))
                                        : nullptr;
                const auto* from =
                    input && input->ProvidedFrom.count() == 1 ? input->ProvidedFrom.peek()->Item(1) : nullptr;
                column = from && from->name() == source ? from->key() : "nothing behind " + column;
            }
            lines.push_back(std::to_string(at) + " " + std::to_string(place) + " " + column);
        }
    }
    return lines;
}

}  // namespace orvent::testkit
