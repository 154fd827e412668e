#include <array>
#include <map>
#include <random>

#include "analysis/metrics_functions.h"
#include "entities/key_grammar.h"
#include "testkit/graph_builder.h"
#include "testkit/plain_walk.h"
#include "zoom/link_graph.h"

namespace orvent::analysis {
namespace {

using namespace entities;
using canvas::LabelsD;
using testkit::PlainWalk;

class Metrics : public testkit::GraphTest {
  protected:
    /// The numbers of a row, each behind a blank.
    static std::string numbers(const MetricsRow& row) {
        std::string text = row.name;
        for (const std::int32_t value : row.values) {
            text += " " + std::to_string(value);
        }
        return text;
    }

    void run(std::int16_t depth) { MetricsFunctions(views, depth).ScenarioMetrics(form); }

    MetricsViews views;
};

TEST_F(Metrics, NodesOfAScenario) {
    for (const char* name : {"a", "b", "c", "d", "e", "lone"}) {
        graph.recordSet(name);
    }
    // A diamond a-b-d, a-c-d with a tail d-e, and a cycle of another kind e-d.
    for (const char* edge : {"ab", "ac", "bd", "cd", "de"}) {
        graph.edge({edge[0]}, {edge[1]});
    }
    form.Lines.addFullLine(form.NamesColl.Item("e"), 1, form.NamesColl.Item("d"), 1, canvas::EdgeTypeDescription,
                           canvas::AngleNone, 0);
    struct Row {
        std::int16_t depth;
        std::vector<const char*> rows;
        const char* sums;
        const char* averages;
    };
    for (const Row& row : {
             Row{0,
                 {"a 0 2 2 0 -2 -2 0 0 0", "b 1 1 2 -1 -1 -2 0 0 0", "c 1 1 2 -1 -1 -2 0 0 0", "d 2 1 3 -2 -1 -3 0 0 0",
                  "e 1 0 1 -1 0 -1 0 0 0", "lone 0 0 0 0 0 0 0 0 0"},
                 "5 5 10 -5 -5 -10 0 0 0",
                 "0.83 0.83 1.67 -0.83 -0.83 -1.67 0 0 0"},
             Row{1,
                 {"a 0 2 2 0 0 0 0 2 2", "b 1 1 2 0 0 0 1 1 2", "c 1 1 2 0 0 0 1 1 2", "d 2 1 3 1 0 1 3 1 4",
                  "e 1 0 1 0 1 1 1 1 2", "lone 0 0 0 0 0 0 0 0 0"},
                 "5 5 10 1 1 2 6 6 12",
                 "0.83 0.83 1.67 0.17 0.17 0.33 1 1 2"},
             // The first branch of the diamond spends what there is: from a to c no further than c itself.
             Row{3,
                 {"a 0 2 2 0 2 2 0 4 4", "b 1 1 2 0 1 1 1 2 3", "c 1 1 2 0 1 1 1 2 3", "d 2 1 3 2 1 3 4 2 6",
                  "e 1 0 1 4 2 6 5 2 7", "lone 0 0 0 0 0 0 0 0 0"},
                 "5 5 10 6 7 13 11 12 23",
                 "0.83 0.83 1.67 1 1.17 2.17 1.83 2 3.83"},
         }) {
        SCOPED_TRACE(row.depth);
        run(row.depth);
        ASSERT_EQ(views.InpMetrView.size(), row.rows.size());
        for (std::size_t at = 0; at < row.rows.size(); ++at) {
            EXPECT_EQ(numbers(views.InpMetrView[at]), row.rows[at]);
        }
        std::string sums, averages;
        for (std::size_t column = 0; column < kMetricsColumns; ++column) {
            sums += (column ? " " : "") + views.SumView[column];
            averages += (column ? " " : "") + views.AvgView[column];
        }
        EXPECT_EQ(sums, row.sums);
        EXPECT_EQ(averages, row.averages);
    }
}

TEST_F(Metrics, NothingToCountAndTooMuch) {
    run(5);
    EXPECT_EQ(views.SumView[Local_IN], "0");
    EXPECT_EQ(views.AvgView[Local_IN], kNoMetric);
    graph.recordSet("a");
    graph.recordSet("b");
    for (int edge = 0; edge < 20000; ++edge) {
        graph.edge("a", "b");
    }
    run(5);
    EXPECT_EQ(views.SumView[Local_DEGREE], "40000");
    EXPECT_EQ(views.AvgView[Local_DEGREE], "20000");
    EXPECT_EQ(views.beyond, 40000);
    run(0);
    EXPECT_EQ(views.SumView[Trans_DEGREE], "-40000");
    EXPECT_NE(views.beyond, 0);
    EXPECT_EQ(PadColumns("9"), " 9");
    EXPECT_EQ(PadColumns("10"), "10");
    EXPECT_EQ(PadColumns("-9"), "-9");
}

TEST_F(Metrics, WalksOfRandomGraphsEqualPlainOnes) {
    std::mt19937 random(20261);
    for (int round = 0; round < 1000; ++round) {
        form.clear();
        const int nodes = 2 + static_cast<int>(random() % 14);
        for (int node = 0; node < nodes; ++node) {
            graph.recordSet("n" + std::to_string(node));
        }
        const bool cycles = round % 3 == 0;
        for (auto edge = random() % static_cast<unsigned long>(3 * nodes); edge > 0; --edge) {
            int from = static_cast<int>(random() % static_cast<unsigned>(nodes));
            int to = static_cast<int>(random() % static_cast<unsigned>(nodes));
            if (!cycles && from >= to) {
                continue;
            }
            graph.edge("n" + std::to_string(from), "n" + std::to_string(to));
        }
        const std::int16_t depths[] = {-1, 1, 2, 5, 30, 200, 2000};
        const std::int16_t depth = depths[random() % 7];
        run(depth);
        std::size_t at = 0;
        for (const LabelsD& node : form.Labels) {
            SCOPED_TRACE("round " + std::to_string(round) + " depth " + std::to_string(depth) + " " + node.KeyName());
            ASSERT_EQ(views.InpMetrView[at].values[Total_IN],
                      static_cast<int>(PlainWalk{form, true, depth}.nodes(node).size()));
            ASSERT_EQ(views.InpMetrView[at].values[Total_OUT],
                      static_cast<int>(PlainWalk{form, false, depth}.nodes(node).size()));
            ++at;
        }
    }
}

/// Links of every kind around the activity A2.
class AttributeMetrics : public Metrics {
  protected:
    testkit::LinkGraph links{form};

