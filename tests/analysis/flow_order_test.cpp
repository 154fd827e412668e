#include "analysis/flow_order.h"

#include <string>
#include <utility>
#include <vector>

#include "platform/fault.h"
#include "testkit/graph_builder.h"
#include "testkit/scripted_ports.h"

namespace orvent::analysis {
namespace {

class FlowOrderTest : public testkit::CanvasTest {
  protected:
    /// Draws edges such as "ab": one from node a to node b; a node is made when it is first named.
    void draw(const std::vector<const char*>& edges) {
        for (const std::string edge : edges) {
            for (const char name : edge) {
                if (!form.nodeNamed(std::string(1, name))) {
                    graph.recordSet(std::string(1, name));
                }
            }
            if (edge.size() == 2) {
                graph.edge(edge.substr(0, 1), edge.substr(1));
            }
        }
    }

    /// "name:number" of every entry in order.
    std::string shown(const NodesColl& nodes, std::int32_t NodesData::*number) const {
        std::string result;
        for (const NodesData& entry : nodes) {
            result += (result.empty() ? "" : " ") + form.Labels.byIndex(entry.Index)->KeyName() + ":" +
                      std::to_string(entry.*number);
        }
        return result;
    }

    testkit::QuietProgress progress;
    canvas::DrawForm form{ports.services()};
    testkit::GraphBuilder graph{form};
    FlowOrder order{progress};
};

TEST_F(FlowOrderTest, GraphsAndTheirOrders) {
    struct Case {
        const char* title;
        std::vector<const char*> edges;
        const char* closures;
        const char* flow;
    };
    const std::vector<Case> cases = {
        {"empty", {}, "", ""},
        {"lone nodes", {"a", "b"}, "a:0 b:0", "b:2 a:1"},
        {"chain", {"ab", "bc"}, "c:2", "c:3 b:2 a:1"},
        {"fork: both ends count the shared edge", {"ab", "bc", "bd"}, "c:2 d:2", "d:4 c:3 b:2 a:1"},
        {"join in the middle", {"ac", "bc", "cd"}, "d:3 c:2", "c:4 b:3 a:2 d:1"},
        {"equal closures keep the order of the nodes",
         {"ab", "cd", "ef", "gf"},
         "f:2 b:1 d:1",
         "d:7 c:6 b:5 a:4 f:3 g:2 e:1"},
        {"two edges between the same nodes", {"ab", "ab"}, "b:2", "b:2 a:1"},
        {"cycle that leads to an end", {"ab", "ba", "bc"}, "c:3", "c:3 b:2 a:1"},
        {"cycle of starting nodes", {"ab", "ba", "ca", "cb"}, "a:4 b:4", "b:3 a:2 c:1"},
        {"cycle on its own is left out", {"ab", "ba", "cd"}, "d:1", "d:2 c:1"},
        {"edge to itself", {"aa", "ab"}, "b:2", "b:2 a:1"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.title);
        form.clear();
        draw(c.edges);
        EXPECT_EQ(shown(order.ComputeClosures(form), &NodesData::TransClosure), c.closures);
        EXPECT_EQ(shown(order.ComputeFlowIDs(form), &NodesData::FlowID), c.flow);
    }
}

TEST_F(FlowOrderTest, CommentsAndTheirEdgesTakePart) {
    graph.node("n", canvas::NodeTypeComment);
    graph.recordSet("a");
    graph.activity("b");
    graph.edge("n", "b");
    graph.edge("a", "b");
    EXPECT_EQ(shown(order.ComputeFlowIDs(form), &NodesData::FlowID), "b:3 a:2 n:1");
}

TEST_F(FlowOrderTest, EdgeWithoutItsNodeIsAFault) {
    draw({"ab"});
    form.Lines.byIndex(1)->FromLabel = 77;
    EXPECT_THROW(order.ComputeFlowIDs(form), platform::Fault);
}

// Deep enough to overflow a call stack, and more upstream edges than 16 bits hold.
TEST_F(FlowOrderTest, LongChainsAndWideCounts) {
    constexpr int kNodes = 30000;
    constexpr int kFirstEdges = 40000;
    std::string former;
    for (int i = 1; i <= kNodes; ++i) {
        const std::string name = "n" + std::to_string(i);
        graph.recordSet(name);
        for (int edge = 0; i > 1 && edge < (i == 2 ? kFirstEdges : 1); ++edge) {
            graph.edge(former, name);
        }
        former = name;
    }
    const NodesColl flow = order.ComputeFlowIDs(form);
    ASSERT_EQ(flow.Count(), kNodes);
    const NodesData* end = flow.Item(std::to_string(kNodes));
    EXPECT_EQ(end->TransClosure, kFirstEdges + kNodes - 2);
    // The end comes first, then what lies between it and the node where flows join, then that node and its source.
    EXPECT_EQ(end->FlowID, kNodes - 2);
    EXPECT_EQ(flow.Item("3")->FlowID, 1);
    EXPECT_EQ(flow.Item("2")->FlowID, kNodes);
    EXPECT_EQ(flow.Item("1")->FlowID, kNodes - 1);
}

TEST(NodesCollTest, DescendsAndKeepsEqualsInOrder) {
    NodesColl nodes;
    nodes.AddByClosure(1, 5, 0, "1");
    nodes.AddByClosure(2, 7, 0, "2");
    nodes.AddByClosure(3, 5, 0, "3");
    nodes.AddByClosure(4, 6, 0, "4");
    EXPECT_THROW(nodes.AddByClosure(4, 1, 0, "4"), platform::Fault);
    std::vector<std::int32_t> seen;
    for (const NodesData& node : nodes) {
        seen.push_back(node.Index);
    }
    EXPECT_EQ(seen, (std::vector<std::int32_t>{2, 4, 1, 3}));
    EXPECT_EQ(nodes.Item(3)->Index, 1);
    EXPECT_EQ(nodes.Item(5), nullptr);

    nodes.Remove("4");
    nodes.Remove("unknown");
    EXPECT_EQ(nodes.Item("4"), nullptr);
    EXPECT_EQ(nodes.Item(2)->Index, 1);
    EXPECT_EQ(nodes.Count(), 3);
}

}  // namespace
}  // namespace orvent::analysis
