#include "qt/shell/missing_types_window.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/text.h"

namespace orvent::qt {

MissingTypesWindow::MissingTypesWindow(exchange::MissingTypesForm& logic, QWidget* parent)
    : FormWindow(tr("Types That Are Missing"), parent) {
    setObjectName(QStringLiteral("MissingTypesWindow"));
    auto* words = new QLabel(text(logic.words()));
    words->setObjectName(QStringLiteral("lblWords"));
    words->setTextFormat(Qt::PlainText);
    words->setTextInteractionFlags(Qt::TextSelectableByMouse);
    body().addWidget(words);
    auto* note = new QLabel(
        tr("Added types are there for every scenario of this repository. Without them the scenario opens as it is, "
           "and a save asks again."));
    note->setWordWrap(true);
    body().addWidget(note);
    addSideButton(QStringLiteral("cmdWithout"), tr("Open &Without"), [this, &logic] {
        logic.cmdWithout_Click();
        accept();
    });
    QPushButton& add = addAccept(QStringLiteral("cmdAdd"), tr("&Add Them"), [&logic] {
        logic.cmdAdd_Click();
        return true;
    });
    add.setEnabled(logic.canAdd());
    add.setFocus();
    addCancel(QStringLiteral("cmdCancel"));
}

}  // namespace orvent::qt
