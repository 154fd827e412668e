// Checking and storing what a type editor holds.

#include "editors/type_editor.h"
#include "platform/fault.h"

namespace orvent::editors {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

bool TypeEditor::apply() {
    if (!isEditing() || !mayBeSaved(messages())) {
        return false;
    }
    try {
        if (!store()) {
            return false;
        }
    } catch (const repository::TypeGone& gone) {
        mode = TypeMode::create;  // what was typed stays
        begun_.reset();
        messages().tell(gone.description() + "\nSaving once more makes it a new type.", {}, Icon::critical);
        return false;
    } catch (const platform::Fault& fault) {
        messages().tell(fault.description(), {}, Icon::critical);
        return false;
    }
    mode = TypeMode::browse;
    fillTypes(std::string(txtName));
    return true;
}

bool TypeEditor::store() {
    refreshTables();
    const std::optional<std::int16_t> stored = storedIndex();
    if (!isFree(stored) || !fits(stored) || !hasItsTypes() || (stored && !mayReplace(*stored))) {
        return false;
    }
    begun_ = txtName;  // until it is known: some of it may stand although the line breaks
    if (!write(stored)) {
        return false;
    }
    begun_.reset();
    return true;
}

/// Where the store has what this editor works on: the type that is edited, or what a save that broke off has left.
std::optional<std::int16_t> TypeEditor::storedIndex() const {
    const auto begun = begun_ ? table().indexOf(*begun_) : std::nullopt;
    if (mode == TypeMode::create) {
        return begun;
    }
    const auto edited = table().indexOf(edited_);
    if (!edited && !begun) {
        throw repository::TypeGone(edited_);
    }
    return edited ? edited : begun;
}

bool TypeEditor::isFree(std::optional<std::int16_t> stored) const {
    const auto holder = table().indexOf(txtName);
    if (holder && holder != stored) {
        messages().tell(
            std::string("THIS NAME IS USED FOR ANOTHER ") + words.kindOfType + ".\nPLEASE GIVE ANOTHER NAME!",
            "DUPLICATE NAME!", Icon::critical);
        return false;
    }
    if (stored && scenarioOpen_ && table().goneIndexOf(txtName)) {
        messages().tell(
            "A type of this name was deleted, and an open scenario may still have it.\n"
            "Please close all scenarios first, or add it again as a new type.",
            {}, Icon::warning);
        return false;
    }
    return true;
}

bool TypeEditor::fits(std::optional<std::int16_t> stored) const {
    const auto tooLong = [this](const std::string& name, const std::string& excess, const char* of) {
        if (!excess.empty()) {
            messages().tell(name + " " + excess + of + ".\nPlease give a shorter one.", {}, Icon::warning);
        }
        return !excess.empty();
    };
    if (!(stored && table().name(*stored) == txtName) &&
        tooLong("The name", nameLimit_.excess(txtName), " of a type's name")) {
        return false;
    }
    for (const forms::List& list : lists) {
        for (const forms::ListRow& row : list.rows()) {
            if (tooLong("The name " + platform::quotedShort(row.Key), lineLimit_.excess(row.Key), " of a name")) {
                return false;
            }
        }
    }
    return true;
}

bool TypeEditor::hasItsTypes() const {
    const std::string gone = goneLine();
    if (!gone.empty()) {
        messages().tell(gone + " Please remove that line, or add the type again.", {}, Icon::warning);
    }
    return gone.empty();
}

bool TypeEditor::mayReplace(std::int16_t stored) const {
    if (begun_ || mode != TypeMode::edit) {
        return true;
    }
    const std::vector<std::string> state = kind == TypeKind::function   ? stateOf(catalogue_.wholeFunctionType(stored))
                                           : kind == TypeKind::activity ? stateOf(catalogue_.wholeActivityType(stored))
                                                                        : readState_;
    return state == readState_ ||
           messages().show("Another user has changed the type " + edited_ + " since you began to edit it.\n" +
                               "Would you like to replace what is stored by what you see here?",
                           "Type Changed", Icon::question, Buttons::destroyYesNo) == Answer::yes;
}

bool TypeEditor::write(std::optional<std::int16_t> stored) {
    const std::int16_t at = stored.value_or(0);
    switch (kind) {
        case TypeKind::data:
            if (!stored) {
                catalogue_.SaveDataType(txtName);  // tells its faults
                return table().indexOf(txtName).has_value();
            }
            catalogue_.UpdateDataType(at, txtName);
            break;
        case TypeKind::function:
            stored ? catalogue_.UpdateFunctionType(functionType(at)) : catalogue_.SaveFunctionType(functionType(at));
            break;
        case TypeKind::activity:
            stored ? catalogue_.UpdateActivityType(activityType(at)) : catalogue_.SaveActivityType(activityType(at));
            break;
    }
    return true;
}

}  // namespace orvent::editors
