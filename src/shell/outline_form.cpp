#include "shell/outline_form.h"

namespace orvent::shell {

void OutlineForm::choose(const Row& row) {
    ports_.showNode(row.place.node);
}

OutlineForm::Row* OutlineForm::open(const Row& row) {
    if (row.link > 0) {
        return outline_->targetOf(row);
    }
    ports_.openPlace(analysis::Place(row.place));  // the row may go meanwhile
    return nullptr;
}

bool OutlineForm::mayRename(const Row& row) const {
    return row.link == 0 && ports_.mayRename(row.place);
}

bool OutlineForm::rename(const Row& row, const std::string& name) {
    return mayRename(row) && (name == outline_->wordsOf(row).name || ports_.rename(analysis::Place(row.place), name));
}

OutlineForm::Row* OutlineForm::selected() const {
    const bool single = outline_ && form_->SelectedLabels.Count() == 1;
    return single ? outline_->rootOf(form_->SelectedLabels.members().front()) : nullptr;
}

void OutlineForm::renew() {
    std::unique_ptr<analysis::Outline> former = std::move(outline_);
    if (form_ && shown_) {
        outline_ = std::make_unique<analysis::Outline>(*form_, tables_);
    }
    if (onOutline && (former || outline_)) {
        onOutline();  // the former one is there until then
    }
}

void OutlineForm::show(bool shown) {
    if (shown != shown_) {
        shown_ = shown;
        renew();
    }
}

void OutlineForm::watch(canvas::DrawForm* form) {
    if (form != form_) {
        form_ = form;
        renew();
    }
}

void OutlineForm::touch(const canvas::Touched& touched) {
    if (outline_ && !(touched.nodes.empty() && touched.edges.empty())) {
        outline_->follow(touched);
    }
}

}  // namespace orvent::shell
