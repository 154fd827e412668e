#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "entities/keyed_collection.h"

namespace orvent::statements {

/// What a variable of a template stands for.
enum LDLVariableType : std::int32_t {
    VarUndefined = 0,
    VarParameter = 1,
    VarParameterArray = 2,
    VarFunctionParameter = 3,
    VarFunctionParameterArray = 4,
    VarRecordSet = 5,
    VarFunction = 6,
    VarFunctionOutput = 7,
    VarOutput = 8,
    VarOutputArray = 9,
};

/// Where the value of a parameter-like variable comes from.
enum LDLRegulatorType : std::int32_t {
    RegUndefined = 0,
    RegInput = 1,
    RegRecordSetField = 2,
    RegConstant = 3,
    RegOutputVariable = 4,
};

class LDLVariableCollection;

/// One hole of a template, or one element of an array hole. The value has two coordinates, whose meaning depends on
/// the kinds; every position in them is 0-based, and -1 means that nothing was chosen.
///
/// `RegulatorType` is read on kinds 1 to 4 and on elements of `VarOutputArray`:
///   RegInput           name: position of the input source, in decimal; from: position of the attribute in it
///   RegRecordSetField  name: the record set; from: position of its attribute
///   RegConstant        name: the constant's text; from: data type
///   RegOutputVariable  name: the regulating variable; from: position of its element
/// The other kinds: VarRecordSet and VarFunction hold a name, VarFunctionOutput a data type in `RegulatedFrom`,
/// VarOutput the regulating variable and the position of its element (-1 for a scalar).
struct LDLVariable {
    std::unique_ptr<LDLVariableCollection> SubVariables;  ///< the elements, only on an array variable
    LDLRegulatorType RegulatorType = RegUndefined;
    std::int16_t RegulatedFrom = 0;
    std::string RegulatorName;
    std::string VariableName;  ///< as it stands behind "@"; of an element its position in decimal
    LDLVariableType VariableType = VarUndefined;
    std::int16_t Index = 0;  ///< 1-based position in its collection
    bool Defined = false;    ///< the designer has given it a kind
};

/// The variables of a template in the order in which they first appear, keyed by name. The empty name is a name too.
class LDLVariableCollection : private entities::KeyedCollection<LDLVariable> {
    using Base = entities::KeyedCollection<LDLVariable>;

  public:
    /// A new variable of that name, or the one there is: a second occurrence of a name is the same variable.
    LDLVariable& Add(const std::string& name);

    /// By key or by 1-based position; nothing when there is none.
    const LDLVariable* Item(const std::string& name) const;
    LDLVariable* Item(const std::string& name) { return const_cast<LDLVariable*>(std::as_const(*this).Item(name)); }
    const LDLVariable* Item(int position) const { return Base::Item(position); }
    LDLVariable* Item(int position) { return Base::Item(position); }

    void Remove(const std::string& name) { Base::Remove(keyOf(name)); }
    void Remove(int position) { Base::Remove(position); }

    /// Whether each variable but the last one is defined.
    bool allDefinedBeforeLast() const;

    using Base::begin;
    using Base::Clear;
    using Base::Count;
    using Base::end;

  private:
    // The collection below takes an empty key for none.
    static std::string keyOf(const std::string& name) { return '@' + name; }

    mutable int expected_ = 1;  ///< the position that is asked for next, most likely
};

/// A letter a to z of either case, a digit or "_".
bool isNameCharacter(char c);

/// The longest run of name characters from the 0-based offset `at`; may be empty.
std::string_view nameAt(std::string_view text, std::size_t at);

/// Adds every variable of the template that is not there yet. One occurrence with "[" directly behind the name makes a
/// variable an array. Throws a `Fault` at an array bracket that is not closed; what was found until there stays.
void scanTemplate(std::string_view text, LDLVariableCollection& Variables);

/// How a template refers to the variable.
inline std::string referenceTo(const LDLVariable& variable) {
    return '@' + variable.VariableName;
}

/// A stretch of a template, in bytes.
struct LDLMark {
    std::size_t at;
    std::size_t length;
    bool operator==(const LDLMark&) const = default;
};

/// Where a variable stands in a text, each time with its index.
std::vector<LDLMark> occurrencesOf(const std::string& name, const std::string& text);

}  // namespace orvent::statements
