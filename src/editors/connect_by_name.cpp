#include "editors/connect_by_name.h"

#include <algorithm>
#include <set>
#include <unordered_map>
#include <utility>

#include "canvas/canvas_rules.h"
#include "canvas/owners.h"
#include "canvas/straighten.h"
#include "editors/taken_columns.h"
#include "entities/key_grammar.h"
#include "entities/type_records.h"

namespace orvent::editors {

using namespace entities;
using canvas::LabelsD;

namespace {

bool hasMembers(const LabelsD* node) {
    return node && (node->activity() || node->recordSet());
}

bool feeds(const canvas::Canvas& form, const LabelsD& from, const LabelsD& to) {
    for (const canvas::EdgeNumber number : from.StartingLines()) {
        const canvas::LinesD* edge = form.Lines.byIndex(number);
        if (edge && edge->EdgeType() == canvas::EdgeTypeProvider && edge->ToLabel() == to.Index()) {
            return true;
        }
    }
    return false;
}

/// Whether one node of a view feeds another one by an edge of its scenario.
class Feeds {
  public:
    explicit Feeds(zoom::ZoomView& view) {
        std::unordered_map<canvas::NodeNumber, std::string> names;
        for (const zoom::NewANDoldIndex& pair : view.New2OldIndex) {
            const LabelsD* shown = view.Labels.byIndex(pair.NewIndex);
            if (shown && view.bearsName(*shown)) {
                names[pair.OldIndex] = shown->KeyName();
            }
        }
        for (const canvas::LinesD& edge : view.ParForm().Lines) {
            const auto from = names.find(edge.FromLabel());
            const auto to = names.find(edge.ToLabel());
            if (edge.EdgeType() == canvas::EdgeTypeProvider && from != names.end() && to != names.end()) {
                pairs_.emplace(from->second, to->second);
            }
        }
    }
    bool holds(const LabelsD& from, const LabelsD& to) const { return pairs_.contains({from.KeyName(), to.KeyName()}); }

