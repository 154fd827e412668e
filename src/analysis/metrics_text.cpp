#include "analysis/metrics_text.h"

#include <utility>

namespace orvent::analysis {

std::string metricsText(const MetricsViews& views, const std::string& nameHead, char separator) {
    const auto quoted = [separator](const std::string& words) {
        if (words.find_first_of(std::string("\"\r\n") + separator) == std::string::npos) {
            return words;
        }
        std::string text = "\"";
        for (const char letter : words) {
            text += letter == '"' ? "\"\"" : std::string(1, letter);
        }
        return text + "\"";
    };
    std::string text = quoted(nameHead);
    for (const char* head : kMetricsHeads) {
        text += std::string(1, separator) + head;
    }
    text += "\n";
    for (const auto* view : {&views.InpMetrView, &views.OutMetrView}) {
        for (const MetricsRow& row : *view) {
            text += quoted(row.name);
            for (const std::int32_t value : row.values) {
                text += separator + std::to_string(value);
            }
            text += "\n";
        }
    }
    for (const auto& [name, row] : {std::pair("Sum", &views.SumView), std::pair("Average", &views.AvgView)}) {
        text += name;
        for (const std::string& value : *row) {
            text += separator + value;
        }
        text += "\n";
    }
    return text;
}

}  // namespace orvent::analysis
