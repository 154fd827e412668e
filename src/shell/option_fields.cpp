#include "shell/option_fields.h"

#include <algorithm>
#include <array>

namespace orvent::shell {

namespace {

using canvas::CanvasSettings;
using enum OptionGroup;

constexpr std::array<OptionField, 14> kSizes = {{
    {7, draw, "Activity:", "Height", "ActH", &CanvasSettings::ActH},
    {8, draw, "Activity:", "Width", "ActW", &CanvasSettings::ActW},
    {9, draw, "Record Set:", "Height", "RecH", &CanvasSettings::RecH},
    {10, draw, "Record Set:", "Width", "RecW", &CanvasSettings::RecW},
    {11, draw, "Comment:", "Height", "ComH", &CanvasSettings::ComH},
    {12, draw, "Comment:", "Width", "ComW", &CanvasSettings::ComW},
    {13, draw, "Log:", "Height", "LogH", &CanvasSettings::LogH},
    {14, draw, "Log:", "Width", "LogW", &CanvasSettings::LogW},
    {5, zoom, "Activity-SubNodes Distance:", "", "WDist", &CanvasSettings::WDist},
    {6, zoom, "Nodes Vertical Distance:", "", "HDist", &CanvasSettings::HDist},
    {3, zoom, "Nodes Width:", "", "Width", &CanvasSettings::Width},
    {2, zoom, "Attribute-Parameter Height:", "", "Height", &CanvasSettings::Height},
    {4, zoom, "Zoomed Activity-Entities Distance:", "", "BigDist", &CanvasSettings::BigDist},
    {1, zoom, "Activity-RecordSet\nFunction-Constant", "Height", "BigHeight", &CanvasSettings::BigHeight},
}};

constexpr auto kByNumber = [] {
    auto fields = kSizes;
    std::sort(fields.begin(), fields.end(),
              [](const OptionField& a, const OptionField& b) { return a.number < b.number; });
    return fields;
}();

}  // namespace

std::span<const OptionField, 14> storedSizes() {
    return kSizes;
}

std::span<const OptionField, 14> optionFields() {
    return kByNumber;
}

}  // namespace orvent::shell
