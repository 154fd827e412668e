#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/dialogs.h"

namespace orvent::forms {

/// What can be wrong with a name by itself.
enum class NameFault { empty, dot, numeric };

/// A check of a dialog, with the words that it has for it. A dialog's checks stand in its own order.
struct NameRule {
    NameFault fault;
    std::string_view words;
    platform::Icon icon = platform::Icon::warning;
};

/// True when `name` has that fault. Numeric is a number with or without sign and fraction; a letter makes it a name.
bool hasFault(std::string_view name, NameFault fault);

/// Tells the first check that the name does not pass. True when it passes all of them.
bool checkName(std::string_view name, std::span<const NameRule> rules, platform::MessageBox& messages,
               const std::string& title = {});

}  // namespace orvent::forms
