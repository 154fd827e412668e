#pragma once

#include <string>

#include "analysis/metrics_functions.h"

namespace orvent::analysis {

/// Heads of the name column.
inline constexpr const char* kAttributeNameHead = "ATTRIBUTE NAME";
inline constexpr const char* kNodeNameHead = "ENTITY NAME";

/// Both views with their heads, sums and averages: cells behind one another with `separator` between them. A name that
/// holds one, a quotation mark or a line end stands in quotation marks.
std::string metricsText(const MetricsViews& views, const std::string& nameHead, char separator);

}  // namespace orvent::analysis
