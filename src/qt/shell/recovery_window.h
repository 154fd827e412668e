#pragma once

#include "qt/forms/form_window.h"
#include "shell/recovery_form.h"

class QTreeWidget;

namespace orvent::qt {

/// Lists what a program that did not end properly has left. It closes when nothing is left, or at Later.
class RecoveryWindow : public FormWindow {
    Q_OBJECT

  public:
    RecoveryWindow(shell::RecoveryForm& logic, QWidget* parent);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void showRows();
    std::vector<std::size_t> selected() const;

    shell::RecoveryForm& logic_;
    QTreeWidget* list_;
};

}  // namespace orvent::qt
