#include "forms/name_check.h"

#include <algorithm>
#include <string>

#include "platform/text.h"

namespace orvent::forms {

namespace {

bool isNumeric(std::string_view name) {
    const auto letter = [](char c) { return (c | 0x20) >= 'a' && (c | 0x20) <= 'z'; };
    return std::none_of(name.begin(), name.end(), letter) && platform::parseNumber(name).has_value();
}

}  // namespace

bool hasFault(std::string_view name, NameFault fault) {
    switch (fault) {
        case NameFault::empty:
            return platform::trimmed(name).empty();
        case NameFault::dot:
            return name.find('.') != std::string_view::npos;
        case NameFault::numeric:
            return isNumeric(name);
    }
    return false;
}

bool checkName(std::string_view name, std::span<const NameRule> rules, platform::MessageBox& messages,
               const std::string& title) {
    for (const NameRule& rule : rules) {
        if (hasFault(name, rule.fault)) {
            messages.tell(std::string(rule.words), title, rule.icon);
            return false;
        }
    }
    return true;
}

}  // namespace orvent::forms
