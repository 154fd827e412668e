// The creation script, read as the program reads it: cut at every ";".
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

using Texts = std::vector<std::string>;

std::string scriptText() {
    std::ifstream file(std::string(ORVENT_SOURCE_DIR) + "/sql/ORVENTII.sql", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

Texts matches(const std::string& text, const std::string& pattern) {
    const std::regex expression(pattern);
    return {std::sregex_token_iterator(text.begin(), text.end(), expression, 1), {}};
}

Texts statements() {
    auto text = scriptText();
    std::replace(text.begin(), text.end(), '\n', ' ');
    return matches(text, " *([^;]*);");
}

struct Script {
    std::map<std::string, Texts> named, columns;  // named: kind of statement -> names in order
    std::map<std::string, std::vector<Texts>> rows;
    std::set<Texts> references;  // table, column, parent

    Script() {
        const std::regex form(
            "(CREATE TABLE|DROP TABLE|CREATE SEQUENCE|DROP SEQUENCE|CREATE INDEX|INSERT INTO) (\\w+)"
            "(| \\(.*\\)| CASCADE CONSTRAINTS| ON \\w+ \\(\\w+\\)| VALUES \\(.*\\))");
        const std::regex key("FOREIGN KEY \\((\\w+)\\) REFERENCES (\\w+)");
        for (const auto& s : statements()) {
            std::smatch m;
            const bool known = std::regex_match(s, m, form);
            const std::string kind = known ? m[1].str() : "other", name = known ? m[2].str() : s;
            named[kind].push_back(name);
            if (kind == "CREATE TABLE") columns[name] = matches(s, "(\\w+) (?:VARCHAR2|NUMBER|CLOB|BINARY_FLOAT)");
            for (std::sregex_iterator it(s.begin(), s.end(), key), end; it != end; ++it)
                references.insert({name, (*it)[1], (*it)[2]});
            if (kind != "INSERT INTO") continue;
            auto& row = rows[name].emplace_back(matches(m[3], "('(?:[^']|'')*'|\\d+)"));
            for (auto& value : row)
                if (value[0] == '\'') value = value.substr(1, value.size() - 2);
        }
    }

    // In the rows of `table` that begin with `start`: the value that follows.
    Texts behind(const std::string& table, const Texts& start) const {
        Texts found;
        for (const auto& row : rows.at(table))
            if (row.size() > start.size() && std::equal(start.begin(), start.end(), row.begin()))
                found.push_back(row[start.size()]);
        return found;
    }
};

const std::string kTables =
    "Scenarios(Scenario_Name,Scenario_ID,User_Name)Lines(Scenario_ID,From_Label,From_Grab_Point,To_Label,"
    "To_Grab_Point,Edge_Type,Angle)RelationShips(Node_ID,SubNode_ID,Relationship_Kind,From_Key,From_Name,From_Type)"
    "ScenarioNodes(Scenario_ID,Node_ID,Node_Name,Node_Type,Left,Top,Width,Height)Comments(Comment_ID,Comment_Text)"
    "Activities(Activity_ID,Activity_Descr,Activity_Type,Activity_Log,Activity_SQL,Activity_SchemaNo,Activity_LDL)"
    "ActivityFunctions(Activity_ID,Function_ID,Function_Key,Function_Type,Function_Source)"
    "FunctionSubNodes(Function_ID,SubNode_ID,SubNode_Key,SubNode_Kind,SubNode_Name,SubNode_Type)"
    "ActivitySubNodes(Activity_ID,SubNode_ID,SubNode_Key,SubNode_Kind,SubNode_Name,SubNode_Type,SubNode_Tag)"
    "RecordSets(RecordSet_ID,RecordSet_SQL)RecordSetOutPuts(RecordSet_ID,Output_ID,Output_Key,DB_Key,Output_Type)"
    "ActivityTypes(ActivityType_name,ActivityType_descr,ActivityType_SQL,ActivityType_SchemaNo,"
    "ActivityType_ProviderSem,ActivityType_ConsumerSem,ActivityType_LDL)ActivityTypesFunctions(ActivityType_name,"
    "Function_name,Function_type)ActivityTypesParams(ActivityType_name,param_kind,Param_name,Param_type)"
    "FunctionTypes(FunctionType_name,FunctionType_descr)FunctionTypesParams(FunctionType_name,param_kind,Param_name,"
    "Param_type)DataTypes(Datatype_name)";

// A type in use must not vanish: the program relies on the database to refuse.
const std::map<std::string, std::string> kGuards{{"ActivityTypes", "Activity_Type|ActivityType_name"},
                                                 {"FunctionTypes", "Function_[Tt]ype|FunctionType_name"},
                                                 {"DataTypes", "SubNode_Type|Output_Type|Param_type"}};

std::size_t place(const Texts& list, const std::string& item) {
    return static_cast<std::size_t>(std::ranges::find(list, item) - list.begin());
}

TEST(CreationScript, HoldsOnlyWhatTheReaderPassesOn) {
    const auto text = scriptText();
    ASSERT_TRUE(text.ends_with(';')) << "a rest behind the last statement would be executed too";
    EXPECT_TRUE(std::ranges::all_of(text, [](char c) { return c == '\n' || (c >= 32 && c <= 125); }));
    for (const auto& s : statements()) EXPECT_EQ(std::ranges::count(s, '\'') % 2, 0) << "cut literal: " << s;
    EXPECT_EQ(Script().named["other"], Texts{}) << "no comments, no other kinds of statement";
}

TEST(CreationScript, CreatesItsTablesAndSequencesAfterDroppingThem) {
    Script script;
    EXPECT_EQ(script.named["CREATE SEQUENCE"],
              (Texts{"Scenario_ID_seq", "Node_ID_seq", "SubNode_ID_seq", "Function_ID_seq"}));
    EXPECT_EQ(script.named["DROP SEQUENCE"], script.named["CREATE SEQUENCE"]);
    EXPECT_LT(scriptText().rfind("DROP "), scriptText().find("CREATE "));
    const auto &created = script.named["CREATE TABLE"], &dropped = script.named["DROP TABLE"];
    EXPECT_EQ(created, Texts(dropped.rbegin(), dropped.rend()));
    const auto tables = matches(kTables, "(\\w+\\([^)]*\\))");
    EXPECT_EQ(created.size(), tables.size());
    for (const auto& table : tables)
        EXPECT_EQ(script.columns[table.substr(0, table.find('('))], matches(table, "[(,](\\w+)"));
    for (const auto& [parent, guarded] : kGuards)
        for (const auto& [table, columns] : script.columns)
            for (const auto& column : columns)
                EXPECT_EQ(script.references.contains({table, column, parent}),
                          table != parent && std::regex_match(column, std::regex(guarded)))
                    << table << column;
    for (const auto& r : script.references) EXPECT_GT(place(created, r[0]), place(created, r[2])) << "parents first";
}

TEST(CreationScript, RowsAreWholeAndReferToRows) {
    const Script script;
    for (const auto& [table, rows] : script.rows)
        for (const auto& row : rows) ASSERT_EQ(row.size(), script.columns.at(table).size()) << table << row[0];
    for (const auto& r : script.references) {
        if (script.rows.count(r[0]) == 0) continue;
        const auto at = place(script.columns.at(r[0]), r[1]);
        const auto known = script.behind(r[2], {});
        for (const auto& row : script.rows.at(r[0]))
            EXPECT_EQ(std::ranges::count(known, row[at]), 1) << r[0] << row[at];
    }
}

TEST(StarterCatalogue, HasTheNamesThatTheProgramLooksFor) {
    const Script script;
    const auto types = script.behind("ActivityTypes", {});
    ASSERT_GE(types.size(), 15U);
    EXPECT_EQ(script.behind("ActivityTypesParams", {types[0], "OUTPUT"}), Texts{"Output12"});
    EXPECT_FALSE(script.behind("ActivityTypesParams", {types[2], "OUTPUT"}).empty());
    EXPECT_EQ(script.behind("ActivityTypesFunctions", {types[1]}), (Texts{"Fun22", "MyFun"}));
    for (const std::string n : {"1", "2"}) {
        const auto type = script.behind("ActivityTypesFunctions", {types[1], n == "1" ? "MyFun" : "Fun22"}).at(0);
        const auto inputs = script.behind("FunctionTypesParams", {type, "INPUT"});
        EXPECT_EQ(inputs.at(0) + " " + inputs.at(1), "Input" + n + "1 Input" + n + "2");
        EXPECT_EQ(script.behind("FunctionTypesParams", {type, "OUTPUT"}), Texts{"Output" + n + "1"});
    }
    const auto data = script.behind("DataTypes", {});
    EXPECT_EQ(std::ranges::count(data, "[DEFINED BY SOURCE]"), 1);
    EXPECT_EQ(script.behind("FunctionTypes", {"[EMPTY]"}).size(), 1U);
    EXPECT_EQ(script.behind("FunctionTypesParams", {"[EMPTY]"}), Texts{}) << "it has no members";
}

TEST(StarterCatalogue, TemplatesAreWellFormed) {
    const Script script;
    for (const auto& row : script.rows.at("ActivityTypes")) {
        SCOPED_TRACE(row[0]);
        EXPECT_EQ(row[0].find('.'), std::string::npos) << "dots are refused in names";
        EXPECT_NE(row[2].find("[SOURCES"), std::string::npos);
        for (const std::size_t at : {3U, 4U, 5U}) EXPECT_TRUE(row[at] == "1" || row[at] == "2");
        EXPECT_TRUE(row[6].ends_with("."));
        for (const std::string pair : {"()", "[]", "{}"})
            EXPECT_EQ(std::ranges::count(row[6], pair[0]), std::ranges::count(row[6], pair[1])) << pair;
        const auto found = matches(row[6], "@(\\w+)");
        for (const auto& a : found)
            for (const auto& b : found)
                EXPECT_TRUE(a == b || !b.starts_with(a)) << "replacing @" << a << " spoils @" << b;
    }
}

}  // namespace
