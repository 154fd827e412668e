#include "statements/former_answers.h"

#include <memory>

#include "entities/name_tables.h"
#include "platform/text.h"
#include "statements/ldl_controls.h"

namespace orvent::statements {

namespace {

using entities::AttributeProperties;

const LDLSource* sourceAt(const std::string& position, const AnswerField& field) {
    return field.Sources.Source(static_cast<int>(platform::parseInteger(position).value_or(-1)) + 1);
}

const AttributeProperties* attributeOf(const LDLVariable& holder, const AnswerField& field) {
    if (holder.RegulatorType == RegInput) {
        const LDLSource* source = sourceAt(holder.RegulatorName, field);
        return source ? source->Item(holder.RegulatedFrom + 1) : nullptr;
    }
    return holder.RegulatorType == RegRecordSetField ? fieldAt(field.form, holder.RegulatorName, holder.RegulatedFrom)
                                                     : nullptr;
}

bool takesValue(LDLVariableType kind) {
    return kind == VarParameter || kind == VarFunctionParameter || kind == VarParameterArray ||
           kind == VarFunctionParameterArray || kind == VarOutputArray;
}

/// Where an attribute of that name stands, from 0; -1 for nowhere.
template <class Attributes>
std::int16_t placeOf(const Attributes& attributes, const std::string& name) {
    std::int16_t place = 0;
    for (const AttributeProperties& attribute : attributes) {
        if (attribute.Attribute_Name == name) {
            return place;
        }
        ++place;
    }
    return -1;
}

bool isRecordSet(const canvas::DrawForm& form, const std::string& name) {
    const canvas::LabelsD* node = form.nodeNamed(name);
    return node && node->recordSet();
}

bool canRegulateStill(const LDLVariable* variable) {
    return variable && variable->Defined &&
           (variable->VariableType == VarParameter || variable->VariableType == VarParameterArray ||
            variable->VariableType == VarFunctionOutput);
}

}  // namespace

FormerAnswers::Value FormerAnswers::valueOf(const LDLVariable& holder, const AnswerField& field) {
    Value value{holder.RegulatorType, holder.RegulatorName, holder.RegulatedFrom, {}};
    if (const AttributeProperties* attribute = attributeOf(holder, field)) {
        value.attribute = attribute->Attribute_Name;
    }
    return value;
}

void FormerAnswers::keep(const std::string& text, const AnswerField& field) {
    for (const LDLVariable& variable : field.Variables) {
        if (!variable.Defined) {
            continue;
        }
        Answer answer{variable.VariableType, valueOf(variable, field), {}};
        if (variable.SubVariables) {
            for (const LDLVariable& element : *variable.SubVariables) {
                answer.elements.push_back(valueOf(element, field));
            }
        }
        answers_[{text, variable.VariableName}] = std::move(answer);
    }
}

/// False when the value does not fit here.
bool FormerAnswers::give(const Value& value, LDLVariableType kind, LDLVariable& holder, const AnswerField& field) {
    holder.RegulatorType = value.type;
    holder.RegulatorName = value.name;
    holder.RegulatedFrom = value.from;
    if (kind == VarRecordSet) {
        return isRecordSet(field.form, value.name);
    }
    if (kind == VarOutput || value.type == RegOutputVariable) {
        return canRegulateStill(field.Variables.Item(value.name));
    }
    if (!takesValue(kind)) {
        return true;
    }
    if (value.type == RegInput) {
        const LDLSource* source = sourceAt(value.name, field);
        holder.RegulatedFrom = source ? placeOf(*source, value.attribute) : std::int16_t{-1};
    } else if (value.type == RegRecordSetField) {
        const canvas::LabelsD* node = field.form.nodeNamed(value.name);
        holder.RegulatedFrom = node && node->recordSet()
                                   ? placeOf(node->recordSet()->RecordSet_Outputs, value.attribute)
                                   : std::int16_t{-1};
    }
    return value.type != RegUndefined && holder.RegulatedFrom >= 0;
}

std::unique_ptr<LDLVariable> FormerAnswers::of(const std::string& text, const LDLVariable& variable,
                                               const AnswerField& field) const {
    const auto place = answers_.find({text, variable.VariableName});
    if (place == answers_.end()) {
        return nullptr;
    }
    const Answer& answer = place->second;
    auto result = std::make_unique<LDLVariable>();
    result->VariableName = variable.VariableName;
    result->VariableType = answer.kind;
    result->Defined = true;
    if (variable.SubVariables) {
        result->SubVariables = std::make_unique<LDLVariableCollection>();
        for (const Value& value : answer.elements) {
            LDLVariable& element = result->SubVariables->Add(std::to_string(result->SubVariables->Count() + 1));
            element.Defined = true;
            if (!give(value, answer.kind, element, field)) {
                result->SubVariables->Clear();
                break;
            }
        }
    } else if (!give(answer.value, answer.kind, *result, field)) {
        result->RegulatorType = RegUndefined;
        result->RegulatorName.clear();
        result->RegulatedFrom = -1;
    }
    return result;
}

std::string valueWords(LDLVariableType kind, const LDLVariable& holder, const AnswerField& field,
                       const entities::NameTable& dataTypes) {
    if (kind == VarFunctionOutput) {
        return dataTypes.shown(holder.RegulatedFrom);
    }
    if (kind == VarRecordSet || kind == VarFunction) {
        return holder.RegulatorName;
    }
    if (kind == VarOutput || holder.RegulatorType == RegOutputVariable) {
        return holder.RegulatorName.empty() ? ""
               : holder.RegulatedFrom < 0   ? "@" + holder.RegulatorName
                                            : "@" + holder.RegulatorName + elementName(holder.RegulatedFrom + 1);
    }
    if (holder.RegulatorType == RegConstant) {
        return "\"" + holder.RegulatorName + "\" (" + dataTypes.shown(holder.RegulatedFrom) + ")";
    }
    const AttributeProperties* attribute = attributeOf(holder, field);
    if (!attribute) {
        return {};
    }
    const LDLSource* source = holder.RegulatorType == RegInput ? sourceAt(holder.RegulatorName, field) : nullptr;
    return (source ? source->Source : holder.RegulatorName) + "." + attribute->Attribute_Name;
}

std::optional<std::int16_t> dataTypeOf(const LDLVariable& holder, const AnswerField& field) {
    if (holder.RegulatorType == RegConstant) {
        return holder.RegulatedFrom >= 0 ? std::optional(holder.RegulatedFrom) : std::nullopt;
    }
    const AttributeProperties* attribute = attributeOf(holder, field);
    return attribute ? std::optional(attribute->Attribute_Type) : std::nullopt;
}

namespace {

/// A reference to a variable in a template, with its index if it has one.
struct Reference {
    std::string name;
    std::size_t begin, end;
};

std::vector<Reference> referencesIn(const std::string& text) {
    std::vector<Reference> result;
    for (std::size_t at = text.find('@'); at != std::string::npos; at = text.find('@', at + 1)) {
        Reference reference{std::string(nameAt(text, at + 1)), at, 0};
        reference.end = at + 1 + reference.name.size();
        if (reference.end < text.size() && text[reference.end] == '[') {
            const std::size_t close = text.find(']', reference.end);
            reference.end = close == std::string::npos ? text.size() : close + 1;
        }
        result.push_back(std::move(reference));
    }
    return result;
}

bool isComparison(std::string_view between) {
    const std::string_view sign = platform::trimmed(between);
    for (const std::string_view each : {"=", "!=", "<>", "<", "<=", ">", ">="}) {
        if (sign == each) {
            return true;
        }
    }
    return false;
}

bool isBlank(std::string_view between) {
    return !between.empty() && platform::trimmed(between).empty();
}

}  // namespace

const LDLVariable* comparedWith(const std::string& text, const LDLVariable& variable, int element,
                                const LDLVariableCollection& variables) {
    const std::vector<Reference> all = referencesIn(text);
    const auto between = [&](std::size_t a, std::size_t b) {
        return std::string_view(text).substr(all[a].end, all[b].begin - all[a].end);
    };
    const auto meant = [&](const std::string& name) -> const LDLVariable* {
        const LDLVariable* other = name == variable.VariableName ? nullptr : variables.Item(name);
        other = other && element > 0 && other->SubVariables ? other->SubVariables->Item(element) : other;
        return other && other->Defined ? other : nullptr;
    };
    const LDLVariable* found = nullptr;
    const auto compare = [&](std::size_t a, std::size_t b) {
        const bool here = all[a].name == variable.VariableName || all[b].name == variable.VariableName;
        found = !found && here ? meant(all[a].name == variable.VariableName ? all[b].name : all[a].name) : found;
    };
    for (std::size_t at = 0; at + 1 < all.size(); ++at) {
        if (isComparison(between(at, at + 1))) {
            compare(at, at + 1);
        } else if (at + 2 < all.size() && isBlank(between(at, at + 1)) && isBlank(between(at + 1, at + 2))) {
            compare(at, at + 2);  // the operator is a variable, too
        }
    }
    return found;
}

}  // namespace orvent::statements
