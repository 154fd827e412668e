#include "tour_zoom.h"

#include <QApplication>
#include <QListWidget>
#include <vector>

#include "qt/shell/desk_area.h"
#include "qt/shell/desk_window.h"
#include "testkit/model_text.h"
#include "tour_dialogs.h"
#include "tour_hand.h"
#include "zoom/zoom_form.h"

namespace orvent::tour {

using canvas::Point;
using shell::Command;

namespace {

/// A place of a node's box, as shares of its width and height.
struct Spot {
    float across = 0.5F, down = 0.5F;
};
constexpr Spot kMiddle, kLeftEnd{0.15F, 0.3F}, kLowerEdge{0.5F, 0.9F}, kUpperEdge{0.5F, 0.2F};

class ZoomStep {
  public:
    ZoomStep(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme)
        : player_(player), window_(window), frame_(frame), theme_(theme), hand_(window) {}

    bool open(const char* activity) {
        canvas::CanvasForm& design = *window_.area().active();
        design.SelectedLabels.Clear();
        design.SelectedLabels.Add(design.NamesColl.Item(activity));
        player_.during("zoom into an activity", [&] { frame_.run(Command::activityZoom); });
        form_ = dynamic_cast<zoom::ZoomForm*>(window_.area().active());
        player_.expect(form_ && form_->central(), "no zoom opened");
        QApplication::processEvents();
        return form_ != nullptr;
    }

    void look() {
        player_.picture(window_, "zoom");
        Player::press(*window_.area().activeWindow(), "takeOffer");
        frame_.run(Command::viewFit);
        player_.picture(window_, "zoom-whole");
        const Point input = spot("Activity2.IN.SONUM", kMiddle);
        hand_.move(input);
        player_.expect(!form_->light().isEmpty(), "no path is lit");
        player_.picture(window_, "zoom-path");
        theme_.setMode(qt::ThemeMode::dark);
        player_.picture(window_, "zoom-dark");
        theme_.setMode(qt::ThemeMode::light);
        hand_.move(spot("Activity2", kMiddle));
        showItem("Activity2.IN.SONUM", "zoom-member");
    }

    void drawRelationships() {
        player_.during("draw relationships", [&] { draw(); }, {[&](QWidget& box) {
                           player_.picture(box, "zoom-refused");
                           Player::press(box, "OK");
                       }});
        player_.expect(attribute("Activity2.IN.Attribute1").ProvidedFrom.count() == 1, "no provider edge was drawn");
        player_.expect(!form_->nodeNamed("Activity2.PARAM.Parameter1")
                               ->entity<entities::ParameterProperties>()
                               ->RegulatedFrom.count() &&
                           form_->nodeNamed("Activity2.PARAM.Parameter2")
                                   ->entity<entities::ParameterProperties>()
                                   ->RegulatedFrom.count() == 1,
                       "the regulator edge was not redirected");
        player_.expect(window_.windowTitle().contains(QLatin1String("(not applied yet)")), "changes are not marked");
        player_.picture(window_, "zoom-drawn");
        showItem("Function1", "zoom-free-function");
    }

    void showFilters() {
        struct Filter {
            std::vector<Command> commands;
            const char* picture;
        };
        // Derived edges may lie where provider edges do.
        for (const Filter& filter : {Filter{{Command::viewProvider}, "zoom-without-provider"},
                                     Filter{{Command::viewRegulator}, "zoom-without-regulator"},
                                     Filter{{Command::viewPartOf}, "zoom-without-part-of"},
                                     Filter{{Command::viewAttributes}, "zoom-without-details"},
                                     Filter{{Command::viewInstanceOf}, "zoom-instance-of"},
                                     Filter{{Command::viewDerived, Command::viewProvider}, "zoom-derived"}}) {
            for (const bool on : {true, false}) {
                for (const Command command : filter.commands) {
                    frame_.run(command);
                }
                frame_.run(Command::viewFit);
                if (on) {
                    player_.picture(window_, filter.picture);
                }
            }
        }
    }

    void keep() {
        player_.during("save through the zoom", [&] { frame_.run(Command::saveScenario); }, {[&](QWidget& box) {
                           player_.picture(box, "zoom-saved");
                           Player::press(box, "OK");
                       }});
        player_.expect(!form_->unapplied(), "the changes were not applied");
        player_.picture(window_, "zoom-applied");
        const canvas::DrawForm& design = form_->ParForm();
        player_.during("close the zoom", [&] { frame_.run(Command::closeScenario); }, {[&](QWidget& box) {
                           player_.picture(box, "zoom-closing");
                           Player::press(box, "Yes");
                       }});
        player_.picture(window_, "zoom-closed");
        player_.expect(window_.area().active() == &design && design.Enabled(),
                       "the zoom did not give its scenario back");
    }

