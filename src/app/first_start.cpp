#include "app/first_start.h"

#include <cstdlib>

#include "app/built_in.h"
#include "odbc/database.h"
#include "platform/settings_file.h"
#include "platform/text.h"
#include "repository/repository_check.h"

namespace orvent::app {

namespace {

namespace fs = std::filesystem;

/// The files that SQLite keeps beside a database while it is open, or after it could not be closed well.
constexpr const char* kBeside[] = {"-wal", "-shm", "-journal"};

void dropFiles(const fs::path& database) {
    std::error_code ignored;
    fs::remove(database, ignored);
    for (const char* end : kBeside) {
        fs::remove(database.string() + end, ignored);
    }
}

/// What was written is partly in a file beside the database still: there was no room to bring it in.
bool hasJournal(const fs::path& database) {
    std::error_code none;
    const auto size = fs::file_size(database.string() + kBeside[0], none);
    return !none && size > 0;
}

std::string userName() {
    for (const char* name : {"USER", "LOGNAME"}) {
        const char* value = std::getenv(name);
        if (value && *value) {
            return value;
        }
    }
    return "designer";
}

}  // namespace

FirstStart::FirstStart(const Places& places, platform::Database& database, platform::SettingsStore& store,
                       platform::MessageBox& messages)
    : places_(places), database_(database), store_(store), messages_(messages) {}

void FirstStart::run() {
    try {
        setAside();
        // A start that broke off half-way has stored no repository; the next one does the rest.
        const bool chosen = fs::exists(places_.settings) && !store_.value("DB", "ReposConnString", "").empty();
        if (chosen) {
            lookAtRepository();
        } else {
            provision();
        }
    } catch (const std::exception& fault) {
        messages_.tell(fault.what(), {}, platform::Icon::critical);
    }
}

/// A settings file that holds none would be taken for a very first start, and lost with the first write.
void FirstStart::setAside() {
    if (!fs::exists(places_.settings) || platform::holdsSettings(places_.settings)) {
        return;
    }
    fs::path kept = places_.settings;
    kept += ".unreadable";
    for (int number = 2; fs::exists(kept); ++number) {  // what was kept before stays
        kept = places_.settings.string() + ".unreadable" + std::to_string(number);
    }
    std::error_code fault;
    fs::rename(places_.settings, kept, fault);
    if (fault) {
        messages_.tell("The settings cannot be read: " + places_.settings.string(), {}, platform::Icon::warning);
        return;
    }
    messages_.tell(
        "The settings cannot be read. The program begins with new ones; the old file was kept as\n" + kept.string(), {},
        platform::Icon::warning);
}

void FirstStart::provision() {
    try {
        makeFolders();
        platform::writeFile((places_.data / "ORVENTII.sql").string(), builtIn("ORVENTII.sql"));
        platform::writeFile((places_.data / "ORVENTII.chm").string(), builtIn("ORVENTII.chm"));
        makeRepository();
        makeSample();
    } catch (const std::exception& fault) {
        if (!fs::exists(places_.repository())) {
            throw;
        }
        // A folder that can only be read, with a repository of before in it: that one can be opened still.
        messages_.tell(fault.what(), {}, platform::Icon::warning);
    }
    store_.setValue("DB", "ReposConnString", odbc::EmbeddedRepository{}.name);
    store_.setValue("DB", "User", userName());
}

/// Scenarios are nobody else's business. A folder that was there already keeps its mode: it may be shared on purpose.
void FirstStart::makeFolders() {
    if (fs::create_directories(places_.data)) {
        fs::permissions(places_.data, fs::perms::owner_all);
    }
    for (const char* folder : {"LDLS", "Logs"}) {
        if (fs::create_directory(places_.data / folder)) {
            fs::permissions(places_.data / folder, fs::perms::owner_all);
        }
    }
}

/// Makes the repository beside its place and moves it there when it is whole, so that a full disk leaves none at all
/// rather than one without types.
void FirstStart::makeRepository() {
    // A repository that is there already is never run over: it may hold scenarios.
    if (fs::exists(places_.repository())) {
        return;
    }
    const fs::path made = places_.repository().string() + ".new";
    dropFiles(made);
    try {
        odbc::OwnSources beside;
        beside.embedded = odbc::EmbeddedRepository{.file = made};
        odbc::createEmbedded(made);
        repository::runWholeScript(*odbc::OdbcDatabase(beside).open(beside.embedded->name, "", ""),
                                   builtIn("ORVENTII.sql"));
        if (hasJournal(made)) {
            throw platform::Fault("There is no room for the repository: " + places_.repository().string());
        }
        fs::rename(made, places_.repository());
    } catch (const std::exception&) {
        dropFiles(made);
        throw;
    }
}

/// The program does without it, so its fault is told and no more.
void FirstStart::makeSample() {
    if (fs::exists(places_.sample())) {
        return;
    }
    try {
        odbc::createSample(places_.sample(), builtIn("bookshop.sql"));
    } catch (const std::exception& fault) {
        messages_.tell(fault.what(), {}, platform::Icon::warning);
    }
}

void FirstStart::lookAtRepository() {
    if (store_.value("DB", "ReposConnString", "") != odbc::EmbeddedRepository{}.name) {
        return;
    }
    if (fs::exists(places_.repository())) {
        database_.open(odbc::EmbeddedRepository{}.name, "", "");
        return;
    }
    const platform::Answer answer =
        messages_.show("The embedded repository was not found:\n" + places_.repository().string() +
                           "\nWould you like a new, empty one to be made there?",
                       "Embedded Repository", platform::Icon::question, platform::Buttons::okCancel);
    if (answer == platform::Answer::ok) {
        makeFolders();
        makeRepository();
    }
}

}  // namespace orvent::app
