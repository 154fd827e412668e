#include "shell/test_graph.h"

#include <gtest/gtest.h>

#include "testkit/model_text.h"
#include "testkit/test_frame.h"
#include "zoom/synchronize_functions.h"

namespace orvent::shell {
namespace {

using namespace entities;

class TestGraph : public ::testing::Test {
  protected:
    TestGraph() {
        frame.frame.start();
        frame.frame.run(Command::loadTestGraph);
    }

    canvas::DrawForm& form() { return frame.active(); }
    ActivityProperties& activity(const char* name) { return *form().nodeNamed(name)->activity(); }

    testkit::TestRepository repository;
    testkit::TestFrame frame{repository};
};

template <class Links>
std::string keysOf(Lazy<Links>& links) {
    std::string result;
    for (const auto& link : links) {
        result += link.name() + "/" + std::to_string(link.type()) + "/" + link.key() + " ";
    }
    return result;
}

TEST_F(TestGraph, StandsInTheLastSlotWithItsNodesAndEdges) {
    EXPECT_EQ(form().Tag, "10");
    EXPECT_EQ(form().Labels.Count(), 9);
    EXPECT_EQ(form().Lines.Count(), 9);
    const canvas::LabelsD& node = *form().nodeNamed("Activity4");
    EXPECT_EQ(node.Index(), 9);
    EXPECT_EQ(node.Left(), 12000);
    EXPECT_EQ(node.Top(), 5500);
    EXPECT_EQ(node.Width(), 1050);
    EXPECT_EQ(node.Height(), 450);
    EXPECT_EQ(node.Color(), 0xFFFFFF);
    EXPECT_FALSE(node.Ready());
}

TEST_F(TestGraph, RichActivityHoldsItsMembersAndFunctions) {
    ActivityProperties& rich = activity("Activity2");
    std::string keys;
    for (const AttributeProperties& each : rich.Act_Inputs) {
        keys += each.Key + " ";
    }
    EXPECT_EQ(keys, "SONUM AU_ID Activity1.Output12 ");
    keys.clear();
    for (const AttributeProperties& each : rich.Act_Outputs) {
        keys += each.Key + " ";
    }
    EXPECT_EQ(keys, "ED_ID SONUM AU_ID Activity1.Output12 Activity2.Output22 ");
    ASSERT_EQ(rich.Act_Functions->Count(), 2);
    FunctionProperties& own = *rich.Act_Functions->Item("MyFun");
    EXPECT_EQ(own.Function_Source, 5);
    EXPECT_EQ(own.Function_Inputs->Item(1)->ParentKeyName, "MyFun");
    EXPECT_EQ(own.Function_Inputs->Item(1)->ParentFunctionActivity, "Activity2");
    EXPECT_EQ(keysOf(own.Function_Inputs->Item(1)->RegulatedFrom), "Activity2/13/.IN.Activity1.Output12 ");
    EXPECT_EQ(keysOf(own.Function_Inputs->Item(2)->RegulatedFrom), "RS3/12/RS3.PUB_ID ");
    EXPECT_EQ(keysOf(own.Function_Inputs->Item(3)->RegulatedFrom), "Constant1/14/Constant1 ");
    FunctionProperties& brought = *rich.Act_Functions->Item("Activity2.Fun22");
    EXPECT_EQ(brought.Function_Source, 9);
    EXPECT_EQ(keysOf(brought.Function_Outputs->Item(1)->RegulatorFor), "Activity2/11/.OUT.Activity1.Output12 ");
    EXPECT_EQ(keysOf(form().nodeNamed("RS3")->recordSet()->RecordSet_Outputs->Item("PUB_ID")->RegulatorFor),
              "Activity2/1/Activity2.PARAM.PUB_ID MyFun/12/MyFun.Activity2.Input12 "
              "Activity2.Fun22/12/Activity2.Fun22.IN.Input22 ");
}

TEST_F(TestGraph, IsAFixedPointOfSynchronising) {
    const std::string before = testkit::modelText(form());
    for (canvas::LabelsD& node : form().Labels) {
        if (node.activity()) {
            zoom::SynchronizeActivity(form(), *node.activity(), nullptr);
        } else {
            zoom::SynchronizeRecordSet(form(), *node.recordSet());
        }
    }
    EXPECT_EQ(testkit::modelText(form()), before);
}

TEST_F(TestGraph, ASecondLoadAsksToCloseTheFirst) {
    canvas::DrawForm* first = &form();
    repository.messages.expect("ARE YOU SURE YOU WANT TO CLOSE Sample ?", "Closing Scenario", platform::Icon::question,
                               platform::Buttons::okCancel, platform::Answer::cancel);
    frame.frame.run(Command::loadTestGraph);
    EXPECT_EQ(&form(), first);
    repository.messages.expect("ARE YOU SURE YOU WANT TO CLOSE Sample ?", "Closing Scenario", platform::Icon::question,
                               platform::Buttons::okCancel, platform::Answer::ok);
    frame.frame.run(Command::loadTestGraph);
    EXPECT_EQ(frame.host.windows.size(), 1U);
    EXPECT_EQ(form().Tag, "10");
}

TEST_F(TestGraph, ACatalogueWithoutTypesStopsTheCommandAndTheWindowStays) {
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
