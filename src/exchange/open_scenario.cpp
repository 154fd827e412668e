#include "exchange/open_scenario.h"

#include "exchange/document_reader.h"
#include "platform/name_list.h"

namespace orvent::exchange {

namespace {

/// Adds a paragraph.
void tell(std::string& words, const std::string& more) {
    words += (words.empty() ? "" : "\n") + more;
}

std::string typeLines(const std::vector<std::string>& names) {
    std::string lines;
    for (const std::string& name : names) {
        lines += "\n" + name;
    }
    return lines;
}

std::vector<std::string> lackingNames(const TypeDefinitions& types) {
    std::vector<std::string> names;
    for (const std::string& name : types.data) {
        names.push_back("data type " + name);
    }
    for (const FunctionTypeDefinition& type : types.functions) {
        names.push_back("function type " + type.name);
    }
    for (const ActivityTypeDefinition& type : types.activities) {
        names.push_back("activity type " + type.name);
    }
    return names;
}

}  // namespace

MissingTypesForm::MissingTypesForm(const TypeComparison& types)
    : words_("The repository lacks types that this scenario uses:" + typeLines(lackingNames(types.lacking))),
      canAdd_(!types.lacking.empty()) {
    if (!types.undefined.empty()) {
        words_ += (canAdd_ ? "\nOf these nothing but the name is known:" : "") + typeLines(types.undefined);
    }
}

std::optional<SettledTypes> settleTypes(const Document& document, const ExchangePorts& ports) {
    const TypeComparison types = compareTypes(document, ports.catalogue);
    std::vector<std::string> gone = types.undefined;
    if (!types.nothingLacks()) {
        MissingTypesForm question(types);
        ports.dialogs.show(question);
        switch (question.answer()) {
            case MissingTypesForm::Answer::addThem:
                ports.catalogue.add(types.lacking);
                break;
            case MissingTypesForm::Answer::openWithout: {
                const std::vector<std::string> defined = lackingNames(types.lacking);
                gone.insert(gone.end(), defined.begin(), defined.end());
                break;
            }
            case MissingTypesForm::Answer::cancel:
                return std::nullopt;
        }
    }
    SettledTypes settled{indicesIn(ports.catalogue.tables(), document), {}};
    if (!gone.empty()) {
        tell(settled.words, "Kept as names that the repository does not have: " + platform::nameList(gone) + ".");
    }
    if (!types.differing.empty()) {
        tell(settled.words, "The repository's own definition holds, and is another one than the file's: " +
                                platform::nameList(types.differing) + ".");
    }
    return settled;
}

std::string fillSettled(canvas::DrawForm& form, Document document, const SettledTypes& types) {
    std::string words = types.words;
    const std::vector<std::string> dangling = fillForm(form, std::move(document), types.indices);
    if (!dangling.empty()) {
        tell(words, "Links lead to what is not there, in: " + platform::nameList(dangling) + ".");
    }
    return words;
}

Opened openScenario(canvas::DrawForm& form, std::string_view text, const ExchangePorts& ports) {
    Document document = readDocument(text);
    const auto types = settleTypes(document, ports);
    return types ? Opened{true, fillSettled(form, std::move(document), *types)} : Opened{};
}

}  // namespace orvent::exchange
