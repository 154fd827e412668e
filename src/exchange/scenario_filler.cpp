#include "exchange/scenario_filler.h"

#include <algorithm>

#include "exchange/stored_rows.h"
#include "links/link_mirrors.h"
#include "links/mirror_lists.h"
#include "platform/fault.h"

namespace orvent::exchange {

namespace {

using canvas::LabelsD;
using entities::NameTable;

void needRoom(const NameTable& table, const std::vector<std::string>& names) {
    const auto more = std::ranges::count_if(
        names, [&table](const std::string& name) { return !table.indexOf(name) && !table.goneIndexOf(name); });
    platform::checkedI16(static_cast<long long>(table.size()) + more - 1, "Catalogue index");
}

std::vector<std::int16_t> indicesOf(NameTable& table, const std::vector<std::string>& names) {
    std::vector<std::int16_t> indices;
    std::ranges::transform(names, std::back_inserter(indices),
                           [&table](const std::string& name) { return table.keep(name); });
    return indices;
}

/// A node like one of the document. A refused name is no news: it was one where the document was written.
LabelsD& addNode(canvas::DrawForm& form, Document::Node& node) {
    LabelsD& added = form.Labels.Add(node.box, node.caption, node.kind);
    if (auto* constant = std::get_if<platform::Shared<entities::ParameterProperties>>(&node.entity)) {
        (*constant)->LabelIndex = added.Index();
    }
    added.Properties = std::move(node.entity);
    return added;
}

void restoreRows(canvas::DrawForm& form, const StoredState& stored) {
    auto rows = stored.nodes.begin();
    for (LabelsD& node : form.Labels) {
        std::size_t place = 0;
        eachRow(node.Properties, [&](std::int16_t& id, bool* changed) {
            id = rows->ids[place];
            if (changed) {
                *changed = std::ranges::find(rows->changed, static_cast<std::int16_t>(place)) != rows->changed.end();
            }
            ++place;
        });
        if (auto* activity = node.activity()) {
            activity->Act_Inputs->Changed = rows->inputsChanged;
        }
        ++rows;
    }
    form.ScenarioID = stored.scenario;
    form.stored.changed = stored.changed;
    form.stored.mark = stored.mark;
    form.stored.rows.insert(stored.marks.begin(), stored.marks.end());
    for (const canvas::DeletedNode& row : stored.deleted) {
        form.DeletedNodes->Add(row.NodeID, row.NodeKind);
    }
}

}  // namespace

TypeIndices indicesIn(entities::CatalogueTables& tables, const Document& document) {
    needRoom(tables.dataTypes, document.dataTypes);
    needRoom(tables.functionTypes, document.functionTypes);
    needRoom(tables.activityTypes, document.activityTypes);
    TypeIndices types{
        indicesOf(tables.dataTypes, document.dataTypes), indicesOf(tables.functionTypes, document.functionTypes), {}};
    for (const std::string& name : document.activityTypes) {
        const auto& known = document.types.activities;
        const auto type = std::ranges::find(known, name, &ActivityTypeDefinition::name);
        types.activities.push_back(type == known.end() ? tables.keepActivityType(name, {}, {})
                                                       : tables.keepActivityType(name, type->sql, type->ldl));
    }
    return types;
}

void settleReadiness(LabelsD& node) {
    if (const auto* activity = node.activity()) {
        node.setReady(activity->Act_Type != -1);
    } else if (const auto* recordSet = node.recordSet()) {
        node.setReady(recordSet->RecordSet_Outputs.count() > 0);
    }
}

bool meansAMember(const links::LinkData& link) {
    const bool toConstant = link.type == entities::LinkConstant || link.type == entities::LinkConstantFunction;
    return entities::leadsToAMember(link.type) || (toConstant && entities::HasDot(link.key));
}

bool completeLinks(canvas::Canvas& canvas, LabelsD& node) {
    bool whole = true;
    const auto complete = [&](auto& member) {
        const links::NearEnd near(member);
        links::eachLinkList(member, [&](links::Direction direction, auto& list) {
            for (auto& link : list) {
                using Link = std::remove_cvref_t<decltype(link)>;
                const links::LinkData data{link.name(), link.type(), link.key()};
                const links::FarEnd far = links::findFarEnd(canvas, direction, near, data, nullptr);
                if (auto* mirrors = links::mirrorsOf<Link>(far, direction)) {
                    links::writeMirror(canvas, link, *mirrors, {direction, near, far});
                } else if (meansAMember(data)) {
                    whole = false;
                }
            }
        });
    };
    if (auto* activity = node.activity()) {
        links::eachLinked(*activity, complete);
    } else if (auto* recordSet = node.recordSet()) {
        links::eachLinked(*recordSet, complete);
    }
    return whole;
}

std::vector<std::string> fillForm(canvas::DrawForm& form, Document document, const TypeIndices& types) {
    const canvas::ManyChanges together(form);
    form.setScenarioName(document.name);
    form.KeepDuplicates = document.keepDuplicates;
    form.quietNames = true;
    std::vector<canvas::NodeNumber> numbers;
    for (Document::Node& node : document.nodes) {
        numbers.push_back(addNode(form, node).Index());
        if (!node.facts.isEmpty()) {
            form.facts[numbers.back()] = std::move(node.facts);
        }
    }
    form.quietNames = false;
    for (const Document::Edge& edge : document.edges) {
        form.Lines.addFullLine(numbers[edge.from], edge.fromPoint, numbers[edge.to], edge.toPoint, edge.kind,
                               edge.angle, 0);
    }
    // All steps on a node at once: a large scenario is walked once.
    std::vector<std::string> dangling;
    for (LabelsD& node : form.Labels) {
        links::nameTypes(node.Properties, types);
        if (!completeLinks(form, node)) {
            dangling.push_back(node.Caption());
        }
        settleReadiness(node);
    }
    if (document.stored) {
        restoreRows(form, *document.stored);
    }
    form.growPicture();
    return dangling;
}

}  // namespace orvent::exchange
