#include "analysis/metrics_form.h"

#include "platform/fault.h"
#include "testkit/file_text.h"
#include "testkit/graph_builder.h"
#include "testkit/scripted_ports.h"
#include "testkit/temporary_folder.h"

namespace orvent::analysis {
namespace {

class MetricsWindow : public testkit::CanvasTest, protected OpenScenarios {
  protected:
    MetricsWindow() {
        first.setCaption("Sales");
        second.setCaption("Sales");
        testkit::GraphBuilder graph{first};
        graph.recordSet("R", {"ID"});
        graph.activity("A", {"ID"}, {"ID"});
        graph.node("note", canvas::NodeTypeComment);
        graph.edge("R", "A");
        graph.feed("R.ID", "A.IN.ID");
        graph.pass("A", "ID", "ID");
        form.EntitiesView();
    }

    std::vector<int> open() const override { return numbers; }
    const canvas::DrawForm* at(int slot) const override {
        return std::find(numbers.begin(), numbers.end(), slot) == numbers.end() ? nullptr
               : slot == 3                                                      ? &first
                                                                                : &second;
    }
    void reveal(int slot, canvas::NodeNumber node) override {
        revealed = std::to_string(slot) + " " + at(slot)->Labels.byIndex(node)->Caption();
    }

    std::string names() const {
        std::string text;
        for (const MetricsForm::Entry& entry : form.Entities) {
            text += entry.name + "@" + std::to_string(entry.scenario) + " ";
        }
        return text;
    }

