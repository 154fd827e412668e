#pragma once

#include <QDoubleSpinBox>
#include <array>

#include "qt/forms/form_window.h"
#include "shell/options_form.h"

class QCheckBox;
class QFormLayout;
class QGridLayout;
class QLineEdit;
class QListWidget;

namespace orvent::qt {

/// The window of `OptionsForm`.
class OptionsWindow : public FormWindow {
    Q_OBJECT

  public:
    explicit OptionsWindow(shell::OptionsForm& logic, QWidget* parent = nullptr);

  private:
    void buildSizes();
    void buildZoom();
    void buildRest();
    void buildProblems();
    QDoubleSpinBox* newNumber(std::size_t index);
    void showState();

    shell::OptionsForm& logic_;
    std::array<QDoubleSpinBox*, 14> numbers_{};  ///< `Text1` to `Text14`
    QPushButton* lblColor_ = nullptr;
    QLineEdit* txtSQL_ = nullptr;
    QListWidget* problems_ = nullptr;
    QCheckBox* shortNames_ = nullptr;
    QAction* missing_ = nullptr;  ///< marks a script that is not there
};

}  // namespace orvent::qt
