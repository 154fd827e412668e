#pragma once

#include <QTreeWidget>

#include "statements/ldl_form.h"

namespace orvent::qt {

/// All variables of the template with what each stands for and whether it is complete; the current one is marked. It
/// only shows.
class VariableList : public QTreeWidget {
    Q_OBJECT

  public:
    explicit VariableList(QWidget* parent);

    void showState(const statements::LDLForm& logic);

  protected:
    // The walk goes by the buttons alone.
    void mousePressEvent(QMouseEvent*) override {}
    void mouseDoubleClickEvent(QMouseEvent*) override {}
    void mouseMoveEvent(QMouseEvent*) override {}
};

}  // namespace orvent::qt
