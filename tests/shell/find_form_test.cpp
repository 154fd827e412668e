#include "shell/find_form.h"

#include <gtest/gtest.h>

#include "testkit/graph_builder.h"
#include "testkit/test_frame.h"

namespace orvent::shell {
namespace {

class Find : public ::testing::Test {
  protected:
    Find() {
        frame.frame.start();
        std::string name = "Loads";
        form = frame.frame.scenario(frame.frame.NewScenario(name));
        testkit::GraphBuilder graph(*form);
        graph.recordSet("SOURCE", {"ID", "Größe"});
        graph.activity("Load", {"ID"}, {"ID", "Sum"}).Act_Description = std::string(80, 'x') + "\nsum of\tall äöü";
        graph.edge("SOURCE", "Load");
        frame.frame.frontChanged();
    }
    ~Find() override { frame.close(); }

    FindForm& find() { return frame.frame.lists().find(); }
    std::vector<std::int32_t> found() const {
        std::vector<std::int32_t> numbers;
        for (const canvas::NodeNumber node : form->found()) {
            numbers.push_back(static_cast<std::int32_t>(node));
        }
        return numbers;
    }
    std::string rows() {
        while (frame.frame.idle()) {
        }
        std::string told = find().status() + ": ";
        for (int row = 1; row <= find().Count(); ++row) {
            const FindRow shown = find().row(row);
            told += shown.place + " (" + shown.what + ") " + shown.text + "[" +
                    shown.text.substr(shown.found.begin, shown.found.length) + "]; ";
        }
        return told;
    }

