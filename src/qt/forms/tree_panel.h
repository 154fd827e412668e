#pragma once

#include <QSet>
#include <QWidget>

#include "qt/forms/tree_model.h"

class QLabel;
class QSortFilterProxyModel;

namespace orvent::qt {

class NodeView;
class SearchField;

/// A tree of a dialog's logic below its caption and a box that narrows it while one types; the box only hides nodes.
/// Space and the box beside a node check it, as a double click on a leaf does.
class TreePanel : public QWidget {
    Q_OBJECT

  public:
    TreePanel(forms::Tree& tree, Picture picture, const QString& caption, const QString& name, QWidget* parent);

    /// Set by the window: the user checks or unchecks nodes, all alike.
    std::function<void(const std::vector<forms::Tree::Node*>& nodes)> click;
    /// The mouse did it: what came into a list is looked at there. Who checks by keys stays in the tree.
    std::function<void()> clicked;
    /// A dragged node comes near the edge of the tree, on its way to a list.
    std::function<void(forms::Tree::Node& node)> leaves;
    /// Rows of a list are dropped back.
    std::function<void()> dropRows;

    NodeView& view() { return *view_; }
    /// The node that has the focus in the tree, or nothing.
    forms::Tree::Node* current() const;
    /// A row below the tree, for buttons.
    void addBelow(QWidget* widget);
    /// What stands in the middle of an empty tree.
    void setHint(const QString& hint);

  private:
    void narrow(const QString& words);
    void goToFirst();
    void expandAgain();
    void clickSelected();
    void tellClicked() {
        if (clicked) {
            clicked();
        }
    }

    forms::Tree& tree_;
    TreeModel model_;
    QSortFilterProxyModel* shown_;
    NodeView* view_;
    SearchField* filter_;
    QSet<QString> collapsedRoots_;
    QSet<QString> expanded_;  // below the roots
    bool narrowing_ = false;
};

}  // namespace orvent::qt
