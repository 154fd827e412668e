#include "zoom/beyond_view.h"

#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "entities/key_grammar.h"
#include "platform/name_list.h"
#include "zoom/part_of.h"
#include "zoom/rename_node.h"
#include "zoom/waiting_functions.h"

namespace orvent::zoom {

using namespace entities;
using canvas::LabelsD;
using canvas::LinesD;

namespace {

/// A link to an input of a function tells by its key alone whether it comes from a constant.
bool comesFromAMember(LinkType type, const std::string& key) {
    return !key.starts_with('.') && (leadsToAMember(type) || (type == LinkConstantFunction && HasDot(key)));
}

/// The node in whose collapsed list a far end stands; nothing where the view would not show that either if the node
/// were expanded.
const LabelsD* collapsedOwner(const ZoomView& view, const std::string& name, const std::string& key) {
    const LabelsD* owner = view.nodeNamed(name);
    if (!owner || owner->Expanded) {
        return nullptr;
    }
    const ActivityProperties* activity = owner->activity();
    const auto place = activity ? static_cast<ZoomPlace>(activity->ZoomPosition) : ZoomPlace::Central;
    const bool shown = place == ZoomPlace::Providers   ? SecondSegment(key) == "OUT"
                       : place == ZoomPlace::Consumers ? SecondSegment(key) == "IN"
                                                       : true;
    return shown ? owner : nullptr;
}

/// The keys of far ends that have no node, by where they are.
struct Beyond {
    std::vector<std::string> absent;
    std::vector<std::pair<const LabelsD*, std::vector<std::string>>> collapsed;  ///< in which node

    void add(const LabelsD* owner, const std::string& key) {
        if (owner && (collapsed.empty() || collapsed.back().first != owner)) {
            collapsed.push_back({owner, {}});
        }
        (owner ? collapsed.back().second : absent).push_back(key);
    }

    std::string words() const {
        std::string text = absent.empty() ? std::string() : platform::nameList(absent) + ", not in view";
        for (const auto& [owner, keys] : collapsed) {
            text += (text.empty() ? "" : ", and by ") + platform::nameList(keys) + ", collapsed in " + owner->Caption();
        }
        return text;
    }
};

/// Of the links to what stands behind a member, those whose far end has no node.
template <class Links>
void addBeyond(const ZoomView& view, const LabelsD& node, const Links& links, Beyond& beyond) {
    for (const auto& link : links) {
        if (!comesFromAMember(link.type(), link.key())) {
            continue;
        }
        // The number may be one of an earlier view.
        const LinesD* edge = view.Lines.byIndex(link.LineIndex);
        if (!edge || edge->ToLabel() != node.Index()) {
            beyond.add(collapsedOwner(view, link.name(), link.key()), link.key());
        }
    }
}

bool isLostFunction(const ZoomView& view, const LabelsD& node) {
    return node.entity<FunctionProperties>() && standsAlone(view, node) && !awaitedActivity(view, node);
}

bool isLost(const ZoomView& view, const LabelsD& node, const std::unordered_set<std::string>& lostFunctions) {
    if (node.entity<AttributeProperties>()) {
        return standsAlone(view, node);
    }
    const auto* parameter = node.entity<ParameterProperties>();
    if (!parameter) {
        return isLostFunction(view, node);
    }
    if (node.NodeType() != canvas::NodeTypeConstant) {
        return standsAlone(view, node);
    }
    for (const RegulatorProperties& link : parameter->RegulatorFor) {
        if (!lostFunctions.count(link.Regulator_name)) {
            return false;
        }
    }
    return true;  // a constant is nothing but its links
}

}  // namespace

std::string wordsOfBeyond(const ZoomView& view, const LabelsD& node) {
    Beyond beyond;
    const char* verb = "provided by ";
    if (!view.bearsName(node)) {
        return {};
    }
    if (const auto* attribute = node.entity<AttributeProperties>()) {
        if (attribute->NodeKind == KindInput || attribute->NodeKind == KindRecordSetAttribute) {
            addBeyond(view, node, attribute->ProvidedFrom, beyond);
        }
    } else if (const auto* parameter = node.entity<ParameterProperties>()) {
        verb = "regulated by ";
        addBeyond(view, node, parameter->RegulatedFrom, beyond);
    }
    const std::string words = beyond.words();
    return words.empty() ? words : verb + words;
}

const LabelsD* firstCopyOf(const ZoomView& view, const LabelsD& node) {
    if (view.bearsName(node)) {
        return nullptr;
    }
    if (const auto* attribute = node.entity<AttributeProperties>()) {
        return view.nodeNamed(wholeKey(attribute->ParentKeyName, attribute->NodeKind, attribute->Key));
    }
    if (const auto* parameter = node.entity<ParameterProperties>()) {
        return view.nodeNamed(wholeKey(parameter->ParentKeyName, parameter->NodeKind, parameter->Key));
    }
    return view.nodeNamed(ownerNameOf(view, node));
}

std::string wordsOfLost(const ZoomView& view) {
    std::unordered_set<std::string> functions;
    for (const LabelsD& node : view.Labels) {
        if (isLostFunction(view, node)) {
            functions.insert(node.entity<FunctionProperties>()->Function_Key);
        }
    }
    std::vector<std::string> names;
    for (const LabelsD& node : view.Labels) {
        if (isLost(view, node, functions)) {
            names.emplace_back(node.Caption());
        }
    }
    if (names.empty()) {
        return {};
    }
    return names.size() == 1 ? "1 node belongs to nothing and is lost by Yes: " + names.front() + "."
                             : std::to_string(names.size()) +
                                   " nodes belong to nothing and are lost by Yes: " + platform::nameList(names) + ".";
}

}  // namespace orvent::zoom
