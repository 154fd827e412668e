#pragma once

#include <QAbstractTableModel>
#include <QDockWidget>
#include <functional>

#include "shell/find_form.h"

class QLabel;
class QTreeView;

namespace orvent::qt {

class SearchField;

/// The rows of `FindDock`, each made when it is shown: there may be a hundred thousand of them.
class FindModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    using Form = std::function<const shell::FindForm*()>;
    static constexpr int kBegin = Qt::UserRole, kLength = Qt::UserRole + 1;  ///< of what was found, in the text

    FindModel(Form form, QObject* parent) : QAbstractTableModel(parent), form_(std::move(form)) {}

    /// Rows have come at the end, or all are others.
    void follow(bool others);

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : count_; }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : 3; }
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    Form form_;
    int count_ = 0;
    mutable int known_ = -1;  ///< the row that was asked for last
    mutable shell::FindRow row_;
};

/// The search in the window in front: a field, and what was found as one types.
class FindDock : public QDockWidget {
    Q_OBJECT

  public:
    /// `logic` gives the search, or nothing once that is gone.
    FindDock(std::function<shell::FindForm*()> logic, QWidget* parent);

    /// The keyboard goes to the field.
    void enter();
    void follow(bool others);

  Q_SIGNALS:
    void closed();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void act(const std::function<void(shell::FindForm& form)>& what);

    std::function<shell::FindForm*()> logic_;
    SearchField* field_;
    FindModel* model_;
    QTreeView* list_;
    QLabel* status_;
};

}  // namespace orvent::qt
