#include "links/canvas_links.h"

#include <variant>

#include "links/edge_links.h"
#include "links/unsynchronize_functions.h"

namespace orvent::links {

using namespace entities;

namespace {

/// One overload for each kind of entity that has links, clearing its own links too.
struct Release {
    canvas::Canvas& form;

    void operator()(ActivityProperties& activity) const { UnSynchronizeActivity(form, activity, true, nullptr); }
    void operator()(RecordSetProperties& recordSet) const { UnSynchronizeRecordSet(form, recordSet, true, nullptr); }
    void operator()(AttributeProperties& attribute) const { UnSynchronizeAttribute(form, attribute, true, nullptr); }
    void operator()(ParameterProperties& parameter) const { UnSynchronizeParameter(form, parameter, true, nullptr); }
    void operator()(FunctionProperties& function) const { UnSynchronizeFunction(form, function, true, nullptr); }
};

}  // namespace

canvas::EdgeLinks CanvasLinks::linksBehind(const canvas::Canvas& canvas, const canvas::LinesD& edge) const {
    const std::vector<EdgeNames> links = links::linksBehind(canvas, edge);
    return {static_cast<int>(links.size()), linkWords(links)};
}

void CanvasLinks::unsynchronise(canvas::Canvas& canvas, canvas::LabelsD& node) {
    std::visit(
        [&](auto& held) {
            if constexpr (requires { Release{canvas}(*held); }) {
                if (held) {
                    Release{canvas}(*held);
                }
            }
        },
        node.Properties);
}

}  // namespace orvent::links