    std::vector<int> numbers = {3, 5};
    std::string revealed;
    canvas::DrawForm first{ports.services()}, second{ports.services()};
    testkit::MemorySettings store;
    std::int16_t depth = 7;
    testkit::QuietProgress progress;
    testkit::ChosenFile chosen;
    const testkit::TemporaryFolder scratch;
    const platform::ProgramFolder folder{scratch.path()};
    MetricsForm form{{*this, depth, store, progress, chosen, folder}, 3};
};

TEST_F(MetricsWindow, FacesEntriesAndTables) {
    EXPECT_EQ(names(), "R@3 A@3 ");
    EXPECT_EQ(form.lblEntity + "|" + form.Switch + "|" + form.nameColumn,
              "Structured Entities|Scenario Metrics|ATTRIBUTE NAME");
    EXPECT_EQ(form.Counter, 7);
    form.RefreshBut();
    EXPECT_EQ(form.views.SumView[0], kNoMetric) << "nothing is chosen";
    EXPECT_EQ(form.hint(), "Choose a record set or an activity.");
    form.clickEntity(1);
    EXPECT_TRUE(form.twoLists);
    EXPECT_EQ(form.asText('\t'),
              "ATTRIBUTE NAME\tLocal_IN\tLocal_OUT\tLocal_DEGREE\tTrans_IN\tTrans_OUT\tTrans_DEGREE\tTotal_IN\t"
              "Total_OUT\tTotal_DEGREE\n"
              "ID\t1\t1\t2\t0\t0\t0\t1\t1\t2\nID\t1\t0\t1\t1\t0\t1\t2\t0\t2\n"
              "Sum\t2\t1\t3\t1\t0\t1\t3\t1\t4\nAverage\t1\t0.5\t1.5\t0.5\t0\t0.5\t1.5\t0.5\t2\n");
    form.reveal(form.views.OutMetrView[0]);
    EXPECT_EQ(revealed, "3 A");
    form.clickEntity(0);
    EXPECT_FALSE(form.twoLists);

    form.clickSwitch();
    EXPECT_EQ(form.hint(), "Choose a scenario.");
    EXPECT_EQ(names(), "Sales@3 Sales@5 ");
    EXPECT_EQ(form.lblEntity + "|" + form.Switch + "|" + form.nameColumn, "Scenarios:|Entities Metrics|ENTITY NAME");
    EXPECT_EQ(form.views.SumView[0], kNoMetric);
    form.clickEntity(0);
    EXPECT_EQ(form.views.InpMetrView.size(), 3U) << "a row for each node";
    EXPECT_EQ(form.largest(Local_IN), 1);
    first.setCaption("Sales, new");
    form.RefreshBut();
    EXPECT_EQ(names(), "Sales, new@3 Sales@5 ");
    EXPECT_EQ(form.views.InpMetrView.size(), 3U);
    numbers = {5};
    form.clickEntity(0);
    EXPECT_TRUE(form.views.InpMetrView.empty()) << "that scenario was closed";
    EXPECT_EQ(form.views.SumView[0], kNoMetric);
    form.clickSwitch();
    EXPECT_EQ(names(), "");
}

TEST_F(MetricsWindow, ATableForOtherProgramsKeepsOddNamesAndANodeThatIsGoneIsEmpty) {
    testkit::GraphBuilder{first}.recordSet("S", {"a,\"b"});
    form.EntitiesView();
    ASSERT_EQ(names(), "R@3 A@3 S@3 ");
    form.clickEntity(2);
    const std::string table = form.asText(',');
    EXPECT_EQ(table.substr(table.find('\n') + 1),
              "\"a,\"\"b\",0,0,0,0,0,0,0,0,0\nSum,0,0,0,0,0,0,0,0,0\nAverage,0,0,0,0,0,0,0,0,0\n");
    form.saveAsCsv();
    EXPECT_EQ(chosen.asked, "Save the metrics|Tables (*.csv)|*.csv|" + scratch.path().string() + "?");
    chosen.path = (scratch.path() / "table.csv").string();
    form.saveAsCsv();
    EXPECT_EQ(testkit::fileText(chosen.path), table);
    chosen.path = (scratch.path() / "none" / "table.csv").string();
    EXPECT_THROW(form.saveAsCsv(), platform::Fault);
    first.Labels.Remove(first.nodeNamed("S")->Index());
    form.RefreshBut();
    EXPECT_EQ(names(), "R@3 A@3 ");
    EXPECT_EQ(form.selected, -1);
    EXPECT_TRUE(form.views.InpMetrView.empty());
    EXPECT_EQ(form.views.SumView[0], kNoMetric);
}

TEST_F(MetricsWindow, RefreshFollowsNodesToTheirNewNamesAndPlaces) {
    form.clickEntity(1);
    testkit::GraphBuilder{first}.recordSet("S", {});
    first.nodeNamed("A")->setCaption("B");
    first.Labels.Remove(first.nodeNamed("R")->Index());
    form.RefreshBut();
    EXPECT_EQ(names(), "B@3 S@3 ");
    EXPECT_EQ(form.selected, 0);
    EXPECT_EQ(form.views.OutMetrView.size(), 1U);
    form.clickEntity(7);
    first.nodeNamed("B")->setCaption("C");
    form.RefreshBut();
    EXPECT_EQ(names(), "C@3 S@3 ") << "also when none is chosen";
}

TEST_F(MetricsWindow, AScenarioThatADialogWorksOnIsNotCounted) {
    form.clickEntity(1);
    const std::string counted = form.asText(' ');
    first.setEnabled(false);
    first.nodeNamed("A")->activity()->Act_Inputs->Item("ID")->ProvidedFrom->Clear();
    form.RefreshBut();
    EXPECT_EQ(form.asText(' '), counted) << "what was counted stays";
    EXPECT_EQ(form.note, "Sales is counted when its dialog or zoom is closed.");
    form.clickEntity(0);
    EXPECT_EQ(form.views.SumView[0], kNoMetric) << "these would be another entry's numbers";
    form.clickSwitch();
    EXPECT_EQ(form.note, "");
    form.clickEntity(0);
    EXPECT_TRUE(form.views.InpMetrView.empty());
    first.setEnabled(true);
    form.RefreshBut();
    EXPECT_EQ(form.note, "");
    EXPECT_EQ(form.views.InpMetrView.size(), 3U);
}

TEST_F(MetricsWindow, WhatIsBeyondSixteenBitsIsShownAndToldOnce) {
    for (int edge = 0; edge < 20000; ++edge) {
        testkit::GraphBuilder{first}.edge("R", "A");
    }
    form.ScenariosView();
    int shown = 0;
    form.show = [&shown] { ++shown; };
    EXPECT_THROW(form.clickEntity(0), platform::Fault);
    EXPECT_EQ(shown, 1) << "the tables come before the words";
    EXPECT_EQ(form.views.SumView[Local_DEGREE], "40002");
    form.RefreshBut();
    EXPECT_EQ(shown, 2);
}

TEST_F(MetricsWindow, TheCounterIsStoredAtOnceAndCountsAtTheNextRefresh) {
    form.clickEntity(1);
    form.changeCounter(0);
    EXPECT_EQ(store.value("General", "TransDepth", ""), "0");
    EXPECT_EQ(depth, 0);
    EXPECT_EQ(form.views.SumView[Total_IN], "3");
    form.RefreshBut();
    EXPECT_EQ(form.views.SumView[Total_IN], "0");
    EXPECT_EQ(form.views.SumView[Trans_IN], "-2");
}

TEST_F(MetricsWindow, ColumnButtonsSortByValue) {
    for (const int value : {9, 122, -3, 21, 10, -12}) {
        form.views.InpMetrView.push_back({"", {}, {1, value}});
    }
    using Places = std::vector<std::size_t>;
    EXPECT_EQ(form.order(form.views.InpMetrView), (Places{0, 1, 2, 3, 4, 5}));
    form.lblButLittle(Local_OUT);
    EXPECT_EQ(form.order(form.views.InpMetrView), (Places{1, 3, 4, 0, 2, 5})) << "descending first";
    form.lblButLittle(Local_OUT);
    EXPECT_EQ(form.order(form.views.InpMetrView), (Places{5, 2, 0, 4, 3, 1}));
    form.lblButLittle(Local_IN);
    EXPECT_EQ(form.order(form.views.InpMetrView), (Places{0, 1, 2, 3, 4, 5})) << "of equals the order stays";
}

}  // namespace
}  // namespace orvent::analysis
