#pragma once

#include <QAbstractItemModel>
#include <QDockWidget>
#include <functional>
#include <set>
#include <tuple>

#include "shell/outline_form.h"

class QTreeView;

namespace orvent::qt {

/// The rows of an outline; it holds none of its own.
class OutlineModel : public QAbstractItemModel, public analysis::Outline::Listener {
    Q_OBJECT

  public:
    using Row = analysis::Outline::Row;
    using Form = std::function<shell::OutlineForm*()>;

    OutlineModel(Form form, QObject* parent) : QAbstractItemModel(parent), form_(std::move(form)) {}
    ~OutlineModel() override;

    /// Shows another outline, or nothing.
    void take(analysis::Outline* outline);
    analysis::Outline* outline() const { return outline_; }
    static Row* rowOf(const QModelIndex& index) { return static_cast<Row*>(index.internalPointer()); }
    QModelIndex indexOf(const Row& row, int column = 0) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  Q_SIGNALS:
    void rowsRenewed(const QModelIndex& parent);

  private:
    // analysis::Outline::Listener
    void aboutToReset() override { beginResetModel(); }
    void reset() override { endResetModel(); }
    void aboutToRemove(const Row& parent) override;
    void removed() override;
    void aboutToInsert(const Row& parent, int count) override;
    void inserted(const Row& parent) override;
    void altered(const Row& row) override;

    Form form_;
    analysis::Outline* outline_ = nullptr;
    bool removes_ = false;
    bool inserts_ = false;
};

/// The scenario in front as a tree in the order of the flow, which can be used by keyboard alone.
class OutlineDock : public QDockWidget {
    Q_OBJECT

  public:
    /// `logic` gives the outline, or nothing once that is gone.
    OutlineDock(OutlineModel::Form logic, QWidget* parent);

    void enter();
    /// There is another outline.
    void renew();
    /// Another node may be selected.
    void follow();

  Q_SIGNALS:
    void closed();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    using Key = std::tuple<canvas::NodeNumber, int, std::int32_t, std::int32_t>;
    static Key keyOf(const QModelIndex& index);
    void opened(const QModelIndex& index);
    void expandAgain(const QModelIndex& index);
    void expandRoots();
    void spanLinks(const QModelIndex& parent);

    OutlineModel::Form logic_;
    OutlineModel* model_;
    QTreeView* tree_;
    std::set<Key> expanded_;
    canvas::NodeNumber current_{};  ///< the node of the current row
    bool follows_ = false;          ///< the selection leads, not the tree
};

}  // namespace orvent::qt
