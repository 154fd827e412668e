#include <regex>

#include "entities/link_types.h"
#include "links/canvas_links.h"
#include "links/link_mirrors.h"
#include "links/propagate_rename.h"
#include "links/synchronize_functions.h"
#include "links/unsynchronize_functions.h"
#include "testkit/numbers.h"
#include "testkit/scripted_ports.h"
#include "zoom/link_graph.h"

using namespace orvent;
using namespace orvent::entities;
using links::Work;
using testkit::LinkGraph;

namespace {

class Synchronize : public testkit::CanvasTest {
  protected:
    canvas::Canvas form{ports.services()};
    LinkGraph graph{form};

    void synchronizeAll() {
        for (const char* name : {"A1", "A2", "A3"}) {
            links::SynchronizeActivity(form, graph.activity(name), nullptr);
        }
        for (const char* name : {"RS1", "RS2", "RS3", "RS4"}) {
            links::SynchronizeRecordSet(form, graph.recordSet(name));
        }
        links::SynchronizeParameter(form, graph.constant(), nullptr);
    }
    void mirror(Work work, const LinkGraph::Entity& holder, ActivityProperties* dialog) {
        std::visit([&](auto* entity) { links::mirrorLinks(work, form, *entity, dialog); }, holder);
    }
};

TEST_F(Synchronize, EitherEndIsRebuiltFromTheOther) {
    for (const bool sources : {true, false}) {
        const auto clear = [&](const std::string& arrow, auto& links) {
            if (arrow.ends_with('>') == sources) {
                links->Clear();
            }
        };
        for (const LinkGraph::Entity& holder : graph.holders()) {
            std::visit([&](auto* entity) { LinkGraph::eachList(*entity, clear); }, holder);
        }
        EXPECT_EQ(graph.present().size(), LinkGraph::kLinks.size());
        synchronizeAll();
        EXPECT_EQ(graph.present(), LinkGraph::all()) << (sources ? "sources" : "targets");
    }
    EXPECT_EQ(form.Lines.Count(), 0) << "an edge of what has no node";
}

TEST_F(Synchronize, InADialogOnlyTheWorkingCopyIsTouched) {
    const std::shared_ptr<ActivityProperties> copy = graph.activity("A2").Clone();
    const auto holders = LinkGraph::holdersOf(*copy);
    const LinkGraph::Lines before = LinkGraph::lines(holders);
    for (const LinkGraph::Entity& holder : holders) {
        const std::string key = LinkGraph::keyOf(holder);
        SCOPED_TRACE(key);
        mirror(Work::Erase, holder, copy.get());
        EXPECT_EQ(LinkGraph::lines(holders), LinkGraph::picked([&](auto& line, auto& other) {
                      return LinkGraph::isOf("A2", line) && LinkGraph::holderOf(other) != key;
                  }));
        // The one way out: a record set that regulates a function's input.
        EXPECT_EQ(graph.present(), LinkGraph::picked([&](auto& line, auto& other) {
                      return line.find(" ~> 12 ") == std::string::npos || LinkGraph::holderOf(other) != key;
                  }));
        mirror(Work::Write, holder, copy.get());
        EXPECT_EQ(LinkGraph::lines(holders), before);
        EXPECT_EQ(graph.present(), LinkGraph::all());
    }
}

TEST_F(Synchronize, ADeletedNodeHoldsNoLinkAndNoLinkNamesIt) {
    for (const char* name : {"RS1", "RS2", "RS3", "RS4", "A1", "A2", "A3", "C1"}) {
        SCOPED_TRACE(name);
        canvas::Canvas another(ports.services());
        LinkGraph whole(another);
        links::CanvasLinks().unsynchronise(another, *another.nodeNamed(name));
        EXPECT_EQ(whole.present(), LinkGraph::picked([&](auto& line, auto& other) {
                      return !LinkGraph::isOf(name, line) && !LinkGraph::isOf(name, other);
                  }));
    }
}

TEST_F(Synchronize, LinksToNowhereAreSkipped) {
    LinkGraph::Lines lines = LinkGraph::all();
    for (const char* line : {
             "A1.IN.AU_ID <- 1 Nobody Nobody.X",
             "A1.IN.AU_ID <- 1 RS1 RS1.X",
             "A1.IN.AU_ID <- 2 RS4 RS4.SONUM",  // the wrong kind of node
             "A1.IN.AU_ID <- 0 A2 A2.OUT.X",    // no such type
             "A1.IN.AU_ID <~ 6 RS1 RS1",        // no constant
             "A1.IN.AU_ID ~> 13 Nofun Nofun.IN.I1",
             "A1.IN.AU_ID ~> 12 Nofun Nofun.A2.I1",
             "A1.IN.AU_ID ~> 14 X.Fun X.Fun.IN.I1",
         }) {
        graph.add(line);
        lines.emplace_back(line);
    }
    synchronizeAll();
    EXPECT_EQ(graph.present(), LinkGraph::sorted(lines));
}

/// The same graph as a zoom view would show it: A2 and RS3 are expanded, with sub-nodes of their own.
class SynchronizeShown : public Synchronize {
  protected:
    template <class List>
    void showAll(List& list, canvas::NodeTypeCode nodeType) {
        for (int at = 1; at <= list.Count(); ++at) {
            auto entity = list.share(at);
            const std::string key = wholeKey(entity->ParentKeyName, entity->NodeKind, entity->Key);
            canvas::LabelsD& node = form.Labels.Add({0, 0, 1050, 225}, entity->Key, nodeType, key);
            entity->LabelIndex = node.Index();
            node.Properties = entity;
        }
        list.Expanded = true;
    }
    void expand(ActivityProperties& activity) {
        showAll(*activity.Act_Inputs, canvas::NodeTypeAttribute);
        showAll(*activity.Act_Outputs, canvas::NodeTypeAttribute);
        showAll(*activity.Act_Parameters, canvas::NodeTypeParameter);
        for (int at = 1; at <= activity.Act_Functions->Count(); ++at) {
            const auto function = activity.Act_Functions->share(at);
            canvas::LabelsD& node =
                form.Labels.Add({0, 0, 1050, 450}, function->Function_Key, canvas::NodeTypeFunction);
            node.Properties = function;
            node.Expanded = true;
            showAll(*function->Function_Inputs, canvas::NodeTypeParameter);
            showAll(*function->Function_Outputs, canvas::NodeTypeParameter);
        }
    }

