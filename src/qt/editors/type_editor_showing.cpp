// How the window of a type editor shows the logic's state.

#include <QButtonGroup>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTextEdit>

#include "qt/editors/type_editor_window.h"
#include "qt/statements/keyword_colouring.h"
#include "qt/statements/text_box.h"
#include "qt/text.h"
#include "qt/theme/icons.h"

namespace orvent::qt {

namespace {

constexpr const char* kTypePictures[] = {"attribute", "function", "activity"};         // by `TypeKind`
constexpr const char* kLinePictures[] = {"input", "parameter", "output", "function"};  // by `TypeListRole`
constexpr int kRowHeight = 26;

/// Shows the lines with a picture beside each, none when `picture` is null.
void fill(QListWidget& list, const std::vector<QString>& lines, const char* picture, int selected) {
    while (list.count() > static_cast<int>(lines.size())) {
        delete list.takeItem(list.count() - 1);
    }
    for (std::size_t at = 0; at < lines.size(); ++at) {
        const int row = static_cast<int>(at);
        if (row == list.count()) {
            auto* item = new QListWidgetItem(lines[at], &list);
            item->setSizeHint({0, kRowHeight});
            if (picture) {
                item->setIcon(icon(QLatin1String(picture)));
            }
        } else {
            list.item(row)->setText(lines[at]);
        }
        list.item(row)->setToolTip(lines[at]);  // a long one is cut
    }
    list.setCurrentRow(selected);
}

std::vector<QString> linesOf(const forms::List& list) {
    std::vector<QString> lines;
    for (const forms::ListRow& row : list.rows()) {
        lines.push_back(text(row.Text));
    }
    return lines;
}

}  // namespace

void TypeEditorWindow::act(Event handler) {
    const bool wasEditing = logic_.isEditing();
    (logic_.*handler)();
    showState();
    if (logic_.isEditing() && !wasEditing) {
        name_->setFocus();
        name_->selectAll();
    } else if (wasEditing && !logic_.isEditing()) {
        types_->setFocus();
    }
}

void TypeEditorWindow::showState() {
    showing_ = true;
    title_->setTitle(QLatin1String(logic_.title()));
    setWindowTitle(title_->title());
    showTypes();
    showFields();
    showLists();
    showing_ = false;
    showButtons();
}

void TypeEditorWindow::showTypes() {
    fill(*types_, linesOf(logic_.Types), kTypePictures[static_cast<std::size_t>(logic_.kind)],
         logic_.Types.selected() - 1);
    types_->setEnabled(!logic_.isEditing());
}

void TypeEditorWindow::showFields() {
    const bool editing = logic_.isEditing();
    name_->setReadOnly(!editing);
    if (name_->text() != text(logic_.txtName)) {
        name_->setText(text(logic_.txtName));
    }
    usedBy_->setText(text(logic_.usedBy));
    if (descr_) {
        showPlainText(*descr_, logic_.txtDescr);
        showEditable(*descr_, editing);
        if (logic_.descrIsHint) {
            descr_->selectAll();
        }
    }
    if (ldl_) {
        if (showPlainText(*sql_, logic_.txtSQL)) {
            sqlColouring_->colourAll();
        }
        showPlainText(*ldl_, logic_.txtLDL);
        showEditable(*sql_, editing);
        showEditable(*ldl_, editing);
    }
    for (const Options& each : options_) {
        const int chosen = logic_.*each.option;
        each.group->setExclusive(false);
        for (QAbstractButton* button : each.group->buttons()) {
            button->setChecked(each.group->id(button) == chosen);
            button->setEnabled(editing);
        }
        each.group->setExclusive(true);
    }
}

void TypeEditorWindow::showLists() {
    for (std::size_t at = 0; at < lists_.size(); ++at) {
        const auto role = static_cast<std::size_t>(logic_.words.lists[at].role);
        fill(*lists_[at].lines, linesOf(logic_.lists[at]), kLinePictures[role], logic_.lists[at].selected() - 1);
    }
    if (variables_) {
        std::vector<QString> found;
        for (const std::string& variable : logic_.templateVariables()) {
            found.push_back(text(variable));
        }
        fill(*variables_, found, nullptr, -1);
    }
}

void TypeEditorWindow::showButtons() {
    const bool editing = logic_.isEditing();
    const QString choose = logic_.hasSelection() ? QString() : tr("Choose a type first");
    new_->setEnabled(!editing);
    edit_->setEnabled(!editing && logic_.hasSelection());
    edit_->setToolTip(choose);
    delete_->setEnabled(!editing && logic_.canDelete());
    save_->setVisible(editing);
    cancel_->setVisible(editing);
    (editing ? save_ : ok_)->setDefault(true);
    for (std::size_t at = 0; at < lists_.size(); ++at) {
        const bool possible = logic_.canAdd(at);
        lists_[at].add->setEnabled(editing && possible);
        lists_[at].add->setToolTip(possible ? QString() : tr("A function type has one output"));
        lists_[at].remove->setEnabled(editing && logic_.lists[at].selected() > 0);
    }
}

}  // namespace orvent::qt
