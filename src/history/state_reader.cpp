#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>

#include "history/kept_state.h"
#include "history/row_identifiers.h"
#include "history/state_records.h"
#include "links/type_indices.h"

namespace orvent::history {

namespace {

/// How many things a body says that follow, each of which takes a byte at least.
std::size_t listed(RecordBody& body, std::string_view bytes) {
    const std::uint64_t count = body.number();
    return count <= bytes.size() ? static_cast<std::size_t>(count) : throw BadBytes();
}

std::vector<std::string> readNames(RecordBody& body, std::string_view bytes) {
    std::vector<std::string> names(listed(body, bytes));
    for (std::string& name : names) {
        name = body.text();
    }
    return names;
}

/// A design holds four kinds of nodes, each with what it stands for.
void needFit(const canvas::NodeState& node) {
    const bool fits = std::visit(
        [&node]<class Held>(const Held& held) {
            if constexpr (std::is_same_v<Held, std::int16_t>) {
                return node.kind == canvas::NodeTypeLog;
            } else {
                using Record = std::remove_cvref_t<decltype(*held)>;
                return held &&
                       ((std::is_same_v<Record, entities::ActivityProperties> &&
                         node.kind == canvas::NodeTypeActivity) ||
                        (std::is_same_v<Record, entities::RecordSetProperties> &&
                         node.kind == canvas::NodeTypeRecordSet) ||
                        (std::is_same_v<Record, entities::CommentProperties> && node.kind == canvas::NodeTypeComment));
            }
        },
        node.entity);
    const bool placed = std::ranges::all_of(std::array{node.box.Left, node.box.Top, node.box.Width, node.box.Height},
                                            [](float value) { return std::isfinite(value); });
    if (!fits || !placed) {
        throw BadBytes();
    }
}

constexpr std::uint64_t kMostNumbers = 1U << 24U;  // no session gives more; a larger one would be a place in memory

template <class Number>
Number readIndex(RecordBody& body) {
    const std::uint64_t index = body.number();
    return index > 0 && index < kMostNumbers ? static_cast<Number>(index) : throw BadBytes();
}

class StateReader {
  public:
    void read(const RecordReader::Found& found) {
        RecordBody body(found.body);
        switch (found.kind) {
            case Record::begin:
                return needFormat(body);
            case Record::texts:
                for (std::size_t left = listed(body, found.body); left > 0; --left) {
                    texts_.number(body.text());
                }
                return;
            case Record::types:
                state_.dataTypes = readNames(body, found.body);
                state_.functionTypes = readNames(body, found.body);
                state_.activityTypes = readNames(body, found.body);
                return;
            case Record::scenario:
                return readScenario(body, found.body);
            case Record::rows:
                state_.rows.resize(listed(body, found.body));
                for (auto& [id, mark] : state_.rows) {
                    body.code(id);
                    mark = body.number();
                }
                return;
            case Record::nodes:
                while (!body.atEnd()) {
                    Parts& parts = nodes_[readIndex<canvas::NodeNumber>(body)];
                    parts.head = body.text();
                    parts.entity = parts.head.empty() ? parts.head : body.text();
                }
                return;
            case Record::heads:
                while (!body.atEnd()) {
                    Parts& parts = nodes_[readIndex<canvas::NodeNumber>(body)];
                    if (parts.head.empty()) {
                        throw BadBytes();
                    }
                    parts.head = body.text();
                }
                return;
            case Record::edges:
                while (!body.atEnd()) {
                    readEdge(body);
                }
                return;
            case Record::about:
            case Record::step: {
                Told told;
                body.code(told.time);
                told.words = body.text();
                if (!told.words.empty()) {
                    state_.told.push_back(std::move(told));
                }
                return;
            }
        }
        throw BadBytes();
    }

    /// The state with its nodes and edges. An edge has both of its nodes, and stands in their lists.
    KeptState take() {
        std::map<canvas::NodeNumber, canvas::NodeState> nodes;
        for (const auto& [index, parts] : nodes_) {
            if (!parts.head.empty()) {
                canvas::NodeState node = headOf(parts.head, texts_);
                node.index = index;
                node.entity = entityOf(parts.entity, index, texts_);
                needFit(node);
                nodes.emplace(index, std::move(node));
            }
        }
        for (const auto& [index, edge] : edges_) {
            if (edge.exists()) {
                const auto from = nodes.find(edge.from), to = nodes.find(edge.to);
                if (from == nodes.end() || to == nodes.end()) {
                    throw BadBytes();
                }
                state_.edges.push_back({index, edge});
            }
        }
        for (auto& [index, node] : nodes) {
            keepOwn(node.starting, index, &canvas::EdgeState::from);
            keepOwn(node.ending, index, &canvas::EdgeState::to);
        }
        for (const auto& [index, edge] : state_.edges) {
            addMissing(nodes.at(edge.from).starting, index);
            addMissing(nodes.at(edge.to).ending, index);
        }
        for (auto& [index, node] : nodes) {
            state_.nodes.push_back(std::move(node));
        }
        return std::move(state_);
    }

  private:
    void readScenario(RecordBody& body, std::string_view bytes) {
        state_.source = body.text();
        state_.name = body.text();
        body.code(state_.scenario);
        body.code(state_.changed);
        body.code(state_.forced);
        body.code(state_.broken);
        state_.mark = body.number();
        state_.deleted.resize(listed(body, bytes));
        for (canvas::DeletedNode& row : state_.deleted) {
            body.code(row.NodeKind);
            body.code(row.NodeID);
        }
    }

