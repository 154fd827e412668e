// What a project for dbt leaves in the tables of its targets, and what its tests find.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "script_fixture.h"
#include "sql/dbt_project.h"
#include "testkit/temporary_folder.h"

namespace orvent::sql {
namespace {

class DbtProjects : public ScriptTest {
  protected:
    /// The statements of the rendered project, and its tests behind "TEST <model> ".
    std::vector<std::string> rendered() {
        for (const ProjectFile& file : dbtProject(form, catalogue, *dialectNamed("postgresql"), options)) {
            const std::filesystem::path path = folder.path() / file.path;
            std::filesystem::create_directories(path.parent_path());
            platform::writeFile(path.string(), file.text);
        }
        const std::string out = (folder.path() / "rendered").string();
        const std::string run = "python3 " ORVENT_SOURCE_DIR "/tests/tools/render_dbt.py '" + folder.path().string() +
                                "' > '" + out + "' 2>&1";
        const std::string text = std::system(run.c_str()) == 0 ? platform::readFile(out) : "";
        EXPECT_NE(text, "") << platform::readFile(out);
        std::vector<std::string> parts;
        for (std::size_t begin = 0; begin < text.size();) {
            const std::size_t end = std::min(text.find("\n|\n", begin), text.size());
            parts.push_back(text.substr(begin, end - begin));
            begin = end + 3;
        }
        return parts;
    }

    testkit::TemporaryFolder folder;
};

TEST_F(DbtProjects, LoadTheTargetsAsTheyMean) {
    for (const bool bags : {false, true}) {
        options.keepDuplicates = bags;
        std::vector<std::string> statements = rendered();
        std::erase_if(statements, [](const std::string& text) { return text.starts_with("TEST "); });
        run(engines()[1], statements);
    }
}

TEST_F(DbtProjects, TestWhatTheRulesPromise) {
    for (const char* name : {"Z", "U", "V"}) {
        table(name, "", {"K", "V"});
    }
    const std::string checked = "check_in1(X,Y)";
    activity("Check",
             "check_out(A,B)<-" + checked +
                 ",not isNull(X),Y>=1,9>Y,t(R,_),R=X,not check_out_twice(X),A=X,B=Y. check_out_twice(X)<-" + checked +
                 ",check_in1(X2,Y2),X=X2,Y!=Y2.",
             "S", "Z");

    activity("Total", "total_out(A,B)<-total_group(A,B). total_group(X,sum<Y>)<-total_in1(X,Y).", "Z", "U");
    activity("Odd",
             "odd_out(A,B)<-odd_in1(A,B),A!='it''s {{ \"odd\" }}',not odd_out_h(B). "
             "odd_out_h(B)<-odd_in1(A,B),odd_in1(C,B).",
             "U", "V");
    Engine& engine = engines()[1];
    const std::string bad =
        "(SELECT * FROM (VALUES ('a' COLLATE \"C\", 0), ('a', 12), ('a', 12), (NULL, 5), ('x', 1), "
        "('it''s {{ \"odd\" }}', 1)) bad(\"K\", \"V\")) b";
    prepare(engine);
    int tests = 0;
    for (const std::string& text : rendered()) {
        SCOPED_TRACE(text);
        if (!text.starts_with("TEST ")) {
            EXPECT_NO_THROW(engine.run(text));
            continue;
        }
        const std::size_t model = text.find(' ') + 1;
        const std::size_t query = text.find(' ', model) + 1;
        const std::string relation = "\"" + text.substr(model, query - 1 - model) + "\"";
        const auto failing = [&](const std::string& from) {
            std::string sql = text.substr(query);
            sql.replace(sql.find("MODEL"), 5, from);
            return engine.rows(sql, {Family::text}).size();
        };
        EXPECT_EQ(failing(relation), 0U);
        EXPECT_GT(failing(bad), 0U);
        ++tests;
    }
    EXPECT_EQ(tests, 7) << "not null, two limits, a reference and a key; a group; another text";
}

}  // namespace
}  // namespace orvent::sql
