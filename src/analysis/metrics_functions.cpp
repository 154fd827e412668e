#include "analysis/metrics_functions.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <limits>
#include <memory>
#include <string_view>
#include <unordered_map>

#include "analysis/attribute_walks.h"
#include "analysis/budgeted_walk.h"
#include "entities/members.h"
#include "platform/steps.h"

namespace orvent::analysis {

using canvas::LabelsD;
using canvas::LinesD;

namespace {

/// The one farther from 0, if it is beyond 16 bits.
std::int64_t beyondOf(std::int64_t former, std::int64_t value) {
    const bool fits =
        value >= std::numeric_limits<std::int16_t>::min() && value <= std::numeric_limits<std::int16_t>::max();
    return !fits && std::abs(value) > std::abs(former) ? value : former;
}

/// What is counted; the other columns follow from it.
struct Counts {
    std::int64_t localIn, localOut, totalIn, totalOut;
};

MetricsRow rowOf(const std::string& name, canvas::NodeNumber node, const Counts& counts) {
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
        row.values[column] = static_cast<std::int32_t>(values[column]);
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

/// The nodes and edges of a scenario by their numbers, with no more than walks and counts ask for. They are gathered
/// once, for the records lie far apart.
class NodeLinks {
  public:
    explicit NodeLinks(const canvas::Canvas& form)
        : form_(form),
          ends_(static_cast<std::size_t>(form.LabelsNo) + 1),
          edges_(static_cast<std::size_t>(form.LinesNo) + 1) {
        std::unordered_map<std::string_view, std::int32_t> texts;
        std::int32_t vertex = 0;
        for (const LabelsD& node : form.Labels) {
            const std::int32_t text =
                texts.try_emplace(node.Caption(), static_cast<std::int32_t>(texts.size())).first->second;
            ends_[static_cast<std::size_t>(node.Index())] = {text, vertex++};
        }
        for (const LinesD& edge : form.Lines) {
            edges_[static_cast<std::size_t>(edge.Index())] = {edge.FromLabel(), edge.ToLabel(),
                                                              edge.EdgeType() == canvas::EdgeTypeProvider};
        }
    }

    /// What walks meet in one direction.
    WalkGraph graph(bool incoming) const {
        WalkGraph graph;
        for (const LabelsD& node : form_.Labels) {
            graph.begin();
            for (const canvas::EdgeNumber number : incoming ? node.EndingLines() : node.StartingLines()) {
                const Edge& edge = edges_[static_cast<std::size_t>(number)];
                const WalkGraph::Step& end = ends_[static_cast<std::size_t>(incoming ? edge.from : edge.to)];
                if (end.target != WalkGraph::kNone) {
                    graph.add(end.text, end.target);
                }
            }
        }
        return graph;
    }

    std::int64_t providerEdges(const canvas::LineNumbers& lines) const {
        return std::count_if(lines.begin(), lines.end(), [this](canvas::EdgeNumber number) {
            return edges_[static_cast<std::size_t>(number)].isProvider;
        });
    }

  private:
    struct Edge {
        canvas::NodeNumber from{}, to{};
        bool isProvider = false;
    };

    const canvas::Canvas& form_;
    std::vector<WalkGraph::Step> ends_;  ///< by `Index`
    std::vector<Edge> edges_;            ///< by `Index`
};

/// Busy, and how far a long count is.
struct Counting {
    Counting(platform::Progress& progress, std::size_t total) : busy(progress), steps(progress, total) {}

    platform::Busy busy;
    platform::Steps steps;
};

/// Nothing for a count that is to be quiet.
std::unique_ptr<Counting> begin(platform::Progress* progress, std::size_t total) {
    return progress ? std::make_unique<Counting>(*progress, total) : nullptr;
}

void next(const std::unique_ptr<Counting>& counting) {
    if (counting) {
        counting->steps.next();
    }
}

}  // namespace

void MetricsViews::clear() {
    InpMetrView.clear();
    OutMetrView.clear();
    SumView.fill(kNoMetric);
    AvgView.fill(kNoMetric);
    beyond = 0;
}

/// Counts the attributes of one node, in both directions.
class MetricsFunctions::AttributeRows {
  public:
    AttributeRows(const canvas::Canvas& form, const LabelsD& node, std::int16_t depth, platform::Progress* progress)
        : in_(form, AttributeWalks::Direction::In),
          out_(form, AttributeWalks::Direction::Out),
          node_(node.Index()),
          depth_(depth),
          progress_(progress) {}

