// What is ticked in a dialog offers its edge on the canvas.

#include <gtest/gtest.h>

#include "testkit/test_frame.h"

using namespace orvent;
using shell::Command;

namespace {

bool joined(const canvas::DrawForm& form, const canvas::LabelsD& from, const canvas::LabelsD& to) {
    for (const canvas::LinesD& edge : form.Lines) {
        if (edge.FromLabel() == from.Index() && edge.ToLabel() == to.Index()) {
            return true;
        }
    }
    return false;
}

TEST(EdgeOffers, NewLinksOfADialogOfferTheirEdge) {
    testkit::TestRepository repository;
    testkit::TestFrame stage(repository);
    repository.messages.anyway = [](const std::string& text) {
        const bool asks = text.find("HAVE NOT BEEN SAVED") != std::string::npos;
        return asks ? platform::Answer::no : platform::Answer::ok;
    };
    ASSERT_TRUE(stage.frame.start());
    stage.frame.run(Command::loadTestGraph);
    canvas::DrawForm& form = stage.active();
    std::string key;
    bool keeps = true;
    stage.host.atActivity = [&](editors::SetActProp& dialog) {
        dialog.TabStrip1_Click(0);
        dialog.Drop({"DB." + key}, 0);
        keeps ? dialog.OK() : dialog.mayClose();
        dialog.end();
    };
    int tried = 0;
    const int nodes = form.Labels.Count();
    for (int at = 1; at <= nodes * nodes; ++at) {
        canvas::LabelsD& to = *form.Labels.at(1 + (at - 1) % nodes);
        const canvas::LabelsD& from = *form.Labels.at(1 + (at - 1) / nodes);
        if (!to.activity() || to.activity()->Act_Type < 0 || !from.recordSet() ||
            from.recordSet()->RecordSet_Outputs.count() == 0 || joined(form, from, to)) {
            continue;
        }
        key = from.Caption() + "." + from.recordSet()->RecordSet_Outputs.peek()->Item(1)->Key;
        for (const bool applied : {false, true}) {
            keeps = applied;
            stage.frame.pointerPorts().windows.openProperties(form, to);
            const auto offer = form.offer();
            ASSERT_EQ(offer && offer->button == "Draw Edge", applied) << key;
        }
        EXPECT_EQ(form.offer()->words, "Links lead from " + from.Caption() + " to " + to.Caption() + ", and no edge.");
        form.answerOffer(++tried % 2 == 0);
        EXPECT_EQ(joined(form, from, to), tried % 2 == 0);
        EXPECT_FALSE(form.offer() && form.offer()->button == "Draw Edge");
        // What was turned down is not offered again for the sake of other things.
        keeps = true;
        key = "none";
        stage.frame.pointerPorts().windows.openProperties(form, to);
        EXPECT_FALSE(form.offer() && form.offer()->button == "Draw Edge");
    }
    EXPECT_GT(tried, 3);
}

}  // namespace
