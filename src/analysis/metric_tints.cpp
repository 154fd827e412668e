#include "analysis/metric_tints.h"

#include <algorithm>

namespace orvent::analysis {

namespace {

/// A node whose readiness was never told has the colour of its kind.
bool isShownUnready(const canvas::Canvas& canvas, const canvas::LabelsD& node) {
    const bool selected = canvas.SelectedLabels.Item(node.Index()) != nullptr;
    const std::int32_t plain = selected ? node.Color() ^ canvas.settings().SelColor : node.Color();
    return !node.Ready() && canvas::nodeKind(node.NodeType()).showsReadiness && plain == node.NotReadyColor;
}

}  // namespace

MetricTints::MetricTints(const canvas::DrawForm& form, const std::int16_t& TransDepth)
    : form_(form), depth_(TransDepth) {
    countAnew();
}

void MetricTints::countAnew() {
    places_.assign(static_cast<std::size_t>(form_.LabelsNo) + 1, 0);
    MetricsViews views;
    MetricsFunctions(views, depth_).addNodeRows(form_);
    rows_ = std::move(views.InpMetrView);
    for (std::size_t at = 0; at < rows_.size(); ++at) {
        places_[static_cast<std::size_t>(rows_[at].node)] = at + 1;
    }
    choose(column_);
}

void MetricTints::choose(std::size_t choice) {
    column_ = choice;
    largest_ = 0;
    for (const MetricsRow& row : rows_) {
        largest_ = std::max<int>(largest_, row.values[column_]);
    }
}

std::optional<double> MetricTints::share(const canvas::LabelsD& node) const {
    const auto index = static_cast<std::size_t>(node.Index());
    const std::size_t place = index < places_.size() ? places_[index] : 0;
    if (place == 0 || isShownUnready(form_, node)) {
        return std::nullopt;
    }
    const int value = rows_[place - 1].values[column_];
    return value > 0 ? static_cast<double>(value) / largest_ : 0;
}

std::string MetricTints::range() const {
    return "0 to " + std::to_string(largest_);
}

}  // namespace orvent::analysis
