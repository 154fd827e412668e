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
    for (const char* folder : {"LDLS", "Logs"}) {
        fs::create_directories(places_.data / folder);
    }
    platform::writeFile((places_.data / "ORVENTII.sql").string(), builtIn("sql/ORVENTII.sql"));
    platform::writeFile((places_.data / "ORVENTII.chm").string(), builtIn("help/ORVENTII.chm"));
    makeRepository();
    store_.setValue("DB", "ReposConnString", odbc::EmbeddedRepository{}.name);
    store_.setValue("DB", "User", userName());
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
        fs::create_directories(places_.data);
        makeRepository();
    }
    return nullptr;
}

}  // namespace orvent::app
