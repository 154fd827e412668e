#include "entities/functions.h"

#include <utility>

namespace orvent::entities {

namespace {

static_assert(isFieldsAndLists<FunctionProperties, FunctionFields, 2>);

void copyParameters(const Lazy<FunctionParameters>& from, Lazy<FunctionParameters>& to) {
    if (const FunctionParameters* parameters = from.peek()) {
        for (const ParameterProperties& parameter : *parameters) {
            to->AddFullParameter(parameter, parameter.Key, false);
        }
    }
}

void nameActivity(Lazy<FunctionParameters>& parameters, const std::string& activity) {
    if (FunctionParameters* existing = parameters.peek()) {
        for (ParameterProperties& parameter : *existing) {
            parameter.ParentFunctionActivity = activity;
        }
    }
}

}  // namespace

void FunctionProperties::setParentKeyName(const std::string& activity) {
    parentKeyName_ = activity;
    nameActivity(Function_Inputs, activity);
    nameActivity(Function_Outputs, activity);
}

std::shared_ptr<FunctionProperties> FunctionProperties::Clone() const {
    auto copy = std::make_shared<FunctionProperties>();
    static_cast<FunctionFields&>(*copy) = *this;
    copyParameters(Function_Inputs, copy->Function_Inputs);
    copyParameters(Function_Outputs, copy->Function_Outputs);
    return copy;
}

std::shared_ptr<FunctionProperties> fillFunctionFromType(FunctionProperties& function, FunctionTypeSource& catalogue,
                                                         std::int16_t typeIndex) {
    const FunctionTypeProperties type = catalogue.GetFunctionType(typeIndex);
    function.Function_Inputs->Clear();
    if (const auto* inputs = type.FunctionType_Inputs.peek()) {
        for (const InputProperties& input : *inputs) {
            function.Function_Inputs->Add(input.Input_Name, input.Input_Type, input.Input_Name).NodeKind =
                KindFunctionInput;
        }
    }
    function.Function_Outputs->Clear();
    if (const auto* outputs = type.FunctionType_Outputs.peek()) {
        for (const OutputProperties& output : *outputs) {
            function.Function_Outputs->Add(output.Output_Name, output.Output_Type, output.Output_Name).NodeKind =
                KindFunctionOutput;
        }
    }
    function.Function_Type = typeIndex;
    return function.Clone();
}

FunctionProperties& Act_FunctionsCollection::Add(const std::string& Function_Name, std::int16_t Function_Type,
                                                 Lazy<FunctionParameters> Function_Inputs,
                                                 Lazy<FunctionParameters> Function_Outputs, const std::string& sKey) {
    auto function = std::make_shared<FunctionProperties>();
    function->Function_Name = Function_Name;
    function->Function_Type = Function_Type;
    function->Function_Inputs = std::move(Function_Inputs);
    function->Function_Outputs = std::move(Function_Outputs);
    return append(std::move(function), sKey);
}

FunctionProperties& Act_FunctionsCollection::AddFunctionProps(const FunctionProperties& FunProps,
                                                              const std::string& Function_Key, int Index) {
    std::shared_ptr<FunctionProperties> clone = FunProps.Clone();
    if (!Function_Key.empty()) {
        clone->Function_Key = Function_Key;
        // The doubling is wanted: a function renamed this way carries its key as its name.
        clone->Function_Name = Function_Key;
    }
    const std::string key = clone->Function_Key;
    const int position = Index >= 1 && Index <= Count() ? Index : Count() + 1;
    return insert(position, std::move(clone), key);
}

FunctionProperties& Act_FunctionsCollection::AddActivityTypeFunction(FunctionTypeSource& catalogue,
                                                                     const UsedFunctionProperties& TypeFunctionProps,
                                                                     const std::string& ParentKeyName,
                                                                     const std::string& sKey) {
    FunctionProperties blank;
    std::shared_ptr<FunctionProperties> function =
        fillFunctionFromType(blank, catalogue, TypeFunctionProps.Function_Type);
    function->Function_Name = TypeFunctionProps.Function_Name;
    function->Function_Source = SourceActivityType;
    function->setParentKeyName(ParentKeyName);
    function->Function_Key = sKey;
    for (auto* parameters : {&function->Function_Inputs, &function->Function_Outputs}) {
        for (ParameterProperties& parameter : *parameters) {
            parameter.ParentKeyName = sKey;
        }
    }
    return append(std::move(function), sKey);
}

FunctionProperties* Act_FunctionsCollection::AddFunction(const FunctionContainer& container,
                                                         const std::string& FunctionName,
                                                         const std::string& ParentKeyName, FunctionSourceCode Source) {
    const FunctionProperties* shown = container.functionNamed(FunctionName);
    if (!shown) {
        return nullptr;
    }
    std::shared_ptr<FunctionProperties> clone = shown->Clone();
    clone->Function_Name = FunctionName;
    clone->Function_Key = FunctionName;
    clone->Function_Source = Source;
    clone->setParentKeyName(ParentKeyName);
    return &insert(1, std::move(clone), FunctionName);
}

std::int16_t Act_FunctionsCollection::Key2Index(const std::string& key) const {
    int position = 0;
    for (const FunctionProperties& function : *this) {
        ++position;
        if (function.Function_Key == key) {
            return static_cast<std::int16_t>(position);
        }
    }
    return 0;
}

}  // namespace orvent::entities
