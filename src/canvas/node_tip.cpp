#include "canvas/node_tip.h"

#include "canvas/owners.h"

namespace orvent::canvas {

namespace {

void append(std::string& list, std::string_view words) {
    list += list.empty() || words.empty() ? "" : ", ";
    list += words;
}

std::string_view wordOf(entities::NodeKindCode kind) {
    switch (kind) {
        case entities::KindInput:
        case entities::KindFunctionInput:
            return "inputs";
        case entities::KindOutput:
        case entities::KindFunctionOutput:
            return "outputs";
        case entities::KindParameter:
            return "parameters";
        default:
            return "attributes";
    }
}

std::string countsOf(const LabelsD& node) {
    std::string counts;
    withOwner(node, [&counts](const auto& owner) {
        eachList(owner, [&counts](const auto& list, entities::NodeKindCode kind) {
            append(counts, std::string(wordOf(kind)) + ": " + std::to_string(list.count()));
        });
    });
    return counts;
}

}  // namespace

std::string lackOf(const LabelsD& node) {
    const entities::ActivityProperties* activity = node.Ready() ? node.activity() : nullptr;
    std::string lack;
    if (!activity) {
        return lack;
    }
    append(lack, activity->Act_Type < 0 ? "no type" : "");
    bool fed = false;
    for (const entities::AttributeProperties& input : activity->Act_Inputs) {
        if (input.ProvidedFrom.count() > 0) {
            fed = true;
            break;  // it is asked at every painting
        }
    }
    lack += fed ? "" : lack.empty() ? "no source" : " and no source";
    return lack;
}

NodeTip tipOf(const LabelsD& node, std::string_view type) {
    const NodeKind& kind = nodeKind(node.NodeType());
    NodeTip tip{node.ToolTipText().empty() ? std::string(node.shownText()) : node.ToolTipText(),
                std::string(kind.title), countsOf(node), lackOf(node)};
    append(tip.kind, type);
    if (kind.showsReadiness) {
        append(tip.kind, node.Ready() ? "ready" : "not ready");
    }
    return tip;
}

}  // namespace orvent::canvas
