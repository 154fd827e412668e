// The program orvent-cli from outside: words in, results, messages and exit code out.

#include <sys/wait.h>

#include <cstdlib>

#include "platform/settings_file.h"
#include "shell/exporters.h"
#include "testkit/servers.h"
#include "testkit/test_frame.h"

namespace orvent::app {
namespace {

struct CallResult {
    int code;
    std::string out, errors;
};

/// The embedded repository of a folder, with the scenario Sample of anna.
class CliTest : public ::testing::Test {
  protected:
    CliTest() {
        frame.frame.start();
        frame.frame.run(shell::Command::loadTestGraph);
        frame.saved();
        frame.saveAs("Sample");
        repository.messages.verify();
    }

    /// Runs it with words as a shell reads them.
    CallResult call(const std::string& words, const std::filesystem::path& home,
                    const std::string& variables = "") const {
        const std::string out = (scratch.path() / "out").string(), errors = (scratch.path() / "errors").string();
        const std::string line = "env -u ORVENT_PASSWORD ORVENT_HOME='" + home.string() + "' " + variables +
                                 " '" ORVENT_CLI "' " + words + " </dev/null >'" + out + "' 2>'" + errors + "'";
        const int status = std::system(line.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, testkit::fileText(out), testkit::fileText(errors)};
    }
    CallResult call(const std::string& words) const {
        return call(words + " --source 'ORVENT Embedded' --designer anna", scratch.path());
    }

    std::string exported(std::string_view name, std::int16_t depth) {
        return shell::exporterNamed(name).text(*frame.frame.scenario(10),
                                               {frame.frame.catalogue().tables, repository.progress, depth});
    }

    const testkit::TemporaryFolder scratch;
    testkit::TestRepository repository{scratch.path()};
    testkit::TestFrame frame{repository};
};

TEST_F(CliTest, EachCallHasItsResultItsMessageAndItsCode) {
    const std::string columns = "ENTITY NAME,Local_IN";
    const struct {
        const char* words;
        int code;
        std::string out;     ///< a part of it; empty: there is none at all
        std::string errors;  ///< likewise
    } calls[] = {
        {"list", 0, "Sample\n", ""},
        {"list --json", 0, "[\n  {\n    \"name\": \"Sample\"\n  }\n]\n", ""},
        {"metrics Sample --depth 3", 0, columns, ""},
        {"metrics Sample --json", 0, "\"Local_IN\": ", ""},
        {"metrics Sample --depth 40000", 2, "", "--depth"},
        {"metrics --depth 3", 2, "", "scenario"},
        {"ldl Sample --depth 3", 2, "", "--depth"},
        {"ldl sample", 3, "", "anna has no scenario sample."},
        {"ldl Sample -o /dev/null/written", 3, "", "/dev/null/written"},
        {"poem Sample", 2, "", "There is no command \"poem\"."},
        {"list --user sa", 2, "", "ORVENT_PASSWORD"},
    };
    for (const auto& row : calls) {
        SCOPED_TRACE(row.words);
        const CallResult got = call(row.words);
        EXPECT_EQ(got.code, row.code);
        EXPECT_TRUE(row.out.empty() ? got.out.empty() : got.out.find(row.out) != std::string::npos) << got.out;
        EXPECT_TRUE(row.errors.empty() ? got.errors.empty() : got.errors.find(row.errors) != std::string::npos)
            << got.errors;
    }
    EXPECT_EQ(call("--version", scratch.path()).out, "ORVENT II " ORVENT_VERSION "\n");
    EXPECT_EQ(call("", scratch.path()).code, 2);
    EXPECT_NE(call("check --help", scratch.path()).out.find("--json"), std::string::npos);
}

TEST_F(CliTest, ARunTellsRowsAndFailsWithThoseThatAreNotExpected) {
    const auto write = [this](const char* name, const std::string& text) {
        platform::writeFile((scratch.path() / name).string(), text);
    };
    write("try.orvent", R"({"format": "orvent scenario", "version": 1, "name": "Try", "nodes": [
        {"name": "S", "kind": "recordSet", "box": [0, 0, 1050, 450], "attributes": [{"key": "V", "type": "NUMBER",
          "providerFor": [{"node": "A", "type": "recordSet", "key": "A.IN.V"}]}],
         "facts": {"columns": ["V"], "rows": [["1"], ["2"], [null]]}},
        {"name": "A", "kind": "activity", "box": [2000, 0, 1050, 450], "ldl": "a_out(X)<-a_in1(X),X>1.",
         "inputs": [{"key": "V", "type": "NUMBER",
           "providedFrom": [{"node": "S", "type": "recordSet", "key": "S.V"}]}],
         "outputs": [{"key": "V", "type": "NUMBER"}],
         "expected": [{"kind": "none", "column": "V", "operator": ">", "value": "8"}]}],
        "types": {"data": ["NUMBER"]}})");
    std::filesystem::create_directory(scratch.path() / "facts");
    write("facts/S.csv", "v\n9\n\n3\n");
    write("facts/NONE.csv", "v\n9\n");
    const std::string run = "run " + (scratch.path() / "try.orvent").string();
    const std::string facts = run + " --facts " + (scratch.path() / "facts").string();
    const struct {
        std::string words;
        int code;
        const char* out;
        const char* errors;  ///< a part of it; empty: there is none at all
    } calls[] = {
        {run, 0, "S: 3\nA: 3 -> 1\nmet: A: No row where V > 8\n", ""},
        {run + " --rows A", 0, "V\n2\n", ""},
        {facts, 1, "S: 2\nA: 2 -> 2\nnot met: A: No row where V > 8, but there is 1 row\nV\n9\n", "NONE.csv"},
        {run + " --rows B", 2, "", "There is no record set or activity B."},
        {run + " --facts /nowhere", 3, "", "/nowhere: "},
    };
    for (const auto& row : calls) {
        SCOPED_TRACE(row.words);
        const CallResult got = call(row.words, scratch.path());
        EXPECT_EQ(got.code, row.code);
        EXPECT_EQ(got.out, row.out);
        EXPECT_TRUE(*row.errors == '\0' ? got.errors.empty() : got.errors.find(row.errors) != std::string::npos)
            << got.errors;
    }
}

