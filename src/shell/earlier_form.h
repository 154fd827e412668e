#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "shell/earlier_states.h"

namespace orvent::shell {

/// The dialog that shows the kept states of a scenario, with a picture of the one that is chosen, and opens copies.
class EarlierForm {
  public:
    struct Row {
        std::string file;
        std::string when;   ///< local time
        std::string words;  ///< what had been done
    };
    /// Opens a copy of a state under a name; false when it did not come to that.
    using Open = std::function<bool(const std::string& file, const std::string& name)>;
    /// A window for a picture, or the scenario's form in it, as empty ones are made.
    using EmptyForm = std::function<std::unique_ptr<canvas::DrawForm>()>;

    /// Begins with the scenario in front, if there is one and it has states, else with the first that has. `states`
    /// outlives it.
    EarlierForm(EarlierStates& states, const canvas::DrawForm* front, Open open, EmptyForm emptyForm);

    const std::vector<std::string>& scenarios() const { return names_; }
    std::size_t scenario() const { return scenario_; }  ///< which of them is shown
    const std::vector<Row>& rows() const { return rows_; }

    void cboScenario_Click(std::size_t scenario);
    /// The scenario of a row's state for a picture of it; nothing when it cannot be read. Good until the next call.
    const canvas::DrawForm* pictureOf(std::size_t row);
    /// Whether a copy was opened, after which the dialog goes.
    bool cmdOpen_Click(std::size_t row);
    void cmdRemove_Click(const std::vector<std::size_t>& rows);

  private:
    void list();

    EarlierStates& states_;
    Open open_;
    EmptyForm emptyForm_;
    std::vector<std::string> names_, folders_;
    std::size_t scenario_ = 0;
    std::vector<Row> rows_;
    std::string pictured_;  ///< the file of the picture
    entities::CatalogueTables noTypes_;
    std::unique_ptr<canvas::DrawForm> picture_;
};

}  // namespace orvent::shell
