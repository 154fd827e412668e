#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "analysis/metrics_functions.h"
#include "canvas/draw_form.h"
#include "canvas/tints.h"

namespace orvent::analysis {

/// The nodes of a scenario in the shades of one column of its metrics. A node that is shown as not ready, or has come
/// since the last count, keeps its colour.
class MetricTints : public canvas::Tints {
  public:
    /// The scenario outlives it, and so does the depth of the run.
    MetricTints(const canvas::DrawForm& form, const std::int16_t& TransDepth);

    std::optional<double> share(const canvas::LabelsD& node) const override;
    std::vector<std::string> choices() const override { return {kMetricsHeads.begin(), kMetricsHeads.end()}; }
    std::size_t chosen() const override { return column_; }
    void choose(std::size_t choice) override;
    void countAnew() override;
    std::string range() const override;

  private:
    const canvas::DrawForm& form_;
    const std::int16_t& depth_;
    std::size_t column_ = Total_DEGREE;
    std::vector<MetricsRow> rows_;
    std::vector<std::size_t> places_;  ///< in `rows_` by `Index` of the node, from 1 on; 0 for none
    int largest_ = 0;
};

}  // namespace orvent::analysis
