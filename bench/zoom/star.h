#pragma once

#include <algorithm>
#include <string>

#include "canvas/draw_form.h"
#include "entities/key_grammar.h"
#include "entities/link_types.h"

namespace orvent::bench {

/// Adds the activity STAR with 25 record sets that feed it and 25 that it writes: a sixth of `subNodes` are its own
/// members (inputs, outputs and parameters M1, M2, ...), the others attributes of its neighbours. All are linked as the
/// flow asks for. Gives the `Index` of STAR.
inline canvas::NodeNumber buildStar(canvas::DrawForm& form, int subNodes) {
    using namespace entities;
    constexpr int kNeighbours = 25;  // on either side
    const int members = subNodes / 6 / 5 * 2, parameters = subNodes / 6 - 2 * members;
    const int attributes = (subNodes - subNodes / 6) / (2 * kNeighbours);
    canvas::LabelsD& star = form.Labels.Add({0, 0, 1050, 450}, "STAR", canvas::NodeTypeActivity);
    ActivityProperties& activity = *star.activity();
    const auto name = [](int number) { return "M" + std::to_string(number); };
    for (int at = 1; at <= members; ++at) {
        activity.Act_Inputs->Add(name(at), 0, tagOf(LinkRecordSet), name(at)).ParentKeyName = "STAR";
        auto& output = activity.Act_Outputs->Add(name(at), 0, entities::TagNone, name(at));
        output.ParentKeyName = "STAR";
        output.ProvidedFrom->Add("STAR", LinkInput, relativeKey(KindInput, name(at)));
        activity.Act_Inputs->Item(at)->ProviderFor->Add("STAR", LinkInput, relativeKey(KindOutput, name(at)));
    }
    for (int at = 1; at <= parameters; ++at) {
        activity.Act_Parameters->Add(name(at), 0, tagOf(LinkTypeParameter), name(at)).ParentKeyName = "STAR";
    }
    for (int side = 0; side < 2; ++side) {
        for (int at = 0; at < kNeighbours; ++at) {
            const std::string owner = (side == 0 ? "FEED" : "SINK") + std::to_string(at);
            canvas::LabelsD& node = form.Labels.Add({0, 0, 1050, 450}, owner, canvas::NodeTypeRecordSet);
            for (int number = 1; number <= attributes; ++number) {
                AttributeProperties& attribute =
                    node.recordSet()->RecordSet_Outputs->Add(name(number), 0, name(number));
                attribute.ParentKeyName = owner;
                attribute.NodeKind = KindRecordSetAttribute;
                const int member = at * attributes + number;
                if (member > members) {
                    continue;
                }
                const std::string key = wholeKey(owner, KindRecordSetAttribute, name(number));
                if (side == 0) {
                    attribute.ProviderFor->Add("STAR", LinkRecordSet, wholeKey("STAR", KindInput, name(member)));
                    activity.Act_Inputs->Item(member)->ProvidedFrom->Add(owner, LinkRecordSet, key);
                } else {
                    attribute.ProvidedFrom->Add("STAR", LinkRecordSet, wholeKey("STAR", KindOutput, name(member)));
                    activity.Act_Outputs->Item(member)->ProviderFor->Add(owner, LinkRecordSet, key);
                }
            }
            form.Lines.addFullLine(side == 0 ? node.Index() : star.Index(), 4, side == 0 ? star.Index() : node.Index(),
                                   1, canvas::EdgeTypeProvider, canvas::AngleStraight, 0);
        }
    }
    return star.Index();
}

}  // namespace orvent::bench
