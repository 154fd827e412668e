// Scenarios as documents beside the repository: types that come with a document, and one scenario on both ways.

#include "shell/document_catalogue.h"

#include <random>

#include "exchange/document_writer.h"
#include "exchange/open_scenario.h"
#include "repository/stored_scenario_fixture.h"
#include "shell/sample_scenario.h"

namespace orvent::testkit {
namespace {

using exchange::Extract;

class DocumentCatalogueTest : public StoredScenarioTest {
  protected:
    std::string written(const canvas::DrawForm& form) {
        return exchange::writeDocument(form, catalogue.tables, exchange::definitionsFor(Extract::all(form), documents),
                                       {"1", false});
    }

    std::unique_ptr<canvas::DrawForm> opened(const std::string& text) {
        auto form = newForm("");
        last = exchange::openScenario(*form, text, {documents, dialogs});
        return form;
    }

    long long types() {
        return rowsIn(services, {"DataTypes", "FunctionTypes", "FunctionTypesParams", "ActivityTypes",
                                 "ActivityTypesParams", "ActivityTypesFunctions"});
    }

    const exchange::TypeDefinitions news{
        {"MONEY"},
        {{"Tax", "of a price", {{"price", "MONEY"}}, {{"tax", "MONEY"}}}},
        {{"Bill", "", "select", "ldl", 2, 1, 2, {{"total", "MONEY"}}, {{"rate", "MONEY"}}, {{"tax", "Tax"}}}}};

    shell::DocumentCatalogue documents{services, catalogue};
    forms::Dialogs dialogs;
    exchange::Opened last;
};

TEST_F(DocumentCatalogueTest, AddsTypesAsTheyAreDefined) {
    documents.add(news);
    const auto& tables = catalogue.tables;
    const auto function = documents.functionType(*tables.functionTypes.indexOf("Tax"));
    const auto activity = documents.activityType(*tables.activityTypes.indexOf("Bill"));
    ASSERT_TRUE(function && activity);
    EXPECT_EQ(exchange::definitionOf(*function, tables), news.functions[0]);
    EXPECT_EQ(exchange::definitionOf(*activity, tables), news.activities[0]);
    const long long rows = types();
    documents.add(news);  // another user was faster
    EXPECT_EQ(types(), rows);
    run("DELETE FROM ActivityTypesFunctions WHERE ActivityType_name='Bill'");
    run("DELETE FROM ActivityTypesParams WHERE ActivityType_name='Bill'");
    run("DELETE FROM ActivityTypes WHERE ActivityType_name='Bill'");
    EXPECT_FALSE(documents.activityType(*tables.activityTypes.indexOf("Bill"))) << "deleted meanwhile";
}

TEST_F(DocumentCatalogueTest, AddsAllOrNone) {
    const long long rows = types();
    const auto fail = [] { throw platform::DatabaseError("gone", "08S01", 0, false); };
    for (int step = 1; step <= 8; ++step) {
        SCOPED_TRACE(step);
        for (const auto side : {HookedDatabase::Side::before, HookedDatabase::Side::behind}) {
            repository.hooked.after(step, fail, side, "INSERT");
            try {
                documents.add(news);
                ADD_FAILURE() << "nothing failed";
            } catch (const platform::Fault& fault) {
                EXPECT_EQ(fault.description().substr(0, 29), "The types were not added.\ngon");
            }
            EXPECT_EQ(types(), rows);
            EXPECT_FALSE(catalogue.tables.dataTypes.indexOf("MONEY"));
        }
    }
    documents.add(news);
    EXPECT_GT(types(), rows);
}

TEST_F(DocumentCatalogueTest, ANameThatTheDatabaseCannotKeepIsRefusedBeforeAnythingIsAdded) {
    const long long rows = types();
    const struct {
        std::size_t ofNames, ofLines;
        const char* words;
    } cases[] = {
        {2, 9, "\"Tax\" is too long: it has 3 characters, and this repository keeps at most 2 of a type's name."},
        {9, 3, "\"rate\" is too long: it has 4 characters, and this repository keeps at most 3 of a name."}};
    exchange::TypeDefinitions shorter = news;
    shorter.data = {"M"};
    shorter.functions[0].inputs = {{"p", "M"}};
    shorter.functions[0].outputs = {{"t", "M"}};
    shorter.activities[0].outputs = {{"sum", "M"}};
    shorter.activities[0].parameters[0].type = "M";
    for (const auto& row : cases) {
        repository.hooked.keyLimit = platform::TextLimit{.characters = row.ofNames, .bytes = 0};
        repository.hooked.plainLimit = platform::TextLimit{.characters = row.ofLines, .bytes = 0};
        try {
            documents.add(shorter);
            ADD_FAILURE() << row.words;
        } catch (const platform::Fault& fault) {
            EXPECT_EQ(fault.description(), std::string("The types were not added.\nThe name ") + row.words);
        }
        EXPECT_EQ(types(), rows);
    }
    repository.hooked.plainLimit = platform::TextLimit{.characters = 4, .bytes = 0};
    documents.add(shorter);
    EXPECT_GT(types(), rows);
}

/// What a user may have drawn: record sets and activities that read each other in any order.
class Drawn {
  public:
    Drawn(canvas::DrawForm& form, unsigned seed) : form_(form), graph_(form), random_(seed) {
        for (int at = 0; at < 8; ++at) {
            const std::string name = "N" + std::to_string(at);
            if (pick(2) == 0) {
                graph_.recordSet(name, {"A", "B", "C"}).RecordSet_SQL = text();
            } else {
                draw(graph_.activity(name, {"A", "B", "C"}, {"X", "Y"}), name);
            }
            form.Labels.at(form.Labels.Count())->setBox({10.5F * static_cast<float>(pick(900)), 7, 500, 300});
        }
        for (int at = 0; at < 30; ++at) {
            link("N" + std::to_string(pick(8)), "N" + std::to_string(pick(8)));
        }
        form.Labels.Add({1, 2, 1500, 750}, "Comment1", canvas::NodeTypeComment).setComment(text());
    }