    void loadAgain() {
        const std::string stored = testkit::modelText(*window_.area().active());
        player_.expect(stored.find("'Attribute1'") != std::string::npos, "the scenario did not get the new input");
        closeScenario(player_, frame_);
        player_.during("load what the zoom saved", [&] { frame_.run(Command::loadScenario); }, {[](QWidget& dialog) {
                           static_cast<QListWidget&>(Player::child(dialog, "ScenarioView")).setCurrentRow(0);
                           Player::press(dialog, "OKButton");
                       }});
        player_.expect(testkit::modelText(*window_.area().active()) == stored,
                       "what the zoom saved did not come back as it was");
    }

    void checkConsistency() {
        const canvas::CanvasForm& design = *window_.area().active();
        const int edges = design.Lines.Count();
        player_.during("check consistency", [&] { frame_.run(Command::checkConsistency); }, {[&](QWidget& box) {
                           player_.picture(box, "consistency-question");
                           Player::press(box, "OK");
                       }});
        // RS3 regulates parameters only; the check draws that as one edge to the activity's lower side.
        player_.expect(design.Lines.Count() == edges, "the check did not draw the sample's edges anew");
        player_.picture(window_, "consistency-checked");
    }

  private:
    Point spot(const std::string& name, Spot at) const {
        const canvas::LabelsD* node = form_->nodeNamed(name);
        if (!node) {
            player_.expect(false, name + " is not in the zoom");
            return {};
        }
        return {node->Left() + at.across * node->Width(), node->Top() + at.down * node->Height()};
    }

    const entities::AttributeProperties& attribute(const char* name) const {
        return *form_->nodeNamed(name)->entity<entities::AttributeProperties>();
    }

    void edge(const char* tool, Point from, Point to) {
        hand_.tool(tool);
        hand_.edge(from, to);
    }

    void draw() {
        const Point below = spot("Activity2.IN.AU_ID", kMiddle);
        const auto place = [&](const char* tool, float right, float down) {
            hand_.tool(tool);
            hand_.click({below.x + right, below.y + down});
        };
        place("Attribute", 0, 1500);
        place("Parameter", 0, 3000);
        place("Parameter", 0, 4200);
        place("Constant", -1800, 3600);
        place("Function", -3000, 6300);
        edge("PartOf", spot("Activity2", kLeftEnd), spot("Attribute1", kUpperEdge));
        edge("PartOf", spot("Activity2", kLowerEdge), spot("Parameter1", kUpperEdge));
        edge("PartOf", spot("Activity2", kLowerEdge), spot("Parameter2", kUpperEdge));
        hand_.tool("Provider");
        hand_.pull(spot("RS4.SONUM", kMiddle), spot("Activity2.IN.Attribute1", kMiddle));
        player_.picture(window_, "zoom-drawing");
        hand_.release(spot("Activity2.IN.Attribute1", kMiddle));
        edge("Regulator", spot("Constant2", kMiddle), spot("Activity2.PARAM.Parameter1", kLeftEnd));
        edge("Provider", spot("RS3.PUB_ID", kMiddle), spot("Activity2.IN.Attribute1", kMiddle));  // refused
        redirect("Constant2", "Activity2.PARAM.Parameter1", "Activity2.PARAM.Parameter2");
    }

    void redirect(const char* from, const char* to, const char* other) {
        const canvas::LinesD* edge = form_->Lines.FindConnectingLine(
            form_->NamesColl.Item(from), form_->NamesColl.Item(to), canvas::EdgeTypeRegulator, false);
        if (!edge) {
            player_.expect(false, std::string("no regulator edge to ") + to);
            return;
        }
        hand_.tool("Arrow");
        const Point end{edge->X2(), edge->Y2()};
        hand_.click(end);
        hand_.edge(end, spot(other, kLeftEnd));
    }

    /// Opens the small window of a single node, looks at it and leaves it.
    void showItem(const char* node, const char* name) {
        player_.during(name, [&] { frame_.pointerPorts().windows.openProperties(*form_, *form_->nodeNamed(node)); },
                       {[&](QWidget& dialog) {
                           player_.picture(dialog, name);
                           Player::press(dialog, "Cancel");
                       }});
    }

    Player& player_;
    qt::FrameWindow& window_;
    shell::MDIForm1& frame_;
    qt::Theme& theme_;
    Hand hand_;
    zoom::ZoomForm* form_ = nullptr;
};

}  // namespace

void zoomIntoActivity(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme) {
    ZoomStep step(player, window, frame, theme);
    if (!step.open("Activity2")) {
        return;
    }
    step.look();
    step.drawRelationships();
    step.showFilters();
    step.keep();
    step.loadAgain();
    step.checkConsistency();
}

}  // namespace orvent::tour
