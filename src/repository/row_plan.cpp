#include "repository/row_plan.h"

#include "entities/members.h"
#include "repository/stored_links.h"

namespace orvent::repository {

using namespace entities;

namespace {

std::uint64_t told(const AttributeProperties& attribute, const CatalogueTables& tables, NodeKindCode kind) {
    // The name and the type of a record set's attribute are not updated.
    return kind == KindRecordSetAttribute
               ? memberMark(attribute.Key, {}, 0)
               : memberMark(attribute.Key, attribute.Attribute_Name,
                            typeMark(tables.dataTypes, tables.dataTypes.name(attribute.Attribute_Type)));
}

std::uint64_t told(const ParameterProperties& parameter, const CatalogueTables& tables, NodeKindCode) {
    return memberMark(parameter.Key, parameter.Parameter_Name,
                      typeMark(tables.dataTypes, tables.dataTypes.name(parameter.Parameter_Type)));
}

}  // namespace

RowPlan::RowPlan(canvas::DrawForm& form, const CatalogueTables& tables, const StoredRows& rows) : tables_(tables) {
    for (const canvas::DeletedNode& deleted : *form.DeletedNodes) {
        if (deleted.NodeKind < KindFunction) {
            deletedMembers_.insert(deleted.NodeID);
        } else if (deleted.NodeKind == KindFunction) {
            deletedFunctions_.insert(deleted.NodeID);
        }
    }
    std::unordered_set<long long> shown;
    for (canvas::LabelsD& node : form.Labels) {
        const std::int16_t* id = node.rowIdentifier();
        const ActivityProperties* activity = node.activity();
        if (!id) {
            continue;
        }
        shown.insert(*id);
        if (activity && activity->Act_Type == -1) {
            continue;
        }
        differs_ = false;
        if (const NodeRows* stored = rows.find(*id)) {
            planNode(node, *stored);
        } else {
            differs_ = true;
        }
        if (differs_) {
            differing_.push_back(node.Caption());
        }
    }
    for (const NodeRows& node : rows.nodes) {
        if (!shown.contains(node.id)) {
            differing_.push_back(node.name);
        }
    }
    compareLines(form, rows);
}

void RowPlan::compareLines(const canvas::DrawForm& form, const StoredRows& rows) {
    std::uint64_t lines = 0;
    for (const canvas::LinesD& line : form.Lines) {
        const canvas::LabelsD* from = form.Labels.byIndex(line.FromLabel());
        const canvas::LabelsD* to = form.Labels.byIndex(line.ToLabel());
        if (from && to) {
            lines += lineMark(from->Caption(), line.FromGrabbingPoint(), to->Caption(), line.ToGrabbingPoint(),
                              static_cast<std::int64_t>(line.EdgeType()), static_cast<std::int64_t>(line.Angle()));
        }
    }
    if (lines != rows.lines) {
        differing_.emplace_back("(edges)");
    }
}

void RowPlan::compareNode(bool* Changed, bool same) {
    if (!same) {
        differs_ = true;
        nodes_.push_back(Changed);
    }
}

void RowPlan::planNode(canvas::LabelsD& node, const NodeRows& rows) {
    differs_ = rows.strayLinks.value() != Mark().value();
    const auto placed = [&](const std::string& name) {
        return placeMark(name, node.NodeType(), {node.Left(), node.Top(), node.Width(), node.Height()}) == rows.place;
    };
    if (ActivityProperties* activity = node.activity()) {
        const std::uint64_t type = typeMark(tables_.activityTypes, tables_.activityTypes.name(activity->Act_Type));
        compareNode(&activity->Changed, placed(activity->Act_Name) &&
                                            rows.own == activityMark({activity->Act_Description, activity->Act_Log,
                                                                      activity->Act_SQL, activity->Act_LDL},
                                                                     type, activity->Act_SchemaNo));
        planActivity(*activity, rows);
    } else if (RecordSetProperties* recordSet = node.recordSet()) {
        compareNode(&recordSet->Changed,
                    placed(recordSet->RecordSet_Name) && rows.own == recordSetMark(recordSet->RecordSet_SQL));
        planRecordSet(*recordSet, rows);
    } else if (auto* comment = node.entity<CommentProperties>()) {
        compareNode(&comment->Changed, placed(node.Caption()) && rows.own == commentMark(comment->Comment));
    } else {
        differs_ = differs_ || !placed(node.Caption());
    }
}

/// Plans one list of members beside the rows of its kind, and compares their links.
template <class Members>
void RowPlan::planMembers(Members& members, const std::vector<MemberRow>& rows, ListPlan::List list,
                          NodeKindCode kind) {
    std::unordered_map<long long, std::uint64_t> linksOf;
    for (const MemberRow& row : rows) {
        if (row.kind == static_cast<long long>(kind) && !deletedMembers_.contains(row.id)) {
            list.rows.push_back({row.id, row.told, row.kept});
            linksOf.emplace(row.id, row.links.value());
        }
    }
    std::size_t at = 0;
    for (auto& member : members) {
        if (list.items.size() <= at) {
            const bool tagged = kind == KindInput || kind == KindOutput || kind == KindParameter;
            list.items.push_back({nullptr, nullptr, 0, tagged ? static_cast<std::uint64_t>(member.Tag) : 0});
        }
        ListPlan::Item& item = list.items[at++];
        item.identifier = &member.SubNode_ID;
        item.Changed = &member.Changed;
        item.told = told(member, tables_, kind);
        Mark shown;
        eachStoredLinks(member, kind, [&shown](const auto& links, sql::LinkKind of) {
            for (const auto& link : links) {
                addLink(shown, of, link.key(), link.name(), static_cast<std::int64_t>(link.type()));
            }
        });
        const auto stored = linksOf.find(member.SubNode_ID);
        differs_ = differs_ || stored == linksOf.end() || stored->second != shown.value();
    }
    plan(std::move(list), anew_.subNodes);
}

void RowPlan::plan(ListPlan::List list, long long& anew) {
    lists_.emplace_back(std::move(list));
    anew += lists_.back().anew();
    differs_ = differs_ || !lists_.back().same();
}

void RowPlan::planRecordSet(RecordSetProperties& recordSet, const NodeRows& rows) {
    ListPlan::List list{.items = {}, .rows = {}, .drops = {sql::kDropRecordSetOutput}, .ownRowsOnly = true};
    for (const AttributeProperties& attribute : recordSet.RecordSet_Outputs) {
        const std::string& type = tables_.dataTypes.name(attribute.Attribute_Type);
        const std::uint64_t kept = outputMark(recordSet.dbKey(attribute.Key), typeMark(tables_.dataTypes, type));
        list.items.push_back({nullptr, nullptr, 0, kept});
    }
    planMembers(recordSet.RecordSet_Outputs, rows.members, std::move(list), KindRecordSetAttribute);
}

void RowPlan::planActivity(ActivityProperties& activity, const NodeRows& rows) {
    ListPlan::List list{.items = {}, .rows = {}, .drops = {sql::kDropActivitySubNode}, .ownRowsOnly = false};
    eachList(activity, [&](auto& members, NodeKindCode kind) {
        list.Changed = kind == KindInput ? &activity.Act_Inputs->Changed : nullptr;
        planMembers(members, rows.members, list, kind);
    });
    planFunctions(activity, rows);
}

void RowPlan::planFunctions(ActivityProperties& activity, const NodeRows& rows) {
    ListPlan::List functions{
        .items = {}, .rows = {}, .drops = {sql::kDropFunctionSubNodes, sql::kDropFunction}, .ownRowsOnly = true};
    std::unordered_map<long long, const FunctionRow*> stored;
    for (const FunctionRow& row : rows.functions) {
        if (!deletedFunctions_.contains(row.id)) {
            functions.rows.push_back({row.id, row.told, row.kept});
            stored.emplace(row.id, &row);
        }
    }
    const ListPlan::List members{.items = {}, .rows = {}, .drops = {sql::kDropFunctionSubNode}, .ownRowsOnly = false};
    for (FunctionProperties& function : activity.Act_Functions) {
        const std::string& type = tables_.functionTypes.name(function.Function_Type);
        functions.items.push_back({&function.FunctionID, &function.Changed,
                                   functionMark(function.Function_Key, typeMark(tables_.functionTypes, type)),
                                   static_cast<std::uint64_t>(function.Function_Source), &function});
        if (const auto row = stored.find(function.FunctionID); row != stored.end()) {
            eachList(function,
                     [&](auto& list, NodeKindCode kind) { planMembers(list, row->second->members, members, kind); });
        }
    }
    // Behind their members: a function that is written anew takes these along.
    const long long before = anew_.functions;
    plan(std::move(functions), anew_.functions);
    if (anew_.functions > before) {
        for (const FunctionProperties& function : activity.Act_Functions) {
            eachList(function, [&](const auto& list, NodeKindCode) { anew_.subNodes += list.count(); });
        }
    }
}

void RowPlan::carryOut(StatementCache& repository, bool inOrder) const {
    for (bool* Changed : nodes_) {
        *Changed = true;
    }
    for (const ListPlan& list : lists_) {
        list.carryOut(repository, inOrder);
    }
}

}  // namespace orvent::repository
