// Nodes from the list of types.

#include <gtest/gtest.h>

#include "canvas/node_moves.h"
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
        repository.store.setValue("General", "ShortNames", "-1");
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
    EXPECT_EQ(list().status(), "");
    int renewed = 0;
    list().onRows = [&renewed] { ++renewed; };
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
    EXPECT_EQ(renewed, 4);
    list().txtSearch_Change("");
    EXPECT_EQ(renewed, 4);

    entities::ActivityTypeProperties type = stage.frame.catalogue().GetActivityType(0);
    type.ActType_Name = "aaa";
    type.ActType_SchemaNo = 1;
    stage.frame.catalogue().SaveActivityType(type);
    stage.frame.catalogue().LoadActivityTypes();
    stage.frame.run(Command::selectAll);
    EXPECT_EQ(list().Count(), all + 1);
    EXPECT_EQ(list().row(4).name + list().row(4).schemata, "aaa1");

    const auto fails = [&] {
        repository.hooked.after(1, [] { throw platform::Fault("No answer."); });
        list().renew();
    };
    fails();
    EXPECT_EQ(list().status() + " " + list().row(4).name + " " + std::to_string(list().Count() - all),
              "No answer. aaa 1");
    list().renew();
    EXPECT_EQ(list().status(), "");
    stage.frame.run(Command::viewTypes);
    renewed = 0;
    fails();
    EXPECT_FALSE(repository.hooked.happened()) << "nothing is asked while it is closed";
    EXPECT_EQ(renewed, 0);
    stage.frame.run(Command::viewTypes);
    EXPECT_EQ(list().status(), "No answer.") << "what was not asked then is asked now";
}

TEST_F(Types, APlacedNodeIsWhatItsDialogMakes) {
    stage.host.atActivity = [](editors::SetActProp& dialog) {
        dialog.ActTypes_Click(1);
        dialog.OK();
        dialog.end();
    };
    const canvas::Box taken = design().Labels.at(1)->box();
    const canvas::Point at{taken.Left + 900, taken.Top + 400};
    canvas::LabelsD* byHand = design().rules().placeNode(design(), "Activity", at);
    windows().openProperties(design(), *byHand);
    const std::string made = testkit::modelText(design());
    const std::string name = byHand->Caption();
    design().Labels.Remove(byHand->Index());
    design().LabelsNo = canvas::NodeNumber{static_cast<std::int32_t>(design().LabelsNo) - 1};
    --design().ActivityCounter;
    design().SelectedLabels.Add(design().Labels.at(1)->Index());
    design().SelectedLines.Add(design().Lines.at(1)->Index());
    stage.frame.idle();
    const std::string before = testkit::stateText(design());
    const std::size_t steps = stage.frame.histories().of(design())->position();

    windows().place(design(), typeKey(), {}, {at.x + 40, at.y - 30});
    EXPECT_EQ(testkit::modelText(design()), made) << "whatever it covers there";
    EXPECT_TRUE(last().Ready());
    EXPECT_EQ(design().SelectedLabels.members(), std::vector{last().Index()});
    EXPECT_EQ(design().SelectedLines.Count(), 0);
    EXPECT_EQ(design().ActiveLabel, last().Index());
    EXPECT_EQ(stage.desk.revealed, std::vector{name});
    EXPECT_EQ(stage.desk.typed, std::vector{name});
    EXPECT_EQ(stage.frame.histories().of(design())->position(), steps + 1);
    stage.frame.run(Command::stepBack);
    EXPECT_EQ(testkit::stateText(design()), before);

    stage.frame.run(Command::viewTypes);
    for (const int row : {list().Count(), 1, 2, 3}) {
        list().place(row);  // each below what stands in the middle
        lastCoversNobody();
    }
    EXPECT_EQ(last().NodeType(), canvas::NodeTypeLog);
    EXPECT_EQ(told, "Properties Saved|");
    windows().place(design(), typeKey(), {}, {90000, 400});
    EXPECT_GE(design().PicForm.Width(), last().box().right());
}