TEST_F(CliTest, WritesWhatTheWindowsWrite) {
    const std::string file = (scratch.path() / "written").string();
    for (const auto& [name, words] :
         {std::pair("ldl", ""), std::pair("export-text", ""), std::pair("metrics", "--depth 3")}) {
        const CallResult got = call(name + std::string(" Sample -o '") + file + "' " + words);
        EXPECT_EQ(std::to_string(got.code) + got.out + got.errors, "0") << name;
        EXPECT_EQ(testkit::fileText(file), exported(name, 3)) << name;
    }
}

TEST_F(CliTest, ACheckTellsWhatIsUnfinishedAndWhichEdgesHaveNoLinks) {
    canvas::DrawForm& form = frame.active();
    for (canvas::LabelsD& node : form.Labels) {
        node.setReady(true);  // as a load leaves them
    }
    std::string expected;
    for (const shell::ProblemLine& row :
         shell::problemLines(form, frame.frame.catalogue().tables, analysis::everyProblem())) {
        expected += analysis::wordsOf(row.kind).word + (": " + row.place + ": " + row.words) + "\n";
    }
    CallResult got = call("check Sample");
    EXPECT_EQ(got.out, expected);
    EXPECT_EQ(got.code, expected.empty() ? 0 : 1);
    entities::ActivityProperties* activity = nullptr;
    for (canvas::LabelsD& node : form.Labels) {
        activity = activity ? activity : node.activity();
    }
    activity->Act_LDL.clear();
    activity->Changed = true;
    form.Lines.Remove((*form.Lines.begin()).Index());
    frame.saved();
    frame.frame.run(shell::Command::saveScenario);
    got = call("check Sample");
    EXPECT_EQ(got.code, 1);
    EXPECT_NE(got.out.find("statement: " + activity->Act_Name + ": "), std::string::npos) << got.out;
    EXPECT_NE(got.out.find("no edge is drawn"), std::string::npos) << got.out;
}

