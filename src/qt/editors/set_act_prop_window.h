#pragma once

#include <array>

#include "editors/set_act_prop.h"
#include "qt/forms/form_window.h"
#include "qt/forms/list_model.h"
#include "qt/forms/window_sizes.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QSplitter;
class QTabWidget;
class QTextEdit;

namespace orvent::qt {

class RowButtons;
class RowView;
class StatementBox;
class TreePanel;

/// The dialog that defines an activity: above what it is called and does, below the two trees of what the scenario
/// offers, and the lists of its members.
class SetActPropWindow : public FormWindow {
    Q_OBJECT

  public:
    /// Takes the sizes of the last opening, and leaves its own.
    SetActPropWindow(editors::SetActProp& logic, WindowSizes& sizes, QWidget* parent);

    void done(int result) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* newDefinition();
    QWidget* newStatement();
    QWidget* newTrees();
    QWidget* newLists();
    QWidget* newLog();
    TreePanel* newTree(forms::Tree& tree, const QString& caption, const QString& name);
    RowView* newList(editors::ActList at, const char* caption);
    void addButtons();
    void addTabKeys();
    void showMenu(RowView& list, const QPoint& at);

    /// Lets the logic act, then shows the whole state.
    template <class Act>
    void act(Act step);
    void showState();
    void showTypes();
    void showOK();
    void showMisfit();
    void focusList();

    editors::SetActProp& logic_;
    WindowSizes& sizes_;
    QLineEdit* name_;
    QComboBox* types_;
    QTextEdit* descr_;
    QComboBox* language_;
    QPushButton* refresh_;
    StatementBox* statement_;
    QLabel* misfit_;
    QSplitter* trees_;
    RowButtons* rowButtons_;
    QTabWidget* tabs_;
    editors::ByList<RowView*> lists_{};
    QLabel* sourceNote_;
    QLineEdit* log_;
    QPushButton* ok_;
    bool showing_ = false;
    bool going_ = false;
};

}  // namespace orvent::qt
