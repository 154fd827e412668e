// What the wizard proposes of what was answered before, and of what a constant is compared with.

#include "platform/name_list.h"
#include "statements/ldl_form.h"

namespace orvent::statements {

namespace {

const char* captionOf(LDLVariableType kind) {
    for (const LDLKindOption& option : kLDLKindOptions) {
        if (option.kind == kind) {
            return option.caption;
        }
    }
    return "";
}

}  // namespace

std::string LDLForm::formerWords() const {
    const auto former =
        CurrentVariable && kind == VarUndefined ? former_.of(OriginalTemplate, *CurrentVariable, field()) : nullptr;
    if (!former) {
        return {};
    }
    std::vector<std::string> values;
    const auto add = [&](const LDLVariable& holder) {
        if (std::string words = valueWords(former->VariableType, holder, field(), catalogue_.dataTypes);
            !words.empty()) {
            values.push_back(std::move(words));
        }
    };
    if (former->SubVariables) {
        for (const LDLVariable& element : *former->SubVariables) {
            add(element);
        }
    } else {
        add(*former);
    }
    return std::string("Answered before: ") + captionOf(former->VariableType) +
           (values.empty() ? "." : ", " + platform::nameList(values) + ".");
}

void LDLForm::takeFormer() {
    auto former =
        CurrentVariable && kind == VarUndefined ? former_.of(OriginalTemplate, *CurrentVariable, field()) : nullptr;
    if (former) {
        former->Index = CurrentVariable->Index;
        *CurrentVariable = std::move(*former);
        ShowCurrentVariable();
    }
}

const LDLVariable* LDLForm::compared() const {
    const bool open =
        CurrentVariable && valuesEnabled() && Visible.txtConst && value == RegConstant && listDataTypes.ListIndex < 0;
    const int element = Visible.frameArrity ? ArrayPosition : 0;
    return open ? comparedWith(OriginalTemplate, *CurrentVariable, element, Variables) : nullptr;
}

std::optional<std::int16_t> LDLForm::comparedType() const {
    const LDLVariable* other = compared();
    const auto type = other ? dataTypeOf(*other, field()) : std::nullopt;
    return type && catalogue_.dataTypes.shown(*type) != entities::kDefinedBySource ? type : std::nullopt;
}

std::string LDLForm::comparedWords() const {
    const auto type = comparedType();
    return type ? "It is compared with " + valueWords(VarParameter, *compared(), field(), catalogue_.dataTypes) +
                      ", a " + catalogue_.dataTypes.shown(*type) + "."
                : std::string();
}

void LDLForm::takeComparedType() {
    if (const auto type = comparedType()) {
        listDataTypes.chooseHeld(*type);
    }
}

}  // namespace orvent::statements