  private:
    int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
    std::string text() {
        static const char* const parts[] = {"select", "\n", "\"", "\\", "ä漢", "\r\n", " ", "''"};
        std::string whole = "x";
        for (int at = pick(8); at > 0; --at) {
            whole += parts[pick(8)];
        }
        return whole;
    }
    bool isRecordSet(const std::string& name) const { return form_.nodeNamed(name)->recordSet() != nullptr; }
    std::string one(const char* letters, int count) { return std::string(1, letters[pick(count)]); }

    void draw(entities::ActivityProperties& activity, const std::string& name) {
        activity.Act_Type = static_cast<std::int16_t>(pick(4));
        activity.Act_LDL = text();
        activity.Act_Description = text();
        activity.Act_Parameters->Add("P", 1, entities::TagTypeParameter, "P").ParentKeyName = name;
        auto& parameter = *activity.Act_Parameters->Item("P");
        const std::string input = one("ABC", 3);
        parameter.RegulatedFrom->Add(name, entities::LinkInput, ".IN." + input);
        activity.Act_Inputs->Item(input)->RegulatorFor->Add(name, entities::LinkInput, ".PARAM.P");
        for (const char* output : {"X", "Y"}) {
            graph_.pass(name, one("ABC", 3), output);
        }
    }

    void link(const std::string& from, const std::string& to) {
        if (from == to || (isRecordSet(from) && isRecordSet(to))) {
            return;
        }
        graph_.feed(isRecordSet(from) ? from + "." + one("ABC", 3) : from + ".OUT." + one("XY", 2),
                    isRecordSet(to) ? to + "." + one("ABC", 3) : to + ".IN." + one("ABC", 3));
        graph_.edge(from, to);
    }

    canvas::DrawForm& form_;
    GraphBuilder graph_;
    std::mt19937 random_;
};

TEST_F(DocumentCatalogueTest, IsOneScenarioOnBothWays) {
    for (unsigned seed = 0; seed < 12 && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        auto form = newForm("Drawn" + std::to_string(seed));
        if (seed == 0) {
            shell::buildSampleScenario(*form, catalogue);
        } else {
            const Drawn drawn(*form, seed);
        }
        const std::string expected = modelText(*form);
        const std::string text = written(*form);
        auto copy = opened(text);
        EXPECT_EQ(modelText(*copy), expected);
        EXPECT_EQ(written(*copy), text);
        save(*form, true, Answer::cancel);
        const auto stored = loaded(form->ScenarioID);
        EXPECT_EQ(modelText(*stored), expected);
        EXPECT_EQ(modelText(*opened(written(*stored))), expected);
        copy->setScenarioName("Copy" + std::to_string(seed));
        save(*copy, true, Answer::cancel);
        EXPECT_EQ(modelText(*loaded(copy->ScenarioID)), expected);
        EXPECT_EQ(last.words, "");
    }
}

}  // namespace
}  // namespace orvent::testkit