    /// The rows of both views of a node, the number of those of the first in `inputs_`.
    std::map<std::string, std::string> rows(const char* node, std::int16_t depth) {
        MetricsFunctions(views, depth).EntityMetrics(form, *form.nodeNamed(node));
        std::map<std::string, std::string> found;
        for (const MetricsRow& row : views.InpMetrView) {
            found["in " + row.name] = numbers(row);
        }
        for (const MetricsRow& row : views.OutMetrView) {
            found["out " + row.name] = numbers(row);
        }
        return found;
    }
};

TEST_F(AttributeMetrics, CountThroughParametersAndNeverConstants) {
    auto a2 = rows("A2", 100);
    EXPECT_EQ(a2["in SONUM"], "SONUM 1 1 2 0 0 0 1 1 2") << "its parameter governs nothing";
    EXPECT_EQ(a2["in AU_ID"], "AU_ID 1 2 3 2 1 3 3 3 6") << "read from A1 and RS1, to its output and A3, also by PARAM";
    EXPECT_EQ(a2["out AU_ID"], "AU_ID 2 1 3 2 1 3 4 2 6");
    EXPECT_EQ(a2["out ED_ID"], "ED_ID 0 1 1 0 0 0 0 1 1");
    // A parameter with a constant and an input: only the input counts.
    links.add("A2.OUT.ED_ID <~ 10 A2 .PARAM.SONUM");
    EXPECT_EQ(rows("A2", 100)["out ED_ID"], "ED_ID 1 1 2 1 0 1 2 1 3");
    EXPECT_EQ(rows("RS3", 100)["in PUB_ID"], "PUB_ID 0 0 0 0 0 0 0 0 0");
    // Links to what is gone count and lead nowhere.
    links.add("A2.IN.SONUM <- 1 GONE GONE.SONUM");
    EXPECT_EQ(rows("A2", 100)["in SONUM"], "SONUM 2 1 3 0 0 0 2 1 3");
    // A cycle ends with the budget; the largest one finds no more than what goes round many times.
    links.add("A3.OUT.AU_ID -> 2 A2 A2.IN.AU_ID");
    links.add("A2.IN.AU_ID <- 2 A3 A3.OUT.AU_ID");
    EXPECT_NE(rows("A2", 400)["in AU_ID"], a2["in AU_ID"]);
    EXPECT_EQ(rows("A2", 32767), rows("A2", 400));
}

TEST_F(AttributeMetrics, WalksOfRandomLinksEqualPlainOnes) {
    std::mt19937 random(8);
    const std::vector<const char*> inputs = {"A1.IN.AU_ID", "A2.IN.AU_ID", "A2.IN.SONUM", "A3.IN.AU_ID"};
    const std::vector<const char*> outputs = {"A1.OUT.AU_ID", "A2.OUT.AU_ID", "A2.OUT.ED_ID", "A3.OUT.AU_ID"};
    const std::vector<const char*> columns = {"RS1.AU_ID", "RS2.ED_ID", "RS3.PUB_ID", "RS4.SONUM"};
    const auto any = [&](const auto& list) { return std::string(list[random() % list.size()]); };
    const auto both = [&](const std::string& from, int type, const std::string& to) {
        const std::string code = std::to_string(type);
        links.add(from + " -> " + code + " " + BeforeFirstDot(to) + " " + to);
        links.add(to + " <- " + code + " " + BeforeFirstDot(from) + " " + from);
    };
    for (int round = 0; round < 40; ++round) {
        const std::string output = any(outputs), input = any(inputs), column = any(columns);
        switch (random() % 3) {
            case 0:
                both(output, 2, input);
                break;
            case 1:
                both(output, 1, column);
                break;
            default:
                both(column, 1, input);
        }
        for (const std::int16_t depth : std::to_array<std::int16_t>({1, 2, 3, 7, 40, 400})) {
            for (const char* node : {"A1", "A2", "A3", "RS1", "RS3"}) {
                rows(node, depth);
                for (const auto* view : {&views.InpMetrView, &views.OutMetrView}) {
                    for (const MetricsRow& row : *view) {
                        const std::string kind = view == &views.InpMetrView ? ".IN." : ".OUT.";
                        const auto* attribute = PlainWalk{form, true, 0}.named(node, node + kind + row.name);
                        if (!attribute) {
                            attribute = form.nodeNamed(node)->recordSet()->RecordSet_Outputs->Item(row.name);
                        }
                        SCOPED_TRACE(std::string(node) + kind + row.name + " depth " + std::to_string(depth));
                        ASSERT_EQ(row.values[Total_IN],
                                  static_cast<int>(PlainWalk{form, true, depth}.attribute(attribute).size()));
                        ASSERT_EQ(row.values[Total_OUT],
                                  static_cast<int>(PlainWalk{form, false, depth}.attribute(attribute).size()));
                    }
                }
            }
        }
    }
}

}  // namespace
}  // namespace orvent::analysis
