#include "links/check_consistency.h"

#include <algorithm>
#include <numeric>
#include <span>
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

const LabelsD* sourceNamed(const canvas::Canvas& form, const std::string& name) {
    const LabelsD* source = form.nodeNamed(name);
    return source && (source->activity() || source->recordSet()) ? source : nullptr;
}

LinesD* drawFrom(canvas::Canvas& form, const std::string& name, const LabelsD& node, bool control) {
    const LabelsD* source = sourceNamed(form, name);
    if (!source) {
        return nullptr;
    }
    const std::int16_t fromGrab = !control && source->activity() ? 4 : 3;
    const std::int16_t toGrab = control ? 5 : 1;
    return form.Lines.addFullLine(source->Index(), fromGrab, node.Index(), toGrab, canvas::EdgeTypeProvider,
                                  canvas::AngleStraight, 0);
}

/// The provider edges that stood before the check, by the node to which they lead. One that is drawn again between the
/// same nodes, whatever its grab points, is no change; of several between the same nodes the last ones are.
class FormerEdges {
  public:
    explicit FormerEdges(const canvas::Canvas& form)
        : form_(form), firstAt_(numbers(form) + 1), unmatched_(numbers(form)) {
        for (const LinesD& edge : form.Lines) {
            if (edge.EdgeType() == canvas::EdgeTypeProvider) {
                edges_.push_back({edge.Index(), edge.FromLabel(), edge.ToLabel()});
                ++firstAt_[at(edge.ToLabel())];
            }
        }
        std::exclusive_scan(firstAt_.begin(), firstAt_.end(), firstAt_.begin(), 0);
        byEnd_.resize(edges_.size());
        std::vector<std::int32_t> next = firstAt_;
        for (std::int32_t edge = 0; edge < static_cast<std::int32_t>(edges_.size()); ++edge) {
            byEnd_[at(next[at(edges_[at(edge)].to)]++)] = edge;
        }
        gone_.assign(edges_.size(), true);
    }

    /// The last one first, since that is where the nodes' lists end.
    void remove(canvas::Canvas& form) const {
        for (auto edge = edges_.rbegin(); edge != edges_.rend(); ++edge) {
            form.Lines.RemoveFull(edge->number);
        }
    }

    /// All that lead to a node are drawn anew: those from `starts`, in this order.
    void drawn(const LabelsD& node, const std::vector<canvas::NodeNumber>& starts) {
        const std::span<const std::int32_t> former(byEnd_.begin() + firstAt_[at(node.Index())],
                                                   byEnd_.begin() + firstAt_[at(node.Index()) + 1]);
        for (const canvas::NodeNumber start : starts) {
            ++unmatched_[at(start)];
        }
        for (const std::int32_t edge : former) {
            int& left = unmatched_[at(edges_[at(edge)].from)];
            gone_[at(edge)] = left == 0;
            left -= left > 0 ? 1 : 0;
        }
        const std::size_t known = added_.size();
        for (auto start = starts.rbegin(); start != starts.rend(); ++start) {
            if (int& left = unmatched_[at(*start)]; left > 0) {
                --left;
                added_.push_back({nameOf(*start), node.Caption()});
            }
        }
        std::reverse(added_.begin() + static_cast<std::ptrdiff_t>(known), added_.end());
    }

    EdgeChanges changes() && {
        std::vector<EdgeNames> deleted;
        for (std::size_t edge = 0; edge < edges_.size(); ++edge) {
            if (gone_[edge]) {
                deleted.push_back({nameOf(edges_[edge].from), nameOf(edges_[edge].to)});
            }
        }
        return {std::move(added_), std::move(deleted)};
    }

  private:
    struct Edge {
        canvas::EdgeNumber number;
        canvas::NodeNumber from, to;
    };

    template <class Number>
    static std::size_t at(Number number) {
        return static_cast<std::size_t>(number);
    }
    /// Nodes are numbered from 1 on; an end that is held nowhere is 0.
    static std::size_t numbers(const canvas::Canvas& form) { return at(form.LabelsNo) + 1; }
    std::string nameOf(canvas::NodeNumber number) const {
        const LabelsD* node = form_.Labels.byIndex(number);
        return node ? node->Caption() : std::string();
    }

    const canvas::Canvas& form_;
    std::vector<Edge> edges_;            ///< in the canvas's order
    std::vector<std::int32_t> firstAt_;  ///< by node: where those that lead to it begin in `byEnd_`
    std::vector<std::int32_t> byEnd_;    ///< places in `edges_`
    std::vector<int> unmatched_;  ///< by node: drawn from it and not met among the former ones; all 0 between two calls
    std::vector<bool> gone_;
    std::vector<EdgeNames> added_;
};

void drawAnew(canvas::Canvas& form, FormerEdges& former) {
    NodeSources sources;
    std::vector<canvas::NodeNumber> starts;
    for (const LabelsD& node : form.Labels) {
        findSources(node, sources);
        starts.clear();
        for (const bool control : {false, true}) {
            for (const std::string* name : control ? sources.control : sources.data) {
                if (const LinesD* edge = drawFrom(form, *name, node, control)) {
                    starts.push_back(edge->FromLabel());
                }
            }
        }
        former.drawn(node, starts);
    }
}

}  // namespace

std::vector<const LabelsD*> edgeStarts(const canvas::Canvas& form, const LabelsD& node) {
    NodeSources sources;
    findSources(node, sources);
    std::vector<const LabelsD*> starts;
    for (const Sources* names : {&sources.data, &sources.control}) {
        for (const std::string* name : *names) {
            if (const LabelsD* source = sourceNamed(form, *name)) {
                starts.push_back(source);
            }
        }
    }
    return starts;
}

std::vector<canvas::WantedEdge> wantedEdges(const canvas::Canvas& form, const LabelsD& node) {
    std::vector<canvas::WantedEdge> edges;
    NodeSources sources;
    findSources(node, sources);
    for (const bool control : {false, true}) {
        for (const std::string* name : control ? sources.control : sources.data) {
            if (const LabelsD* source = sourceNamed(form, *name); source && source != &node) {
                edges.push_back({source->Index(), node.Index(), control});
            }
        }
    }
    Sources targets;
    canvas::withOwner(node, [&](const auto& owner) {
        eachList(owner, [&](const auto& members, NodeKindCode kind) {
            if constexpr (requires { (*members.begin()).ProviderFor; }) {
                for (const auto& member : members) {
                    for (const auto& link : member.ProviderFor) {
                        if (kind != KindInput) {  // those feed their own activity
                            targets.add(link.Provider_Name);
                        }
                    }
                }
            }
        });
    });
    for (const std::string* name : targets) {
        if (const LabelsD* target = sourceNamed(form, *name); target && target != &node) {
            edges.push_back({node.Index(), target->Index(), false});
        }
    }
    return edges;
}

std::optional<EdgeChanges> CheckConsistency(canvas::Canvas& form, platform::Progress& progress) {
    if (form.messages().show("This Action Will Delete All Non Consistent Provider Relationships!\n"
                             "Are you Sure You Want to Continue?",
                             "Checking Consistency", platform::Icon::none,
                             platform::Buttons::okCancel) != platform::Answer::ok) {
        return std::nullopt;
    }
    const platform::Busy busy(progress);
    FormerEdges former(form);
    former.remove(form);
    drawAnew(form, former);
    return std::move(former).changes();
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
