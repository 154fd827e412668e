// The dialogs of attributes, parameters, constants and functions of a zoom view.

#include "editors/item_prop.h"

#include "editors/rename_in_place.h"
#include "zoom/apply_zoom_changes.h"
#include "zoom/expand_collapse.h"
#include "zoom/rename_node.h"
#include "zoom/zoom_fixture.h"

using namespace orvent;
using namespace orvent::entities;
using editors::ItemProp;
using platform::Icon;

namespace {

/// A function type with an input and an output.
struct OneType : FunctionTypeSource {
    FunctionTypeProperties GetFunctionType(std::int16_t index) override {
        FunctionTypeProperties type;
        type.FunctionType_Inputs->Add("Value", 1, "Value");
        type.FunctionType_Outputs->Add("Result", index, "Result");
        return type;
    }
};

class ItemDialog : public testkit::ZoomTest {
  protected:
    ItemDialog() {
        catalogue.functionTypes.add("MAX");
        graph.recordSet("RS4").addDbKey("SONUM", "SHOP.ORDERS.SONUM");
    }

    canvas::LabelsD& place(const std::string& tool) {
        form->rules().placeNode(*form, tool, {3000, 3000});
        return node(tool + "1");
    }

    /// Opens the node's dialog, types into it, presses OK and closes it. True when OK closed it.
    bool play(const std::string& shown, const std::string& name, std::optional<int> type = {}) {
        ItemProp item(*form, node(shown), types);
        item.changeName(name);
        if (type) {
            item.selectType(*type);
        }
        const bool closes = item.OK_Click();
        item.end();
        return closes;
    }

    /// The scenario's links with `former` replaced by `now` where it stands as a whole word or begins a key. One that
    /// begins with a dot counts only beside the name of its activity.
    Texts renamed(const Texts& links, const std::vector<std::pair<std::string, std::string>>& words) const {
        Texts lines;
        for (const std::string& line : links) {
            std::istringstream in(line);
            std::vector<std::string> parts(5);
            for (std::string& part : parts) {
                in >> part;
            }
            const std::string owner = parts[3];
            std::string out;
            for (std::string part : parts) {
                for (const auto& [former, now] : words) {
                    const bool isIt = part == former || part.starts_with(former + ".");
                    if (isIt && (!former.starts_with('.') || owner == "A2")) {
                        part = now + part.substr(former.size());
                        break;
                    }
                }
                out += (out.empty() ? "" : " ") + part;
            }
            lines.push_back(out);
        }
        return sorted(lines);
    }

    /// The whole keys of the central activity's inputs and functions, in their order.
    Texts keys() {
        Texts all;
        for (const auto& input : graph.activity("A2").Act_Inputs) {
            all.push_back("A2.IN." + input.Key);
        }
        for (const auto& function : graph.activity("A2").Act_Functions) {
            all.push_back(function.Function_Key);
        }
        return all;
    }

    /// What a dialog shows of a key: the name without its owner.
    static std::string bare(const std::string& key) {
        for (const char* owner : {"A2.IN.", "A2.OUT.", "A2.PARAM.", "A2.F2.IN.", "F1.IN.", "A2.", "RS4."}) {
            if (key.starts_with(owner)) {
                return key.substr(std::string(owner).size());
            }
        }
        return key;
    }

