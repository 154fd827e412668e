#include "analysis/scenario_problems.h"

#include <algorithm>
#include <utility>

#include "analysis/flow_problems.h"

namespace orvent::analysis {

namespace {

template <class Item, class Number>
Item& reach(std::vector<Item>& items, Number index) {
    const auto at = static_cast<std::size_t>(index);
    if (at >= items.size()) {
        items.resize(at + 1);
    }
    return items[at];
}

std::uint32_t stateOf(const entities::CatalogueTables& tables) {
    return tables.dataTypes.changes() + tables.functionTypes.changes() + tables.activityTypes.changes();
}

}  // namespace

void ScenarioProblems::wait(canvas::NodeNumber node) {
    if (!canvas::isGiven(node)) {
        return;
    }
    const auto at = static_cast<std::size_t>(node);
    if (at >= waits_.size()) {
        waits_.resize(at + 1);
    }
    if (!waits_[at]) {
        waits_[at] = true;
        waiting_.push_back(node);
    }
}

void ScenarioProblems::waitForAll() {
    const std::size_t known = std::max(looks_.size(), static_cast<std::size_t>(form_.LabelsNo) + 1);
    for (std::size_t node = 1; node < known; ++node) {
        wait(static_cast<canvas::NodeNumber>(node));
    }
    for (const canvas::LinesD& edge : form_.Lines) {
        reach(edgeTargets_, edge.Index()) = edge.ToLabel();
    }
}

void ScenarioProblems::touch(const canvas::Touched& touched) {
    for (const auto* nodes : {&touched.nodes, &touched.heads}) {
        for (const canvas::NodeNumber node : *nodes) {
            wait(node);
        }
    }
    for (const canvas::EdgeNumber number : touched.edges) {
        const canvas::LinesD* edge = form_.Lines.byIndex(number);
        canvas::NodeNumber& target = reach(edgeTargets_, number);
        wait(std::exchange(target, edge ? edge->ToLabel() : canvas::NodeNumber{}));
        wait(target);
    }
}

void ScenarioProblems::waitForReaders(canvas::NodeNumber node, const std::string& name) {
    if (const auto readers = readers_.find(name); readers != readers_.end()) {
        for (const canvas::NodeNumber reader : readers->second) {
            wait(reader);
        }
    }
    if (const canvas::LabelsD* shown = form_.Labels.byIndex(node)) {
        for (const canvas::EdgeNumber number : shown->StartingLines()) {
            const canvas::LinesD* edge = form_.Lines.byIndex(number);
            wait(edge ? edge->ToLabel() : canvas::NodeNumber{});
        }
    }
}

void ScenarioProblems::relink(canvas::NodeNumber node, const NodeLook& before, const NodeLook& now) {
    if (before.names == now.names) {
        return;
    }
    for (const std::string& name : before.names) {
        if (const auto readers = readers_.find(name); readers != readers_.end()) {
            std::erase(readers->second, node);
            if (readers->second.empty()) {
                readers_.erase(readers);
            }
        }
    }
    for (const std::string& name : now.names) {
        readers_[name].push_back(node);
    }
}

/// True when its rows are others than before, or what the whole graph shows may be.
bool ScenarioProblems::look(canvas::NodeNumber node) {
    const canvas::LabelsD* shown = form_.Labels.byIndex(node);
    NodeLook now = shown ? lookAt(form_, *shown, sources_) : NodeLook();
    NodeLook& known = reach(looks_, node);
    NodeLook before = std::exchange(known, std::move(now));
    relink(node, before, known);
    if (before.face != known.face) {
        waitForReaders(node, before.name);
        waitForReaders(node, known.name);
    }
    return before.face != known.face || before.rows != known.rows || before.feeders != known.feeders ||
           before.activityFeeders != known.activityFeeders || before.linked != known.linked ||
           before.needs != known.needs || before.isSource != known.isSource;
}

void ScenarioProblems::lookAtFlow() {
    std::vector<Problem> rows;
    const FlowProblems flow(looks_);
    for (const canvas::NodeNumber node : flow.circles()) {
        const canvas::LabelsD* shown = form_.Labels.byIndex(node);
        if (shown && shown->activity()) {
            std::string way = sources_.statements.circleThrough(form_, *shown->activity());
            rows.push_back({ProblemKind::circle,
                            node,
                            {},
                            way.empty() ? "Its data runs in a circle by the names in its statement." : std::move(way)});
        }
    }
    for (const FlowProblems::DeniedCircle& circle : flow.deniedCircles()) {
        std::string way;
        for (const canvas::NodeNumber node : circle.way) {
            way += (way.empty() ? "" : ", ") + looks_[static_cast<std::size_t>(node)].name;
        }
        rows.push_back({ProblemKind::negatedCycle, circle.node, {}, sources_.statements.deniedCircle(way)});
    }
    for (const canvas::NodeNumber node : flow.unreachable()) {
        rows.push_back({ProblemKind::unreachable, node, {}, "No way leads here from a record set that begins a flow."});
    }
    std::stable_sort(rows.begin(), rows.end(), [](const Problem& a, const Problem& b) { return a.node < b.node; });
    flowRows_ = std::move(rows);
}

bool ScenarioProblems::settle() {
    const std::uint32_t catalogue = stateOf(sources_.tables);
    if (std::exchange(all_, false) || catalogue != catalogue_) {
        waitForAll();
    }
    catalogue_ = catalogue;
    bool changed = false;
    while (!waiting_.empty()) {
        // It goes on being marked, so that it is looked at only once.
        const std::vector<canvas::NodeNumber> round = std::exchange(waiting_, {});
        for (const canvas::NodeNumber node : round) {
            changed = look(node) || changed;
        }
    }
    waits_.assign(waits_.size(), false);
    if (changed) {
        lookAtFlow();
    }
    return changed;
}

std::vector<const Problem*> ScenarioProblems::rows(const ProblemKinds& kinds) const {
    std::vector<const Problem*> all;
    const auto add = [&](const Problem& row) {
        if (kinds.test(static_cast<std::size_t>(row.kind))) {
            all.push_back(&row);
        }
    };
    auto flow = flowRows_.begin();
    for (std::size_t node = 0; node < looks_.size(); ++node) {
        std::for_each(looks_[node].rows.begin(), looks_[node].rows.end(), add);
        for (; flow != flowRows_.end() && static_cast<std::size_t>(flow->node) == node; ++flow) {
            add(*flow);
        }
    }
    return all;
}

}  // namespace orvent::analysis
