#include "canvas/node_tip.h"

namespace orvent::canvas {

namespace {

void append(std::string& list, std::string_view words) {
    list += list.empty() || words.empty() ? "" : ", ";
    list += words;
}

std::string countsOf(const LabelsD& node) {
    std::string counts;
    const auto add = [&counts](const char* members, int count) {
        append(counts, std::string(members) + ": " + std::to_string(count));
    };
    if (const auto* activity = node.activity()) {
        add("inputs", activity->Act_Inputs.count());
        add("outputs", activity->Act_Outputs.count());
        add("parameters", activity->Act_Parameters.count());
    } else if (const auto* recordSet = node.recordSet()) {
        add("attributes", recordSet->RecordSet_Outputs.count());
    } else if (const auto* function = node.entity<entities::FunctionProperties>()) {
        add("inputs", function->Function_Inputs.count());
        add("outputs", function->Function_Outputs.count());
    }
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
