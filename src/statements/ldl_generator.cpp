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

/// Replaces without regard to case; keeps the lower case copy of the text in step.
class CaselessText {
  public:
    explicit CaselessText(const std::string& text) : text_(text), lowered_(platform::lowerCase(text)) {}

    void replace(const std::string& from, const std::string& to) {
        const std::string sought = platform::lowerCase(from);
        limit_.spendSearch(text_.size());
        std::size_t hit = lowered_.find(sought);
        if (hit == std::string::npos) {
            return;
        }
        std::string result;
        std::size_t done = 0;
        for (; hit != std::string::npos; hit = lowered_.find(sought, done)) {
            result.append(text_, done, hit - done).append(to);
            done = hit + sought.size();
            checkSize(result.size());
        }
        result.append(text_, done);
        checkSize(result.size());
        limit_.spend(result.size());
        text_ = std::move(result);
        lowered_ = platform::lowerCase(text_);
    }

    const std::string& text() const { return text_; }

  private:
    std::string text_;
    std::string lowered_;
    WorkLimit limit_;
};

}  // namespace

std::string FirstCapitalReplacer(const std::string& name) {
    if (name.empty()) {
        throw Fault("A name is empty.");
    }
    return platform::lowerCase(name.substr(0, 1)) + name.substr(1);
}

std::string LDLGenerator::GenerateLDL(const std::string& text) const {
    return ReplaceActivityNames(ReplaceVariables(ExpandLoops(text)));
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
            return {Activity.Act_Name + "_OUT_" + upperCase(variable->VariableName) + "_" +
                        std::to_string(element->Index),
                    length};
    }
    throw Fault("\"" + name + "\" is of no kind.");
}

std::string LDLGenerator::ReplaceActivityNames(const std::string& text) const {
    CaselessText result(text);
    try {
        const std::string& N = Activity.Act_Name;
        const std::string n = FirstCapitalReplacer(N);
        for (int k = 1; k <= Sources.Count(); ++k) {
            const std::string number = std::to_string(k);
            int j = 0;
            for (const entities::AttributeProperties& input : *Sources.Source(k)) {
                result.replace("A_IN" + number + "_" + std::to_string(++j),
                               N + "_IN" + number + "_" + input.Attribute_Name);
            }
            result.replace("A_IN" + number, n + "_in" + number);
        }
        int i = 0;
        for (const entities::AttributeProperties& output : OutputsView) {
            result.replace("A_OUT_" + std::to_string(++i), N + "_OUT_" + output.Attribute_Name);
        }
        result.replace("A_OUT", n + "_out");
    } catch (const Fault&) {
        // The text as it stands is the answer.
    }
    return result.text();
}

}  // namespace orvent::statements
