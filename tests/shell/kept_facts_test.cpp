// What a scenario is tried on outlives the program, and goes with the scenario's names.

#include <gtest/gtest.h>

#include "testkit/test_frame.h"

using namespace orvent;
using shell::Command;

namespace {

class KeptFacts : public ::testing::Test {
  protected:
    KeptFacts() {
        repository.messages.anyway = [](const std::string&) { return platform::Answer::ok; };
    }

    static void give(testkit::TestFrame& stage, const std::string& node, const std::string& value) {
        canvas::DrawForm& form = stage.active();
        form.facts[form.nodeNamed(node)->Index()].facts = {{"V"}, {{value}, {std::nullopt}}};
        stage.frame.lists().facts().keep(form);
    }
    static std::string told(testkit::TestFrame& stage) {
        std::string all;
        for (const auto& [node, facts] : stage.active().facts) {
            all += stage.active().Labels.byIndex(node)->Caption() + "=" + facts.facts->rows[0][0].value() + " ";
        }
        return all;
    }

    testkit::TestRepository repository;
};

TEST_F(KeptFacts, ComeBackWithTheScenario) {
    {
        testkit::TestFrame stage(repository);
        stage.frame.start();
        std::string name = "Try";
        stage.frame.NewScenario(name);
        canvas::DrawForm& form = stage.active();
        form.Labels.Add({0, 0, 1050, 450}, "S", canvas::NodeTypeRecordSet, "S");
        form.Labels.Add({0, 900, 1050, 450}, "T", canvas::NodeTypeRecordSet, "T");
        stage.frame.idle();
        give(stage, "S", "1");
        give(stage, "T", "2");
        stage.saveAs("Tried");  // it was kept by its name before, and is by its number from now on
        stage.frame.idle();
        form.nodeNamed("T")->recordSet()->RecordSet_Name = "U";
        form.nodeNamed("T")->setCaption("U");
        form.KeepDuplicates = true;
        give(stage, "S", "3");
        stage.frame.run(Command::saveScenario);
        stage.frame.idle();
        stage.frame.close(*stage.desk.active());
    }
    testkit::TestFrame stage(repository);
    stage.frame.start();
    stage.load("Tried");
    EXPECT_EQ(told(stage), "S=3 U=2 ");
    EXPECT_TRUE(stage.active().KeepDuplicates);
    std::string other = "Other";
    stage.frame.NewScenario(other);
    EXPECT_EQ(told(stage), "");
    stage.active().Labels.Add({0, 0, 1050, 450}, "S", canvas::NodeTypeRecordSet, "S");
    stage.frame.idle();
    give(stage, "S", "4");
    EXPECT_EQ(stage.states.list("facts").size(), 2U);
    stage.frame.close(*stage.desk.active());
    EXPECT_EQ(stage.states.list("facts").size(), 1U) << "what was never saved is not kept";
}

}  // namespace
