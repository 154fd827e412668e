#pragma once

#include <array>
#include <string>

#include "canvas/draw_form.h"

namespace orvent::testkit {

/// A second kind of window with a canvas: a view over a scenario, with a rule, a menu and decisions of its own.
class SecondForm : public canvas::CanvasForm {
  public:
    SecondForm(canvas::DrawForm& scenario, const canvas::CanvasServices& services)
        : CanvasForm(services), scenario_(scenario) {
        setCaption(scenario.Caption() + " - View");
        DeletedNodes = scenario.DeletedNodes;
        scenario.setEnabled(false);
    }
    ~SecondForm() override { scenario_.setEnabled(true); }

    int saves = 0;
    bool mayClose = true;

    bool isZoom() const override { return true; }
    canvas::DrawForm& scenario() override { return scenario_; }
    canvas::CanvasRules& rules() override { return rules_; }
    void Save() override { ++saves; }
    bool QueryUnload() override { return mayClose; }

  private:
    struct Rules : canvas::DesignRules {
        static constexpr std::array kMarks = {
            canvas::ContextItem{"SecondReadyM", "Ready", canvas::MenuAction::notReady},
            canvas::ContextItem{"SecondOffM", "Off", canvas::MenuAction::notReady}};
        static constexpr std::array kItems = {
            canvas::ContextItem{"SecondPropertiesM", "Properties", canvas::MenuAction::properties, {}, true},
            canvas::ContextItem{"", ""},
            canvas::ContextItem{"SecondMarksM", "Marks", canvas::MenuAction::submenu, {}, false, kMarks}};
        static constexpr std::array kMenus = {canvas::ContextMenu{"RecordSetM", kItems}};

        std::span<const canvas::ContextMenu> menus() const override { return kMenus; }
        canvas::ItemState stateOf(const canvas::Canvas&, const canvas::ContextItem& item,
                                  const canvas::LabelsD* node) const override {
            if (item.name == "SecondReadyM") {
                return {true, node && node->Ready()};
            }
            return {item.name != "SecondOffM"};
        }
    };

    canvas::DrawForm& scenario_;
    Rules rules_;
};

}  // namespace orvent::testkit
