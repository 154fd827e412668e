#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "statements/ldl_variables.h"

namespace orvent::statements {

/// A list control as a plain value.
struct LDLList {
    std::vector<std::string> items;
    std::vector<std::int16_t> indices;  ///< in the catalogue, beside the items of a list of types
    int ListIndex = -1;                 ///< 0-based, -1 while nothing is selected

    /// The selected entry, empty while nothing is selected.
    std::string Text() const { return ListIndex < 0 ? std::string() : items[static_cast<std::size_t>(ListIndex)]; }
    void clear() { *this = {}; }
    /// The selection as a variable holds it: its position, or for a type its index.
    std::int16_t position() const {
        return indices.empty() || ListIndex < 0 ? static_cast<std::int16_t>(ListIndex)
                                                : indices[static_cast<std::size_t>(ListIndex)];
    }
    /// Selects what a variable holds.
    void chooseHeld(std::int16_t held);
    /// Selects the entry at that position, or nothing when there is none.
    void choose(int at);
    /// Selects the first entry that equals `text`, or nothing.
    void select(const std::string& text);
};

/// How the lists call an element of an array: "[3]".
inline std::string elementName(int position) {
    return "[" + std::to_string(position) + "]";
}

/// One of the options that give a variable its kind.
struct LDLKindOption {
    LDLVariableType kind;
    const char* name;     ///< of the control
    const char* caption;  ///< what it shows
    bool array;           ///< belongs to the array options
};

inline constexpr std::array<LDLKindOption, 9> kLDLKindOptions = {{
    {VarParameter, "optParam", "Parameter", false},
    {VarFunction, "optFunction", "Function", false},
    {VarFunctionParameter, "optFunctionParam", "Function Parameter", false},
    {VarFunctionOutput, "optFunctionOutput", "Function Output", false},
    {VarOutput, "optOutput", "Output", false},
    {VarRecordSet, "optRS", "RecordSet", false},
    {VarParameterArray, "optParamArray", "Parameters", true},
    {VarFunctionParameterArray, "optFunctionParamArray", "Function Parameters", true},
    {VarOutputArray, "optOutputArray", "Outputs", true},
}};

/// One of the options that tell where a value comes from.
struct LDLValueOption {
    LDLRegulatorType type;
    const char* name;
    const char* caption;
};

inline constexpr std::array<LDLValueOption, 3> kLDLValueOptions = {{
    {RegInput, "optValueInput", "Input"},
    {RegRecordSetField, "optValueRSField", "RecordSet's Attribute"},
    {RegConstant, "optValueConstant", "Constant"},
}};

/// Captions that never change.
inline constexpr const char* kFrameTemplateCaption = "LDL Template";
inline constexpr const char* kParseCaption = "Parse LDL";
inline constexpr const char* kGenerateCaption = "Genarate LDL";
inline constexpr const char* kCreateCaption = "Create Activity";
inline constexpr const char* kNextCaption = "Next >";
inline constexpr const char* kPrevCaption = "< Previous";
inline constexpr const char* kFrameVarCaption = "Variable";
inline constexpr const char* kArrayCaption = "Array Of";
inline constexpr const char* kFrameArityCaption = "ArityOf";
inline constexpr const char* kSelectRecordSetCaption = "Select RecordSet";
inline constexpr const char* kSelectDatatypeCaption = "Select Datatype";
inline constexpr const char* kFunctionNameCaption = "Name";
inline constexpr const char* kSelectRegulatorCaption = "Select It's Regulator";

/// Which controls are visible. What is not named here always is.
struct LDLVisible {
    bool frameVar = false;
    bool frameValue = false;
    bool frameArrity = false;
    bool steps = true;  ///< `cmdPrev` and `cmdNext`; gone for good in the layout of a template without variables
    bool scalarOptions = true;
    bool arrayOptions = false;  ///< with `lblArray`
    bool valueOptions = true;   ///< `optValueInput`, `optValueRSField`, `optValueConstant`
    bool listInputs = true;     ///< with `listInputAttributes`
    bool listRS = true;         ///< with `lblSelectRS`
    bool listRSattributes = true;
    bool txtConst = true;
    bool listDataTypes = true;    ///< with `lblDatatype`
    bool txtFunctionName = true;  ///< with `lblFunctionName`
    bool listLDLvars = true;      ///< with `lblOutput`
    bool listLDLSubVars = true;
};

/// Which controls answer. What is not named here always does.
struct LDLEnabled {
    bool txtTemplate = true;  ///< the template can be edited until it is parsed
    bool cmdParseLDL = true;
    bool cmdGenerateLDL = false;
    bool cmdCreateAct = false;
    bool cmdNext = false;
    bool cmdPrev = false;
    bool cmdOK = false;
};

/// The buttons whose state the wizard explains.
enum class LDLButton { cmdParseLDL, cmdGenerateLDL, cmdCreateAct, cmdNext, cmdPrev, cmdOK };

constexpr bool LDLEnabled::*enabledOf(LDLButton button) {
    constexpr bool LDLEnabled::*kFields[] = {&LDLEnabled::cmdParseLDL,  &LDLEnabled::cmdGenerateLDL,
                                             &LDLEnabled::cmdCreateAct, &LDLEnabled::cmdNext,
                                             &LDLEnabled::cmdPrev,      &LDLEnabled::cmdOK};
    return kFields[static_cast<std::size_t>(button)];
}

/// Colour of a mark, which is bold too; blue stands in the high byte.
inline constexpr int kLDLMarkColour = 255;

}  // namespace orvent::statements
