#include "qt/statements/bunch_choice.h"

#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "qt/forms/check_list.h"
#include "qt/text.h"

namespace orvent::qt {

BunchChoice::BunchChoice(const QString& title, const std::vector<std::string>& items, QWidget* parent)
    : FormWindow(title, parent), checked_(items.size(), true) {
    setObjectName(QStringLiteral("BunchChoice"));
    auto* list = new CheckList(QStringLiteral("Rows"), {tr("Rows")}, this);
    list->setHeaderHidden(true);
    list->setAccessibleName(title);
    std::vector<CheckList::Row> rows;
    for (const std::string& item : items) {
        rows.push_back({{text(item)}});
    }
    list->showRows(rows);
    body().addWidget(list, 1);
    QPushButton& take = addAccept(QStringLiteral("cmdTake"), tr("&Take"), [] { return true; });
    addCancel(QStringLiteral("cmdCancel"));
    list->toggled = [this, &take](std::size_t row, bool on) {
        checked_[row] = on;
        take.setEnabled(std::any_of(checked_.begin(), checked_.end(), [](bool is) { return is; }));
    };
    list->setFocus();
}

std::vector<int> BunchChoice::chosen() const {
    std::vector<int> places;
    for (std::size_t row = 0; result() == QDialog::Accepted && row < checked_.size(); ++row) {
        if (checked_[row]) {
            places.push_back(static_cast<int>(row));
        }
    }
    return places;
}

}  // namespace orvent::qt
