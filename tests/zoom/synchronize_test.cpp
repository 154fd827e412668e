#include <regex>
#include <set>

#include "entities/link_types.h"
#include "testkit/scripted_ports.h"
#include "zoom/link_graph.h"
#include "zoom/synchronize_functions.h"
#include "zoom/unsynchronize_functions.h"

using namespace orvent;
using namespace orvent::entities;
using testkit::LinkGraph;

namespace {

class Synchronize : public testkit::CanvasTest {
  protected:
    canvas::Canvas form{ports.services()};
    LinkGraph graph{form};

    std::vector<ActivityProperties*> activities() {
        return {&graph.activity("Activity1"), &graph.activity("Activity2"), &graph.activity("Activity3")};
    }
    std::vector<RecordSetProperties*> recordSets() {
        return {&graph.recordSet("RS1"), &graph.recordSet("RS2"), &graph.recordSet("RS3"), &graph.recordSet("RS4")};
    }

    void synchronizeAll() {
        for (ActivityProperties* activity : activities()) {
            zoom::SynchronizeActivity(form, *activity, nullptr);
        }
        for (RecordSetProperties* recordSet : recordSets()) {
            zoom::SynchronizeRecordSet(form, *recordSet);
        }
    }

    void synchronize(AttributeProperties* entity, ActivityProperties* dialog) {
        zoom::SynchronizeAttribute(form, *entity, dialog);
    }
    void synchronize(ParameterProperties* entity, ActivityProperties* dialog) {
        zoom::SynchronizeParameter(form, *entity, dialog);
    }
    void unsynchronize(AttributeProperties* entity, ActivityProperties* dialog) {
        zoom::UnSynchronizeAttribute(form, *entity, false, dialog);
    }
    void unsynchronize(ParameterProperties* entity, ActivityProperties* dialog) {
        zoom::UnSynchronizeParameter(form, *entity, false, dialog);
    }

    /// Whether the line is a link to the entity, by any of the forms that a key may have.
    template <class Entity>
    static bool names(const std::string& line, const std::string& holder, const Entity& entity) {
        const std::string start = " " + entity.ParentKeyName + " ";
        return line.ends_with(start + holder) || line.ends_with(start + relativeKey(entity.NodeKind, entity.Key)) ||
               line.ends_with(start + entity.ParentKeyName + ".Activity2." + entity.Key);
    }

    /// Calls with each entity's whole key.
    template <class Call>
    void forEachEntity(Call call) {
        std::set<std::string> holders;
        for (const std::string& line : LinkGraph::all()) {
            holders.insert(line.substr(0, line.find(' ')));
        }
        for (const std::string& holder : holders) {
            SCOPED_TRACE(holder);
            std::visit([&](auto* entity) { call(holder, entity); }, graph.make(holder));
        }
    }

