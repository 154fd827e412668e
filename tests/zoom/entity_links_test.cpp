#include "zoom/entity_links.h"

#include "testkit/scripted_ports.h"
#include "zoom/link_graph.h"

using namespace orvent;
using testkit::LinkGraph;

namespace {

struct DeletingLinks : testkit::CanvasTest {};

TEST_F(DeletingLinks, NoLinkNamesADeletedNode) {
    for (const char* name : {"RS1", "RS2", "RS3", "RS4", "Activity1", "Activity2", "Activity3"}) {
        SCOPED_TRACE(name);
        canvas::Canvas form(ports.services());
        LinkGraph graph(form);
        ASSERT_EQ(graph.present(), LinkGraph::all());
        form.SelectedLabels.Add(form.NamesColl.Item(name));
        zoom::CanvasLinks links;
        canvas::DeleteSelectedNodes(form, 0, links);
        EXPECT_EQ(form.Labels.Count(), 6);
        // A function belongs to its activity, under whatever name.
        const auto goes = [&](const std::string& owner) {
            return (owner + ".").starts_with(name + std::string(".")) ||
                   (name == std::string("Activity2") && owner.starts_with("MyFun"));
        };
        EXPECT_EQ(graph.present(), LinkGraph::filtered(LinkGraph::all(), [&](const std::string& line) {
                      std::istringstream words(line);
                      std::string holder, list, type, far;
                      words >> holder >> list >> type >> far;
                      return !goes(holder) && !goes(far);
                  }));
    }
}

}  // namespace
