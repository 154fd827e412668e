#include "analysis/metric_tints.h"

#include "testkit/graph_builder.h"

namespace orvent::analysis {
namespace {

class MetricTintsTest : public testkit::GraphTest {
  protected:
    MetricTintsTest() {
        for (const char* name : {"a", "b", "c", "unready"}) {
            graph.recordSet(name);
        }
        form.nodeNamed("a")->setReady(true);
        form.nodeNamed("unready")->setReady(false);
        graph.edge("a", "b");
        graph.edge("b", "c");
        graph.edge("a", "unready");
    }
    std::optional<double> share(const MetricTints& tints, const char* node) {
        return tints.share(*form.nodeNamed(node));
    }

    std::int16_t depth = 5;
};

TEST_F(MetricTintsTest, SharesOfTheChosenColumn) {
    MetricTints tints(form, depth);
    struct Row {
        std::size_t column;
        double a, b, c;
        const char* range;
    };
    for (const Row& row : {Row{Total_DEGREE, 1, 2.0 / 3, 2.0 / 3, "0 to 3"}, Row{Local_OUT, 1, 0.5, 0, "0 to 2"},
                           Row{Total_IN, 0, 0.5, 1, "0 to 2"}}) {
        tints.choose(row.column);
        EXPECT_EQ(share(tints, "a"), row.a) << row.column;
        EXPECT_EQ(share(tints, "b"), row.b) << row.column;
        EXPECT_EQ(share(tints, "c"), row.c) << row.column;
        EXPECT_EQ(share(tints, "unready"), std::nullopt);
        form.SelectedLabels.Add(form.nodeNamed("unready")->Index());
        EXPECT_EQ(share(tints, "unready"), std::nullopt) << "selected";
        form.SelectedLabels.Clear();
        EXPECT_EQ(tints.range(), row.range);
    }
    // Without walks what lies beyond the direct neighbours is below 0; no shade is.
    depth = 0;
    tints.countAnew();
    tints.choose(Trans_DEGREE);
    EXPECT_EQ(share(tints, "b"), 0);
    EXPECT_EQ(tints.range(), "0 to 0");
}

TEST_F(MetricTintsTest, ChangesOfTheGraphCountWithTheNextCount) {
    MetricTints tints(form, depth);
    graph.recordSet("late");
    form.nodeNamed("late")->setReady(true);
    EXPECT_EQ(share(tints, "late"), std::nullopt);
    tints.countAnew();
    EXPECT_EQ(share(tints, "late"), 0);
    // More than 16 bits hold.
    for (int edge = 0; edge < 33000; ++edge) {
        graph.edge("a", "late");
    }
    tints.countAnew();
    tints.choose(Local_IN);
    EXPECT_EQ(share(tints, "late"), 1);
    EXPECT_EQ(tints.range(), "0 to 33000");
}

}  // namespace
}  // namespace orvent::analysis
