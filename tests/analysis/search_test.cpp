#include <gtest/gtest.h>

#include "analysis/text_search.h"
#include "platform/letter_case.h"
#include "testkit/graph_builder.h"

namespace orvent::analysis {
namespace {

using namespace entities;

/// CUSTOMERS -> Load, with a text of every kind.
struct Searched {
    Searched() {
        for (const char* type : {"NUMBER(38)", "VARCHAR2(30)"}) {
            tables.dataTypes.add(type);
        }
        tables.activityTypes.add("Surrogate Key");
        tables.functionTypes.add("Sum");
        RecordSetProperties& customers = graph.recordSet("CUSTOMERS", {"ID", "Straße"});
        customers.RecordSet_Outputs->Item(2)->Attribute_Type = 1;
        customers.addDbKey("Straße", "shop.CUSTOMER.STREET");
        customers.RecordSet_SQL = "SELECT ID\nFROM customer";
        ActivityProperties& load = graph.activity("Load", {"ID", "Street"}, {"Key"});
        load.Act_Inputs->Item(2)->Attribute_Type = 1;
        load.Act_LDL = "load(X) <- customers(X).";
        load.Act_Description = "gives keys";
        load.Act_Log = "C:\\rejected.txt";
        load.Act_Outputs->Item(1)->Key = "Load.Output1";
        load.Act_Parameters->Add("Region", 1, TagConstant, "Region").RegulatedFrom->Add("EMEA", LinkConstant, "EMEA");
        Lazy<FunctionParameters> inputs;
        inputs->Add("Amount", 0, "Amount");
        load.Act_Functions->Add("Total", 0, std::move(inputs), {}, "Load.Sum1").Function_Key = "Load.Sum1";
        graph.feed("CUSTOMERS.ID", "Load.IN.ID");
        graph.edge("CUSTOMERS", "Load");
        form.Labels.Add({}, "Comment1", canvas::NodeTypeComment).setComment("Ask ÖZGÜR about keys");
        form.touched.emplace();
    }

    std::string hits(const std::string& text, std::size_t piece = 1'000'000) {
        TextSearch search(index, parseQuery(text), unfinished);
        std::vector<TextHit> found;
        while (search.searchOn(piece, found)) {
        }
        std::string told;
        for (const TextHit& hit : found) {
            const PlaceWords words = wordsOf(form, hit.place, hit.text, tables);
            told += words.owner + (words.member.empty() ? "" : " " + std::string(wordOf(words.kind)) + " ") +
                    words.member + " (" + std::string(titleOf(hit.text)) + "); ";
        }
        return told;
    }

    testkit::CanvasPorts ports;
    canvas::DrawForm form{ports.services()};
    testkit::GraphBuilder graph{form};
    CatalogueTables tables;
    TextIndex index{form, tables};
    Unfinished unfinished;
};

TEST(Search, FindsEachTextAtItsPlace) {
    const struct {
        const char *text, *hits;
    } rows[] = {
        {"", ""},
        {"  ", ""},
        {"load", "Load (name); Load (LDL statement); Load output Key (key); Load function Load.Sum1 (name); "},
        {"customer",
         "CUSTOMERS (name); CUSTOMERS (SQL statement); CUSTOMERS attribute Straße (source column); "
         "Load (LDL statement); "},
        {"STRASSE", ""},
        {"sTRAßE", "CUSTOMERS attribute Straße (name); "},
        {"özgür", "Comment1 (comment); "},
        {"street load", "Load input Street (name); "},
        {"load street", "Load input Street (name); "},
        {"gives load", "Load (description); "},
        {"gives street", ""},
        {"\"ask öz\" keys", "Comment1 (comment); "},
        {"\"is:free\"", ""},
        {"rejected", "Load (rejected rows); "},
        {"surro", "Load (type); "},
        {"emea", "Load parameter Region (constant); "},
        {"amount", "Load function-input Load.Sum1.Amount (name); "},
        {"sum1", "Load function Load.Sum1 (name); "},
        {"type:varchar", "CUSTOMERS attribute Straße (name); Load input Street (name); Load parameter Region (name); "},
        {"type:varchar type:sum kind:input kind:function",
         "Load input Street (name); Load function Load.Sum1 (name); "},
        {"kind:record-set", "CUSTOMERS (name); "},
        {"kind:function", "Load function Load.Sum1 (name); "},
        {"kind:func key", ""},
        {"kind:func am", "Load function-input Load.Sum1.Amount (name); "},
        {"is:free kind:input", "Load input Street (name); "},
        {"is:free load", "Load output Key (key); "},
        {"is:unf", "Load (name); Load output Key (name); "},
        {"kind:nothing load", ""},
        {"is: load", ""},
    };
    Searched of;
    const canvas::NodeNumber load = of.form.NamesColl.Item("Load");
    of.unfinished = {{load, ""}, {load, "Key"}};
    for (const auto& row : rows) {
        EXPECT_EQ(of.hits(row.text), row.hits) << row.text;
        EXPECT_EQ(of.hits(row.text, 1), row.hits) << row.text << ", piece by piece";
    }
    EXPECT_EQ(parseQuery("is:x").fault, "is: takes unfinished or free.");
    EXPECT_EQ(parseQuery("kind:zoom").fault.find("kind: takes activity, record-set, "), 0U);
}

TEST(Search, FollowsWhatIsTouched) {
    Searched of;
    EXPECT_EQ(of.hits("fetch"), "");
    while (of.index.gatherOn(1)) {
    }
    of.form.nodeNamed("Load")->setCaption("Fetch");
    of.index.touch(*of.form.touched);
    EXPECT_EQ(of.hits("fetch"), "Fetch (name); ");
    of.form.Labels.Remove(canvas::NodeNumber{2});
    EXPECT_EQ(of.hits("fetch"), "");
    of.tables.dataTypes.rename(1, "TEXT");
    EXPECT_EQ(of.hits("type:text"), "CUSTOMERS attribute Straße (name); ");
}

TEST(Search, TellsWhereAWordStandsInTheTextItself) {
    const struct {
        const char *text, *word;
        platform::TextRange found;
    } rows[] = {
        {"Straße", "aße", {3, 4}}, {"ȺȺb", "ⱥb", {2, 3}}, {"İx", "ix", {0, 3}}, {"x", "y", {}}, {"x", "", {}},
        {"\xFFZ", "z", {1, 1}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(platform::findLetters(row.text, row.word), row.found) << row.text;
    }
}

}  // namespace
}  // namespace orvent::analysis
