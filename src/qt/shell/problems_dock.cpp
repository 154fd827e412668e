#include "qt/shell/problems_dock.h"

#include <QHeaderView>
#include <QLabel>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "qt/text.h"
#include "qt/theme/icons.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

namespace {

constexpr int kPlaceWidth = 180;

}  // namespace

void ProblemsModel::take(std::vector<shell::ProblemLine> lines) {
    beginResetModel();
    lines_ = std::move(lines);
    endResetModel();
}

const shell::ProblemLine* ProblemsModel::line(int row) const {
    return row >= 0 && row < rowCount() ? &lines_[static_cast<std::size_t>(row)] : nullptr;
}

int ProblemsModel::rowOf(const shell::ProblemLine& line) const {
    const auto place = std::find(lines_.begin(), lines_.end(), line);
    return place == lines_.end() ? -1 : static_cast<int>(place - lines_.begin());
}

int ProblemsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

int ProblemsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 2;
}

QVariant ProblemsModel::data(const QModelIndex& index, int role) const {
    const shell::ProblemLine* row = line(index.row());
    if (!row) {
        return {};
    }
    switch (role) {
        case Qt::DisplayRole:
            return text(index.column() == 0 ? row->place : row->words).simplified();
        case Qt::ToolTipRole:
            return text(row->words);
        case Qt::DecorationRole:
            return index.column() == 0 ? QVariant(icon(QStringLiteral("warning"))) : QVariant();
        default:
            return {};
    }
}

QVariant ProblemsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return section == 0 ? tr("Node") : tr("What is missing");
}

ProblemsDock::ProblemsDock(std::function<void(canvas::NodeNumber node)> goTo, QWidget* parent)
    : QDockWidget(tr("Problems"), parent), model_(new ProblemsModel(this)), list_(new QTreeView), why_(new QLabel) {
    setObjectName(QStringLiteral("ProblemsDock"));
    auto* inside = new QWidget(this);
    auto* column = new QVBoxLayout(inside);
    column->setContentsMargins({});
    column->setSpacing(0);
    list_->setObjectName(QStringLiteral("lstProblems"));
    list_->setAccessibleName(windowTitle());
    list_->setModel(model_);
    list_->setFrameShape(QFrame::NoFrame);
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setAllColumnsShowFocus(true);
    list_->header()->resizeSection(0, kPlaceWidth);
    list_->header()->setStretchLastSection(true);
    why_->setObjectName(QStringLiteral("lblWhy"));
    why_->setTextFormat(Qt::PlainText);
    why_->setWordWrap(true);
    why_->setContentsMargins(Spacing::gap, Spacing::gap, Spacing::gap, Spacing::gap);
    column->addWidget(list_, 1);
    column->addWidget(why_);
    setWidget(inside);
    const auto chosen = [this, goTo = std::move(goTo)](const QModelIndex& index) {
        if (const shell::ProblemLine* row = model_->line(index.row())) {
            goTo(row->node);
        }
    };
    connect(list_, &QTreeView::clicked, this, chosen);
    connect(list_, &QTreeView::activated, this, chosen);
    connect(list_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &ProblemsDock::explain);
    explain();
}

void ProblemsDock::showLines(std::vector<shell::ProblemLine> lines, bool isOpen) {
    isOpen_ = isOpen;
    const QModelIndex current = list_->currentIndex();
    const shell::ProblemLine* row = model_->line(current.row());
    const shell::ProblemLine kept = row ? *row : shell::ProblemLine{};
    const int top = list_->indexAt({0, 0}).row();
    model_->take(std::move(lines));
    if (top >= 0) {
        list_->scrollTo(model_->index(std::min(top, model_->rowCount() - 1), 0), QAbstractItemView::PositionAtTop);
    }
    if (const int place = row ? model_->rowOf(kept) : -1; place >= 0) {
        list_->setCurrentIndex(model_->index(place, 0));
    }
    explain();
}

void ProblemsDock::explain() {
    if (const shell::ProblemLine* row = model_->line(list_->currentIndex().row())) {
        const analysis::ProblemWords& words = analysis::wordsOf(row->kind);
        why_->setText(tr("%1 %2").arg(tr(words.why), tr(words.toDo)));
    } else {
        why_->setText(!isOpen_                 ? tr("No scenario is in front.")
                      : model_->rowCount() > 0 ? tr("Choose a row to go to its node.")
                                               : tr("Nothing is missing."));
    }
}

void ProblemsDock::closeEvent(QCloseEvent* event) {
    QDockWidget::closeEvent(event);
    Q_EMIT closed();
}

}  // namespace orvent::qt
