#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "repository/scenario_load_save.h"
#include "repository/scenario_windows.h"
#include "repository/services.h"

namespace orvent::repository {

/// `ViewScenarios`: lists the user's scenarios to save under a name, load, delete and rename.
class ViewScenarios {
  public:
    enum class Mode { Save, Load, Delete };

    struct Item {
        std::string name;
        std::int16_t Tag = 0;  ///< repository key
    };

    ViewScenarios(Services& services, ScenarioLoadSave& loadSave, ScenarioWindows& windows)
        : services_(services), loadSave_(loadSave), windows_(windows) {}

    std::vector<Item> ScenarioView;
    int selected = -1;  ///< position in `ScenarioView`, from 0; -1 for none
    std::string txtScenarioName;
    std::string title;
    std::string OKCaption;

    /// Shows the state again while a step is under way.
    std::function<void()> show = [] {};

    /// Sets up a mode and fills the list. `target` is the window to save. In save mode its caption is the proposed
    /// name. False when the list could not be read, which was told.
    bool open(Mode mode, canvas::DrawForm* target);

    void clickItem(int item);
    /// A typed name. Where a scenario is to be chosen, the one of that name is selected, or none.
    void changeName(const std::string& text);

    /// Whether `OKButton` would do anything now.
    bool canOK() const {
        return !txtScenarioName.empty() && (mode_ == Mode::Save ? target_ != nullptr : holds(selected));
    }

    /// Why `OKButton` would do nothing, as far as that is worth a word.
    std::string hint() const;

    /// True when the dialog closes.
    bool OKButton();

    /// The end of a label edit. A failed rename is told, and the list shows the new text all the same until it is
    /// filled again; an empty text is no name and changes nothing.
    void ScenarioViewRename(int item, const std::string& text);

    /// Deletes the selected scenario after a question. True when it was deleted.
    bool ScenarioViewDelete();

  private:
    bool holds(int item) const { return item >= 0 && item < static_cast<int>(ScenarioView.size()); }
    void saveTarget();
    void loadSelected();

    Services& services_;
    ScenarioLoadSave& loadSave_;
    ScenarioWindows& windows_;
    Mode mode_ = Mode::Load;
    canvas::DrawForm* target_ = nullptr;
};

}  // namespace orvent::repository
