#include "run/expectations.h"

#include <algorithm>
#include <utility>

#include "platform/fault.h"
#include "platform/text.h"

namespace orvent::run {

using entities::Expectation;
using Kind = Expectation::Kind;

namespace {

constexpr std::size_t kOffending = 20;  ///< so many rows that should not be there are told

constexpr std::string_view kNoRow = "No row where ";

/// A value as it stands in a sentence.
std::string written(const entities::Field& value) {
    if (!value) {
        return "NULL";
    }
    const bool plain = !value->empty() && *value != "NULL" && value->front() != '"' &&
                       platform::trimmed(*value).size() == value->size();
    return plain ? *value : '"' + *value + '"';
}

entities::Field readValue(std::string_view text) {
    if (text == "NULL") {
        return std::nullopt;
    }
    const bool quoted = text.size() > 1 && text.front() == '"' && text.back() == '"';
    return std::string(quoted ? text.substr(1, text.size() - 2) : text);
}

/// "<column> <operator> <value>"; the first operator between blanks is the one.
Expectation readCondition(std::string_view text) {
    Expectation expectation{Kind::none, 0, {}, {}, {}};
    std::size_t place = std::string_view::npos;
    for (const std::string_view op : {"=", "!=", "<", "<=", ">", ">="}) {
        const std::size_t found = text.find(" " + std::string(op) + " ");
        if (found < place) {
            place = found;
            expectation.op = op;
        }
    }
    if (place == std::string_view::npos || place == 0) {
        throw platform::Fault("\"" + std::string(text) + "\" compares no column with a value: COLUMN > VALUE.");
    }
    expectation.column = platform::trimmed(text.substr(0, place));
    expectation.value = readValue(platform::trimmed(text.substr(place + expectation.op.size() + 2)));
    return expectation;
}

std::string rowsWord(long long count) {
    return std::to_string(count) + (count == 1 ? " row" : " rows");
}

bool isMet(const Expectation& expectation, long long count) {
    switch (expectation.kind) {
        case Kind::atLeast:
            return count >= expectation.rows;
        case Kind::atMost:
            return count <= expectation.rows;
        default:
            return count == expectation.rows;
    }
}

void judge(Run& run, std::size_t predicate, Verdict& verdict) {
    if (verdict.expectation.kind != Kind::none) {
        const long long count = run.outcomes()[predicate].count;
        verdict.met = isMet(verdict.expectation, count);
        verdict.words = "there " + std::string(count == 1 ? "is " : "are ") + rowsWord(count);
        return;
    }
    Run::Selected found = run.select(predicate, run.conditionOf(predicate, verdict.expectation), kOffending);
    verdict.met = found.count == 0;
    verdict.words = "there " + std::string(found.count == 1 ? "is " : "are ") + rowsWord(found.count);
    verdict.rows = std::move(found.first);
}

}  // namespace

std::string wordsOf(const Expectation& expectation) {
    switch (expectation.kind) {
        case Kind::atLeast:
            return "At least " + rowsWord(expectation.rows);
        case Kind::atMost:
            return "At most " + rowsWord(expectation.rows);
        case Kind::exactly:
            return "Exactly " + rowsWord(expectation.rows);
        case Kind::none:
            break;
    }
    return std::string(kNoRow) + expectation.column + " " + expectation.op + " " + written(expectation.value);
}

Expectation expectationFrom(const std::string& line) {
    const std::string_view text = platform::trimmed(line);
    const auto starts = [&text](std::string_view head) {
        return text.size() >= head.size() && platform::equalIgnoringCase(text.substr(0, head.size()), head);
    };
    if (starts(kNoRow)) {
        return readCondition(text.substr(kNoRow.size()));
    }
    constexpr std::pair<std::string_view, Kind> kBounds[] = {
        {"At least ", Kind::atLeast}, {"At most ", Kind::atMost}, {"Exactly ", Kind::exactly}};
    for (const auto& [head, kind] : kBounds) {
        if (!starts(head)) {
            continue;
        }
        std::string_view rest = text.substr(head.size());
        const std::size_t end = std::min(rest.find(' '), rest.size());
        const std::string word = platform::lowerCase(platform::trimmed(rest.substr(end)));
        const auto rows = platform::parseInteger(rest.substr(0, end));
        if (rows && *rows >= 0 && (word == "rows" || word == "row")) {
            return {kind, *rows, {}, {}, {}};
        }
    }
    throw platform::Fault("\"" + std::string(text) +
                          "\" says nothing: At least 3 rows, At most 3 rows, Exactly 3 rows, or No row where COLUMN > "
                          "VALUE.");
}

Expected expectedOf(const canvas::DrawForm& form) {
    Expected expected;
    for (const auto& [number, facts] : form.facts) {
        if (form.Labels.byIndex(number) && !facts.expectations.empty()) {
            expected[number] = facts.expectations;
        }
    }
    return expected;
}

std::vector<Verdict> verdicts(Run& run, const Expected& expected) {
    std::vector<Verdict> all;
    for (const auto& [number, expectations] : expected) {
        const auto rows = run.nodes().find(number);
        for (const Expectation& expectation : expectations) {
            Verdict& verdict = all.emplace_back(Verdict{number, expectation});
            if (rows == run.nodes().end() || !rows->second.out) {
                verdict.words = "it has no rows";
                continue;
            }
            const std::size_t predicate = *rows->second.out;
            const Outcome& its = run.outcomes()[predicate];
            if (its.state != Outcome::State::there) {
                verdict.words = its.words.empty() ? "its rows were not looked for" : its.words;
                continue;
            }
            try {
                judge(run, predicate, verdict);
            } catch (const platform::Fault& fault) {
                verdict.words = fault.description();
            }
        }
    }
    return all;
}

}  // namespace orvent::run
