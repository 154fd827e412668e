// Scenarios out of the ordinary, and what goes wrong on the way back.

#include "testkit/zoom_faults.h"
#include "zoom/apply_zoom_changes.h"
#include "zoom/expand_collapse.h"
#include "zoom/make_room.h"
#include "zoom/view_filters.h"
#include "zoom/zoom_fixture.h"

using namespace orvent;
using namespace orvent::entities;

namespace {

class ZoomCases : public testkit::ZoomTest {
  protected:
    void feed(const std::string& from, const std::string& to) {
        graph.add("A2.OUT." + from + " -> 2 A2 A2.IN." + to);
        graph.add("A2.IN." + to + " <- 2 A2 A2.OUT." + from);
        edge("A2", "A2");
    }

    canvas::LabelsD& add(const std::string& name, canvas::NodeTypeCode type) {
        return design.Labels.Add({0, 0, 1050, 450}, name, type);
    }

    /// An activity and a record set with dots in their names and keys, the one feeding the other.
    void addDotted() {
        ActivityProperties& activity = *add("Load.v2", canvas::NodeTypeActivity).activity();
        AttributeProperties& input = activity.Act_Inputs->Add("a.b.c", 0, tagOf(LinkRecordSet), "a.b.c");
        RecordSetProperties& recordSet = *add("dbo.TITLES", canvas::NodeTypeRecordSet).recordSet();
        AttributeProperties& attribute = recordSet.RecordSet_Outputs->Add("x.y", 0, "x.y");
        input.ParentKeyName = "Load.v2";
        attribute.ParentKeyName = "dbo.TITLES";
        input.ProvidedFrom->Add("dbo.TITLES", LinkRecordSet, "dbo.TITLES.x.y");
        attribute.ProviderFor->Add("Load.v2", LinkRecordSet, "Load.v2.IN.a.b.c");
        edge("dbo.TITLES", "Load.v2");
    }
};

TEST_F(ZoomCases, OddScenariosAreGivenBackAsTheyWere) {
    struct Row {
        const char* name;
        const char* activity;
        std::function<void()> prepare;
    };
    for (const Row& row :
         {Row{"a neighbour reached twice", "A2", [&] { edge("A2", "RS4"), edge("A1", "A2"); }},
          Row{"an activity that feeds itself", "A2", [&] { feed("SONUM", "LOOP"); }},
          Row{"a neighbour with a function of the same key", "A2",
              [&] { graph.addNamesake(design, *graph.activity("A2").Act_Functions->Item("F1"), "A3", "AU_ID"); }},
          Row{"the same function, seen from there", "A3", [] {}},
          Row{"a constant named like a record set", "A2",
              [&] {
                  graph.add("A2.PARAM.NEW <~ 6 RS4 RS4");
                  graph.add("A2.PARAM.NEW2 <~ 6 RS9 RS9");
                  add("RS9", canvas::NodeTypeRecordSet);
              }},
          Row{"dots in names", "Load.v2", [&] { addDotted(); }},
          Row{"an empty activity without type or edges", "Empty", [&] { add("Empty", canvas::NodeTypeActivity); }}}) {
        SCOPED_TRACE(row.name);
        row.prepare();
        const std::string before = testkit::modelText(design);
        open(row.activity);
        const auto faults = testkit::CanvasFaults::ofZoom(*form);
        const Texts shown = boxes(), drawn = edges(true);
        for (int twice = 0; twice < 2; ++twice) {
            zoom::ApplyZoomChanges(*form, true);
            ASSERT_EQ(testkit::modelText(design), before);
            EXPECT_EQ(edges(true), drawn);
            EXPECT_EQ(testkit::CanvasFaults::ofZoom(*form), faults);
        }
        for (bool zoom::ViewMarks::*mark : {&zoom::ViewMarks::ViewInstanceOfM, &zoom::ViewMarks::ViewDerivedM}) {
            zoom::toggleFilter(*form, mark);
            zoom::toggleFilter(*form, mark);
        }
        zoom::MakeRoom(*form);
        EXPECT_FALSE(zoom::boxesOverlap(*form));
        zoom::ApplyZoomChanges(*form, false);
        ASSERT_EQ(testkit::modelText(design), before);
    }
}

TEST_F(ZoomCases, ACatalogueThatChangedMeanwhileLosesNothing) {
    open();
    node("RS4.SONUM").entity<AttributeProperties>()->Attribute_Type = 1;
    const std::string applied = [&] {
        zoom::ApplyZoomChanges(*form, true);
        return testkit::modelText(design);
    }();
    const Texts shown = edges(true);
    catalogue.dataTypes.clear();  // without the type of index 1
    int stored = 0;
    store.save = [&](canvas::DrawForm&) { ++stored; };
    EXPECT_THROW(form->Save(), platform::Fault);
    EXPECT_EQ(testkit::modelText(design), applied);
    for (const char* type : {"NUMBER", "VARCHAR2(20)"}) {
        catalogue.dataTypes.add(type);
    }
    form->Save();
    EXPECT_EQ(stored, 1);
    EXPECT_EQ(testkit::modelText(design), applied);
    for (const zoom::NewANDoldIndex& pair : form->New2OldIndex) {
        zoom::ExpandByPlace(*form, *form->Labels.byIndex(pair.NewIndex));
    }
    EXPECT_EQ(edges(true), shown);
    expectSound();
}

}  // namespace
