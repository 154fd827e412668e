#pragma once

#include <string>
#include <vector>

#include "canvas/numbers.h"
#include "run/rows.h"

namespace orvent::shell {

/// Rows as a list shows them: those with a word in them, in the order of one column.
class RowTable {
  public:
    std::string title;
    std::string words;                      ///< why there are no rows, or what is to be known of them
    std::vector<canvas::NodeNumber> nodes;  ///< of each row of `page`, where rows are nodes
    run::Page page;

    /// Only rows in which the word stands are shown, whatever the case of its letters.
    void filter(const std::string& word);
    /// By a column, from 0 on: numbers by their values, NULL first; -1 for the order in which they came.
    void sort(int column, bool descending);

    std::size_t count() const { return shown_.size(); }
    const entities::FieldRow& row(std::size_t at) const { return page.rows[shown_[at]]; }
    /// The node of a row that is shown, `kNoNode` where rows are no nodes.
    canvas::NodeNumber nodeOf(std::size_t at) const;
    /// The rows, or some of those that are shown by their places, as text with the names of the columns.
    std::string text(char separator, const std::vector<std::size_t>& places = {}) const;

  private:
    void arrange();

    std::string word_;  ///< in lower case
    int column_ = -1;
    bool descending_ = false;
    std::vector<std::size_t> shown_;  ///< places in `page`
};

}  // namespace orvent::shell
