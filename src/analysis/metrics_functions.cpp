#include "analysis/metrics_functions.h"

#include <charconv>
#include <limits>
#include <map>

#include "analysis/attribute_walks.h"
#include "analysis/budgeted_walk.h"
#include "platform/fault.h"

namespace orvent::analysis {

using canvas::LabelsD;
using canvas::LinesD;

namespace {

std::int16_t checked(std::int64_t value) {
    if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max()) {
        throw platform::Fault("Overflow: " + std::to_string(value) + " is more than a metric can hold.");
    }
    return static_cast<std::int16_t>(value);
}

/// What is counted; the other columns follow from it.
struct Counts {
    std::int64_t localIn, localOut, totalIn, totalOut;
};

MetricsRow rowOf(const std::string& name, std::int32_t node, const Counts& counts) {
    const std::int64_t local = counts.localIn + counts.localOut;
    const std::int64_t total = counts.totalIn + counts.totalOut;
    const std::array<std::int64_t, kMetricsColumns> values = {counts.localIn,
                                                              counts.localOut,
                                                              local,
                                                              counts.totalIn - counts.localIn,
                                                              counts.totalOut - counts.localOut,
                                                              total - local,
                                                              counts.totalIn,
                                                              counts.totalOut,
                                                              total};
    MetricsRow row{name, node};
    for (std::size_t column = 0; column < kMetricsColumns; ++column) {
        row.values[column] = checked(values[column]);
    }
    return row;
}

/// At most two decimals.
std::string average(std::int64_t sum, std::size_t rows) {
    std::array<char, 32> digits;
    const double value = static_cast<double>(sum) / static_cast<double>(rows);
    char* end = std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, 2).ptr;
    std::string text(digits.data(), end);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) {
        text.pop_back();
    }
    return text == "-0" ? "0" : text;
}

/// The edges of a scenario in one direction, as walks meet them.
WalkGraph nodeGraph(const canvas::Canvas& form, bool incoming) {
    std::vector<std::int32_t> vertices(static_cast<std::size_t>(form.LabelsNo) + 1, WalkGraph::kNone);
    std::int32_t next = 0;
    for (const LabelsD& node : form.Labels) {
        vertices[static_cast<std::size_t>(node.Index())] = next++;
    }
    WalkGraph graph;
    for (const LabelsD& node : form.Labels) {
        graph.begin();
        for (const std::int32_t number : incoming ? node.EndingLines() : node.StartingLines()) {
            const LinesD* edge = form.Lines.byIndex(number);
            const LabelsD* far = edge ? form.Labels.byIndex(incoming ? edge->FromLabel() : edge->ToLabel()) : nullptr;
            if (far) {
                graph.add(graph.text(far->Caption()), vertices[static_cast<std::size_t>(far->Index())]);
            }
        }
    }
    return graph;
}

std::int64_t providerEdges(const canvas::Canvas& form, const canvas::LineNumbers& lines) {
    std::int64_t count = 0;
    for (const std::int32_t number : lines) {
        const LinesD* edge = form.Lines.byIndex(number);
        count += edge && edge->EdgeType() == canvas::EdgeTypeProvider ? 1 : 0;
    }
    return count;
}

/// The walks' results of all nodes in one direction; the tables for it are gone afterwards.
std::vector<std::int32_t> nodeClosures(const canvas::Canvas& form, bool incoming, std::int16_t depth) {
    const WalkGraph graph = nodeGraph(form, incoming);
    BudgetedWalk walk(graph);
    std::vector<std::int32_t> counts(graph.vertices());
    for (std::size_t vertex = 0; vertex < counts.size(); ++vertex) {
        counts[vertex] = walk.count(vertex, depth);
    }
    return counts;
}

}  // namespace

void MetricsViews::clear() {
    InpMetrView.clear();
    OutMetrView.clear();
    SumView.fill(kNoMetric);
    AvgView.fill(kNoMetric);
}

void MetricsFunctions::EntityMetrics(const canvas::Canvas& form, const LabelsD& node) {
    views_.clear();
    AttributeWalks in(form, AttributeWalks::Direction::In);
    AttributeWalks out(form, AttributeWalks::Direction::Out);
    const auto addRows = [&](const auto& attributes, std::vector<MetricsRow>& view) {
        for (const entities::AttributeProperties& attribute : attributes) {
            in.include(attribute);
            out.include(attribute);
        }
        for (const entities::AttributeProperties& attribute : attributes) {
            view.push_back(rowOf(attribute.Attribute_Name, node.Index(),
                                 {in.local(attribute), out.local(attribute), in.count(attribute, depth_),
                                  out.count(attribute, depth_)}));
        }
    };
    if (const auto* recordSet = node.recordSet()) {
        addRows(recordSet->RecordSet_Outputs, views_.InpMetrView);
    } else if (const auto* activity = node.activity()) {
        addRows(activity->Act_Inputs, views_.InpMetrView);
        addRows(activity->Act_Outputs, views_.OutMetrView);
    }
    SumsAndAverages();
}

void MetricsFunctions::ScenarioMetrics(const canvas::Canvas& form) {
    views_.clear();
    const std::vector<std::int32_t> totalIn = nodeClosures(form, true, depth_);
    const std::vector<std::int32_t> totalOut = nodeClosures(form, false, depth_);
    std::size_t vertex = 0;
    for (const LabelsD& node : form.Labels) {
        views_.InpMetrView.push_back(
            rowOf(node.Caption(), node.Index(),
                  {providerEdges(form, node.EndingLines()), providerEdges(form, node.StartingLines()), totalIn[vertex],
                   totalOut[vertex]}));
        ++vertex;
    }
    SumsAndAverages();
}

void MetricsFunctions::SumsAndAverages() {
    const std::size_t rows = views_.InpMetrView.size() + views_.OutMetrView.size();
    for (std::size_t column = 0; column < kMetricsColumns; ++column) {
        std::int64_t sum = 0;
        for (const auto* view : {&views_.InpMetrView, &views_.OutMetrView}) {
            for (const MetricsRow& row : *view) {
                sum += row.values[column];
            }
        }
        views_.SumView[column] = std::to_string(checked(sum));
        if (rows > 0) {
            views_.AvgView[column] = average(sum, rows);
        }
    }
}

std::string PadColumns(const std::string& value) {
    return value.size() == 1 ? " " + value : value;
}

}  // namespace orvent::analysis
