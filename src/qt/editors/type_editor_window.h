#pragma once

#include <vector>

#include "editors/type_editor.h"
#include "qt/forms/form_window.h"
#include "qt/forms/window_sizes.h"

class QButtonGroup;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QTextEdit;

namespace orvent::qt {

class KeywordColouring;

/// The window of `TypeEditor`: `DBDataTypes`, `DBFunctionType` or `DBActTypes`.
class TypeEditorWindow : public FormWindow {
    Q_OBJECT

  public:
    /// Takes the sizes of the last opening, and leaves its own.
    TypeEditorWindow(editors::TypeEditor& logic, WindowSizes& sizes, QWidget* parent);

    void done(int result) override;

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    struct LineList {
        QListWidget* lines;
        QPushButton* add;
        QPushButton* remove;
    };
    struct Options {
        int editors::TypeEditor::*option;
        QButtonGroup* group;
    };
    using Event = void (editors::TypeEditor::*)();

    QWidget* newTypesSide();
    QWidget* newEditSide();
    QWidget* newDefinition();
    QWidget* newLists(QWidget* parent);
    QWidget* newOptions(QWidget* parent);
    QWidget* newTextPage(QTextEdit* box, QWidget* beside);
    QPushButton* newButton(const char* name, const QString& caption, Event handler);
    void act(Event handler);
    void showState();
    void showTypes();
    void showFields();
    void showLists();
    void showButtons();

    editors::TypeEditor& logic_;
    WindowSizes& sizes_;
    bool showing_ = false;  ///< controls are being filled
    QGroupBox* title_ = nullptr;
    QListWidget* types_ = nullptr;
    QWidget* editArea_ = nullptr;
    QLineEdit* name_ = nullptr;
    QTextEdit* descr_ = nullptr;
    QTextEdit* sql_ = nullptr;
    KeywordColouring* sqlColouring_ = nullptr;
    QTextEdit* ldl_ = nullptr;
    QListWidget* variables_ = nullptr;
    std::vector<LineList> lists_;
    std::vector<Options> options_;
    QLabel* usedBy_ = nullptr;
    QPushButton* new_ = nullptr;
    QPushButton* edit_ = nullptr;
    QPushButton* delete_ = nullptr;
    QPushButton* save_ = nullptr;
    QPushButton* cancel_ = nullptr;
    QPushButton* ok_ = nullptr;
};

}  // namespace orvent::qt
