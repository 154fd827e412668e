#pragma once

#include <QDoubleSpinBox>
#include <array>

#include "qt/forms/form_window.h"
#include "shell/options_form.h"

class QCheckBox;
class QFormLayout;
class QGridLayout;
class QGroupBox;
class QLineEdit;
class QListWidget;
class QSpinBox;
class QTableWidget;

namespace orvent::qt {

/// The window of `OptionsForm`.
class OptionsWindow : public FormWindow {
    Q_OBJECT

  public:
    explicit OptionsWindow(shell::OptionsForm& logic, QWidget* parent = nullptr);

  private:
    QGroupBox* newSizes();
    QGroupBox* newZoom();
    QGroupBox* newProblems();
    QGroupBox* newFunctions();
    void newSampleRows();
    void buildRest();
    void showFunctions();
    QDoubleSpinBox* newNumber(std::size_t index);
    void showState();

    shell::OptionsForm& logic_;
    std::array<QDoubleSpinBox*, 14> numbers_{};  ///< `Text1` to `Text14`
    QPushButton* lblColor_ = nullptr;
    QLineEdit* txtSQL_ = nullptr;
    QListWidget* problems_ = nullptr;
    QTableWidget* functions_ = nullptr;
    QSpinBox* sampleRows_ = nullptr;
    QCheckBox* shortNames_ = nullptr;
    QAction* missing_ = nullptr;  ///< marks a script that is not there
};

}  // namespace orvent::qt
