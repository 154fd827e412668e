#pragma once

#include <QAbstractTableModel>
#include <QDockWidget>
#include <functional>

#include "shell/types_form.h"

class QLabel;
class QTreeView;

namespace orvent::qt {

class SearchField;

/// The rows of `TypesDock`; it holds none of its own.
class TypesModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    using Form = std::function<const shell::TypesForm*()>;

    TypesModel(Form form, QObject* parent) : QAbstractTableModel(parent), form_(std::move(form)) {}

    void renew();

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : count_; }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : 2; }
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;

  private:
    Form form_;
    int count_ = 0;
};

/// All that can be placed in a scenario's picture, by dragging it there or with Enter.
class TypesDock : public QDockWidget {
    Q_OBJECT

  public:
    /// `logic` gives the list, or nothing once that is gone.
    TypesDock(std::function<shell::TypesForm*()> logic, QWidget* parent);

    void enter();
    /// The rows are others.
    void renew();

  Q_SIGNALS:
    void closed();

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void place(int row);

    std::function<shell::TypesForm*()> logic_;
    TypesModel* model_;
    SearchField* field_;
    QTreeView* list_;
    QLabel* status_;
};

}  // namespace orvent::qt
