#include "exchange/facts_text.h"

#include <algorithm>
#include <array>
#include <limits>

namespace orvent::exchange {

using entities::Expectation;
using entities::Facts;
using entities::Field;
using entities::NodeFacts;

namespace {

using Place = JsonTree::Place;

constexpr const char* kFactsFormat = "orvent facts";
/// In the order of `Expectation::Kind`.
constexpr std::array<std::string_view, 4> kExpectationWords = {"atLeast", "atMost", "exactly", "none"};
constexpr std::array<std::string_view, 6> kOperators = {"=", "!=", "<", "<=", ">", ">="};

void writeField(JsonText& out, const Field& field) {
    field ? out.text(*field) : out.raw("null");
}

void writeRows(JsonText& out, const Facts& facts) {
    out.open('{');
    begin(out, Key::columns);
    out.openInline('[');
    for (const std::string& column : facts.columns) {
        out.next();
        out.text(column);
    }
    out.closeInline(']');
    begin(out, Key::rows);
    out.open('[');
    for (const entities::FieldRow& row : facts.rows) {
        out.nextLine();
        out.openInline('[');
        for (const Field& field : row) {
            out.next();
            writeField(out, field);
        }
        out.closeInline(']');
    }
    out.close(']');
    out.close('}');
}

void writeExpectation(JsonText& out, const Expectation& expectation) {
    out.nextLine();
    out.openInline('{');
    beginInline(out, Key::kind);
    out.text(kExpectationWords[static_cast<std::size_t>(expectation.kind)]);
    if (expectation.kind == Expectation::Kind::none) {
        beginInline(out, Key::column);
        out.text(expectation.column);
        beginInline(out, Key::op);
        out.text(expectation.op);
        beginInline(out, Key::value);
        writeField(out, expectation.value);
    } else {
        beginInline(out, Key::rows);
        out.number(expectation.rows);
    }
    out.closeInline('}');
}

Field readField(const ValueReader& in, Place at) {
    return in.tree().kind(at) == JsonKind::null ? Field() : Field(in.text(at));
}

Facts readRows(const ValueReader& in, Place at) {
    in.object(at, keySet({Key::columns, Key::rows}));
    Facts facts;
    in.each(in.required(at, Key::columns), [&](Place column) { facts.columns.push_back(in.text(column)); });
    in.each(in.required(at, Key::rows), [&](Place place) {
        entities::FieldRow row;
        in.each(place, [&](Place field) { row.push_back(readField(in, field)); });
        if (row.size() != facts.columns.size()) {
            in.tree().refuse(place, "expected a value for each column");
        }
        facts.rows.push_back(std::move(row));
    });
    return facts;
}

Expectation readExpectation(const ValueReader& in, Place at) {
    Expectation expectation;
    const Place kind = in.required(at, Key::kind);
    const auto word = std::ranges::find(kExpectationWords, in.view(kind));
    if (word == kExpectationWords.end()) {
        in.tree().refuse(kind, "there is no \"" + in.text(kind) + "\" here");
    }
    expectation.kind = static_cast<Expectation::Kind>(word - kExpectationWords.begin());
    if (expectation.kind != Expectation::Kind::none) {
        in.object(at, keySet({Key::kind, Key::rows}));
        expectation.rows = in.integer(in.required(at, Key::rows), 0, std::numeric_limits<std::int64_t>::max());
        return expectation;
    }
    in.object(at, keySet({Key::kind, Key::column, Key::op, Key::value}));
    expectation.column = in.text(in.required(at, Key::column));
    const Place op = in.required(at, Key::op);
    expectation.op = in.text(op);
    if (std::ranges::find(kOperators, expectation.op) == kOperators.end()) {
        in.tree().refuse(op, "there is no \"" + expectation.op + "\" here");
    }
    expectation.value = readField(in, in.required(at, Key::value));
    return expectation;
}

}  // namespace

void writeFacts(JsonText& out, const NodeFacts& facts) {
    if (facts.facts) {
        begin(out, Key::facts);
        writeRows(out, *facts.facts);
    }
    if (!facts.expectations.empty()) {
        begin(out, Key::expected);
        out.open('[');
        for (const Expectation& expectation : facts.expectations) {
            writeExpectation(out, expectation);
        }
        out.close(']');
    }
}

NodeFacts readFacts(const ValueReader& in, Place node) {
    NodeFacts facts;
    if (const Place rows = in.tree().member(node, Key::facts); rows != JsonTree::kNowhere) {
        facts.facts = readRows(in, rows);
    }
    in.eachOf(node, Key::expected, [&](Place each) { facts.expectations.push_back(readExpectation(in, each)); });
    return facts;
}

std::string factsDocument(const KeptScenario& kept) {
    JsonText out;
    out.open('{');
    begin(out, Key::format);
    out.text(kFactsFormat);
    if (kept.keepDuplicates) {
        begin(out, Key::duplicates);
        out.boolean(true);
    }
    begin(out, Key::nodes);
    out.open('[');
    for (const auto& [name, facts] : kept.nodes) {
        out.nextLine();
        out.open('{');
        begin(out, Key::name);
        out.text(name);
        writeFacts(out, facts);
        out.close('}');
    }
    out.close(']');
    out.close('}');
    return out.take();
}

KeptScenario readFactsDocument(std::string_view text) {
    const JsonTree tree(text);
    const ValueReader in(tree);
    tree.refuseUnknown();
    in.object(0, keySet({Key::format, Key::duplicates, Key::nodes}));
    if (in.text(in.required(0, Key::format)) != kFactsFormat) {
        throw BadDocument(std::string("It does not say \"format\": \"") + kFactsFormat + "\".");
    }
    KeptScenario kept;
    const Place duplicates = tree.member(0, Key::duplicates);
    kept.keepDuplicates = duplicates != JsonTree::kNowhere && in.boolean(duplicates);
    in.each(in.required(0, Key::nodes), [&](Place node) {
        in.object(node, kFactKeys | keySet({Key::name}));
        kept.nodes[in.text(in.required(node, Key::name))] = readFacts(in, node);
    });
    return kept;
}

}  // namespace orvent::exchange
