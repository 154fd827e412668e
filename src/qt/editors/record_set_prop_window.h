#pragma once

#include "editors/record_set_prop.h"
#include "qt/forms/form_window.h"
#include "qt/forms/window_sizes.h"

class QCheckBox;
class QComboBox;
class QLayout;
class QLineEdit;
class QMenu;
class QPushButton;

namespace orvent::qt {

class RowButtons;
class RowView;
class StatementBox;
class TreePanel;

/// The dialog that defines a record set: its name, the columns of source databases beside its attributes, and its
/// SELECT.
class RecordSetPropWindow : public FormWindow {
    Q_OBJECT

  public:
    /// Takes the sizes of the last opening, and leaves its own.
    RecordSetPropWindow(editors::RecordSetProp& logic, WindowSizes& sizes, QWidget* parent);

    void done(int result) override;

  protected:
    bool mayDismiss() override { return logic_.mayDismiss(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* newDatabases();
    QWidget* newAttributes();
    QLayout* newOwnColumns();
    void addColumn();
    QWidget* newStatement();
    QPushButton* newButton(const char* name, const QString& caption, std::function<void()> step);
    void loadDatabase();
    void unloadDatabase();
    void showDatabaseMenu(const QPoint& at);
    void showListMenu(const QPoint& at);

    /// Lets the logic act, then shows the whole state.
    void act(const std::function<void()>& step);
    void showState();

    editors::RecordSetProp& logic_;
    WindowSizes& sizes_;
    QLineEdit* name_;
    TreePanel* databases_;
    QPushButton* unload_;
    RowButtons* rowButtons_;
    RowView* list_;
    QLineEdit* column_;  ///< the name of a new column
    QComboBox* columnType_;
    QCheckBox* inUse_;
    StatementBox* statement_;
};

}  // namespace orvent::qt