    OneType types;
};

// Whatever is renamed, every link of the scenario follows it on both ends, and nothing else changes.
TEST_F(ItemDialog, LinksFollowAName) {
    struct Row {
        const char* shown;
        const char* name;
        const char* keyName;
        std::vector<std::pair<std::string, std::string>> words;
    };
    const std::vector<Row> rows = {
        {"A2.IN.SONUM", "NEW", "A2.IN.NEW", {{"A2.IN.SONUM", "A2.IN.NEW"}, {".IN.SONUM", ".IN.NEW"}}},
        {"A2.IN.A1.O12", "NEW", "A2.IN.NEW", {{"A2.IN.A1.O12", "A2.IN.NEW"}, {".IN.A1.O12", ".IN.NEW"}}},
        {"A2.OUT.AU_ID", "NEW", "A2.OUT.NEW", {{"A2.OUT.AU_ID", "A2.OUT.NEW"}, {".OUT.AU_ID", ".OUT.NEW"}}},
        {"A2.PARAM.AU_ID", "Día", "A2.PARAM.Día", {{"A2.PARAM.AU_ID", "A2.PARAM.Día"}, {".PARAM.AU_ID", ".PARAM.Día"}}},
        {"RS4.SONUM", "NEW", "RS4.NEW", {{"RS4.SONUM", "RS4.NEW"}}},
        {"C1", "NEW", "NEW", {{"C1", "NEW"}}},
        {"A2.F2.IN.I4", "NEW", "A2.F2.IN.NEW", {{"A2.F2.IN.I4", "A2.F2.IN.NEW"}}},
        {"F1.IN.I2", "NEW", "F1.IN.NEW", {{"F1.IN.I2", "F1.IN.NEW"}, {"F1.A2.I2", "F1.A2.NEW"}}},
        {"F1", "NEW", "NEW", {{"F1", "NEW"}}},
        {"A2.F2", "NEW", "A2.NEW", {{"A2.F2", "A2.NEW"}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.shown);
        const Texts before = graph.present();
        Texts order = keys();
        open();
        const canvas::LabelsD* shown = form->nodeNamed(row.shown);
        ASSERT_TRUE(play(row.shown, row.name));
        EXPECT_EQ(form->nodeNamed(row.keyName), shown);
        expectSound();
        EXPECT_TRUE(form->unapplied());
        zoom::ApplyZoomChanges(*form, true);
        expectSound();
        EXPECT_EQ(graph.present(), renamed(before, row.words));
        std::replace(order.begin(), order.end(), std::string(row.shown), std::string(row.keyName));
        EXPECT_EQ(keys(), order);
        if (const std::string former = bare(row.shown); former.find('.') == std::string::npos) {
            ASSERT_TRUE(play(row.keyName, former));  // and back again
            zoom::ApplyZoomChanges(*form, false);
            EXPECT_EQ(graph.present(), before);
        }
    }
}

TEST_F(ItemDialog, TheSourceColumnStaysKnown) {
    open();
    ASSERT_TRUE(play("RS4.SONUM", "Number"));
    zoom::ApplyZoomChanges(*form, false);
    EXPECT_EQ(graph.recordSet("RS4").dbKey("Number"), "SHOP.ORDERS.SONUM");
    EXPECT_EQ(graph.recordSet("RS4").dbKey("SONUM"), "");
}

TEST_F(ItemDialog, ChecksComeInTheirOrder) {
    const std::string numeric = "NUMERIC NAMES ARE NOT ALLOWED!\nPLEASE GIVE A VALID NAME";
    const std::string dot = "DOTS ARE NOT ALLLOWED IN NAMES";
    const std::string untyped = "PLEASE SELECT ONE OF THE SUPPORTED DATATYPES";
    struct Row {
        const char* tool;
        const char* name;
        int type;
        std::string words;
        Icon icon = Icon::warning;
        const char* title = "";
    };
    const std::string taken = "THIS NAME IS USED FOR ANOTHER NODE OF THE GRAPH.\nPLEASE GIVE ANOTHER NAME!";
    std::vector<Row> rows = {
        {"Function", "", -1, "PLEASE SELECT ONE OF THE SUPPORTED FUNCTION TYPES"},
        {"Function", "", 0, "PLEASE GIVE A NAME FOR THIS FUNCTION "},
        {"Function", "1.5", 0, dot},
        {"Function", "15", 0, numeric},
        {"Function", "SUM", 0, "THE FUNCTION'S NAME AND THE FUNCTION TYPE's NAME \nCAN NOT BE THE SAME!"},
        {"Function", "A2", 0, taken, Icon::critical, "DUPLICATE NAME!"},
    };
    for (const char* tool : {"Attribute", "Parameter", "Constant"}) {
        rows.push_back({tool, " ", -1, "PLEASE GIVE A VALID NAME"});
        rows.push_back({tool, "-1.5", -1, numeric});
        rows.push_back({tool, "a.b", -1, untyped});
        rows.push_back({tool, "a.b", 0, dot});
        rows.push_back({tool, "F1", 0, taken, Icon::critical, "DUPLICATE NAME!"});
    }
    open();
    for (const char* tool : {"Attribute", "Parameter", "Constant", "Function"}) {
        place(tool);
    }
    const std::string before = testkit::modelText(*form);
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.tool) + " '" + row.name + "'");
        const std::string shown = std::string(row.tool) + "1";
        ports.messages.expect(row.words, row.title, row.icon);
        EXPECT_FALSE(play(shown, row.name, row.type));
        ports.messages.verify();
        ASSERT_TRUE(form->nodeNamed(shown)) << "the node lost its name";
        EXPECT_EQ(testkit::modelText(*form), before);
        EXPECT_EQ(node(shown).Ready(), *row.name > ' ' && row.type >= 0) << "what the dialog showed as it closed";
    }
}

