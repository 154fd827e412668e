#pragma once

#include "editors/take_over.h"
#include "qt/forms/form_window.h"

class QPlainTextEdit;
class QPushButton;

namespace orvent::qt {

class CheckList;

/// The window of `TakeOverForm`.
class TakeOverWindow : public FormWindow {
    Q_OBJECT

  public:
    TakeOverWindow(editors::TakeOverForm& logic, QWidget* parent);

  private:
    void showState();
    void showRows();

    editors::TakeOverForm& logic_;
    QPlainTextEdit* lines_;
    CheckList* rows_;
    QPushButton* ok_ = nullptr;
};

}  // namespace orvent::qt
