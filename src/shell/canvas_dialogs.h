#pragma once

#include "analysis/node_texts.h"
#include "canvas/canvas_host.h"
#include "editors/place_node.h"
#include "editors/rename_in_place.h"
#include "shell/desk.h"

namespace orvent::shell {

/// Who opens and closes the windows with a canvas.
class WindowKeeper {
  public:
    virtual ~WindowKeeper() = default;

    /// Opens the zoom view of an activity of a scenario. A second zoom asks, and closes the first one before.
    virtual void ZoomActivity(int Slot, canvas::NodeNumber NodeIndex) = 0;

    /// The close request of a window: asks, and drops it. False when it stays, and always while it takes no input.
    virtual bool close(canvas::CanvasForm& form) = 0;

    /// A dialog over the window gave it what it holds, and stays open.
    virtual void applied(canvas::CanvasForm& form) = 0;

    /// What has changed until now is a step of its own, called so; without words by what has changed.
    virtual void settle(const std::string& words) = 0;

    /// Does with the selected nodes of a window what the Edit menu would.
    virtual void edit(canvas::CanvasForm& form, canvas::EditAction action) = 0;

    /// A window takes input again, or takes none: commands and the focus follow.
    virtual void enabledChanged() = 0;
};

/// What the canvases ask to be shown.
class CanvasDialogs : public canvas::CanvasWindows {
  public:
    CanvasDialogs(Desk& desk, WindowKeeper& windows, const editors::EditorServices& services)
        : desk_(desk), windows_(windows), services_(services) {}

    void openProperties(canvas::CanvasForm& form, canvas::LabelsD& node) override { openAt(form, node, {}); }
    /// The dialog of the node with that member selected in its list.
    void openAt(canvas::CanvasForm& form, canvas::LabelsD& node, const analysis::Place& place);
    void openZoom(canvas::CanvasForm& form, canvas::LabelsD& activity) override {
        windows_.ZoomActivity(form.scenario().slot(), activity.Index());
    }
    void openTemplateWizard(canvas::CanvasForm& form, canvas::LabelsD& activity) override;
    std::string typeOf(const canvas::LabelsD& node) const override;
    void close(canvas::CanvasForm& form) override { windows_.close(form); }
    std::optional<std::string> nameInPlace(canvas::CanvasForm& form, const canvas::LabelsD& node) override {
        return editors::nameInPlace(form, node);
    }
    bool rename(canvas::CanvasForm& form, canvas::LabelsD& node, const std::string& name) override;
    /// Gives the place's member that name, as its row in the dialog of the node does.
    bool renameAt(canvas::CanvasForm& form, canvas::LabelsD& node, const analysis::Place& place,
                  const std::string& name);
    std::string whyNotPlaced(const canvas::CanvasForm& form, const std::string& key,
                             const canvas::Hit& hit) const override;
    void place(canvas::CanvasForm& form, const std::string& key, const canvas::Hit& hit, canvas::Point at) override {
        placeAt(form, key, hit, {at});
    }
    /// The dialog of all selected nodes.
    void showSelection(canvas::CanvasForm& form);
    /// Places what the key stands for near the middle of what the window shows, where nothing is covered; on the only
    /// selected edge where it can stand there.
    void placeAlone(canvas::DrawForm& form, const std::string& key);
    void edit(canvas::CanvasForm& form, canvas::EditAction action) override { windows_.edit(form, action); }
    void reveal(canvas::CanvasForm& form, const canvas::LabelsD& node) override { desk_.reveal(form, node); }
    void showMenu(canvas::CanvasForm& form, const canvas::ContextMenu& menu, canvas::Point at) override {
        desk_.showMenu(form, menu, at);
    }

  private:
    void placeAt(canvas::CanvasForm& form, const std::string& key, const canvas::Hit& hit, editors::Spot spot);

    Desk& desk_;
    WindowKeeper& windows_;
    editors::EditorServices services_;
};

}  // namespace orvent::shell
