#pragma once

#include <string>
#include <vector>

#include "statements/ldl_form.h"
#include "statements/template_advice.h"
#include "statements/template_roles.h"

namespace orvent::statements {

/// What the wizard tells somebody who never wrote a template. It only reads the wizard.
class LDLGuide {
  public:
    explicit LDLGuide(const LDLForm& form) : form_(form) {}

    enum class Mood { underWay, missing, complete };
    /// `complete` only when nothing at all is missing; `missing` when the statement or the activity is not whole.
    Mood mood() const;

    /// Which of the activities without a statement this is; empty when only this one is opened.
    std::string roundText() const;
    /// How far the walk is and which variable is meant: "Variable 2 of 5: @KEY, an array with 3 elements".
    std::string progressText() const;
    /// What to do next, or what is still missing on the panel.
    std::string hint() const;
    /// Why a button is grey; empty while it is not.
    std::string whyDisabled(LDLButton button) const;
    /// The button that leads on; it may still be disabled.
    LDLButton leadsOn() const;

    /// The activity's type and what it does: "Selection: Passes the rows ...".
    std::string typeText() const;
    /// What the variable stands for, in the words of the type's description; empty when they do not name it.
    std::string meaningOf(const LDLVariable& variable) const;
    /// What it plainly stands for; of the current variable, while it has no kind.
    TemplateRole proposal() const;

    /// Why the statement is not whole; nothing before one is generated.
    std::vector<Advice> faults() const;
    /// All that is to be known now: the faults first, then what does not fit, and what creating would cost.
    std::vector<Advice> advice() const;
    /// Whether whole numbers would make a difference.
    bool offersWholeNumbers() const;

    /// How a source is called: "a_in2 (Activity3)".
    std::string sourceCaption(int at) const;

  private:
    TemplateSubject subject() const;

    const LDLForm& form_;
};

}  // namespace orvent::statements
