#include <algorithm>
#include <utility>

#include "history/kept_state.h"
#include "history/state_records.h"

namespace orvent::history {

namespace {

void writeNames(RecordWriter& record, const entities::NameTable& table) {
    record.number(table.size());
    for (std::size_t at = 0; at < table.size(); ++at) {
        record.text(table.name(static_cast<std::int16_t>(at)));
    }
}

void writeNode(RecordWriter& record, std::size_t index, const NodeBytes& node) {
    record.number(index).text(node ? *node.head : std::string_view());
    if (node) {
        record.text(*node.entity);
    }
}

void writeEdge(RecordWriter& record, std::size_t index, const canvas::EdgeState& edge) {
    record.number(index).code(edge.from).code(edge.to);
    if (edge.exists()) {
        record.code(edge.fromPoint).code(edge.toPoint).code(edge.kind).code(edge.angle);
        record.real(edge.middle.x).real(edge.middle.y).code(edge.middlePlaced).code(edge.color);
    }
}

void writeTold(std::string& out, const Told& told, Record record = Record::step) {
    RecordWriter(out, record).code(told.time).text(told.words);
}

std::string scenarioRecord(const canvas::DrawForm& form, const std::string& source, bool broken) {
    std::string out;
    RecordWriter record(out, Record::scenario);
    record.text(source).text(form.ScenarioName()).code(form.ScenarioID);
    record.code(form.stored.changed).code(form.stored.forced).code(broken).number(form.stored.mark);
    record.number(static_cast<std::uint64_t>(form.DeletedNodes->Count()));
    for (const canvas::DeletedNode& row : *form.DeletedNodes) {
        record.code(row.NodeKind).code(row.NodeID);
    }
    return out;
}

void writeRows(std::string& out, const canvas::DrawForm& form) {
    RecordWriter record(out, Record::rows);
    record.number(form.stored.rows.size());
    for (const auto& [id, mark] : form.stored.rows) {
        record.code(id).number(mark);
    }
}

template <class Number>
std::vector<Number> eachOnce(std::vector<Number> numbers) {
    std::ranges::sort(numbers);
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

}  // namespace

/// Texts up to one of them, as far as there is room.
void StateWriter::writeTexts(std::string& out, const TextPool& texts, std::uint32_t end, std::size_t most) {
    std::uint32_t last = texts_;
    for (std::size_t letters = 0; last < end && letters < most; ++last) {
        letters += texts.text(last).size() + 1;
    }
    if (texts_ < last) {
        RecordWriter record(out, Record::texts);
        record.number(last - texts_);
        for (; texts_ < last; ++texts_) {
            record.text(texts.text(texts_));
        }
    }
}

void StateWriter::writeTypes(std::string& out) {
    const std::uint64_t state = (static_cast<std::uint64_t>(tables_.dataTypes.changes()) << 42) ^
                                (static_cast<std::uint64_t>(tables_.functionTypes.changes()) << 21) ^
                                tables_.activityTypes.changes();
    if (std::exchange(types_, state) != state) {
        RecordWriter record(out, Record::types);
        writeNames(record, tables_.dataTypes);
        writeNames(record, tables_.functionTypes);
        writeNames(record, tables_.activityTypes);
    }
}

void StateWriter::begin(const canvas::DrawForm& form, const Remembered& remembered, const Told& told) {
    whole_ = {};
    whole_.nodes = remembered.nodes();
    whole_.edges = remembered.edges();
    whole_.texts = remembered.texts().size();
    writeFormat(whole_.begin);
    texts_ = 0;
    types_ = ~std::uint64_t{0};
    scenario_ = scenarioRecord(form, source_, form.stored.broken);
    whole_.begin += scenario_;
    if (!told.words.empty()) {
        writeTold(whole_.begin, told, Record::about);
    }
    writeTypes(whole_.begin);
    writeRows(whole_.begin, form);
}

std::string StateWriter::nextPart(const Remembered& remembered, std::size_t most) {
    std::string out = std::exchange(whole_.begin, {});
    writeTexts(out, remembered.texts(), whole_.texts, most);
    if (out.size() < most && whole_.node < whole_.nodes.size()) {
        RecordWriter record(out, Record::nodes);
        for (; whole_.node < whole_.nodes.size() && record.size() < most; ++whole_.node) {
            if (const NodeBytes& node = whole_.nodes[whole_.node]) {
                writeNode(record, whole_.node, node);
            }
        }
    }
    if (out.size() < most && whole_.edge < whole_.edges.size()) {
        RecordWriter record(out, Record::edges);
        for (; whole_.edge < whole_.edges.size() && record.size() < most; ++whole_.edge) {
            if (const canvas::EdgeState& edge = whole_.edges[whole_.edge]; edge.exists()) {
                writeEdge(record, whole_.edge, edge);
            }
        }
    }
    return out;
}

std::string StateWriter::endAsBegun() {
    std::string out;
    writeTold(out, {});
    return out;
}

std::string StateWriter::end(const canvas::DrawForm& form, const Remembered& remembered, const canvas::Touched& changed,
                             const std::vector<Told>& told) {
    whole_ = {};
    std::string out;
    writeChanges(out, form, remembered, changed);
    for (const Told& each : told) {
        writeTold(out, each);
    }
    if (told.empty()) {
        writeTold(out, {});
    }
    return out;
}

void StateWriter::writeChanges(std::string& out, const canvas::DrawForm& form, const Remembered& remembered,
                               const canvas::Touched& changed) {
    writeTypes(out);
    writeTexts(out, remembered.texts(), remembered.texts().size(), std::string::npos);
    if (!changed.nodes.empty()) {
        RecordWriter record(out, Record::nodes);
        for (const canvas::NodeNumber index : eachOnce(changed.nodes)) {
            const auto at = static_cast<std::size_t>(index);
            writeNode(record, at, remembered.nodes()[at]);
        }
    }
    if (!changed.heads.empty()) {
        RecordWriter record(out, Record::heads);
        for (const canvas::NodeNumber index : eachOnce(changed.heads)) {
            const auto at = static_cast<std::size_t>(index);
            if (const NodeBytes& node = remembered.nodes()[at]) {
                record.number(at).text(*node.head);
            }
        }
    }
    if (!changed.edges.empty()) {
        RecordWriter record(out, Record::edges);
        for (const canvas::EdgeNumber index : eachOnce(changed.edges)) {
            const auto at = static_cast<std::size_t>(index);
            writeEdge(record, at, remembered.edges()[at]);
        }
    }
    if (std::string scenario = scenarioRecord(form, source_, form.stored.broken); scenario != scenario_) {
        scenario_ = std::move(scenario);
        out += scenario_;
    }
}

std::string StateWriter::step(const canvas::DrawForm& form, const Remembered& remembered,
                              const canvas::Touched& changed, const Told& told) {
    std::string out;
    writeChanges(out, form, remembered, changed);
    writeTold(out, told);
    return out;
}

std::string StateWriter::standing(const canvas::DrawForm& form, bool broken) {
    std::string out = scenarioRecord(form, source_, broken);
    if (out == scenario_) {
        return {};
    }
    scenario_ = out;
    writeTold(out, {});
    return out;
}

}  // namespace orvent::history
