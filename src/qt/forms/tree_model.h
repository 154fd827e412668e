#pragma once

#include <QAbstractItemModel>

#include "forms/tree.h"
#include "qt/forms/list_model.h"

namespace orvent::qt {

/// A tree of a dialog's logic for a view. The second column tells how many of a parent's children are used, or
/// shown while some are not. A change of a node is told to the views as the change of that node.
class TreeModel : public QAbstractItemModel, private forms::TreeListener {
    Q_OBJECT

  public:
    TreeModel(forms::Tree& tree, Picture picture, QObject* parent);
    ~TreeModel() override;

    /// Set by the window: the user checks or unchecks the node.
    std::function<void(forms::Tree::Node& node)> click;

    /// Null for no index.
    forms::Tree::Node* node(const QModelIndex& index) const;
    QModelIndex indexOf(const forms::Tree::Node* node, int column = 0) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    QStringList mimeTypes() const override { return {QLatin1String(ListModel::kNodesMime)}; }
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }

  private:
    void about(const forms::TreeChange& change) override;
    void done(const forms::TreeChange& change) override;
    const std::vector<std::unique_ptr<forms::Tree::Node>>& children(const QModelIndex& parent) const;

    forms::Tree& tree_;
    Picture picture_;
    void (QAbstractItemModel::*end_)() = nullptr;  // of the change that is being made; none where no row comes or goes
};

}  // namespace orvent::qt
