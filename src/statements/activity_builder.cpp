#include "statements/activity_builder.h"

#include <vector>

#include "entities/link_types.h"
#include "links/unsynchronize_functions.h"
#include "platform/text.h"
#include "statements/ldl_numbers.h"

namespace orvent::statements {

using namespace entities;

namespace {

constexpr const char* kNoFunctionForParameters = "You Have To Define A Function In Order To Use Function Parameters!";
constexpr const char* kNoFunctionForOutput = "You Have To Define A Function In Order To Use A Function Output!";

std::int16_t chosen(std::int16_t position, const char* what) {
    if (position < 0) {
        throw BuildFault(std::string("No ") + what + " was chosen.");
    }
    return position;
}

/// A second member of a name ends the building: only one of them could be found again.
void refuseTaken(const void* present, const char* what, const std::string& name) {
    if (present) {
        throw platform::Fault(std::string("The ") + what + " \"" + name +
                              "\" is there already: two variables of the template make it. Give one of them another "
                              "name in the template.");
    }
}

}  // namespace

bool isGenerated(const AttributeProperties& output) {
    return output.Tag == tagOf(LinkTypeOutput) || output.Tag == TagWizard;
}

entities::Act_OutputsCollection outputsByHand(entities::ActivityProperties& activity) {
    entities::Act_OutputsCollection outputs;
    for (int position = 1; position <= activity.Act_Outputs.count(); ++position) {
        std::shared_ptr<entities::AttributeProperties> output = activity.Act_Outputs->share(position);
        if (!isGenerated(*output)) {
            outputs.append(output, output->Key);
        }
    }
    return outputs;
}

/// What the links of a parameter are called, by where its value comes from; they are its `Tag`, too.
struct ActivityBuilder::LinkCodes {
    LinkType input, field, constant;
};

void ActivityBuilder::CreateActivityFromVariables() {
    removeFunctions();
    removeGeneratedOutputs();
    removeParameters();
    createFunctions();
    for (const LDLVariable& variable : variables_) {
        createParameters(variable);
    }
    // The outputs come last, since they refer to the parameters and to the function's output.
    for (const LDLVariable& variable : variables_) {
        if (variable.VariableType == VarOutput) {
            CreateOutputFromVariable(variable, variable.VariableName);
        } else if (variable.VariableType == VarOutputArray && variable.SubVariables) {
            for (const LDLVariable& element : *variable.SubVariables) {
                CreateOutputFromVariable(element, variable.VariableName + "_" + std::to_string(element.Index));
            }
        }
    }
}

void ActivityBuilder::removeFunctions() {
    Act_FunctionsCollection& functions = *activity_.Act_Functions;
    while (FunctionProperties* function = functions.Item(1)) {
        links::UnSynchronizeFunction(form_, *function, true, InDialog_);
        form_.DeletedNodes->Add(function->FunctionID, KindFunction);
        functions.Remove(1);
    }
}

void ActivityBuilder::removeOutput(AttributeProperties& output) {
    links::UnSynchronizeAttribute(form_, output, true, InDialog_);
    form_.DeletedNodes->Add(output.SubNode_ID, output.NodeKind);
    activity_.Act_Outputs->Remove(output.Key);
}

void ActivityBuilder::removeGeneratedOutputs() {
    Act_OutputsCollection& outputs = *activity_.Act_Outputs;
    std::vector<std::shared_ptr<AttributeProperties>> generated;
    for (int position = 1; position <= outputs.Count(); ++position) {
        if (isGenerated(*outputs.Item(position))) {
            generated.push_back(outputs.share(position));
        }
    }
    for (const auto& output : generated) {
        removeOutput(*output);
    }
}

void ActivityBuilder::removeParameters() {
    Act_ParametersCollection& parameters = *activity_.Act_Parameters;
    while (ParameterProperties* parameter = parameters.Item(1)) {
        links::UnSynchronizeParameter(form_, *parameter, true, InDialog_);
        form_.DeletedNodes->Add(parameter->SubNode_ID, parameter->NodeKind);
        parameters.Remove(1);
    }
}

void ActivityBuilder::createFunctions() {
    for (const LDLVariable& variable : variables_) {
        if (variable.VariableType != VarFunction) {
            continue;
        }
        FunctionProperties made;
        made.Function_Name = variable.RegulatorName;
        made.Function_Key = variable.RegulatorName;
        made.Function_Source = SourceOwn;
        made.Function_Type = catalogue_.functionTypes.indexOf("[EMPTY]").value_or(catalogue_.functionTypes.first());
        made.setParentKeyName(activity_.Act_Name);
        refuseTaken(activity_.Act_Functions->Item(made.Function_Key), "function", made.Function_Key);
        activity_.Act_Functions->AddFunctionProps(made, "", 0);
    }
}

FunctionProperties* ActivityBuilder::function() {
    Act_FunctionsCollection* functions = activity_.Act_Functions.peek();
    return functions ? functions->Item(1) : nullptr;
}

bool ActivityBuilder::hasFunction(const char* message) {
    if (function()) {
        return true;
    }
    messages_.tell(message, {}, platform::Icon::warning);
    return false;
}

void ActivityBuilder::createParameters(const LDLVariable& variable) {
    switch (variable.VariableType) {
        case VarParameter:
            CreateParameterFromVariable(variable, variable.VariableName);
            break;
        case VarParameterArray:
            if (variable.SubVariables) {
                for (const LDLVariable& element : *variable.SubVariables) {
                    CreateParameterFromVariable(element, variable.VariableName + "_" + std::to_string(element.Index));
                }
            }
            break;
        case VarFunctionParameter:
            if (hasFunction(kNoFunctionForParameters)) {
                CreateFunctionParameterFromVariable(variable, variable.VariableName);
            }
            break;
        case VarFunctionParameterArray:
            if (hasFunction(kNoFunctionForParameters) && variable.SubVariables) {
                for (const LDLVariable& element : *variable.SubVariables) {
                    CreateFunctionParameterFromVariable(element,
                                                        variable.VariableName + "_" + std::to_string(element.Index));
                }
            }
            break;
        case VarFunctionOutput:
            if (hasFunction(kNoFunctionForOutput)) {
                createFunctionOutput(variable);
            }
            break;
        default:
            break;
    }
}

void ActivityBuilder::createFunctionOutput(const LDLVariable& variable) {
    ParameterProperties output;
    output.Parameter_Name = output.Key = variable.VariableName;
    output.ParentFunctionActivity = activity_.Act_Name;
    output.ParentKeyName = function()->Function_Name;
    output.NodeKind = KindFunctionOutput;
    output.Parameter_Type = chosen(variable.RegulatedFrom, "data type");
    refuseTaken(function()->Function_Outputs->Item(output.Key), "function output", output.Key);
    function()->Function_Outputs->AddFullParameter(output, "", false);
}

const AttributeProperties& ActivityBuilder::inputOf(const LDLVariable& variable) const {
    const auto position = platform::parseInteger(variable.RegulatorName);
    const bool inRange = position && *position >= 0 && *position < sources_.Count();
    const LDLSource* source = inRange ? sources_.Source(static_cast<int>(*position) + 1) : nullptr;
    const AttributeProperties* input = source ? source->Item(variable.RegulatedFrom + 1) : nullptr;
    if (!input) {
        throw BuildFault("\"" + variable.VariableName + "\" has no input.");
    }
    return *input;
}

const AttributeProperties& ActivityBuilder::fieldOf(const LDLVariable& variable) const {
    const AttributeProperties* field = fieldAt(form_, variable.RegulatorName, variable.RegulatedFrom);
    if (!field) {
        throw BuildFault("\"" + variable.VariableName + "\" has no record set attribute.");
    }
    return *field;
}

void ActivityBuilder::regulate(ParameterProperties& parameter, const LDLVariable& variable, const LinkCodes& codes) {
    switch (variable.RegulatorType) {
        case RegInput: {
            const AttributeProperties& input = inputOf(variable);
            parameter.RegulatedFrom->Add(activity_.Act_Name, codes.input, relativeKey(KindInput, input.Key));
            parameter.Parameter_Type = input.Attribute_Type;
            parameter.Tag = tagOf(codes.input);
            break;
        }
        case RegRecordSetField: {
            const AttributeProperties& field = fieldOf(variable);
            parameter.RegulatedFrom->Add(variable.RegulatorName, codes.field,
                                         wholeKey(variable.RegulatorName, KindRecordSetAttribute, field.Key));
            parameter.Parameter_Type = field.Attribute_Type;
            parameter.Tag = tagOf(codes.field);
            break;
        }
        case RegConstant:
            parameter.Parameter_Type = chosen(variable.RegulatedFrom, "data type");
            parameter.RegulatedFrom->Add(variable.RegulatorName, codes.constant, variable.RegulatorName);
            parameter.Tag = tagOf(codes.constant);
            break;
        case RegUndefined:
        case RegOutputVariable:
            break;
    }
}

void ActivityBuilder::CreateParameterFromVariable(const LDLVariable& variable, const std::string& name) {
    ParameterProperties parameter;
    parameter.Parameter_Name = parameter.Key = name;
    parameter.ParentKeyName = activity_.Act_Name;
    parameter.NodeKind = KindParameter;
    regulate(parameter, variable, {LinkActivityInput, LinkRecordSet, LinkConstant});
    refuseTaken(activity_.Act_Parameters->Item(name), "parameter", name);
    activity_.Act_Parameters->AddFullParameter(parameter, "", false, 0);
}

void ActivityBuilder::CreateFunctionParameterFromVariable(const LDLVariable& variable, const std::string& /*name*/) {
    ParameterProperties input;
    input.Parameter_Name = input.Key = variable.VariableName;
    input.ParentFunctionActivity = activity_.Act_Name;
    input.ParentKeyName = function()->Function_Name;
    input.NodeKind = KindFunctionInput;
    regulate(input, variable, {LinkInputFunction, LinkRecordSetFunction, LinkConstantFunction});
    refuseTaken(function()->Function_Inputs->Item(input.Key), "function input", input.Key);
    function()->Function_Inputs->AddFullParameter(input, "", false);
}

void ActivityBuilder::regulate(AttributeProperties& output, const LDLVariable& variable, const LDLVariable& regulator) {
    if (regulator.VariableType == VarFunctionOutput) {
        // Without a function the variable was skipped, and there is nothing to regulate by.
        if (const FunctionProperties* made = function()) {
            const FunctionParameters* results = made->Function_Outputs.peek();
            const ParameterProperties* result = results ? results->Item(1) : nullptr;
            if (!result) {
                throw BuildFault("The function \"" + made->Function_Name + "\" has no output.");
            }
            output.Attribute_Type = result->Parameter_Type;
            output.RegulatedFrom->Add(made->Function_Name, LinkFunctionOutput,
                                      wholeKey(made->Function_Name, KindOutput, result->Key));
        }
        return;
    }
    std::string name = regulator.VariableName;
    if (regulator.VariableType == VarParameterArray) {
        name += "_" + std::to_string(chosen(variable.RegulatedFrom, "element") + 1);
    } else if (regulator.VariableType != VarParameter) {
        return;
    }
    const ParameterProperties* parameter = activity_.Act_Parameters->Item(name);
    if (!parameter) {
        throw BuildFault("There is no parameter \"" + name + "\".");
    }
    output.Attribute_Type = parameter->Parameter_Type;
    output.RegulatedFrom->Add(activity_.Act_Name, LinkParameterOutput, relativeKey(KindParameter, name));
}

void ActivityBuilder::CreateOutputFromVariable(const LDLVariable& variable, const std::string& name) {
    AttributeProperties output;
    output.Attribute_Name = output.Key = name;
    output.NodeKind = KindOutput;
    output.ParentKeyName = activity_.Act_Name;
    output.Tag = TagWizard;
    if (const LDLVariable* regulator = variables_.Item(variable.RegulatorName)) {
        regulate(output, variable, *regulator);
    }
    // It takes the place of an output of that name that was drawn by hand.
    if (const auto old = activity_.Act_Outputs->share(name)) {
        removeOutput(*old);
    }
    activity_.Act_Outputs->AddFullAttribute(output, "", false, 0);
}

}  // namespace orvent::statements
