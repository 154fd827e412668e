#include <gtest/gtest.h>

#include "analysis/scenario_problems.h"
#include "testkit/graph_builder.h"

namespace orvent::analysis {
namespace {

using namespace entities;
using canvas::LabelsD;

class NoFaults : public StatementCheck {
  public:
    std::optional<Fault> faultOf(const ActivityProperties& activity) const override {
        return activity.Act_LDL == "bad" ? std::optional(Fault{ProblemKind::outdated, "old"}) : std::nullopt;
    }
    /// A statement "reads X" reads the node X by its name.
    ProgramLook programOf(const canvas::Canvas& form, const canvas::LabelsD& node) const override {
        const ActivityProperties* activity = node.activity();
        if (!activity || !activity->Act_LDL.starts_with("reads ")) {
            return {};
        }
        const std::string name = activity->Act_LDL.substr(6);
        if (form.nodeNamed(name)) {
            return {{}, {name}, {name}, {}};
        }
        return {{{ProblemKind::undefined, name}}, {}, {name}, {}};
    }
    std::string deniedCircle(const std::string& way) const override { return way; }
    std::string circleThrough(const canvas::Canvas&, const ActivityProperties& activity) const override {
        return activity.Act_Name;
    }
};

/// SOURCE -> Load -> Check -> TARGET, with nothing amiss.
struct Chain {
    Chain() {
        for (const char* type : {"NUMBER", "DATE", kDefinedBySource}) {
            tables.dataTypes.add(type);
        }
        tables.activityTypes.add("Copy");
        tables.functionTypes.add("Sum");
        graph.recordSet("SOURCE", {"ID"});
        graph.activity("Load", {"ID"}, {"ID"});
        graph.activity("Check", {"ID"}, {"ID"});
        graph.recordSet("TARGET", {"ID"});
        feed("SOURCE.ID", "Load.IN.ID");
        graph.pass("Load", "ID", "ID");
        feed("Load.OUT.ID", "Check.IN.ID");
        graph.pass("Check", "ID", "ID");
        feed("Check.OUT.ID", "TARGET.ID");
        for (LabelsD& each : form.Labels) {
            each.setReady(true);
        }
        form.touched.emplace();
    }

    LabelsD& node(const std::string& name) { return *form.nodeNamed(name); }
    ActivityProperties& load() { return *node("Load").activity(); }
    ParameterProperties& parameter(TagCode tag) { return load().Act_Parameters->Add("P", 0, tag, "P"); }
    void function(std::int16_t type, Lazy<FunctionParameters> inputs) {
        load().Act_Functions->Add("F", type, std::move(inputs), {}, "Load.F");
    }
    void feed(const std::string& from, const std::string& to) {
        graph.feed(from, to);
        graph.edge(BeforeFirstDot(from), BeforeFirstDot(to));
    }
    void starve(const std::string& key) { graph.attribute(key).ProvidedFrom->Clear(); }

    std::string told() {
        std::string text;
        for (const Problem* row : problems.rows()) {
            text += std::string(wordsOf(row->kind).word) + " " + form.Labels.byIndex(row->node)->Caption() +
                    (row->member.empty() ? "" : "." + row->member) + "; ";
        }
        return text;
    }

