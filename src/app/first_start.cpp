#include "app/first_start.h"

#include <QFile>
#include <cstdlib>

#include "odbc/database.h"
#include "platform/text.h"
#include "repository/repository_check.h"

namespace orvent::app {

namespace {

namespace fs = std::filesystem;

/// A file that is built into the program.
std::string builtIn(const char* name) {
    QFile file(QString(":/orvent/") + name);
    if (!file.open(QIODevice::ReadOnly)) {
        throw platform::Fault(std::string(name) + " is not part of this program.");
    }
    return file.readAll().toStdString();
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

std::unique_ptr<platform::Connection> FirstStart::run() {
    try {
        if (fs::exists(places_.settings)) {
            return lookAtRepository();
        }
        provision();
    } catch (const std::exception& fault) {
        messages_.tell(fault.what(), {}, platform::Icon::critical);
    }
    return nullptr;
}

void FirstStart::provision() {
    makeFolders();
    platform::writeFile((places_.data / "ORVENTII.sql").string(), builtIn("sql/ORVENTII.sql"));
    platform::writeFile((places_.data / "ORVENTII.chm").string(), builtIn("help/ORVENTII.chm"));
    makeRepository();
    makeSample();
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

void FirstStart::makeRepository() {
    // A repository that is there already is never run over: it may hold scenarios.
    if (fs::exists(places_.repository())) {
        return;
    }
    odbc::createEmbedded(places_.repository());
    const auto connection = database_.open(odbc::EmbeddedRepository{}.name, "", "");
    repository::runScript(*connection, builtIn("sql/ORVENTII.sql"));
}

/// The program does without it, so its fault is told and no more.
void FirstStart::makeSample() {
    if (fs::exists(places_.sample())) {
        return;
    }
    try {
        odbc::createSample(places_.sample(), builtIn("sql/bookshop.sql"));
    } catch (const std::exception& fault) {
        messages_.tell(fault.what(), {}, platform::Icon::warning);
    }
}

std::unique_ptr<platform::Connection> FirstStart::lookAtRepository() {
    if (store_.value("DB", "ReposConnString", "") != odbc::EmbeddedRepository{}.name) {
        return nullptr;
    }
    if (fs::exists(places_.repository())) {
        return database_.open(odbc::EmbeddedRepository{}.name, "", "");
    }
    const platform::Answer answer =
        messages_.show("The embedded repository was not found:\n" + places_.repository().string() +
                           "\nWould you like a new, empty one to be made there?",
                       "Embedded Repository", platform::Icon::question, platform::Buttons::okCancel);
    if (answer == platform::Answer::ok) {
        makeFolders();
        makeRepository();
    }
    return nullptr;
}

}  // namespace orvent::app