    testkit::TestRepository repository;
    testkit::TestFrame frame{repository};
    canvas::DrawForm* form = nullptr;
};

TEST_F(Find, ShowsALineAroundWhatItFindsAndMarksTheNodes) {
    frame.frame.run(Command::findText);
    EXPECT_EQ(frame.host.entered, std::vector{Dock::find});
    find().txtFind_Change("SUM");
    EXPECT_EQ(rows(), "2 hits: Load (Activity, description) …" + std::string(29, 'x') +
                          " sum of all äöü[sum]; Load.Sum (Output, name) Sum[Sum]; ");
    EXPECT_EQ(found(), std::vector{2});
    find().txtFind_Change("grösse");
    EXPECT_EQ(rows(), "Nothing was found.: ");
    find().txtFind_Change("GRÖßE");
    EXPECT_EQ(rows(), "1 hit: SOURCE.Größe (Attribute, name) Größe[Größe]; ");
    find().txtFind_Change("GRÖßE  kind:zoom");
    EXPECT_EQ(find().status().find("kind: takes"), 0U);
    EXPECT_EQ(found(), std::vector<std::int32_t>());
    find().txtFind_Change("id");
    EXPECT_EQ(found(), (std::vector{1, 2}));
    frame.frame.lists().toggle(Dock::find);
    EXPECT_EQ(found(), std::vector<std::int32_t>()) << "it is closed";
}

TEST_F(Find, GoesOnRoundTheHitsAndStaysAtOneThatMoves) {
    frame.frame.run(Command::findNext);
    find().txtFind_Change("id kind:input kind:output kind:attribute");
    const struct {
        Command command;
        const char *status, *revealed;
    } steps[] = {
        {Command::findNext, "1 of 3 hits", "SOURCE"},   {Command::findNext, "2 of 3 hits", "Load"},
        {Command::findNext, "3 of 3 hits", "Load"},     {Command::findNext, "1 of 3 hits", "SOURCE"},
        {Command::findPrevious, "3 of 3 hits", "Load"},
    };
    for (const auto& step : steps) {
        frame.frame.run(step.command);
        EXPECT_EQ(find().status(), step.status);
        EXPECT_EQ(frame.desk.revealed.back(), step.revealed);
    }
    EXPECT_TRUE(form->SelectedLabels.Item(canvas::NodeNumber{2}));
    form->Labels.Remove(canvas::NodeNumber{1});
    frame.frame.noticeChanges(*form);
    rows();
    EXPECT_EQ(find().status(), "2 of 2 hits");
    EXPECT_EQ(found(), std::vector{2});
}

TEST_F(Find, OpensAMemberInTheWindowOfItsNode) {
    frame.frame.run(Command::findText);
    std::string opened;
    frame.host.atRecordSet = [&](editors::RecordSetProp& dialog) {
        opened = dialog.AttList.Item(dialog.AttList.selected())->Text;
    };
    frame.host.atActivity = [&](editors::SetActProp& dialog) {
        opened = std::to_string(dialog.TabStrip1) + dialog.frontList().Item(dialog.frontList().selected())->Text;
    };
    find().txtFind_Change("größe");
    find().open(1);
    EXPECT_EQ(opened, "Größe");
    find().txtFind_Change("kind:output sum");
    find().open(1);
    EXPECT_EQ(opened, "1Sum");
    opened.clear();
    find().txtFind_Change("kind:activity");
    find().open(1);
    EXPECT_EQ(opened, "") << "the node itself is in sight";
}

/// The member's flows follow, one of the same name in another node stays, and a refused name changes nothing.
TEST_F(Find, TheOutlineRenamesMembersAsTheirDialogsDo) {
    testkit::GraphBuilder(*form).feed("SOURCE.ID", "Load.IN.ID");
    frame.frame.run(Command::viewOutline);
    OutlineForm& outline = frame.frame.lists().outline();
    const auto rename = [&](const char* node, std::size_t member, const char* name) {
        auto& root = *outline.outline()->rootOf(form->nodeNamed(node)->Index());
        return outline.rename(*outline.outline()->rowsOf(root)[member], name);
    };
    const auto record = [&]() -> auto& {
        return *form->nodeNamed("SOURCE")->recordSet();
    };
    const auto load = [&]() -> auto& {
        return *form->nodeNamed("Load")->activity();
    };
    EXPECT_TRUE(rename("SOURCE", 0, "NUMBER"));
    EXPECT_EQ(record().RecordSet_Outputs->Item("NUMBER")->ProviderFor->Item(1)->key(), "Load.IN.NUMBER");
    EXPECT_EQ(load().Act_Inputs->Item(1)->ProvidedFrom->Item(1)->key(), "SOURCE.NUMBER");
    EXPECT_EQ(load().Act_Outputs->Item(1)->Attribute_Name, "ID");

    repository.messages.expect("DOTS ARE NOT ALLLOWED IN NAMES", "", platform::Icon::warning);
    EXPECT_FALSE(rename("Load", 1, "a.b"));
    EXPECT_EQ(load().Act_Outputs->Item(1)->Attribute_Name, "ID");
    EXPECT_TRUE(rename("Load", 1, "Whole"));
    EXPECT_EQ(load().Act_Outputs->Item(1)->Attribute_Name, "Whole");
    EXPECT_EQ(load().Act_Inputs->Item(1)->ProvidedFrom->Item(1)->key(), "SOURCE.NUMBER");
    EXPECT_TRUE(form->Enabled());
}

TEST_F(Find, FollowsTheWindowInFrontAndWhatIsUnfinished) {
    frame.frame.run(Command::findText);
    find().txtFind_Change("is:unfinished kind:record-set");
    frame.frame.noticeChanges(*form);
    rows();
    EXPECT_EQ(find().status(), "1 hit") << "it is not ready";
    form->nodeNamed("SOURCE")->setReady(true);
    frame.frame.noticeChanges(*form);
    rows();
    EXPECT_EQ(find().status(), "Nothing was found.");
    find().txtFind_Change("is:unfinished kind:output");
    EXPECT_EQ(rows(), "2 hits: Load.ID (Output, name) ID[]; Load.Sum (Output, name) Sum[]; ") << "nobody reads them";
    find().txtFind_Change("load");
    std::string name = "Other";
    frame.frame.NewScenario(name);
    frame.frame.frontChanged();
    EXPECT_EQ(rows(), "Nothing was found.: ");
    EXPECT_EQ(found(), std::vector<std::int32_t>());
    frame.close();
    frame.frame.frontChanged();
    EXPECT_EQ(found(), std::vector{2});
}

}  // namespace
}  // namespace orvent::shell
