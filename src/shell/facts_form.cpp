#include "shell/facts_form.h"

#include <algorithm>
#include <sstream>

#include "platform/text.h"
#include "run/expectations.h"
#include "run/row_text.h"

namespace orvent::shell {

using entities::Field;
using entities::FieldRow;

FactsForm::FactsForm(const Ports& ports, std::string name, std::vector<std::string> columns,
                     const entities::NodeFacts& facts)
    : ports_(ports), name_(std::move(name)), columns_(std::move(columns)), facts_(facts) {
    if (facts.facts && hasRows()) {
        // Columns may have come, gone or changed their places since.
        rows_ = run::rowsInOrder(*facts.facts, columns_);
    }
    for (const entities::Expectation& expectation : facts.expectations) {
        txtExpected += run::wordsOf(expectation) + "\n";
    }
}

void FactsForm::type(std::size_t row, std::size_t column, const std::string& text) {
    rows_[row][column] = text.empty() ? Field() : text == "\"\"" ? Field("") : Field(text);
}

void FactsForm::cmdRemove_Click(std::vector<std::size_t> rows) {
    std::sort(rows.rbegin(), rows.rend());
    for (const std::size_t row : rows) {
        rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
    }
}

void FactsForm::add(const std::function<std::string()>& text) {
    try {
        std::vector<FieldRow> more = run::factsFrom(text(), columns_).rows;
        std::move(more.begin(), more.end(), std::back_inserter(rows_));
    } catch (const platform::Fault& fault) {
        ports_.messages.tell(fault.description(), {}, platform::Icon::warning);
    }
}

void FactsForm::cmdPaste_Click() {
    add([this] { return ports_.clipboard.text("text/plain"); });
}

void FactsForm::cmdLoad_Click() {
    if (const std::string path = ports_.files.openFile("Rows (*.csv)|*.csv"); !path.empty()) {
        add([&path] { return platform::readFile(path); });
    }
}

bool FactsForm::cmdOK_Click() {
    entities::NodeFacts facts;
    try {
        std::istringstream lines(txtExpected);
        for (std::string line; std::getline(lines, line);) {
            if (!platform::trimmed(line).empty()) {
                facts.expectations.push_back(run::expectationFrom(line));
            }
        }
    } catch (const platform::Fault& fault) {
        ports_.messages.tell(fault.description(), {}, platform::Icon::warning);
        return false;
    }
    if (!rows_.empty() || (facts_.facts && !hasRows())) {
        facts.facts = hasRows() ? entities::Facts{columns_, rows_} : *facts_.facts;
    }
    facts_ = std::move(facts);
    ok_ = true;
    return true;
}

}  // namespace orvent::shell
