#pragma once

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>

#include "canvas/canvas.h"
#include "entities/attributes.h"
#include "entities/key_grammar.h"
#include "entities/link_types.h"

namespace orvent::testkit {

/// The walks of the metrics step by step, with nothing known in advance: each call gives a result of its own, which its
/// caller adds to its own.
struct PlainWalk {
    using Texts = std::set<std::string>;

    const canvas::Canvas& form;
    bool in;
    std::int32_t budget;

    Texts nodes(const canvas::LabelsD& node) {
        Texts found;
        if (budget <= 0) {
            return found;
        }
        --budget;
        for (const canvas::EdgeNumber number : in ? node.EndingLines() : node.StartingLines()) {
            const canvas::LinesD& edge = *form.Lines.byIndex(number);
            const canvas::LabelsD& far = *form.Labels.byIndex(in ? edge.FromLabel() : edge.ToLabel());
            found.insert(far.Caption());
            found.merge(nodes(far));
        }
        return found;
    }

    Texts attribute(const entities::AttributeProperties* each) {
        Texts found;
        if (budget <= 0 || !each) {
            return found;
        }
        --budget;
        auto& links = in ? each->ProvidedFrom : each->ProviderFor;
        for (const auto& link : links) {
            found.insert(link.Provider_Name + link.Provider_Key());
        }
        const auto regulated = [&](const auto& list, auto&& counts) {
            for (const auto& link : list) {
                if (counts(link.Regulator_type)) {
                    found.insert(link.Regulator_name + link.Regulator_Key());
                    found.merge(attribute(named(link.Regulator_name, link.Regulator_Key())));
                }
            }
        };
        if (in && each->NodeKind == entities::KindOutput) {
            for (const auto& link : each->RegulatedFrom) {
                if (link.Regulator_type == entities::LinkParameterOutput) {
                    regulated(parameter(link)->RegulatedFrom, isAttribute);
                }
            }
        } else if (!in && each->NodeKind != entities::KindOutput) {
            for (const auto& link : each->RegulatorFor) {
                if (isAttribute(link.Regulator_type)) {
                    regulated(parameter(link)->RegulatorFor,
                              [](entities::LinkType type) { return type == entities::LinkParameterOutput; });
                }
            }
        }
        for (const auto& link : links) {
            found.merge(attribute(named(link.Provider_Name, link.Provider_Key())));
        }
        return found;
    }

    const entities::AttributeProperties* named(const std::string& owner, const std::string& key) const {
        const canvas::LabelsD* node = form.nodeNamed(owner);
        if (node && node->recordSet()) {
            return node->recordSet()->RecordSet_Outputs.peek()->Item(entities::AfterFirstDot(key));
        }
        if (!node || !node->activity()) {
            return nullptr;
        }
        const entities::ActivityProperties& activity = *node->activity();
        return key.find(".IN.") != std::string::npos ? activity.Act_Inputs.peek()->Item(entities::AfterSecondDot(key))
                                                     : activity.Act_Outputs.peek()->Item(entities::AfterSecondDot(key));
    }

  private:
    static bool isAttribute(entities::LinkType type) {
        return type == entities::LinkInput || type == entities::LinkActivityInput || type == entities::LinkRecordSet;
    }

    const entities::ParameterProperties* parameter(const entities::RegulatorProperties& link) const {
        const entities::ActivityProperties& activity = *form.nodeNamed(link.Regulator_name)->activity();
        return activity.Act_Parameters.peek()->Item(entities::AfterSecondDot(link.Regulator_Key()));
    }
};

}  // namespace orvent::testkit