TEST_F(Types, WhyNothingIsPlacedIsTold) {
    canvas::LabelsD& rs = *design().nodeNamed("RS1");
    canvas::LabelsD& activity = *design().nodeNamed("Activity1");
    const auto edge = [&](const canvas::LabelsD& from, const canvas::LabelsD& to, std::int16_t at,
                          canvas::EdgeTypeCode kind = canvas::EdgeTypeProvider) {
        return canvas::Hit::onLine(
            design().Lines.addFullLine(from.Index(), 3, to.Index(), at, kind, canvas::AngleStraight, 0)->Index());
    };
    const canvas::Hit between = edge(rs, *design().nodeNamed("RS2"), 1);
    const struct {
        std::string key;
        canvas::Hit hit;
        const char* why;
        bool asleep = false;
    } cases[] = {
        {"Activity:gone", {}, "The catalogue has no such type any more."},
        {typeKey(), canvas::Hit::onNode(rs.Index()), "Another node stands there."},
        {typeKey(), edge(activity, activity, 1), "Activity1 feeds itself here."},
        {typeKey(), edge(rs, activity, 5), "This edge carries control, and no data."},
        {typeKey(), between, "No links lead from one record set to another."},
        {list().Count() ? list().row(1).key : "RecordSet", between, ""},
        {typeKey(), edge(rs, activity, 1, canvas::EdgeTypeDescription), ""},
        {typeKey(), {}, "Nodes are placed in the window of a scenario.", true},
    };
    for (const auto& each : cases) {
        stage.frame.idle();
        design().setEnabled(!each.asleep);
        const int nodes = design().Labels.Count();
        windows().place(design(), each.key, each.hit, {500, 700});
        EXPECT_EQ(windows().whyNotPlaced(design(), each.key, each.hit), each.why);
        if (*each.why) {
            EXPECT_EQ(repository.progress.statuses.back(), each.why);
        }
        EXPECT_EQ(design().Labels.Count() - nodes, *each.why ? 0 : 1) << each.why;
    }
    design().setEnabled(true);
    stage.frame.run(Command::viewTypes);
    windows().openZoom(design(), activity);
    const int nodes = design().Labels.Count();
    list().place(1);
    EXPECT_EQ(repository.progress.statuses.back(), "Nodes are placed in the window of a scenario.");
    EXPECT_EQ(design().Labels.Count(), nodes) << "nor behind a zoom view";
}

TEST_F(Types, ATypeThatCannotBeReadIsNotGiven) {
    stage.frame.idle();
    const std::string before = testkit::modelText(design());
    stage.host.atSelection = [](editors::SelectionProp& dialog) {
        dialog.Type = 2;
        dialog.txtWidth = "99";
        EXPECT_FALSE(dialog.OK());
    };
    for (const auto& [placed, executions] : {std::pair(true, 1), {true, 4}, {false, 1}, {false, 4}}) {
        told.clear();
        repository.hooked.after(executions, [] { throw platform::Fault("No answer."); });
        if (placed) {
            windows().place(design(), typeKey(), {}, {500, 700});
        } else {
            stage.frame.run(Command::selectAll);
            stage.frame.run(Command::typeAndSize);
        }
        EXPECT_EQ(told, executions == 1 ? "Error Accessing DataBase\nNo answer.|" : "No answer.|");
        EXPECT_EQ(testkit::modelText(design()), before) << placed;
    }
    design().ClearCrop();
    stage.host.atSelection = [](editors::SelectionProp&) { ADD_FAILURE() << "no node is meant"; };
    stage.frame.run(Command::typeAndSize);
}

