#include "app/cli_session.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>

#include "app/first_start.h"
#include "exchange/document_reader.h"
#include "exchange/document_writer.h"
#include "exchange/open_scenario.h"
#include "platform/name_list.h"
#include "platform/text.h"
#include "repository/data_source_list.h"
#include "shell/kept_facts.h"

namespace orvent::app {

using repository::ViewScenarios;

namespace {

constexpr std::string_view kSuffix = ".orvent";

std::string fileText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(file), {});
    if (!file.is_open() || file.bad()) {
        throw platform::Fault(path + ": " + std::strerror(errno));
    }
    return text;
}

exchange::Document documentOf(const std::string& path, std::string_view text) {
    try {
        return exchange::readDocument(text);
    } catch (const exchange::BadDocument& fault) {
        throw platform::Fault(path + ": " + fault.what());
    }
}

}  // namespace

CliSession::CliSession(const Places& places, const RepositoryChoice& choice, AnsweredBox& box)
    : places_(places),
      choice_(choice),
      box_(box),
      database_(places.sources()),
      dataSources_(places.sources()),
      store_(places.settings),
      services_{database_, dataSources_, box, nobody_, nobody_, store_, nobody_, options_.repository},
      catalogue_(
          services_, [] {}, [] { return true; }),  // its faults are thrown
      loadSave_(services_, catalogue_, *this),
      storedTypes_(services_, catalogue_) {
    dialogs_.add<exchange::MissingTypesForm>([this](exchange::MissingTypesForm& question) {
        if (!box_.isGiven("--add-types")) {
            throw WrongUse(question.words() + "\nGive --add-types to have them added.");
        }
        // What the file does not define, the save adds as far as it is known.
        question.canAdd() ? question.cmdAdd_Click() : question.cmdWithout_Click();
    });
    const std::string fault = LoadOptions(options_, store_, platform::ProgramFolder(places_.data));
    if (!fault.empty()) {
        box_.tell(fault, {}, platform::Icon::warning);
    }
}

CliSession::~CliSession() = default;

void CliSession::openRepository() {
    repository::LoginValues& login = options_.repository.login;
    if (choice_.source.empty()) {
        if (login.ReposConnString.empty() && !box_.isGiven("--make-repository")) {
            throw WrongUse(
                "The settings name no repository.\nGive --make-repository to make one of your own, or name one by "
                "--source.");
        }
        FirstStart(places_, database_, store_, box_).run();
        LoadOptions(options_, store_, platform::ProgramFolder(places_.data));
    } else {
        login.ReposConnString = choice_.source;
        login.ReposLogin.clear();
        login.ReposPasw.clear();
    }
    if (!choice_.user.empty()) {
        login.ReposLogin = choice_.user;
        login.ReposPasw = askedPassword();
    }
    if (!choice_.designer.empty()) {
        login.User = choice_.designer;
    }
    if (platform::trimmed(login.User).empty()) {
        throw WrongUse("Nobody's scenarios are asked for: name a designer by --designer.");
    }
    if (repository::isSourceOnly(dataSources_, login.ReposConnString)) {
        throw platform::Fault(login.ReposConnString + " is a source of data and cannot be a repository.");
    }
    catalogue_.LoadDataTypes();
    catalogue_.LoadFunctionTypes();
    catalogue_.LoadActivityTypes();
}

ViewScenarios CliSession::listed() {
    openRepository();
    ViewScenarios list(services_, loadSave_, *this);
    list.open(ViewScenarios::Mode::Load, nullptr);
    return list;
}

std::vector<std::string> CliSession::scenarios() {
    std::vector<std::string> names;
    for (const ViewScenarios::Item& item : listed().ScenarioView) {
        names.push_back(item.name);
    }
    return names;
}

canvas::DrawForm& CliSession::load(const std::string& name) {
    ViewScenarios list = listed();
    list.changeName(name);
    if (!list.canOK() || !list.OKButton() || !form_) {
        throw platform::Fault(options_.repository.login.User + " has no scenario " + name + ".");
    }
    shell::fillFacts(*form_, platform::StateFolder(places_.states), options_.repository.login.ReposConnString);
    return *form_;
}

canvas::DrawForm& CliSession::open(const std::string& scenario) {
    const bool isFile = scenario.ends_with(kSuffix) || scenario.find('/') != std::string::npos;
    return isFile ? openFile(scenario) : load(scenario);
}

canvas::DrawForm& CliSession::openFile(const std::string& path) {
    const std::string text = fileText(path);
    documentTypes_ = std::make_unique<DocumentTypes>(documentOf(path, text));
    return fill(path, text, *documentTypes_);
}

canvas::DrawForm& CliSession::fill(const std::string& path, std::string_view text, exchange::TypeCatalogue& types) {
    std::string name;
    NewScenario(name);
    try {
        const exchange::Opened opened = exchange::openScenario(*form_, text, {types, dialogs_});
        if (!opened.words.empty()) {
            box_.tell(opened.words, {}, platform::Icon::warning);
        }
    } catch (const exchange::BadDocument& fault) {
        throw platform::Fault(path + ": " + fault.what());
    }
    return *form_;
}

bool CliSession::put(const std::string& path, const std::string& name) {
    const std::string text = fileText(path);
    openRepository();
    canvas::DrawForm& form = fill(path, text, storedTypes_);
    if (!name.empty()) {
        form.setCaption(name);
    }
    if (form.Caption().empty()) {
        throw WrongUse("The scenario has no name: give one by --name.");
    }
    if (loadSave_.SaveScenario(form, true) != repository::SaveResult::saved) {
        throw platform::Fault(form.Caption() + " was not stored.");
    }
    return form.unstorable().empty();
}

exchange::TypeCatalogue& CliSession::types() {
    if (documentTypes_) {
        return *documentTypes_;
    }
    return storedTypes_;
}

std::string CliSession::document() {
    return writeDocument(*form_, types().tables(), definitionsFor(exchange::Extract::all(*form_), types()),
                         {ORVENT_VERSION, false});
}

std::string CliSession::typesDocument() {
    openRepository();
    const exchange::Extract none{"Types", {}, {}, nullptr, false, {}};
    return writeDocument(none, catalogue_.tables, allTypes(storedTypes_), {ORVENT_VERSION, false});
}

bool CliSession::importTypes(const std::string& path) {
    const exchange::Document document = documentOf(path, fileText(path));
    openRepository();
    const exchange::TypeComparison found = compareTypes(document, storedTypes_);
    if (!found.lacking.empty()) {
        storedTypes_.add(found.lacking);
    }
    const auto warn = [this](const std::string& words, const std::vector<std::string>& names) {
        if (!names.empty()) {
            box_.tell(words + platform::nameList(names) + ".", {}, platform::Icon::warning);
        }
    };
    warn("The repository's own definition holds, and is another one than the file's: ", found.differing);
    warn("The file has no definition: ", found.undefined);
    return found.differing.empty() && found.undefined.empty();
}

int CliSession::NewScenario(std::string& name) {
    form_ = std::make_unique<canvas::DrawForm>(canvas::CanvasServices{box_, options_.canvas});
    form_->setCaption(name);
    form_->Tag = "0";
    return 0;
}

canvas::DrawForm* CliSession::scenario(int slot) {
    return slot == 0 ? form_.get() : nullptr;
}

void CliSession::discardScenario(int) {
    form_.reset();
}

}  // namespace orvent::app