TEST_F(CliTest, WithoutSettingsARepositoryIsMadeWhenTheOptionSaysSo) {
    const std::filesystem::path home = scratch.path() / "new";
    CallResult got = call("list", home);
    EXPECT_EQ(got.code, 2);
    EXPECT_NE(got.errors.find("--make-repository"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(home));
    for (const char* words : {"list --make-repository", "list"}) {
        got = call(words, home);
        EXPECT_EQ(std::to_string(got.code) + got.out + got.errors, "0") << words;
    }
    got = call("list --source 'ORVENT Bookshop'", home);
    EXPECT_EQ(got.code, 3);
    EXPECT_NE(got.errors.find("cannot be a repository"), std::string::npos) << got.errors;
    std::filesystem::remove(home / "repository.db");
    got = call("list", home);
    EXPECT_EQ(got.code, 2);
    EXPECT_NE(got.errors.find("--make-repository"), std::string::npos) << got.errors;
    got = call("list --source Nowhere", home);
    EXPECT_EQ(got.code, 3);
    EXPECT_NE(got.errors, "");
}

TEST_F(CliTest, AFileGoesThereAndBackAndNeedsNoRepository) {
    const std::string file = "'" + (scratch.path() / "sample.orvent").string() + "'";
    ASSERT_EQ(call("get Sample -o " + file).code, 0);
    const std::string text = testkit::fileText(scratch.path() / "sample.orvent");
    EXPECT_EQ(call("get Sample").out, text);
    const std::filesystem::path nowhere = scratch.path() / "none";
    EXPECT_EQ(call("convert " + file, nowhere).out, text);
    for (const char* command : {"check", "ldl", "export-text", "metrics --depth 3"}) {
        const CallResult ofFile = call(command + (" " + file), nowhere);
        const CallResult stored = call(command + std::string(" Sample"));
        EXPECT_EQ(ofFile.out, stored.out) << command;
        EXPECT_EQ(ofFile.code, stored.code) << command;
    }
    EXPECT_FALSE(std::filesystem::exists(nowhere));

    CallResult got = call("put " + file);
    EXPECT_EQ(got.code, 2);
    EXPECT_NE(got.errors.find("Give --replace"), std::string::npos) << got.errors;
    EXPECT_EQ(call("put --replace " + file).code, 0);
    EXPECT_EQ(call("put --name '' " + file).code, 2);
    platform::writeFile((scratch.path() / "part.orvent").string(),
                        R"({"format": "orvent scenario", "version": 1, "name": "Part",
                            "nodes": [{"name": "A", "kind": "activity", "box": [0, 0, 1050, 450]}]})");
    EXPECT_EQ(call("put '" + (scratch.path() / "part.orvent").string() + "'").code, 1);
    got = call("put --name Copy " + file);
    EXPECT_EQ(std::to_string(got.code) + got.errors, "0Saved\n");
    std::string copy = call("get Copy").out;
    const std::string name = "\"name\": \"Copy\"";
    ASSERT_NE(copy.find(name), std::string::npos) << copy.substr(0, 200);
    EXPECT_EQ(copy.replace(copy.find(name), name.size(), "\"name\": \"Sample\""), text);

    platform::writeFile((scratch.path() / "bad.orvent").string(), "{\"format\": 1}");
    for (const char* bad : {"bad.orvent", "gone.orvent"}) {
        got = call("check '" + (scratch.path() / bad).string() + "'", nowhere);
        EXPECT_EQ(got.code, 3) << bad;
        EXPECT_NE(got.errors.find(std::string(bad) + ": "), std::string::npos) << got.errors;
    }
}