    /// Every edge as "from kind to", sorted.
    std::vector<std::string> edges() {
        std::vector<std::string> result;
        for (const canvas::LinesD& edge : form.Lines) {
            result.push_back(form.Labels.byIndex(edge.FromLabel())->KeyName() +
                             (edge.EdgeType() == canvas::EdgeTypeProvider ? " -> " : " ~> ") +
                             form.Labels.byIndex(edge.ToLabel())->KeyName());
        }
        return LinkGraph::sorted(result);
    }
};

TEST_F(SynchronizeShown, NumbersOfFormerViewsMeanNothing) {
    const canvas::LinesD* foreign =
        form.Lines.addFullLine(1_node, 3, 2_node, 1, canvas::EdgeTypePartOf, canvas::AngleNone, 0);
    for (auto& input : *graph.activity("A2").Act_Inputs) {
        input.LabelIndex = 1_node;
        for (auto& link : input.ProviderFor) {
            link.LineIndex = foreign->Index();
        }
    }
    links::UnSynchronizeAttribute(form, *graph.activity("A2").Act_Inputs->Item(1), false, nullptr);
    EXPECT_EQ(form.Lines.Count(), 1);

    showAll(*graph.activity("A2").Act_Outputs, canvas::NodeTypeAttribute);
    links::SynchronizeActivity(form, graph.activity("A2"), nullptr);
    EXPECT_EQ(form.Lines.Count(), 1) << "an input without a node was drawn to another node";
    EXPECT_EQ(graph.activity("A2").Act_Inputs->Item("AU_ID")->ProviderFor->Item(1)->LineIndex, canvas::kNoEdge);
}

class Rename : public SynchronizeShown {
  protected:
    void rename(const std::string& recordSet, const std::string& oldKey) {
        RecordSetProperties& owner = graph.recordSet(recordSet);
        links::UnSynchronizeRecordSet(form, owner, false, nullptr);
        EXPECT_TRUE(owner.RenameRecordSetOutPut(oldKey, "NEW", form));
        links::PropagateRename(form, *owner.RecordSet_Outputs->Item("NEW"), oldKey);
        links::SynchronizeRecordSet(form, owner);
    }
    static LinkGraph::Lines replaced(LinkGraph::Lines lines, const std::string& oldKey) {
        for (std::string& line : lines) {
            line = std::regex_replace(line, std::regex(oldKey), "NEW");
        }
        return LinkGraph::sorted(lines);
    }
};

TEST_F(Rename, GoesDownTheWholeFlowAndKeepsPlacesAndOwnNames) {
    ActivityProperties& first = graph.activity("A1");
    first.Act_Inputs->Item("AU_ID")->Attribute_Name = "author";
    first.Act_Inputs->Changed = false;
    first.Act_Outputs->AddFullAttribute(AttributeProperties(), "Last", false, 0);
    const int place = first.Act_Outputs->positionOf("AU_ID");
    rename("RS1", "AU_ID");
    EXPECT_EQ(graph.present(), replaced(LinkGraph::all(), "AU_ID"));
    EXPECT_EQ(first.Act_Inputs->Item("NEW")->Attribute_Name, "author");
    EXPECT_TRUE(first.Act_Inputs->Changed);
    EXPECT_EQ(first.Act_Outputs->positionOf("NEW"), place);
    ActivityProperties& second = graph.activity("A2");
    EXPECT_TRUE(second.Act_Inputs->Item("NEW")->Changed);
    EXPECT_EQ(second.Act_Inputs->Item("NEW")->Attribute_Name, "NEW");
    EXPECT_TRUE(second.Act_Parameters->Item("NEW")->Changed);
    EXPECT_FALSE(second.Act_Inputs->Item("SONUM")->Changed);
}

TEST_F(Rename, StopsWhereTheNewKeyIsTaken) {
    graph.activity("A2").Act_Outputs->AddFullAttribute(AttributeProperties(), "NEW", false, 0);
    rename("RS1", "AU_ID");
    const LinkGraph::Lines lines = graph.present();
    for (const char* line : {"A1.OUT.NEW -> 2 A2 A2.IN.NEW", "A2.IN.NEW -> 4 A2 .OUT.AU_ID",
                             "A2.OUT.AU_ID <- 4 A2 .IN.NEW", "A2.OUT.AU_ID -> 2 A3 A3.IN.AU_ID"}) {
        EXPECT_TRUE(std::binary_search(lines.begin(), lines.end(), line)) << line;
    }
    EXPECT_EQ(lines.size(), LinkGraph::all().size());
}

TEST_F(Rename, GoesBackToTheWriterAndToParameters) {
    graph.add("RS3.PUB_ID <- 1 A3 A3.OUT.PUB_ID");
    graph.add("A3.OUT.PUB_ID -> 1 RS3 RS3.PUB_ID");
    LinkGraph::Lines expected = replaced(graph.present(), "PUB_ID");
    // What else the writer provides for keeps its key.
    graph.add("A3.OUT.PUB_ID -> 2 A1 A1.IN.PUB_ID");
    graph.add("A1.IN.PUB_ID <- 2 A3 A3.OUT.PUB_ID");
    expected.emplace_back("A3.OUT.NEW -> 2 A1 A1.IN.PUB_ID");
    expected.emplace_back("A1.IN.PUB_ID <- 2 A3 A3.OUT.NEW");
    rename("RS3", "PUB_ID");
    EXPECT_EQ(graph.present(), LinkGraph::sorted(expected));
}

TEST_F(Rename, ShownNodesFollow) {
    expand(graph.activity("A1"));
    canvas::LabelsD* node = form.nodeNamed("A1.IN.AU_ID");
    node->setToolTipText("AU_ID(NUMBER)");
    rename("RS1", "AU_ID");
    EXPECT_EQ(form.nodeNamed("A1.IN.NEW"), node);
    EXPECT_EQ(node->Caption(), "NEW");
    EXPECT_EQ(node->ToolTipText(), "NEW(NUMBER)");
    EXPECT_EQ(node->entity<AttributeProperties>(), graph.activity("A1").Act_Inputs->Item("NEW"));
    EXPECT_EQ(edges(), std::vector<std::string>{"A1.IN.NEW -> A1.OUT.NEW"});
}

TEST_F(Rename, EndsInACycleAndInAVeryLongChain) {
    constexpr int kLength = 20000;
    canvas::Canvas chain(ports.services());
    auto& source = *chain.Labels.Add({0, 0, 1050, 450}, "RS1", canvas::NodeTypeRecordSet).recordSet();
    AttributeProperties* provider = &source.RecordSet_Outputs->Add("A", 0, "A");
    provider->ParentKeyName = "RS1";
    for (int at = 1; at <= kLength; ++at) {
        const std::string name = "N" + std::to_string(at);
        auto& activity = *chain.Labels.Add({0, 0, 1050, 450}, name, canvas::NodeTypeActivity).activity();
        AttributeProperties& input = activity.Act_Inputs->Add("A", 0, entities::TagNone, "A");
        AttributeProperties& output = activity.Act_Outputs->Add("A", 0, entities::TagNone, "A");
        input.ParentKeyName = output.ParentKeyName = name;
        provider->ProviderFor->Add(name, at == 1 ? LinkRecordSet : LinkActivity, name + ".IN.A");
        input.ProviderFor->Add(name, LinkActivityInput, ".OUT.A");
        provider = &output;
    }
    provider->ProviderFor->Add("N1", LinkActivity, "N1.IN.A");
    ASSERT_TRUE(source.RenameRecordSetOutPut("A", "B", chain));
    links::PropagateRename(chain, *source.RecordSet_Outputs->Item("B"), "A");
    links::SynchronizeRecordSet(chain, source);
    const auto* last = chain.nodeNamed("N" + std::to_string(kLength))->activity();
    EXPECT_TRUE(last->Act_Outputs.peek()->Item("B"));
    EXPECT_EQ(chain.nodeNamed("N1")->activity()->Act_Inputs->Item("B")->ProvidedFrom.count(), 1);
}

}  // namespace
