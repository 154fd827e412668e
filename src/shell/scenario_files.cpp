#include "shell/scenario_files.h"

#include <algorithm>
#include <filesystem>

#include "exchange/document_reader.h"
#include "exchange/document_writer.h"
#include "platform/text.h"
#include "shell/program_version.h"

namespace orvent::shell {

namespace {

constexpr const char* kSection = "Files";
constexpr const char* kFilter = "ORVENT II Scenarios (*.orvent)|*.orvent";
constexpr const char* kSuffix = ".orvent";

std::string keyOfRecent(std::size_t at) {
    return "Recent" + std::to_string(at + 1);
}

}  // namespace

ScenarioFiles::ScenarioFiles(const Ports& ports, repository::Services& services, repository::ScenarioWindows& windows,
                             const exchange::ExchangePorts& exchange)
    : ports_(ports), services_(services), windows_(windows), exchange_(exchange) {
    for (std::size_t at = 0; at < kMostRecent; ++at) {
        if (std::string path = ports_.store.value(kSection, keyOfRecent(at), {}); !path.empty()) {
            recent_.push_back(std::move(path));
        }
    }
}

void ScenarioFiles::open() {
    if (const std::string path = ports_.files.openFile(kFilter); !path.empty()) {
        open(path);
    }
}

void ScenarioFiles::open(const std::string& path) {
    std::error_code ignored;
    const std::filesystem::path whole = std::filesystem::absolute(path, ignored);
    openHere(ignored ? path : whole.string());
}

void ScenarioFiles::openHere(const std::string& path) {
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored)) {
        forget(path);
        ports_.messages.tell(path + " is not there any more.", {}, platform::Icon::warning);
        return;
    }
    try {
        if (fill(path)) {
            remember(path);
        }
    } catch (const exchange::BadDocument& bad) {
        ports_.messages.tell(path + " cannot be opened.\n" + bad.description(), {}, platform::Icon::warning);
    } catch (const platform::Fault& fault) {
        repository::showFault(services_, fault);
    }
}

bool ScenarioFiles::fill(const std::string& path) {
    const platform::Busy busy(ports_.progress);
    exchange::Document document = exchange::readDocument(platform::readFile(path));
    std::string name = freeName(document.name);
    document.name = name;
    document.stored.reset();
    // Before types are added: without a slot, which is told, nothing may change.
    auto types = anySlot() ? exchange::settleTypes(document, exchange_) : exchange::SettledTypes{};
    const int slot = types ? windows_.NewScenario(name) : -1;
    if (slot < 0) {
        return false;
    }
    // The first window reads the names of types anew, and keeps them from then on.
    try {
        types->indices = exchange::indicesIn(exchange_.catalogue.tables(), document);
    } catch (const platform::Fault&) {
        windows_.discardScenario(slot);
        throw;
    }
    canvas::DrawForm& form = *windows_.scenario(slot);
    const std::string words = exchange::fillSettled(form, std::move(document), *types);
    form.stored.changed = form.stored.forced = true;
    form.tellStored();
    if (!words.empty()) {
        ports_.messages.tell(words);
    }
    return true;
}

bool ScenarioFiles::anySlot() {
    bool any = false;
    for (int slot = 0; slot < windows_.slotCount(); ++slot) {
        any = any || !windows_.scenario(slot);
    }
    return any;
}

std::string ScenarioFiles::freeName(const std::string& name) {
    const auto isTaken = [this](const std::string& candidate) {
        for (int slot = 0; slot < windows_.slotCount(); ++slot) {
            const canvas::DrawForm* form = windows_.scenario(slot);
            if (form && form->Caption() == candidate) {
                return true;
            }
        }
        return false;
    };
    const std::string own = name.empty() ? "Scenario" : name;
    std::string candidate = own;
    for (int number = 2; isTaken(candidate); ++number) {
        candidate = own + " (" + std::to_string(number) + ")";
    }
    return candidate;
}

/// A file of the scenario's name in the data folder, or that folder for a name that no file can have.
std::string ScenarioFiles::proposalFor(const canvas::DrawForm& form) const {
    try {
        return ports_.folder.file("\\", form.Caption(), kSuffix);
    } catch (const platform::Fault&) {
        return ports_.folder.root().string();
    }
}

void ScenarioFiles::exportTo(const canvas::DrawForm& form) {
    std::string path =
        ports_.saveDialog.saveFile("Export To File", kFilter, proposalFor(form), platform::OldFile::askedAbout);
    if (path.empty()) {
        return;
    }
    if (!path.ends_with(kSuffix)) {
        path += kSuffix;
    }
    const platform::Busy busy(ports_.progress);
    const auto types = exchange::definitionsFor(exchange::Extract::all(form), exchange_.catalogue);
    platform::writeFile(path,
                        exchange::writeDocument(form, exchange_.catalogue.tables(), types, {programVersion(), false}));
    remember(path);
    ports_.progress.status(path + " Created");
}

void ScenarioFiles::remember(const std::string& path) {
    std::erase(recent_, path);
    recent_.insert(recent_.begin(), path);
    recent_.resize(std::min(recent_.size(), kMostRecent));
    storeRecent();
}

void ScenarioFiles::forget(const std::string& path) {
    if (std::erase(recent_, path) > 0) {
        storeRecent();
    }
}

void ScenarioFiles::storeRecent() {
    for (std::size_t at = 0; at < kMostRecent; ++at) {
        ports_.store.setValue(kSection, keyOfRecent(at), at < recent_.size() ? recent_[at] : std::string());
    }
}

}  // namespace orvent::shell
