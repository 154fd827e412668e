#include "exchange/insertion.h"

#include <algorithm>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "exchange/scenario_filler.h"
#include "links/mirror_lists.h"

namespace orvent::exchange {

namespace {

using canvas::LabelsD;

constexpr float kStepBeside = 300;  ///< twips, to the right and downwards

template <class Links>
void dropOutside(const canvas::DrawForm& copy, links::Direction direction, const links::NearEnd& near, Links& list) {
    for (int at = list.count(); at >= 1; --at) {
        const auto& link = *list->Item(at);
        const links::LinkData data{link.name(), link.type(), link.key()};
        const links::FarEndView far = links::findFarEnd(copy, direction, near, data, nullptr);
        if (!far.attribute && !far.parameter && meansAMember(data)) {
            list->Remove(at);
        }
    }
}

/// Drops links that lead out of the copy; with `keepsSources` those from outside stay.
void dropOutside(canvas::DrawForm& copy, const std::vector<std::string>& nodes, bool keepsSources) {
    const auto drop = [&](auto& member) {
        const links::NearEnd near(member);
        links::eachLinkList(member, [&](links::Direction direction, auto& list) {
            const bool isSource =
                direction == links::Direction::ProvidedFrom || direction == links::Direction::RegulatedFrom;
            if (!(isSource && keepsSources)) {
                dropOutside(copy, direction, near, list);
            }
        });
    };
    const std::unordered_set<std::string> leading(nodes.begin(), nodes.end());
    for (LabelsD& node : copy.Labels) {
        if (!leading.contains(node.Caption())) {
            continue;
        }
        if (auto* activity = node.activity()) {
            links::eachLinked(*activity, drop);
        } else if (auto* recordSet = node.recordSet()) {
            links::eachLinked(*recordSet, drop);
        }
    }
}

/// How far the copy is moved: its middle to the place that is meant, or a step beside; and by further steps until no
/// node covers another one exactly, as when the pointer rests between two pastes. It stays within the picture.
canvas::Point shiftOf(const canvas::DrawForm& form, const canvas::DrawForm& copy,
                      const std::optional<canvas::Point>& middle) {
    canvas::Box frame = copy.Labels.at(1)->box();
    for (const LabelsD& node : copy.Labels) {
        const float right = std::max(frame.right(), node.box().right());
        const float bottom = std::max(frame.bottom(), node.box().bottom());
        frame.Left = std::min(frame.Left, node.Left());
        frame.Top = std::min(frame.Top, node.Top());
        frame.Width = right - frame.Left;
        frame.Height = bottom - frame.Top;
    }
    std::set<std::pair<float, float>> corners;
    for (const LabelsD& node : form.Labels) {
        corners.emplace(node.Left(), node.Top());
    }
    canvas::Point shift{kStepBeside, kStepBeside};
    if (middle) {
        shift = {std::max(middle->x - frame.Width / 2, 0.0F) - frame.Left,
                 std::max(middle->y - frame.Height / 2, 0.0F) - frame.Top};
    }
    const auto covers = [&] {
        for (const LabelsD& node : copy.Labels) {
            if (corners.contains({node.Left() + shift.x, node.Top() + shift.y})) {
                return true;
            }
        }
        return false;
    };
    while (covers()) {
        shift = {shift.x + kStepBeside, shift.y + kStepBeside};
    }
    return shift;
}

void selectAlone(canvas::DrawForm& form, const std::vector<canvas::NodeNumber>& nodes) {
    form.SelectedLabels.Clear();
    form.SelectedLines.Clear();
    for (const canvas::NodeNumber node : nodes) {
        form.SelectedLabels.Add(node);
    }
}

}  // namespace

Inserted insertCopy(canvas::DrawForm& form, canvas::DrawForm& copy, const CopyRules& rules) {
    Inserted inserted;
    if (copy.Labels.Count() == 0) {
        return inserted;
    }
    dropOutside(copy, rules.leadingOut, rules.keepsSources);
    inserted.uncertain = giveFreeNames(copy, form);
    const canvas::Point shift = shiftOf(form, copy, rules.middle);
    const canvas::ManyChanges together(form);
    std::unordered_map<canvas::NodeNumber, canvas::NodeNumber> numbers;
    for (LabelsD& node : copy.Labels) {
        const canvas::Box box{node.Left() + shift.x, node.Top() + shift.y, node.Width(), node.Height()};
        LabelsD& added = form.Labels.Add(box, node.Caption(), node.NodeType());
        added.Properties = std::exchange(node.Properties, std::int16_t{0});
        numbers.emplace(node.Index(), added.Index());
        inserted.nodes.push_back(added.Index());
        if (auto kept = copy.facts.extract(node.Index()); !kept.empty()) {
            form.facts[added.Index()] = std::move(kept.mapped());
        }
    }
    for (const canvas::LinesD& edge : copy.Lines) {
        form.Lines.addFullLine(numbers.at(edge.FromLabel()), edge.FromGrabbingPoint(), numbers.at(edge.ToLabel()),
                               edge.ToGrabbingPoint(), edge.EdgeType(), edge.Angle(), 0);
    }
    for (const auto& [edge, to] : rules.incoming) {
        form.Lines.addFullLine(edge->FromLabel(), edge->FromGrabbingPoint(), numbers.at(to), edge->ToGrabbingPoint(),
                               edge->EdgeType(), edge->Angle(), 0);
    }
    for (const canvas::NodeNumber node : inserted.nodes) {
        if (rules.keepsSources) {
            completeLinks(form, *form.Labels.byIndex(node));
        }
        settleReadiness(*form.Labels.byIndex(node));
    }
    form.growPicture();
    selectAlone(form, inserted.nodes);
    return inserted;
}

}  // namespace orvent::exchange
