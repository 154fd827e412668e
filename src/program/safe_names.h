#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>

#include "platform/text.h"
#include "rules/syntax.h"

namespace orvent::program {

/// Spells names by letters that the language of clingo has, each name another way.
class SafeNames {
  public:
    const std::string& of(const std::string& name, bool isVariable) {
        const auto [entry, isNew] = known_.try_emplace({name, isVariable});
        if (isNew) {
            std::string spelling;
            for (const char c : name) {
                const bool plain = rules::isNameLetter(c) && static_cast<unsigned char>(c) < 0x80;
                spelling += plain ? c : '_';
            }
            spelling = isVariable ? platform::upperCase(spelling.substr(0, 1)) + spelling.substr(1)
                                  : platform::lowerCase(spelling.substr(0, 1)) + spelling.substr(1);
            if (spelling.empty() ||
                !(isVariable ? spelling[0] >= 'A' && spelling[0] <= 'Z' : spelling[0] >= 'a' && spelling[0] <= 'z')) {
                spelling = (isVariable ? "V" : "p") + spelling;
            }
            while (spelling == "not" || spelling == "null" || !taken_.insert(spelling).second) {
                spelling += "_";
            }
            entry->second = spelling;
        }
        return entry->second;
    }

  private:
    std::map<std::pair<std::string, bool>, std::string> known_;
    std::set<std::string> taken_ = {"S", "T", "N"};  ///< those are the values of aggregates
};

}  // namespace orvent::program