    template <class Links>
    static void drop(const Lazy<Links>& links) {
        if (Links* present = links.peek()) {
            present->Clear();
        }
    }
};

TEST_F(Synchronize, AWholeGraphIsAFixedPoint) {
    synchronizeAll();
    EXPECT_EQ(graph.present(), LinkGraph::all());
    EXPECT_EQ(form.Lines.Count(), 0);
}

TEST_F(Synchronize, EitherEndIsRebuiltFromTheOther) {
    for (const bool sources : {true, false}) {
        forEachEntity([&](const std::string&, auto* entity) {
            drop(sources ? entity->RegulatorFor : entity->RegulatedFrom);
            if constexpr (requires { entity->ProvidedFrom; }) {
                drop(sources ? entity->ProviderFor : entity->ProvidedFrom);
            }
        });
        EXPECT_LT(graph.present().size(), LinkGraph::all().size());
        synchronizeAll();
        EXPECT_EQ(graph.present(), LinkGraph::all()) << (sources ? "sources" : "targets");
    }
}

TEST_F(Synchronize, UnsynchronizingTakesAwayExactlyTheMirrors) {
    forEachEntity([&](const std::string& holder, auto* entity) {
        const auto others =
            LinkGraph::filtered(LinkGraph::all(), [&](auto& line) { return !names(line, holder, *entity); });
        ASSERT_LT(others.size(), LinkGraph::all().size());
        for (int twice = 0; twice < 2; ++twice) {
            unsynchronize(entity, nullptr);
            EXPECT_EQ(graph.present(), others);
        }
        synchronize(entity, nullptr);
        EXPECT_EQ(graph.present(), LinkGraph::all());
    });
}

TEST_F(Synchronize, InADialogOnlyTheWorkingCopyIsTouched) {
    const std::shared_ptr<ActivityProperties> copy = graph.activity("Activity2").Clone();
    const LinkGraph::Lines before = LinkGraph::of(*copy);
    graph.working = copy.get();
    forEachEntity([&](const std::string& holder, auto* entity) {
        if (!holder.starts_with("Activity2") && !holder.starts_with("MyFun")) {
            return;
        }
        unsynchronize(entity, copy.get());
        EXPECT_EQ(LinkGraph::of(*copy),
                  LinkGraph::filtered(before, [&](auto& line) { return !names(line, holder, *entity); }));
        // The one way out: a record set that regulates a function's input.
        EXPECT_EQ(graph.present(), LinkGraph::filtered(LinkGraph::all(), [&](auto& line) {
                      return line.find(" ~> 12 ") == std::string::npos || !names(line, holder, *entity);
                  }));
        synchronize(entity, copy.get());
        EXPECT_EQ(LinkGraph::of(*copy), before);
        EXPECT_EQ(graph.present(), LinkGraph::all());
    });
}

TEST_F(Synchronize, ClearedEntitiesLeaveNoTrace) {
    zoom::UnSynchronizeActivity(form, graph.activity("Activity2"), true, nullptr);
    EXPECT_EQ(graph.present(), LinkGraph::filtered(LinkGraph::all(), [](const std::string& line) {
                  return line.find("Activity2") == std::string::npos && line.find("MyFun") == std::string::npos;
              }));
    zoom::UnSynchronizeRecordSet(form, graph.recordSet("RS1"), true, nullptr);
    for (const std::string& line : graph.present()) {
        EXPECT_EQ(line.find("RS1"), std::string::npos) << line;
    }
}

TEST_F(Synchronize, LinksToNowhereAreSkipped) {
    AttributeProperties& input = *graph.activity("Activity1").Act_Inputs->Item("AU_ID");
    input.ProvidedFrom->Add("Nobody", LinkRecordSet, "Nobody.X");
    input.ProvidedFrom->Add("RS1", LinkRecordSet, "RS1.X");
    input.ProvidedFrom->Add("RS4", LinkActivity, "RS4.SONUM");           // the wrong kind of node
    input.ProvidedFrom->Add("Activity2", LinkUnset, "Activity2.OUT.X");  // no such type
    input.RegulatedFrom->Add("RS1", LinkConstant, "RS1");                // no constant
    input.RegulatorFor->Add("Nofun", LinkInputFunction, "Nofun.IN.Input11");
    input.RegulatorFor->Add("Nofun", LinkRecordSetFunction, "Nofun.Activity2.Input11");
    input.RegulatorFor->Add("X.Fun", LinkConstantFunction, "X.Fun.IN.Input11");
    zoom::SynchronizeAttribute(form, input, nullptr);
    const auto isElsewhere = [](auto& line) { return !line.starts_with("Activity1.IN.AU_ID"); };
    EXPECT_EQ(LinkGraph::filtered(graph.present(), isElsewhere), LinkGraph::filtered(LinkGraph::all(), isElsewhere));
    zoom::UnSynchronizeAttribute(form, input, true, nullptr);
    zoom::SynchronizeAttribute(form, input, nullptr);
    EXPECT_EQ(graph.present(), LinkGraph::filtered(LinkGraph::all(), [](const std::string& line) {
                  return line.find("Activity1.IN.AU_ID") == std::string::npos &&
                         line.find("Activity1 .IN.AU_ID") == std::string::npos;
              }));
}

/// The same graph as a zoom view would show it: sub-nodes of their own for what is expanded.
class SynchronizeShown : public Synchronize {
  protected:
    template <class List>
    void showAll(List& list, std::int32_t nodeType) {
        for (int at = 1; at <= list.Count(); ++at) {
            auto entity = list.share(at);
            const std::string key = wholeKey(entity->ParentKeyName, entity->NodeKind, entity->Key);
            canvas::LabelsD& node = form.Labels.Add(0, 1050, 0, 225, entity->Key, nodeType, key);
            entity->LabelIndex = node.Index();
            node.Properties = entity;
        }
    }
    void expand(ActivityProperties& activity) {
        showAll(*activity.Act_Inputs, canvas::NodeTypeAttribute);
        showAll(*activity.Act_Outputs, canvas::NodeTypeAttribute);
        showAll(*activity.Act_Parameters, canvas::NodeTypeParameter);
        activity.Act_Inputs->Expanded = activity.Act_Outputs->Expanded = activity.Act_Parameters->Expanded = true;
        for (int at = 1; at <= activity.Act_Functions->Count(); ++at) {
            const auto function = activity.Act_Functions->share(at);
            canvas::LabelsD& node = form.Labels.Add(0, 1050, 0, 450, function->Function_Key, canvas::NodeTypeFunction);
            node.Properties = function;
            node.Expanded = true;
            showAll(*function->Function_Inputs, canvas::NodeTypeParameter);
            showAll(*function->Function_Outputs, canvas::NodeTypeParameter);
        }
    }
    void expand(const std::string& recordSet) {
        showAll(*graph.recordSet(recordSet).RecordSet_Outputs, canvas::NodeTypeAttribute);
        form.nodeNamed(recordSet)->Expanded = true;
    }

