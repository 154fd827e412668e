#pragma once

#include <cstdint>
#include <string>

#include "canvas/draw_form.h"
#include "entities/name_tables.h"
#include "statements/ldl_controls.h"
#include "statements/ldl_sources.h"
#include "statements/ldl_variables.h"

namespace orvent::statements {

/// The wizard's panel `frameValue`: where the value of a variable, or of an element of an array, comes from. It knows
/// nothing of kinds and steps.
///
/// The window writes what the user types or selects by the handlers, at any time. Selections are 0-based positions; -1
/// takes the selection away.
class LDLValuePanel {
  public:
    LDLsourceColl Sources;            ///< what provides the activity's inputs
    LDLVariableCollection Variables;  ///< those of the template; defined ones can regulate outputs
    std::int16_t ArrayPosition = 0;   ///< 1-based element on the panel, 0 when none

    LDLVisible Visible;
    LDLRegulatorType value = RegUndefined;  ///< the chosen one of `kLDLValueOptions`
    LDLList listInputs, listInputAttributes, listRS, listRSattributes, listDataTypes, listLDLvars, listLDLSubVars;
    std::string txtConst;  ///< the window writes edits through

    void chooseValue(LDLRegulatorType option);
    void selectInput(int position);
    void selectInputAttribute(int position);
    void selectRS(int position);
    void selectRSattribute(int position);
    void selectDataType(int position);
    void selectLDLvar(int position);
    void selectLDLSubVar(int position);

    /// False while the values are those of an array of which no element is chosen.
    bool valuesEnabled() const { return !Visible.frameArrity || ArrayPosition > 0; }

  protected:
    explicit LDLValuePanel(const entities::NameTable& dataTypes) : dataTypes_(dataTypes) {}
    ~LDLValuePanel() = default;

    /// What can be chosen at the beginning of a run: sources, data types, record sets.
    void fillLists();
    /// The variables that can regulate an output.
    void fillRegulators();
    void clearLists();
    void clearValues();

    /// Shows the value of a variable or an element, and writes what is shown into one.
    void showValue(const LDLVariable& holder);
    void showRegulator(const LDLVariable& holder);
    void storeValue(LDLVariable& holder) const;

    /// What the value, or the regulator, lacks; empty when it is whole.
    std::string missingValue() const;
    std::string missingRegulator() const;

    canvas::DrawForm* form_ = nullptr;  ///< the design window, whose record sets can be chosen

  private:
    void chooseValueIn(LDLList& list, int at);

    const entities::NameTable& dataTypes_;
};

}  // namespace orvent::statements
