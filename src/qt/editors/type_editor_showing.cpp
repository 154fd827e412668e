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
constexpr int kTypeRowHeight = 26;

/// Shows the lines with a picture beside each, none when `picture` is null.
void fill(QListWidget& list, const std::vector<QString>& lines, const char* picture, int selected) {
    while (list.count() > static_cast<int>(lines.size())) {
        delete list.takeItem(list.count() - 1);
    }
    for (std::size_t at = 0; at < lines.size(); ++at) {
        const int row = static_cast<int>(at);
        if (row == list.count()) {
            auto* item = new QListWidgetItem(lines[at], &list);
            item->setSizeHint({0, kTypeRowHeight});
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

/// A button that cannot work is grey and says why; with nothing to say it works.
void greyWith(QPushButton& button, const QString& why) {
    button.setEnabled(why.isEmpty());
    button.setToolTip(why);
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
    const QString end = editing ? tr("Save or cancel first") : QString();
    const QString choose = editing || logic_.hasSelection() ? end : tr("Choose a type first");
    const QString begin = editing ? QString() : tr("Choose New or Edit first");
    greyWith(*new_, end);
    greyWith(*edit_, choose);
    greyWith(*delete_, choose);
    if (!logic_.canDelete()) {
        delete_->setEnabled(false);
        delete_->setToolTip({});  // a press tells why
    }
    save_->setVisible(editing);
    cancel_->setVisible(editing);
    (editing ? save_ : ok_)->setDefault(true);
    for (std::size_t at = 0; at < lists_.size(); ++at) {
        greyWith(*lists_[at].add, editing && !logic_.canAdd(at) ? tr("A function type has one output") : begin);
        greyWith(*lists_[at].remove,
                 editing && logic_.lists[at].selected() == 0 ? tr("Choose a line of the list first") : begin);
    }
}

}  // namespace orvent::qt
