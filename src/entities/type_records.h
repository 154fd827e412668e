#pragma once

#include <cstdint>
#include <string>

#include "entities/lazy.h"

namespace orvent::entities {

struct InputProperties {
    std::int16_t Input_Type = 0;  ///< data type index
    std::string Input_Name;
};

struct OutputProperties {
    std::int16_t Output_Type = 0;  ///< data type index
    std::string Output_Name;
};

struct ParamProperties {
    std::string Parameter_Name;
    std::int16_t Parameter_Type = 0;  ///< data type index
};

struct UsedFunctionProperties {
    std::int16_t Function_Type = 0;  ///< function type index
    std::string Function_Name;
};

// Collections of a type record. `Add` appends under `sKey`, or without a key when it is empty.

class ActType_OutPutsCollection : public KeyedCollection<OutputProperties> {
  public:
    OutputProperties& Add(const std::string& Output_Name, std::int16_t Output_Type, const std::string& sKey) {
        return append(std::make_unique<OutputProperties>(OutputProperties{Output_Type, Output_Name}), sKey);
    }
};

class ActType_ParametersCollection : public KeyedCollection<ParamProperties> {
  public:
    ParamProperties& Add(const std::string& Parameter_Name, std::int16_t Parameter_Type, const std::string& sKey) {
        return append(std::make_unique<ParamProperties>(ParamProperties{Parameter_Name, Parameter_Type}), sKey);
    }
};

class ActType_FunctionsCollection : public KeyedCollection<UsedFunctionProperties> {
  public:
    UsedFunctionProperties& Add(const std::string& Function_Name, std::int16_t Function_Type, const std::string& sKey) {
        return append(std::make_unique<UsedFunctionProperties>(UsedFunctionProperties{Function_Type, Function_Name}),
                      sKey);
    }
};

class FunctionType_InputsCollection : public KeyedCollection<InputProperties> {
  public:
    InputProperties& Add(const std::string& Input_Name, std::int16_t Input_Type, const std::string& sKey) {
        return append(std::make_unique<InputProperties>(InputProperties{Input_Type, Input_Name}), sKey);
    }
};

using FunctionType_OutputsCollection = ActType_OutPutsCollection;

/// A template for activities: what outputs, parameters and functions an activity of this type gets, and its texts.
struct ActivityTypeProperties {
    std::string ActType_LDL;                     ///< LDL template
    std::int16_t ActType_ConsumerSemantics = 0;  ///< 1 "OVERWRITE", 2 "APPEND"
    std::int16_t ActType_ProviderSemantics = 0;  ///< 1 "DELETE", 2 "SELECT"
    Lazy<ActType_FunctionsCollection> ActType_Functions;
    std::int16_t ActType_NameIndex = 0;  ///< index in the activity type name table, by which an edit finds the old row
    std::string ActType_Description;
    Lazy<ActType_ParametersCollection> ActType_Parameters;
    Lazy<ActType_OutPutsCollection> ActType_OutPuts;
    std::int16_t ActType_SchemaNo = 0;  ///< schemata of an activity, 1 or 2
    std::string ActType_SQL;            ///< SQL template
    std::string ActType_Name;
};

/// A template for functions.
struct FunctionTypeProperties {
    std::int16_t FunctionType_NameIndex = 0;  ///< index in the function type name table
    Lazy<FunctionType_OutputsCollection> FunctionType_Outputs;
    Lazy<FunctionType_InputsCollection> FunctionType_Inputs;
    std::string FunctionType_Description;
    std::string FunctionType_Name;
};

/// Where function types are read from; the repository's catalogue is one.
class FunctionTypeSource {
  public:
    virtual ~FunctionTypeSource() = default;
    virtual FunctionTypeProperties GetFunctionType(std::int16_t index) = 0;
};

}  // namespace orvent::entities
