#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "shell/desk.h"

namespace orvent::testkit {

/// Windows without a screen: remembers what is open and what was asked of them.
class FakeDesk : public shell::Desk {
  public:
    std::vector<canvas::CanvasForm*> windows;  ///< the last one is active
    std::vector<shell::ViewChange> viewChanges;
    std::vector<std::string> prints;  ///< captions, with "?" for a preview
    std::vector<std::string> menus;   ///< captions and names of the context menus shown
    std::vector<std::string> revealed;

    void show(canvas::CanvasForm& form) override { windows.push_back(&form); }
    void drop(canvas::CanvasForm& form) override { std::erase(windows, &form); }
    canvas::CanvasForm* active() override { return windows.empty() ? nullptr : windows.back(); }
    void changeView(canvas::CanvasForm&, shell::ViewChange change) override { viewChanges.push_back(change); }
    void reveal(canvas::CanvasForm&, const canvas::LabelsD& node) override { revealed.push_back(node.Caption()); }
    canvas::Point middleOf(const canvas::CanvasForm&) const override { return {5000, 3000}; }
    std::vector<std::string> typed;  ///< captions of the nodes whose text is edited
    void beginTyping(canvas::CanvasForm& form) override {
        typed.push_back(form.Labels.byIndex(form.SelectedLabels.members().front())->Caption());
    }
    void present(canvas::CanvasForm&, const canvas::LabelsD& node) override { revealed.push_back(node.Caption()); }
    void showTints(canvas::CanvasForm&, canvas::Tints*) override {}
    void showNotes(canvas::CanvasForm& form, const canvas::NodeNotes* shown) override { notes[&form] = shown; }
    std::map<const canvas::CanvasForm*, const canvas::NodeNotes*> notes;
    void showMenu(canvas::CanvasForm& form, const canvas::ContextMenu& menu, canvas::Point) override {
        menus.push_back(form.Caption() + " " + std::string(menu.name));
    }
    std::optional<canvas::Point> pointer;  ///< in the picture of the active window
    std::optional<canvas::Point> pointerIn(const canvas::CanvasForm&) const override { return pointer; }
    float widthForName(const canvas::LabelsD& node) const override {
        return 100.F * static_cast<float>(node.Caption().size()) + 1;
    }
    void paint(canvas::CanvasForm& form, shell::PictureTarget target) override {
        prints.push_back(form.Caption() + (target == shell::PictureTarget::preview ? "?" : ""));
    }
};

}  // namespace orvent::testkit
