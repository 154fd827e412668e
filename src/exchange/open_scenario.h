#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "exchange/scenario_filler.h"
#include "exchange/type_catalogue.h"
#include "forms/dialog_port.h"

namespace orvent::exchange {

/// The dialog that asks what is to become of types that the catalogue lacks.
class MissingTypesForm {
  public:
    enum class Answer { addThem, openWithout, cancel };

    explicit MissingTypesForm(const TypeComparison& types);

    const std::string& words() const { return words_; }
    bool canAdd() const { return canAdd_; }  ///< the document defines at least one of them
    void cmdAdd_Click() { answer_ = Answer::addThem; }
    void cmdWithout_Click() { answer_ = Answer::openWithout; }
    Answer answer() const { return answer_; }  ///< Cancel until a button was pressed

  private:
    std::string words_;
    bool canAdd_;
    Answer answer_ = Answer::cancel;
};

/// What documents ask of the outside.
struct ExchangePorts {
    TypeCatalogue& catalogue;
    const forms::Dialogs& dialogs;
};

/// The types of a document in this run, and what is to be told of them at the end.
struct SettledTypes {
    TypeIndices indices;
    std::string words;
};

/// Sees to the types that the catalogue lacks, with one question. Nothing when it was cancelled.
std::optional<SettledTypes> settleTypes(const Document& document, const ExchangePorts& ports);

/// Fills an empty window with a document whose types are settled. Gives what is to be told, in one message; empty when
/// there is nothing.
std::string fillSettled(canvas::DrawForm& form, Document document, const SettledTypes& types);

/// How a document was opened.
struct Opened {
    bool opened = false;  ///< false when the user has cancelled; the window is empty then
    std::string words;    ///< what is to be told, in one message; empty when there is nothing
};

/// Fills an empty window with the scenario of a text. Throws a `BadDocument` for a text that is none, and a `Fault` for
/// types that cannot be added; the window is empty then.
Opened openScenario(canvas::DrawForm& form, std::string_view text, const ExchangePorts& ports);

}  // namespace orvent::exchange
