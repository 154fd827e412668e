// Saves from a zoom view that break off at each of their statements in turn.

#include "canvas/deletion.h"
#include "editors/item_prop.h"
#include "links/canvas_links.h"
#include "stored_scenario_fixture.h"
#include "testkit/zoom_faults.h"
#include "zoom/build_view.h"

namespace orvent::testkit {

namespace {

class ZoomSaveTest : public StoredScenarioTest {
  protected:
    using Side = HookedDatabase::Side;

    /// Members that go, come, are renamed and linked in a zoom view.
    void editIn(zoom::ZoomForm& view) {
        view.SelectedLabels.Add(view.NamesColl.Item("Act1.PARAM.P"));
        view.SelectedLabels.Add(view.NamesColl.Item("RS1.A"));
        links::CanvasLinks links;
        canvas::DeleteSelectedNodes(view, canvas::kEveryNodeType, links, view.rules());
        editors::ItemProp dialog(view, *view.nodeNamed("Act1.OUT.O"), catalogue);
        dialog.changeName("P");
        EXPECT_TRUE(dialog.OK_Click());
        const auto draw = [&](const char* from, const char* to, canvas::EdgeTypeCode kind) {
            view.rules().edgeCompleted(
                view, *view.Lines.addFullLine(view.NamesColl.Item(from), 4, view.NamesColl.Item(to), 1, kind,
                                              canvas::AngleNone, 0));
        };
        for (const char* tool : {"Attribute", "Parameter"}) {
            view.rules().placeNode(view, tool, {});
            draw("Act1", (tool + std::string("1")).c_str(), canvas::EdgeTypePartOf);
        }
        draw("Act1.IN.A", "Act1.OUT.Attribute1", canvas::EdgeTypeProvider);
        draw("Act1.IN.A", "F.IN.X", canvas::EdgeTypeRegulator);
    }

    /// What was given to the scenario stays there, and the next save stores it.
    void breakOffInAZoom(Side side) {
        for (int at = 1;; ++at) {
            SCOPED_TRACE("broken off at statement " + std::to_string(at));
            auto form = graph("Zoomed" + std::to_string(at));
            save(*form, true, Answer::cancel);
            zoom::ZoomForm view({{user, canvasSettings}, catalogue.tables, repository.progress, narrow}, *form);
            zoom::buildZoomView(view, *form->nodeNamed("Act1"));
            editIn(view);
            repository.hooked.after(
                at, [] { throw kBroken; }, side);
            view.Save();
            const bool brokeOff = repository.hooked.happened();
            repository.hooked.after(0, [] {});
            const std::string expected = modelText(*form);
            EXPECT_NE(expected.find("'Attribute1'"), std::string::npos);
            if (user.told.back() != "Saved") {
                view.Save();
                ASSERT_EQ(modelText(*form), expected) << "the view has lost something";
            }
            EXPECT_EQ(CanvasFaults::ofZoom(view), CanvasFaults::Lines{});
            expectStoredInAnyOrder(*form, expected);
            view.Save();  // with the identifiers that the view has taken over
            expectStoredInAnyOrder(*form, expected);
            loadSave.RemoveScenario(form->ScenarioID, true);
            EXPECT_EQ(storedRows(), 0) << "rows that nobody knows";
            if (!brokeOff) {
                EXPECT_GT(at, 20);
                return;
            }
        }
    }
};

TEST_F(ZoomSaveTest, BreaksOff) {
    breakOffInAZoom(Side::before);
}

TEST_F(ZoomSaveTest, LosesAReply) {
    breakOffInAZoom(Side::behind);
}

}  // namespace

}  // namespace orvent::testkit
