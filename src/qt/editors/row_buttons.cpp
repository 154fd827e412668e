#include "qt/editors/row_buttons.h"

#include <QToolButton>
#include <QVBoxLayout>
#include <optional>

#include "qt/theme/icons.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

using forms::RowMove;

namespace {

struct ButtonRow {
    const char* name;
    const char* icon;
    const char* tip;
    std::optional<RowMove> move = {};
    std::function<void()> RowButtons::*act = nullptr;
};

const ButtonRow kButtons[] = {
    {"MoveTopB", "move-top", QT_TR_NOOP("To the first place (Alt+Home)"), RowMove::top},
    {"MoveUPB", "move-up", QT_TR_NOOP("One up (Alt+Up)"), RowMove::up},
    {"MoveDownB", "move-down", QT_TR_NOOP("One down (Alt+Down)"), RowMove::down},
    {"MoveBottomB", "move-bottom", QT_TR_NOOP("To the last place (Alt+End)"), RowMove::bottom},
    {"Move2Tree", "to-tree", QT_TR_NOOP("Take back to the tree (Delete)"), {}, &RowButtons::remove},
    {"MoveAll2Tree", "all-to-tree", QT_TR_NOOP("Take all rows back to the tree"), {}, &RowButtons::removeAll},
};

}  // namespace

RowButtons::RowButtons(QWidget* parent) : QWidget(parent) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(Spacing::gap / 2);
    column->addStretch();
    for (const ButtonRow& row : kButtons) {
        auto* button = new QToolButton(this);
        button->setObjectName(QLatin1String(row.name));
        button->setIcon(icon(QLatin1String(row.icon)));
        button->setIconSize({Spacing::icon, Spacing::icon});
        button->setAccessibleName(tr(row.tip));
        button->setFocusPolicy(Qt::TabFocus);
        connect(button, &QToolButton::clicked, this, [this, &row] { row.move ? move(*row.move) : (this->*row.act)(); });
        if (row.act == &RowButtons::remove) {
            column->addSpacing(Spacing::section);
        }
        column->addWidget(button);
        buttons_.push_back({button, tr(row.tip)});
    }
    column->addStretch();
}

void RowButtons::showState(const QString& whyNot) {
    for (const Button& button : buttons_) {
        button.shown->setEnabled(whyNot.isEmpty());
        button.shown->setToolTip(whyNot.isEmpty() ? button.tip : button.tip + QStringLiteral(". ") + whyNot);
    }
}

}  // namespace orvent::qt
