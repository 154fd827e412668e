#include "tour_zoom.h"

#include <QApplication>

#include "qt/shell/desk_area.h"
#include "tour_hand.h"
#include "zoom/view_filters.h"
#include "zoom/zoom_form.h"

namespace orvent::tour {

using shell::Command;

namespace {

/// Opens the small window of a single node, looks at it and leaves it.
void showItem(Player& player, shell::MDIForm1& frame, zoom::ZoomForm& form, canvas::LabelsD& node, const char* name) {
    player.during(name, [&] { frame.pointerPorts().windows.openProperties(form, node); }, {[&](QWidget& dialog) {
                      player.picture(dialog, name);
                      Player::press(dialog, "Cancel");
                  }});
}

}  // namespace

void zoomIntoActivity(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme) {
    canvas::CanvasForm& design = *window.area().active();
    design.SelectedLabels.Clear();
    design.SelectedLabels.Add(design.NamesColl.Item("Activity2"));
    player.during("zoom into an activity", [&] { frame.run(Command::activityZoom); });
    auto* zoomed = dynamic_cast<zoom::ZoomForm*>(window.area().active());
    player.expect(zoomed && zoomed->central(), "no zoom opened");
    if (!zoomed) {
        return;
    }
    QApplication::processEvents();
    player.picture(window, "zoom");
    frame.run(Command::viewFit);
    player.picture(window, "zoom-whole");
    theme.setMode(qt::ThemeMode::dark);
    player.picture(window, "zoom-dark");
    theme.setMode(qt::ThemeMode::light);
    showItem(player, frame, *zoomed,
             *zoomed->nodeNamed(zoomed->central()->KeyName() + ".IN." +
                                zoomed->central()->activity()->Act_Inputs->Item(1)->Key),
             "zoom-member");
    zoomed->rules().placeNode(*zoomed, "Function", {1500, 9000});
    showItem(player, frame, *zoomed, *zoomed->nodeNamed("Function1"), "zoom-free-function");
    zoomed->Labels.Remove(zoomed->NamesColl.Item("Function1"));
    using Mark = bool zoom::ViewMarks::*;
    struct Filter {
        Mark mark;
        const char* picture;
    };
    for (const Filter& filter : {Filter{&zoom::ViewMarks::ViewPartOfM, "zoom-without-part-of"},
                                 Filter{&zoom::ViewMarks::ViewInstanceOfM, "zoom-instance-of"},
                                 Filter{&zoom::ViewMarks::ViewDerivedM, "zoom-derived"}}) {
        zoom::toggleFilter(*zoomed, filter.mark);
        frame.run(Command::viewFit);
        player.picture(window, filter.picture);
        zoom::toggleFilter(*zoomed, filter.mark);
    }
    player.during("save through the zoom", [&] { frame.run(Command::saveScenario); }, {[&](QWidget& box) {
                      player.picture(box, "zoom-saved");
                      Player::press(box, "OK");
                  }});
    player.during("close the zoom", [&] { frame.run(Command::closeScenario); }, {[&](QWidget& box) {
                      player.picture(box, "zoom-closing");
                      Player::press(box, "Yes");
                  }});
    player.picture(window, "zoom-closed");
    player.expect(window.area().active() == &design && design.Enabled(), "the zoom did not give its scenario back");
}

}  // namespace orvent::tour
