#pragma once

#include <QDialog>
#include <functional>

class QDialogButtonBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace orvent::qt {

/// The base of all dialogs: contents above one row of buttons. What Enter, Escape and the buttons mean for the dialog
/// is settled here, once. Buttons are found by their object names.
class DialogBase : public QDialog {
    Q_OBJECT

  protected:
    DialogBase(const QString& title, QWidget* parent);

    /// Where a dialog puts its controls, from top to bottom.
    QVBoxLayout& body() { return *body_; }

    /// The button that Enter presses. The dialog closes when `act` gives true.
    QPushButton& addAccept(const QString& name, const QString& text, std::function<bool()> act);
    /// The button that Escape and the window's close button press.
    QPushButton& addCancel(const QString& name);
    /// A button at the other side, which leaves the dialog open.
    QPushButton& addSideButton(const QString& name, const QString& text, std::function<void()> act);

    /// A quiet line at the other side of the row of buttons.
    QLabel& addNote(const QString& name);

    /// Does what a press on the accept button does.
    void press();

  private:
    QVBoxLayout* body_;
    QHBoxLayout* lastRow_;
    QDialogButtonBox* buttons_;
    QPushButton* accept_ = nullptr;
};

}  // namespace orvent::qt
