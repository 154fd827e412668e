#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "canvas/draw_form.h"
#include "repository/catalogue_statements.h"
#include "repository/scenario_load_save.h"
#include "testkit/scripted_database.h"
#include "testkit/scripted_ports.h"

namespace orvent::testkit {

inline const platform::DatabaseError kBroken{"line is down", "08S01", 7, false};
inline const platform::DatabaseError kRefused{"constraint violated", "23000", 1, true};

struct ListedSources : platform::DataSources {
    std::vector<platform::DataSource> sources;
    bool broken = false;
    std::vector<platform::DataSource> list() override {
        return broken ? throw platform::Fault("no driver manager") : sources;
    }
};

struct RecordingWindows : repository::ScenarioWindows {
    std::vector<std::string> calls;
    canvas::DrawForm* form = nullptr;  ///< the window of slot 3, which is the next one

    int NewScenario(std::string& name) override {
        calls.push_back("new " + name);
        return form ? 3 : -1;
    }
    int slotCount() const override { return 4; }
    canvas::DrawForm* scenario(int slot) override { return slot == 3 ? form : nullptr; }
    void discardScenario(int slot) override { calls.push_back("discard " + std::to_string(slot)); }
    void scenarioGone(std::int16_t ScenarioID, const canvas::DrawForm* except) override {
        calls.push_back("gone " + std::to_string(ScenarioID) + (except ? " but one" : ""));
    }
    void enableFrame(bool enabled) override { calls.push_back(enabled ? "enable" : "disable"); }
};

/// The logic of the repository over scripted ports, with a small catalogue in memory.
class RepositoryTest : public ::testing::Test {
  protected:
    RepositoryTest() {
        for (const char* name : {"INTEGER", "STRING"}) {
            catalogue.tables.dataTypes.add(name);
        }
        catalogue.tables.functionTypes.add("[EMPTY]");
        catalogue.tables.functionTypes.add("SK");
        catalogue.tables.activityTypes.add("Filter");
        catalogue.tables.activityTypes.add("Join");
        database.standing(repository::sql::kDataTypes, {{"INTEGER"}, {"STRING"}});
        database.standing(repository::sql::kFunctionTypes, {{"[EMPTY]"}, {"SK"}});
        database.standing(repository::sql::kActivityTypes, {{"Filter", "", ""}, {"Join", "", ""}});
    }
    ~RepositoryTest() override {
        EXPECT_EQ(database.openNow, 0) << "a connection was left open";
        EXPECT_EQ(progress.pointerShape, platform::PointerShape::ordinary);
    }

    std::unique_ptr<canvas::DrawForm> newForm(const std::string& caption) {
        auto form = std::make_unique<canvas::DrawForm>(canvas::CanvasServices{messages, canvasSettings});
        form->setCaption(caption);
        return form;
    }

    ScriptedMessageBox messages;
    ScriptedInputBox inputBox;
    ScriptedFileDialog files;
    MemorySettings store;
    QuietProgress progress;
    ScriptedDatabase database;
    ListedSources sources;
    RecordingWindows windows;
    canvas::CanvasSettings canvasSettings;
    repository::RepositorySettings settings{{"REPO", "scott", "tiger", "ann"}, ""};
    repository::Services services{database, sources, messages, inputBox, files, store, progress, settings};
    int ended = 0;
    repository::Catalogue catalogue{services, [this] { ++ended; }};
    repository::ScenarioLoadSave loadSave{services, catalogue, windows};
};

}  // namespace orvent::testkit
