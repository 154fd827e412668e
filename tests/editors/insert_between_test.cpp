#include "editors/insert_between.h"

#include <algorithm>

#include "editors/taken_columns.h"
#include "testkit/graph_builder.h"

namespace orvent::editors {
namespace {

using namespace entities;

class InsertBetween : public testkit::GraphTest {
  protected:
    /// What is read from where, by which kinds of links, and who reads it in which order.
    std::string told(const AttributeProperties& member) {
        std::string text = std::to_string(static_cast<int>(member.Tag)) + (member.Changed ? "!" : "");
        for (const ProviderProperties& link : member.ProvidedFrom) {
            text += " " + std::to_string(static_cast<int>(link.type())) + " " + std::string(link.key());
        }
        for (const ProviderProperties& link : member.ProviderFor) {
            text += " > " + std::string(link.key());
        }
        return text;
    }
    std::string edges() {
        std::string text;
        for (const canvas::LinesD& edge : form.Lines) {
            text += form.Labels.byIndex(edge.FromLabel())->Caption() + std::to_string(edge.FromGrabbingPoint()) + " " +
                    form.Labels.byIndex(edge.ToLabel())->Caption() + std::to_string(edge.ToGrabbingPoint()) +
                    (edge.Angle() == canvas::AngleVerticalUp ? "" : " straight") + ", ";
        }
        return text;
    }
    canvas::LinesD& edge(const char* from, const char* to, std::int16_t at) {
        return *form.Lines.addFullLine(form.NamesColl.Item(from), 2, form.NamesColl.Item(to), at,
                                       canvas::EdgeTypeProvider, canvas::AngleVerticalUp, 0);
    }
    void tag(const char* input, TagCode code) {
        AttributeProperties& member = graph.attribute(input);
        member.Tag = code;
        for (ProviderProperties& link : member.ProvidedFrom) {
            link.Provider_Type = link.name() == "A" ? LinkActivity : LinkRecordSet;
        }
    }
};

TEST_F(InsertBetween, TheActivityTakesTheSourcesPlaceInTheLinksOfItsTarget) {
    graph.recordSet("RS", {"X", "Y"});
    graph.recordSet("Far", {"X"});
    graph.activity("A", {}, {"X"});
    graph.activity("T", {"once", "twice", "own", "mixed", "late"});
    graph.activity("Other", {"x"});
    graph.activity("Last", {"x"});
    graph.recordSet("Into", {"X"});
    for (const char* input : {"T.IN.once", "T.IN.twice", "Other.IN.x", "Last.IN.x"}) {
        graph.feed("RS.X", input);
    }
    graph.feed("RS.Y", "T.IN.own");
    graph.feed("Far.X", "T.IN.mixed");
    graph.feed("RS.Y", "T.IN.mixed");
    graph.feed("A.OUT.X", "T.IN.late");
    graph.feed("A.OUT.X", "Into.X");
    for (const char* input : {"T.IN.once", "T.IN.twice", "T.IN.mixed"}) {
        tag(input, TagRecordSet);
    }
    tag("T.IN.own", TagTypeOutput);
    const auto insert = [&](const char* name, const char* from, const char* to, bool shortNames = false) {
        graph.activity(name);
        insertBetween(form, edge(from, to, 1), *form.nodeNamed(name), shortNames);
    };
    form.touched.emplace();
    form.nodeNamed("T")->activity()->Act_Inputs->Changed = false;
    insert("N", "RS", "T");
    EXPECT_EQ(told(graph.attribute("T.IN.once")), "2! 2 N.OUT.RS_X");
    EXPECT_EQ(told(graph.attribute("T.IN.twice")), "2! 2 N.OUT.RS_X");
    EXPECT_EQ(told(graph.attribute("T.IN.own")), "7! 2 N.OUT.RS_Y") << "what its type brought stays that";
    EXPECT_EQ(told(graph.attribute("T.IN.mixed")), "1! 1 Far.X 2 N.OUT.RS_Y") << "it is what its first link is";
    EXPECT_EQ(told(graph.attribute("RS.X")), "0! > N.IN.RS_X > Other.IN.x > Last.IN.x");
    EXPECT_TRUE(form.nodeNamed("T")->activity()->Act_Inputs->Changed);
    EXPECT_NE(std::ranges::find(form.touched->nodes, form.NamesColl.Item("RS")), form.touched->nodes.end());
    insert("M", "A", "Into", true);
    EXPECT_EQ(told(graph.attribute("Into.X")), "0! 1 M.OUT.A_X");
    EXPECT_EQ(form.nodeNamed("M")->activity()->Act_Inputs->Item("A_X")->Attribute_Name, "X");
    EXPECT_EQ(edges(), "N4 T1, RS2 N1, M4 Into1, A2 M1, ");
}

TEST_F(InsertBetween, WhatTheSourceGovernsItGoesOnToGovern) {
    const struct {
        const char* name;
        std::vector<const char*> governs;
        std::vector<std::pair<const char*, std::int16_t>> drawn;
        const char* edges;
    } rows[] = {
        {"nothing", {}, {}, ""},
        {"of another one", {"Far"}, {}, ""},
        {"the first of two", {"RS", "Far"}, {}, "RS2 T5, "},
        {"drawn before", {"RS"}, {{"T", kControlPoint}}, ""},
        {"drawn elsewhere", {"RS"}, {{"Other", kControlPoint}, {"T", 2}}, "RS2 T5, "},
    };
    for (const auto& row : rows) {
        form.clear();
        for (const char* name : {"RS", "Far"}) {
            graph.recordSet(name, {"X"});
        }
        for (const char* name : {"T", "Other", "N"}) {
            graph.activity(name, {"x"});
        }
        std::string drawn = "N4 T1, ";
        canvas::LinesD& between = edge("RS", "T", 1);
        for (const auto& [to, at] : row.drawn) {
            edge("RS", to, at);
            drawn += std::string("RS2 ") + to + std::to_string(at) + ", ";
        }
        ParameterProperties& parameter = form.nodeNamed("T")->activity()->Act_Parameters->Add("P", 0, TagNone, "P");
        for (const char* name : row.governs) {
            parameter.RegulatedFrom->Add(name, LinkRecordSet, std::string(name) + ".X");
        }
        insertBetween(form, between, *form.nodeNamed("N"), false);
        EXPECT_EQ(edges(), drawn + "RS2 N1, " + row.edges) << row.name;
    }
}

}  // namespace
}  // namespace orvent::editors
