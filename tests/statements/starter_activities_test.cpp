#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <regex>
#include <set>

#include "platform/text.h"
#include "program/checked_program.h"
#include "repository/catalogue.h"
#include "statements/ldl_guide.h"
#include "statements/statement_fit.h"
#include "testkit/embedded_repository.h"
#include "wizard_fixture.h"

namespace orvent::statements {
namespace {

using Words = std::vector<std::string>;

Words split(const std::string& text, char at) {
    Words parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, at);) {
        parts.push_back(part);
    }
    return parts;
}

/// One block of the table of activities: the lines by their first word.
using StarterActivity = std::map<std::string, Words>;

constexpr const char* kFirstSource = "ID NAME PRICE";
constexpr const char* kFirstFacts = "sel_in1(1,pen,5). sel_in1(2,ink,20). sel_in1(3,null,20). sel_in1(2,ink,30). ";

std::vector<StarterActivity> starterActivities() {
    std::vector<StarterActivity> result;
    std::ifstream file(std::string(ORVENT_SOURCE_DIR) + "/tests/statements/starter_activities.txt");
    for (std::string line; std::getline(file, line);) {
        const std::size_t blank = line.find(' ');
        const std::string word = line.substr(0, blank);
        if (word == "type") {
            result.push_back({{"source", {kFirstSource}}});
        }
        if (!result.empty() && !word.empty()) {
            result.back()[word].push_back(line.substr(blank + 1));
        }
    }
    return result;
}

/// Takes the wizard through the variables of its template, to the end.
void answer(LDLForm& wizard, const Words& variables) {
    wizard.cmdParseLDL();
    ASSERT_EQ(static_cast<std::size_t>(wizard.Variables.Count()), variables.size());
    for (const std::string& variable : variables) {
        Words values = split(variable, '|');
        const Words head = split(values[0], ' ');
        values.erase(values.begin());
        EXPECT_EQ(wizard.lblVariable, head[0]);
        defineCurrent(wizard, static_cast<LDLVariableType>(std::stoi(head[1])), head.size() > 2 ? head[2] : "", values);
        wizard.cmdNext();
    }
    EXPECT_EQ(LDLGuide(wizard).hint(),
              variables.empty() ? "Generate the statement, then create the activity." : "Generate the statement.");
    wizard.cmdGenerateLDL();
    wizard.cmdCreateAct();
    wizard.cmdOK();
    EXPECT_FALSE(wizard.isOpen());
}

