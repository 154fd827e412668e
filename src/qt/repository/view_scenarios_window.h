#pragma once

#include "qt/forms/form_window.h"
#include "repository/view_scenarios.h"

class QAction;
class QLabel;
class QLineEdit;
class QListWidgetItem;
class QMenu;

namespace orvent::qt {

class HintList;

/// The window of `ViewScenarios`, in the mode that was set up.
class ViewScenariosWindow : public FormWindow {
    Q_OBJECT

  public:
    explicit ViewScenariosWindow(repository::ViewScenarios& logic, QWidget* parent = nullptr);

  private:
    void buildList();
    void buildMenu();
    void showState();
    void choose(int item);
    void renameLater(QListWidgetItem* item);

    repository::ViewScenarios& logic_;
    QLabel* lblScenarios_;
    HintList* scenarioView_;
    QLabel* lblScenarioName_;
    QLineEdit* txtScenarioName_;
    QLabel* hint_;
    QPushButton* ok_;
    QMenu* scenarioViewM_;
    QAction* scenarioViewRenameM_;
    QAction* scenarioViewDeleteM_;
};

}  // namespace orvent::qt
