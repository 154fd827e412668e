#pragma once

#include <QTreeView>

#include "qt/forms/list_model.h"

namespace orvent::qt {

/// Shows the rows of a list with its selection and its prompt. Rows are removed, moved and edited by keys, moved within
/// the list by dragging, and take what is dropped on them, with a line that shows where it will stand.
class RowView : public QTreeView {
    Q_OBJECT

  public:
    /// `model` lives as long as the view.
    RowView(ListModel& model, const QString& name, QWidget* parent);

    /// Set by the window: what Delete and Alt with an arrow key, Home or End do.
    std::function<void()> removeRows;
    std::function<void(forms::RowMove where)> moveRows;

    /// With columns and their heads, or the labels alone.
    void setReport(bool report);
    /// The column is as wide as what is in sight of it, but at most half of the view.
    void fitColumn(int column);
    /// Edits the label of the current row.
    void editLabel();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    int sizeHintForColumn(int column) const override;
    void paintEvent(QPaintEvent* event) override;

  private:
    /// What the selected rows show, a line each with tabs.
    QString selectedText() const;
    void tellSelection();
    void takeSelection();

    ListModel& model_;
    bool following_ = false;
};

}  // namespace orvent::qt
