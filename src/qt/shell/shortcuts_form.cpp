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

/// A column of keys and what they do.
class KeyList {
  public:
    KeyList(const QString& title, QWidget* parent) : parent_(parent) {
        grid_->setHorizontalSpacing(Spacing::section);
        grid_->setVerticalSpacing(Spacing::gap);
        auto* label = new QLabel(title, parent);
        QFont font = label->font();
        font.setWeight(QFont::DemiBold);
        label->setFont(font);
        grid_->addWidget(label, 0, 0, 1, 2);
    }

    void add(const QString& keys, const QString& meaning) {
        ++row_;
        auto* shown = new QLabel(keys, parent_);
        shown->setForegroundRole(QPalette::PlaceholderText);
        grid_->addWidget(new QLabel(meaning, parent_), row_, 0);
        grid_->addWidget(shown, row_, 1);
    }

    QGridLayout* layout() {
        grid_->setRowStretch(row_ + 1, 1);
        return grid_;
    }

  private:
    QWidget* parent_;
    QGridLayout* grid_ = new QGridLayout;
    int row_ = 0;
};

}  // namespace

ShortcutsForm::ShortcutsForm(QWidget* parent) : FormWindow(tr("Keyboard Shortcuts"), parent) {
    setObjectName(QStringLiteral("ShortcutsForm"));
    KeyList commands(tr("Commands"), this);
    for (const shell::CommandKeys& row : shell::commandKeys()) {
        const QKeySequence keys = shortcutsOf(row.shortcut).constFirst();
        commands.add(keys.toString(QKeySequence::NativeText), text(row.names));
    }
    KeyList canvas(tr("In a scenario"), this);
    for (const shell::HandyKey& key : shell::handyKeys()) {
        canvas.add(text(key.keys), text(key.meaning));
    }
    KeyList tools(tr("Tools"), this);
    for (const shell::ToolBar bar : {shell::ToolBar::ArrowBar, shell::ToolBar::NodeBar, shell::ToolBar::EdgeBar}) {
        for (const shell::ToolButton& button : shell::toolButtons(bar)) {
            tools.add(QString(QLatin1Char(button.letter)), text(button.key == "Arrow" ? button.key : button.toolTip));
        }
    }
    // Side by side, or one below the other on a screen that is not wide enough.
    auto* lists =
        new QBoxLayout(screen()->availableSize().width() < kWide ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    lists->setSpacing(2 * Spacing::section);
    lists->addLayout(commands.layout());
    lists->addLayout(canvas.layout());
    lists->addLayout(tools.layout());
    body().addLayout(lists);
    addAccept(QStringLiteral("cmdOK"), tr("OK"), [] { return true; });
}

}  // namespace orvent::qt
