#include "zoom/path_light.h"

#include <algorithm>

namespace orvent::zoom {

using namespace entities;
using canvas::LabelsD;
using canvas::LinesD;

namespace {

enum class Flow { forwards, backwards };

bool carriesValues(const LinesD& edge) {
    return edge.Visible() &&
           (edge.EdgeType() == canvas::EdgeTypeProvider || edge.EdgeType() == canvas::EdgeTypeRegulator);
}

class Walk {
  public:
    explicit Walk(const ZoomView& view)
        : view_(view),
          nodes_(static_cast<std::size_t>(view.LabelsNo) + 1),
          edges_(static_cast<std::size_t>(view.LinesNo) + 1) {}

    void follow(canvas::NodeNumber start, Flow flow) {
        std::vector<char> seen(nodes_.size());
        std::vector<canvas::NodeNumber> open;
        const auto reach = [&](canvas::NodeNumber node) {
            if (!seen[static_cast<std::size_t>(node)]) {
                seen[static_cast<std::size_t>(node)] = true;
                nodes_[static_cast<std::size_t>(node)] = true;
                open.push_back(node);
            }
        };
        reach(start);
        while (!open.empty()) {
            const LabelsD* node = view_.Labels.byIndex(open.back());
            open.pop_back();
            const bool on = flow == Flow::forwards;
            for (const canvas::EdgeNumber number : on ? node->StartingLines() : node->EndingLines()) {
                const LinesD* edge = view_.Lines.byIndex(number);
                if (edge && carriesValues(*edge)) {
                    edges_[static_cast<std::size_t>(number)] = true;
                    reach(on ? edge->ToLabel() : edge->FromLabel());
                }
            }
            throughFunction(*node, on ? KindFunctionInput : KindFunctionOutput,
                            on ? KindFunctionOutput : KindFunctionInput, reach);
        }
    }

    /// Lights the owners of what is lit, too.
    Light result() {
        for (const LinesD& edge : view_.Lines) {
            const auto to = static_cast<std::size_t>(edge.ToLabel());
            if (edge.EdgeType() == canvas::EdgeTypePartOf && canvas::isGiven(edge.ToLabel()) && nodes_[to] == kLit) {
                edges_[static_cast<std::size_t>(edge.Index())] = true;
                char& owner = nodes_[static_cast<std::size_t>(edge.FromLabel())];
                owner = owner == kLit ? kLit : kOwner;
            }
        }
        return {numbers<canvas::NodeNumber>(nodes_), numbers<canvas::EdgeNumber>(edges_)};
    }

  private:
    static constexpr char kLit = 1, kOwner = 2;

    /// From a function's inputs to its outputs, or the other way.
    template <class Reach>
    void throughFunction(const LabelsD& node, NodeKindCode from, NodeKindCode to, Reach reach) const {
        const auto* parameter = node.entity<ParameterProperties>();
        const LabelsD* function =
            parameter && parameter->NodeKind == from ? view_.nodeNamed(parameter->ParentKeyName) : nullptr;
        if (!function) {
            return;
        }
        for (const canvas::EdgeNumber number : function->StartingLines()) {
            const LinesD* edge = view_.Lines.byIndex(number);
            const LabelsD* member = edge ? view_.Labels.byIndex(edge->ToLabel()) : nullptr;
            const auto* held = member ? member->entity<ParameterProperties>() : nullptr;
            if (held && held->NodeKind == to) {
                reach(member->Index());
            }
        }
    }

    template <class Number>
    static std::vector<Number> numbers(const std::vector<char>& marks) {
        std::vector<Number> result;
        for (std::size_t at = 0; at < marks.size(); ++at) {
            if (marks[at]) {
                result.push_back(static_cast<Number>(at));
            }
        }
        return result;
    }

    const ZoomView& view_;
    std::vector<char> nodes_;
    std::vector<char> edges_;
};

}  // namespace

Light pathThrough(const ZoomView& view, canvas::NodeNumber node) {
    const LabelsD* start = view.Labels.byIndex(node);
    if (!start || (!start->entity<AttributeProperties>() && !start->entity<ParameterProperties>())) {
        return {};
    }
    Walk walk(view);
    walk.follow(node, Flow::forwards);
    walk.follow(node, Flow::backwards);
    return walk.result();
}

}  // namespace orvent::zoom