TEST_F(Types, SeveralGetATypeAndASizeInOneStep) {
    std::string width = "133.2";
    std::string opened;
    const auto typed = [&](editors::SelectionProp& dialog) {
        opened = dialog.Caption + " " + dialog.txtWidth + " " + dialog.txtHeight + " " + dialog.Types[1];
        dialog.Type = 2;
        dialog.txtWidth = width;
        EXPECT_TRUE(dialog.OK()) << width;
    };
    stage.host.atSelection = typed;
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
    design().Labels.at(1)->setWidth(3000);
    design().Lines.at(1)->placeMiddle({3000, 3000});
    stage.frame.idle();
    struct Size {
        const char *width, *height;
        float across = 0, down = 0;  // nothing when it is refused
    };
    for (const Size& size : {Size{"15", "1000", 225, 15000},
                             {"", "20", 0, 300},
                             {"30", "", 450, 450},
                             {"14.9", ""},
                             {"1000.5", ""},
                             {"2e3", ""},
                             {"", "-50"},
                             {"", "wide"}}) {
        told.clear();
        stage.host.atSelection = [&](editors::SelectionProp& dialog) {
            EXPECT_EQ(dialog.txtWidth + " " + dialog.txtHeight, " 30") << "only the heights are alike";
            dialog.txtWidth = size.width;
            dialog.txtHeight = size.height;
            EXPECT_EQ(dialog.OK(), size.down > 0);
        };
        stage.frame.run(Command::selectAll);
        stage.frame.run(Command::typeAndSize);
        EXPECT_EQ(told, size.down > 0 ? "" : "A width and a height are 15 to 1000 pixels.|") << size.width;
        for (const canvas::LabelsD& node : design().Labels) {
            EXPECT_TRUE(size.down == 0 || node.Height() == size.down) << size.height;
            const bool kept = size.across == 0 && node.Index() != design().Labels.at(1)->Index();
            EXPECT_TRUE(kept ? node.Width() == 1050 : size.across == 0 || node.Width() == size.across) << size.width;
        }
        if (size.down > 0) {
            const std::string taken = testkit::stateText(design());
            for (canvas::LabelsD& node : design().Labels) {
                canvas::reshape(design(), node, node.box());
            }
            EXPECT_EQ(testkit::stateText(design()), taken) << "the edges have followed";
            EXPECT_GE(design().PicForm.Height(), design().nodeNamed("RS4")->box().bottom());
            stage.frame.run(Command::stepBack);
        }
    }

    canvas::LabelsD* activity = nullptr;
    for (canvas::LabelsD& node : design().Labels) {
        activity = node.activity() ? &node : activity;
    }
    windows().openZoom(design(), *activity);
    canvas::CanvasForm& view = *stage.desk.active();
    const std::size_t free = 2;  // the types of the others are settled, and one would be called like its own
    for (std::size_t at = 0; at <= free; ++at) {
        view.rules().placeNode(view, "Attribute", {500, 500});
        if (at == 0) {
            view.Labels.byIndex(view.LabelsNo)->entity<entities::AttributeProperties>()->Attribute_Name =
                stage.frame.catalogue().tables.dataTypes.name(1);
        }
    }
    stage.frame.run(Command::selectAll);
    stage.host.atSelection = typed;
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
    const canvas::LabelsD& namesake = *view.Labels.byIndex(meant[meant.size() - free - 1]);
    EXPECT_NE(namesake.entity<entities::AttributeProperties>()->Attribute_Type, 1) << "what its dialog refuses";
    EXPECT_EQ(std::count(told.begin(), told.end(), '|'), 1) << told;
    EXPECT_EQ(told.find("They keep their type: "), 0U);

    // What is left as it was rounds nothing, and is never too large.
    for (const auto& [twips, shown] : {std::pair(1234.0F, "82.27"), {30000.0F, "2000"}}) {
        canvas::LabelsD& node = *view.Labels.byIndex(meant.back());
        node.setBox({0, 0, twips, 30000});
        view.ClearCrop();
        view.SelectedLabels.Add(node.Index());
        width = shown;
        stage.frame.run(Command::typeAndSize);
        EXPECT_EQ(opened, "1 node " + width + " 2000 " + stage.frame.catalogue().tables.dataTypes.name(0));
        EXPECT_EQ(node.Width(), twips);
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
        design().Labels.at(2)->setLeft(100.F * static_cast<float>(at));  // a step before that of the placing
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
        if (from == "RS1") {
            EXPECT_EQ(last().activity()->Act_Inputs->Item("RS1_AU_ID")->Attribute_Name, "AU_ID") << "a short name";
        }
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
