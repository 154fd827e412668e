#include "shell/sample_scenario.h"

#include <gtest/gtest.h>

#include "links/synchronize_functions.h"
#include "platform/codes.h"
#include "testkit/model_text.h"
#include "testkit/test_frame.h"

namespace orvent::shell {
namespace {

using namespace entities;

class SampleScenario : public ::testing::Test {
  protected:
    SampleScenario() {
        frame.frame.start();
        frame.frame.run(Command::loadTestGraph);
    }

    canvas::DrawForm& form() { return frame.active(); }

    testkit::TestRepository repository;
    testkit::TestFrame frame{repository};
};

TEST_F(SampleScenario, RichActivityHoldsItsMembersAndFunctions) {
    const auto keysOf = [](auto& items) {
        std::string keys;
        for (const auto& item : items) {
            keys += item.Key + " ";
        }
        return keys;
    };
    const auto linksOf = [](auto& links) {
        std::string keys;
        for (const auto& link : links) {
            keys += link.name() + "/" + std::to_string(platform::numberOf(link.type())) + "/" + link.key() + " ";
        }
        return keys;
    };
    ActivityProperties& rich = *form().nodeNamed("Activity2")->activity();
    EXPECT_EQ(keysOf(rich.Act_Inputs), "SONUM AU_ID Activity1.Output12 ");
    EXPECT_EQ(keysOf(rich.Act_Outputs), "ED_ID SONUM AU_ID Activity1.Output12 Activity2.Output22 ");
    FunctionProperties& own = *rich.Act_Functions->Item("MyFun");
    EXPECT_EQ(own.Function_Source, entities::SourceOwn);
    EXPECT_EQ(own.Function_Inputs->Item(1)->ParentFunctionActivity, "Activity2");
    EXPECT_EQ(linksOf(own.Function_Inputs->Item(1)->RegulatedFrom), "Activity2/13/.IN.Activity1.Output12 ");
    EXPECT_EQ(linksOf(own.Function_Inputs->Item(2)->RegulatedFrom), "RS3/12/RS3.PUB_ID ");
    EXPECT_EQ(linksOf(own.Function_Inputs->Item(3)->RegulatedFrom), "Constant1/14/Constant1 ");
    FunctionProperties& brought = *rich.Act_Functions->Item("Activity2.Fun22");
    EXPECT_EQ(brought.Function_Source, entities::SourceActivityType);
    EXPECT_EQ(linksOf(brought.Function_Outputs->Item(1)->RegulatorFor), "Activity2/11/.OUT.Activity1.Output12 ");
    EXPECT_EQ(rich.Act_SchemaNo, 2) << "as its type has it";
}

TEST_F(SampleScenario, IsAFixedPointOfSynchronising) {
    const std::string before = testkit::modelText(form());
    for (canvas::LabelsD& node : form().Labels) {
        if (node.activity()) {
            links::SynchronizeActivity(form(), *node.activity(), nullptr);
        } else {
            links::SynchronizeRecordSet(form(), *node.recordSet());
        }
    }
    EXPECT_EQ(testkit::modelText(form()), before);
}

TEST_F(SampleScenario, ACatalogueWithoutTypesStopsTheCommandAndTheWindowStays) {
    frame.close();
    const auto connection = repository.database.open(repository.settings.login.ReposConnString, "", "");
    for (const char* table : {"ActivityTypesParams", "ActivityTypesFunctions", "ActivityTypes"}) {
        connection->prepare(std::string("DELETE FROM ") + table)->execute();
    }
    frame.frame.run(Command::loadTestGraph);
    EXPECT_EQ(form().Labels.Count(), 9);
    EXPECT_EQ(form().Lines.Count(), 0);
}

}  // namespace
}  // namespace orvent::shell
