#include "exchange/clipboard.h"

#include <regex>

#include "../zoom/link_graph.h"
#include "canvas/deletion.h"
#include "exchange_fixture.h"
#include "links/canvas_links.h"

namespace orvent::exchange {
namespace {

using testkit::modelText;

class ClipboardTest : public ExchangeTest {
  protected:
    /// Record sets, activities with functions, and links and edges of every kind.
    void buildLinked() {
        const testkit::LinkGraph linked(form);
        for (const auto& [from, to] :
             {std::pair("RS1", "A1"), {"A1", "A2"}, {"A2", "A3"}, {"RS3", "A2"}, {"RS4", "A2"}, {"A2", "RS2"}}) {
            graph.edge(from, to);
        }
        for (canvas::LabelsD& node : form.Labels) {
            node.setLeft(3000.F * static_cast<float>(node.Index()));
            if (node.activity()) {
                node.activity()->Act_Type = 1;
            }
        }
    }

    void select(canvas::DrawForm& in, const std::vector<std::string>& names) {
        in.SelectedLabels.Clear();
        for (const std::string& name : names) {
            in.SelectedLabels.Add(in.NamesColl.Item(name));
        }
    }

    std::string copied(const canvas::DrawForm& from) {
        std::string text = copySelection(from, catalogue, "1.0");
        keep(text);
        return text;
    }

    Inserted pasted(canvas::DrawForm& into, const std::string& text, std::optional<canvas::Point> at = std::nullopt) {
        return paste(into, CopiedText(text), at, {catalogue, dialogs});
    }

    /// The selection of a window alone in a new one, by way of the clipboard, at the places that it has.
    std::string alone(const canvas::DrawForm& from) {
        auto into = newForm();
        pasted(*into, copied(from));
        for (canvas::LabelsD& node : into->Labels) {
            node.setBox({node.Left() - 300, node.Top() - 300, node.Width(), node.Height()});
        }
        return modelText(*into);
    }

