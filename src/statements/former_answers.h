#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "canvas/draw_form.h"
#include "statements/ldl_sources.h"
#include "statements/ldl_variables.h"

namespace orvent::statements {

/// Among what a variable of a template can choose: the sources and variables of one activity, and its scenario.
struct AnswerField {
    const LDLVariableCollection& Variables;
    const LDLsourceColl& Sources;
    const canvas::DrawForm& form;
};

/// What the variables of templates stood for when an activity was made by them last. Attributes are remembered by their
/// names, so that an answer fits another activity as far as that has the same.
class FormerAnswers {
  public:
    void keep(const std::string& text, const AnswerField& field);

    /// What the variable of a template stood for, as this activity would have it: as a variable of the same name. Where
    /// its value does not fit here it has its kind alone, and an array no elements. Null when nothing is remembered.
    std::unique_ptr<LDLVariable> of(const std::string& text, const LDLVariable& variable,
                                    const AnswerField& field) const;

  private:
    struct Value {
        LDLRegulatorType type = RegUndefined;
        std::string name;
        std::int16_t from = -1;
        std::string attribute;  ///< its name, where `from` is the place of one
    };
    struct Answer {
        LDLVariableType kind = VarUndefined;
        Value value;
        std::vector<Value> elements;
    };

    static Value valueOf(const LDLVariable& holder, const AnswerField& field);
    static bool give(const Value& value, LDLVariableType kind, LDLVariable& holder, const AnswerField& field);

    std::map<std::pair<std::string, std::string>, Answer> answers_;  ///< by template and variable
};

/// The value of a variable, or of an element, in words: "a_in1.AGE", "REF.ID", "\"7\" (NUMBER)"; empty for none.
std::string valueWords(LDLVariableType kind, const LDLVariable& holder, const AnswerField& field,
                       const entities::NameTable& dataTypes);

/// With what the template compares a variable, or an element of an array (its place; 0 for none): the first variable of
/// another side that is defined, or nothing.
const LDLVariable* comparedWith(const std::string& text, const LDLVariable& variable, int element,
                                const LDLVariableCollection& variables);

/// The data type of a value that comes from an input, a record set or a constant.
std::optional<std::int16_t> dataTypeOf(const LDLVariable& holder, const AnswerField& field);

}  // namespace orvent::statements
