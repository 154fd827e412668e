#include "program/types.h"

#include <algorithm>
#include <array>
#include <chrono>

#include "entities/key_grammar.h"
#include "links/far_end.h"
#include "platform/text.h"

namespace orvent::program {

namespace {

constexpr int kFarthest = 100;  ///< a type is looked for along so many links; they may run in a circle

struct TypeHead {
    std::string_view head;
    Family family;
};
constexpr std::array<TypeHead, 21> kTypeHeads = {{
    {"NUMBER", Family::number},   {"NUMERIC", Family::number},  {"INT", Family::number},
    {"FLOAT", Family::number},    {"BINARY_F", Family::number}, {"BINARY_D", Family::number},
    {"DEC", Family::number},      {"DOUBLE", Family::number},   {"REAL", Family::number},
    {"SMALLINT", Family::number}, {"BIGINT", Family::number},   {"MEDIUMINT", Family::number},
    {"TINYINT", Family::number},  {"VARCHAR", Family::text},    {"NVARCHAR", Family::text},
    {"CHAR", Family::text},       {"NCHAR", Family::text},      {"TEXT", Family::text},
    {"CLOB", Family::text},       {"DATE", Family::date},       {"TIMESTAMP", Family::date},
}};

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

unsigned digit(char c) {
    return static_cast<unsigned>(c - '0');
}

}  // namespace

Family familyOf(std::string_view typeName) {
    const std::string name = platform::upperCase(typeName);
    for (const TypeHead& row : kTypeHeads) {
        if (name.starts_with(row.head)) {
            return row.family;
        }
    }
    return Family::unknown;
}

std::string timestampIn(std::string_view text) {
    constexpr std::string_view kShape = "0000-00-00 00:00:00";
    constexpr std::size_t kDay = 10;
    std::string result(text);
    if (result.size() == kDay) {
        result += kShape.substr(kDay);
    }
    if (result.size() > kDay && result[kDay] == 'T') {
        result[kDay] = ' ';
    }
    for (std::size_t at = 0; at < kShape.size(); ++at) {
        const bool fits = at < result.size() && (kShape[at] == '0' ? isDigit(result[at]) : result[at] == kShape[at]);
        if (!fits) {
            return "";
        }
    }
    const auto part = [&result](std::size_t at) { return 10U * digit(result[at]) + digit(result[at + 1]); };
    const std::chrono::year_month_day day(std::chrono::year(static_cast<int>(100 * part(0) + part(2))),
                                          std::chrono::month(part(5)), std::chrono::day(part(8)));
    const std::string_view fraction = std::string_view(result).substr(kShape.size());
    const bool good = day.ok() && part(11) < 24 && part(14) < 60 && part(17) < 60 &&
                      (fraction.empty() || (fraction[0] == '.' && fraction.size() > 1 &&
                                            std::all_of(fraction.begin() + 1, fraction.end(), isDigit)));
    return good ? result : "";
}

Types::Types(const canvas::Canvas& form, const entities::CatalogueTables& catalogue)
    : form_(form),
      names_(catalogue.dataTypes),
      bySource_(catalogue.dataTypes.indexOf(entities::kDefinedBySource).value_or(-1)) {}

Family Types::family(std::int16_t type) const {
    return type < 0 || static_cast<std::size_t>(type) >= names_.size() ? Family::unknown : familyOf(names_.name(type));
}

std::int16_t Types::typeOf(const entities::AttributeProperties& attribute) const {
    const entities::AttributeProperties* at = &attribute;
    for (int hops = 0; bySource_ >= 0 && at->Attribute_Type == bySource_; ++hops) {
        const entities::ProviderLinks* links = at->ProvidedFrom.peek();
        const entities::ProviderProperties* link = links ? links->Item(1) : nullptr;
        if (!link || hops > kFarthest) {
            return -1;
        }
        at = links::findFarEnd(form_, links::Direction::ProvidedFrom, links::NearEnd(*at),
                               {link->name(), link->type(), link->key()}, nullptr)
                 .attribute;
        if (!at) {
            return -1;
        }
    }
    return at->Attribute_Type;
}

}  // namespace orvent::program
