#include "platform/kept_settings.h"

#include "platform/fault.h"
#include "testkit/scripted_ports.h"

namespace orvent::testkit {

struct FailingSettings : MemorySettings {
    bool fails = true;
    int writes = 0;
    void setValue(const std::string& section, const std::string& key, const std::string& value) override {
        ++writes;
        fails ? throw platform::Fault("The disk is full.") : MemorySettings::setValue(section, key, value);
    }
};

TEST(KeptSettings, LastForTheRunAndAreToldOnce) {
    FailingSettings file;
    file.values[{"DB", "User"}] = "anna";
    ScriptedMessageBox messages;
    platform::KeptSettings settings(file, messages);
    settings.setValue("DB", "User", "anna");
    EXPECT_EQ(file.writes, 0) << "it is stored already";
    messages.expect("The disk is full.\nWhat you choose lasts until the program ends.", "", platform::Icon::warning);
    settings.setValue("DB", "User", "bert");
    settings.setValue("DB", "ReposLogin", "");
    EXPECT_EQ(settings.value("DB", "User", "") + settings.value("DB", "ReposLogin", "none"), "bert");

    file.fails = false;
    settings.setValue("DB", "User", "cara");
    EXPECT_EQ((file.values[{"DB", "User"}]), "cara");
    file.values[{"DB", "User"}] = "dora";
    EXPECT_EQ(settings.value("DB", "User", ""), "dora") << "what is stored counts again";
}

}  // namespace orvent::testkit
