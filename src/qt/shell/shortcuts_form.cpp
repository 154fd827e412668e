#include "qt/shell/shortcuts_form.h"

#include <QGridLayout>
#include <QKeySequence>
#include <QLabel>
#include <QScreen>

#include "qt/shell/command_actions.h"
#include "qt/text.h"
#include "qt/theme/theme.h"
#include "shell/tool_bars.h"

namespace orvent::qt {

namespace {

constexpr int kWide = 1024;  // pixels of a screen that has room for all lists side by side

QGridLayout* newGrid() {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(Spacing::section);
    grid->setVerticalSpacing(Spacing::gap);
    return grid;
}

/// Keys and what they do, below what the grid holds already.
class KeyList {
  public:
    KeyList(const QString& title, QGridLayout& grid, QWidget* parent) : grid_(grid), parent_(parent) {
        auto* label = new QLabel(title, parent);
        QFont font = label->font();
        font.setWeight(QFont::DemiBold);
        label->setFont(font);
        if (grid_.count() > 0) {
            label->setContentsMargins(0, Spacing::margin, 0, 0);
        }
        grid_.addWidget(label, grid_.rowCount(), 0, 1, 2);
    }

    void add(const QString& keys, const QString& meaning) {
        const int row = grid_.rowCount();
        auto* shown = new QLabel(keys, parent_);
        shown->setForegroundRole(QPalette::PlaceholderText);
        grid_.addWidget(new QLabel(meaning, parent_), row, 0);
        grid_.addWidget(shown, row, 1);
    }

  private:
    QGridLayout& grid_;
    QWidget* parent_;
};

}  // namespace

ShortcutsForm::ShortcutsForm(QWidget* parent) : FormWindow(tr("Keyboard Shortcuts"), parent) {
    setObjectName(QStringLiteral("ShortcutsForm"));
    // Side by side, or one below the other on a screen that is not wide enough.
    const bool wide = screen()->availableSize().width() >= kWide;
    auto* columns = new QHBoxLayout;
    columns->setSpacing(2 * Spacing::section);
    QGridLayout* grid = nullptr;
    const auto newList = [&](const QString& title) {
        if (wide || !grid) {
            auto* column = new QVBoxLayout;
            grid = newGrid();
            column->addLayout(grid);
            column->addStretch();
            columns->addLayout(column);
        }
        return KeyList(title, *grid, this);
    };
    KeyList commands = newList(tr("Commands"));
    for (const shell::CommandKeys& row : shell::commandKeys()) {
        const QKeySequence keys = shortcutsOf(row.shortcut).constFirst();
        commands.add(keys.toString(QKeySequence::NativeText), text(row.names));
    }
    KeyList canvas = newList(tr("In a scenario"));
    for (const shell::HandyKey& key : shell::handyKeys()) {
        canvas.add(text(key.keys), text(key.meaning));
    }
    KeyList tools = newList(tr("Tools"));
    for (const shell::ToolBar bar : {shell::ToolBar::ArrowBar, shell::ToolBar::NodeBar, shell::ToolBar::EdgeBar}) {
        for (const shell::ToolButton& button : shell::toolButtons(bar)) {
            tools.add(QString(QLatin1Char(button.letter)), text(button.key == "Arrow" ? button.key : button.toolTip));
        }
    }
    body().addLayout(columns);
    addAccept(QStringLiteral("cmdOK"), tr("&OK"), [] { return true; });
}

}  // namespace orvent::qt
