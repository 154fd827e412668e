#include "links/edge_links.h"

#include <algorithm>
#include <string>

#include "canvas/owners.h"
#include "links/members.h"

namespace orvent::links {

using namespace entities;
using canvas::LabelsD;
using canvas::LinesD;

namespace {

/// An activity's links between its own members have relative keys, and no edge of it stands for them.
template <class Links, class Member>
void addLinks(const Links& links, const std::string& source, const Member& member, NodeKindCode kind,
              std::vector<EdgeNames>& result) {
    for (const auto& link : links) {
        if (link.name() == source && !link.key().starts_with('.')) {
            result.push_back({link.key(), wholeKey(member.ParentKeyName, kind, member.Key)});
        }
    }
}

}  // namespace

std::vector<EdgeNames> linksBehind(const canvas::Canvas& form, const LinesD& edge) {
    std::vector<EdgeNames> result;
    const LabelsD* from = form.Labels.byIndex(edge.FromLabel());
    const LabelsD* to = form.Labels.byIndex(edge.ToLabel());
    if (edge.EdgeType() != canvas::EdgeTypeProvider || !from || !to || (!to->activity() && !to->recordSet())) {
        return result;
    }
    canvas::withOwner(*to, [&](const auto& owner) {
        eachListDeep(owner, [&](const auto& members, NodeKindCode kind) {
            for (const auto& member : members) {
                if constexpr (requires { member.ProvidedFrom; }) {
                    addLinks(member.ProvidedFrom, from->KeyName(), member, kind, result);
                }
                addLinks(member.RegulatedFrom, from->KeyName(), member, kind, result);
            }
        });
    });
    return result;
}

std::string linkWords(const std::vector<EdgeNames>& links) {
    constexpr std::size_t kNamed = 3;
    if (links.empty()) {
        return "No link stands behind this edge.";
    }
    std::string words = std::to_string(links.size()) + (links.size() == 1 ? " link: " : " links: ");
    for (std::size_t at = 0; at < std::min(kNamed, links.size()); ++at) {
        words += (at > 0 ? ", " : "") + edgeWords(links[at]);
    }
    return words + (links.size() > kNamed ? " and " + std::to_string(links.size() - kNamed) + " more" : "");
}

}  // namespace orvent::links
