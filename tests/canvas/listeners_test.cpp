#include <gtest/gtest.h>

#include <optional>

#include "canvas/draw_form.h"
#include "canvas/scaling.h"
#include "testkit/scripted_ports.h"

using namespace orvent;
using namespace orvent::canvas;

namespace {

/// Writes down what it is told, a letter each: node, edge (lower case when it goes), many, markers, form.
struct Log : CanvasListener {
    explicit Log(Canvas& of) : canvas(of), subscription(of.listen(*this)) {}

    void nodeChanged(const LabelsD&) override { told += 'N'; }
    void nodeGoes(const LabelsD& node) override { told += canvas.Labels.byIndex(node.Index()) ? "n" : "?"; }
    void nodeRemoved(const LabelsD& node) override { told += canvas.Labels.byIndex(node.Index()) ? "?" : "-"; }
    void edgeChanged(const LinesD&) override { told += 'E'; }
    void edgeGoes(const LinesD&) override { told += 'e'; }
    void edgeRemoved(const LinesD&) override { told += '='; }
    void manyChanged() override { told += 'M'; }
    void formChanged() override { told += 'F'; }

    std::string taken() { return std::exchange(told, ""); }

    Canvas& canvas;
    std::string told;
    CanvasSubscription subscription;
};

class Told : public testkit::CanvasTest {
  protected:
    LabelsD& add(const std::string& name) { return form.Labels.Add({1000, 1000, 1050, 450}, name, NodeTypeRecordSet); }

    DrawForm form{ports.services()};
};

TEST_F(Told, ARefusedNameChangesTheCaption) {
    LabelsD& node = add("a");
    LabelsD& comment = form.Labels.Add({0, 0, 500, 500}, "Comment1", NodeTypeComment);
    add("b");
    add("Comment3");
    form.quietNames = true;
    Log log(form);
    node.setKeyName("c");
    EXPECT_EQ(log.taken(), "") << "nothing visible changed";
    node.setKeyName("b");
    EXPECT_EQ(node.Caption(), kErrorName);
    EXPECT_EQ(log.taken(), "N");
    comment.setKeyName("Comment3");
    EXPECT_EQ(log.taken(), "N") << "a comment takes a numbered name as caption";
    node.setCaption("b");
    EXPECT_EQ(log.taken(), "N") << "and not twice";
}

TEST_F(Told, OneChangeOnce) {
    Log log(form);
    LabelsD& node = add("a");
    EXPECT_EQ(log.taken(), "N");
    DrawForm other(ports.services());
    Log there(other);
    other.Labels.addLabel(node);
    EXPECT_EQ(there.taken(), "N");
    form.Lines.addFullLine(node.Index(), 3, add("b").Index(), 1, EdgeTypeProvider, AngleVerticalUp, 5);
    EXPECT_EQ(log.taken(), "NE");
    node.setBox({0, 0, 500, 500});
    EXPECT_EQ(log.taken(), "NE");
    form.setCaption("new");
    form.setEnabled(true);  // as it was
    form.setEnabled(false);
    EXPECT_EQ(log.taken(), "FF");
    form.Labels.Remove(node.Index());
    EXPECT_EQ(log.taken(), "e=n-");
}

TEST_F(Told, APictureZoomOfAThousandNodesIsOneBatch) {
    const NodeNumber first = add("first").Index();
    for (int i = 0; i < 1000; ++i) {
        form.Lines.addFullLine(first, 3, add("n" + std::to_string(i)).Index(), 1, EdgeTypeProvider, AngleNone, 0);
    }
    Log log(form);
    testkit::QuietProgress progress;
    Zoom(form, true, 2, progress);
    EXPECT_EQ(log.taken(), "M");
    EXPECT_EQ(form.Lines.at(1)->X1(), 2000 + 2100 + 50) << "the edges have moved all the same";
}

TEST_F(Told, ListenersComeAndGo) {
    Log stays(form);
    std::optional<Log> goes(form);
    struct Leaver : Log {
        using Log::Log;
        void nodeChanged(const LabelsD&) override { subscription.end(); }
    } leaves(form);
    Log last(form);
    add("a");
    EXPECT_EQ(goes->taken() + stays.taken() + last.taken(), "NNN")
        << "one that leaves meanwhile costs no other its turn";
    goes.reset();
    add("b");
    EXPECT_EQ(stays.taken() + last.taken(), "NN");
    auto brief = std::make_unique<DrawForm>(ports.services());
    Log survivor(*brief);
    brief.reset();  // its subscription ends later
}

TEST_F(Told, RowsToDeleteAreSharedAndCutBack) {
    DrawForm zoom(ports.services());
    zoom.DeletedNodes = form.DeletedNodes;
    form.DeletedNodes->Add(1, entities::DeletedActivity);
    const int mark = zoom.DeletedNodes->mark();
    zoom.DeletedNodes->Add(2, entities::DeletedLog);
    zoom.DeletedNodes->Add(3, entities::DeletedLog);
    EXPECT_EQ(form.DeletedNodes->Count(), 3);
    zoom.DeletedNodes->cutBack(mark);
    EXPECT_EQ(form.DeletedNodes->Count(), 1);
    zoom.clear();
    EXPECT_EQ(form.DeletedNodes->Count(), 1) << "the rows are still those of the scenario";
}

}  // namespace
