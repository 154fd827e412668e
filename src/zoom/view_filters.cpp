#include "zoom/view_filters.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "entities/link_types.h"

namespace orvent::zoom {

using namespace entities;
using canvas::LabelsD;
using canvas::LinesD;

namespace {

constexpr std::int32_t kFunctionTypeColour = 16711680;

struct FilterRow {
    bool ViewMarks::*mark;
    canvas::EdgeTypeCode edges;
};

constexpr std::array<FilterRow, 5> kFilters = {{
    {&ViewMarks::ViewProviderM, canvas::EdgeTypeProvider},
    {&ViewMarks::ViewPartOfM, canvas::EdgeTypePartOf},
    {&ViewMarks::ViewRegulatorM, canvas::EdgeTypeRegulator},
    {&ViewMarks::ViewInstanceOfM, canvas::EdgeTypeReserved},
    {&ViewMarks::ViewDerivedM, canvas::EdgeTypeDerived},
}};

bool shows(const ViewMarks& marks, canvas::EdgeTypeCode edges) {
    for (const FilterRow& row : kFilters) {
        if (row.edges == edges) {
            return marks.*row.mark;
        }
    }
    return true;
}

/// What `ViewAttributesM` shows and hides; attributes themselves always stay.
bool isDetail(const LabelsD& node) {
    return node.NodeType() == canvas::NodeTypeParameter || node.NodeType() == canvas::NodeTypeFunction ||
           node.NodeType() == canvas::NodeTypeConstant;
}

template <class Item>
void setVisible(Item& item, bool visible) {
    if (item.Visible() != visible) {
        item.setVisible(visible);
    }
}

/// The type indices of one kind in order of first sight, and the node of each.
class TypeNodes {
  public:
    TypeNodes(ZoomView& view, const NameTable& names, canvas::NodeTypeCode nodeType, float left)
        : view_(view), names_(names), nodeType_(nodeType), left_(left) {}

    void see(std::int16_t type) {
        if (positions_.emplace(type, positions_.size() + 1).second) {
            types_.push_back(type);
        }
    }

    void make() {
        const canvas::CanvasSettings& sizes = view_.settings();
        for (const std::int16_t type : types_) {
            const std::string& name = names_.name(type);
            if (view_.isNameTaken(name)) {
                continue;
            }
            const float left = (sizes.Width + 50) * static_cast<float>(positions_[type]) + left_;
            view_.Labels
                .Add({left, view_.BiggestHeight - sizes.BigHeight - 50, sizes.Width, sizes.BigHeight}, name, nodeType_)
                .setColor(colour(type));
        }
    }

    void tie(const LabelsD& node, std::int16_t fromGrab, std::int16_t type) {
        const LabelsD* typeNode = view_.nodeNamed(names_.name(type));
        if (typeNode && typeNode->NodeType() == nodeType_) {
            view_.Lines.addFullLine(node.Index(), fromGrab, typeNode->Index(), 2, canvas::EdgeTypeReserved,
                                    canvas::AngleVerticalUp, colour(type));
        }
    }

  private:
    std::int32_t colour(std::int16_t type) {
        if (nodeType_ == canvas::NodeTypeFunctionType) {
            return kFunctionTypeColour;
        }
        const auto position = static_cast<std::int32_t>(positions_[type]);
        const double step = 256.0 * position / static_cast<double>(types_.size());
        const auto red = static_cast<std::int32_t>(std::min(std::lround(256.0 - step), 255L));
        const std::int32_t odd = position % 2;
        return red | ((odd ^ 1) * 192) << 8 | (odd * 64) << 16;
    }

