#include "analysis/outline.h"

#include <gtest/gtest.h>

#include "testkit/graph_builder.h"

namespace orvent::analysis {
namespace {

using namespace entities;

/// What is told of changes, as a view keeps it.
class Told : public Outline::Listener {
  public:
    std::string text;

    void aboutToReset() override {}
    void reset() override { text += "reset; "; }
    void aboutToRemove(const Outline::Row& parent) override { text += "-" + std::to_string(parent.rows.size()); }
    void removed() override {}
    void aboutToInsert(const Outline::Row& parent, int count) override {
        text += "+" + std::to_string(count) + " at " + std::to_string(parent.position) + "; ";
        EXPECT_TRUE(parent.rows.empty());
    }
    void inserted(const Outline::Row&) override {}
    void altered(const Outline::Row&) override {}
};

/// TARGET stands first, and SOURCE -> Load -> TARGET is drawn; ALONE is joined with nothing.
class OutlineTest : public testkit::GraphTest {
  protected:
    OutlineTest() {
        tables.dataTypes.add("NUMBER");
        tables.activityTypes.add("Filter");
        tables.functionTypes.add("Sum");
        graph.recordSet("TARGET", {"ID"});
        graph.recordSet("ALONE");
        ActivityProperties& load = graph.activity("Load", {"ID"}, {"ID"});
        graph.recordSet("SOURCE", {"ID"});
        form.Labels.Add({}, "Comment1", canvas::NodeTypeComment);
        Lazy<FunctionParameters> inputs;
        inputs->Add("Amount", 0, "Amount").ParentKeyName = "Load.Sum1";
        load.Act_Functions->Add("Total", 0, std::move(inputs), {}, "Load.Sum1").Function_Key = "Load.Sum1";
        load.Act_Parameters->Add("Limit", 0, TagConstant, "Limit").RegulatedFrom->Add("C", LinkConstant, "C");
        graph.feed("SOURCE.ID", "Load.IN.ID");
        graph.pass("Load", "ID", "ID");
        graph.feed("Load.OUT.ID", "TARGET.ID");
        graph.edge("SOURCE", "Load");
        graph.edge("Load", "TARGET");
    }

    /// All rows, each below its parent.
    static std::string text(const Outline& outline, const std::vector<std::unique_ptr<Outline::Row>>& rows,
                            const std::string& indent = {}) {
        std::string all;
        for (const auto& row : rows) {
            const Outline::Words words = outline.wordsOf(*row);
            const bool has = outline.hasRows(*row);
            all += indent + words.name + "|" + words.type + "|" + words.what + "\n";
            EXPECT_EQ(has, !outline.rowsOf(*row).empty()) << words.name;
            all += text(outline, row->rows, indent + " ");
        }
        return all;
    }
    static std::string text(const Outline& outline) { return text(outline, outline.roots()); }

    CatalogueTables tables;
};

TEST_F(OutlineTest, IsInTheOrderOfTheFlowDownToTheFarEnds) {
    EXPECT_EQ(text(Outline(form, tables)),
              "SOURCE||Record set\n"
              " ID|NUMBER|Attribute\n"
              "  to Load.ID||\n"
              "Load|Filter|Activity\n"
              " ID|NUMBER|Input\n"
              "  from SOURCE.ID||\n"
              "  to Load.ID||\n"
              " ID|NUMBER|Output\n"
              "  from Load.ID||\n"
              "  to TARGET.ID||\n"
              " Limit|NUMBER|Parameter\n"
              "  set by C||\n"
              " Load.Sum1|Sum|Function\n"
              "  Amount|NUMBER|Function input\n"
              "TARGET||Record set\n"
              " ID|NUMBER|Attribute\n"
              "  from Load.ID||\n"
              "ALONE||Record set\n");
}

TEST_F(OutlineTest, LeadsFromALinkToItsFarEnd) {
    const Outline outline(form, tables);
    const auto target = [&](const char* node, int member, int link) {
        Outline::Row& root = *outline.rootOf(form.NamesColl.Item(node));
        Outline::Row& row = *outline.rowsOf(root)[static_cast<std::size_t>(member)];
        const Outline::Row* found = outline.targetOf(*outline.rowsOf(row)[static_cast<std::size_t>(link)]);
        const Outline::Row* parent = found ? found->parent : nullptr;
        return !found ? "nowhere" : (parent ? outline.wordsOf(*parent).name + "." : "") + outline.wordsOf(*found).what;
    };
    EXPECT_EQ(target("SOURCE", 0, 0), "Load.Input");
    EXPECT_EQ(target("Load", 0, 1), "Load.Output");
    EXPECT_EQ(target("Load", 1, 1), "TARGET.Attribute");
    EXPECT_EQ(target("Load", 2, 0), "nowhere") << "a constant is no row";
}

TEST_F(OutlineTest, TellsOnlyWhatIsOther) {
    const struct {
        const char* told;
        void (*change)(OutlineTest&, canvas::DrawForm&);
    } rows[] = {
        {"", [](OutlineTest&, canvas::DrawForm& f) { f.nodeNamed("Load")->setLeft(900); }},
        {"-0+1 at 0; ", [](OutlineTest&, canvas::DrawForm& f) { f.nodeNamed("SOURCE")->setCaption("Source"); }},
        {"-1+2 at 0; ",
         [](OutlineTest&, canvas::DrawForm& f) {
             f.nodeNamed("Source")->recordSet()->RecordSet_Outputs->Add("NAME", 0, "NAME");
             f.touched->node(f.nodeNamed("Source")->Index());
         }},
        {"reset; ", [](OutlineTest& t, canvas::DrawForm&) { t.graph.edge("ALONE", "Source"); }},
        {"reset; ", [](OutlineTest&, canvas::DrawForm& f) { f.Labels.Remove(f.NamesColl.Item("TARGET")); }},
        {"", [](OutlineTest&, canvas::DrawForm& f) { f.nodeNamed("Comment1")->setComment("x"); }},
    };
    Outline outline(form, tables);
    Told told;
    outline.watch(&told);
    form.touched.emplace();
    for (const auto& row : rows) {
        told.text.clear();
        row.change(*this, form);
        outline.follow(*form.touched);
        form.touched->clear();
        EXPECT_EQ(told.text, row.told);
    }
    EXPECT_EQ(text(outline), text(Outline(form, tables)));
}

}  // namespace
}  // namespace orvent::analysis
