#include "qt/statements/option_group.h"

#include <QSignalBlocker>

namespace orvent::qt {

OptionGroup::OptionGroup(QWidget* parent, std::function<void(int)> chosen) : QButtonGroup(parent), parent_(parent) {
    connect(this, &QButtonGroup::idToggled, this, [chosen = std::move(chosen)](int number, bool on) {
        if (on) {
            chosen(number);
        }
    });
}

QRadioButton& OptionGroup::add(int number, const char* name, const char* caption) {
    auto* option = new QRadioButton(QString::fromUtf8(caption), parent_);
    option->setObjectName(QLatin1String(name));
    addButton(option, number);
    return *option;
}

void OptionGroup::show(int number) {
    const QSignalBlocker quiet(this);
    setExclusive(false);  // or the last chosen one could not be taken back
    for (QAbstractButton* option : buttons()) {
        option->setChecked(id(option) == number);
    }
    setExclusive(true);
}

void OptionGroup::focus() {
    QAbstractButton* target = checkedButton();
    for (QAbstractButton* option : buttons()) {
        if (!target && !option->isHidden()) {
            target = option;
        }
    }
    if (target) {
        target->setFocus(Qt::TabFocusReason);
    }
}

}  // namespace orvent::qt