    testkit::CanvasPorts ports;
    canvas::DrawForm form{ports.services()};
    testkit::GraphBuilder graph{form};
    CatalogueTables tables;
    NoFaults statements;
    ScenarioProblems problems{form, {tables, statements}};
};

TEST(Problems, EachKindIsToldAtItsPlace) {
    const struct {
        const char* told;
        void (*fault)(Chain&);
    } rows[] = {
        {"", [](Chain&) {}},
        {"not-ready Load; ", [](Chain& c) { c.node("Load").setReady(false); }},
        {"not-ready SOURCE; ", [](Chain& c) { c.node("SOURCE").setReady(false); }},
        {"no-type Load; ", [](Chain& c) { c.load().Act_Type = -1; }},
        {"gone-type Load; gone-type Check; ", [](Chain& c) { c.tables.activityTypes.reload({"Move"}, true); }},
        {"gone-type Load.F; no-inputs Load.F; ", [](Chain& c) { c.function(7, {}); }},
        {"outdated Load; ", [](Chain& c) { c.load().Act_LDL = "bad"; }},
        {"undefined Load; ", [](Chain& c) { c.load().Act_LDL = "reads GONE"; }},
        {"circle Load; ", [](Chain& c) { c.load().Act_LDL = "reads Check"; }},
        {"no-provider Load.NEW; ", [](Chain& c) { c.load().Act_Inputs->Add("NEW", 0, TagNone, "NEW"); }},
        {"unread Load.NEW; ", [](Chain& c) { c.load().Act_Outputs->Add("NEW", 0, TagNone, "NEW"); }},
        {"data-type Load.ID; data-type Check.ID; ",
         [](Chain& c) {
             c.graph.attribute("Load.OUT.ID").Attribute_Type = 1;
             c.graph.attribute("Check.IN.ID").Attribute_Type = 0;
             c.graph.attribute("Check.OUT.ID").Attribute_Type = 2;  // whatever the source has
         }},
        {"no-regulator Load.P; ", [](Chain& c) { c.parameter(TagTypeParameter); }},
        {"", [](Chain& c) { c.parameter(TagTypeParameter).RegulatedFrom->Add("C", LinkConstant, "C"); }},
        {"", [](Chain& c) { c.parameter(TagNone); }},
        {"no-regulator Load.X; ",
         [](Chain& c) {
             Lazy<FunctionParameters> inputs;
             inputs->Add("X", 0, "X").NodeKind = KindFunctionInput;
             c.function(0, std::move(inputs));
         }},
        {"edge Check; ", [](Chain& c) { c.graph.edge("SOURCE", "Check"); }},
        {"no-edge Check; ", [](Chain& c) { c.form.Lines.RemoveFull(*c.node("Check").EndingLines().begin()); }},
        {"no-provider Check.ID; edge Check; ", [](Chain& c) { c.starve("Check.IN.ID"); }},
        {"circle Load; ", [](Chain& c) { c.feed("Check.OUT.ID", "Load.IN.ID"); }},
        {"", [](Chain& c) { c.feed("TARGET.ID", "Load.IN.ID"); }},
        {"unreachable Load; unreachable Check; unreachable TARGET; ",
         [](Chain& c) {
             c.starve("Load.IN.ID");
             c.form.Lines.RemoveFull(*c.node("Load").EndingLines().begin());
             c.feed("TARGET.ID", "Load.IN.ID");
         }},
    };
    for (const auto& row : rows) {
        Chain chain;
        row.fault(chain);
        EXPECT_TRUE(chain.problems.settle());
        EXPECT_EQ(chain.told(), row.told);
        EXPECT_FALSE(chain.problems.settle()) << "nothing has changed";
    }
}

TEST(Problems, OfAKindThatIsSwitchedOffNothingIsTold) {
    Chain chain;
    chain.node("Load").setReady(false);
    chain.load().Act_LDL = "bad";
    chain.problems.settle();
    const auto rows = chain.problems.rows(everyProblem().reset(static_cast<std::size_t>(ProblemKind::notReady)));
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows.front()->kind, ProblemKind::outdated);
}

/// Only what is named is touched.
struct Kept : Chain {
    Kept() { problems.settle(); }
    std::string after(const std::vector<std::string>& nodes, canvas::EdgeNumber edge = {}) {
        canvas::Touched touched;
        for (const std::string& name : nodes) {
            touched.node(node(name).Index());
        }
        if (canvas::isGiven(edge)) {
            touched.edge(edge);
        }
        problems.touch(touched);
        problems.settle();
        return told();
    }
};

TEST(Problems, AChangeAtAProviderIsSeenByItsReaders) {
    Kept chain;
    chain.graph.attribute("Load.OUT.ID").Attribute_Type = 1;
    EXPECT_EQ(chain.after({"Load"}), "data-type Load.ID; data-type Check.ID; ");
    chain.graph.attribute("Load.OUT.ID").Attribute_Type = 0;
    chain.graph.feed("SOURCE.ID", "Check.IN.ID");
    EXPECT_EQ(chain.after({"Load", "Check"}), "no-edge Check; ");
    chain.graph.attribute("SOURCE.ID").Attribute_Type = 1;
    EXPECT_EQ(chain.after({"SOURCE"}), "data-type Load.ID; data-type Check.ID; no-edge Check; ");
    chain.graph.edge("SOURCE", "Check");
    const canvas::EdgeNumber edge = chain.form.LinesNo;
    EXPECT_EQ(chain.after({}, edge), "data-type Load.ID; data-type Check.ID; ");
    chain.form.Lines.RemoveFull(edge);
    EXPECT_EQ(chain.after({}, edge), "data-type Load.ID; data-type Check.ID; no-edge Check; ");
}

TEST(Problems, AStatementIsLookedAtAgainWhenANameItMeansComes) {
    Kept chain;
    chain.load().Act_LDL = "reads LATE";
    EXPECT_EQ(chain.after({"Load"}), "undefined Load; ");
    chain.graph.recordSet("LATE", {"ID"});
    chain.node("LATE").setReady(true);
    EXPECT_EQ(chain.after({"LATE"}), "");
}

TEST(Problems, WhatReadANodeThatGoesIsToldAndComesBackWithIt) {
    Kept chain;
    chain.form.Labels.Remove(chain.node("SOURCE").Index());
    chain.problems.touch(*chain.form.touched);
    chain.problems.settle();
    EXPECT_EQ(chain.told(), "no-provider Load.ID; unreachable Load; unreachable Check; unreachable TARGET; ");
    chain.graph.recordSet("SOURCE", {"ID"});
    chain.node("SOURCE").setReady(true);
    EXPECT_EQ(chain.after({"SOURCE"}), "no-edge Load; ");
}

}  // namespace
}  // namespace orvent::analysis
