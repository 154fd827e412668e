#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "forms/list.h"

namespace orvent::editors {

/// Rows of one list that have the same name carry a warning that names another of them. A row that comes, goes or is
/// renamed costs what its own names cost, whatever the length of the list.
class TwinNames {
  public:
    /// Looks at all rows anew.
    void reset(forms::List& list);
    /// The row of that key has that text now, or has it no longer.
    void came(forms::List& list, const std::string& key, const std::string& text);
    void went(forms::List& list, const std::string& key, const std::string& text);

  private:
    static void warn(forms::List& list, const std::string& key, const std::string& other);

    std::unordered_map<std::string, std::vector<std::string>> keys_;  // by text, in the order in which they came
};

}  // namespace orvent::editors