    ZoomView& view_;
    const NameTable& names_;
    canvas::NodeTypeCode nodeType_;
    float left_;
    std::vector<std::int16_t> types_;
    std::unordered_map<std::int16_t, std::size_t> positions_;
};

/// Calls `attribute(node, data type, from-grab)` or `function(node, function type)` for each node that has a type.
template <class Attribute, class Function>
void eachTyped(const std::vector<LabelsD*>& nodes, Attribute attribute, Function function) {
    for (LabelsD* node : nodes) {
        if (const auto* held = node->entity<AttributeProperties>()) {
            attribute(*node, held->Attribute_Type, std::int16_t{3});
        } else if (const auto* parameter = node->entity<ParameterProperties>();
                   parameter && node->NodeType() == canvas::NodeTypeParameter) {
            attribute(*node, parameter->Parameter_Type,
                      static_cast<std::int16_t>(parameter->NodeKind == KindFunctionInput ? 4 : 3));
        } else if (const auto* called = node->entity<FunctionProperties>()) {
            function(*node, called->Function_Type);
        }
    }
}

std::vector<LabelsD*> nodesOf(ZoomView& view) {
    std::vector<LabelsD*> nodes;
    for (LabelsD& node : view.Labels) {
        nodes.push_back(&node);
    }
    return nodes;
}

void removeEdges(ZoomView& view, canvas::EdgeTypeCode kind) {
    for (LinesD& edge : view.Lines) {
        if (edge.EdgeType() == kind) {
            view.Lines.RemoveFull(edge.Index());
        }
    }
}

/// Two nodes that an edge joins.
using Joined = std::pair<canvas::NodeNumber, canvas::NodeNumber>;

std::vector<Joined> joinedBy(const ZoomView& view, canvas::EdgeTypeCode kind) {
    std::vector<Joined> joined;
    for (const LinesD& edge : view.Lines) {
        if (edge.EdgeType() == kind) {
            joined.emplace_back(edge.FromLabel(), edge.ToLabel());
        }
    }
    return joined;
}

/// Whether the types that are shown, and the edges to them, are those of the nodes.
bool instanceOfStands(ZoomView& view) {
    std::vector<Joined> wanted;
    std::unordered_set<canvas::NodeNumber> types;
    bool present = true;
    const auto expect = [&](const LabelsD& node, const NameTable& names, canvas::NodeTypeCode kind, std::int16_t type) {
        const LabelsD* typeNode = view.nodeNamed(names.name(type));
        present = present && typeNode;
        if (typeNode && typeNode->NodeType() == kind) {
            wanted.emplace_back(node.Index(), typeNode->Index());
            types.insert(typeNode->Index());
        }
    };
    eachTyped(
        nodesOf(view),
        [&](const LabelsD& node, std::int16_t type, std::int16_t) {
            expect(node, view.catalogue().dataTypes, canvas::NodeTypeDataType, type);
        },
        [&](const LabelsD& node, std::int16_t type) {
            expect(node, view.catalogue().functionTypes, canvas::NodeTypeFunctionType, type);
        });
    for (const LabelsD& node : view.Labels) {
        present = present && (!isTypeNode(node) || types.count(node.Index()));
    }
    return present && joinedBy(view, canvas::EdgeTypeReserved) == wanted;
}

/// What regulates a parameter on which an output of the central activity depends, and the output.
std::vector<Joined> derivedEnds(const ZoomView& view) {
    std::vector<Joined> ends;
    const LabelsD* central = view.central();
    const ActivityProperties* activity = central ? central->activity() : nullptr;
    if (!activity) {
        return ends;
    }
    for (const AttributeProperties& output : activity->Act_Outputs) {
        const LabelsD* target = view.nodeNamed(wholeKey(activity->Act_Name, KindOutput, output.Key));
        for (const RegulatorProperties& link : output.RegulatedFrom) {
            const LabelsD* node = link.Regulator_type == LinkParameterOutput
                                      ? view.nodeNamed(link.Regulator_name + link.Regulator_Key())
                                      : nullptr;
            const auto* parameter = node ? node->entity<ParameterProperties>() : nullptr;
            if (!parameter || !target) {
                continue;
            }
            for (const RegulatorProperties& source : parameter->RegulatedFrom) {
                const LabelsD* from = view.nodeNamed(source.Regulator_type == LinkRecordSet
                                                         ? source.Regulator_Key()
                                                         : source.Regulator_name + source.Regulator_Key());
                if (from) {
                    ends.emplace_back(from->Index(), target->Index());
                }
            }
        }
    }
    return ends;
}

}  // namespace

void applyFilters(ZoomView& view) {
    for (LabelsD& node : view.Labels) {
        if (isDetail(node)) {
            setVisible(node, view.marks.ViewAttributesM);
        }
    }
    for (LinesD& edge : view.Lines) {
        const LabelsD* from = view.Labels.byIndex(edge.FromLabel());
        const LabelsD* to = view.Labels.byIndex(edge.ToLabel());
        if (from && to) {  // one that is being drawn has no target yet
            const bool shown = shows(view.marks, edge.EdgeType());
            setVisible(edge, shown && from->Visible() && to->Visible());
        }
    }
}

void refreshFilters(ZoomView& view) {
    hideInstanceOf(view);
    if (view.marks.ViewInstanceOfM) {
        showInstanceOf(view);
    }
    if (view.marks.ViewDerivedM) {
        showDerived(view);
    }
    applyFilters(view);
}

void followEdits(ZoomView& view) {
    if (view.marks.ViewInstanceOfM && !instanceOfStands(view)) {
        hideInstanceOf(view);
        showInstanceOf(view);
    }
    if (view.marks.ViewDerivedM) {
        showDerived(view);
    }
    applyFilters(view);
}

void toggleFilter(ZoomView& view, bool ViewMarks::*mark) {
    view.marks.*mark = !(view.marks.*mark);
    if (mark == &ViewMarks::ViewInstanceOfM) {
        (view.marks.ViewInstanceOfM ? showInstanceOf : hideInstanceOf)(view);
    } else if (mark == &ViewMarks::ViewDerivedM && view.marks.ViewDerivedM) {
        showDerived(view);
    }
    applyFilters(view);
}

void showInstanceOf(ZoomView& view) {
    const canvas::NodeNumber active = view.ActiveLabel;
    const canvas::CanvasSettings& sizes = view.settings();
    const std::vector<LabelsD*> nodes = nodesOf(view);
    TypeNodes dataTypes(view, view.catalogue().dataTypes, canvas::NodeTypeDataType, 4 * sizes.WDist + sizes.BigDist);
    TypeNodes functionTypes(view, view.catalogue().functionTypes, canvas::NodeTypeFunctionType, 2100);
    eachTyped(
        nodes, [&](LabelsD&, std::int16_t type, std::int16_t) { dataTypes.see(type); },
        [&](LabelsD&, std::int16_t type) { functionTypes.see(type); });
    dataTypes.make();
    functionTypes.make();
    eachTyped(
        nodes, [&](LabelsD& node, std::int16_t type, std::int16_t grab) { dataTypes.tie(node, grab, type); },
        [&](LabelsD& node, std::int16_t type) { functionTypes.tie(node, 1, type); });
    view.ActiveLabel = active;
    view.growPicture();
}

void hideInstanceOf(ZoomView& view) {
    for (LabelsD& node : view.Labels) {
        if (isTypeNode(node)) {
            view.Labels.Remove(node.Index());
        }
    }
}

void showDerived(ZoomView& view) {
    const std::vector<Joined> ends = derivedEnds(view);
    if (joinedBy(view, canvas::EdgeTypeDerived) == ends) {
        return;
    }
    removeEdges(view, canvas::EdgeTypeDerived);
    for (const auto& [from, to] : ends) {
        view.Lines.addFullLine(from, 3, to, 1, canvas::EdgeTypeDerived, canvas::AngleStraight, 0);
    }
}

}  // namespace orvent::zoom
