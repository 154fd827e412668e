#pragma once

#include <vector>

#include "qt/forms/report_window.h"
#include "statements/ldl_scenario.h"

namespace orvent::qt {

/// The list of activities whose statement is not whole or does not fit, and of record sets that nobody feeds.
class UnfinishedWindow : public ReportWindow {
    Q_OBJECT

  public:
    UnfinishedWindow(const std::vector<statements::UnfinishedStatement>& statements, QWidget* parent);

    /// The statement of the chosen activity is to be made anew at once.
    bool generates() const { return generates_; }
    /// The statement of the chosen activity stays as it is, and is not told again.
    bool confirms() const { return confirms_; }

  private:
    bool generates_ = false;
    bool confirms_ = false;
};

}  // namespace orvent::qt
