#include <gtest/gtest.h>

#include <random>
#include <set>

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
        if (node.recordSet() && node.recordSet()->RecordSet_SQL == "twin") {
            return {{{ProblemKind::spelling, "twin"}}, {}, {}, {}};
        }
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
    /// By the links of its inputs.
    std::string circleThrough(const canvas::Canvas&, const ActivityProperties& activity) const override {
        std::string way = activity.Act_Name;
        for (const AttributeProperties& input : activity.Act_Inputs) {
            for (const ProviderProperties& link : input.ProvidedFrom) {
                way += " < " + link.Provider_Name;
            }
        }
        return activity.Act_Description.empty() ? way : "";
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

    std::string told(bool words = false) const { return told(problems, words); }
    std::string told(const ScenarioProblems& from, bool words) const {
        std::string text;
        for (const Problem* row : from.rows()) {
            text += std::string(wordsOf(row->kind).word) + " " + form.Labels.byIndex(row->node)->Caption() +
                    (row->member.empty() ? "" : "." + row->member) + (words ? ": " + row->words : "") + "; ";
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
        {"spelling SOURCE; ", [](Chain& c) { c.node("SOURCE").recordSet()->RecordSet_SQL = "twin"; }},
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
        {"", [](Chain& c) { c.feed("SOURCE.ID", "SOURCE.ID"); }},
        {"",
         [](Chain& c) {
             c.form.Lines.addFullLine(c.graph.node("NOTE", canvas::NodeTypeComment).Index(), 1, c.node("Load").Index(),
                                      1, canvas::EdgeTypeDescription, canvas::AngleNone, 0);
         }},
        {"",  // it makes its rows itself
         [](Chain& c) {
             c.load().Act_Inputs->Clear();
             c.form.Lines.RemoveFull(*c.node("Load").EndingLines().begin());
         }},
        {"no-provider Load.ID; unreachable Load; unreachable Check; unreachable TARGET; ",
         [](Chain& c) { c.form.Labels.Remove(c.node("SOURCE").Index()); }},
        {"",
         [](Chain& c) {
             c.load()
                 .Act_Outputs->Add("NEW", 0, TagNone, "NEW")
                 .RegulatorFor->Add("Check", LinkActivity, "Check.IN.ID");
         }},
        {"no-provider Load.ID; no-edge Load; ",  // what governs it is a way to it
         [](Chain& c) {
             c.starve("Load.IN.ID");
             c.form.Lines.RemoveFull(*c.node("Load").EndingLines().begin());
             c.parameter(TagNone).RegulatedFrom->Add("SOURCE", LinkRecordSet, "SOURCE.ID");
         }},
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

TEST(Problems, TellInWordsWhatIsWrong) {
    const struct {
        const char* told;
        void (*fault)(Chain&);
    } rows[] = {
        {"not-ready NEW: It has no columns.; ", [](Chain& c) { c.graph.recordSet("NEW").RecordSet_Outputs->Clear(); }},
        {"no-regulator Load.X: Input Load.F.X has no regulator.; ",
         [](Chain& c) {
             Lazy<FunctionParameters> inputs;
             ParameterProperties& input = inputs->Add("X", 0, "X");
             input.NodeKind = KindFunctionInput;
             input.ParentKeyName = "Load.F";
             c.function(0, std::move(inputs));
         }},
        {"data-type Load.ID: ID is NUMBER, ID is DATE.; data-type Check.ID: Load.ID is DATE, ID is NUMBER.; ",
         [](Chain& c) { c.graph.attribute("Load.OUT.ID").Attribute_Type = 1; }},
        {"gone-type SOURCE.LESS: Its data type is none of the catalogue.; "
         "gone-type SOURCE.MORE: Its data type is none of the catalogue.; ",
         [](Chain& c) {
             c.node("SOURCE").recordSet()->RecordSet_Outputs->Add("LESS", -1, "LESS");
             c.node("SOURCE").recordSet()->RecordSet_Outputs->Add("MORE", 3, "MORE");
         }},
        {"circle Load: Its data runs in a circle by the names in its statement.; ",
         [](Chain& c) { c.load().Act_LDL = "reads Check", c.load().Act_Description = "by no link"; }},
        {"circle Late: Late < SOURCE < Later; ",  // the one that comes first on the canvas
         [](Chain& c) {
             c.graph.activity("Late", {"A"}, {"B"});
             c.graph.activity("Later", {"A"}, {"B"});
             for (const char* name : {"Late", "Later"}) {
                 c.node(name).setReady(true);
                 c.feed("SOURCE.ID", std::string(name) + ".IN.A");
             }
             c.feed("Late.OUT.B", "Later.IN.A");
             c.feed("Later.OUT.B", "Late.IN.A");
             c.feed("Later.OUT.B", "Load.IN.ID");
         }},
    };
    for (const auto& row : rows) {
        Chain chain;
        row.fault(chain);
        chain.problems.settle();
        EXPECT_EQ(chain.told(true), row.told);
    }
}

TEST(Problems, TheWayOfACircleFollowsItsLinksThoughAStatementKeepsItClosed) {
    Chain c;
    c.load().Act_LDL = "reads Check";
    c.feed("Check.OUT.ID", "Load.IN.ID");
    const canvas::EdgeNumber edge = c.form.LinesNo;
    c.problems.settle();
    EXPECT_EQ(c.told(true), "circle Load: Load < SOURCE < Check; ");
    c.graph.attribute("Load.IN.ID").ProvidedFrom->Remove("Check.OUT.ID");
    c.graph.attribute("Check.OUT.ID").ProviderFor->Remove("Load.IN.ID");
    c.form.Lines.RemoveFull(edge);
    for (const char* name : {"Load", "Check"}) {
        c.form.touched->node(c.node(name).Index());
    }
    c.problems.touch(*c.form.touched);
    c.problems.settle();
    EXPECT_EQ(c.told(true), "circle Load: Load < SOURCE; ");
}

/// Only what was touched is looked at again, and yet they are those of a fresh look.
TEST(Problems, KeptRowsAreThoseOfAFreshLookWhateverChanges) {
    std::set<ProblemKind> met;
    for (unsigned seed = 1; seed <= 16; ++seed) {
        Chain c;
        ParameterProperties& governed = c.parameter(TagNone);
        c.function(0, {});
        std::mt19937 random(seed);
        const auto below = [&random](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
        const auto attribute = [&](bool read) {
            const char* const keys[] = {"SOURCE.ID", "Load.OUT.ID", "Check.OUT.ID",
                                        "TARGET.ID", "Load.IN.ID",  "Check.IN.ID"};
            return std::string(keys[read ? 3 + below(3) : below(4)]);
        };
        const auto touch = [&](const std::string& key) { c.form.touched->node(c.node(BeforeFirstDot(key)).Index()); };
        const auto gone = [&](const std::string& key) {
            LabelsD* node = c.form.nodeNamed(BeforeFirstDot(key));
            return !node || (node->recordSet() && !node->recordSet()->RecordSet_Outputs->Item("ID"));
        };
        for (int step = 0; step < 150; ++step) {
            const std::string from = attribute(false), to = attribute(true);
            const bool whole = !gone(from) && !gone(to);
            switch (below(10)) {
                case 0:
                    if (whole) {
                        c.graph.attribute(to).ProvidedFrom->Clear();
                        c.graph.feed(from, to);
                        touch(from), touch(to);
                    }
                    break;
                case 1:
                    if (whole) {
                        c.graph.edge(BeforeFirstDot(from), BeforeFirstDot(to));
                    }
                    break;
                case 2:
                    if (c.form.Lines.Count() > 0) {
                        c.form.Lines.RemoveFull(c.form.Lines.at(1 + below(c.form.Lines.Count()))->Index());
                    }
                    break;
                case 3:
                    if (whole) {
                        c.graph.attribute(from).Attribute_Type = static_cast<std::int16_t>(below(4));
                        touch(from);
                    }
                    break;
                case 4:
                    if (whole) {
                        const char* const statements[] = {"", "bad", "reads Check", "reads LATE", "reads TARGET"};
                        c.load().Act_LDL = statements[below(5)];
                        touch("Load.");
                    }
                    break;
                case 5: {  // a node goes, and comes back
                    const std::string name = below(3) == 0 ? "LATE" : below(2) == 0 ? "SOURCE" : "TARGET";
                    if (const LabelsD* node = c.form.nodeNamed(name)) {
                        c.form.Labels.Remove(node->Index());
                    } else {
                        c.graph.recordSet(name, {"ID"});
                        c.node(name).setReady(below(2) == 0);
                    }
                    break;
                }
                case 6:  // another name, and the former one
                    if (c.form.nodeNamed("TARGET") ? !c.form.nodeNamed("Renamed")
                                                   : c.form.nodeNamed("Renamed") != nullptr) {
                        LabelsD& node = c.form.nodeNamed("TARGET") ? c.node("TARGET") : c.node("Renamed");
                        node.setCaption(node.Caption() == "TARGET" ? "Renamed" : "TARGET");
                    }
                    break;
                case 7:  // another column, and the former one
                    if (LabelsD* source = c.form.nodeNamed("SOURCE")) {
                        source->recordSet()->RecordSet_Outputs->Clear();
                        const std::string key = below(2) == 0 ? "ID" : "OTHER";
                        source->recordSet()->RecordSet_Outputs->Add(key, 0, key);
                        touch("SOURCE.");
                    }
                    break;
                case 8:
                    governed.RegulatedFrom->Clear();
                    if (const char* const names[] = {"", "SOURCE", "TARGET", "Check"}; const int by = below(4)) {
                        governed.RegulatedFrom->Add(names[by], LinkRecordSet, std::string(names[by]) + ".ID");
                    }
                    touch("Load.");
                    break;
                default: {
                    const char* const types[] = {"NUMBER", "DATE", kDefinedBySource};
                    NameTable& table = below(2) == 0   ? c.tables.dataTypes
                                       : below(2) == 0 ? c.tables.activityTypes
                                                       : c.tables.functionTypes;
                    std::vector<std::string> names(types, types + 1 + below(3));
                    if (below(2) == 0) {
                        names.push_back(&table == &c.tables.functionTypes ? "Sum" : "Copy");
                    }
                    table.reload(names, true);
                }
            }
            if (below(3) != 0) {
                continue;
            }
            c.problems.touch(*c.form.touched);
            c.form.touched->clear();
            c.problems.settle();
            ScenarioProblems fresh(c.form, {c.tables, c.statements});
            fresh.settle();
            ASSERT_EQ(c.told(true), c.told(fresh, true)) << "seed " << seed << " step " << step;
            for (const Problem* row : fresh.rows()) {
                met.insert(row->kind);
            }
        }
    }
    EXPECT_GT(met.size(), 8U);
}

}  // namespace
}  // namespace orvent::analysis
