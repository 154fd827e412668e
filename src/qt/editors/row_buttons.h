#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "forms/list.h"

class QToolButton;

namespace orvent::qt {

/// The buttons that move the rows of the list beside them, and take them back to the tree.
class RowButtons : public QWidget {
    Q_OBJECT

  public:
    explicit RowButtons(QWidget* parent);

    /// Set by the window.
    std::function<void(forms::RowMove where)> move;
    std::function<void()> remove, removeAll;

    /// With a reason they are grey and say it.
    void showState(const QString& whyNot);

  private:
    struct Button {
        QToolButton* shown;
        QString tip;
    };
    std::vector<Button> buttons_;
};

}  // namespace orvent::qt
