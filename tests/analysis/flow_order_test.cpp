#include "analysis/flow_order.h"

#include <string>
#include <vector>

#include "platform/fault.h"
#include "testkit/graph_builder.h"
#include "testkit/numbers.h"

namespace orvent::analysis {
namespace {

class FlowOrderTest : public testkit::GraphTest {
  protected:
    /// Draws edges such as "ab": one from node a to node b; a node is made when it is first named.
    void draw(const std::vector<std::string>& edges) {
        for (const std::string& edge : edges) {
            for (const char name : edge) {
                if (!form.nodeNamed({name})) {
                    graph.recordSet({name});
                }
            }
            if (edge.size() == 2) {
                graph.edge({edge[0]}, {edge[1]});
            }
        }
    }

    /// "name:number" of every entry in order.
    std::string shown(const NodesColl& nodes, std::int32_t NodesData::*number) const {
        std::string result;
        for (const NodesData& entry : nodes) {
            result += form.Labels.byIndex(entry.Index)->KeyName() + ":" + std::to_string(entry.*number) + " ";
        }
        return result;
    }

    testkit::QuietProgress progress;
    FlowOrder order{progress};
};

TEST_F(FlowOrderTest, GraphsAndTheirOrders) {
    struct Case {
        const char* title;
        std::vector<std::string> edges;
        const char* closures;
        const char* flow;
    };
    const std::vector<Case> cases = {
        {"lone nodes", {"a", "b"}, "a:0 b:0 ", "b:2 a:1 "},
        {"fork: both ends count the shared edge", {"ab", "bc", "bd"}, "c:2 d:2 ", "d:4 c:3 b:2 a:1 "},
        {"join in the middle", {"ac", "bc", "cd"}, "d:3 c:2 ", "c:4 b:3 a:2 d:1 "},
        {"order of equals", {"ab", "cd", "ef", "gf"}, "f:2 b:1 d:1 ", "d:7 c:6 b:5 a:4 f:3 g:2 e:1 "},
        {"two edges between the same nodes", {"ab", "bc", "bc"}, "c:3 ", "c:3 b:2 a:1 "},
        {"cycle that leads to an end", {"ab", "ba", "bc"}, "c:3 ", "c:3 b:2 a:1 "},
        {"cycle of starting nodes", {"ab", "ba", "ca", "cb"}, "a:4 b:4 ", "b:3 a:2 c:1 "},
        {"cycle on its own is left out", {"ab", "ba", "cd"}, "d:1 ", "d:2 c:1 "},
        {"edge to itself", {"aa", "ab"}, "b:2 ", "b:2 a:1 "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.title);
        form.clear();
        draw(c.edges);
        EXPECT_EQ(shown(order.ComputeClosures(form), &NodesData::TransClosure), c.closures);
        EXPECT_EQ(shown(order.ComputeFlowIDs(form), &NodesData::FlowID), c.flow);
    }
}

TEST_F(FlowOrderTest, EdgeWithoutItsNodeIsAFault) {
    draw({"ab"});
    form.Lines.byIndex(1_edge)->detach(canvas::EdgeEnd::start);
    EXPECT_THROW(order.ComputeFlowIDs(form), platform::Fault);
}

// Deep enough to overflow a call stack, and more upstream edges than 16 bits hold.
TEST_F(FlowOrderTest, LongChainsAndWideCounts) {
    constexpr int kNodes = 30000;
    constexpr int kFirstEdges = 40000;
    graph.recordSet("n1");
    for (int i = 2; i <= kNodes; ++i) {
        const std::string name = "n" + std::to_string(i);
        graph.recordSet(name);
        for (int edge = 0; edge < (i == 2 ? kFirstEdges : 1); ++edge) {
            graph.edge("n" + std::to_string(i - 1), name);
        }
    }
    const NodesColl flow = order.ComputeFlowIDs(form);
    ASSERT_EQ(flow.Count(), kNodes);
    const NodesData* end = flow.Item(std::to_string(kNodes));
    EXPECT_EQ(end->TransClosure, kFirstEdges + kNodes - 2);
    // The end comes first, then what lies between it and the node where flows join, then that node and its source.
    EXPECT_EQ(end->FlowID, kNodes - 2);
    EXPECT_EQ(flow.Item("3")->FlowID, 1);
    EXPECT_EQ(flow.Item("2")->FlowID, kNodes);
}

TEST(NodesCollTest, ANodeIsThereOnceUntilItIsRemoved) {
    NodesColl nodes;
    nodes.AddByClosure(1_node, 5, 0, "1");
    nodes.AddByClosure(4_node, 6, 0, "4");
    EXPECT_THROW(nodes.AddByClosure(4_node, 1, 0, "4"), platform::Fault);
    nodes.Remove("4");
    EXPECT_EQ(nodes.Item("4"), nullptr);
    EXPECT_EQ(nodes.Item(1)->Index, 1_node);
    EXPECT_EQ(nodes.Item(2), nullptr);
}

}  // namespace
}  // namespace orvent::analysis
