#include "rules/syntax.h"

#include <algorithm>
#include <array>

namespace orvent::rules {

bool isOperator(std::string_view text) {
    constexpr std::array<std::string_view, 7> kOperators = {"=", "!=", "<>", "<", ">", "<=", ">="};
    return std::find(kOperators.begin(), kOperators.end(), text) != kOperators.end();
}

}  // namespace orvent::rules
