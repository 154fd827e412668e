#include "qt/shell/find_dock.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTextLayout>
#include <QTreeView>
#include <QVBoxLayout>
#include <utility>

#include "qt/forms/search_field.h"
#include "qt/shell/desk_area.h"
#include "qt/text.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

namespace {

constexpr int kTextColumn = 2;
constexpr int kColumnWidth = 180;

/// How many units of the toolkit's text a part of ours takes.
int unitsOf(const std::string& text, std::size_t begin, std::size_t length) {
    return static_cast<int>(QString::fromStdString(text.substr(begin, length)).size());
}

/// Shows a text with what was found in it in bold.
class FoundText : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const int length = index.data(FindModel::kLength).toInt();
        if (length == 0) {
            QStyledItemDelegate::paint(painter, option, index);
            return;
        }
        QStyleOptionViewItem plain = option;
        initStyleOption(&plain, index);
        const QString shown = std::exchange(plain.text, QString());
        const QStyle* style = plain.widget->style();
        style->drawControl(QStyle::CE_ItemViewItem, &plain, painter, plain.widget);
        plain.text = shown;
        const QRect room = style->subElementRect(QStyle::SE_ItemViewItemText, &plain, plain.widget);
        const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &plain, plain.widget) + 1;

        QTextLayout layout(shown, plain.font);
        QTextLayout::FormatRange bold;
        bold.start = index.data(FindModel::kBegin).toInt();
        bold.length = length;
        bold.format.setFontWeight(QFont::Bold);
        layout.setFormats({bold});
        layout.beginLayout();
        const QTextLine line = layout.createLine();
        layout.endLayout();
        const bool selected = plain.state & QStyle::State_Selected;
        painter->save();
        painter->setClipRect(room);
        painter->setPen(plain.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
        line.draw(painter, QPointF(room.left() + margin, room.top() + (room.height() - line.height()) / 2));
        painter->restore();
    }
};

}  // namespace

void FindModel::follow(bool others) {
    const shell::FindForm* form = form_();
    const int count = form ? form->Count() : 0;
    if (others || count < count_) {
        beginResetModel();
        known_ = -1;
        count_ = count;
        endResetModel();
    } else if (count > count_) {
        beginInsertRows({}, count_, count - 1);
        count_ = count;
        endInsertRows();
    }
}

QVariant FindModel::data(const QModelIndex& index, int role) const {
    const shell::FindForm* form = form_();
    const bool asked = role == Qt::DisplayRole || role == Qt::ToolTipRole || role == kBegin || role == kLength;
    if (!form || !index.isValid() || !asked) {
        return {};
    }
    if (index.row() != known_) {
        known_ = index.row();
        row_ = form->row(known_ + 1);
    }
    if (role == kBegin || role == kLength) {
        const int begin = unitsOf(row_.text, 0, row_.found.begin);
        return role == kBegin ? begin : unitsOf(row_.text, row_.found.begin, row_.found.length);
    }
    return text(index.column() == 0 ? row_.place : index.column() == 1 ? row_.what : row_.text);
}

QVariant FindModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return section == 0 ? tr("Place") : section == 1 ? tr("What") : tr("Text");
}

FindDock::FindDock(std::function<shell::FindForm*()> logic, QWidget* parent)
    : QDockWidget(tr("Find"), parent), logic_(std::move(logic)), list_(new QTreeView), status_(new QLabel) {
    setObjectName(QStringLiteral("FindDock"));
    setProperty(kKeepsKeyboard, true);
    auto* inside = new QWidget(this);
    auto* column = new QVBoxLayout(inside);
    column->setContentsMargins({});
    column->setSpacing(0);
    field_ = new SearchField(QStringLiteral("txtFind"), tr("Words, and type: kind: is:unfinished is:free as filters"),
                             inside);
    field_->setAccessibleName(windowTitle());
    field_->installEventFilter(this);
    status_->setObjectName(QStringLiteral("lblFound"));
    status_->setTextFormat(Qt::PlainText);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(Spacing::gap, Spacing::gap, Spacing::gap, Spacing::gap);
    row->setSpacing(Spacing::gap);
    row->addWidget(field_, 1);
    row->addWidget(status_);
    column->addLayout(row);
    model_ = new FindModel([this] { return logic_(); }, this);
    list_->setObjectName(QStringLiteral("lstFound"));
    list_->setAccessibleName(tr("What was found"));
    list_->setModel(model_);
    list_->setItemDelegateForColumn(kTextColumn, new FoundText(list_));
    list_->setFrameShape(QFrame::NoFrame);
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setAllColumnsShowFocus(true);
    list_->header()->resizeSection(0, kColumnWidth);
    list_->header()->resizeSection(1, kColumnWidth);
    list_->header()->setStretchLastSection(true);
    column->addWidget(list_, 1);
    setWidget(inside);
    connect(field_, &QLineEdit::textChanged, this,
            [this](const QString& words) { act([&](auto& form) { form.txtFind_Change(words.toStdString()); }); });
    field_->goToFirst = [this] { act([](auto& form) { form.open(std::max(form.current(), 1)); }); };
    connect(list_, &QTreeView::clicked, this,
            [this](const QModelIndex& index) { act([&](auto& form) { form.choose(index.row() + 1); }); });
    connect(list_, &QTreeView::activated, this,
            [this](const QModelIndex& index) { act([&](auto& form) { form.open(index.row() + 1); }); });
    follow(true);
}

void FindDock::act(const std::function<void(shell::FindForm& form)>& what) {
    if (shell::FindForm* form = logic_()) {
        what(*form);
        follow(false);
    }
}

void FindDock::enter() {
    raise();
    field_->setFocus();
    field_->selectAll();
}

void FindDock::follow(bool others) {
    model_->follow(others);
    const shell::FindForm* form = logic_();
    status_->setText(form ? text(form->status()) : QString());
    if (form && form->current() > 0 && list_->currentIndex().row() != form->current() - 1) {
        list_->setCurrentIndex(model_->index(form->current() - 1, 0));
    }
}

/// Down leads from the words into the list.
bool FindDock::eventFilter(QObject* watched, QEvent* event) {
    if (watched == field_ && event->type() == QEvent::KeyPress && model_->rowCount() > 0 &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down) {
        list_->setFocus();
        if (!list_->currentIndex().isValid()) {
            list_->setCurrentIndex(model_->index(0, 0));
        }
        return true;
    }
    return QDockWidget::eventFilter(watched, event);
}

void FindDock::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QDockWidget::keyPressEvent(event);
    }
}

void FindDock::closeEvent(QCloseEvent* event) {
    QDockWidget::closeEvent(event);
    Q_EMIT closed();
}

}  // namespace orvent::qt
