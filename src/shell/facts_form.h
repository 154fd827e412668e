#pragma once

#include <functional>
#include <string>
#include <vector>

#include "entities/node_facts.h"
#include "platform/clipboard.h"
#include "platform/dialogs.h"

namespace orvent::shell {

/// The dialog of what a node is tried on and what is expected of it: rows of a record set, typed, pasted or from a
/// file, and a line for each expectation.
class FactsForm {
  public:
    struct Ports {
        platform::MessageBox& messages;
        platform::FileDialog& files;
        platform::Clipboard& clipboard;
    };

    /// `columns` are those of a record set that nobody feeds or whose rows matter as they were; an activity has none.
    FactsForm(const Ports& ports, std::string name, std::vector<std::string> columns, const entities::NodeFacts& facts);

    const std::string& Caption() const { return name_; }
    bool hasRows() const { return !columns_.empty(); }
    const std::vector<std::string>& columns() const { return columns_; }
    const std::vector<entities::FieldRow>& rows() const { return rows_; }

    /// A value as it is typed: nothing at all is NULL, and two quotation marks are the empty text.
    void type(std::size_t row, std::size_t column, const std::string& text);
    void cmdAddRow_Click() { rows_.emplace_back(columns_.size()); }
    void cmdRemove_Click(std::vector<std::size_t> rows);
    /// Rows at the end, from the clipboard or a file. What does not fit is told, and then none is added.
    void cmdPaste_Click();
    void cmdLoad_Click();

    std::string txtExpected;  ///< a line each

    /// What was edited; `isOk` tells that it is to be kept.
    bool isOk() const { return ok_; }
    const entities::NodeFacts& facts() const { return facts_; }
    /// False when a line of what is expected says nothing, which was told.
    bool cmdOK_Click();

  private:
    void add(const std::function<std::string()>& text);

    Ports ports_;
    std::string name_;
    std::vector<std::string> columns_;
    std::vector<entities::FieldRow> rows_;
    entities::NodeFacts facts_;
    bool ok_ = false;
};

}  // namespace orvent::shell
