#pragma once

#include "qt/repository/source_dialog.h"
#include "repository/repos_form.h"

namespace orvent::qt {

/// The window of `ReposForm`.
class ReposFormWindow : public SourceDialog {
    Q_OBJECT

  public:
    explicit ReposFormWindow(repository::ReposForm& logic, QWidget* parent = nullptr);
};

}  // namespace orvent::qt
