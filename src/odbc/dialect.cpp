#include "odbc/dialect.h"

#include <algorithm>

#include "odbc/dialect_rules.h"
#include "odbc/translator.h"
#include "platform/text.h"

namespace orvent::odbc {

namespace {

/// The most bytes of a VARCHAR2, whether its width counts bytes or characters.
constexpr std::size_t kLongestText = 4000;

}  // namespace

Dialect::Dialect(const DialectRules* rules, std::string_view user) : rules_(rules), user_(platform::upperCase(user)) {}

Translation Dialect::translate(std::string_view sql) const {
    return rules_ != nullptr ? Translator(*rules_, user_, sql).run() : Translation{.sql = std::string(sql)};
}

std::string Dialect::nextNumber(std::string_view sequence) const {
    return rules_ != nullptr ? filled(rules_->drawNumber, sequence) : std::string();
}

std::string Dialect::setUp() const {
    return rules_ != nullptr ? std::string(rules_->setUp) : std::string();
}

std::string Dialect::refuseChanges() const {
    return rules_ != nullptr ? std::string(rules_->refuseChanges) : std::string();
}

platform::TextLimit Dialect::textLimit(std::size_t width, platform::TextColumn column) const {
    if (rules_ == nullptr) {
        return {.characters = width, .bytes = kLongestText};
    }
    if (!rules_->keepsWidths) {
        return {};
    }
    if (column == platform::TextColumn::plain) {
        return {.characters = width, .bytes = 0};
    }
    const auto most = static_cast<std::size_t>(rules_->keyWidth);
    return {.characters = most == 0 ? width : std::min(width, most),
            .bytes = static_cast<std::size_t>(rules_->keyBytes)};
}

bool Dialect::cancelsByAnother() const {
    return rules_ != nullptr && rules_->cancelsByAnother;
}

bool Dialect::keepsPlaceInBlock() const {
    return rules_ == nullptr || rules_->keepsPlaceInBlock;
}

}  // namespace orvent::odbc
