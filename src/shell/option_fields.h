#pragma once

#include <span>
#include <string_view>

#include "canvas/canvas_settings.h"

namespace orvent::shell {

/// The groups of number fields of `OptionsForm`.
enum class OptionGroup { zoom, draw };

/// A stored size or distance and its field of `OptionsForm`. `Section` of the store follows from the group.
struct OptionField {
    int number;  ///< of `Text1` to `Text14`, which is also the order of writing
    OptionGroup group;
    std::string_view caption;
    std::string_view part;  ///< "Height" or "Width" of the thing captioned, in the group `draw`
    const char* key;
    float canvas::CanvasSettings::*value;

    /// What can be entered, in pixels. A stored value beyond stays until it is changed.
    int least() const { return group == OptionGroup::zoom && part.empty() ? 5 : 15; }
    int most() const { return group == OptionGroup::zoom && part.empty() ? 2000 : 1000; }
    const char* section() const { return group == OptionGroup::zoom ? "Zoom" : "Draw"; }
};

/// All of them, in the order of reading.
std::span<const OptionField, 14> storedSizes();
/// The same in the order of the fields.
std::span<const OptionField, 14> optionFields();

}  // namespace orvent::shell
