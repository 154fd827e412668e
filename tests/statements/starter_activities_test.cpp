#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <map>
#include <memory>
#include <regex>
#include <set>

#include "platform/text.h"
#include "repository/catalogue.h"
#include "testkit/embedded_repository.h"
#include "testkit/graph_builder.h"
#include "wizard_script.h"

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

/// One block of the table of activities.
struct StarterActivity {
    std::string type, statement, facts;
    std::vector<Words> sources, recordSets;
    Words outputs;
    std::map<std::string, std::string> variables;
    std::multiset<std::string> rows;
};

std::vector<StarterActivity> starterActivities() {
    std::vector<StarterActivity> result;
    std::ifstream file(std::string(ORVENT_SOURCE_DIR) + "/tests/statements/starter_activities.txt");
    for (std::string line; std::getline(file, line);) {
        const std::size_t blank = line.find(' ');
        const std::string word = line.substr(0, blank);
        const std::string rest = blank == std::string::npos ? "" : line.substr(blank + 1);
        if (word == "type") {
            result.emplace_back().type = rest;
        } else if (word == "source") {
            result.back().sources.push_back(split(rest, ' '));
        } else if (word == "recordset") {
            result.back().recordSets.push_back(split(rest, ' '));
        } else if (word == "output") {
            result.back().outputs = split(rest, ' ');
        } else if (word == "var") {
            result.back().variables[rest.substr(0, rest.find(' '))] = rest.substr(rest.find(' ') + 1);
        } else if (word == "says") {
            result.back().statement += (result.back().statement.empty() ? "" : " ") + rest;
        } else if (word == "fact") {
            result.back().facts = rest;
        } else if (word == "row") {
            const Words rows = split(rest, ' ');
            result.back().rows = {rows.begin(), rows.end()};
        }
    }
    return result;
}

class StarterActivitiesTest : public testkit::CanvasTest {
  protected:
    StarterActivitiesTest() {
        catalogue.LoadDataTypes();
        catalogue.LoadFunctionTypes();
        catalogue.LoadActivityTypes();
    }

    /// Draws the activity and takes it through the wizard; gives its statement.
    std::string throughTheWizard(const StarterActivity& starter) {
        canvas::DrawForm form(ports.services());
        testkit::GraphBuilder graph(form);
        entities::ActivityProperties& activity = graph.activity("Sel");
        for (const Words& recordSet : starter.recordSets) {
            draw(graph.recordSet(recordSet[0]), {recordSet.begin() + 1, recordSet.end()});
        }
        for (const Words& source : starter.sources) {
            const std::string name = "SOURCE" + std::to_string(&source - starter.sources.data());
            draw(graph.recordSet(name), source);
            for (const std::string& attribute : source) {
                activity.Act_Inputs->Add(attribute, 0, 0, attribute).ParentKeyName = "Sel";
                graph.feed(name + "." + attribute, "Sel.IN." + attribute);
            }
        }
        for (const std::string& output : starter.outputs) {
            activity.Act_Outputs->Add(output, 0, 0, output).ParentKeyName = "Sel";
        }
        activity.Act_Type = catalogue.ActivityTypeIndex(starter.type);
        window.play = [&starter](LDLForm& wizard) { answer(wizard, starter); };
        ports.messages.expect("Activity Created", "", platform::Icon::information);
        LDLForm(ports.messages, catalogue.tables, window).LDLCreate(form, activity);
        return activity.Act_LDL;
    }

    testkit::TestRepository repository;
    repository::Services services = repository.services();
    repository::Catalogue catalogue{services, [] {}};
    WizardScript window;

  private:
    static void draw(entities::RecordSetProperties& recordSet, const Words& attributes) {
        for (const std::string& attribute : attributes) {
            recordSet.RecordSet_Outputs->Add(attribute, 0, attribute).ParentKeyName = recordSet.RecordSet_Name;
        }
    }

