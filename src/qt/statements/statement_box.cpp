#include "qt/statements/statement_box.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QTextDocument>
#include <QTextEdit>
#include <QVBoxLayout>

#include "qt/statements/keyword_colouring.h"
#include "qt/statements/text_box.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

StatementBox::StatementBox(const QString& name, const QString& what, QWidget* parent)
    : QWidget(parent), tools_(new QHBoxLayout), box_(new QTextEdit(this)), colouring_(new KeywordColouring(*box_)) {
    box_->setObjectName(name);
    box_->setAccessibleName(what);
    box_->setAcceptRichText(false);
    box_->setTabChangesFocus(true);
    box_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    connect(box_, &QTextEdit::textChanged, this, [this] { edited(plainText(*box_)); });
    QCheckBox* wrap = addSwitch("wrapLines", tr("&Wrap lines"), tr("Long lines go on below"));
    connect(wrap, &QCheckBox::toggled, box_,
            [this](bool on) { box_->setLineWrapMode(on ? QTextEdit::WidgetWidth : QTextEdit::NoWrap); });
    wrap->setChecked(true);
    QCheckBox* blanks = addSwitch("showBlanks", tr("Show blan&ks"), tr("Marks blanks and tabulators"));
    connect(blanks, &QCheckBox::toggled, box_, [this](bool on) {
        QTextOption option = box_->document()->defaultTextOption();
        option.setFlags(on ? QTextOption::ShowTabsAndSpaces : QTextOption::Flags());
        box_->document()->setDefaultTextOption(option);
    });
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    rows->setSpacing(Spacing::gap / 2);
    rows->addLayout(tools_);
    rows->addWidget(box_, 1);
    tools_->setSpacing(Spacing::margin);
}

QCheckBox* StatementBox::addSwitch(const char* name, const QString& caption, const QString& tip) {
    auto* made = new QCheckBox(caption, this);
    made->setObjectName(QLatin1String(name));
    made->setToolTip(tip);
    tools_->addWidget(made);
    return made;
}

void StatementBox::showText(const std::string& text) {
    if (text == given_ && plainText(*box_) == asColoured_) {
        return;  // small letters of a keyword, which stand here in capitals
    }
    if (showPlainText(*box_, text)) {
        colouring_->colourAll();
    }
    given_ = text;
    asColoured_ = plainText(*box_);
}

void StatementBox::setLetters(statements::Letters letters) {
    colouring_->setLetters(letters);
}

}  // namespace orvent::qt
