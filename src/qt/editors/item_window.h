#pragma once

#include "editors/item_prop.h"
#include "qt/forms/form_window.h"

namespace orvent::qt {

/// The window of `AttributeProp`, `ParameterProp`, `ConstantProp` and `FunctionProp`.
class ItemWindow : public FormWindow {
    Q_OBJECT

  public:
    explicit ItemWindow(editors::ItemProp& logic, QWidget* parent = nullptr);

  private:
    QWidget* newTypeField(editors::ItemProp& logic);
};

}  // namespace orvent::qt
