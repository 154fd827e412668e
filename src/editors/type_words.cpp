#include "editors/type_words.h"

namespace orvent::editors {

namespace {

constexpr std::array<TypeListWords, 2> kFunctionLists = {{
    {TypeListRole::input, "InputList", "AddInput", "RemInput", "INPUT", "Inputs"},
    {TypeListRole::output, "OutPutList", "AddOutPut", "RemOutPut", "OUTPUT", "Output"},
}};

constexpr std::array<TypeListWords, 3> kActivityLists = {{
    {TypeListRole::parameter, "ParamList", "AddParam", "RemParam", "PARAMETER", "Parameters"},
    {TypeListRole::output, "OutPutList", "AddOutPut", "RemOutPut", "OUTPUT", "Outputs"},
    {TypeListRole::function, "FunctionList", "AddFunction", "RemFunction", "FUNCTION", "Functions"},
}};

/// By `TypeKind`.
const std::array<TypeWords, 3> kTypeWords = {{
    {"DBDataTypes",
     "DataTypes",
     "txtDataTypeName",
     "",
     {"EXISTING DATA TYPES", "CREATE NEW DATA TYPE", "EDIT DATA TYPE"},
     "DATA TYPE",
     "",
     "DELETING DATATYPE",
     "ARE YOU SURE YOU WANT TO DELETE DATATYPE :",
     "Please Close All Active Scenarios In Order To Be Able To Delete A Data Type!",
     {}},
    {"DBFunctionType",
     "FunctionTypes",
     "txtFunctionTypeName",
     "txtFunctionTypeDescr",
     {"EXISTING FUNCTION TYPES", "CREATE NEW FUNCTION TYPE", "EDIT FUNCTION TYPE"},
     "FUNCTION TYPE",
     "Give A Description For This Function Type",
     "DELETING DATATYPE",
     "ARE YOU SURE YOU WANT TO DELETE FUNCTION TYPE :",
     "Please Close All Active Scenarios In Order To Be Able To Delete A Funtion Type!",
     kFunctionLists},
    {"DBActTypes",
     "ActTypes",
     "txtActTypeName",
     "txtActTypeDescr",
     {"EXISTING ACTIVITY TYPES", "CREATE NEW ACTIVITY TYPE", "EDIT ACTIVITY TYPE"},
     "ACTIVITY TYPE",
     "Give A Description For This Activity Type",
     "DELETING ACTIVITY TYPE",
     "ARE YOU SURE YOU WANT TO DELETE ACTIVITY TYPE :",
     "Please Close All Active Scenarios In Order To Be Able To Delete An Activity Type!",
     kActivityLists},
}};

}  // namespace

const TypeWords& typeWords(TypeKind kind) {
    return kTypeWords[static_cast<std::size_t>(kind)];
}

}  // namespace orvent::editors
