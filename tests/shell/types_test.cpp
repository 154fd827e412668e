// Nodes from the list of types.

#include <gtest/gtest.h>

#include "shell/readings.h"
#include "statements/ldl_sources.h"
#include "testkit/model_text.h"
#include "testkit/state_text.h"
#include "testkit/test_frame.h"
#include "testkit/zoom_faults.h"

using namespace orvent;
using shell::Command;

namespace {

class Types : public ::testing::Test {
  protected:
    Types() {
        repository.messages.anyway = [this](const std::string& text) {
            told += text + "|";
            return platform::Answer::ok;
        };
        EXPECT_TRUE(stage.frame.start());
        stage.frame.run(Command::loadTestGraph);
        stage.frame.frontChanged();
    }

    canvas::DrawForm& design() { return stage.active(); }
    shell::TypesForm& list() { return stage.frame.lists().types(); }
    canvas::CanvasWindows& windows() { return stage.frame.pointerPorts().windows; }
    std::string typeKey(int at = 1) {
        return "Activity:" + stage.frame.catalogue().tables.activityTypes.name(static_cast<std::int16_t>(at));
    }
    std::string names() {
        std::string all;
        for (int at = 1; at <= list().Count(); ++at) {
            all += list().row(at).name + "|";
        }
        return all;
    }
    void lastCoversNobody() {
        for (const canvas::LabelsD& other : design().Labels) {
            const canvas::Box a = last().box(), b = other.box();
            EXPECT_TRUE(&other == &last() || a.Left >= b.right() || b.Left >= a.right() || a.Top >= b.bottom() ||
                        b.Top >= a.bottom())
                << last().Caption() << " covers " << other.Caption();
        }
    }
    canvas::LabelsD& last() { return *design().Labels.byIndex(design().LabelsNo); }

