#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "entities/attributes.h"
#include "entities/tags.h"
#include "entities/type_records.h"

namespace orvent::entities {

/// The plain fields of `FunctionProperties`.
struct FunctionFields {
    bool Changed = false;
    std::int16_t FunctionID = 0;  ///< repository identifier, 0 while never saved
    NodeKindCode NodeKind = KindFunction;
    std::string Function_Key;
    FunctionSourceCode Function_Source = SourceNone;
    std::int16_t Function_Type = 0;  ///< function type index
    std::string Function_Name;

    /// The owning activity's name.
    const std::string& ParentKeyName() const { return parentKeyName_; }

  protected:
    std::string parentKeyName_;
};

/// A function that an activity uses, with inputs and outputs of its own. `Function_Key` is the whole key.
struct FunctionProperties : FunctionFields {
    Lazy<FunctionParameters> Function_Outputs;
    Lazy<FunctionParameters> Function_Inputs;

    /// Writes `ParentFunctionActivity` of every parameter there is, too.
    void setParentKeyName(const std::string& activity);

    std::shared_ptr<FunctionProperties> Clone() const;
};

/// What `AddFunction` needs of a canvas: the function that a node of that name holds, or nothing.
class FunctionContainer {
  public:
    virtual ~FunctionContainer() = default;
    virtual const FunctionProperties* functionNamed(const std::string& name) const = 0;
};

/// Makes `function` anew from the function type at `typeIndex`: inputs, outputs and type. Gives a clone, so that the
/// record can be filled again.
std::shared_ptr<FunctionProperties> fillFunctionFromType(FunctionProperties& function, FunctionTypeSource& catalogue,
                                                         std::int16_t typeIndex);

/// The functions of an activity.
class Act_FunctionsCollection : public KeyedCollection<FunctionProperties, std::shared_ptr<FunctionProperties>> {
  public:
    bool Expanded = false;

    /// Takes over the two collections of parameters.
    FunctionProperties& Add(const std::string& Function_Name, std::int16_t Function_Type,
                            Lazy<FunctionParameters> Function_Inputs, Lazy<FunctionParameters> Function_Outputs,
                            const std::string& sKey);

    /// Adds a clone before `Index`, or at the end when `Index` is not in 1..Count. A given key becomes the function's
    /// key and its name too; an empty one leaves both.
    FunctionProperties& AddFunctionProps(const FunctionProperties& FunProps, const std::string& Function_Key,
                                         int Index);

    /// Adds a function that an activity type brings, made from the catalogue.
    FunctionProperties& AddActivityTypeFunction(FunctionTypeSource& catalogue,
                                                const UsedFunctionProperties& TypeFunctionProps,
                                                const std::string& ParentKeyName, const std::string& sKey);

    /// Adds, as the first one, a clone of the function that the canvas shows under `FunctionName`. Nothing when there
    /// is no such node.
    FunctionProperties* AddFunction(const FunctionContainer& container, const std::string& FunctionName,
                                    const std::string& ParentKeyName, FunctionSourceCode Source);

    /// The 1-based position of the first item with that `Function_Key`, 0 when there is none.
    std::int16_t Key2Index(const std::string& key) const;
};

}  // namespace orvent::entities
