#pragma once

#include <functional>
#include <string>
#include <utility>

#include "canvas/draw_form.h"
#include "testkit/graph_builder.h"
#include "testkit/scripted_ports.h"
#include "wizard_script.h"

namespace orvent::statements {

/// An activity Act that reads ID and AGE from record set SRC and writes the hand-made output OUT.
class WizardTest : public testkit::CanvasTest {
  protected:
    WizardTest() {
        for (const char* name : {"NUMBER", "VARCHAR2"}) {
            catalogue.dataTypes.add(name);
        }
        catalogue.functionTypes.add("OTHER");
        catalogue.functionTypes.add("[EMPTY]");
        graph.recordSet("SRC", {"ID", "AGE"});
        graph.recordSet("LOOKUP", {"KEY"}).RecordSet_Outputs->Item(1)->Attribute_Type = 1;
        activity = &graph.activity("Act", {"ID", "AGE"}, {"OUT"});
        graph.feed("SRC.ID", "Act.IN.ID");
        graph.feed("SRC.AGE", "Act.IN.AGE");
    }

    /// Runs the wizard on a template, played by `play`.
    void run(const std::string& text, std::function<void(LDLForm&)> play, ActivityDialog* dialog = nullptr) {
        catalogue.activityTypeLdl = {text};
        window.play = std::move(play);
        wizard.LDLCreate(form, *activity, dialog);
        EXPECT_FALSE(wizard.isOpen());
        EXPECT_EQ(wizard.Activity, nullptr);
        EXPECT_EQ(wizard.Sources.Count() + wizard.OutputsView.Count() + wizard.Variables.Count(), 0);
        EXPECT_TRUE(form.Enabled);
    }

    canvas::DrawForm form{ports.services()};
    testkit::GraphBuilder graph{form};
    entities::ActivityProperties* activity = nullptr;
    entities::CatalogueTables catalogue;
    WizardScript window;
    LDLForm wizard{ports.messages, catalogue, window};
};

}  // namespace orvent::statements
