#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "forms/editor.h"
#include "shell/option_fields.h"
#include "shell/options_data.h"
#include "shell/ports.h"

namespace orvent::shell {

/// Logic of the window `OptionsForm`. Number fields show pixels of 15 twips.
class OptionsForm : public forms::Editor {
  public:
    OptionsForm(OptionsData& options, const Ports& ports) : Editor(ports.messages), options_(options), ports_(ports) {}

    std::array<std::string, 14> Text;  ///< `Text1` to `Text14`, in pixels
    std::int32_t lblColor = 0;         ///< blue in the high byte
    std::string txtSQL;
    analysis::ProblemKinds Problems;  ///< those that are told
    bool ShortNames = false;
    std::string SampleRows;                   ///< a whole number from 1 on
    std::vector<sql::OwnFunction> Functions;  ///< as they are typed

    /// Fills the fields from the application values; at each showing.
    void open();

    /// Stores all fields and takes them into the application values. Throws a `Fault` before anything is stored when
    /// a field is no number of its kind or a row of functions is not whole.
    void butAplly() { Apply(); }
    /// The same, whether something was changed or not. True when the window closes.
    bool butOK() { return Apply(); }
    void butDefault();
    void chooseColour();
    void SqlOpen();
    /// Whether the file of `txtSQL` is there.
    bool hasScript() const;

  protected:
    bool apply() override;

  private:
    OptionsData& options_;
    Ports ports_;
};

}  // namespace orvent::shell
