#include "canvas/arrangement.h"

#include <array>
#include <cmath>
#include <functional>
#include <random>
#include <tuple>

#include "canvas/canvas_state.h"
#include "canvas/node_walk.h"
#include "canvas/pointer_fixture.h"
#include "canvas/straighten.h"
#include "testkit/letter_measure.h"

namespace orvent::canvas {
namespace {

using testkit::PointerStage;

/// Counts what it is told.
struct Told : CanvasListener {
    explicit Told(Canvas& canvas) : subscription(canvas.listen(*this)) {}
    void nodeChanged(const LabelsD&) override { ++single; }
    void edgeChanged(const LinesD&) override { ++single; }
    void manyChanged() override { ++many; }
    void formChanged() override { ++form; }
    int single = 0, many = 0, form = 0;
    CanvasSubscription subscription;
};

/// Where everything stands, and how the edges run.
std::pair<std::vector<Box>, std::vector<EdgeState>> picture(const Canvas& canvas) {
    std::pair<std::vector<Box>, std::vector<EdgeState>> seen;
    for (const LabelsD& node : canvas.Labels) {
        seen.first.push_back(node.box());
    }
    for (const LinesD& edge : canvas.Lines) {
        seen.second.push_back(stateOf(&edge));
    }
    return seen;
}

/// Adds nodes anywhere, and edges that lead to later nodes with all angles and middles placed by hand.
void scatter(DrawForm& form, unsigned seed) {
    std::mt19937 random(seed);
    const auto below = [&random](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
    constexpr NodeTypeCode kKinds[] = {NodeTypeRecordSet, NodeTypeActivity, NodeTypeRecordSet,
                                       NodeTypeActivity,  NodeTypeComment,  NodeTypeLog};
    for (int node = 0; node < 30; ++node) {
        const auto x = static_cast<float>(below(9000) - 200), y = static_cast<float>(below(9000) - 200);
        form.Labels.Add({x, y, 1050, 450}, "N" + std::to_string(node), kKinds[below(6)]);
    }
    const auto nodes = static_cast<int>(form.LabelsNo);
    for (int made = 0; made < 40; ++made) {
        const int from = 1 + below(nodes - 1);
        const int to = from + 1 + below(nodes - from);
        LinesD* edge = form.Lines.addFullLine(NodeNumber{from}, static_cast<std::int16_t>(1 + below(4)), NodeNumber{to},
                                              static_cast<std::int16_t>(1 + below(4)),
                                              below(4) == 0 ? EdgeTypeRegulator : EdgeTypeProvider,
                                              static_cast<AngleCode>(below(4)), 0);
        if (edge->Angle() == AngleNone && below(2) == 0) {
            edge->placeMiddle({static_cast<float>(below(9000)), 5});
        }
    }
}

bool touch(const Box& a, const Box& b) {
    return a.Left <= b.right() && b.Left <= a.right() && a.Top <= b.bottom() && b.Top <= a.bottom();
}

bool isNote(const LabelsD& node) {
    return node.NodeType() == NodeTypeComment || node.NodeType() == NodeTypeLog;
}

TEST(TidyUp, OrdersNodesAndTakesThemBack) {
    for (unsigned seed = 0; seed < 30; ++seed) {
        SCOPED_TRACE(seed);
        PointerStage stage;
        DrawForm& form = stage.form;
        scatter(form, seed);
        const bool all = seed % 3 == 0;
        for (NodeNumber node = 1_node; node <= form.LabelsNo && !all; node = numberAfter(numberAfter(node))) {
            form.SelectedLabels.Add(node);
        }
        for (int at = 1; at <= 40; ++at) {  // what is no flow leads nowhere
            const LinesD& edge = *form.Lines.at(at);
            form.Lines.addFullLine(edge.ToLabel(), 1, edge.FromLabel(), 1, EdgeTypePartOf, AngleNone, 0);
        }
        form.Labels.byIndex(1_node)->setVisible(false);
        LinesD& hidden = *form.Lines.addFullLine(2_node, 1, 3_node, 1, EdgeTypeProvider, AngleVerticalUp, 0);
        hidden.setVisible(false);
        if (all && seed % 2 == 0) {
            form.SelectedLabels.Add(2_node);  // one alone means all
        }
        const auto before = picture(form);
        form.PicForm.setSize(1000, 1000);
        Told told(form);
        ASSERT_EQ(arrange(form, EditAction::tidyUp), "");
        EXPECT_EQ(std::pair(told.single, told.many), std::pair(0, 1));
        Point corner{1e9F, 1e9F}, formerCorner = corner;
        for (const LabelsD& node : form.Labels) {
            const Box& former = before.first[static_cast<std::size_t>(node.Index()) - 1];
            if (!node.Visible() || (!all && !form.SelectedLabels.Item(node.Index()))) {
                EXPECT_EQ(node.box(), former);
                continue;
            }
            EXPECT_TRUE(node.box().right() <= form.PicForm.Width() && node.box().bottom() <= form.PicForm.Height());
            corner = {std::min(corner.x, node.Left()), std::min(corner.y, node.Top())};
            formerCorner = {std::min(formerCorner.x, former.Left), std::min(formerCorner.y, former.Top)};
            EXPECT_EQ(std::fmod(node.Left(), 100) + std::fmod(node.Top(), 100), 0);
            for (const LabelsD& other : form.Labels) {
                const bool meant = other.Visible() && (all || form.SelectedLabels.Item(other.Index()));
                EXPECT_FALSE(meant && &other != &node && touch(node.box(), other.box()));
            }
        }
        EXPECT_EQ(corner.x, all ? 300 : std::max(SnapToGrid(formerCorner.x), 0.0F));
        EXPECT_EQ(corner.y, all ? 300 : std::max(SnapToGrid(formerCorner.y), 0.0F));
        EXPECT_EQ(hidden.Angle(), AngleVerticalUp);
        for (const LinesD& edge : form.Lines) {
            const LabelsD &from = *form.Labels.byIndex(edge.FromLabel()), &to = *form.Labels.byIndex(edge.ToLabel());
            if (all && edge.EdgeType() != EdgeTypePartOf && edge.Visible() && from.Visible() && !isNote(from) &&
                !isNote(to)) {
                EXPECT_GT(to.Left(), from.box().right());
                EXPECT_FALSE(isCrooked(form, edge));
            }
        }
        EXPECT_EQ(arrange(form, EditAction::tidyUp), "The nodes stand in order already.");
        ASSERT_TRUE(form.offer());
        EXPECT_EQ(form.offer()->button, "Put Back");
        told.single = told.many = 0;
        form.answerOffer(true);
        EXPECT_EQ(std::pair(told.single, told.many), std::pair(0, 1));
        EXPECT_TRUE(picture(form) == before);
        EXPECT_FALSE(form.offer());
    }
}

TEST(TidyUp, OffersTheWayBackUntilSomethingChanges) {
    const std::pair<const char*, std::function<void(DrawForm&)>> rows[] = {
        {"moved", [](DrawForm& form) { form.Labels.byIndex(1_node)->setTop(9000); }},
        {"named", [](DrawForm& form) { form.Labels.byIndex(1_node)->setCaption("Other"); }},
        {"led", [](DrawForm& form) { form.Lines.byIndex(1_edge)->setAngle(AngleVerticalUp); }},
        {"removed", [](DrawForm& form) { form.Labels.Remove(5_node); }},
        {"many", [](DrawForm& form) { selectAllNodes(form), arrange(form, EditAction::alignLeft); }},
        {"declined", [](DrawForm& form) { form.answerOffer(false); }},
        {"", [](DrawForm& form) { form.SelectedLabels.Add(1_node); }},
    };
    for (const auto& [what, change] : rows) {
        PointerStage stage;
        arrange(stage.form, EditAction::tidyUp);
        Told told(stage.form);
        change(stage.form);
        EXPECT_EQ(stage.form.offer().has_value(), *what == 0) << what;
        EXPECT_EQ(told.form, *what == 0 ? 0 : 1) << what;
        stage.form.Labels.byIndex(2_node)->setTop(8000);
        EXPECT_EQ(told.form, 1) << what;
    }
}

TEST(TidyUp, KeepsNotesWithTheirNodes) {
    PointerStage stage;  // Comment1 stands free below RS, LOG1 below Act
    DrawForm& form = stage.form;
    form.Labels.byIndex(3_node)->setTop(1600);
    form.Labels.Add({90000, 90000, 1500, 750}, "Comment2", NodeTypeComment);  // far from all
    form.Lines.addFullLine(5_node, 4, 4_node, 1, EdgeTypeProvider, AngleNone, 0);
    arrange(form, EditAction::tidyUp);
    const auto box = [&form](int node) { return form.Labels.byIndex(NodeNumber{node})->box(); };
    EXPECT_EQ(std::pair(box(3).Left, box(3).Top), std::pair(box(1).Left, box(1).bottom() + 100));
    EXPECT_EQ(std::pair(box(4).Left, box(4).Top), std::pair(box(5).Left, box(5).bottom() + 100)) << "by its edge";
    EXPECT_GT(box(6).Left + box(6).Top, 1600) << "a part of its own";
    EXPECT_LT(box(6).Left, 20000);
}

TEST(Arrangement, AlignsAndDistributes) {
    // Boxes of 1000 x 400, 1000 x 600 and 1000 x 400 with their left sides and tops.
    const std::tuple<EditAction, std::array<float, 3>, std::array<float, 3>> rows[] = {
        {EditAction::alignLeft, {1000, 1000, 1000}, {1000, 2000, 5000}},
        {EditAction::alignCentre, {3000, 3000, 3000}, {1000, 2000, 5000}},
        {EditAction::alignRight, {5000, 5000, 5000}, {1000, 2000, 5000}},
        {EditAction::alignTop, {1000, 2000, 5000}, {1000, 1000, 1000}},
        {EditAction::alignMiddle, {1000, 2000, 5000}, {3000, 2900, 3000}},
        {EditAction::alignBottom, {1000, 2000, 5000}, {5000, 4800, 5000}},
        {EditAction::distributeAcross, {1000, 3000, 5000}, {1000, 2000, 5000}},
        {EditAction::distributeDown, {1000, 2000, 5000}, {1000, 2900, 5000}},
    };
    for (const auto& [action, lefts, tops] : rows) {
        SCOPED_TRACE(wordsOf(action));
        PointerStage stage;
        const std::array<std::pair<NodeNumber, Box>, 3> boxes = {
            {{5_node, {5000, 5000, 1000, 400}}, {2_node, {2000, 2000, 1000, 600}}, {1_node, {1000, 1000, 1000, 400}}}};
        for (const auto& [node, box] : boxes) {
            const bool enough = node == 1_node && action < EditAction::distributeAcross;
            EXPECT_EQ(enough || !arrange(stage.form, action).empty(), true) << "too few are selected";
            stage.form.Labels.byIndex(node)->setBox(box);
            stage.form.SelectedLabels.Add(node);
        }
        Told told(stage.form);
        EXPECT_EQ(arrange(stage.form, action), "");
        EXPECT_EQ(std::pair(told.single, told.many), std::pair(0, 1));
        const NodeNumber nodes[] = {1_node, 2_node, 5_node};
        for (std::size_t at = 0; at < 3; ++at) {
            EXPECT_EQ(stage.form.Labels.byIndex(nodes[at])->Left(), lefts[at]) << nodes[at];
            EXPECT_EQ(stage.form.Labels.byIndex(nodes[at])->Top(), tops[at]) << nodes[at];
        }
        const std::uint64_t changes = stage.form.changes();
        arrange(stage.form, action);
        EXPECT_EQ(stage.form.changes(), changes) << "it stands so already";
    }
    PointerStage stage;  // by their middles, whatever begins first
    const std::pair<NodeNumber, Box> boxes[] = {
        {1_node, {0, 0, 5000, 400}}, {2_node, {1000, 0, 300, 400}}, {5_node, {6000, 0, 1000, 400}}};
    for (const auto& [node, box] : boxes) {
        stage.form.Labels.byIndex(node)->setBox(box);
        stage.form.SelectedLabels.Add(node);
    }
    arrange(stage.form, EditAction::distributeAcross);
    EXPECT_EQ(stage.form.Labels.byIndex(1_node)->Left(), 1150);
}

TEST(Arrangement, SelectsAlongEdgesAndByType) {
    // RS1 -> A2 -> T5 -> A6 -> T5 (a circle), A7 -> T5; Comment3 describes A7; activities 2 and 6 have one type.
    const std::tuple<std::vector<NodeNumber>, EditAction, std::vector<NodeNumber>> rows[] = {
        {{2_node}, EditAction::selectUpstream, {1_node, 2_node}},
        {{2_node}, EditAction::selectDownstream, {2_node, 5_node, 6_node}},
        {{6_node}, EditAction::selectUpstream, {1_node, 2_node, 5_node, 6_node, 7_node}},
        {{7_node}, EditAction::selectConnected, {1_node, 2_node, 3_node, 5_node, 6_node, 7_node}},
        {{4_node}, EditAction::selectConnected, {4_node}},
        {{6_node, 1_node}, EditAction::selectBetween, {1_node, 2_node, 5_node, 6_node}},
        {{2_node}, EditAction::selectSameType, {2_node, 6_node}},
        {{7_node, 1_node}, EditAction::selectSameType, {1_node, 5_node, 7_node}},
    };
    for (const auto& [selected, action, expected] : rows) {
        PointerStage stage;
        DrawForm& form = stage.form;
        form.Labels.Add({0, 5000, 1000, 400}, "A6", NodeTypeActivity);
        form.Labels.Add({0, 6000, 1000, 400}, "A7", NodeTypeActivity).activity()->Act_Type = 3;
        for (const auto& [from, to] :
             {std::pair(2_node, 5_node), {5_node, 6_node}, {6_node, 5_node}, {7_node, 5_node}}) {
            form.Lines.addFullLine(from, 4, to, 1, from == 7_node ? EdgeTypeRegulator : EdgeTypeProvider, AngleNone, 0);
        }
        form.Lines.addFullLine(3_node, 1, 7_node, 1, EdgeTypeDescription, AngleNone, 0);
        // What is hidden leads nowhere: an edge from 4, and an activity between 9 and 2.
        form.Lines.addFullLine(4_node, 1, 2_node, 1, EdgeTypeProvider, AngleNone, 0)->setVisible(false);
        form.Labels.Add({0, 7000, 1000, 400}, "A8", NodeTypeActivity).setVisible(false);
        form.Labels.Add({0, 8000, 1000, 400}, "RS9", NodeTypeComment);
        form.Lines.addFullLine(9_node, 1, 8_node, 1, EdgeTypeProvider, AngleNone, 0);
        form.Lines.addFullLine(8_node, 1, 2_node, 1, EdgeTypeProvider, AngleNone, 0);
        EXPECT_EQ(arrange(form, action),
                  std::string_view(action == EditAction::selectBetween ? "Select at least two nodes."
                                                                       : "Select a node first."));
        for (const NodeNumber node : selected) {
            form.SelectedLabels.Add(node);
        }
        Told told(form);
        EXPECT_EQ(arrange(form, action), "");
        EXPECT_EQ(std::pair(told.single, told.many), std::pair(0, 1));
        std::vector<NodeNumber> found = form.SelectedLabels.members();
        std::ranges::sort(found);
        EXPECT_EQ(found, expected) << static_cast<int>(action);
    }
    PointerStage stage;
    stage.form.SelectedLabels.Add(3_node);
    stage.form.SelectedLabels.Add(5_node);
    EXPECT_NE(arrange(stage.form, EditAction::selectBetween), "") << "no way";
    stage.form.SelectedLabels.Add(1_node);
    EXPECT_EQ(arrange(stage.form, EditAction::selectBetween), "Select two nodes alone.");
    for (const NodeTypeCode kind : {NodeTypeFunction, NodeTypeAttribute, NodeTypeParameter}) {
        stage.form.ClearCrop();
        for (const int type : {1, 2, 1}) {
            LabelsD& node = stage.form.Labels.Add({0, 0, 500, 500}, std::to_string(stage.form.Labels.Count()), kind);
            const auto code = static_cast<std::int16_t>(type);
            if (auto* function = node.entity<entities::FunctionProperties>()) {
                function->Function_Type = code;
            } else if (auto* attribute = node.entity<entities::AttributeProperties>()) {
                attribute->Attribute_Type = code;
            } else {
                node.entity<entities::ParameterProperties>()->Parameter_Type = code;
            }
        }
        stage.form.SelectedLabels.Add(stage.form.LabelsNo);
        EXPECT_EQ(arrange(stage.form, EditAction::selectSameType), "");
        EXPECT_EQ(stage.form.SelectedLabels.Count(), 2);
    }
}

TEST(FitToNames, WidensBoxesAndKeepsThemApart) {
    const testkit::LetterMeasure measure(700);
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE(seed);
        PointerStage stage;
        DrawForm& form = stage.form;
        scatter(form, seed);
        if (seed % 2 == 0) {
            form.SelectedLabels.Add(3_node);
        }
        if (seed % 4 == 0) {
            form.SelectedLabels.Add(7_node);
        }
        const auto before = picture(form).first;
        const std::vector<NodeNumber> meant = nodesToFit(form);
        EXPECT_TRUE(seed % 4 != 2 || meant.size() < 2);
        Told told(form);
        const int wider = fitToNames(form, meant, measure);
        EXPECT_EQ(std::pair(told.single, told.many), std::pair(0, wider > 0 ? 1 : 0));
        const auto after = picture(form).first;
        const auto apart = [](const Box& a, const Box& b) {
            return a.right() <= b.Left || b.right() <= a.Left || a.bottom() <= b.Top || b.bottom() <= a.Top;
        };
        int grown = 0;
        for (std::size_t i = 0; i < after.size(); ++i) {
            const LabelsD& node = *form.Labels.byIndex(static_cast<NodeNumber>(i + 1));
            const bool fits = std::ranges::find(meant, node.Index()) != meant.end();
            const float more = after[i].Width - before[i].Width;
            grown += more > 0 ? 1 : 0;
            EXPECT_EQ(more, fits ? std::max(0.0F, std::ceil((measure.widthForName(node) - 1050) / 100) * 100) : 0);
            EXPECT_EQ(std::tie(after[i].Top, after[i].Height), std::tie(before[i].Top, before[i].Height));
            EXPECT_GE(after[i].Left, before[i].Left);
            for (std::size_t j = 0; j < i; ++j) {
                EXPECT_TRUE(!apart(before[i], before[j]) || apart(after[i], after[j])) << i << " " << j;
            }
        }
        EXPECT_EQ(wider, grown);
        EXPECT_EQ(fitToNames(form, meant, measure), 0);
        EXPECT_EQ(picture(form).first, after);
    }
}

/// What nothing reaches stays, and what is reached goes no farther than it has to.
TEST(FitToNames, OnlyWhatIsReachedGivesWay) {
    PointerStage stage;
    DrawForm form{{stage.host, stage.settings}};
    const auto add = [&form](float left, float top, const std::string& name) {
        form.Labels.Add({left, top, 1000, 500}, name, NodeTypeActivity);
    };
    add(0, 0, "fifteen letters");  // 1500
    add(1300, 400, "near");
    add(2400, 400, "behind");
    add(1300, 500, "below");
    add(5000, 0, "far");
    add(0, 2000, "short");
    add(1100, 2000, "beside");
    add(0, 3000, "FIFTEEN LETTERS");
    add(1000, 3000, "touches");
    add(0, 4000, "FIFTEEN letters");
    add(1350, 4000, "off the grid");
    add(form.PicForm.Width() - 1000, 9000, "at the rim of it");
    const float rim = form.PicForm.Width() - 1000;
    fitToNames(form, nodesToFit(form), testkit::LetterMeasure(100));
    EXPECT_GE(form.PicForm.Width(), rim + 1600);
    std::vector<float> lefts;
    for (const Box& box : picture(form).first) {
        lefts.push_back(box.Left);
    }
    EXPECT_EQ(lefts, (std::vector<float>{0, 1800, 3100, 1300, 5000, 0, 1100, 0, 1800, 0, 1850, rim}));
}

TEST(FitToNames, MembersOfOneOwnerStayAlike) {
    PointerStage stage;
    DrawForm form{{stage.host, stage.settings}};
    const struct {
        const char* owner;
        NodeTypeCode kind;
        float left;
        const char* name;
        float width;
    } rows[] = {
        {"A", NodeTypeAttribute, 0, "fifteen letters", 1500}, {"A", NodeTypeAttribute, 0, "short", 1500},
        {"A", NodeTypeAttribute, 9000, "other column", 1200}, {"B", NodeTypeAttribute, 0, "other", 1000},
        {"B", NodeTypeParameter, 0, "twelve chars", 1200},    {"B", NodeTypeParameter, 0, "too", 1200},
    };
    float top = 0;
    for (const auto& row : rows) {
        LabelsD& node = form.Labels.Add({row.left, top += 1000, 1000, 500}, row.name, row.kind);
        if (auto* attribute = node.entity<entities::AttributeProperties>()) {
            attribute->ParentKeyName = row.owner;
        } else {
            node.entity<entities::ParameterProperties>()->ParentKeyName = row.owner;
        }
    }
    fitToNames(form, nodesToFit(form), testkit::LetterMeasure(100));
    for (const auto& row : rows) {
        EXPECT_EQ(form.nodeNamed(row.name)->Width(), row.width) << row.name;
    }
}

}  // namespace
}  // namespace orvent::canvas
