#include "statements/ldl_generator.h"

#include "platform/fault.h"
#include "platform/letter_case.h"
#include "platform/utf8.h"
#include "statements/ldl_numbers.h"

namespace orvent::statements {

using platform::Fault;
using platform::upperLetters;

namespace {

std::string undeclared(const std::string& token) {
    return "!! \"" + token + "\" Has Not Been Declared!!";
}

bool isArrayKind(LDLVariableType kind) {
    return kind == VarParameterArray || kind == VarFunctionParameterArray || kind == VarOutputArray;
}

}  // namespace

std::string FirstCapitalReplacer(const std::string& name) {
    if (name.empty()) {
        throw Fault("A name is empty.");
    }
    const std::size_t first = platform::firstCharacterLength(name);
    return platform::lowerLetters(name.substr(0, first)) + name.substr(first);
}

LDLGenerator::Statement LDLGenerator::GenerateLDL(const std::string& text) const {
    // A text may be long: a pass that has nothing to do makes no copy of it.
    Statement result;
    std::string loops, variables, names;
    const bool hasLoops = text.find('[') != std::string::npos;
    if (hasLoops) {
        result.text = expandLoops(text, loops);
    }
    const std::string& present = hasLoops ? result.text : text;
    if (present.find('@') != std::string::npos) {
        result.text = replaceVariables(present, variables);
    } else if (!hasLoops) {
        result.text = text;
    }
    result.text = replaceActivityNames(std::move(result.text), names);
    for (std::string* fault : {&loops, &variables, &names}) {
        if (!fault->empty()) {
            result.faults.push_back(std::move(*fault));
        }
    }
    return result;
}

std::string LDLGenerator::ExpandLoops(const std::string& text) const {
    std::string fault;
    return expandLoops(text, fault);
}

std::string LDLGenerator::ReplaceVariables(const std::string& text) const {
    std::string fault;
    return replaceVariables(text, fault);
}

std::string LDLGenerator::ReplaceActivityNames(std::string text) const {
    std::string fault;
    return replaceActivityNames(std::move(text), fault);
}

std::string LDLGenerator::recordSetField(const LDLVariable& holder) const {
    const entities::AttributeProperties* attribute = fieldAt(form_, holder.RegulatorName, holder.RegulatedFrom);
    if (!attribute) {
        throw Fault("The record set \"" + holder.RegulatorName + "\" has no such attribute.");
    }
    return upperLetters(holder.RegulatorName + "_" + attribute->Attribute_Name);
}

std::string LDLGenerator::valueOf(const LDLVariable& holder, const std::string& token) const {
    switch (holder.RegulatorType) {
        case RegInput:
            return "A_IN" + std::to_string(platform::checkedI16(readNumber(holder.RegulatorName) + 1, "The source")) +
                   "_" + std::to_string(platform::checkedI16(holder.RegulatedFrom + 1, "The attribute"));
        case RegRecordSetField:
            return recordSetField(holder);
        case RegConstant:
            return upperLetters(holder.RegulatorName);
        case RegUndefined:
        case RegOutputVariable:
            break;
    }
    return undeclared(token);
}

LDLGenerator::Replacement LDLGenerator::replacementAt(std::string_view text, std::size_t at) const {
    const std::string name(nameAt(text, at + 1));
    const LDLVariable* variable = variables_.Item(name);
    if (!variable) {
        throw Fault("There is no variable \"" + name + "\"");
    }
    std::string token = name;
    const LDLVariable* element = nullptr;
    if (isArrayKind(variable->VariableType)) {
        // The next brackets in the text count, wherever they stand.
        const std::size_t open = text.find('[', at);
        const std::size_t close = text.find(']', at);
        if (open == std::string_view::npos || close == std::string_view::npos || close < open) {
            throw Fault("\"" + name + "\" has no index.");
        }
        const int index = readNumber(text.substr(open + 1, close - open - 1));
        element = variable->SubVariables ? variable->SubVariables->Item(index) : nullptr;
        if (!element) {
            throw Fault("\"" + name + "\" has no element " + std::to_string(index));
        }
        token = std::string(text.substr(at + 1, close - at));
    }
    const std::size_t length = token.size() + 1;
    switch (variable->VariableType) {
        case VarUndefined:
            return {undeclared(name), length};
        case VarParameter:
        case VarFunctionParameter:
            return {valueOf(*variable, token), length};
        case VarParameterArray:
        case VarFunctionParameterArray:
            return {valueOf(*element, token), length};
        case VarRecordSet:
        case VarFunction:
            return {FirstCapitalReplacer(variable->RegulatorName), length};
        case VarFunctionOutput:
            return {upperLetters(variable->VariableName), length};
        case VarOutput:
            return {activity_.Act_Name + "_OUT_" + upperLetters(variable->VariableName), length};
        case VarOutputArray:
            return {activity_.Act_Name + "_OUT_" + upperLetters(variable->VariableName) + "_" +
                        std::to_string(element->Index),
                    length};
    }
    throw Fault("\"" + name + "\" is of no kind.");
}

}  // namespace orvent::statements
