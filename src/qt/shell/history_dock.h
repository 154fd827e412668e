#pragma once

#include <QDockWidget>
#include <functional>

#include "shell/scenario_histories.h"

class QLabel;
class QListWidget;

namespace orvent::qt {

/// The steps of the scenario in front, beside the windows: the present one is marked, a click goes to another one.
class HistoryDock : public QDockWidget {
    Q_OBJECT

  public:
    HistoryDock(std::function<void(std::size_t line)> goTo, QWidget* parent);

    void showLines(const shell::HistoryLines& lines);

  Q_SIGNALS:
    void closed();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    QListWidget* list_;
    QLabel* reason_;
};

}  // namespace orvent::qt
