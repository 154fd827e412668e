#include <regex>

#include "exchange_fixture.h"
#include "random_scenario.h"

using namespace std::string_literals;

namespace orvent::exchange {
namespace {

class DocumentTest : public ExchangeTest {
  protected:
    void buildSmall() {
        form.setScenarioName("Books");
        graph.recordSet("RS1", {"ID", "NAME"}).addDbKey("ID", "demo.BOOKS.ID");
        entities::ActivityProperties& load = graph.activity("Load", {"ID"}, {"ID"});
        load.Act_Type = 1;
        load.Act_SchemaNo = 2;
        load.Act_LDL = "load(X):-\n  books(X).";
        entities::FunctionProperties function;
        function.Function_Key = function.Function_Name = "Load.f";
        function.Function_Source = entities::SourceActivityType;
        auto& input = function.Function_Inputs->Add("a", 0, "a");
        input.NodeKind = entities::KindFunctionInput;
        input.ParentKeyName = "Load.f";
        function.setParentKeyName("Load");
        load.Act_Functions->AddFunctionProps(function, "", 0);
        graph.feed("RS1.ID", "Load.IN.ID");
        graph.pass("Load", "ID", "ID");
        form.Labels.Add({100, 200.5F, 1500, 750}, "Comment1", canvas::NodeTypeComment).setComment("nightly");
        graph.edge("RS1", "Load");
    }

