#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "shell/options_data.h"
#include "shell/ports.h"

namespace orvent::shell {

/// The groups of fields of `OptionsForm`.
enum class OptionGroup { zoom, draw };

/// One number field of `OptionsForm`.
struct OptionField {
    std::string_view name;  ///< "Text1" to "Text14"
    OptionGroup group;
    std::string_view caption;
    std::string_view part;  ///< "Height" or "Width" of the thing captioned, in the group `draw`
    const char* key;
    float canvas::CanvasSettings::*value;
};

/// The fields in their own order, which is also the order of writing.
std::span<const OptionField, 14> optionFields();

/// Logic of the window `OptionsForm`. Number fields show pixels of 15 twips.
class OptionsForm {
  public:
    OptionsForm(OptionsData& options, const Ports& ports) : options_(options), ports_(ports) {}

    std::array<std::string, 14> Text;  ///< `Text1` to `Text14`, in pixels
    std::int32_t lblColor = 0;         ///< blue in the high byte
    std::string txtSQL;

    /// Fills the fields from the application values; at each showing.
    void open();

    /// Stores all fields and takes them into the application values. Throws a `Fault` before anything is stored when
    /// a field is no number.
    void butAplly();
    void butDefault();
    void chooseColour();
    void SqlOpen();

    std::function<void()> changed;  ///< the fields are to be shown again

  private:
    OptionsData& options_;
    Ports ports_;
};

}  // namespace orvent::shell
