#include "exchange_fixture.h"

namespace orvent::exchange {
namespace {

/// A scenario that uses Join, which brings Sum.
class TypesTest : public ExchangeTest {
  protected:
    TypesTest() {
        graph.recordSet("RS1", {"ID"}).RecordSet_Outputs->Item(1)->Attribute_Type = 1;
        graph.activity("Load", {"ID"}).Act_Type = 1;
        text = written(form);
        catalogue.names = {};
        catalogue.names.dataTypes.add("NUMBER");
        catalogue.names.activityTypes.add("Copy");
        catalogue.functions.clear();
        catalogue.activities.erase(catalogue.activities.begin() + 1);
    }

    std::string activityType(const canvas::DrawForm& opened) const {
        return catalogue.names.activityTypes.shown(opened.nodeNamed("Load")->activity()->Act_Type);
    }

    const std::string lacking =
        "The repository lacks types that this scenario uses:\ndata type DATE\ndata type VARCHAR2(20)\nfunction type "
        "Sum\nactivity type Join";
    std::string text;
};

TEST_F(TypesTest, AreAddedAsTheyWereDefined) {
    press = [](MissingTypesForm& question) {
        EXPECT_TRUE(question.canAdd());
        question.cmdAdd_Click();
    };
    const auto copy = opened(text);
    EXPECT_EQ(asked, lacking);
    EXPECT_EQ(last.words, "");
    EXPECT_EQ(activityType(*copy), "Join");
    EXPECT_EQ(catalogue.added.data, (std::vector<std::string>{"DATE", "VARCHAR2(20)"}));
    ASSERT_EQ(catalogue.added.activities.size(), 1u);
    EXPECT_EQ(written(*copy), text);
    press = nullptr;
    opened(text);  // now all are there
}

TEST_F(TypesTest, AreKeptAsNamesThatAreGone) {
    press = [](MissingTypesForm& question) { question.cmdWithout_Click(); };
    const auto copy = opened(text);
    EXPECT_EQ(last.words,
              "Kept as names that the repository does not have: data type DATE, data type VARCHAR2(20), function type "
              "Sum, activity type Join.");
    EXPECT_EQ(activityType(*copy), "Join (gone)");
    EXPECT_EQ(catalogue.names.activityTypeSql.back(), "select") << "a save can add it again";
    EXPECT_EQ(catalogue.names.dataTypes.shown(
                  copy->nodeNamed("RS1")->recordSet()->RecordSet_Outputs->Item(1)->Attribute_Type),
              "VARCHAR2(20) (gone)");
    EXPECT_TRUE(catalogue.added.empty());
    // What is gone is written by its name, without a definition.
    const std::string again = written(*copy);
    EXPECT_EQ(again.substr(again.find("\"types\"")),
              "\"types\": {\n    \"data\": [\n      \"NUMBER\",\n      \"VARCHAR2(20)\"\n    ]\n  }\n}\n");
    opened(again);
    EXPECT_EQ(asked,
              "The repository lacks types that this scenario uses:\ndata type VARCHAR2(20)\nOf these nothing but the "
              "name is known:\nactivity type Join");
}

TEST_F(TypesTest, LeaveNothingBehindWhenTheUserCancels) {
    press = [](MissingTypesForm&) {};
    const auto copy = opened(text);
    EXPECT_FALSE(last.opened);
    EXPECT_EQ(copy->Labels.Count(), 0);
    EXPECT_EQ(catalogue.names.dataTypes.size(), 1u);
}

TEST_F(TypesTest, HoldAsTheRepositoryHasThem) {
    catalogue.add({{"DATE", "VARCHAR2(20)"},
                   {{"Sum", "adds", {{"a", "NUMBER"}}, {{"sum", "NUMBER"}}}},
                   {{"Join", "", "", "", 0, 0, 0, {}, {}, {}}}});
    const auto copy = opened(text);
    EXPECT_EQ(last.words,
              "The repository's own definition holds, and is another one than the file's: function type Sum, activity "
              "type Join.");
    EXPECT_EQ(activityType(*copy), "Join");
}

TEST_F(TypesTest, AreNotAddedHalf) {
    const std::string much =
        R"({"format": "orvent scenario", "version": 1, "name": "", "nodes": [{"name": "A", "kind": "recordSet", "box": [0, 0, 1, 1], "attributes": [)";
    std::string members;
    for (int at = 0; at < 32768; ++at) {
        const std::string name = std::to_string(at);
        members += (at == 0 ? "" : ",") +
                   std::string(R"({"key": ")").append(name).append(R"(", "type": "T)").append(name).append("\"}");
    }
    press = [](MissingTypesForm& question) { question.cmdWithout_Click(); };
    auto into = newForm();
    EXPECT_THROW(openScenario(*into, much + members + "]}]}", {catalogue, dialogs}), platform::Fault);
    EXPECT_EQ(catalogue.names.dataTypes.size(), 1u) << "the tables have no room for all";
    EXPECT_EQ(into->Labels.Count(), 0);
}

}  // namespace
}  // namespace orvent::exchange