    std::string refusal(const std::string& text) {
        try {
            readDocument(text);
            return "(read)";
        } catch (const BadDocument& bad) {
            return bad.description();
        }
    }
};

TEST_F(DocumentTest, IsMadeForPeople) {
    buildSmall();
    EXPECT_EQ(written(form), R"({
  "format": "orvent scenario",
  "version": 1,
  "program": "1.0",
  "name": "Books",
  "nodes": [
    {
      "name": "RS1",
      "kind": "recordSet",
      "box": [0, 0, 1050, 450],
      "attributes": [
        {"key": "ID", "type": "NUMBER", "source": "demo.BOOKS.ID",
          "providerFor": [{"node": "Load", "type": "recordSet", "key": "Load.IN.ID"}]},
        {"key": "NAME", "type": "NUMBER"}
      ]
    },
    {
      "name": "Load",
      "kind": "activity",
      "box": [0, 0, 1050, 450],
      "type": "Join",
      "schemata": 2,
      "ldl": [
        "load(X):-",
        "  books(X)."
      ],
      "inputs": [
        {"key": "ID", "type": "NUMBER",
          "providedFrom": [{"node": "RS1", "type": "recordSet", "key": "RS1.ID"}],
          "providerFor": [{"node": "Load", "type": "input", "key": ".OUT.ID"}]}
      ],
      "outputs": [
        {"key": "ID", "type": "NUMBER",
          "providedFrom": [{"node": "Load", "type": "input", "key": ".IN.ID"}]}
      ],
      "functions": [
        {
          "key": "Load.f",
          "type": "Sum",
          "source": 9,
          "inputs": [
            {"key": "a", "type": "NUMBER"}
          ]
        }
      ]
    },
    {
      "name": "Comment1",
      "kind": "comment",
      "box": [100, 200.5, 1500, 750],
      "comment": "nightly"
    }
  ],
  "edges": [
    {"from": "RS1", "fromPoint": 3, "to": "Load", "toPoint": 1, "kind": "provider", "angle": "straight"}
  ],
  "types": {
    "data": [
      "DATE",
      "NUMBER"
    ],
    "functions": [
      {
        "name": "Sum",
        "description": "adds",
        "inputs": [
          {"name": "a", "type": "NUMBER"},
          {"name": "b", "type": "NUMBER"}
        ],
        "outputs": [
          {"name": "sum", "type": "NUMBER"}
        ]
      }
    ],
    "activities": [
      {
        "name": "Join",
        "description": [
          "of two",
          "sources"
        ],
        "sql": "select",
        "schemata": 2,
        "outputs": [
          {"name": "key", "type": "DATE"}
        ],
        "parameters": [
          {"name": "p", "type": "NUMBER"}
        ],
        "functions": [
          {"name": "f", "type": "Sum"}
        ]
      }
    ]
  }
}
)");
}

/// The first line in which two texts differ, as both have it.
std::string firstDifference(const std::string& a, const std::string& b) {
    std::istringstream one(a);
    std::istringstream two(b);
    for (std::string line, other; a != b;) {
        const bool more = static_cast<bool>(std::getline(one, line));
        if (!std::getline(two, other) || !more || line != other) {
            return line + "\n" + other;
        }
    }
    return "";
}

/// The lines that only one of two texts has at their place.
int changedLines(const std::string& before, const std::string& after) {
    std::istringstream a(before);
    std::istringstream b(after);
    int changed = 0;
    for (std::string line, other; std::getline(a, line) && std::getline(b, other);) {
        changed += line != other;
    }
    return changed;
}

TEST_F(DocumentTest, ChangesOneLineForOneChange) {
    buildSmall();
    const std::string before = written(form);
    const auto edits = {
        +[](canvas::DrawForm& copy) { copy.nodeNamed("Load")->setLeft(4000); },
        +[](canvas::DrawForm& copy) { copy.nodeNamed("Load")->activity()->Act_LDL = "load(Y):-\n  books(X)."; },
        +[](canvas::DrawForm& copy) {
            copy.nodeNamed("RS1")->recordSet()->RecordSet_Outputs->Item(2)->Attribute_Type = 2;
        },
        +[](canvas::DrawForm& copy) { copy.Lines.at(1)->setAngle(canvas::AngleNone); }};
    for (const auto& edit : edits) {
        auto copy = opened(before);
        edit(*copy);
        const std::string after = written(*copy);
        EXPECT_EQ(std::ranges::count(after, '\n'), std::ranges::count(before, '\n'));
        EXPECT_EQ(changedLines(before, after), 1);
    }
}

TEST_F(DocumentTest, WalksThereAndBack) {
    for (unsigned seed = 0; seed < 120 && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        auto original = newForm();
        const RandomScenario filled(*original, seed);
        const bool stored = seed % 2 == 0;
        if (stored) {
            std::int16_t next = 1;
            for (canvas::LabelsD& node : original->Labels) {
                if (std::int16_t* id = node.rowIdentifier()) {
                    *id = next++;
                }
                if (auto* activity = node.activity(); activity && seed % 3 == 0) {
                    for (auto& output : activity->Act_Outputs) {
                        output.SubNode_ID = next++;
                        output.Changed = next % 2 == 0;
                    }
                    activity->Act_Inputs->Changed = next % 3 == 0;
                }
            }
            original->ScenarioID = next;
            original->stored = {~0ULL - seed, seed % 4 == 0, {{5, 1}, {2, 0xabcdefULL << 32U}}};
            original->DeletedNodes->Add(7, entities::DeletedActivity);
            original->DeletedNodes->Add(9, entities::KindInput);
        }
        original->KeepDuplicates = seed % 3 == 0;
        const std::string text = written(*original, stored);
        const auto copy = opened(text);
        ASSERT_TRUE(last.opened);
        EXPECT_EQ(copy->facts, original->facts);
        EXPECT_EQ(copy->KeepDuplicates, original->KeepDuplicates);
        EXPECT_EQ(testkit::modelText(*copy), testkit::modelText(*original));
        EXPECT_EQ(firstDifference(written(*copy, stored), text), "");
        EXPECT_EQ(copy->ScenarioID, original->ScenarioID);
        for (int at = 1; at <= copy->Lines.Count(); ++at) {  // several nodes may show one name
            EXPECT_EQ(copy->Lines.at(at)->FromLabel(), original->Lines.at(at)->FromLabel());
        }
        for (int at = 1; at <= copy->Labels.Count(); ++at) {
            EXPECT_EQ(copy->Labels.at(at)->Ready(), original->Labels.at(at)->Ready()) << copy->Labels.at(at)->Caption();
        }
        if (stored) {
            EXPECT_EQ(written(*opened(written(*original)), true).find("\"ids\": [1,"), std::string::npos)
                << "an exported file knows no rows";
        }
    }
}

TEST_F(DocumentTest, DoesNotDependOnTheOrderOfTheCatalogue) {
    buildSmall();
    const std::string text = written(form);
    MemoryCatalogue other;
    other.names = {};
    for (const char* name : {"DATE", "XML", "NUMBER"}) {
        other.names.dataTypes.add(name);
    }
    for (const char* name : {"Now", "Sum"}) {
        other.names.functionTypes.add(name);
    }
    for (const char* name : {"Join", "Copy"}) {
        other.names.activityTypes.add(name);
    }
    std::swap(catalogue.names, other.names);
    const auto copy = opened(text);
    EXPECT_EQ(copy->nodeNamed("Load")->activity()->Act_Type, 0);
    EXPECT_EQ(written(*copy), text);
}

TEST_F(DocumentTest, NeedsOneEndOfALinkOnly) {
    buildSmall();
    const std::string before = testkit::modelText(form);
    const std::string text =
        std::regex_replace(written(form), std::regex(",\n *\"providedFrom\": [^\n]*\\]([,}])"), "$1");
    ASSERT_EQ(text.find("providedFrom"), std::string::npos);
    EXPECT_EQ(testkit::modelText(*opened(text)), before);
    EXPECT_EQ(last.words, "");
}

TEST_F(DocumentTest, KeepsLinksThatLeadToNothingAndTellsThem) {
    buildSmall();
    form.nodeNamed("Load")->activity()->Act_Inputs->Item("ID")->ProvidedFrom->Add("RS9", entities::LinkRecordSet,
                                                                                  "RS9.A");
    form.nodeNamed("Load")->activity()->Act_Inputs->Item("ID")->ProvidedFrom->Add("C", entities::LinkConstant, "C");
    const std::string text = written(form);
    EXPECT_EQ(written(*opened(text)), text);
    EXPECT_EQ(last.words, "Links lead to what is not there, in: Load.");
}

TEST_F(DocumentTest, MakesBytesThatAreNoTextVisible) {
    for (const char* broken : {"\xff", "\xc3", "\xc0\xaf", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\xe2\x82"}) {
        form.setScenarioName(std::string("a") + broken + "b");
        const auto copy = opened(written(form));
        EXPECT_TRUE(std::regex_match(copy->ScenarioName(), std::regex("a(\xEF\xBF\xBD)+b"))) << copy->ScenarioName();
    }
}

/// A document around these nodes, edges and whatever else.
std::string around(const std::string& nodes, const std::string& more = "") {
    return R"({"format": "orvent scenario", "version": 1, "name": "X", "nodes": [)" + nodes + "]" + more + "}";
}

/// An activity with these members beside name, kind and box.
std::string activity(const std::string& more, const std::string& name = "A") {
    return R"({"name": ")" + name + R"(", "kind": "activity", "box": [0, 0, 300, 300], )" + more + "}";
}

TEST_F(DocumentTest, AnswersBadTextsWithThePlace) {
    const std::string node = activity(R"("schemata": 1)");
    const std::string edge = R"("fromPoint": 1, "toPoint": 2})";
    const auto input = [](const std::string& members) { return around(activity("\"inputs\": [" + members + "]")); };
    const auto stored = [&](const std::string& nodes) {
        return around(node, R"(, "stored": {"scenario": 1, "changed": false, "mark": "1f", "nodes": )" + nodes + "}");
    };
    const struct {
        std::string text, words;
    } cases[] = {
        // no JSON at all
        {"", "Line 1, column 1: while parsing value - unexpected end of input; expected '[', '{', or a literal."},
        {"{\n  \"format\" 1}",
         "Line 2, column 12: while parsing object separator - unexpected number literal; expected ':'."},
        {"\xff\xfe{\0"s, "Line 1, column 1: the text begins with the mark of UTF-16; a scenario is UTF-8."},
        {"\xfe\xff\0{"s, "Line 1, column 1: the text begins with the mark of UTF-16; a scenario is UTF-8."},
        {"\xef\xbb{}", "Line 1, column 1: the text begins with a broken byte order mark."},
        {"\xef\xbb\xbf" + around(node), "(read)"},
        {around(node) + "x",
         "Line 1, column 143: while parsing value - invalid literal; last read: '1}]}x'; expected end of input."},
        // something else
        {"[]", "This is no scenario: it does not say \"format\": \"orvent scenario\"."},
        {R"({"version": 1})", "This is no scenario: it does not say \"format\": \"orvent scenario\"."},
        {R"({"format": "orvent scenario"})", "\"version\" is missing."},
        {R"({"format": "orvent scenario", "version": 0})",
         "version: the number is out of range; expected a whole number from 1 to 9223372036854775807."},
        {R"({"format": "orvent scenario", "version": 2, "news": []})",
         "This scenario was written by a later program: its format is version 2, and this program reads version 1."},
        {R"({"format": "orvent scenario", "version": 1})", "\"name\" is missing."},
        {around("", R"(, "color": 1)"), "color: no such member is known."},
        {around("", R"(, "box": 1)"), "box: no such member is known here."},
        {around("", R"(, "name": "Y")"), "name: this member is there twice."},
        // nodes
        {around("7"), "nodes[0]: expected an object, found a number."},
        {around(node + R"(, {"name": "B", "kind": "log"})"), "nodes[1]: \"box\" is missing."},
        {around(R"({"name": "B", "kind": "sheet", "box": []})"), "nodes[0].kind: there is no \"sheet\" here."},
        {around(R"({"name": "B", "kind": 1.5, "box": []})"),
         "nodes[0].kind: expected a word or a number, found a number."},
        {around(R"({"name": "B", "kind": 99999, "box": []})"),
         "nodes[0].kind: the number is out of range; expected a whole number from -32768 to 32767."},
        {around(R"({"name": "B", "kind": "log", "box": [1, 2, 3]})"),
         "nodes[0].box: expected left, top, width and height."},
        {around(R"({"name": "B", "kind": "log", "box": [1, 2, "3", 4]})"),
         "nodes[0].box[2]: expected a number of twips, found a text."},
        {around(R"({"name": "B", "kind": "log", "box": [1, -1e30, 3, 4]})"),
         "nodes[0].box[1]: the number is out of range; expected at most 100000000 twips."},
        {around(R"({"name": "B", "kind": "log", "box": [1e39, 2, 3, 4]})"),
         "nodes[0].box[0]: the number is out of range; expected at most 100000000 twips."},
        {around(R"({"name": "B", "kind": "log", "box": [18446744073709551615, 2, 3, 4]})"),
         "nodes[0].box[0]: the number is out of range; expected at most 100000000 twips."},
        {around(R"({"name": "B", "kind": "log", "box": [1, 2, 3, 1e400]})"),
         "Line 1, column 118: number overflow parsing '1e400'."},
        {around(R"({"name": "B", "kind": "log", "box": [1, 2, 3, 4], "sql": ""})"),
         "nodes[0].sql: no such member is known here."},
        {around(node + "," + activity(R"("ldl": "")", "B") + "," + node),
         "nodes[2].name: another node has the name \"A\"."},
        {around(activity(R"("ldl": ["a", 1])")), "nodes[0].ldl[1]: expected a text, found a number."},
        {around(activity(R"("ldl": {})")), "nodes[0].ldl: expected a text or a list of its lines, found an object."},
        {around(activity(R"("schemata": 40000)")),
         "nodes[0].schemata: the number is out of range; expected a whole number from -32768 to 32767."},
        // members and links
        {input(R"({"key": "I"})"), "nodes[0].inputs[0]: \"type\" is missing."},
        {input(R"({"key": "I", "type": 3})"), "nodes[0].inputs[0].type: expected a text, found a number."},
        {input(R"({"key": "I", "type": "T"}, {"key": "I", "type": "T"})"),
         "nodes[0].inputs[1].key: another one of this list has the key \"I\"."},
        {input(R"({"key": "I", "type": "T", "source": "x"})"),
         "nodes[0].inputs[0].source: no such member is known here."},
        {around(activity(R"("parameters": [{"key": "P", "type": "T", "providerFor": []}])")),
         "nodes[0].parameters[0].providerFor: no such member is known here."},
        {input(R"({"key": "I", "type": "T", "providedFrom": {}})"),
         "nodes[0].inputs[0].providedFrom: expected a list, found an object."},
        {input(R"({"key": "I", "type": "T", "providedFrom": [{"node": "A", "type": "input"}]})"),
         "nodes[0].inputs[0].providedFrom[0]: \"key\" is missing."},
        {input(
             R"({"key": "I", "type": "T", "regulatorFor": [{"node": "A", "type": 1, "key": "k"}, {"node": "B", "type": 2, "key": "k"}]})"),
         "nodes[0].inputs[0].regulatorFor[1].key: another link of this list leads to \"k\"."},
        {around(activity(R"("functions": [{"key": "F", "type": "T"}, {"key": "F", "type": "T"}])")),
         "nodes[0].functions[1].key: another one of this list has the key \"F\"."},
        // edges
        {around(node, R"(, "edges": [{"from": "A", "to": "Z", )" + edge + "]"), "edges[0].to: there is no node \"Z\"."},
        {around(node, R"(, "edges": [{"from": 1, "to": "A", )" + edge + "]"),
         "edges[0].from: the number is out of range; expected a whole number from 0 to 0."},
        // types
        {around("", R"(, "types": {"data": ["A", "B", "A"]})"), "types.data: the type \"A\" is there twice."},
        {around("", R"(, "types": {"functions": [{"name": "F", "inputs": [{"name": "i"}]}]})"),
         "types.functions[0].inputs[0]: \"type\" is missing."},
        // rows
        {stored("[]"), "stored.nodes: expected 1 of them."},
        {stored(R"([{"ids": [1]}, {"ids": [1]}])"), "stored.nodes[1]: there is no such node."},
        {stored(R"([{"ids": [1, 2]}])"), "stored.nodes[0].ids: expected 1 identifiers, found 2."},
        {stored(R"([{"ids": [1], "changed": [1]}])"),
         "stored.nodes[0].changed[0]: the number is out of range; expected a whole number from 0 to 0."},
        {around("", R"(, "stored": {"scenario": 1, "changed": 0, "mark": "1", "nodes": []})"),
         "stored.changed: expected true or false, found a number."},
        {around("", R"(, "stored": {"scenario": 1, "changed": true, "mark": "1g", "nodes": []})"),
         "stored.mark: expected a mark of up to 16 hexadecimal digits."},
    };
    for (const auto& [text, words] : cases) {
        EXPECT_EQ(refusal(text), words) << text;
    }
}

TEST_F(DocumentTest, IsNotDrownedByDepth) {
    const std::string deep(1'000'000, '[');
    const std::string words = refusal(around(deep));
    EXPECT_EQ(words.substr(words.find(':')), ": values are nested deeper than 32 levels.");
    EXPECT_EQ(refusal(around(activity("\"inputs\":" + deep))).rfind("nodes[0].inputs[0]", 0), 0u);
}

TEST_F(DocumentTest, IsThereAsAWholeOrNotAtAll) {
    buildSmall();
    const std::string text = written(form, true);
    const std::string empty = testkit::modelText(*newForm());
    std::mt19937 random(1);
    int refused = 0;
    for (std::size_t length = 0; length + 2 < text.size(); ++length) {
        auto into = newForm();
        EXPECT_THROW(openScenario(*into, text.substr(0, length), {catalogue, dialogs}), BadDocument);
        EXPECT_EQ(testkit::modelText(*into), empty);
    }
    press = [](MissingTypesForm&) {};
    for (int round = 0; round < 3000; ++round) {
        std::string other = text;
        other[random() % other.size()] = static_cast<char>(random());
        auto into = newForm();
        try {
            if (!openScenario(*into, other, {catalogue, dialogs}).opened) {
                EXPECT_EQ(testkit::modelText(*into), empty);
            }
        } catch (const BadDocument&) {
            ++refused;
            EXPECT_EQ(testkit::modelText(*into), empty);
            EXPECT_EQ(into->ScenarioID, 0);
        }
    }
    EXPECT_GT(refused, 1000);
}

}  // namespace
}  // namespace orvent::exchange
