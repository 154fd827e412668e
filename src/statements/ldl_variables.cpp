#include "statements/ldl_variables.h"

#include "platform/fault.h"

namespace orvent::statements {

LDLVariable& LDLVariableCollection::Add(const std::string& name) {
    if (LDLVariable* known = Item(name)) {
        return *known;
    }
    auto variable = std::make_unique<LDLVariable>();
    variable->VariableName = name;
    variable->Index = platform::checkedI16(Count() + 1, "The number of variables");
    return append(std::move(variable), keyOf(name));
}

const LDLVariable* LDLVariableCollection::Item(const std::string& name) const {
    // A text mostly names its variables in their order, and then nothing is to be looked up.
    const LDLVariable* found = Base::Item(expected_);
    if (!found || found->VariableName != name) {
        found = Base::Item(keyOf(name));
    }
    expected_ = found ? found->Index + 1 : expected_;
    return found;
}

bool LDLVariableCollection::allDefinedBeforeLast() const {
    for (int position = 1; position < Count(); ++position) {
        if (!Item(position)->Defined) {
            return false;
        }
    }
    return true;
}

bool isNameCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

std::string_view nameAt(std::string_view text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && isNameCharacter(text[end])) {
        ++end;
    }
    return text.substr(at, end - at);
}

void scanTemplate(std::string_view text, LDLVariableCollection& Variables) {
    std::size_t at = text.find('@');
    while (at != std::string_view::npos) {
        const std::string_view name = nameAt(text, at + 1);
        LDLVariable& variable = Variables.Add(std::string(name));
        at += 1 + name.size();
        if (at < text.size() && text[at] == '[') {
            variable.SubVariables = std::make_unique<LDLVariableCollection>();
            // What stands between the brackets may hold "@", which is not looked at.
            at = text.find(']', at + 1);
            if (at == std::string_view::npos) {
                throw platform::Fault("The bracket behind \"@" + std::string(name) + "\" is not closed.");
            }
        }
        at = text.find('@', at);
    }
}

std::vector<LDLMark> occurrencesOf(const std::string& name, const std::string& text) {
    const std::string sought = "@" + name;
    std::vector<LDLMark> result;
    std::size_t at = text.find(sought);
    while (at != std::string::npos) {
        std::size_t end = at + sought.size();
        if (end < text.size() && isNameCharacter(text[end])) {
            at = text.find(sought, at + 1);
            continue;
        }
        if (end < text.size() && text[end] == '[') {
            const std::size_t close = text.find(']', end);
            end = close == std::string::npos ? end : close + 1;
        }
        result.push_back({at, end - at});
        at = text.find(sought, end);
    }
    return result;
}

}  // namespace orvent::statements