    /// A row for each of the attributes, at the end of the view.
    template <class Attributes>
    void add(const Attributes& attributes, std::vector<MetricsRow>& view) {
        for (const entities::AttributeProperties& attribute : attributes) {
            in_.include(attribute);
            out_.include(attribute);
        }
        const auto counting = begin(progress_, static_cast<std::size_t>(attributes.count()));
        for (const entities::AttributeProperties& attribute : attributes) {
            next(counting);
            view.push_back(rowOf(attribute.Attribute_Name, node_,
                                 {in_.local(attribute), out_.local(attribute), in_.count(attribute, depth_),
                                  out_.count(attribute, depth_)}));
        }
    }

  private:
    AttributeWalks in_, out_;
    canvas::NodeNumber node_;
    std::int16_t depth_;
    platform::Progress* progress_;
};

void MetricsFunctions::EntityMetrics(const canvas::Canvas& form, const LabelsD& node) {
    views_.clear();
    AttributeRows rows(form, node, depth_, progress_);
    if (const auto* recordSet = node.recordSet()) {
        RecordSetMetrics(rows, *recordSet, views_);
    } else if (const auto* activity = node.activity()) {
        ActivityMetrics(rows, *activity, views_);
    }
    SumsAndAverages();
}

void MetricsFunctions::RecordSetMetrics(AttributeRows& rows, const entities::RecordSetProperties& recordSet,
                                        MetricsViews& views) {
    rows.add(recordSet.RecordSet_Outputs, views.InpMetrView);
}

void MetricsFunctions::ActivityMetrics(AttributeRows& rows, const entities::ActivityProperties& activity,
                                       MetricsViews& views) {
    eachList(activity, [&](const auto& list, entities::NodeKindCode kind) {
        if constexpr (requires { (*list.begin()).ProvidedFrom; }) {
            rows.add(list, kind == entities::KindInput ? views.InpMetrView : views.OutMetrView);
        }
    });
}

void MetricsFunctions::ScenarioMetrics(const canvas::Canvas& form) {
    views_.clear();
    addNodeRows(form);
    SumsAndAverages();
}

void MetricsFunctions::addNodeRows(const canvas::Canvas& form) {
    const auto nodes = static_cast<std::size_t>(form.Labels.Count());
    const auto counting = begin(progress_, 2 * nodes);
    const NodeLinks links(form);
    // One direction after the other: the tables for it are gone before those of the next are made.
    std::array<std::vector<std::int32_t>, 2> totals;
    for (const bool incoming : {true, false}) {
        const WalkGraph graph = links.graph(incoming);
        BudgetedWalk walk(graph);
        std::vector<std::int32_t>& total = totals[incoming ? 0 : 1];
        while (total.size() < nodes) {
            next(counting);
            total.push_back(walk.count(total.size(), depth_));
        }
    }
    views_.InpMetrView.reserve(nodes);
    for (const LabelsD& node : form.Labels) {
        const std::size_t vertex = views_.InpMetrView.size();
        views_.InpMetrView.push_back(
            rowOf(node.Caption(), node.Index(),
                  {links.providerEdges(node.EndingLines()), links.providerEdges(node.StartingLines()),
                   totals[0][vertex], totals[1][vertex]}));
    }
}

void MetricsFunctions::SumsAndAverages() {
    const std::size_t rows = views_.InpMetrView.size() + views_.OutMetrView.size();
    for (std::size_t column = 0; column < kMetricsColumns; ++column) {
        std::int64_t sum = 0;
        for (const auto* view : {&views_.InpMetrView, &views_.OutMetrView}) {
            for (const MetricsRow& row : *view) {
                sum += row.values[column];
                views_.beyond = beyondOf(views_.beyond, row.values[column]);
            }
        }
        views_.beyond = beyondOf(views_.beyond, sum);
        views_.SumView[column] = std::to_string(sum);
        if (rows > 0) {
            views_.AvgView[column] = average(sum, rows);
        }
    }
}

std::string PadColumns(const std::string& value) {
    return value.size() == 1 ? " " + value : value;
}

}  // namespace orvent::analysis
