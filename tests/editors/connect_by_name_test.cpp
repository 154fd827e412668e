#include "editors/connect_by_name.h"

#include "editors/column_offers.h"
#include "testkit/graph_builder.h"
#include "zoom/apply_zoom_changes.h"
#include "zoom/zoom_fixture.h"

namespace orvent::editors {
namespace {

using namespace entities;

TEST(NamePairs, NamesFitMoreOrLess) {
    using enum links::NameMatch;
    struct Row {
        const char *owner, *source, *target;
        links::NameMatch match;
    };
    for (const Row& row : {Row{"EMP", "ID", "ID", equal}, Row{"EMP", "ID", "EMP_ID", withoutOwner},
                           Row{"EMP", "Emp_ID", "ID", withoutOwner}, Row{"A1", "A1.O12", "O12", withoutOwner},
                           Row{"EMP", "FIRST_NAME", "firstName", folded}, Row{"EMP", "ID", "emp_id", folded},
                           Row{"EMP", "LOYEE", "EMPLOYEE", none}, Row{"EMP", "EMP_", "", none},
                           Row{"", "_ID", "ID", folded}, Row{"EMP", "ID", "DIM_ID", none}}) {
        EXPECT_EQ(links::matchOf({row.owner, row.source}, {"Other", row.target}), row.match)
            << row.source << " and " << row.target;
    }
}

TEST(NamePairs, OnlyTheBestAreProposed) {
    const std::vector<links::NamedEnd> sources = {{"EMP", "id"}, {"EMP", "ID"}, {"EMP", "I_D"}, {"EMP", "EMP_ID"}};
    std::string pairs;
    for (const links::NamePair& pair : links::pairsByName(sources, {{"Other", "ID"}, {"Other", "i_d"}},
                                                          [](std::size_t, std::size_t) { return true; })) {
        pairs += sources[pair.source].name + ">" + std::to_string(pair.target) + (pair.only ? "! " : " ");
    }
    EXPECT_EQ(pairs, "ID>0! id>1 ID>1 I_D>1 EMP_ID>1 ");
}

class ConnectByNameTest : public testkit::ZoomTest {
  protected:
    ConnectByNameTest() {
        catalogue.dataTypes.add(kDefinedBySource);
        for (canvas::DrawForm* each : {&design, &other}) {
            testkit::GraphBuilder built(*each);
            built.recordSet("EMP", {"ID", "FIRST_NAME", "Pay", "PAY", "AGE", "CITY", "FED"}).RecordSet_Name = "EMP";
            built.activity("Load", {"EMP_ID", "firstname", "pay", "AGE", "CITY", "FED"}, {"EMP_ID", "FED"});
            ActivityProperties& load = *each->nodeNamed("Load")->activity();
            load.Act_Name = "Load";
            ParameterProperties& parameter = load.Act_Parameters->Add("P", 0, TagNone, "P");
            parameter.ParentKeyName = "Load";
            parameter.RegulatorFor->Add("Load", LinkParameterOutput, ".OUT.FED");
            load.Act_Outputs->Item("FED")->RegulatedFrom->Add("Load", LinkParameterOutput, ".PARAM.P");
            load.Act_Inputs->Changed = false;
            built.recordSet("DIM", {"emp_id"}).RecordSet_Name = "DIM";
            built.edge("EMP", "Load");
            built.edge("Load", "DIM");
            built.feed("EMP.FED", "Load.IN.FED");
            built.attribute("Load.IN.AGE").Attribute_Type = 1;
            built.attribute("EMP.CITY").Attribute_Type = 1;
            built.attribute("Load.IN.CITY").Attribute_Type = 2;
        }
    }

