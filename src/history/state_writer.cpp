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

void writeNode(std::string& out, std::int32_t index, const NodeBytes& node) {
    RecordWriter record(out, Record::node);
    record.code(index).text(node ? std::string_view(*node) : std::string_view());
}

void writeEdge(std::string& out, std::int32_t index, const canvas::EdgeState& edge) {
    RecordWriter record(out, Record::edge);
    record.code(index).code(edge.from).code(edge.to);
    if (edge.exists()) {
        record.code(edge.fromPoint).code(edge.toPoint).code(edge.kind).code(edge.angle);
        record.real(edge.middle.x).real(edge.middle.y).code(edge.middlePlaced).code(edge.color);
    }
}

void writeTold(std::string& out, const StateWriter::Told& told) {
    RecordWriter(out, Record::step).code(told.time).text(told.words);
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

}  // namespace

void StateWriter::writeTexts(std::string& out, const TextPool& texts) {
    if (texts_ < texts.size()) {
        RecordWriter record(out, Record::texts);
        record.number(texts.size() - texts_);
        for (; texts_ < texts.size(); ++texts_) {
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

std::string StateWriter::whole(const canvas::DrawForm& form, const Remembered& remembered,
                               const std::vector<Told>& told) {
    std::string out;
    RecordWriter(out, Record::begin).text("orvent state").number(1);
    texts_ = 0;
    types_ = ~std::uint64_t{0};
    writeTypes(out);
    writeTexts(out, remembered.texts());
    scenario_ = scenarioRecord(form, source_, form.stored.broken);
    out += scenario_;
    writeRows(out, form);
    for (std::size_t index = 0; index < remembered.nodes().size(); ++index) {
        if (const NodeBytes& node = remembered.nodes()[index]) {
            writeNode(out, static_cast<std::int32_t>(index), node);
        }
    }
    for (std::size_t index = 0; index < remembered.edges().size(); ++index) {
        if (const canvas::EdgeState& edge = remembered.edges()[index]; edge.exists()) {
            writeEdge(out, static_cast<std::int32_t>(index), edge);
        }
    }
    for (const Told& each : told) {
        writeTold(out, each);
    }
    if (told.empty()) {
        writeTold(out, {});
    }
    return out;
}

std::string StateWriter::step(const canvas::DrawForm& form, const Remembered& remembered,
                              const canvas::Touched& changed, const Told& told) {
    std::string out;
    writeTypes(out);
    writeTexts(out, remembered.texts());
    for (const std::int32_t node : changed.nodes) {
        writeNode(out, node, remembered.nodes()[static_cast<std::size_t>(node)]);
    }
    for (const std::int32_t edge : changed.edges) {
        writeEdge(out, edge, remembered.edges()[static_cast<std::size_t>(edge)]);
    }
    if (std::string scenario = scenarioRecord(form, source_, form.stored.broken); scenario != scenario_) {
        scenario_ = std::move(scenario);
        out += scenario_;
    }
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