TEST_F(CliTest, TypesAreCarriedFromOneRepositoryToAnother) {
    repository.messages.expect("DATA TYPE SAVED", "", platform::Icon::information);
    const std::int16_t odd = frame.frame.catalogue().SaveDataType("ODD");
    entities::ActivityTypeProperties type;
    type.ActType_Name = "Odd Copy";
    type.ActType_LDL = "odd(X)";
    type.ActType_Parameters->Add("P", odd, "P");
    repository.messages.expect("Activity TYPE SAVED", "", platform::Icon::information);
    frame.frame.catalogue().SaveActivityType(type);
    for (canvas::LabelsD& node : frame.active().Labels) {
        if (entities::RecordSetProperties* recordSet = node.recordSet()) {
            recordSet->RecordSet_Outputs->Item(1)->Attribute_Type = odd;
            recordSet->Changed = true;
        }
    }
    frame.saved();
    frame.frame.run(shell::Command::saveScenario);
    const std::string types = "'" + (scratch.path() / "types.orvent").string() + "'";
    const std::string sample = "'" + (scratch.path() / "sample.orvent").string() + "'";
    ASSERT_EQ(call("types export -o " + types).code, 0);
    ASSERT_EQ(call("get Sample -o " + sample).code, 0);

    const std::filesystem::path home = scratch.path() / "new";
    ASSERT_EQ(call("list --make-repository", home).code, 0);
    CallResult got = call("put " + sample, home);
    EXPECT_EQ(got.code, 2);
    EXPECT_NE(got.errors.find("data type ODD"), std::string::npos) << got.errors;
    for (const char* time : {"first", "second"}) {
        got = call("types import " + types, home);
        EXPECT_EQ(std::to_string(got.code) + got.out + got.errors, "0") << time;
        EXPECT_EQ(call("types export", home).out, call("types export").out) << time;
    }
    EXPECT_EQ(call("put " + sample, home).code, 0);
    const std::filesystem::path other = scratch.path() / "other";
    EXPECT_EQ(call("put --make-repository --add-types " + sample, other).code, 0);
    EXPECT_EQ(call("get Sample", other).out, call("get Sample").out);

    type.ActType_NameIndex = frame.frame.catalogue().ActivityTypeIndex("Odd Copy");
    type.ActType_LDL = "other(X)";
    repository.messages.expect("Activity TYPE UPDATED", "", platform::Icon::information);
    frame.frame.catalogue().UpdateActivityType(type);
    call("types export -o " + types);
    got = call("types import " + types, home);
    EXPECT_EQ(got.code, 1);
    EXPECT_NE(got.errors.find("activity type Odd Copy"), std::string::npos) << got.errors;
}

/// A scenario goes from the embedded repository to a server, and everything said of it there is what was said here.
TEST_F(CliTest, AServerGivesWhatTheEmbeddedRepositoryGives) {
    using Server = testkit::DatabaseServer;
    const std::string file = "'" + (scratch.path() / "sample.orvent").string() + "'";
    ASSERT_EQ(call("get Sample -o " + file).code, 0);
    ASSERT_EQ(call("put --name Copy " + file).code, 0);
    std::unique_ptr<Server> servers[] = {std::make_unique<testkit::PostgresServer>(),
                                         std::make_unique<testkit::MariaDbServer>()};
    for (const auto& server : servers) {
        const std::string connection = server->createDatabase("cli");
        SCOPED_TRACE(connection);
        const testkit::TestRepository tables({"cli", connection}, Server::kUser, Server::kPassword);
        std::string entries = "[cli]\n";
        for (const char c : connection) {
            entries += c == ';' ? "\n" : c == '{' || c == '}' ? "" : std::string(1, c);
        }
        const std::string ini = (scratch.path() / "odbc.ini").string();
        platform::writeFile(ini, entries + "\nServername=127.0.0.1\n");  // each driver has a word of its own
        const auto there = [&](const std::string& words) {
            return call(words + " --source cli --designer anna --user " + Server::kUser, scratch.path(),
                        "ODBCINI='" + ini + "' ORVENT_PASSWORD='" + Server::kPassword + "'");
        };
        CallResult got = there("put --name Copy " + file);
        EXPECT_EQ(std::to_string(got.code) + got.errors, "0Saved\n");
        EXPECT_EQ(there("list").out, "Copy\n");
        for (const char* words : {"get Copy", "check Copy", "ldl Copy", "export-text Copy", "metrics Copy --json"}) {
            SCOPED_TRACE(words);
            const CallResult here = call(words);
            got = there(words);
            EXPECT_EQ(got.code, here.code);
            EXPECT_EQ(got.errors, here.errors);
            EXPECT_EQ(got.out, here.out);
        }
        got = call("list --source cli --designer anna --user orvent", scratch.path(),
                   "ODBCINI='" + ini + "' ORVENT_PASSWORD=wrong");
        EXPECT_EQ(got.code, 3) << got.errors;
    }
}

}  // namespace
}  // namespace orvent::app
