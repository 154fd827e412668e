#include <gtest/gtest.h>

#include "entities/functions.h"
#include "entities/nodes.h"
#include "testkit/model_text.h"
#include "testkit/numbers.h"
#include "testkit/scripted_ports.h"

using namespace orvent;
using namespace orvent::entities;

namespace {

// What is read through a const canvas, node or record cannot be written.
template <class Pointer>
constexpr bool readOnly = std::is_const_v<std::remove_pointer_t<Pointer>>;
template <class Owner>
Owner& any();  // never called
static_assert(readOnly<decltype(any<const ActivityProperties>().Act_Inputs.peek()->Item(1))>);
static_assert(readOnly<decltype(any<const canvas::LabelsD>().activity())>);
static_assert(readOnly<decltype(any<const canvas::Canvas>().nodeNamed(""))>);
static_assert(readOnly<decltype(any<const canvas::Canvas>().Labels.byIndex(1_node))>);
static_assert(readOnly<decltype(any<const canvas::Canvas>().Lines.at(1))>);

template <class Collection>
std::string keysOf(const Collection& collection) {
    std::string keys;
    for (int at = 1; at <= collection.Count(); ++at) {
        keys += collection.keyAt(at) + " ";
    }
    return keys;
}

TEST(Attributes, WhereAFullAddPutsTheClone) {
    struct Row {
        bool reversed;
        int index;
        const char* order;
    };
    for (const Row& row : {Row{false, 0, "a b new "}, Row{false, 1, "new a b "}, Row{false, 2, "a new b "},
                           Row{false, 3, "a b new "}, Row{false, -1, "a b new "}, Row{true, 2, "new a b "}}) {
        Act_InputsCollection inputs;
        inputs.Add("a", 0, entities::TagNone, "a");
        inputs.Add("b", 0, entities::TagNone, "b");
        AttributeProperties record;
        record.Key = "new";
        inputs.AddFullAttribute(record, "", row.reversed, row.index);
        EXPECT_EQ(keysOf(inputs), row.order) << row.reversed << row.index;
        EXPECT_THROW(inputs.AddFullAttribute(record, "a", false, 0), platform::Fault);
        EXPECT_EQ(record.Key, "new");
        EXPECT_EQ(inputs.Key2Index("b"), inputs.positionOf("b"));
    }
}

struct OnACanvas : testkit::CanvasTest {
    canvas::Canvas form{ports.services()};
};

/// An activity with something in every field.
ActivityProperties fullActivity() {
    ActivityProperties activity;
    activity.Act_Name = "A";
    activity.Act_LDL = "ldl";
    activity.Act_SQL = "sql";
    activity.Act_Log = "log";
    activity.Act_Description = "text";
    activity.Act_Type = 3;
    activity.Act_SchemaNo = 2;
    activity.NodeID = 7;
    activity.ZoomPosition = 1;
    activity.Changed = true;
    activity.Act_Inputs->Changed = false;
    activity.Act_Inputs->Expanded = true;
    AttributeProperties& input = activity.Act_Inputs->Add("in", 1, entities::TagActivity, "k");
    input.SubNode_ID = 9;
    input.ParentKeyName = "A";
    input.ProvidedFrom->Add("RS1", LinkRecordSet, "RS1.k", 5_edge);
    input.RegulatorFor->Add("A", LinkInput, ".PARAM.k");
    activity.Act_Parameters->Add("p", 1, entities::TagTypeParameter, "p").RegulatedFrom->Add("A", LinkInput, ".IN.k");
    FunctionProperties function;
    function.FunctionID = 4;
    function.Function_Inputs->Add("i", 0, "i").RegulatedFrom->Add("A", LinkInputFunction, ".IN.k");
    function.setParentKeyName("A");
    activity.Act_Functions->AddFunctionProps(function, "A.Fun", 0).Function_Name = "shown name";
    return activity;
}

TEST_F(OnACanvas, AnActivitysCloneIsDeepAndKeepsTheIdentity) {
    canvas::LabelsD& node = form.Labels.Add({0, 0, 1050, 450}, "A", canvas::NodeTypeActivity);
    const auto activity = std::make_shared<ActivityProperties>(fullActivity());
    node.Properties = activity;
    const std::string text = testkit::modelText(form);
    const auto clone = activity->Clone();
    activity->Act_Inputs->Item("k")->ProvidedFrom->Clear();
    activity->Act_Functions->Item("A.Fun")->Function_Inputs->Clear();
    EXPECT_NE(testkit::modelText(form), text);
    node.Properties = clone;
    EXPECT_EQ(testkit::modelText(form), text);

    EXPECT_EQ(clone->NodeID, 7);
    EXPECT_EQ(clone->ZoomPosition, 1);
    EXPECT_TRUE(clone->Changed);
    EXPECT_FALSE(clone->Act_Inputs->Changed);
    EXPECT_FALSE(clone->Act_Inputs->Expanded);
    EXPECT_FALSE(clone->Act_Outputs.peek()) << "a collection that was never read is made by the clone";
    const AttributeProperties& input = *clone->Act_Inputs->Item("k");
    EXPECT_EQ(input.SubNode_ID, 9);
    EXPECT_EQ(input.ProvidedFrom.peek()->Item("RS1.k")->LineIndex, 5_edge);
    EXPECT_FALSE(input.ProviderFor.peek());
    const FunctionProperties& function = *clone->Act_Functions->Item("A.Fun");
    EXPECT_EQ(function.Function_Name, "A.Fun") << "a cloned function carries its key as its name";
    EXPECT_EQ(function.FunctionID, 4);
    EXPECT_TRUE(ActivityProperties().Clone()->Act_Inputs->Changed);
}

class OneFunctionType : public FunctionTypeSource {
  public:
    FunctionTypeProperties GetFunctionType(std::int16_t index) override {
        FunctionTypeProperties type;
        type.FunctionType_Inputs->Add("in", index, "in");
        type.FunctionType_Outputs->Add("out", index, "out");
        return type;
    }
};

TEST_F(OnACanvas, FunctionsComeFromATypeAndFromNodes) {
    OneFunctionType catalogue;
    const auto shown = std::make_shared<FunctionProperties>();
    shown->Function_Inputs->Add("i", 0, "i");
    form.Labels.Add({0, 0, 1050, 450}, "shown", canvas::NodeTypeFunction).Properties = shown;
    Act_FunctionsCollection functions;
    const FunctionProperties& brought = functions.AddActivityTypeFunction(catalogue, {5, "Fun"}, "A", "A.Fun");
    EXPECT_EQ(brought.Function_Source, SourceActivityType);
    EXPECT_EQ(brought.Function_Name, "Fun");
    EXPECT_EQ(brought.Function_Type, 5);
    const ParameterProperties& input = *brought.Function_Inputs.peek()->Item("in");
    EXPECT_EQ(input.NodeKind, KindFunctionInput);
    EXPECT_EQ(input.Parameter_Type, 5);
    EXPECT_EQ(input.ParentFunctionActivity, "A");
    EXPECT_EQ(input.ParentKeyName, "A.Fun");
    EXPECT_EQ(brought.Function_Outputs.peek()->Item("out")->NodeKind, KindFunctionOutput);

    EXPECT_FALSE(functions.AddFunction(form, "hidden", "A", SourceOwn));
    const FunctionProperties* own = functions.AddFunction(form, "shown", "A", SourceOwn);
    ASSERT_TRUE(own && own != shown.get());
    EXPECT_EQ(own->Function_Inputs.peek()->Item("i")->ParentFunctionActivity, "A");
    EXPECT_EQ(keysOf(functions), "shown A.Fun ") << "an own function goes to the front";
    functions.AddFunctionProps(*own, "second", 2);
    functions.AddFunctionProps(FunctionProperties(), "last", 9);
    EXPECT_EQ(keysOf(functions), "shown second A.Fun last ");
    EXPECT_EQ(functions.Key2Index("A.Fun"), 3);
}

TEST_F(OnACanvas, AnAttributeIsRenamedUnlessTheNameIsTaken) {
    form.Labels.Add({0, 0, 1050, 450}, "RS.node", canvas::NodeTypeRecordSet);
    RecordSetProperties recordSet;
    recordSet.RecordSet_Name = "RS";
    for (const char* key : {"a", "b", "c"}) {
        recordSet.RecordSet_Outputs->Add(key, 0, key);
    }
    recordSet.RecordSet_Outputs->Item("a")->SubNode_ID = 3;
    recordSet.addDbKey("a", "ORCL.T.A");
    recordSet.addDbKey("b", "");

    EXPECT_TRUE(recordSet.RenameRecordSetOutPut("b", "b", form));
    for (const char* taken : {"node", "c"}) {
        ports.messages.expect("A NODE WITH THE SAME NAME ALLREADY EXISTS!!", "DUPLICATE NAME",
                              platform::Icon::critical);
        EXPECT_FALSE(recordSet.RenameRecordSetOutPut("a", taken, form));
    }
    EXPECT_EQ(keysOf(*recordSet.RecordSet_Outputs), "a b c ");
    EXPECT_FALSE(recordSet.RecordSet_Outputs->Item("a")->Changed);

    EXPECT_FALSE(recordSet.RenameRecordSetOutPut("nothing", "n", form));
    EXPECT_TRUE(recordSet.RenameRecordSetOutPut("a", "z", form));
    EXPECT_TRUE(recordSet.RenameRecordSetOutPut("b", "y", form)) << "no entry of the database is no failure";
    const AttributeProperties& renamed = *recordSet.RecordSet_Outputs->Item("z");
    EXPECT_EQ(renamed.Attribute_Name, "z");
    EXPECT_EQ(renamed.SubNode_ID, 3);
    EXPECT_TRUE(renamed.Changed);

    const auto clone = recordSet.Clone();
    EXPECT_EQ(keysOf(*clone->RecordSet_Outputs), "c z y ");
    EXPECT_EQ(keysOf(*clone->DB2Key), "z ");
    EXPECT_EQ(clone->dbKey("z"), "ORCL.T.A");
}

}  // namespace
