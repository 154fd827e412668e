#include "statements/ldl_generator.h"

#include "platform/fault.h"
#include "platform/text.h"
#include "statements/ldl_numbers.h"
#include "statements/replace_all.h"

namespace orvent::statements {

using platform::Fault;
using platform::upperCase;

namespace {

std::string undeclared(const std::string& token) {
    return "!! \"" + token + "\" Has Not Been Declared!!";
}

bool isArrayKind(LDLVariableType kind) {
    return kind == VarParameterArray || kind == VarFunctionParameterArray || kind == VarOutputArray;
}

/// Replaces "a_..." tokens without regard to case. It looks for the "_", which is rarer than the letter before it.
void replaceToken(std::string& text, const std::string& token, const std::string& to, WorkLimit& limit) {
    limit.spendSearch(text.size());
    const std::string_view all(text);
    std::string result;
    std::size_t done = 0;
    for (std::size_t line = text.find('_', 1); line != std::string::npos; line = text.find('_', line + 1)) {
        const std::size_t hit = line - 1;
        if (hit >= done && platform::equalIgnoringCase(all.substr(hit, token.size()), token)) {
            if (result.empty()) {
                result.reserve(text.size());
            }
            result.append(text, done, hit - done).append(to);
            done = hit + token.size();
            checkSize(result.size());
        }
    }
    if (done == 0) {
        return;
    }
    result.append(text, done);
    checkSize(result.size());
    limit.spend(result.size());
    text = std::move(result);
}

}  // namespace

std::string FirstCapitalReplacer(const std::string& name) {
    if (name.empty()) {
        throw Fault("A name is empty.");
    }
    return platform::lowerCase(name.substr(0, 1)) + name.substr(1);
}

std::string LDLGenerator::GenerateLDL(const std::string& text) const {
    // A text may be long: a pass that has nothing to do makes no copy of it.
    std::string expanded;
    const bool hasLoops = text.find('[') != std::string::npos;
    if (hasLoops) {
        expanded = ExpandLoops(text);
    }
    const std::string& present = hasLoops ? expanded : text;
    if (present.find('@') != std::string::npos) {
        return ReplaceActivityNames(ReplaceVariables(present));
    }
    return ReplaceActivityNames(hasLoops ? std::move(expanded) : text);
}

std::string LDLGenerator::recordSetField(const LDLVariable& holder) const {
    const canvas::LabelsD* node = Form.nodeNamed(holder.RegulatorName);
    const entities::RecordSetProperties* recordSet = node ? node->recordSet() : nullptr;
    const entities::RecordSet_OutputsCollection* attributes = recordSet ? recordSet->RecordSet_Outputs.peek() : nullptr;
    const entities::AttributeProperties* attribute = attributes ? attributes->Item(holder.RegulatedFrom + 1) : nullptr;
    if (!attribute) {
        throw Fault("The record set \"" + holder.RegulatorName + "\" has no such attribute.");
    }
    return upperCase(holder.RegulatorName + "_" + attribute->Attribute_Name);
}

std::string LDLGenerator::valueOf(const LDLVariable& holder, const std::string& token) const {
    switch (holder.RegulatorType) {
        case RegInput:
            return "A_IN" + std::to_string(platform::checkedI16(readNumber(holder.RegulatorName) + 1, "The source")) +
                   "_" + std::to_string(platform::checkedI16(holder.RegulatedFrom + 1, "The attribute"));
        case RegRecordSetField:
            return recordSetField(holder);
        case RegConstant:
            return upperCase(holder.RegulatorName);
        case RegUndefined:
        case RegOutputVariable:
            break;
    }
    return undeclared(token);
}

LDLGenerator::Replacement LDLGenerator::replacementAt(std::string_view text, std::size_t at) const {
    const std::string name(nameAt(text, at + 1));
    const LDLVariable* variable = Variables.Item(name);
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
            return {upperCase(variable->VariableName), length};
        case VarOutput:
            return {Activity.Act_Name + "_OUT_" + upperCase(variable->VariableName), length};
        case VarOutputArray:
            return {
                Activity.Act_Name + "_OUT_" + upperCase(variable->VariableName) + "_" + std::to_string(element->Index),
                length};
    }
    throw Fault("\"" + name + "\" is of no kind.");
}

std::string LDLGenerator::ReplaceActivityNames(std::string text) const {
    WorkLimit limit;
    try {
        const std::string& N = Activity.Act_Name;
        const std::string n = FirstCapitalReplacer(N);
        for (int k = 1; k <= Sources.Count(); ++k) {
            const std::string number = std::to_string(k);
            int j = 0;
            for (const entities::AttributeProperties& input : *Sources.Source(k)) {
                replaceToken(text, "A_IN" + number + "_" + std::to_string(++j),
                             N + "_IN" + number + "_" + input.Attribute_Name, limit);
            }
            replaceToken(text, "A_IN" + number, n + "_in" + number, limit);
        }
        int i = 0;
        for (const entities::AttributeProperties& output : OutputsView) {
            replaceToken(text, "A_OUT_" + std::to_string(++i), N + "_OUT_" + output.Attribute_Name, limit);
        }
        replaceToken(text, "A_OUT", n + "_out", limit);
    } catch (const Fault&) {
        // The text as it stands is the answer.
    }
    return text;
}

}  // namespace orvent::statements
