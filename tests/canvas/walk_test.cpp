#include <gtest/gtest.h>

#include "canvas/draw_form.h"
#include "canvas/node_walk.h"
#include "testkit/scripted_ports.h"

using namespace orvent;
using namespace orvent::canvas;

namespace {

class Walk : public testkit::CanvasTest {
  protected:
    DrawForm design{ports.services()};
};

TEST_F(Walk, FollowsRowsAndColumns) {
    EXPECT_EQ(walk(design, Direction::right), nullptr);
    for (const auto& [name, left, top] :
         {std::tuple{"a", 0.0F, 0.0F}, {"b", 3000.0F, 300.0F}, {"c", 1500.0F, 3000.0F}, {"d", 9000.0F, 0.0F}}) {
        design.Labels.Add({left, top, 1050, 450}, name, NodeTypeRecordSet);
    }
    using enum Direction;
    for (const auto& [direction, name] :
         {std::pair{right, "a"}, {right, "b"}, {right, "d"}, {right, ""}, {left, "b"}, {down, "c"}, {up, "b"}}) {
        const LabelsD* node = walk(design, direction);
        EXPECT_EQ(node ? node->KeyName() : "", name);
        EXPECT_EQ(design.SelectedLabels.Count(), 1);
    }
    design.nodeNamed("c")->setVisible(false);
    selectAllNodes(design);
    EXPECT_EQ(design.SelectedLabels.Count(), 3) << "what is not seen is not taken";
}

}  // namespace