TEST_F(ItemDialog, ACatalogueThatSomeoneEmptiedOffersNoType) {
    open();
    place("Parameter");
    catalogue.dataTypes.clear();
    ports.messages.expect("PLEASE SELECT ONE OF THE SUPPORTED DATATYPES", "", Icon::warning);
    EXPECT_FALSE(play("Parameter1", "New", 0));
    EXPECT_EQ(ItemProp(*form, node("A2.IN.SONUM"), types).txtType, "");
    EXPECT_TRUE(play("A2.IN.SONUM", "NEW"));
}

TEST_F(ItemDialog, AGoneTypeIsOfferedOnlyToTheItemThatHasIt) {
    open();
    place("Parameter");
    EXPECT_TRUE(play("Parameter1", "P", 0));
    catalogue.dataTypes.reload({"VARCHAR2(20)"}, true);
    {
        ItemProp item(*form, node("P"), types);
        EXPECT_EQ(item.Types, (std::vector<std::string>{"NUMBER (gone)", "VARCHAR2(20)"}));
        EXPECT_EQ(item.TypeIndex, 0);
    }
    EXPECT_TRUE(play("P", "Q"));
    EXPECT_EQ(node("Q").entity<ParameterProperties>()->Parameter_Type, 0) << "it keeps what it means";
    EXPECT_TRUE(play("Q", "Q", 1));
    EXPECT_EQ(node("Q").entity<ParameterProperties>()->Parameter_Type, 1);
    EXPECT_EQ(ItemProp(*form, node("Q"), types).Types, std::vector<std::string>{"VARCHAR2(20)"});
    EXPECT_TRUE(play("Q", "Q", 0));
    EXPECT_EQ(node("Q").entity<ParameterProperties>()->Parameter_Type, 1) << "the first row is now that of the second";
}

TEST_F(ItemDialog, AFreeItemTakesNameAndType) {
    open();
    for (const char* tool : {"Attribute", "Parameter", "Constant"}) {
        SCOPED_TRACE(tool);
        place(tool);
        ItemProp item(*form, node(std::string(tool) + "1"), types);
        EXPECT_EQ(item.txtName, std::string(tool) + "1");
        EXPECT_TRUE(item.TypesInUse);
        item.changeName(std::string("4th ") + tool);
        item.selectType(1);
        ASSERT_TRUE(item.OK_Click());
        item.end();
        const canvas::LabelsD& shown = node(std::string("4th ") + tool);
        EXPECT_EQ(shown.Caption(), shown.KeyName());
        EXPECT_EQ(shown.ToolTipText(), shown.Caption() + "(VARCHAR2(20))");
        EXPECT_TRUE(shown.Ready());
        if (const auto* attribute = shown.entity<AttributeProperties>()) {
            EXPECT_EQ(attribute->Attribute_Name + attribute->Key, shown.Caption() + shown.Caption());
            EXPECT_EQ(attribute->Attribute_Type, 1);
            EXPECT_TRUE(attribute->Changed);
        } else {
            const auto* parameter = shown.entity<ParameterProperties>();
            EXPECT_EQ(parameter->Parameter_Name + parameter->Key, shown.Caption() + shown.Caption());
            EXPECT_EQ(parameter->Parameter_Type, 1);
        }
    }
}

