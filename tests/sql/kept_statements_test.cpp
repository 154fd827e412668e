// A program whose statements are kept from one check to the next against one that is read from scratch.

#include <random>

#include "rules/printer.h"
#include "sql/compiler.h"
#include "sql/design_rows.h"
#include "walk_scenario.h"

namespace orvent::sql {
namespace {

class KeptStatements : public testkit::CanvasTest {
  protected:
    struct Silence : platform::MessageBox {
        platform::Answer show(const std::string&, const std::string&, platform::Icon, platform::Buttons) override {
            return platform::Answer::ok;
        }
    };

    int below(std::size_t count) {
        return static_cast<int>(std::uniform_int_distribution<std::size_t>(0, count - 1)(random_));
    }

    template <class List>
    auto* anyOf(List& list) {
        return list.count() == 0 ? nullptr : list.peek()->Item(1 + below(static_cast<std::size_t>(list.count())));
    }

    canvas::LabelsD& anyNode(canvas::DrawForm& form) {
        std::vector<canvas::LabelsD*> nodes;
        for (canvas::LabelsD& node : form.Labels) {
            nodes.push_back(&node);
        }
        return *nodes[static_cast<std::size_t>(below(nodes.size()))];
    }

    entities::AttributeProperties* anyColumn(canvas::LabelsD& node) {
        return node.recordSet()   ? anyOf(node.recordSet()->RecordSet_Outputs)
               : !node.activity() ? nullptr
               : below(2) == 0    ? anyOf(node.activity()->Act_Inputs)
                                  : anyOf(node.activity()->Act_Outputs);
    }

    /// Something that the program may depend on becomes another.
    void change(canvas::DrawForm& form) {
        canvas::LabelsD& node = anyNode(form);
        entities::AttributeProperties* column = anyColumn(node);
        entities::ActivityProperties* activity = node.activity();
        const int what = below(9);
        if (what == 0 && column) {
            column->Attribute_Name = below(3) == 0 ? "ID" : column->Attribute_Name + "x";
        } else if (what == 1 && column) {
            column->Attribute_Type = static_cast<std::int16_t>(below(catalogue_.tables.dataTypes.size()));
        } else if (what == 2 && column) {
            column->ProvidedFrom.replace(nullptr);
        } else if (what == 3 && column) {
            column->Tag = below(2) == 0 ? entities::TagNone : entities::TagWizard;
        } else if (what == 4 && activity) {
            // A node that is there later, or is already.
            const std::string other =
                below(2) == 0 ? "later" + std::to_string(below(3)) : "r" + std::to_string(below(4));
            activity->Act_LDL.insert(
                activity->Act_LDL.rfind('.') == std::string::npos ? 0 : activity->Act_LDL.rfind('.'),
                ",not " + other + "(_,_)");
        } else if (what == 5) {
            const std::string name = "Later" + std::to_string(below(3));
            if (!form.nodeNamed(name)) {
                auto& made = *form.Labels.Add({0, 0, 1050, 450}, name, canvas::NodeTypeRecordSet, name).recordSet();
                for (const char* each : {"A", "B"}) {
                    made.RecordSet_Outputs->Add(each, 0, each).ParentKeyName = name;
                }
            }
        } else if (what == 6 && activity) {
            if (entities::ParameterProperties* parameter = anyOf(activity->Act_Parameters)) {
                for (entities::RegulatorProperties& link : parameter->RegulatedFrom) {
                    link.Regulator_name += below(2) == 0 ? "1" : "";
                }
                parameter->Parameter_Type = static_cast<std::int16_t>(below(3));
            }
        } else if (what == 7 && activity && !activity->Act_LDL.empty()) {
            activity->Act_LDL.erase(static_cast<std::size_t>(below(activity->Act_LDL.size())), 1);
        } else if (what == 8 && form.Labels.Count() > 4 && below(3) == 0) {
            form.Labels.Remove(node.Index());
        }
    }

    std::string textOf(const canvas::DrawForm& form, const program::Program& program) const {
        std::string text;
        for (const program::Finding& finding : program.findings) {
            text += std::to_string(static_cast<int>(finding.kind)) + " " +
                    std::to_string(static_cast<int>(finding.node)) + "/" + std::to_string(finding.rule) + "@" +
                    std::to_string(finding.place.offset) + ": " + finding.words + "\n";
        }
        const Dialect& dialect = *dialectNamed("postgresql");
        const Compiled queries = compiled(program, form, catalogue_.tables, dialect, DesignRows(form, dialect), {});
        for (const Query& query : queries.queries) {
            text += queries.tables[query.predicate].name + ": " + query.select + query.why + query.fallen + "\n";
        }
        return text;
    }

    std::mt19937 random_;
    testkit::TestRepository repository_;
    repository::Services services_ = repository_.services();
    testkit::StoredCatalogue catalogue_{services_};
    Silence messages_;
};

TEST_F(KeptStatements, GiveTheProgramOfACheckFromScratchAfterAnyChange) {
    std::size_t read = 0, kept = 0, others = 0;
    for (unsigned seed = 1; seed <= 16 && !HasFailure(); ++seed) {
        SCOPED_TRACE("walk " + std::to_string(seed));
        random_.seed(seed);
        canvas::DrawForm form(ports.services());
        WalkScenario(form, catalogue_, messages_, seed).draw(3 + static_cast<int>(seed % 5));
        program::StatementCache cache;
        std::string before;
        for (int round = 0; round < 40 && !HasFailure(); ++round) {
            const program::Program scratch = program::checkedProgram(form, catalogue_.tables);
            const program::Program again = program::checkedProgram(form, catalogue_.tables, &cache);
            const std::string text = textOf(form, scratch);
            ASSERT_EQ(text, textOf(form, again)) << "round " << round;
            ASSERT_EQ(scratch.rules.size(), again.rules.size());
            for (std::size_t at = 0; at < scratch.rules.size(); ++at) {
                ASSERT_EQ(scratch.rules[at].rule, again.rules[at].rule) << rules::print(scratch.rules[at].rule);
            }
            others += text != before ? 1 : 0;
            before = text;
            for (const canvas::LabelsD& node : form.Labels) {
                read += node.activity() ? 1 : 0;
            }
            change(form);
        }
        kept += cache.kept();
    }
    EXPECT_GT(kept, read / 2) << "most are kept";
    EXPECT_GT(others, 120U) << "the changes change something";
}

}  // namespace
}  // namespace orvent::sql