    static Texts rows(const ConnectByName& dialog) {
        Texts lines;
        for (const ConnectRow& row : dialog.Rows) {
            lines.push_back((row.checked    ? "+"
                             : row.possible ? "?"
                                            : "-") +
                            row.from + " " + row.to + " " + row.remark);
        }
        return lines;
    }
    static void check(ConnectByName& dialog, const std::string& from, const std::string& to, bool on) {
        for (std::size_t at = 0; at < dialog.Rows.size(); ++at) {
            if (dialog.Rows[at].from == from && dialog.Rows[at].to == to) {
                dialog.Row_Check(at, on);
                return;
            }
        }
        ADD_FAILURE() << from << " " << to;
    }
    ConnectByName connecting(canvas::CanvasForm& over) { return {ports.messages, catalogue, over}; }
    ConnectByName connecting(const char* first, const char* second) {
        design.SelectedLabels.Clear();
        for (const char* name : {first, second}) {
            design.SelectedLabels.Add(design.NamesColl.Item(name));
        }
        return connecting(design);
    }

    /// The links of an activity, and how its inputs came.
    static Texts links(canvas::DrawForm& form) {
        Texts lines = testkit::LinkGraph::lines(testkit::LinkGraph::holdersOf(*form.nodeNamed("Load")->activity()));
        for (const char* name : {"EMP", "DIM"}) {
            for (AttributeProperties& attribute : form.nodeNamed(name)->recordSet()->RecordSet_Outputs) {
                for (const std::string& line : testkit::LinkGraph::lines({&attribute})) {
                    lines.push_back(line);
                }
            }
        }
        for (const AttributeProperties& input : form.nodeNamed("Load")->activity()->Act_Inputs) {
            lines.push_back(input.Key + " " + std::to_string(static_cast<int>(input.Tag)) + " " +
                            std::to_string(input.Attribute_Type));
        }
        return lines;
    }