TEST_F(ItemDialog, TheTypeOfWhatIsHeldIsSettled) {
    open();
    for (const char* held : {"A2.IN.SONUM", "A2.PARAM.SONUM", "RS4.SONUM", "C1", "F1", "F1.IN.I1"}) {
        SCOPED_TRACE(held);
        ItemProp item(*form, node(held), types);
        EXPECT_FALSE(item.TypesInUse);
        EXPECT_EQ(item.txtType, std::string(held) == "F1" ? "SUM" : "NUMBER");
    }
    // A brought member's name has a dot, which passes as long as it stands.
    EXPECT_TRUE(play("A2.OUT.A1.O12", "A1.O12"));
    EXPECT_FALSE(form->unapplied());
    ports.messages.expect("DOTS ARE NOT ALLLOWED IN NAMES", "", Icon::warning);
    EXPECT_FALSE(play("A2.OUT.A1.O12", "A1.O13"));
    EXPECT_TRUE(play("A2.F2", "F2"));
    EXPECT_NE(index("A2.F2"), canvas::kNoNode);
}

TEST_F(ItemDialog, AnotherTypeMakesAFunctionAnew) {
    open();
    place("Function");
    for (const int type : {1, 0}) {
        SCOPED_TRACE(type);
        node("Function1").entity<FunctionProperties>()->FunctionID = 9;
        const int rows = form->DeletedNodes->mark();
        ASSERT_TRUE(play("Function1", "Function1", type));
        const auto& function = *node("Function1").entity<FunctionProperties>();
        EXPECT_EQ(function.Function_Type, type);
        EXPECT_EQ(function.FunctionID, 0);
        EXPECT_EQ(form->DeletedNodes->mark(), rows + 1);
        ASSERT_EQ(function.Function_Inputs.count(), 1);
        EXPECT_EQ(node("Function1").ToolTipText(), std::string("Function1(") + (type ? "MAX)" : "SUM)"));
        zoom::ExpandFunction(*form, node("Function1").Index());
        EXPECT_EQ(node("Function1.OUT.Result").entity<ParameterProperties>()->Parameter_Type, type);
    }
    expectSound();
}

TEST_F(ItemDialog, WhatRepeatsAnotherNodeIsEditedThere) {
    edge("A2", "RS4");
    open();
    for (const char* tool : {"Attribute", "Parameter", "Function", "Constant"}) {
        form->rules().placeNode(*form, tool, {100, 100});
    }
    int repeated = 0;
    for (const canvas::LabelsD& each : form->Labels) {
        const auto name = editors::nameInPlace(*form, each);
        EXPECT_EQ(name.has_value(), form->bearsName(each)) << each.Caption();
        EXPECT_NE(name, "") << each.Caption();
        const bool item = !each.activity() && !each.recordSet();
        EXPECT_EQ(ItemProp::edits(*form, each), item && form->bearsName(each)) << each.Caption();
        repeated += item && !form->bearsName(each);
        const canvas::ContextItem properties{"AttributePropertiesM", "Properties", canvas::MenuAction::properties};
        EXPECT_EQ(form->rules().stateOf(*form, properties, &each).enabled, form->bearsName(each));
    }
    EXPECT_GT(repeated, 0);
    form->setEnabled(false);
    EXPECT_FALSE(editors::nameInPlace(*form, node("A2")));
}

}  // namespace
