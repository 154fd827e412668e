#include "editors/insert_between.h"

#include "canvas/owners.h"
#include "editors/taken_columns.h"
#include "entities/key_grammar.h"
#include "links/kept_mirrors.h"
#include "links/synchronize_functions.h"

namespace orvent::editors {

using namespace entities;
using canvas::LabelsD;

namespace {

// Grab points of an activity: where data comes in, and where it goes out.
constexpr std::int16_t kDataIn = 1, kDataOut = 4;

/// Whether a value of the source governs something of the target, which only record sets do. No activity hands that on.
bool regulates(const LabelsD& source, const LabelsD& target) {
    bool found = false;
    canvas::withOwner(target, [&](const auto& owner) {
        eachListDeep(owner, [&](const auto& members, NodeKindCode) {
            for (const auto& member : members) {
                for (const RegulatorProperties& link : member.RegulatedFrom) {
                    found = found || link.Regulator_name == source.KeyName();
                }
            }
        });
    });
    return found;
}

bool hasControlEdge(const canvas::Canvas& form, const LabelsD& from, const LabelsD& to) {
    for (const canvas::EdgeNumber number : from.StartingLines()) {
        const canvas::LinesD* edge = form.Lines.byIndex(number);
        if (edge && edge->ToLabel() == to.Index() && edge->ToGrabbingPoint() == kControlPoint) {
            return true;
        }
    }
    return false;
}

/// One pair of nodes between which an activity comes.
class Between {
  public:
    Between(canvas::DrawForm& form, LabelsD& source, LabelsD& target, LabelsD& activity, bool shortNames)
        : form_(form), source_(source), target_(target), activity_(activity), shortNames_(shortNames) {}

    void moveLinks() {
        auto& members = *canvas::listOf<AttributeProperties>(target_, readBy());
        for (AttributeProperties& member : members) {
            for (int at = 1; at <= member.ProvidedFrom.count(); ++at) {
                const ProviderProperties& link = *member.ProvidedFrom->Item(at);
                if (AttributeProperties* column = link.name() == source_.KeyName() ? columnOf(link) : nullptr) {
                    moveLink(member, at, *column);
                }
            }
        }
        if (ActivityProperties* activity = target_.activity()) {
            activity->Act_Inputs->Changed = true;
        }
    }

  private:
    NodeKindCode readBy() const { return target_.activity() ? KindInput : KindRecordSetAttribute; }

    AttributeProperties* columnOf(const ProviderProperties& link) {
        auto* columns =
            canvas::listOf<AttributeProperties>(source_, source_.activity() ? KindOutput : KindRecordSetAttribute);
        for (AttributeProperties& column : *columns) {
            if (keyAt(source_, column) == link.key()) {
                return &column;
            }
        }
        return nullptr;
    }

    /// The member's link leads to the activity from now on, in its place; at the source the activity stands where the
    /// first of those stood that read it there.
    void moveLink(AttributeProperties& member, int at, AttributeProperties& column) {
        ProviderLinks& readers = *column.ProviderFor;
        const std::string mirror = wholeKey(target_.KeyName(), readBy(), member.Key);
        const int place = readers.positionOf(mirror);
        const int known = readers.Count();
        const std::string key = takeInput(form_, activity_, source_, column, shortNames_);
        if (place > 0) {
            if (readers.Count() > known) {
                readers.move(readers.Count(), place);
            }
            readers.Remove(mirror);
        }
        column.Changed = true;

        ProviderProperties& link = *member.ProvidedFrom->Item(at);
        links::setName(link, activity_.KeyName());
        if (target_.activity()) {
            link.Provider_Type = LinkActivity;
        }
        member.ProvidedFrom->rekey(std::string(link.key()), wholeKey(activity_.KeyName(), KindOutput, key));
        if (member.Tag == TagRecordSet && target_.activity()) {
            member.Tag = tagOf(member.ProvidedFrom->Item(1)->type());
        }
        member.Changed = true;
        links::SynchronizeAttribute(form_, member, nullptr);
    }

    canvas::DrawForm& form_;
    LabelsD& source_;
    LabelsD& target_;
    LabelsD& activity_;
    bool shortNames_;
};

}  // namespace

std::string whyNotBetween(const canvas::DrawForm& form, const canvas::LinesD& edge) {
    const LabelsD* from = form.Labels.byIndex(edge.FromLabel());
    const LabelsD* to = form.Labels.byIndex(edge.ToLabel());
    if (edge.EdgeType() != canvas::EdgeTypeProvider || !from || !to) {
        return "No data flows along this edge.";
    }
    if (from == to) {
        return from->Caption() + " feeds itself here.";
    }
    if (to->activity() && edge.ToGrabbingPoint() == kControlPoint) {
        return "This edge carries control, and no data.";
    }
    if (from->recordSet() && to->recordSet()) {
        return "No links lead from one record set to another.";
    }
    return {};
}

void insertBetween(canvas::DrawForm& form, canvas::LinesD& edge, LabelsD& activity, bool shortNames) {
    LabelsD& from = *form.Labels.byIndex(edge.FromLabel());
    LabelsD& to = *form.Labels.byIndex(edge.ToLabel());
    const std::int16_t leaves = edge.FromGrabbingPoint();
    Between(form, from, to, activity, shortNames).moveLinks();
    edge.attach(canvas::EdgeEnd::start, activity, kDataOut);
    form.Lines.addFullLine(from.Index(), leaves, activity.Index(), kDataIn, canvas::EdgeTypeProvider, edge.Angle(), 0);
    if (regulates(from, to) && !hasControlEdge(form, from, to)) {
        form.Lines.addFullLine(from.Index(), leaves, to.Index(), kControlPoint, canvas::EdgeTypeProvider, edge.Angle(),
                               0);
    }
    for (const LabelsD* node : {&from, &to, &activity}) {
        tellMembers(form, *node);
    }
}

}  // namespace orvent::editors