    testkit::TestRepository repository;
    testkit::TestFrame stage{repository};
    std::string told;
};

TEST_F(Types, TheListFollowsItsWordsAndTheCatalogue) {
    EXPECT_EQ(list().Count(), 0) << "nothing is asked while it is closed";
    stage.frame.run(Command::viewTypes);
    const int all = list().Count();
    EXPECT_EQ(all, 3 + static_cast<int>(stage.frame.catalogue().tables.activityTypes.rows()));
    EXPECT_EQ(names().substr(0, 23), "Record set|Comment|Log|");
    int described = 0;
    for (int at = 5; at <= all; ++at) {
        EXPECT_LE(platform::upperCase(list().row(at - 1).name), platform::upperCase(list().row(at).name)) << at;
        described += !list().row(at).tip.empty() && !list().row(at).schemata.empty() ? 1 : 0;
    }
    EXPECT_GT(described, 0);
    list().txtSearch_Change("REJECTS file");
    EXPECT_EQ(names(), "Log|") << "all words, and those of the description";
    list().txtSearch_Change("no such thing");
    EXPECT_EQ(list().status(), "Nothing has these words.");
    list().txtSearch_Change("");

    entities::ActivityTypeProperties type = stage.frame.catalogue().GetActivityType(0);
    type.ActType_Name = "aaa";
    type.ActType_SchemaNo = 2;
    stage.frame.catalogue().SaveActivityType(type);
    stage.frame.catalogue().LoadActivityTypes();
    stage.frame.run(Command::selectAll);
    EXPECT_EQ(list().Count(), all + 1);
    EXPECT_EQ(list().row(4).name + list().row(4).schemata, "aaa2");
}

TEST_F(Types, APlacedNodeIsWhatItsDialogMakes) {
    stage.host.atActivity = [](editors::SetActProp& dialog) {
        dialog.ActTypes_Click(1);
        dialog.OK();
        dialog.end();
    };
    canvas::LabelsD* byHand = design().rules().placeNode(design(), "Activity", {4000, 9000});
    windows().openProperties(design(), *byHand);
    const std::string made = testkit::modelText(design());
    const std::string name = byHand->Caption();
    design().Labels.Remove(byHand->Index());
    design().LabelsNo = canvas::NodeNumber{static_cast<std::int32_t>(design().LabelsNo) - 1};
    --design().ActivityCounter;
    stage.frame.idle();
    const std::string before = testkit::stateText(design());
    const std::size_t steps = stage.frame.histories().of(design())->position();

    windows().place(design(), typeKey(), {}, {4040, 8970});
    EXPECT_EQ(testkit::modelText(design()), made);
    EXPECT_TRUE(last().Ready());
    EXPECT_EQ(design().SelectedLabels.members(), std::vector{last().Index()});
    EXPECT_EQ(stage.desk.typed, std::vector{name});
    EXPECT_EQ(stage.frame.histories().of(design())->position(), steps + 1);
    stage.frame.run(Command::stepBack);
    EXPECT_EQ(testkit::stateText(design()), before);

    stage.frame.run(Command::viewTypes);
    for (int row = 1; row <= 3; ++row) {
        list().place(row);  // each below what stands in the middle
        lastCoversNobody();
    }
    EXPECT_EQ(last().NodeType(), canvas::NodeTypeLog);
    EXPECT_EQ(told, "Properties Saved|");
}

TEST_F(Types, SeveralGetATypeAndASizeInOneStep) {
    const auto select = [&](canvas::CanvasForm& form, bool (*meant)(const canvas::LabelsD&)) {
        form.ClearCrop();
        for (const canvas::LabelsD& node : form.Labels) {
            if (meant(node)) {
                form.SelectedLabels.Add(node.Index());
            }
        }
    };
    std::string width = "133.2";
    std::string opened;
    stage.host.atSelection = [&](editors::SelectionProp& dialog) {
        opened = dialog.txtWidth;
        dialog.Type = 2;
        dialog.txtWidth = width;
        EXPECT_EQ(dialog.OK(), width == "133.2" || width == opened) << width;
    };
    stage.frame.idle();
    const std::string before = testkit::stateText(design());
    const std::size_t steps = stage.frame.histories().of(design())->position();
    stage.frame.run(Command::selectAll);
    stage.frame.run(Command::typeAndSize);
    int others = 0;
    for (const canvas::LabelsD& node : design().Labels) {
        EXPECT_EQ(node.Width(), 1998) << node.Caption();
        EXPECT_TRUE(!node.activity() || (node.activity()->Act_Type == 1 && node.Ready())) << node.Caption();
        others += node.activity() ? 0 : 1;
    }
    EXPECT_EQ(told.find("They keep their type: "), 0U);
    EXPECT_EQ(std::count(told.begin(), told.end(), '|'), 1) << told;
    EXPECT_NE(told.find(others > 5 ? " more." : "."), std::string::npos);
    EXPECT_EQ(stage.frame.histories().of(design())->position(), steps + 1);
    stage.frame.run(Command::stepBack);
    EXPECT_EQ(testkit::stateText(design()), before);
    for (const char* wrong : {"14.9", "-50", "2e3", "1000.5", "wide"}) {
        told.clear();
        width = wrong;
        stage.frame.run(Command::typeAndSize);
        EXPECT_EQ(told, "A width and a height are 15 to 1000 pixels.|") << wrong;
    }
    EXPECT_EQ(testkit::stateText(design()), before) << "nothing is taken of what has a fault";

    canvas::LabelsD* activity = nullptr;
    for (canvas::LabelsD& node : design().Labels) {
        activity = node.activity() ? &node : activity;
    }
    windows().openZoom(design(), *activity);
    canvas::CanvasForm& view = *stage.desk.active();
    const std::size_t free = 2;  // the types of the others are settled
    for (std::size_t at = 0; at < free; ++at) {
        view.rules().placeNode(view, "Attribute", {500, 500});
    }
    select(view, [](const canvas::LabelsD& node) { return node.NodeType() == canvas::NodeTypeAttribute; });
    const std::vector<canvas::NodeNumber> meant = view.SelectedLabels.members();
    ASSERT_GT(meant.size(), 1U);
    told.clear();
    width = "133.2";
    stage.frame.run(Command::typeAndSize);
    for (std::size_t at = 0; at < meant.size(); ++at) {
        const canvas::LabelsD& node = *view.Labels.byIndex(meant[at]);
        const bool given = at + free >= meant.size();
        EXPECT_TRUE(!given || node.entity<entities::AttributeProperties>()->Attribute_Type == 1) << node.Caption();
        EXPECT_EQ(node.Width(), 1998);
    }
    EXPECT_EQ(std::count(told.begin(), told.end(), '|'), 1) << told;
    EXPECT_EQ(told.find("They keep their type: "), 0U);

    // What is left as it was rounds nothing, and is never too large.
    for (const auto& [twips, shown] : {std::pair(1234.0F, "82.27"), {30000.0F, "2000"}}) {
        for (const canvas::NodeNumber node : meant) {
            view.Labels.byIndex(node)->setWidth(twips);
        }
        width = shown;
        stage.frame.run(Command::typeAndSize);
        EXPECT_EQ(opened, shown);
        EXPECT_EQ(view.Labels.byIndex(meant.front())->Width(), twips);
    }
}

/// On each edge of the sample, and on some that cannot be.
TEST_F(Types, AnActivityStandsOnAnEdge) {
    // Nothing of its target changes but where the edge comes from.
    design().Lines.addFullLine(design().NamesColl.Item("RS3"), 3, design().NamesColl.Item("Activity3"), 1,
                               canvas::EdgeTypeProvider, canvas::AngleNone, 0);
    int between = 0;
    for (int at = 1; at <= design().Lines.Count(); ++at) {
        stage.frame.idle();
        const canvas::LinesD& edge = *design().Lines.at(at);
        const std::string from = design().Labels.byIndex(edge.FromLabel())->Caption();
        const std::string to = design().Labels.byIndex(edge.ToLabel())->Caption();
        const canvas::Hit hit = canvas::Hit::onLine(edge.Index());
        const std::string before = testkit::stateText(design());
        const std::vector<std::string> read = testkit::readings(design(), to, from);
        const std::string why = windows().whyNotPlaced(design(), typeKey(), hit);
        windows().place(design(), typeKey(), hit, {3000, 3000});
        if (!why.empty()) {
            EXPECT_EQ(testkit::stateText(design()), before) << why;
            continue;
        }
        ++between;
        const std::string name = last().Caption();
        EXPECT_EQ(testkit::readings(design(), to, from, name), read) << from << " " << to;
        EXPECT_EQ(testkit::readings(design(), to, from), std::vector<std::string>{});
        EXPECT_EQ(testkit::CanvasFaults::ofScenario(design()), testkit::CanvasFaults::Lines{});
        const auto edges = [&](canvas::NodeNumber a, canvas::NodeNumber b) {
            return design().Lines.FindConnectingLine(a, b, canvas::EdgeTypeProvider, false) != nullptr;
        };
        EXPECT_TRUE(edges(design().NamesColl.Item(from), last().Index()) &&
                    edges(last().Index(), design().NamesColl.Item(to)));
        stage.frame.run(Command::stepBack);
        EXPECT_EQ(testkit::stateText(design()), before);
    }
    EXPECT_GT(between, 5);
    EXPECT_EQ(told, "");
}

TEST_F(Types, FromTheListAnActivityStandsOnTheOnlySelectedEdge) {
    stage.frame.run(Command::viewTypes);
    std::vector<canvas::EdgeNumber> edges;
    for (const canvas::LinesD& edge : design().Lines) {
        if (windows().whyNotPlaced(design(), typeKey(), canvas::Hit::onLine(edge.Index())).empty()) {
            edges.push_back(edge.Index());
        }
    }
    ASSERT_GT(edges.size(), 1U);
    const std::string from = design().Labels.byIndex(design().Lines.byIndex(edges[0])->FromLabel())->Caption();
    const struct {
        std::size_t edges;
        bool node;
        int row;
        bool between;
    } cases[] = {
        {1, false, 4, true}, {0, false, 4, false}, {2, false, 4, false}, {1, true, 4, false}, {1, false, 2, false}};
    for (const auto& each : cases) {
        stage.frame.idle();
        design().ClearCrop();
        design().SelectedLines.Clear();
        for (std::size_t at = 0; at < each.edges; ++at) {
            design().SelectedLines.Add(edges[at]);
        }
        if (each.node) {
            design().SelectedLabels.Add(design().Labels.at(1)->Index());
        }
        const canvas::LinesD& edge = *design().Lines.byIndex(edges[0]);
        const canvas::Point middle{edge.Xm(), edge.Ym()};
        list().place(each.row);
        ASSERT_EQ(last().EndingLines().Count(), each.between ? 1 : 0);
        if (each.between) {
            EXPECT_NE(design().Lines.FindConnectingLine(design().NamesColl.Item(from), last().Index(),
                                                        canvas::EdgeTypeProvider, false),
                      nullptr);
            EXPECT_LT(std::abs(last().Left() + last().Width() / 2 - middle.x), 3 * last().Width());
            lastCoversNobody();
        }
        stage.frame.run(Command::stepBack);
    }
    EXPECT_EQ(told, "");
}

}  // namespace