    void readEdge(RecordBody& body) {
        canvas::EdgeState edge;
        const auto index = readIndex<canvas::EdgeNumber>(body);
        body.code(edge.from);
        body.code(edge.to);
        if (edge.exists()) {
            body.code(edge.fromPoint);
            body.code(edge.toPoint);
            body.code(edge.kind);
            body.code(edge.angle);
            edge.middle.x = body.real();
            edge.middle.y = body.real();
            body.code(edge.middlePlaced);
            body.code(edge.color);
        }
        edges_[index] = edge;
    }

    void keepOwn(std::vector<canvas::EdgeNumber>& lines, canvas::NodeNumber node,
                 canvas::NodeNumber canvas::EdgeState::*end) const {
        std::erase_if(lines, [&](canvas::EdgeNumber line) {
            const auto edge = edges_.find(line);
            return edge == edges_.end() || !edge->second.exists() || edge->second.*end != node;
        });
    }

    static void addMissing(std::vector<canvas::EdgeNumber>& lines, canvas::EdgeNumber line) {
        if (std::ranges::find(lines, line) == lines.end()) {
            lines.push_back(line);
        }
    }

    struct Parts {
        std::string_view head, entity;  ///< none for a node that has gone
    };

    TextPool texts_;
    KeptState state_;
    std::map<canvas::NodeNumber, Parts> nodes_;
    std::map<canvas::EdgeNumber, canvas::EdgeState> edges_;
};

/// The types that the nodes have, in the run's tables; those that nothing has are left alone.
class TypesTakenOver {
  public:
    TypesTakenOver(entities::CatalogueTables& tables, const KeptState& state) : tables_(tables), state_(state) {}

    /// Throws a `Fault` when the tables have no room for all that there may be.
    void needRoom() const {
        for (const auto& [table, names] : {std::pair(&tables_.dataTypes, &state_.dataTypes),
                                           std::pair(&tables_.functionTypes, &state_.functionTypes),
                                           std::pair(&tables_.activityTypes, &state_.activityTypes)}) {
            platform::checkedI16(static_cast<long long>(table->size() + names->size()), "Catalogue index");
        }
    }

    std::int16_t indexOf(links::TypeTable table, std::int16_t type) {
        if (type < 0) {
            return type;
        }
        const auto [known, isNew] = known_.try_emplace({table, type});
        if (isNew) {
            known->second = find(table, static_cast<std::size_t>(type));
        }
        return known->second;
    }

  private:
    std::int16_t find(links::TypeTable table, std::size_t type) {
        const auto name = [type](const std::vector<std::string>& names) {
            return type < names.size() ? names[type] : std::string();
        };
        switch (table) {
            case links::TypeTable::data:
                return tables_.dataTypes.keep(name(state_.dataTypes));
            case links::TypeTable::functions:
                return tables_.functionTypes.keep(name(state_.functionTypes));
            case links::TypeTable::activities:
                return tables_.keepActivityType(name(state_.activityTypes), {}, {});
        }
        return 0;
    }

    entities::CatalogueTables& tables_;
    const KeptState& state_;
    std::map<std::pair<links::TypeTable, std::int16_t>, std::int16_t> known_;
};

}  // namespace

namespace {

/// The records up to the last one that ends a step.
std::vector<RecordReader::Found> wholeSteps(std::string_view bytes) {
    std::vector<RecordReader::Found> records;
    RecordReader reader(bytes);
    std::size_t whole = 0;
    while (const auto found = reader.next()) {
        records.push_back(*found);
        if (found->kind == Record::step) {
            whole = records.size();
        }
    }
    if (whole == 0 || records.front().kind != Record::begin) {
        throw BadBytes();
    }
    records.resize(whole);
    return records;
}

}  // namespace

KeptState readState(std::string_view bytes) {
    StateReader state;
    for (const RecordReader::Found& found : wholeSteps(bytes)) {
        state.read(found);
    }
    return state.take();
}

void fillForm(canvas::DrawForm& form, KeptState state, entities::CatalogueTables& tables, TakenOver rows) {
    TypesTakenOver types(tables, state);
    types.needRoom();
    canvas::CanvasChange change;
    for (canvas::NodeState& node : state.nodes) {
        links::eachType(node.entity,
                        [&types](links::TypeTable table, std::int16_t& type) { type = types.indexOf(table, type); });
        if (rows == TakenOver::asNew) {
            StoredRows({}).giveTo(node);
        }
        form.LabelsNo = std::max(form.LabelsNo, node.index);
        change.nodes.push_back(std::move(node));
    }
    for (const canvas::CanvasChange::Edge& edge : state.edges) {
        form.LinesNo = std::max(form.LinesNo, edge.index);
    }
    change.edges = std::move(state.edges);
    canvas::restore(form, std::move(change));
    form.stored.changed = true;
    if (rows == TakenOver::asNew) {
        form.stored.forced = true;
        return;
    }
    form.ScenarioID = state.scenario;
    form.stored.forced = state.forced;
    form.stored.broken = state.broken;
    form.stored.mark = state.mark;
    form.stored.rows.insert(state.rows.begin(), state.rows.end());
    for (const canvas::DeletedNode& row : state.deleted) {
        form.DeletedNodes->Add(row.NodeID, row.NodeKind);
    }
}

}  // namespace orvent::history
