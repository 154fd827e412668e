#pragma once

#include "exchange/open_scenario.h"
#include "qt/forms/form_window.h"

namespace orvent::qt {

/// Lists the types of a document that the repository lacks, and asks what is to become of them.
class MissingTypesWindow : public FormWindow {
    Q_OBJECT

  public:
    MissingTypesWindow(exchange::MissingTypesForm& logic, QWidget* parent);
};

}  // namespace orvent::qt
