#include "sql/own_functions.h"

#include <algorithm>

#include "platform/fault.h"
#include "platform/text.h"

namespace orvent::sql {

namespace {

constexpr std::string_view kIs = " = ";

}  // namespace

OwnFunctions::OwnFunctions(const std::vector<OwnFunction>& rows) {
    for (const OwnFunction& row : rows) {
        OwnFunction own{std::string(platform::trimmed(row.name)), std::string(platform::trimmed(row.expression))};
        if (own.name.empty() && own.expression.empty()) {
            continue;
        }
        const std::string all = own.name + own.expression;
        if (own.name.empty() || own.expression.empty() || all.find_first_of("\r\n") != std::string::npos ||
            own.name.find(kIs) != std::string::npos) {
            throw platform::Fault("A function needs a name and an expression of one line each: \"" + own.name +
                                  std::string(kIs) + own.expression + "\"");
        }
        if (named(own.name)) {
            throw platform::Fault("The function " + own.name + " is said twice.");
        }
        rows_.push_back(std::move(own));
    }
}

OwnFunctions OwnFunctions::ofText(std::string_view lines) {
    OwnFunctions result;
    while (!lines.empty()) {
        const std::string_view line = lines.substr(0, lines.find('\n'));
        lines.remove_prefix(std::min(line.size() + 1, lines.size()));
        const std::size_t is = line.find(kIs);
        if (is != std::string_view::npos && is > 0 && is + kIs.size() < line.size()) {
            result.rows_.push_back({std::string(line.substr(0, is)), std::string(line.substr(is + kIs.size()))});
        }
    }
    return result;
}

std::string OwnFunctions::text() const {
    std::string result;
    for (const OwnFunction& row : rows_) {
        result += row.name + std::string(kIs) + row.expression + "\n";
    }
    return result;
}

const OwnFunction* OwnFunctions::named(std::string_view name) const {
    const auto found = std::find_if(rows_.begin(), rows_.end(), [&](const OwnFunction& row) {
        return platform::equalIgnoringCase(row.name, name);
    });
    return found == rows_.end() ? nullptr : &*found;
}

}  // namespace orvent::sql
