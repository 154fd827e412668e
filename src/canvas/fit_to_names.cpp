#include "canvas/fit_to_names.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <tuple>
#include <unordered_map>

#include "canvas/node_moves.h"

namespace orvent::canvas {

namespace {

constexpr float kStep = 100;     // of the tools' grid
constexpr float kBetween = 300;  // is left between a wider box and what gives way to it

float wholeSteps(float length) {
    return std::ceil(length / kStep) * kStep;
}

struct Fitted {
    LabelsD* node;
    Box before, after;
};

/// How far the boxes on the left reach in each strip of the picture.
class Reach {
  public:
    void add(const Fitted& fitted) {
        const bool grown = fitted.after.right() > fitted.before.right();
        eachStrip(fitted.before, [&](long strip) {
            float& reach = reach_.try_emplace(strip, fitted.after.right()).first->second;
            reach = std::max(reach, fitted.after.right() + (grown ? kBetween : 0));
        });
    }
    float over(const Box& box) const {
        float reach = box.Left;
        eachStrip(box, [&](long strip) {
            const auto found = reach_.find(strip);
            reach = found == reach_.end() ? reach : std::max(reach, found->second);
        });
        return reach;
    }

  private:
    template <class Visit>
    static void eachStrip(const Box& box, const Visit& visit) {
        const long last = std::lround(std::ceil(box.bottom() / kStep));
        for (long strip = std::lround(std::floor(box.Top / kStep)); strip < last; ++strip) {
            visit(strip);
        }
    }

    std::unordered_map<long, float> reach_;
};

/// Moves to the right what would be reached by boxes that did not reach it before.
void giveWay(std::vector<Fitted>& all) {
    std::vector<std::size_t> byRight(all.size());
    for (std::size_t at = 0; at < all.size(); ++at) {
        byRight[at] = at;
    }
    std::ranges::sort(all, {}, [](const Fitted& each) { return each.before.Left; });
    std::ranges::sort(byRight, {}, [&](std::size_t at) { return all[at].before.right(); });
    Reach reach;
    auto passed = byRight.begin();
    for (Fitted& fitted : all) {
        for (; passed != byRight.end() && all[*passed].before.right() <= fitted.before.Left; ++passed) {
            reach.add(all[*passed]);
        }
        fitted.after.Left += wholeSteps(reach.over(fitted.before) - fitted.before.Left);
    }
}

/// The name of what has a member; empty for other nodes.
std::string ownerOf(const LabelsD& node) {
    const auto* attribute = node.entity<entities::AttributeProperties>();
    const auto* parameter = node.entity<entities::ParameterProperties>();
    return attribute ? attribute->ParentKeyName : parameter ? parameter->ParentKeyName : std::string();
}

/// How much wider each node is to be. Members of one owner that stand alike in a column stay alike.
std::unordered_map<NodeNumber, float> missingWidths(const Canvas& canvas, const std::vector<NodeNumber>& nodes,
                                                    const NameMeasure& measure) {
    std::unordered_map<NodeNumber, float> wider;
    std::map<std::tuple<std::string, NodeTypeCode, float, float>, float> columns;
    const auto columnOf = [](const LabelsD& node) {
        return std::tuple(ownerOf(node), node.NodeType(), node.Left(), node.Width());
    };
    for (const NodeNumber index : nodes) {
        const LabelsD& node = *canvas.Labels.byIndex(index);
        wider[index] = wholeSteps(std::max(0.0F, measure.widthForName(node) - node.Width()));
        float& most = columns[columnOf(node)];
        most = std::max(most, wider[index]);
    }
    for (auto& [index, width] : wider) {
        const LabelsD& node = *canvas.Labels.byIndex(index);
        width = ownerOf(node).empty() ? width : columns[columnOf(node)];
    }
    std::erase_if(wider, [](const auto& each) { return each.second == 0; });
    return wider;
}

}  // namespace

std::vector<NodeNumber> nodesToFit(const Canvas& canvas) {
    std::vector<NodeNumber> nodes;
    for (const LabelsD& node : canvas.Labels) {
        const bool meant = canvas.SelectedLabels.Count() == 0 || canvas.SelectedLabels.Item(node.Index());
        if (meant && node.figure() != Figure::sheet) {
            nodes.push_back(node.Index());
        }
    }
    return nodes;
}

int fitToNames(Canvas& canvas, const std::vector<NodeNumber>& nodes, const NameMeasure& measure) {
    const std::unordered_map<NodeNumber, float> wider = missingWidths(canvas, nodes, measure);
    if (wider.empty()) {
        return 0;
    }
    std::vector<Fitted> all;
    for (LabelsD& node : canvas.Labels) {
        all.push_back({&node, node.box(), node.box()});
        const auto found = wider.find(node.Index());
        all.back().after.Width += found == wider.end() ? 0 : found->second;
    }
    giveWay(all);
    const ManyChanges together(canvas);
    for (const Fitted& fitted : all) {
        if (fitted.after != fitted.before) {
            reshape(canvas, *fitted.node, fitted.after);
        }
    }
    canvas.growPicture();
    return static_cast<int>(wider.size());
}

}  // namespace orvent::canvas
