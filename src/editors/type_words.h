#pragma once

#include <array>
#include <span>

#include "repository/type_usage.h"

namespace orvent::editors {

using repository::TypeKind;

enum class TypeMode { browse, create, edit };

/// What the lines of one of the lists beside a type are.
enum class TypeListRole { input, parameter, output, function };

/// A list of the edit area.
struct TypeListWords {
    TypeListRole role;
    const char* list;      ///< "InputList", "OutPutList", "ParamList" or "FunctionList"
    const char* add;       ///< the button that adds a line
    const char* remove;    ///< and the one that removes the selected line
    const char* itemWord;  ///< for the item dialog
    const char* caption;
};

/// The words of one of the three windows.
struct TypeWords {
    const char* window;
    const char* types;                  ///< list of the existing entries
    const char* nameField;              ///< "txt..." of the name
    const char* descrField;             ///< likewise; empty: it has no description
    std::array<const char*, 3> titles;  ///< by `TypeMode`
    const char* kindOfType;             ///< as the messages call it, "DATA TYPE"
    const char* hint;                   ///< stands in the description of a new one
    const char* deleteTitle;
    const char* deleteQuestion;
    const char* deleteBlocked;  ///< told while a scenario is open
    std::span<const TypeListWords> lists;
};

const TypeWords& typeWords(TypeKind kind);

}  // namespace orvent::editors
