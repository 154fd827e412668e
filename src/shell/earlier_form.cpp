#include "shell/earlier_form.h"

#include <algorithm>
#include <utility>

#include "shell/local_time.h"

namespace orvent::shell {

EarlierForm::EarlierForm(EarlierStates& states, const canvas::DrawForm* front, Open open, EmptyForm emptyForm)
    : states_(states), open_(std::move(open)), emptyForm_(std::move(emptyForm)) {
    const std::string wanted = front ? states_.folderOf(*front) : std::string();
    for (const EarlierStates::Kept& newest : states_.newest()) {
        folders_.push_back(newest.file.substr(0, newest.file.rfind('/')));
        names_.push_back(newest.name);
        if (folders_.back() == wanted) {
            scenario_ = folders_.size() - 1;
        }
    }
    list();
}

void EarlierForm::list() {
    rows_.clear();
    if (scenario_ < folders_.size()) {
        for (EarlierStates::Kept& kept : states_.in(folders_[scenario_])) {
            rows_.push_back({std::move(kept.file), localTime(kept.told.time), std::move(kept.told.words)});
        }
    }
}

void EarlierForm::cboScenario_Click(std::size_t scenario) {
    scenario_ = scenario;
    list();
}

const canvas::DrawForm* EarlierForm::pictureOf(std::size_t row) {
    if (row >= rows_.size()) {
        return nullptr;
    }
    if (std::exchange(pictured_, rows_[row].file) != rows_[row].file) {
        picture_.reset();
        try {
            auto form = emptyForm_();
            history::fillForm(*form, states_.read(rows_[row].file), noTypes_, history::TakenOver::asNew);
            picture_ = std::move(form);
        } catch (const platform::Fault&) {
            // Opening it tells why.
        }
    }
    return picture_.get();
}

bool EarlierForm::cmdOpen_Click(std::size_t row) {
    return row < rows_.size() && open_(rows_[row].file, names_[scenario_] + " " + rows_[row].when);
}

void EarlierForm::cmdRemove_Click(const std::vector<std::size_t>& rows) {
    for (const std::size_t row : rows) {
        if (row < rows_.size()) {
            states_.remove(rows_[row].file);
        }
    }
    list();
}

}  // namespace orvent::shell