  private:
    std::set<std::pair<std::string, std::string>> pairs_;
};

}  // namespace

/// A member of an activity may bear the name of what the activity reads, as in BOOKS_ID.
void ConnectByName::Side::add(const Member& member) {
    const auto [known, isNew] = read.try_emplace(member.owner);
    if (isNew && member.owner->activity()) {
        for (const AttributeProperties& input : member.owner->activity()->Act_Inputs) {
            for (const ProviderProperties& link : input.ProvidedFrom) {
                known->second.insert(link.Provider_Name);
            }
        }
    }
    const std::string& name = member.attribute->Attribute_Name;
    const auto stands = std::find_if(known->second.begin(), known->second.end(),
                                     [&name](const std::string& source) { return name.starts_with(source + "_"); });
    members.push_back(member);
    names.push_back(
        {stands == known->second.end() ? member.owner->KeyName() : *stands, name, member.attribute->Attribute_Type});
}

ConnectByName::ConnectByName(platform::MessageBox& messages, const CatalogueTables& catalogue, canvas::CanvasForm& form)
    : Editor(messages), form_(form), catalogue_(catalogue) {
    Saved = false;
    if (auto* view = dynamic_cast<zoom::ZoomView*>(&form)) {
        proposeForView(*view);
    } else {
        proposeForNodes();
    }
}

void ConnectByName::proposeForNodes() {
    const std::vector<canvas::NodeNumber> selected = form_.SelectedLabels.members();
    LabelsD* from = selected.size() == 2 ? form_.Labels.byIndex(selected[0]) : nullptr;
    LabelsD* to = selected.size() == 2 ? form_.Labels.byIndex(selected[1]) : nullptr;
    if (!hasMembers(from) || !hasMembers(to) || (from->recordSet() && to->recordSet())) {
        whyNot = "Select two nodes: an activity, and what it reads or feeds.";
        return;
    }
    if (!feeds(form_, *from, *to) && feeds(form_, *to, *from)) {
        std::swap(from, to);
    }
    Caption = from->Caption() + " \u2192 " + to->Caption();
    const auto members = [](LabelsD& owner, NodeKindCode kind, Side& side) {
        if (auto* list = canvas::listOf<AttributeProperties>(owner, kind)) {
            for (AttributeProperties& attribute : *list) {
                side.add({&owner, nullptr, &attribute});
            }
        }
    };
    members(*from, from->activity() ? KindOutput : KindRecordSetAttribute, sources_);
    members(*to, to->activity() ? KindInput : KindRecordSetAttribute, targets_);
    propose(
        [&](std::size_t, std::size_t target) { return targets_.members[target].attribute->ProvidedFrom.count() == 0; });
}

void ConnectByName::proposeForView(zoom::ZoomView& view) {
    Caption = view.Caption();
    const Feeds feeds(view);
    for (LabelsD& node : view.Labels) {
        auto* attribute = node.entity<AttributeProperties>();
        LabelsD* owner = attribute ? view.nodeNamed(attribute->ParentKeyName) : nullptr;
        if (!owner || !view.bearsName(node)) {
            continue;
        }
        sources_.add({owner, &node, attribute});
        if (attribute->ProvidedFrom.count() == 0 && attribute->RegulatedFrom.count() == 0) {
            targets_.add({owner, &node, attribute});
        }
    }
    propose([&](std::size_t source, std::size_t target) {
        const Member& from = sources_.members[source];
        const Member& to = targets_.members[target];
        const NodeKindCode fromKind = from.attribute->NodeKind, toKind = to.attribute->NodeKind;
        if (from.owner == to.owner) {
            return fromKind == KindInput && toKind == KindOutput;
        }
        return (fromKind == KindOutput || fromKind == KindRecordSetAttribute) &&
               (toKind == KindInput || toKind == KindRecordSetAttribute) && feeds.holds(*from.owner, *to.owner);
    });
}

void ConnectByName::propose(const std::function<bool(std::size_t, std::size_t)>& mayJoin) {
    for (const links::NamePair& pair : links::pairsByName(sources_.names, targets_.names, mayJoin)) {
        const Member& source = sources_.members[pair.source];
        const Member& target = targets_.members[pair.target];
        const auto words = [](const Member& member) {
            return wholeKey(member.owner->KeyName(), member.attribute->NodeKind, member.attribute->Key);
        };
        const std::string type = catalogue_.dataTypes.shown(source.attribute->Attribute_Type);
        ConnectRow row{words(source), words(target), type, true, {}, true, pair};
        if (!suits(source, target)) {
            row.remark = "its type is " + catalogue_.dataTypes.shown(target.attribute->Attribute_Type);
            row.possible = row.checked = false;
        } else if (!pair.only) {
            row.remark = "several fit";
            row.checked = false;
        }
        Rows.push_back(std::move(row));
    }
    if (Rows.empty()) {
        whyNot = "No two members that may be joined have names that fit.";
    }
}

bool ConnectByName::suits(const Member& source, const Member& target) const {
    return source.attribute->Attribute_Type == target.attribute->Attribute_Type ||
           catalogue_.dataTypes.shown(target.attribute->Attribute_Type) == kDefinedBySource;
}

void ConnectByName::Row_Check(std::size_t row, bool on) {
    if (row < Rows.size() && Rows[row].possible) {
        Rows[row].checked = on;
    }
}

bool ConnectByName::mayConnect() const {
    return std::any_of(Rows.begin(), Rows.end(), [](const ConnectRow& row) { return row.checked; });
}

bool ConnectByName::apply() {
    auto* view = dynamic_cast<zoom::ZoomView*>(&form_);
    for (const ConnectRow& row : Rows) {
        const Member& source = sources_.members[row.pair.source];
        const Member& target = targets_.members[row.pair.target];
        // Of several that were checked for one target the first counts.
        if (!row.checked || target.attribute->ProvidedFrom.count() > 0) {
            continue;
        }
        view ? joinInView(*view, source, target) : joinNodes(source, target);
    }
    return true;
}

void ConnectByName::joinInView(zoom::ZoomView& view, const Member& source, const Member& target) {
    const canvas::GrabPair points = canvas::nearestGrabPoints(*source.node, *target.node);
    if (canvas::LinesD* edge = view.Lines.addFullLine(source.node->Index(), points.from, target.node->Index(),
                                                      points.to, canvas::EdgeTypeProvider, canvas::AngleNone, 0)) {
        view.rules().edgeCompleted(view, *edge);
        ++connected;
    }
}

void ConnectByName::joinNodes(const Member& source, const Member& target) {
    const bool fromActivity = source.owner->activity() != nullptr;
    const bool toActivity = target.owner->activity() != nullptr;
    const LinkType type = fromActivity && toActivity ? LinkActivity : LinkRecordSet;
    const auto keyOf = [](const Member& member) {
        return wholeKey(member.owner->KeyName(), member.attribute->NodeKind, member.attribute->Key);
    };
    source.attribute->ProviderFor->Add(target.owner->KeyName(), type, keyOf(target));
    target.attribute->ProvidedFrom->Add(source.owner->KeyName(), type, keyOf(source));
    target.attribute->Attribute_Type = source.attribute->Attribute_Type;
    if (toActivity) {
        target.attribute->Tag = tagOf(type);
        target.owner->activity()->Act_Inputs->Changed = true;
    }
    source.attribute->Changed = target.attribute->Changed = true;
    ++connected;
    drawEdge(*source.owner, *target.owner);
    for (const LabelsD* node : {source.owner, target.owner}) {
        tellMembers(form_, *node);
    }
}

void ConnectByName::drawEdge(const LabelsD& from, const LabelsD& to) {
    if (feeds(form_, from, to)) {
        return;
    }
    // Where data goes out of an activity, and where it comes in.
    const std::int16_t fromGrab = from.activity() ? 4 : 3;
    form_.Lines.addFullLine(from.Index(), fromGrab, to.Index(), 1, canvas::EdgeTypeProvider, canvas::AngleStraight, 0);
}

}  // namespace orvent::editors
