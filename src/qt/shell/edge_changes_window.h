#pragma once

#include "links/check_consistency.h"
#include "qt/forms/report_window.h"

namespace orvent::qt {

/// The list of edges that a check of consistency deleted and drew, the deleted ones first.
class EdgeChangesWindow : public ReportWindow {
    Q_OBJECT

  public:
    EdgeChangesWindow(const links::EdgeChanges& changes, QWidget* parent);
};

}  // namespace orvent::qt
