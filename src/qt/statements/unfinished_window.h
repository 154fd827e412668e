#pragma once

#include <string>
#include <vector>

#include "qt/forms/form_window.h"
#include "statements/ldl_scenario.h"

class QTreeWidget;

namespace orvent::qt {

/// The list of activities whose statement is not whole or does not fit. Its accept button, or a double click, chooses
/// one to go to.
class UnfinishedWindow : public FormWindow {
    Q_OBJECT

  public:
    UnfinishedWindow(const std::vector<statements::UnfinishedStatement>& statements, QWidget* parent);

    /// The activity to go to; empty when the window was only closed.
    const std::string& chosen() const { return chosen_; }
    /// Its statement is to be made anew at once.
    bool generates() const { return generates_; }

  private:
    QTreeWidget* list_;
    std::string chosen_;
    bool generates_ = false;
};

}  // namespace orvent::qt
