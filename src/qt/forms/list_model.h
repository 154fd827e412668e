#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <QStringList>
#include <functional>

#include "forms/list.h"

namespace orvent::qt {

/// Gives the picture of a row or node by the key of its image, in a model colour; 0 is the ordinary one.
using Picture = std::function<QIcon(const std::string& image, std::int32_t colour)>;

/// A list of a dialog's logic for a view: its text and its sub-items are the columns. Each change of the list is told
/// to the views as the same change; its prompt is none of the rows.
class ListModel : public QAbstractTableModel, private forms::ListListener {
    Q_OBJECT

  public:
    enum Role {
        WarningRole = Qt::UserRole  ///< the words of a row's warning mark
    };
    static constexpr auto kRowsMime = "application/x-orvent-rows";
    static constexpr auto kNodesMime = "application/x-orvent-nodes";
    static constexpr char kBetweenKeys = '\0';  ///< in a drag of nodes

    ListModel(forms::List& list, QStringList columns, Picture picture, QObject* parent);
    ~ListModel() override;

    /// Set by the window. Takes a new label; false: the label keeps its text. Without it no label is edited.
    std::function<bool(int position, const std::string& label)> rename;
    /// Tree nodes dropped before the row at `position`, or the list's own rows; 0 stands for behind the last row.
    std::function<void(const std::vector<std::string>& keys, int position)> dropNodes;
    std::function<void(const std::vector<int>& rows, int position)> dropRows;
    /// Whether tree nodes may be dropped here at the moment.
    std::function<bool(const std::vector<std::string>& keys)> takesNodes;

    forms::List& list() { return list_; }
    /// The list is being changed: what views do to their selection meanwhile is not the user's.
    bool isChanging() const { return changing_; }
    /// The colour of the rows' pictures.
    void setColour(std::int32_t colour) { colour_ = colour; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction | Qt::MoveAction; }
    Qt::DropActions supportedDragActions() const override { return Qt::MoveAction; }
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

  Q_SIGNALS:
    /// Selection or prompt of the list may have changed.
    void listChanged();

  private:
    void about(const forms::ListChange& change) override;
    void done(const forms::ListChange& change) override;
    QByteArray owner() const;
    const forms::ListRow& row(const QModelIndex& index) const { return *list_.Item(index.row() + 1); }

    forms::List& list_;
    QStringList columns_;
    Picture picture_;
    std::int32_t colour_ = 0;
    bool changing_ = false;
    void (QAbstractItemModel::*end_)() = nullptr;  // of the change that is being made; none where no row comes or goes
};

}  // namespace orvent::qt
