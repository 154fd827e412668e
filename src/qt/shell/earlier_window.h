#pragma once

#include "qt/forms/form_window.h"
#include "shell/earlier_form.h"

class QComboBox;
class QLabel;
class QTreeWidget;

namespace orvent::qt {

/// Lists the kept states of a scenario; at the right a picture of the one that is chosen.
class EarlierWindow : public FormWindow {
    Q_OBJECT

  public:
    EarlierWindow(shell::EarlierForm& logic, QWidget* parent);

  private:
    void showRows();
    void showPicture();
    std::vector<std::size_t> selected() const;

    shell::EarlierForm& logic_;
    QComboBox* scenarios_;
    QTreeWidget* list_;
    QLabel* picture_;
    QPushButton* open_ = nullptr;
    QPushButton* remove_ = nullptr;
};

}  // namespace orvent::qt
