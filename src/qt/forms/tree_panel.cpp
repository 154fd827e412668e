#include "qt/forms/tree_panel.h"

#include <QLabel>
#include <QSortFilterProxyModel>
#include <QVBoxLayout>

#include "qt/forms/node_view.h"
#include "qt/forms/search_field.h"
#include "qt/text.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

using forms::Tree;

namespace {

/// Keeps what the tree shows, with all above it.
class NodeFilter : public QSortFilterProxyModel {
  public:
    explicit NodeFilter(QObject* parent) : QSortFilterProxyModel(parent) { setRecursiveFilteringEnabled(true); }

    void renew() { invalidateFilter(); }

  protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
        const auto& model = static_cast<const TreeModel&>(*sourceModel());
        return model.node(model.index(row, 0, parent))->isShown();
    }
};

}  // namespace

TreePanel::TreePanel(Tree& tree, Picture picture, const QString& caption, const QString& name, QWidget* parent)
    : QWidget(parent),
      tree_(tree),
      model_(tree, std::move(picture), this),
      shown_(new NodeFilter(this)),
      view_(new NodeView(this)),
      filter_(new SearchField(name + QStringLiteral("Filter"), tr("Filter"), this)) {
    auto* label = new QLabel(caption, this);
    label->setObjectName(name + QStringLiteral("Label"));
    label->setBuddy(view_);
    view_->setObjectName(name);
    view_->setAccessibleName(label->text().remove(QLatin1Char('&')));
    filter_->setAccessibleName(tr("Filter of %1").arg(view_->accessibleName()));
    filter_->goToFirst = [this] { goToFirst(); };
    shown_->setSourceModel(&model_);
    view_->setNodes(*shown_);
    view_->checkSelected = [this](bool byMouse) {
        clickSelected();
        if (byMouse) {
            tellClicked();
        }
    };
    view_->leave = [this] {
        if (Tree::Node* node = leaves ? current() : nullptr) {
            leaves(*node);
        }
    };
    view_->takesRows = [this] { return static_cast<bool>(dropRows); };
    view_->dropRows = [this] { dropRows(); };
    model_.click = [this](Tree::Node& node) {
        click({&node});
        tellClicked();
    };

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    rows->setSpacing(Spacing::gap / 2);
    rows->addWidget(label);
    rows->addWidget(filter_);
    rows->addWidget(view_, 1);

    connect(filter_, &QLineEdit::textChanged, this, &TreePanel::narrow);
    connect(shown_, &QAbstractItemModel::modelReset, this, &TreePanel::expandAgain);
    const auto keep = [this](const QModelIndex& index, bool open) {
        const Tree::Node* node = model_.node(shown_->mapToSource(index));
        if (node && !narrowing_) {
            const bool listed = node->parent() ? open : !open;
            QSet<QString>& keys = node->parent() ? expanded_ : collapsedRoots_;
            listed ? void(keys.insert(text(node->value().Key))) : void(keys.remove(text(node->value().Key)));
        }
    };
    connect(view_, &QTreeView::expanded, this, [keep](const QModelIndex& index) { keep(index, true); });
    connect(view_, &QTreeView::collapsed, this, [keep](const QModelIndex& index) { keep(index, false); });
    expandAgain();
}

Tree::Node* TreePanel::current() const {
    return model_.node(shown_->mapToSource(view_->currentIndex().siblingAtColumn(0)));
}

void TreePanel::addBelow(QWidget* widget) {
    static_cast<QVBoxLayout*>(layout())->addWidget(widget);
}

void TreePanel::setHint(const QString& hint) {
    view_->setHint(hint);
}

void TreePanel::clickSelected() {
    std::vector<Tree::Node*> nodes;
    for (const QModelIndex& index : view_->selectionModel()->selectedRows()) {
        nodes.push_back(model_.node(shown_->mapToSource(index)));
    }
    click(nodes);
}

/// While words stand in the box all that it leaves is open; afterwards the tree is open as it was.
void TreePanel::narrow(const QString& words) {
    narrowing_ = true;
    tree_.narrow(words.toStdString());
    static_cast<NodeFilter*>(shown_)->renew();
    if (words.isEmpty()) {
        view_->collapseAll();
        narrowing_ = false;
        expandAgain();
        view_->scrollTo(view_->currentIndex());
    } else {
        view_->expandAll();
    }
}

void TreePanel::goToFirst() {
    QModelIndex at = shown_->index(0, 0);
    while (at.isValid() && !model_.node(shown_->mapToSource(at))->hasWords()) {
        at = view_->indexBelow(at);
    }
    if (at.isValid()) {
        view_->setCurrentIndex(at);
        view_->setFocus();
    }
}

void TreePanel::expandAgain() {
    if (!filter_->text().isEmpty()) {
        view_->expandAll();
        return;
    }
    for (int at = 0; at < shown_->rowCount(); ++at) {
        const QModelIndex root = shown_->index(at, 0);
        if (collapsedRoots_.contains(text(model_.node(shown_->mapToSource(root))->value().Key))) {
            continue;
        }
        view_->expand(root);
        for (int inner = 0; inner < shown_->rowCount(root) && !expanded_.isEmpty(); ++inner) {
            const QModelIndex parent = shown_->index(inner, 0, root);
            if (expanded_.contains(text(model_.node(shown_->mapToSource(parent))->value().Key))) {
                view_->expand(parent);
            }
        }
    }
}

}  // namespace orvent::qt
