#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "canvas/canvas.h"
#include "platform/dialogs.h"

namespace orvent::analysis {

/// The columns of every table of metrics, in their order. `Trans` counts what lies beyond the direct neighbours.
enum MetricsColumn : std::size_t {
    Local_IN,
    Local_OUT,
    Local_DEGREE,
    Trans_IN,
    Trans_OUT,
    Trans_DEGREE,
    Total_IN,
    Total_OUT,
    Total_DEGREE,
    kMetricsColumns,
};

/// The heads of the columns.
inline constexpr std::array<const char*, kMetricsColumns> kMetricsHeads = {"Local_IN", "Local_OUT", "Local_DEGREE",
                                                                           "Trans_IN", "Trans_OUT", "Trans_DEGREE",
                                                                           "Total_IN", "Total_OUT", "Total_DEGREE"};

/// What a cell of the sum and average rows shows before there is a number.
inline constexpr const char* kNoMetric = "-----";

/// One attribute or one node with its numbers.
struct MetricsRow {
    std::string name;
    canvas::NodeNumber node{};  ///< `Index` of the node that shows it or owns it
    std::array<std::int32_t, kMetricsColumns> values = {};
};

/// The tables that are filled: inputs, record set attributes or nodes in the first, outputs in the second.
struct MetricsViews {
    std::vector<MetricsRow> InpMetrView;
    std::vector<MetricsRow> OutMetrView;
    std::array<std::string, kMetricsColumns> SumView;
    std::array<std::string, kMetricsColumns> AvgView;
    std::int64_t beyond = 0;  ///< the number farthest from 0 that does not fit in 16 bits, 0 for none

    MetricsViews() { clear(); }
    void clear();
};

/// Counts how strongly things depend on each other: direct neighbours, and what is reached by walks along the links of
/// attributes or the edges of nodes that visit at most `TransDepth` of them. Nothing of the scenario changes.
class MetricsFunctions {
  public:
    /// The views are filled anew by each call. `progress` shows how far a long count is, unless it is to be quiet.
    MetricsFunctions(MetricsViews& views, std::int16_t TransDepth, platform::Progress* progress = nullptr)
        : views_(views), depth_(TransDepth), progress_(progress) {}

    /// A row for each attribute of a record set, or for each input and output of an activity.
    void EntityMetrics(const canvas::Canvas& form, const canvas::LabelsD& node);

    /// A row for each node of a scenario. Direct neighbours count along provider edges, walks along all edges.
    void ScenarioMetrics(const canvas::Canvas& form);

    /// The rows alone, behind those that stand.
    void addNodeRows(const canvas::Canvas& form);

  private:
    class AttributeRows;

    static void RecordSetMetrics(AttributeRows& rows, const entities::RecordSetProperties& recordSet,
                                 MetricsViews& views);
    static void ActivityMetrics(AttributeRows& rows, const entities::ActivityProperties& activity, MetricsViews& views);
    void SumsAndAverages();

    MetricsViews& views_;
    std::int16_t depth_;
    platform::Progress* progress_;
};

/// The text of a cell: a filler before a value of one digit.
std::string PadColumns(const std::string& value);

}  // namespace orvent::analysis