    canvas::DrawForm other{ports.services(), &store};
};

TEST_F(ConnectByNameTest, TwoNodesAndAViewGiveTheSame) {
    ConnectByName nodes = connecting("Load", "EMP");  // the edge tells which feeds the other
    EXPECT_EQ(nodes.Caption, "EMP → Load");
    const Texts proposed = {"+EMP.ID Load.IN.EMP_ID ",
                            "+EMP.FIRST_NAME Load.IN.firstname ",
                            "?EMP.Pay Load.IN.pay several fit",
                            "?EMP.PAY Load.IN.pay several fit",
                            "-EMP.AGE Load.IN.AGE its type is VARCHAR2(20)",
                            "+EMP.CITY Load.IN.CITY "};
    EXPECT_EQ(rows(nodes), proposed);
    check(nodes, "EMP.AGE", "Load.IN.AGE", true);
    check(nodes, "EMP.PAY", "Load.IN.pay", true);
    check(nodes, "EMP.Pay", "Load.IN.pay", true);  // of two for one input the first counts
    check(nodes, "EMP.FIRST_NAME", "Load.IN.firstname", false);
    EXPECT_TRUE(nodes.OK());
    EXPECT_EQ(nodes.connected, 3);
    ConnectByName on = connecting("Load", "DIM");
    EXPECT_EQ(rows(on), (Texts{"+Load.OUT.EMP_ID DIM.emp_id "}));
    EXPECT_TRUE(on.OK());
    EXPECT_EQ(design.Lines.Count(), other.Lines.Count() + 5) << "the edges were there";

    zoom::ZoomForm view({ports.services(), catalogue, progress, narrow}, other);
    zoom::buildZoomView(view, *other.nodeNamed("Load"));
    ConnectByName members = connecting(view);
    Texts all = proposed;
    all.insert(all.end(), {"+Load.IN.EMP_ID Load.OUT.EMP_ID ", "+Load.OUT.EMP_ID DIM.emp_id "});
    EXPECT_EQ(sorted(rows(members)), sorted(all));
    check(members, "EMP.PAY", "Load.IN.pay", true);
    check(members, "EMP.Pay", "Load.IN.pay", true);
    check(members, "EMP.FIRST_NAME", "Load.IN.firstname", false);
    check(members, "Load.IN.EMP_ID", "Load.OUT.EMP_ID", false);
    EXPECT_TRUE(members.OK());
    EXPECT_EQ(members.connected, 4);
    zoom::ApplyZoomChanges(view, false);
    EXPECT_EQ(links(design), links(other));
    EXPECT_TRUE(design.nodeNamed("Load")->activity()->Act_Inputs->Changed);
    EXPECT_EQ(design.nodeNamed("Load")->activity()->Act_Inputs->Item("CITY")->Attribute_Type, 1);
}

TEST_F(ConnectByNameTest, WhatAnActivityReadIsNoPartOfTheName) {
    testkit::GraphBuilder built(design);
    built.recordSet("OUT", {"FED", "ID"}).RecordSet_Name = "OUT";
    built.activity("EMPTY", {"FED"}, {"EMP_FED", "EMPTY_ID"}).Act_Name = "EMPTY";
    built.feed("EMP.FED", "EMPTY.IN.FED");
    EXPECT_EQ(rows(connecting("EMPTY", "OUT")), (Texts{"+EMPTY.OUT.EMP_FED OUT.FED ", "+EMPTY.OUT.EMPTY_ID OUT.ID "}));
}

TEST_F(ConnectByNameTest, ADrawnEdgeOffersTheColumnsOfItsSource) {
    testkit::GraphBuilder built(other);
    built.recordSet("SRC", {"ID", "AGE"});
    built.activity("Filter", {}, {"AGE"}).Act_Name = "Filter";
    built.recordSet("OUT", {"SRC_ID"});
    built.recordSet("NONE");
    bool shortNames = true;
    const ColumnOffers offers(shortNames);
    other.edgeOffers = &offers;
    const auto offered = [&]() -> std::string {  // beside the offer to straighten
        const std::optional<canvas::Offer> offer = other.offer();
        return offer && offer->button == "Take Over Columns" ? offer->words : "";
    };
    const auto draw = [&](const char* from, const char* to, std::int16_t grab) {
        const canvas::LinesD& edge = *other.Lines.addFullLine(other.NamesColl.Item(from), 3, other.NamesColl.Item(to),
                                                              grab, canvas::EdgeTypeProvider, canvas::AngleStraight, 0);
        other.edgeDrawn(edge);
        return offered();
    };
    const auto members = [](const auto& list) {
        std::string words;
        for (const AttributeProperties& item : *list.peek()) {
            words += item.Key + ":" + item.Attribute_Name + ":" + std::to_string(static_cast<int>(item.Tag));
            for (const ProviderProperties& link : item.ProvidedFrom) {
                words += "<" + link.Provider_Key();
            }
            for (const ProviderProperties& link : item.ProviderFor) {
                words += ">" + link.Provider_Key();
            }
            words += " ";
        }
        return words;
    };
    EXPECT_EQ(draw("SRC", "Filter", 5), "") << "it carries control";
    EXPECT_EQ(draw("NONE", "Filter", 1), "");
    EXPECT_EQ(draw("SRC", "OUT", 1), "");
    EXPECT_EQ(draw("SRC", "Filter", 1), "Filter has nothing of SRC yet.");
    other.answerOffer(false);
    EXPECT_EQ(draw("SRC", "Filter", 1), "Filter has nothing of SRC yet.");
    other.answerOffer(true);
    EXPECT_EQ(offered(), "");
    const ActivityProperties& filter = *other.nodeNamed("Filter")->activity();
    EXPECT_EQ(members(filter.Act_Inputs), "SRC_ID:ID:1<SRC.ID>.OUT.SRC_ID SRC_AGE:SRC_AGE:1<SRC.AGE>.OUT.SRC_AGE ");
    EXPECT_EQ(members(filter.Act_Outputs), "AGE:AGE:0 SRC_ID:ID:3<.IN.SRC_ID SRC_AGE:SRC_AGE:3<.IN.SRC_AGE ");
    EXPECT_EQ(members(other.nodeNamed("SRC")->recordSet()->RecordSet_Outputs),
              "ID:ID:0>Filter.IN.SRC_ID AGE:AGE:0>Filter.IN.SRC_AGE ");
    EXPECT_EQ(draw("SRC", "Filter", 1), "") << "links lead there";

    EXPECT_EQ(draw("Filter", "OUT", 1), "OUT has nothing of Filter yet.");
    other.Lines.RemoveFull(other.LinesNo);
    EXPECT_EQ(offered(), "");
    draw("Filter", "OUT", 1);
    other.answerOffer(true);
    EXPECT_EQ(
        members(other.nodeNamed("OUT")->recordSet()->RecordSet_Outputs),
        "SRC_ID:SRC_ID:0 AGE:AGE:0<Filter.OUT.AGE ID:ID:0<Filter.OUT.SRC_ID SRC_AGE:SRC_AGE:0<Filter.OUT.SRC_AGE ");
    EXPECT_EQ(other.nodeNamed("OUT")->recordSet()->RecordSet_Name, "OUT");
    EXPECT_TRUE(other.nodeNamed("OUT")->Ready());

    built.recordSet("TYPED", {"AGE", "SRC_ID"}).RecordSet_Outputs->Item(1)->Attribute_Type = 1;
    draw("Filter", "TYPED", 1);
    ports.messages.expect("Left out, since TYPED has columns of these names and other types: AGE.", "",
                          platform::Icon::information);
    other.answerOffer(true);
    EXPECT_EQ(members(other.nodeNamed("TYPED")->recordSet()->RecordSet_Outputs),
              "AGE:AGE:0 SRC_ID:SRC_ID:0 ID:ID:0<Filter.OUT.SRC_ID SRC_AGE:SRC_AGE:0<Filter.OUT.SRC_AGE ");

    built.activity("Next").Act_Name = "Next";
    draw("Filter", "Next", 1);
    other.answerOffer(true);
    EXPECT_EQ(members(other.nodeNamed("Next")->activity()->Act_Inputs),
              "Filter_AGE:AGE:2<Filter.OUT.AGE>.OUT.Filter_AGE Filter_SRC_ID:ID:2<Filter.OUT.SRC_ID>.OUT.Filter_SRC_ID "
              "Filter_SRC_AGE:SRC_AGE:2<Filter.OUT.SRC_AGE>.OUT.Filter_SRC_AGE ");
}

TEST_F(ConnectByNameTest, NothingIsProposedWhereNothingCanBeJoined) {
    for (const auto& [first, second] : {std::pair("EMP", "DIM"), {"EMP", "EMP"}}) {
        EXPECT_EQ(connecting(first, second).whyNot, "Select two nodes: an activity, and what it reads or feeds.");
    }
    EXPECT_EQ(connecting("A3", "Load").whyNot, "No two members that may be joined have names that fit.");
    // Without an edge the order of the selection counts, and the edge is drawn.
    testkit::GraphBuilder(design).activity("Next", {"EMP_ID"}).Act_Name = "Next";
    const int edges = design.Lines.Count();
    ConnectByName dialog = connecting("Load", "Next");
    EXPECT_EQ(rows(dialog), (Texts{"+Load.OUT.EMP_ID Next.IN.EMP_ID "}));
    EXPECT_TRUE(dialog.OK());
    ASSERT_EQ(design.Lines.Count(), edges + 1);
    const canvas::LinesD& drawn = *design.Lines.at(edges + 1);
    EXPECT_EQ(drawn.ToLabel(), design.NamesColl.Item("Next"));
    EXPECT_EQ(drawn.FromGrabbingPoint(), 4) << "where data goes out of an activity";
    testkit::GraphBuilder(design).edge("Next", "Load");
    EXPECT_EQ(connecting("Next", "Load").Caption, "Next → Load") << "each feeds the other";
    EXPECT_EQ(connecting("Load", "Next").Caption, "Load → Next");
    check(dialog, "Load.OUT.EMP_ID", "Next.IN.EMP_ID", false);
    EXPECT_FALSE(dialog.mayConnect());
}

}  // namespace
}  // namespace orvent::editors
