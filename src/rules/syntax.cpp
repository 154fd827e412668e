#include "rules/syntax.h"

#include <algorithm>
#include <array>

namespace orvent::rules {

bool isOperator(std::string_view text) {
    constexpr std::array<std::string_view, 7> kOperators = {"=", "!=", "<>", "<", ">", "<=", ">="};
    return std::find(kOperators.begin(), kOperators.end(), text) != kOperators.end();
}

std::string turned(const std::string& op) {
    std::string result = op;
    for (char& c : result) {
        c = op == "<>" ? c : c == '<' ? '>' : c == '>' ? '<' : c;
    }
    return result;
}

}  // namespace orvent::rules
