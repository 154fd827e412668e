#pragma once

#include <QDialog>
#include <functional>

#include "forms/editor.h"

class QDialogButtonBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QScrollArea;
class QVBoxLayout;

namespace orvent::qt {

/// The base of all dialogs: contents above one row of buttons. What Enter, Escape, the buttons and the window's close
/// button mean for the dialog is settled here, once. Buttons are found by their object names.
class FormWindow : public QDialog {
    Q_OBJECT

  public:
    /// Every way out ends here. Of a window that shows an editor: asks it first, unless it was OK that closed.
    void done(int result) override;
    /// Escape and the close button of the window: asked about first, which the Cancel button is not.
    void reject() override;

  protected:
    /// Whether Escape or the close button may take the window away; asks what has to be asked.
    virtual bool mayDismiss() { return true; }
    /// Takes the window away without asking.
    void cancel() { QDialog::reject(); }

    void showEvent(QShowEvent* event) override;

    FormWindow(const QString& title, QWidget* parent);

    /// The window is one of an editor: what OK and closing do is the editor's.
    FormWindow(const QString& title, forms::Editor& editor, QWidget* parent);

    /// The OK button of an editor.
    QPushButton& addOK(const QString& name, const QString& text);

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

    /// Makes the window as high as its contents have become, as far as the screen has room.
    void growToContents();

    /// Does what a press on the accept button does.
    void press();

  private:
    forms::Editor* editor_ = nullptr;
    QVBoxLayout* body_;
    QScrollArea* area_ = nullptr;  ///< in which the contents stand
    QHBoxLayout* lastRow_;
    QDialogButtonBox* buttons_;
    QPushButton* accept_ = nullptr;
};

}  // namespace orvent::qt
