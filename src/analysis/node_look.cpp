#include "analysis/node_look.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "canvas/owners.h"
#include "links/check_consistency.h"
#include "links/far_end.h"
#include "links/members.h"

namespace orvent::analysis {

using namespace entities;
using canvas::LabelsD;

namespace {

template <class Item>
void sortOnce(std::vector<Item>& items) {
    std::sort(items.begin(), items.end());
    items.erase(std::unique(items.begin(), items.end()), items.end());
}

void mix(std::size_t& sum, std::size_t value) {
    constexpr std::size_t kOdd = 0x9e3779b97f4a7c15U;
    sum = (sum ^ value) * kOdd + (sum >> 7U);
}

/// One look at a node.
class NodeLooker {
  public:
    NodeLooker(const canvas::DrawForm& form, const LabelsD& node, const ProblemSources& sources)
        : form_(form), node_(node), sources_(sources) {}

    NodeLook look() {
        look_.name = node_.KeyName();
        mix(look_.face, std::hash<std::string>()(look_.name));
        mix(look_.face, static_cast<std::size_t>(node_.NodeType()));
        if (const ActivityProperties* activity = node_.activity()) {
            lookAtActivity(*activity);
        } else if (const RecordSetProperties* recordSet = node_.recordSet()) {
            lookAtRecordSet(*recordSet);
        } else {
            return std::move(look_);
        }
        look_.inFlow = true;
        lookAtEdges();
        sortOnce(look_.names);
        sortOnce(look_.feeders);
        sortOnce(look_.activityFeeders);
        std::stable_sort(look_.rows.begin(), look_.rows.end(),
                         [](const Problem& a, const Problem& b) { return a.kind < b.kind; });
        return std::move(look_);
    }

  private:
    void add(ProblemKind kind, std::string words, const std::string& member = {}) {
        look_.rows.push_back({kind, node_.Index(), member, std::move(words)});
    }

    void lookAtActivity(const ActivityProperties& activity) {
        look_.isSource = activity.Act_Inputs.count() == 0;
        if (activity.Act_Type == -1) {
            add(ProblemKind::noType, "It has no type.");
        } else {
            if (!node_.Ready()) {
                add(ProblemKind::notReady, "It is not ready.");
            }
            checkType(sources_.tables.activityTypes, activity.Act_Type, "activity", {});
        }
        if (const auto fault = sources_.statements.faultOf(activity)) {
            add(fault->kind, fault->words);
        }
        lookAtProgram();
        lookAtMembers(activity);
        for (const FunctionProperties& function : activity.Act_Functions) {
            checkType(sources_.tables.functionTypes, function.Function_Type, "function", function.Function_Name);
            if (function.Function_Inputs.count() == 0) {
                add(ProblemKind::noInputs, "Function " + function.Function_Name + " has no inputs.",
                    function.Function_Name);
            }
            eachList(function, [&](const auto& list, NodeKindCode kind) { lookAtList(list, kind); });
        }
    }

    void lookAtRecordSet(const RecordSetProperties& recordSet) {
        look_.isSource = true;
        if (!node_.Ready()) {
            add(ProblemKind::notReady,
                recordSet.RecordSet_Outputs.count() == 0 ? "It has no columns." : "It is not ready.");
        }
        lookAtProgram();
        lookAtMembers(recordSet);
    }

    void lookAtProgram() {
        StatementCheck::ProgramLook program = sources_.statements.programOf(form_, node_);
        for (StatementCheck::Fault& fault : program.faults) {
            add(fault.kind, std::move(fault.words));
        }
        for (const std::string& name : program.reads) {
            const canvas::NodeNumber from = meet(name);
            const LabelsD* node = form_.Labels.byIndex(from);
            if (node && node->activity()) {
                look_.activityFeeders.push_back(from);
            }
        }
        look_.names.insert(look_.names.end(), program.asked.begin(), program.asked.end());
        look_.needs = std::move(program.needs);
    }

    template <class Owner>
    void lookAtMembers(const Owner& owner) {
        eachList(owner, [&](const auto& list, NodeKindCode kind) { lookAtList(list, kind); });
    }

    template <class List>
    void lookAtList(const List& list, NodeKindCode kind) {
        const bool seenByOthers = kind == KindOutput || kind == KindRecordSetAttribute;
        for (const auto& member : list) {
            const std::string& name = links::nameOf(member);
            checkType(sources_.tables.dataTypes, links::typeOf(member), "data", name);
            if (seenByOthers) {
                mix(look_.face, std::hash<std::string>()(links::keyOf(member)));
                mix(look_.face, static_cast<std::size_t>(links::typeOf(member)));
            }
            if constexpr (requires { member.ProvidedFrom; }) {
                lookAtAttribute(member, kind);
            } else {
                lookAtParameter(member, kind);
            }
            for (const RegulatorProperties& link : member.RegulatedFrom) {
                meet(link.Regulator_name);
            }
        }
    }

