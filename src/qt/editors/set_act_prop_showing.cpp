// How the window of the activity dialog shows the logic's state.

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTextEdit>

#include "qt/editors/row_buttons.h"
#include "qt/editors/set_act_prop_window.h"
#include "qt/forms/row_view.h"
#include "qt/statements/statement_box.h"
#include "qt/statements/text_box.h"
#include "qt/text.h"

namespace orvent::qt {

using editors::SetActProp;

/// The types may change while the dialog is open: another user's reach it with the wizard.
void SetActPropWindow::showTypes() {
    int row = 0;
    for (const std::int16_t type : logic_.offeredTypes()) {
        const QString name = text(logic_.typeNames().shown(type));
        if (row == types_->count()) {
            types_->addItem(name);
        } else if (types_->itemText(row) != name) {
            types_->setItemText(row, name);
        }
        types_->setItemData(row++, int{type});
    }
    while (types_->count() > row) {
        types_->removeItem(types_->count() - 1);
    }
    types_->setCurrentIndex(types_->findData(logic_.ActTypes));
}

void SetActPropWindow::showState() {
    showing_ = true;
    logic_.followTypes();
    const auto showLine = [](QLineEdit& field, const std::string& value) {
        if (field.text() != text(value)) {
            field.setText(text(value));
        }
    };
    setWindowTitle(tr("%1 — Activity Properties").arg(text(logic_.txtName)));
    showLine(*name_, logic_.txtName);
    name_->setToolTip(name_->text());  // a long one is cut
    showLine(*log_, logic_.txtRejected);
    log_->setToolTip(log_->text());
    showPlainText(*descr_, logic_.txtDescr);
    showTypes();
    const bool ldl = logic_.LangSelector == SetActProp::Language::LDL;
    language_->setCurrentIndex(ldl ? 0 : 1);
    refresh_->setEnabled(ldl);
    refresh_->setToolTip(ldl ? QString() : tr("Choose LDL first: the wizard makes no SQL"));
    statement_->setLetters(ldl ? statements::Letters::kept : statements::Letters::upper);
    statement_->showText(logic_.txtSQL);
    showMisfit();
    tabs_->setCurrentIndex(logic_.TabStrip1);
    for (RowView* list : lists_) {
        list->setReport(logic_.ReportView);
    }
    rowButtons_->showState(logic_.ListButtons()                      ? QString()
                           : logic_.TabStrip1 == SetActProp::kLogTab ? tr("No list is in front")
                                                                     : tr("The list has no rows"));
    sourceNote_->setText(text(logic_.sourceNote()));
    sourceNote_->setVisible(!logic_.sourceNote().empty());
    showOK();
    showing_ = false;
}

void SetActPropWindow::showMisfit() {
    const QString misfit = text(logic_.statementNote());
    misfit_->setText(misfit.isEmpty() ? QString() : tr("Does not fit any more: %1").arg(misfit));
    misfit_->setToolTip(misfit.isEmpty() ? QString() : misfit + tr("\nGenerate… makes the statement anew."));
    misfit_->setVisible(!misfit.isEmpty());
}

/// With nothing to apply OK only closes, which it does not without a type; otherwise a press tells what is missing.
void SetActPropWindow::showOK() {
    const bool closes = !logic_.Saved || types_->currentIndex() >= 0;
    ok_->setEnabled(closes);
    ok_->setToolTip(closes ? QString() : tr("Choose an activity type first"));
}

}  // namespace orvent::qt