class StarterActivitiesTest : public testkit::CanvasTest {
  protected:
    /// Draws the activity and takes it through the wizard; gives its statement.
    std::string throughTheWizard(StarterActivity& starter) {
        canvas::DrawForm form(ports.services());
        testkit::GraphBuilder graph(form);
        entities::ActivityProperties& activity = graph.activity("Sel");
        const auto draw = [&](const std::string& name, const Words& attributes) {
            auto& recordSet = graph.recordSet(name);
            for (const std::string& attribute : attributes) {
                recordSet.RecordSet_Outputs->Add(attribute, typeOf(attribute), attribute).ParentKeyName = name;
            }
        };
        for (const std::string& recordSet : starter["recordset"]) {
            const Words words = split(recordSet, ' ');
            draw(words[0], {words.begin() + 1, words.end()});
        }
        for (const std::string& source : starter["source"]) {
            const std::string name = "SOURCE" + canvas::textOf(form.LabelsNo);
            draw(name, split(source, ' '));
            for (const std::string& attribute : split(source, ' ')) {
                activity.Act_Inputs->Add(attribute, typeOf(attribute), entities::TagNone, attribute).ParentKeyName =
                    "Sel";
                graph.feed(name + "." + attribute, "Sel.IN." + attribute);
            }
        }
        for (const std::string& output : split(starter["output"].empty() ? kFirstSource : starter["output"][0], ' ')) {
            activity.Act_Outputs->Add(output, 0, entities::TagNone, output).ParentKeyName = "Sel";
        }
        activity.Act_Type = catalogue.ActivityTypeIndex(starter["type"][0]);
        window.play = [&starter](LDLForm& wizard) { answer(wizard, starter["var"]); };
        ports.messages.expect("Activity Created", "", platform::Icon::information);
        LDLForm wizard(ports.messages, catalogue.tables, wizardServices, window);
        wizard.LDLCreate(form, activity);
        window.play = [&](LDLForm& again) {
            for (int at = 1; at <= again.Variables.Count(); ++at) {
                EXPECT_NE(again.formerWords(), "");
                again.takeFormer();
                EXPECT_EQ(again.formerWords() + again.missingOnPanel(), "");
                again.cmdNext();
            }
            again.Variables.Count() > 0 ? again.cmdGenerateLDL() : again.cmdCancel();
            EXPECT_TRUE(again.Variables.Count() == 0 || again.txtTemplate == activity.Act_LDL) << again.txtTemplate;
            again.cmdCancel();
        };
        wizard.LDLCreate(form, activity);
        EXPECT_EQ(misfitLine(activity), starter["told"].empty() ? "" : starter["told"][0]) << activity.Act_LDL;
        std::string findings;
        for (const program::Finding& finding : program::checkedProgram(form, catalogue.tables).findings) {
            findings += finding.kind == program::FindingKind::unknownFunction ? "" : finding.words + "\n";
        }
        EXPECT_EQ(findings.empty(), starter["told"].empty() || starter["told"][0].ends_with("is not read."))
            << activity.Act_LDL << findings;
        return activity.Act_LDL;
    }

    std::int16_t typeOf(const std::string& attribute) const {
        return catalogue.tables.dataTypes.indexOf(attribute == "PRICE" ? "NUMBER" : "VARCHAR2").value();
    }

    testkit::TestRepository repository;
    repository::Services services = repository.services();
    testkit::StoredCatalogue catalogue{services};
    FakeWizardServices wizardServices;
    WizardScript window;
};

/// The statement in the syntax of clingo. It has no term for an aggregate in a head: the result becomes a variable,
/// which is summed up in the body over all rows of the group.
std::string forClingo(const std::string& statement) {
    const std::regex aggregate(R"(sum<(\w+)>\)<-(\w+)\(([^()]*),\1\)\.)");
    const std::string summed = std::regex_replace(statement, aggregate, "SUM)<-$2($3,_),SUM=#sum{$1:$2($3,$1)}.");
    return std::regex_replace(summed, std::regex("<-"), " :- ");
}

TEST_F(StarterActivitiesTest, EveryTypeDerivesTheExpectedRows) {
    ASSERT_EQ(std::system("command -v clingo >/dev/null"), 0) << "clingo is missing; it is in the package gringo";
    const std::string file = (repository.folder.path() / "program").string();
    std::set<std::string> types;
    for (StarterActivity& starter : starterActivities()) {
        SCOPED_TRACE(*types.insert(starter["type"][0]).first);
        const std::string statement = throughTheWizard(starter);
        if (!starter["told"].empty()) {
            continue;
        }
        std::string program = forClingo(statement) + "\n" + kFirstFacts;
        program += starter["fact"].empty() ? "" : starter["fact"][0];
        platform::writeFile(file, program);
        std::system(("clingo --warn=none --verbose=0 '" + file + "' > '" + file + ".out' 2>&1").c_str());
        const std::string said = testkit::fileText(file + ".out");
        Words rows = split(said.substr(0, said.find('\n')), ' ');
        std::erase_if(rows, [](const std::string& atom) { return !atom.starts_with("sel_out("); });
        Words expected = split(starter["row"].at(0), ' ');
        std::sort(rows.begin(), rows.end());
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(rows, expected) << said << program;
    }
    EXPECT_EQ(types.size(), catalogue.tables.activityTypes.rows()) << "a type of the catalogue is not in the table";
}

}  // namespace
}  // namespace orvent::statements
