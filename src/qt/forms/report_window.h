#pragma once

#include <string>
#include <vector>

#include "qt/forms/form_window.h"

class QTreeWidget;

namespace orvent::qt {

/// What the program has to tell of several nodes, a row each. The accept button, or a double click, chooses one to go
/// to.
class ReportWindow : public FormWindow {
    Q_OBJECT

  public:
    struct Row {
        std::string head;
        std::string words;
        const char* icon;
    };

    /// The row to go to, from 0 on; -1 when the window was only closed.
    int chosen() const { return chosen_; }

  protected:
    ReportWindow(const QString& title, const QString& words, const std::vector<Row>& rows, QWidget* parent);

    QTreeWidget& list() { return *list_; }

  private:
    QTreeWidget* list_;
    int chosen_ = -1;
};

}  // namespace orvent::qt
