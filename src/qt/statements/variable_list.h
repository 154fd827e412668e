#pragma once

#include <QTreeWidget>
#include <functional>

#include "statements/ldl_form.h"

namespace orvent::qt {

/// All variables of the template with what each stands for and whether it is complete; the current one is marked.
class VariableList : public QTreeWidget {
    Q_OBJECT

  public:
    /// `go` hears the name of a variable that was clicked.
    VariableList(QWidget* parent, std::function<void(const QString&)> go);

    void showState(const statements::LDLForm& logic);
};

}  // namespace orvent::qt