    /// Every edge as "from kind to", sorted.
    std::vector<std::string> edges() {
        std::vector<std::string> result;
        for (const canvas::LinesD& edge : form.Lines) {
            result.push_back(form.Labels.byIndex(edge.FromLabel)->KeyName() +
                             (edge.EdgeType() == canvas::EdgeTypeProvider ? " -> " : " ~> ") +
                             form.Labels.byIndex(edge.ToLabel)->KeyName());
        }
        return LinkGraph::sorted(result);
    }
};

const std::vector<std::string> kShownEdges = LinkGraph::sorted({
    "Activity2.Fun22.OUT.Output21 ~> Activity2.OUT.Activity1.Output12",
    "Activity2.IN.AU_ID -> Activity2.OUT.AU_ID",
    "Activity2.IN.AU_ID ~> Activity2.PARAM.AU_ID",
    "Activity2.IN.Activity1.Output12 -> Activity2.OUT.Activity1.Output12",
    "Activity2.IN.Activity1.Output12 ~> Activity2.Fun22.IN.Input21",
    "Activity2.IN.Activity1.Output12 ~> MyFun.IN.Input11",
    "Activity2.IN.SONUM -> Activity2.OUT.SONUM",
    "Activity2.IN.SONUM ~> Activity2.PARAM.SONUM",
    "Activity2.PARAM.AU_ID ~> Activity2.OUT.AU_ID",
    "MyFun.OUT.Output11 ~> Activity2.OUT.Activity1.Output12",
    "RS3.PUB_ID ~> Activity2.Fun22.IN.Input22",
    "RS3.PUB_ID ~> Activity2.PARAM.PUB_ID",
    "RS3.PUB_ID ~> MyFun.IN.Input12",
});

TEST_F(SynchronizeShown, EachLinkBetweenShownEndsIsDrawnOnce) {
    expand(graph.activity("Activity2"));
    expand("RS3");
    for (int twice = 0; twice < 2; ++twice) {
        zoom::SynchronizeActivity(form, graph.activity("Activity2"), nullptr);
        zoom::SynchronizeRecordSet(form, graph.recordSet("RS3"));
        EXPECT_EQ(edges(), kShownEdges);
    }
    EXPECT_EQ(graph.present(), LinkGraph::all());
    const canvas::LinesD& edge = *form.Lines.at(1);
    EXPECT_EQ(edge.FromGrabbingPoint, 3);
    EXPECT_EQ(edge.ToGrabbingPoint(), 1);
    EXPECT_EQ(edge.Angle(), canvas::AngleStraight);

    zoom::UnSynchronizeRecordSet(form, graph.recordSet("RS3"), false, nullptr);
    EXPECT_EQ(edges(), LinkGraph::filtered(kShownEdges, [](const std::string& line) { return line[0] != 'R'; }));
    zoom::UnSynchronizeActivity(form, graph.activity("Activity2"), false, nullptr);
    EXPECT_EQ(form.Lines.Count(), 0);
    zoom::SynchronizeRecordSet(form, graph.recordSet("RS3"));
    zoom::SynchronizeActivity(form, graph.activity("Activity2"), nullptr);
    EXPECT_EQ(edges(), kShownEdges);
}

TEST_F(SynchronizeShown, NumbersOfFormerViewsMeanNothing) {
    const canvas::LinesD* foreign = form.Lines.addFullLine(1, 3, 2, 1, canvas::EdgeTypePartOf, 0, 0);
    for (auto& input : *graph.activity("Activity2").Act_Inputs) {
        input.LabelIndex = 1;
        for (auto& link : input.ProviderFor) {
            link.LineIndex = foreign->Index();
        }
    }
    zoom::UnSynchronizeAttribute(form, *graph.activity("Activity2").Act_Inputs->Item(1), false, nullptr);
    EXPECT_EQ(form.Lines.Count(), 1);

    showAll(*graph.activity("Activity2").Act_Outputs, canvas::NodeTypeAttribute);
    graph.activity("Activity2").Act_Outputs->Expanded = true;
    zoom::SynchronizeActivity(form, graph.activity("Activity2"), nullptr);
    EXPECT_EQ(form.Lines.Count(), 1) << "an input without a node was drawn to another node";
    EXPECT_EQ(graph.activity("Activity2").Act_Inputs->Item("SONUM")->ProviderFor->Item(1)->LineIndex, -1);
}

TEST_F(SynchronizeShown, ConstantsRegulateFromTheirOwnNode) {
    ActivityProperties& activity = graph.activity("Activity2");
    expand(activity);
    canvas::LabelsD& node = form.Labels.Add(0, 450, 0, 450, "Const1", canvas::NodeTypeConstant);
    auto& constant = *node.entity<ParameterProperties>();
    constant.RegulatorFor->Add("Activity2", LinkConstant, "Activity2.PARAM.SONUM");
    constant.RegulatorFor->Add("MyFun", LinkConstantFunction, "MyFun.IN.Input12");
    zoom::SynchronizeParameter(form, constant, nullptr);
    ParameterProperties& parameter = *activity.Act_Parameters->Item("SONUM");
    ParameterProperties& input = *activity.Act_Functions->Item("MyFun")->Function_Inputs->Item("Input12");
    for (ParameterProperties* regulated : {&parameter, &input}) {
        const RegulatorProperties* link = regulated->RegulatedFrom->Item("Const1");
        ASSERT_TRUE(link);
        EXPECT_EQ(link->Regulator_name, "Const1");
        EXPECT_EQ(form.Lines.byIndex(link->LineIndex)->FromLabel, node.Index());
    }
    constant.RegulatorFor->Clear();
    zoom::SynchronizeParameter(form, parameter, nullptr);
    zoom::SynchronizeParameter(form, input, nullptr);
    EXPECT_TRUE(constant.RegulatorFor->Item("Activity2.PARAM.SONUM"));
    EXPECT_TRUE(constant.RegulatorFor->Item("MyFun.IN.Input12"));
    zoom::UnSynchronizeParameter(form, constant, true, nullptr);
    EXPECT_FALSE(parameter.RegulatedFrom->Item("Const1"));
    EXPECT_FALSE(input.RegulatedFrom->Item("Const1"));
}

class Rename : public SynchronizeShown {
  protected:
    AttributeProperties& rename(RecordSetProperties& recordSet, const std::string& oldKey, const std::string& newKey) {
        zoom::UnSynchronizeRecordSet(form, recordSet, false, nullptr);
        EXPECT_TRUE(recordSet.RenameRecordSetOutPut(oldKey, newKey, form));
        AttributeProperties& renamed = *recordSet.RecordSet_Outputs->Item(newKey);
        zoom::PropagateRename(form, renamed, oldKey);
        zoom::SynchronizeRecordSet(form, recordSet);
        return renamed;
    }
    static LinkGraph::Lines replaced(const LinkGraph::Lines& lines, const std::string& from, const std::string& to) {
        LinkGraph::Lines result;
        for (const std::string& line : lines) {
            result.push_back(std::regex_replace(line, std::regex(from), to));
        }
        return LinkGraph::sorted(result);
    }
};

TEST_F(Rename, GoesDownTheWholeFlow) {
    rename(graph.recordSet("RS1"), "AU_ID", "NEW");
    EXPECT_EQ(graph.present(), replaced(LinkGraph::all(), "AU_ID", "NEW"));
    ActivityProperties& activity = graph.activity("Activity2");
    EXPECT_TRUE(activity.Act_Inputs->Item("NEW")->Changed);
    EXPECT_EQ(activity.Act_Inputs->Item("NEW")->Attribute_Name, "NEW");
    EXPECT_TRUE(activity.Act_Parameters->Item("NEW")->Changed);
    EXPECT_FALSE(activity.Act_Inputs->Item("SONUM")->Changed);
}

TEST_F(Rename, KeepsPlacesAndOwnNames) {
    ActivityProperties& activity = graph.activity("Activity1");
    activity.Act_Inputs->Item("AU_ID")->Attribute_Name = "author";
    activity.Act_Inputs->Changed = false;
    activity.Act_Outputs->AddFullAttribute(AttributeProperties(), "Last", false, 0);
    const int position = activity.Act_Outputs->positionOf("AU_ID");
    rename(graph.recordSet("RS1"), "AU_ID", "NEW");
    EXPECT_EQ(activity.Act_Inputs->Item("NEW")->Attribute_Name, "author");
    EXPECT_TRUE(activity.Act_Inputs->Changed);
    EXPECT_EQ(activity.Act_Outputs->positionOf("NEW"), position);
    EXPECT_EQ(activity.Act_Outputs->keyAt(activity.Act_Outputs->Count()), "Last");
}

TEST_F(Rename, StopsWhereTheNewKeyIsTaken) {
    graph.activity("Activity2").Act_Outputs->AddFullAttribute(AttributeProperties(), "NEW", false, 0);
    rename(graph.recordSet("RS1"), "AU_ID", "NEW");
    const LinkGraph::Lines lines = graph.present();
    for (const char* line :
         {"Activity1.OUT.NEW -> 2 Activity2 Activity2.IN.NEW", "Activity2.IN.NEW -> 4 Activity2 .OUT.AU_ID",
          "Activity2.OUT.AU_ID <- 4 Activity2 .IN.NEW", "Activity2.OUT.AU_ID -> 2 Activity3 Activity3.IN.AU_ID"}) {
        EXPECT_TRUE(std::binary_search(lines.begin(), lines.end(), line)) << line;
    }
    EXPECT_EQ(lines.size(), LinkGraph::all().size());
}

TEST_F(Rename, GoesBackToTheWriterAndToParameters) {
    AttributeProperties& attribute = *graph.recordSet("RS3").RecordSet_Outputs->Item("PUB_ID");
    graph.activity("Activity3").Act_Outputs->AddFullAttribute(AttributeProperties(), "PUB_ID", false, 0);
    AttributeProperties& writer = *graph.activity("Activity3").Act_Outputs->Item("PUB_ID");
    writer.NodeKind = KindOutput;
    writer.ParentKeyName = "Activity3";
    writer.ProviderFor->Add("Activity1", LinkActivity, "Activity1.IN.AU_ID");
    attribute.ProvidedFrom->Add("Activity3", LinkRecordSet, "Activity3.OUT.PUB_ID");
    zoom::SynchronizeRecordSet(form, graph.recordSet("RS3"));
    const LinkGraph::Lines before = graph.present();
    rename(graph.recordSet("RS3"), "PUB_ID", "NEW");
    LinkGraph::Lines expected = replaced(before, "PUB_ID", "NEW");
    expected.push_back("Activity1.IN.AU_ID <- 2 Activity3 Activity3.OUT.NEW");
    EXPECT_EQ(graph.present(), LinkGraph::sorted(expected));
}

TEST_F(Rename, ShownNodesFollow) {
    expand(graph.activity("Activity1"));
    canvas::LabelsD* node = form.nodeNamed("Activity1.IN.AU_ID");
    node->setToolTipText("AU_ID(NUMBER)");
    rename(graph.recordSet("RS1"), "AU_ID", "NEW");
    EXPECT_EQ(form.nodeNamed("Activity1.IN.NEW"), node);
    EXPECT_EQ(node->Caption(), "NEW");
    EXPECT_EQ(node->ToolTipText(), "NEW(NUMBER)");
    EXPECT_EQ(node->entity<AttributeProperties>(), graph.activity("Activity1").Act_Inputs->Item("NEW"));
    EXPECT_EQ(edges(), std::vector<std::string>{"Activity1.IN.NEW -> Activity1.OUT.NEW"});
}

TEST_F(Rename, EndsInACycleAndInAVeryLongChain) {
    constexpr int kLength = 20000;
    canvas::Canvas chain(ports.services());
    auto& source = *chain.Labels.Add(0, 1050, 0, 450, "RS1", canvas::NodeTypeRecordSet).recordSet();
    AttributeProperties* provider = &source.RecordSet_Outputs->Add("A", 0, "A");
    provider->ParentKeyName = "RS1";
    for (int at = 1; at <= kLength; ++at) {
        const std::string name = "N" + std::to_string(at);
        auto& activity = *chain.Labels.Add(0, 1050, 0, 450, name, canvas::NodeTypeActivity).activity();
        AttributeProperties& input = activity.Act_Inputs->Add("A", 0, 0, "A");
        AttributeProperties& output = activity.Act_Outputs->Add("A", 0, 0, "A");
        input.ParentKeyName = output.ParentKeyName = name;
        provider->ProviderFor->Add(name, at == 1 ? LinkRecordSet : LinkActivity, name + ".IN.A");
        input.ProviderFor->Add(name, LinkActivityInput, ".OUT.A");
        provider = &output;
    }
    provider->ProviderFor->Add("N1", LinkActivity, "N1.IN.A");
    ASSERT_TRUE(source.RenameRecordSetOutPut("A", "B", chain));
    zoom::PropagateRename(chain, *source.RecordSet_Outputs->Item("B"), "A");
    zoom::SynchronizeRecordSet(chain, source);
    const auto* last = chain.nodeNamed("N" + std::to_string(kLength))->activity();
    EXPECT_TRUE(last->Act_Outputs.peek()->Item("B"));
    EXPECT_EQ(chain.nodeNamed("N1")->activity()->Act_Inputs->Item("B")->ProvidedFrom.count(), 1);
}

}  // namespace
