#include "links/check_consistency.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "canvas/owners.h"

namespace orvent::links {

using namespace entities;
using canvas::LabelsD;
using canvas::LinesD;

namespace {

/// Names in the order in which they came, each once. The names live in the links that were walked.
class Sources {
  public:
    void add(const std::string& name) {
        const auto is = [&](const std::string* known) { return *known == name; };
        if (names_.size() < kWalk ? std::none_of(names_.begin(), names_.end(), is) : addToTable(name)) {
            names_.push_back(&name);
        }
    }
    auto begin() const { return names_.begin(); }
    auto end() const { return names_.end(); }
    void clear() {
        names_.clear();
        table_.clear();
    }

  private:
    static constexpr std::size_t kWalk = 8;  // below this a walk is as quick as a table

    bool addToTable(const std::string& name) {
        if (table_.empty()) {
            for (const std::string* known : names_) {
                table_.insert(*known);
            }
        }
        return table_.insert(name).second;
    }

    std::vector<const std::string*> names_;
    std::unordered_set<std::string_view> table_;
};

struct NodeSources {
    Sources data;
    Sources control;
};

template <class List>
void addProviders(const List& members, Sources& sources) {
    for (const auto& member : members) {
        for (const auto& link : member.ProvidedFrom) {
            sources.add(link.Provider_Name);
        }
    }
}

/// A regulator in the node itself is no edge: it would lead from the node to itself.
template <class List>
void addRegulators(const List& members, const LabelsD& node, Sources& sources) {
    for (const auto& member : members) {
        for (const auto& link : member.RegulatedFrom) {
            if (link.Regulator_name != node.Caption()) {
                sources.add(link.Regulator_name);
            }
        }
    }
}

void findSources(const LabelsD& node, NodeSources& sources) {
    sources.data.clear();
    sources.control.clear();
    const auto add = [&](const auto& members, NodeKindCode kind) {
        if constexpr (requires { (*members.begin()).ProvidedFrom; }) {
            if (kind != KindOutput) {  // those have their values from their own activity
                addProviders(members, sources.data);
            }
        } else {
            addRegulators(members, node, sources.control);
        }
    };
    if (node.activity() || node.recordSet()) {
        canvas::withOwner(node, [&](const auto& owner) { eachListDeep(owner, add); });
    }
}

LinesD* drawFrom(canvas::Canvas& form, const std::string& name, const LabelsD& node, bool control) {
    const LabelsD* source = form.nodeNamed(name);
    if (!source || !(source->activity() || source->recordSet())) {
        return nullptr;
    }
    const std::int16_t fromGrab = !control && source->activity() ? 4 : 3;
    const std::int16_t toGrab = control ? 5 : 1;
    return form.Lines.addFullLine(source->Index(), fromGrab, node.Index(), toGrab, canvas::EdgeTypeProvider,
                                  canvas::AngleStraight, 0);
}

/// Edges by the numbers of their nodes, whatever their grab points.
class JoinedNodes {
  public:
    void add(const LinesD* edge) {
        if (edge) {
            joined_.push_back({edge->FromLabel(), edge->ToLabel()});
        }
    }
    /// The names of those that `others` has not, or not as often.
    std::vector<EdgeNames> beyond(const JoinedNodes& others, const canvas::Canvas& form) const {
        std::vector<Nodes> only, mine = joined_, theirs = others.joined_;
        std::sort(mine.begin(), mine.end());
        std::sort(theirs.begin(), theirs.end());
        std::set_difference(mine.begin(), mine.end(), theirs.begin(), theirs.end(), std::back_inserter(only));
        std::map<Nodes, int> wanted;  // few, as a rule
        for (const Nodes& nodes : only) {
            ++wanted[nodes];
        }
        std::vector<EdgeNames> result;
        // Of edges between the same nodes the last ones; the others are as before.
        for (auto nodes = joined_.rbegin(); nodes != joined_.rend() && !wanted.empty(); ++nodes) {
            const auto found = wanted.find(*nodes);
            if (found == wanted.end()) {
                continue;
            }
            if (--found->second == 0) {
                wanted.erase(found);
            }
            const auto name = [&form](std::int32_t number) {
                const LabelsD* node = form.Labels.byIndex(number);
                return node ? node->Caption() : std::string();
            };
            result.push_back({name(nodes->first), name(nodes->second)});
        }
        std::reverse(result.begin(), result.end());
        return result;
    }

  private:
    using Nodes = std::pair<std::int32_t, std::int32_t>;
    std::vector<Nodes> joined_;
};

JoinedNodes drawAnew(canvas::Canvas& form) {
    JoinedNodes drawn;
    NodeSources sources;
    for (const LabelsD& node : form.Labels) {
        findSources(node, sources);
        for (const std::string* name : sources.data) {
            drawn.add(drawFrom(form, *name, node, false));
        }
        for (const std::string* name : sources.control) {
            drawn.add(drawFrom(form, *name, node, true));
        }
    }
    return drawn;
}

}  // namespace

std::optional<EdgeChanges> CheckConsistency(canvas::Canvas& form, platform::Progress& progress) {
    if (form.messages().show("This Action Will Delete All Non Consistent Provider Relationships!\n"
                             "Are you Sure You Want to Continue?",
                             "Checking Consistency", platform::Icon::none,
                             platform::Buttons::okCancel) != platform::Answer::ok) {
        return std::nullopt;
    }
    const platform::Busy busy(progress);
    std::vector<std::int32_t> former;
    JoinedNodes before;
    for (const LinesD& edge : form.Lines) {
        if (edge.EdgeType() == canvas::EdgeTypeProvider) {
            former.push_back(edge.Index());
            before.add(&edge);
        }
    }
    // The last one first, since that is where the nodes' lists end.
    for (auto edge = former.rbegin(); edge != former.rend(); ++edge) {
        form.Lines.RemoveFull(*edge);
    }
    const JoinedNodes now = drawAnew(form);
    return EdgeChanges{now.beyond(before, form), before.beyond(now, form)};
}

std::string edgeWords(const EdgeNames& edge) {
    return edge.from + " \u2192 " + edge.to;
}

std::string changeWords(const EdgeChanges& changes) {
    constexpr std::size_t kNamed = 3;
    std::string words;
    for (const auto& [head, edges] : {std::pair("Deleted: ", &changes.deleted), std::pair("Drawn: ", &changes.drawn)}) {
        std::string names;
        for (std::size_t at = 0; at < std::min(kNamed, edges->size()); ++at) {
            names += (names.empty() ? head : ", ") + edgeWords((*edges)[at]);
        }
        if (edges->size() > kNamed) {
            names += " and " + std::to_string(edges->size() - kNamed) + " more";
        }
        words += (words.empty() || names.empty() ? "" : ". ") + names;
    }
    return words.empty() ? "Every provider edge has its links; none was missing." : words;
}

}  // namespace orvent::links