    void lookAtAttribute(const AttributeProperties& attribute, NodeKindCode kind) {
        bool fed = false;
        for (const ProviderProperties& link : attribute.ProvidedFrom) {
            const bool own = kind == KindOutput;  // those have their values from their own activity
            if (!own) {
                const canvas::NodeNumber from = meet(link.Provider_Name);
                if (from != canvas::kNoNode && kind == KindInput && link.Provider_Type == LinkActivity) {
                    look_.activityFeeders.push_back(from);
                    look_.linked.push_back(from);
                }
            }
            const links::FarEndView far =
                links::findFarEnd(form_, links::Direction::ProvidedFrom, links::NearEnd(attribute),
                                  {link.name(), link.type(), link.key()}, nullptr);
            if (far.attribute) {
                fed = true;
                compareTypes(*far.attribute, attribute, own);
            }
        }
        if (kind == KindInput && !fed) {
            add(ProblemKind::noProvider, "No provider feeds input " + attribute.Attribute_Name + ".",
                attribute.Attribute_Name);
        }
        if (kind == KindOutput && attribute.ProviderFor.count() == 0 && attribute.RegulatorFor.count() == 0) {
            add(ProblemKind::unread, "Nobody reads output " + attribute.Attribute_Name + ".", attribute.Attribute_Name);
        }
    }

    void lookAtParameter(const ParameterProperties& parameter, NodeKindCode kind) {
        const bool asked = kind == KindFunctionInput || (kind == KindParameter && parameter.Tag == TagTypeParameter);
        if (asked && parameter.RegulatedFrom.count() == 0) {
            add(ProblemKind::noRegulator,
                (kind == KindParameter ? "Parameter " : "Input " + parameter.ParentKeyName + ".") +
                    parameter.Parameter_Name + " has no regulator.",
                parameter.Parameter_Name);
        }
    }

    void compareTypes(const AttributeProperties& provider, const AttributeProperties& consumer, bool own) {
        if (provider.Attribute_Type == consumer.Attribute_Type) {
            return;
        }
        const NameTable& types = sources_.tables.dataTypes;
        const std::string from = types.shown(provider.Attribute_Type);
        const std::string to = types.shown(consumer.Attribute_Type);
        if (from != kDefinedBySource && to != kDefinedBySource) {
            add(ProblemKind::otherType,
                (own ? "" : provider.ParentKeyName + ".") + provider.Attribute_Name + " is " + from + ", " +
                    consumer.Attribute_Name + " is " + to + ".",
                consumer.Attribute_Name);
        }
    }

    void checkType(const NameTable& types, std::int16_t type, const char* what, const std::string& member) {
        const bool none = type < 0 || static_cast<std::size_t>(type) >= types.size();
        if (none || (types.isGone(type) && !types.name(type).empty())) {
            add(ProblemKind::goneType,
                none ? "Its " + std::string(what) + " type is none of the catalogue."
                     : "The " + std::string(what) + " type " + types.name(type) + " is gone.",
                member);
        }
    }

    /// A link names that node. Gives its number, -1 when there is none.
    canvas::NodeNumber meet(const std::string& name) {
        if (look_.names.empty() || look_.names.back() != name) {
            look_.names.push_back(name);
        }
        const canvas::NodeNumber from = form_.NamesColl.Item(name);
        if (from != canvas::kNoNode && from != node_.Index()) {
            look_.feeders.push_back(from);
        }
        return from;
    }

    void lookAtEdges() {
        std::vector<const LabelsD*> missing = links::edgeStarts(form_, node_);
        for (const canvas::EdgeNumber number : node_.EndingLines()) {
            const canvas::LinesD* edge = form_.Lines.byIndex(number);
            if (!edge || edge->EdgeType() != canvas::EdgeTypeProvider) {
                continue;
            }
            const LabelsD* from = form_.Labels.byIndex(edge->FromLabel());
            const auto place = std::find(missing.begin(), missing.end(), from);
            if (place != missing.end()) {
                missing.erase(place);
            } else {
                add(ProblemKind::noLinks, "No attribute is provided along the edge " + edgeFrom(from) + ".");
            }
            if (from && from != &node_) {
                look_.feeders.push_back(from->Index());
            }
        }
        for (const LabelsD* from : missing) {
            add(ProblemKind::noEdge, "Attributes are provided, but no edge is drawn: " + edgeFrom(from) + ".");
        }
    }

    std::string edgeFrom(const LabelsD* from) const {
        return links::edgeWords({from ? from->Caption() : std::string(), node_.Caption()});
    }

    const canvas::DrawForm& form_;
    const LabelsD& node_;
    const ProblemSources& sources_;
    NodeLook look_;
};

}  // namespace

NodeLook lookAt(const canvas::DrawForm& form, const LabelsD& node, const ProblemSources& sources) {
    return NodeLooker(form, node, sources).look();
}

}  // namespace orvent::analysis