    static void answer(LDLForm& wizard, const StarterActivity& starter) {
        wizard.cmdParseLDL();
        std::size_t seen = 0;
        while (wizard.CurrentVariable) {
            ASSERT_TRUE(starter.variables.contains(wizard.lblVariable)) << wizard.lblVariable;
            Words values = split(starter.variables.at(wizard.lblVariable), '|');
            const Words head = split(values[0], ' ');
            values.erase(values.begin());
            const auto kind = static_cast<LDLVariableType>(std::stoi(head[0]));
            defineCurrent(wizard, kind, head.size() > 1 ? head[1] : "", values);
            ++seen;
            if (!wizard.Enabled.cmdNext) {
                break;
            }
            wizard.cmdNext();
        }
        EXPECT_EQ(seen, starter.variables.size());
        EXPECT_EQ(wizard.hint(),
                  seen == 0 ? "Generate the statement, then create the activity." : "Generate the statement.");
        wizard.cmdGenerateLDL();
        wizard.cmdCreateAct();
        wizard.cmdOK();
        EXPECT_FALSE(wizard.isOpen());
    }
};

TEST_F(StarterActivitiesTest, EveryTypeGeneratesItsStatement) {
    std::set<std::string> types;
    for (const StarterActivity& starter : starterActivities()) {
        SCOPED_TRACE(starter.type);
        types.insert(starter.type);
        EXPECT_EQ(throughTheWizard(starter), starter.statement);
    }
    EXPECT_EQ(types.size(), catalogue.tables.activityTypes.rows()) << "a type of the catalogue is not in the table";
}

/// The statement in the syntax of clingo. It has no term for an aggregate in a head: that rule's result becomes a
/// variable, which is summed up in the body over all rows of the group.
std::string forClingo(std::string statement) {
    std::smatch rule;
    const std::regex aggregate(R"((\w+)\(([^()]*),(sum|count|min|max)<(\w+)>\)<-(\w+)\(([^()]*)\)\.)");
    if (std::regex_search(statement, rule, aggregate)) {
        const Words group = split(rule[2], ',');
        std::string row;
        for (const std::string& attribute : split(rule[6], ',')) {
            const bool grouped = std::find(group.begin(), group.end(), attribute) != group.end();
            row += (row.empty() ? "" : ",") + (grouped ? "" : std::string("R_")) + attribute;
        }
        const std::string source = rule[5];
        statement = rule.prefix().str() + rule[1].str() + "(" + rule[2].str() + ",RESULT)<-" + source + "(" +
                    rule[6].str() + "), RESULT=#" + rule[3].str() + "{R_" + rule[4].str() + "," + row + ":" + source +
                    "(" + row + ")}." + rule.suffix().str();
    }
    return std::regex_replace(statement, std::regex("<-"), " :- ");
}

/// The atoms of `sel_out` that clingo derives, or its words.
std::string clingo(const std::filesystem::path& folder, const std::string& program) {
    const std::string file = (folder / "program.lp").string();
    std::string shown;
    for (int arity = 1; arity <= 6; ++arity) {
        shown += "#show sel_out/" + std::to_string(arity) + ".\n";
    }
    platform::writeFile(file, program + "\n" + shown);
    std::string said;
    const std::string command = "clingo --warn=none --verbose=0 '" + file + "' 2>&1";
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::array<char, 4096> line;
    while (pipe && std::fgets(line.data(), line.size(), pipe.get())) {
        said += line.data();
    }
    return said;
}

TEST_F(StarterActivitiesTest, StatementsDeriveTheExpectedRows) {
    ASSERT_EQ(std::system("command -v clingo >/dev/null"), 0) << "clingo is missing; it is in the package gringo";
    for (const StarterActivity& starter : starterActivities()) {
        SCOPED_TRACE(starter.type);
        const std::string program = forClingo(throughTheWizard(starter)) + "\n" + starter.facts;
        const std::string said = clingo(repository.folder.path(), program);
        const Words rows = split(said.substr(0, said.find('\n')), ' ');
        EXPECT_EQ(std::multiset<std::string>(rows.begin(), rows.end()), starter.rows) << said << program;
    }
}

}  // namespace
}  // namespace orvent::statements
