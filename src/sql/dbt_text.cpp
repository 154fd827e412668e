#include "sql/dbt_text.h"

#include <algorithm>

#include "platform/text.h"

namespace orvent::sql {

namespace {

constexpr char kBegin = '\x01';
constexpr char kEnd = '\x02';

constexpr const char* kHolds =
    "{% test holds(model, condition) %}\nSELECT * FROM {{ model }} WHERE NOT ({{ condition }})\n{% endtest %}\n";
constexpr const char* kUniqueTogether =
    "{% test unique_together(model, columns) %}\nSELECT {{ columns | join(', ') }} FROM {{ model }}\nWHERE "
    "{{ columns | join(' IS NOT NULL AND ') }} IS NOT NULL\nGROUP BY {{ columns | join(', ') }} HAVING COUNT(*) > "
    "1\n{% endtest %}\n";

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

std::string dbtEscaped(std::string_view text) {
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::string_view pair = text.substr(at, 2);
        if (pair == "{{" || pair == "{%" || pair == "{#") {
            result.append("{{ '").append(pair).append("' }}");
            ++at;
        } else {
            result += text[at];
        }
    }
    return result;
}

std::string dbtText(std::string_view text) {
    std::string result = "'";
    for (const char c : text) {
        result += c == '\'' || c == '\\' ? std::string{'\\', c} : std::string(1, c);
    }
    return result + "'";
}

std::string dbtLine(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        c = static_cast<unsigned char>(c) < ' ' ? ' ' : c;
    }
    return result;
}

std::string yamlText(std::string_view text) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    std::string result = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < ' ') {
            result += {'\\', 'x', kDigits[byte >> 4U], kDigits[byte & 15U]};
        } else {
            result += c == '"' || c == '\\' ? std::string{'\\', c} : std::string(1, c);
        }
    }
    return result + "\"";
}

std::vector<ProjectFile> dbtTests() {
    return {{"tests/generic/holds.sql", kHolds}, {"tests/generic/unique_together.sql", kUniqueTogether}};
}

std::string DbtNames::of(std::string_view node) {
    std::string head = platform::lowerCase(node);
    for (char& c : head) {
        c = (c >= 'a' && c <= 'z') || isDigit(c) ? c : '_';
    }
    if (head.empty() || isDigit(head[0])) {
        head.insert(0, "n");
    }
    std::string name = head;
    for (int number = 2; !taken_.insert(name).second; ++number) {
        name = head + "_" + std::to_string(number);
    }
    return name;
}

std::string DbtMark::source(std::size_t place) {
    return kBegin + std::to_string(place) + kEnd;
}

std::string DbtMark::resolved(std::string_view query, const std::function<std::string(std::size_t)>& named) {
    std::string result;
    while (!query.empty()) {
        const std::size_t begin = query.find(kBegin);
        result += dbtEscaped(query.substr(0, begin));
        if (begin == std::string_view::npos) {
            break;
        }
        const std::size_t end = std::min(query.find(kEnd, begin), query.size());
        const auto place = platform::parseInteger(query.substr(begin + 1, end - begin - 1));
        result += place && end < query.size() ? named(static_cast<std::size_t>(*place))
                                              : std::string(query.substr(begin, end + 1 - begin));
        query.remove_prefix(std::min(end + 1, query.size()));
    }
    return result;
}

}  // namespace orvent::sql
