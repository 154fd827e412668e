// Saves on a real repository that break off at each of their statements in turn.

#include "repository/scenario_load_save.h"
#include "repository_fixture.h"
#include "testkit/embedded_repository.h"
#include "testkit/graph_builder.h"
#include "testkit/model_text.h"

namespace orvent::testkit {

using platform::Answer;

namespace {

/// A user who wants nothing replaced, or everything.
struct SteadyUser : platform::MessageBox {
    Answer toQuestions = Answer::cancel;
    std::vector<std::string> told;
    Answer show(const std::string& text, const std::string&, platform::Icon, platform::Buttons buttons) override {
        told.push_back(text);
        const bool enough = told.size() > 10;  // a fault that comes again and again
        return buttons == platform::Buttons::ok ? Answer::ok : enough ? Answer::cancel : toQuestions;
    }
};

class InterruptedSaveTest : public ::testing::Test {
  protected:
    InterruptedSaveTest() {
        catalogue.LoadDataTypes();
        catalogue.LoadFunctionTypes();
        catalogue.LoadActivityTypes();
    }

    std::unique_ptr<canvas::DrawForm> newForm(const std::string& name) {
        auto form = std::make_unique<canvas::DrawForm>(canvas::CanvasServices{user, canvasSettings});
        form->setCaption(name);
        return form;
    }

    std::unique_ptr<canvas::DrawForm> graph(const std::string& name) {
        auto form = newForm(name);
        GraphBuilder builder(*form);
        builder.recordSet("RS1", {"A"});
        entities::ActivityProperties& activity = builder.activity("Act1", {"A"}, {"O"});
        auto& parameter = activity.Act_Parameters->Add("P", 0, 8, "P");
        parameter.ParentKeyName = "Act1";
        parameter.RegulatedFrom->Add("Act1", entities::LinkInput, ".IN.A");
        activity.Act_Inputs->Item("A")->RegulatorFor->Add("Act1", entities::LinkInput, ".PARAM.P");
        entities::FunctionProperties function;
        function.Function_Key = function.Function_Name = "F";
        function.setParentKeyName("Act1");
        auto& input = function.Function_Inputs->Add("X", 0, "X");
        input.NodeKind = entities::KindFunctionInput;
        input.ParentKeyName = "F";
        input.ParentFunctionActivity = "Act1";
        activity.Act_Functions->AddFunctionProps(function, "", 0);
        builder.feed("RS1.A", "Act1.IN.A");
        builder.pass("Act1", "A", "O");
        form->Labels.Add(0, 1500, 0, 750, "Comment0", canvas::NodeTypeComment).setComment("words");
        form->Labels.Add(0, 1050, 0, 450, "LOG1", canvas::NodeTypeLog);
        builder.edge("RS1", "Act1");
        return form;
    }

    void save(canvas::DrawForm& form, bool SaveAs, Answer toQuestions) {
        user.toQuestions = toQuestions;
        user.told.clear();
        loadSave.SaveScenario(form, SaveAs);
    }

    void expectStored(const canvas::DrawForm& form, const std::string& expected, int at) {
        ASSERT_EQ(user.told.back(), "Saved") << "broken off at statement " << at;
        auto loaded = newForm("");
        ASSERT_TRUE(loadSave.LoadScenario(*loaded, form.ScenarioID));
        EXPECT_EQ(modelText(*loaded), expected) << "broken off at statement " << at;
    }

    /// Breaks a save off at each statement; then the user saves once more.
    void breakOffEverywhere(bool storedBefore, bool SaveAs, Answer toTheFault) {
        for (int at = 1;; ++at) {
            auto form = graph("Demo" + std::to_string(at));
            const std::string before = modelText(*form);
            if (storedBefore) {
                save(*form, true, Answer::cancel);
                GraphBuilder(*form).recordSet("RS2", {"B"}).Changed = true;
            }
            const std::string expected = modelText(*form);
            const std::int16_t first = form->ScenarioID;
            if (SaveAs) {
                form->setCaption("Other" + std::to_string(at));
            }
            repository.hooked.after(at, [] { throw kBroken; });
            save(*form, SaveAs, toTheFault);
            if (!repository.hooked.happened()) {
                repository.hooked.after(0, [] {});
                EXPECT_GT(at, 10);
                break;
            }
            if (user.told.back() != "Saved") {
                save(*form, form->ScenarioID == 0, Answer::yes);
            }
            expectStored(*form, expected, at);
            if (SaveAs && form->ScenarioID != first) {
                form->ScenarioID = first;
                expectStored(*form, before, at);
            }
        }
    }

    TestRepository repository;
    SteadyUser user;
    canvas::CanvasSettings canvasSettings;
    RecordingWindows windows;
    repository::Services services{repository.hooked,   repository.dataSources, user,
                                  repository.input,    repository.files,       repository.store,
                                  repository.progress, repository.settings};
    repository::Catalogue catalogue{services, [] { FAIL() << "the catalogue could not be read"; }};
    repository::ScenarioLoadSave loadSave{services, catalogue, windows};
};

TEST_F(InterruptedSaveTest, FirstSave) {
    breakOffEverywhere(false, false, Answer::cancel);
}

TEST_F(InterruptedSaveTest, PlainSave) {
    breakOffEverywhere(true, false, Answer::cancel);
}

TEST_F(InterruptedSaveTest, SaveAsLeavesTheFirstScenarioWhole) {
    breakOffEverywhere(true, true, Answer::cancel);
}

TEST_F(InterruptedSaveTest, ReplacingAtOnce) {
    breakOffEverywhere(true, false, Answer::yes);
}

}  // namespace

}  // namespace orvent::testkit
