#include "exchange/extract.h"

namespace orvent::exchange {

Extract Extract::all(const canvas::DrawForm& form) {
    Extract extract{form.ScenarioName(), {}, {}, &form.facts, form.KeepDuplicates, {}};
    for (const canvas::LabelsD& node : form.Labels) {
        extract.nodes.push_back(&node);
    }
    for (const canvas::LinesD& edge : form.Lines) {
        extract.edges.push_back(&edge);
    }
    return extract;
}

}  // namespace orvent::exchange
