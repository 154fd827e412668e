#include <random>

#include "canvas/pointer_fixture.h"
#include "platform/codes.h"
#include "testkit/numbers.h"

using namespace orvent;
using namespace orvent::canvas;
using namespace orvent::entities;

namespace {

std::string noted(const Canvas& form) {
    std::string text;
    for (const DeletedNode& row : *form.DeletedNodes) {
        text += std::to_string(platform::numberOf(row.NodeKind)) + ":" + std::to_string(row.NodeID) + " ";
    }
    return text;
}

TEST(Deleting, DesignNodesAreNoted) {
    testkit::PointerStage stage;
    DesignRules rules;
    Canvas& form = stage.form;
    form.Labels.byIndex(1_node)->recordSet()->NodeID = 11;
    form.Labels.byIndex(2_node)->activity()->NodeID = 22;
    form.Labels.byIndex(3_node)->entity<CommentProperties>()->NodeID = 33;
    form.Labels.byIndex(4_node)->Properties = std::int16_t{44};
    form.Labels.Add({0, 0, 1, 1}, "Type", NodeTypeDataType);  // has no row of its own and stays
    form.SelectedLines.Add(1_edge);
    form.CurrentEdge = form.ActiveEdge = 1_edge;
    for (const NodeTypeCode onlyType : {NodeTypeActivity, kEveryNodeType}) {
        for (const LabelsD& node : form.Labels) {
            form.SelectedLabels.Add(node.Index());
        }
        DeleteSelectedNodes(form, onlyType, stage.host, rules);
        const bool all = onlyType == kEveryNodeType;
        EXPECT_EQ(stage.seen(), !all ? "[/0] unlink Act" : "[/0] unlink RS unlink Target");
        EXPECT_EQ(noted(form), !all ? "9:22 " : "9:22 10:11 11:33 12:44 10:0 ");
        EXPECT_TRUE(form.CurrentEdge == kNoEdge && form.ActiveEdge == kNoEdge && form.ActiveLabel == kNoNode);
    }
    EXPECT_EQ(form.Labels.at(1)->Color(), 0xFFFFFF);
    EXPECT_EQ(form.Labels.Count(), 1);
}

/// Keeps whole nodes, as a view over a part of a scenario does.
struct MembersOnly : DesignRules {
    bool mayDelete(Canvas&, const LabelsD& node) override { return !node.activity() && !node.recordSet(); }
};

TEST(Deleting, MembersLeaveTheirOwner) {
    testkit::LoggingHost host;
    MembersOnly rules;
    const CanvasSettings settings;
    testkit::ZoomCanvas form({host, settings});
    ActivityProperties& activity = *form.Labels.Add({0, 0, 1, 1}, "A", NodeTypeActivity).activity();
    RecordSetProperties& recordSet = *form.Labels.Add({0, 0, 1, 1}, "R", NodeTypeRecordSet).recordSet();
    form.SelectedLabels.Add(1_node);
    form.SelectedLabels.Add(2_node);
    const auto shown = [&](NodeTypeCode kind, const char* name, NodeProperties entity) {
        form.Labels.Add({0, 0, 1, 1}, name, kind, name).Properties = std::move(entity);
        form.SelectedLabels.Add(form.LabelsNo);
    };
    const auto listed = [&](auto& list, const char* key, const char* owner, std::int16_t id) {
        auto& item = list.Add(key, 0, entities::TagNone, key);
        item.ParentKeyName = owner;
        item.SubNode_ID = id;
        return list.share(key);
    };
    shown(NodeTypeAttribute, "i", listed(*activity.Act_Inputs, "i", "A", 1));
    shown(NodeTypeAttribute, "o", listed(*activity.Act_Outputs, "o", "A", 2));
    shown(NodeTypeParameter, "p", listed(*activity.Act_Parameters, "p", "A", 3));
    AttributeCollection& columns = *recordSet.RecordSet_Outputs;
    shown(NodeTypeAttribute, "c", listed(columns, "c", "R", 4));
    shown(NodeTypeAttribute, "lost", listed(columns, "lost", "gone", 5));  // its owner is not on the canvas
    auto stray = std::make_shared<AttributeProperties>();  // its owner's name is that of a record set now
    stray->NodeKind = KindInput;
    stray->ParentKeyName = "R";
    stray->SubNode_ID = 6;
    shown(NodeTypeAttribute, "stray", stray);
    shown(NodeTypeAttribute, "free", std::make_shared<AttributeProperties>());
    shown(NodeTypeParameter, "freeP", std::make_shared<ParameterProperties>());
    shown(NodeTypeConstant, "const", std::make_shared<ParameterProperties>());
    auto input = std::make_shared<ParameterProperties>();
    input->NodeKind = KindFunctionInput;
    shown(NodeTypeParameter, "fixed", input);
    activity.Act_Inputs->Changed = false;
    DeleteSelectedNodes(form, kEveryNodeType, host, rules);
    EXPECT_EQ(noted(form), "1:1 2:2 3:3 4:4 4:5 1:6 ");
    EXPECT_EQ(host.taken(), " unlink i unlink o unlink p unlink c unlink lost unlink stray unlink const");
    EXPECT_EQ(form.Labels.Count(), 3);
    EXPECT_TRUE(form.nodeNamed("fixed"));
    EXPECT_EQ(activity.Act_Inputs.count() + activity.Act_Outputs.count() + activity.Act_Parameters.count(), 0);
    EXPECT_EQ(columns.Count(), 1);
    EXPECT_TRUE(activity.Act_Inputs->Changed);
}

// The tables keep their order and find every item while items go and come in any order.
TEST(Deleting, HolesAreNotSeen) {
    testkit::PointerStage stage;
    Canvas& form = stage.form;
    form.clear();
    std::mt19937 random(7);
    std::vector<NodeNumber> expected;
    for (int round = 0; round < 400; ++round) {
        if (expected.size() < 3 || random() % 2 == 0) {
            expected.push_back(form.Labels.Add({0, 0, 1000, 400}, "N" + std::to_string(round), NodeTypeLog).Index());
            form.SelectedLabels.Add(expected.back());
        } else {
            const auto at = expected.begin() + static_cast<std::ptrdiff_t>(random() % expected.size());
            form.Labels.Remove(*at);
            EXPECT_FALSE(form.Labels.byIndex(*at));
            expected.erase(at);
        }
        std::vector<NodeNumber> walked;
        for (const LabelsD& node : form.Labels) {
            walked.push_back(node.Index());
        }
        ASSERT_EQ(walked, expected);
        ASSERT_EQ(form.SelectedLabels.members(), expected);
        ASSERT_EQ(form.Labels.Count(), static_cast<int>(expected.size()));
        if (round % 7 == 0) {
            ASSERT_EQ(form.Labels.at(1)->Index(), expected[0]);
        }
    }
}

}  // namespace
