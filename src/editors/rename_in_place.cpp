#include "editors/rename_in_place.h"

#include <array>

#include "canvas/taken_name.h"
#include "editors/item_prop.h"
#include "editors/scenario_names.h"
#include "forms/name_check.h"
#include "links/member_rename.h"
#include "links/propagate_rename.h"
#include "repository/catalogue.h"

namespace orvent::editors {

using namespace entities;
using canvas::LabelsD;
using forms::NameFault;
using forms::NameRule;
using platform::Icon;

namespace {

constexpr std::array kActivityRules = {NameRule{NameFault::empty, "PLEASE GIVE THE ACTIVITY's NAME"},
                                       NameRule{NameFault::dot, "DOTS ARE NOT ALLLOWED IN NAMES"}};
constexpr std::array kRecordSetRules = {NameRule{NameFault::empty, "PLEASE GIVE A VALID NAME", Icon::none},
                                        NameRule{NameFault::dot, "DOTS ARE NOT ALLLOWED IN NAMES", Icon::none}};

/// The node's caption takes the name; false when another node has it, which is told.
bool takeName(canvas::CanvasForm& form, LabelsD& node, const std::string& name) {
    const LabelsD* taker = form.nodeNamed(name);
    if ((taker && taker != &node) || isTakenBeyond(form, node, name)) {
        canvas::tellTakenName(form.messages());
        return false;
    }
    const std::string former = node.Caption();
    node.setCaption(name);
    const bool taken = node.KeyName() == canvas::kErrorName;
    if (taken) {
        node.setCaption(former);
    }
    return !taken;
}

/// What follows the name of a node whose caption has it already.
void follow(canvas::CanvasForm& form, LabelsD& node, const std::string& former) {
    if (ActivityProperties* activity = node.activity()) {
        renameActivityIn(form, *activity, former, node.Caption(), [](const std::string&) { return true; });
        return;
    }
    RecordSetProperties& record = *node.recordSet();
    links::renameOwner(form, record, former, node.Caption());
    record.Changed = true;
    for (AttributeProperties& attribute : record.RecordSet_Outputs) {
        attribute.Changed = true;
    }
}

}  // namespace

canvas::Renames renameActivityIn(canvas::Canvas& canvas, ActivityProperties& activity, const std::string& former,
                                 const std::string& now, const std::function<bool(const std::string& key)>& carries) {
    canvas::Renames renames;
    std::vector<std::string> formerKeys;
    for (const AttributeProperties& output : activity.Act_Outputs) {
        formerKeys.push_back(output.Key);
    }
    links::renameOwner(canvas, activity, former, now);
    auto formerKey = formerKeys.begin();
    for (AttributeProperties& output : activity.Act_Outputs) {
        if (carries(output.Key)) {
            const canvas::Renames carried = links::PropagateRename(canvas, output, *formerKey);
            renames.insert(renames.end(), carried.begin(), carried.end());
        }
        ++formerKey;
    }
    return renames;
}

std::optional<std::string> nameInPlace(canvas::CanvasForm& form, const LabelsD& node) {
    const auto* zoom = dynamic_cast<const zoom::ZoomView*>(&form);
    if (!form.Enabled() || (zoom && !zoom->bearsName(node))) {
        return std::nullopt;
    }
    if (node.activity() || node.recordSet()) {
        return node.Caption();
    }
    if (!zoom || !ItemProp::edits(*zoom, node)) {
        return std::nullopt;
    }
    const std::string name = ItemProp::nameOf(*zoom, node);
    return name.empty() ? node.Caption() : name;
}

bool renameInPlace(const EditorServices& services, canvas::CanvasForm& form, LabelsD& node, const std::string& name) {
    auto* zoom = dynamic_cast<zoom::ZoomView*>(&form);
    if (!node.activity() && !node.recordSet()) {
        repository::WholeFunctionTypes types(services.catalogue);
        return ItemProp(*zoom, node, types).rename(name);
    }
    const std::string former = node.Caption();
    if (name == former) {
        return true;
    }
    if (!forms::checkName(name, node.activity() ? std::span<const NameRule>(kActivityRules) : kRecordSetRules,
                          form.messages())) {
        return false;
    }
    services.nodes.prepare(form, node);  // as for the dialog: the nodes of its members are named anew
    const bool taken = takeName(form, node, name);
    if (taken) {
        follow(form, node, former);
        form.tellChanged(node);
    }
    services.nodes.refresh(form, node);
    if (taken && zoom) {
        zoom->touch();
    }
    return taken;
}

}  // namespace orvent::editors
