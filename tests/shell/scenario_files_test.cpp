#include <gtest/gtest.h>

#include <filesystem>

#include "exchange/document_reader.h"
#include "platform/text.h"
#include "testkit/model_text.h"
#include "testkit/numbers.h"
#include "testkit/test_frame.h"

using namespace orvent;
using shell::Command;

namespace {

/// The sample in a frame over a real repository.
class ScenarioFiles : public testing::Test {
  protected:
    ScenarioFiles() {
        EXPECT_TRUE(test.frame.start());
        test.frame.run(Command::loadTestGraph);
    }

    std::string pathOf(const char* name) { return (repository.folder.path() / name).string(); }
    /// The file of the scenario in front, of which the suffix is not given.
    std::string exported(const char* name) {
        test.saveDialog.path = pathOf(name);
        test.frame.run(Command::exportFile);
        return platform::readFile(pathOf(name) + ".orvent");
    }

    testkit::TestRepository repository;
    testkit::TestFrame test{repository};
};

TEST_F(ScenarioFiles, AFileOpensAsANewScenario) {
    canvas::DrawForm& sample = test.active();
    const std::string whole = testkit::modelText(sample);
    bool offersIt = false;
    test.host.atCommands = [&] { offersIt = test.frame.stateOf(Command::openRecent).enabled; };
    exported("a");
    EXPECT_TRUE(offersIt);
    test.host.atCommands = {};
    EXPECT_EQ(test.saveDialog.asked,
              "Export To File|ORVENT II Scenarios (*.orvent)|*.orvent|" + pathOf("Sample.orvent") + "?");
    test.frame.openFile(pathOf("a.orvent"));
    canvas::DrawForm& opened = test.active();
    ASSERT_NE(&opened, &sample);
    EXPECT_EQ(opened.Caption(), "Sample (2)");
    EXPECT_EQ(opened.ScenarioID, 0);
    EXPECT_TRUE(opened.stored.changed);
    EXPECT_EQ(testkit::modelText(opened), whole);
    EXPECT_EQ(test.frame.recentFiles().front(), pathOf("a.orvent"));
    test.frame.openFile(pathOf("a.orvent"));
    EXPECT_EQ(test.active().Caption(), "Sample (3)");
}

TEST_F(ScenarioFiles, WhatCannotBeOpenedChangesNothing) {
    const std::string written = exported("a");
    const std::string half = written.substr(0, written.size() / 2);
    platform::writeFile(pathOf("half.orvent"), half);
    canvas::DrawForm* before = &test.active();
    std::string why;
    try {
        exchange::readDocument(half);
    } catch (const exchange::BadDocument& bad) {
        why = bad.description();
    }
    repository.messages.expect(pathOf("half.orvent") + " cannot be opened.\n" + why, "", platform::Icon::warning);
    test.frame.openFile(pathOf("half.orvent"));
    EXPECT_EQ(&test.active(), before);
    EXPECT_EQ(test.frame.recentFiles().size(), 1U);
    std::filesystem::remove(pathOf("a.orvent"));
    repository.messages.expect(pathOf("a.orvent") + " is not there any more.", "", platform::Icon::warning);
    test.frame.run(Command::openRecent);
    EXPECT_FALSE(test.frame.isEnabled(Command::openRecent));
}

TEST_F(ScenarioFiles, TypesOfAFirstWindowKeepTheirNames) {
    std::string other = exported("a");
    for (std::size_t at = 0; (at = other.find("\"VARCHAR2\"", at)) != std::string::npos;) {
        other.replace(at, 10, "\"VARCHAR9\"");
    }
    platform::writeFile(pathOf("other.orvent"), other);
    test.close();
    int asked = 0;
    test.host.atMissingTypes = [&](exchange::MissingTypesForm& question) {
        ++asked;
        question.cmdWithout_Click();
    };
    repository.messages.expect(
        "Kept as names that the repository does not have: data type VARCHAR9.\n"
        "The repository's own definition holds, and is another one than the file's: function type SAMPLE_FUNCTION_1, "
        "function type SAMPLE_FUNCTION_2, activity type Sample Combination, activity type Sample Derivation, "
        "activity type Sample Transfer.");
    test.frame.openFile(pathOf("other.orvent"));
    const auto& tables = test.frame.catalogue().tables;
    const auto* recordSet = test.active().nodeNamed("RS1")->recordSet();
    EXPECT_EQ(tables.dataTypes.name(recordSet->RecordSet_Outputs.peek()->Item(1)->Attribute_Type), "VARCHAR9");
    // Without a free slot nothing is asked, and so nothing is added.
    for (int slot = 1; slot < shell::MDIForm1::kSlots; ++slot) {
        std::string name = "S" + std::to_string(slot);
        test.frame.NewScenario(name);
    }
    repository.messages.expect(
        "Maximum Number Of Possible Concurrently Loaded Scenarios is Exceeded\n"
        "You Will Have To Close One Of the Allready Open Scenarios Before Opening A New One");
    test.frame.openFile(pathOf("other.orvent"));
    EXPECT_EQ(asked, 1);
}

TEST_F(ScenarioFiles, NodesGoFromScenarioToScenario) {
    canvas::DrawForm& sample = test.active();
    const int nodes = sample.Labels.Count();
    test.frame.run(Command::selectAll);
    test.frame.run(Command::copyNodes);
    EXPECT_EQ(test.clipboard.mime, exchange::kMimeType);
    const std::string whole = testkit::modelText(sample);
    test.frame.run(Command::pasteNodes);
    EXPECT_EQ(sample.Labels.Count(), 2 * nodes);
    EXPECT_EQ(sample.SelectedLabels.Count(), nodes);
    test.frame.run(Command::cutNodes);
    EXPECT_EQ(testkit::modelText(sample), whole);
    test.frame.run(Command::duplicateNodes);
    EXPECT_EQ(sample.Labels.Count(), nodes) << "nothing is selected";
    const std::string all = test.clipboard.content;
    sample.SelectedLabels.Add(1_node);
    test.frame.run(Command::copyNodes);
    test.clipboard.content = all;
    test.frame.run(Command::pasteNodes);
    EXPECT_EQ(sample.SelectedLabels.Count(), nodes) << "what another program has copied since";
    test.frame.run(Command::cutNodes);
    test.clipboard.content = "no nodes";
    test.frame.run(Command::pasteNodes);
    EXPECT_EQ(testkit::modelText(sample), whole);
}

}  // namespace