    static void deleteSelected(canvas::DrawForm& in) {
        links::CanvasLinks linked;
        canvas::DeleteSelectedNodes(in, canvas::kEveryNodeType, linked, in.rules());
    }
};

TEST_F(ClipboardTest, TakesWhatIsLeftWhenAllElseIsDeleted) {
    buildLinked();
    const std::string before = modelText(form);
    std::vector<std::string> names;
    for (const canvas::LabelsD& node : form.Labels) {
        names.push_back(node.Caption());
    }
    for (unsigned subset = 1; subset < 1U << names.size() && !HasFailure(); subset += 5) {
        std::vector<std::string> chosen, others;
        for (std::size_t at = 0; at < names.size(); ++at) {
            ((subset >> at & 1U) != 0 ? chosen : others).push_back(names[at]);
        }
        if (std::ranges::find(chosen, "C1") == chosen.end() && std::ranges::find(chosen, "A2") != chosen.end()) {
            continue;  // links to a constant go with its node when that is deleted, and stay with a copy
        }
        SCOPED_TRACE(::testing::PrintToString(chosen));
        select(form, chosen);
        const std::string copy = alone(form);
        EXPECT_EQ(modelText(form), before) << "copying changes nothing";

        auto rest = opened(written(form));
        select(*rest, others);
        deleteSelected(*rest);
        EXPECT_EQ(copy, modelText(*rest));

        // In its own window the copy is the same under other names, and it leaves the rest as it was.
        const Inserted inserted = pasted(form, copied(form));
        EXPECT_EQ(inserted.nodes, form.SelectedLabels.members());
        std::string again = std::regex_replace(alone(form), std::regex("_2"), "");
        std::string moved = copy;
        for (const auto* text : {&again, &moved}) {
            *const_cast<std::string*>(text) =
                std::regex_replace(*text, std::regex("' -?[0-9]+ -?[0-9]+ 1050"), "' 1050");
        }
        EXPECT_EQ(again, moved);
        deleteSelected(form);
        EXPECT_EQ(modelText(form), before);
    }
}

TEST_F(ClipboardTest, DuplicatesReadWhatTheOriginalsRead) {
    buildLinked();
    const std::string before = modelText(form);
    select(form, {"A2"});
    const Inserted copy = duplicateSelection(form);
    ASSERT_EQ(copy.nodes.size(), 1u);
    canvas::LabelsD& node = *form.Labels.byIndex(copy.nodes[0]);
    EXPECT_EQ(node.Caption(), "A2_2");
    EXPECT_TRUE(node.Ready());
    EXPECT_EQ(node.EndingLines().Count(), 3) << "from A1, RS3 and RS4";
    EXPECT_EQ(node.StartingLines().Count(), 0);
    // What comes in is doubled, what goes out is not.
    const auto count = [this](const std::string& list, const std::string& owner) {
        const std::string text = modelText(form);
        const std::regex link(list + " '" + owner + "'");
        return std::distance(std::sregex_iterator(text.begin(), text.end(), link), std::sregex_iterator());
    };
    for (const char* provider : {"A1", "RS4"}) {
        EXPECT_GT(count("provided from", provider), 0) << provider;
    }
    EXPECT_EQ(count("provider for", "A2_2"), count("provider for", "A2"));
    EXPECT_EQ(modelText(form).find("provided from 'A2_2' 2"), std::string::npos) << "nobody downstream reads it";
    EXPECT_NE(modelText(form).find("regulator for 'A2_2' 1 'A2_2.PARAM.PUB_ID'"), std::string::npos);
    EXPECT_NE(modelText(form).find("function 'F1_2'"), std::string::npos);
    deleteSelected(form);
    EXPECT_EQ(modelText(form), before);
}

TEST_F(ClipboardTest, CarriesTheRowsThatWereGivenByHand) {
    buildLinked();
    entities::NodeFacts& given = form.facts[form.nodeNamed("RS3")->Index()];
    given.facts = {{"PUB_ID"}, {{"7"}, {std::nullopt}}};
    given.expectations.push_back({});
    select(form, {"RS4", "RS3"});
    auto other = newForm();
    pasted(*other, copied(form));
    duplicateSelection(form);
    for (const auto& [in, name] : {std::pair(other.get(), "RS3"), {&form, "RS3_2"}}) {
        EXPECT_EQ(in->facts.at(in->nodeNamed(name)->Index()), given) << name;
        EXPECT_FALSE(in->facts.contains(in->nodeNamed(in == &form ? "RS4_2" : "RS4")->Index()));
    }
}

TEST_F(ClipboardTest, GivesFreeNamesAndNoIdentifiers) {
    buildLinked();
    form.Labels.Add({0, 0, 1050, 450}, "A1_2", canvas::NodeTypeComment);
    form.nodeNamed("A1")->activity()->NodeID = 7;
    form.nodeNamed("A1")->activity()->Act_Inputs->Item(1)->SubNode_ID = 8;
    select(form, {"A1", "A1_2"});
    const std::string text = copied(form);
    const std::vector<std::string> expected[] = {{"A1_3", "A1_2_2"}, {"A1_4", "A1_2_3"}};
    for (const auto& names : expected) {
        std::vector<std::string> got;
        for (const canvas::NodeNumber node : pasted(form, text).nodes) {
            got.push_back(form.Labels.byIndex(node)->Caption());
        }
        EXPECT_EQ(got, names);
    }
    EXPECT_EQ(form.nodeNamed("A1_3")->activity()->NodeID, 0);
    EXPECT_EQ(form.nodeNamed("A1_3")->activity()->Act_Inputs->Item(1)->SubNode_ID, 0);
    select(form, {"A1"});
    duplicateSelection(form);
    EXPECT_EQ(form.nodeNamed("A1_5")->activity()->NodeID, 0);
    EXPECT_EQ(form.nodeNamed("A1_5")->activity()->Act_Inputs->Item(1)->SubNode_ID, 0);
    EXPECT_EQ(form.nodeNamed("A1")->activity()->NodeID, 7);
    // Nor by a document that a window keeps for itself.
    for (const canvas::NodeNumber node : pasted(form, written(form, true)).nodes) {
        const std::int16_t* id = form.Labels.byIndex(node)->rowIdentifier();
        EXPECT_TRUE(!id || *id == 0);
    }
}

TEST_F(ClipboardTest, TellsFunctionsOfOneNameApart) {
    buildLinked();
    form.nodeNamed("A3")->activity()->Act_Functions->AddFunctionProps({}, "F1", 0);
    select(form, {"A2", "A3"});
    duplicateSelection(form);
    EXPECT_TRUE(form.nodeNamed("A2_2")->activity()->Act_Functions->Item("F1_2"));
    EXPECT_TRUE(form.nodeNamed("A3_2")->activity()->Act_Functions->Item("F1_3"));
}

TEST_F(ClipboardTest, HoldsNoLinkThatLeadsOutOfTheText) {
    buildLinked();
    select(form, {"A2", "RS2"});
    const auto copy = opened(copied(form));
    EXPECT_EQ(last.words, "");
    EXPECT_EQ(modelText(*copy).find("'A1' 2"), std::string::npos);
}

TEST_F(ClipboardTest, StandsWhereItIsMeant) {
    graph.recordSet("RS1");
    graph.recordSet("RS2");
    form.nodeNamed("RS1")->setBox({1000, 1000, 1000, 500});
    form.nodeNamed("RS2")->setBox({3000, 2000, 1000, 500});
    select(form, {"RS1", "RS2"});
    const std::string text = copied(form);
    const auto place = [&](std::optional<canvas::Point> at) {
        const canvas::LabelsD& node = *form.Labels.byIndex(pasted(form, text, at).nodes.front());
        return std::pair(node.Left(), node.Top());
    };
    EXPECT_EQ(place(canvas::Point{6500, 4750}), std::pair(5000.F, 4000.F));
    EXPECT_EQ(place(canvas::Point{6500, 4750}), std::pair(5300.F, 4300.F)) << "beside the one of before";
    EXPECT_EQ(place(canvas::Point{10, 10}), std::pair(0.F, 0.F)) << "within the picture";
    EXPECT_EQ(place(std::nullopt), std::pair(1300.F, 1300.F));
    EXPECT_EQ(place(std::nullopt), std::pair(1600.F, 1600.F)) << "not on the former copy";
}

TEST_F(ClipboardTest, PastesNothingWhenAnythingIsWrong) {
    buildLinked();
    const std::string before = modelText(form);
    select(form, {"A1"});
    std::string text = copied(form);
    EXPECT_TRUE(mayBeDocument(text));
    EXPECT_FALSE(mayBeDocument("{\"a\": 1}"));
    EXPECT_THROW(pasted(form, text.substr(0, text.size() / 2)), BadDocument);
    EXPECT_EQ(copySelection(*newForm(), catalogue, "1.0"), "");
    text = std::regex_replace(text, std::regex("\"Join\""), "\"Merge\"");
    press = [](MissingTypesForm&) {};
    EXPECT_TRUE(pasted(form, text).nodes.empty());
    EXPECT_EQ(modelText(form), before);
    press = [](MissingTypesForm& question) { question.cmdWithout_Click(); };
    EXPECT_EQ(pasted(form, text).nodes.size(), 1u);
    EXPECT_EQ(catalogue.names.activityTypes.shown(form.nodeNamed("A1_2")->activity()->Act_Type), "Merge (gone)");
}

TEST_F(ClipboardTest, LetsStatementsFollowTheNames) {
    graph.recordSet("AUTHORS", {"NAME"});
    graph.recordSet("OTHER", {"NAME"});
    graph.recordSet("MY SET", {"NAME"});
    graph.recordSet("HIS_SET", {"FULL_NAME"});
    auto& load = graph.activity("Load", {"ID", "Name"}, {"ID", "Load.key"});
    auto& next = graph.activity("Next", {"Load.key"}, {});
    graph.feed("Load.OUT.Load.key", "Next.IN.Load.key");
    entities::FunctionProperties function;
    function.Function_Key = function.Function_Name = "MyFun";
    function.setParentKeyName("Load");
    load.Act_Functions->AddFunctionProps(function, "", 0);
    const std::string uncertain = "It is not certain what ";
    const struct {
        const char* text;
        const char* copy;
        std::string why;
    } cases[] = {
        {"", "", ""},
        {"load_out(Load_OUT_ID,Load_OUT_Load.key)<-load_in1(Load_IN1_ID,Load_IN2_Name).",
         "load_2_out(Load_2_OUT_ID,Load_2_OUT_Load_2.key)<-load_2_in1(Load_2_IN1_ID,Load_2_IN2_Name).", ""},
        {"load_in12(X), load_out (Y)", "load_2_in12(X), load_2_out (Y)", ""},
        {"Load_OUT_TOTAL = myFun(Load_IN1_ID)", "Load_2_OUT_TOTAL = myFun_2(Load_2_IN1_ID)", ""},
        {"aUTHORS(AUTHORS_NAME), OTHER_NAME", "aUTHORS_2(AUTHORS_2_NAME), OTHER_NAME", ""},
        {"MY SET_NAME, HIS_SET_FULL_NAME", "MY SET_2_NAME, HIS_SET_2_FULL_NAME", ""},
        {"myLoad_out(X), download, reload_in1(Y)", "myLoad_out(X), download, reload_in1(Y)", ""},
        {"% of Load\nload_out(X)", nullptr, uncertain + "\"Load\" means in the copy."},
        {"load_in(X)", nullptr, uncertain + "\"load_in\" means in the copy."},
        {"LOAD_OUT_ID", nullptr, uncertain + "\"LOAD_OUT_ID\" means in the copy."},
        {"AUTHORS_SURNAME", nullptr, uncertain + "\"AUTHORS_SURNAME\" means in the copy."},
        {"next_in1(X)", nullptr, uncertain + "\"next_in1\" means in the copy."},
    };
    for (const auto& [text, copy, why] : cases) {
        SCOPED_TRACE(text);
        load.Act_LDL = text;
        next.Act_LDL = "next_in1(Next_IN1_Load.key)";
        select(form, {"AUTHORS", "MY SET", "HIS_SET", "Load", "Next"});
        const Inserted inserted = duplicateSelection(form);
        const auto& copied = *form.Labels.byIndex(inserted.nodes[3])->activity();
        EXPECT_EQ(copied.Act_LDL, copy ? copy : text);
        EXPECT_EQ(inserted.uncertain.size(), why.empty() ? 0u : 1u);
        EXPECT_EQ(copied.statementDoubt, why);
        if (!inserted.uncertain.empty()) {
            EXPECT_EQ(inserted.uncertain[0], (UncertainStatement{"Load_2", why}));
        }
        EXPECT_EQ(form.nodeNamed("Next_2")->activity()->Act_LDL, "next_2_in1(Next_2_IN1_Load_2.key)");
        deleteSelected(form);
    }
    graph.recordSet("X_IN1", {"ID"});
    graph.activity("X", {"ID"}).Act_LDL = "X_IN1_ID";
    select(form, {"X_IN1", "X"});
    EXPECT_EQ(duplicateSelection(form).uncertain.size(), 1u) << "an input of X, or a column of X_IN1";
    select(form, {"Load"});
    load.Act_LDL = "aUTHORS(AUTHORS_NAME)";
    EXPECT_EQ(form.Labels.byIndex(duplicateSelection(form).nodes[0])->activity()->Act_LDL, load.Act_LDL)
        << "it reads the record set that the original reads";
}

}  // namespace
}  // namespace orvent::exchange
