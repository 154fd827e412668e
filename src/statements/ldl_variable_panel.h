#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "statements/ldl_value_panel.h"

namespace orvent::statements {

/// The wizard's panels for one variable: its kind in `frameVar`, the elements of an array in `frameArrity`, and its
/// value. They show a variable and store it; which one it is, the steps of the wizard say.
class LDLVariablePanel : public LDLValuePanel {
  public:
    LDLVariable* CurrentVariable = nullptr;

    std::string lblVariable;              ///< name of the current variable, without "@"
    LDLVariableType kind = VarUndefined;  ///< the chosen one of `kLDLKindOptions`
    std::string frameValueCaption = "Value";
    std::int16_t UpDownArity = 0;  ///< number of elements; `txtArity` shows it
    LDLList listArrity;
    std::string txtFunctionName;  ///< the window writes edits through

    void chooseKind(LDLVariableType option);
    void UpDownArity_Up();
    void UpDownArity_Down();
    void selectArrity(int position);

    // Several elements at once. They come behind those that are whole; what is not whole at the end goes.

    /// What the elements of the array at hand can be taken from: the names of the input sources, or those of the arrays
    /// that can regulate outputs. Empty for a variable that is no array, and before it has its kind.
    std::vector<std::string> bunches() const;
    /// What one of them holds, in order.
    std::vector<std::string> bunch(int at) const;
    /// An element for each of these places in it, from 0.
    void takeBunch(int at, const std::vector<int>& places);
    void takeWholeBunch(int at);

    void StoreCurrentVariable();
    void StoreCurrentElement();

    /// Whether the variable has all that it needs; of the current one the panel is looked at.
    bool isComplete(const LDLVariable& variable) const;
    /// The same of an element of the current variable, which is an array.
    bool isElementComplete(const LDLVariable& element) const;
    /// What is still to be done for the current variable; empty when it is whole.
    std::string missingOnPanel() const;

  protected:
    using LDLValuePanel::LDLValuePanel;
    ~LDLVariablePanel() = default;

    /// Shows the current variable.
    void showVariable();
    /// Stores it, and the element that is shown.
    void storePanel();
    /// Empties all controls and lists.
    void clearPanel();

  private:
    void resetPanel();
    void showPanel(LDLVariableType option);
    void showArray();
    bool takesInputs() const { return kind == VarParameterArray || kind == VarFunctionParameterArray; }
    void dropOpenElements();
    std::string missingInArray() const;
};

}  // namespace orvent::statements
