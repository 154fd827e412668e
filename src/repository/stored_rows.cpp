#include "repository/stored_rows.h"

#include <bit>

#include "platform/codes.h"

namespace orvent::repository {

using platform::Statement;

namespace {

/// The members' rows by their identifiers, to find the holder of a link.
using Holders = std::unordered_map<long long, MemberRow*>;

class RowReader {
  public:
    RowReader(StatementCache& repository, const entities::CatalogueTables& tables, std::int16_t ScenarioID)
        : repository_(repository), tables_(tables), ScenarioID_(ScenarioID) {}

    StoredRows read() {
        readNodes();
        readEntities();
        readMembers();
        readFunctions();
        readLinks();
        readLines();
        return std::move(rows_);
    }

  private:
    template <class Visit>
    void each(std::string_view sql, Visit visit) {
        Statement& row = repository_.run(sql, ScenarioID_);
        while (row.fetch()) {
            visit(row);
        }
    }

    /// As `each`, for rows whose first column names a node of the scenario.
    template <class Visit>
    void eachOfNode(std::string_view sql, Visit visit) {
        each(sql, [&](Statement& row) {
            if (const auto place = rows_.places.find(row.number(1)); place != rows_.places.end()) {
                visit(rows_.nodes[place->second], row);
            }
        });
    }

    void readNodes() {
        each(sql::kNodes, [this](Statement& row) {
            NodeRows node;
            node.id = row.number(1);
            node.name = row.text(2);
            node.type = row.number(3);
            node.place = placeMark(node.name, static_cast<canvas::NodeTypeCode>(node.type),
                                   {row.realNumber(4), row.realNumber(5), row.realNumber(6), row.realNumber(7)});
            rows_.places.emplace(node.id, rows_.nodes.size());
            rows_.nodes.push_back(std::move(node));
        });
    }

    void readEntities() {
        eachOfNode(sql::kRecordSetsOf, [](NodeRows& node, Statement& row) { node.own = recordSetMark(row.text(2)); });
        eachOfNode(sql::kCommentsOf, [](NodeRows& node, Statement& row) { node.own = commentMark(row.text(2)); });
        eachOfNode(sql::kActivitiesOf, [this](NodeRows& node, Statement& row) {
            const std::string description = row.text(2);
            const std::uint64_t type = typeMark(tables_.activityTypes, row.text(3));
            const std::string log = row.text(4);
            const std::string sql = row.text(5);
            const std::string ldl = row.text(6);
            node.own = activityMark({description, log, sql, ldl}, type, row.number(7));
        });
    }

    void readMembers() {
        eachOfNode(sql::kRecordSetOutputsOf, [this](NodeRows& node, Statement& row) {
            const long long id = row.number(2);
            const std::string key = row.text(3);
            const std::string dbKey = row.text(4);
            node.members.push_back({id, platform::numberOf(entities::KindRecordSetAttribute), memberMark(key, {}, 0),
                                    outputMark(dbKey, typeMark(tables_.dataTypes, row.text(5)))});
        });
        eachOfNode(sql::kActivitySubNodesOf, [this](NodeRows& node, Statement& row) {
            node.members.push_back(member(row));
            node.members.back().kept = static_cast<std::uint64_t>(row.number(7));
        });
    }

    /// The columns of a member behind its owner.
    MemberRow member(Statement& row) const {
        const long long id = row.number(2);
        const std::string key = row.text(3);
        const long long kind = row.number(4);
        const std::string name = row.text(5);
        return {id, kind, memberMark(key, name, typeMark(tables_.dataTypes, row.text(6)))};
    }

    void readFunctions() {
        std::unordered_map<long long, std::pair<NodeRows*, std::size_t>> functions;
        eachOfNode(sql::kActivityFunctionsOf, [&](NodeRows& node, Statement& row) {
            const long long id = row.number(2);
            const std::string key = row.text(3);
            const auto source = static_cast<std::uint64_t>(row.number(4));
            functions.emplace(id, std::pair(&node, node.functions.size()));
            node.functions.push_back({id, functionMark(key, typeMark(tables_.functionTypes, row.text(5))), source, {}});
        });
        each(sql::kFunctionSubNodesOf, [&](Statement& row) {
            if (const auto owner = functions.find(row.number(1)); owner != functions.end()) {
                const auto& [node, place] = owner->second;
                node->functions[place].members.push_back(member(row));
            }
        });
    }

    void readLinks() {
        Holders holders;
        for (NodeRows& node : rows_.nodes) {
            for (MemberRow& row : node.members) {
                holders.emplace(row.id, &row);
            }
            for (FunctionRow& function : node.functions) {
                for (MemberRow& row : function.members) {
                    holders.emplace(row.id, &row);
                }
            }
        }
        eachOfNode(sql::kLinksOf, [&](NodeRows& node, Statement& row) {
            const auto holder = holders.find(row.number(2));
            const long long kind = row.number(3);
            const std::string key = row.text(4);
            const std::string name = row.text(5);
            addLink(holder == holders.end() ? node.strayLinks : holder->second->links, kind, key, name, row.number(6));
        });
    }

    void readLines() {
        each(sql::kLines, [this](Statement& row) {
            const std::string from = row.text(1);
            const long long fromPoint = row.number(2);
            const std::string to = row.text(3);
            rows_.lines += lineMark(from, fromPoint, to, row.number(4), row.number(5), row.number(6));
            rows_.lineEnds.push_back(from);
            rows_.lineEnds.push_back(to);
        });
    }

    StatementCache& repository_;
    const entities::CatalogueTables& tables_;
    std::int16_t ScenarioID_;
    StoredRows rows_;
};

void add(Mark& mark, const std::vector<MemberRow>& members) {
    mark.number(members.size());
    for (const MemberRow& row : members) {
        for (const std::uint64_t part : {static_cast<std::uint64_t>(row.id), static_cast<std::uint64_t>(row.kind),
                                         row.told, row.kept, row.links.value()}) {
            mark.number(part);
        }
    }
}

}  // namespace

std::uint64_t NodeRows::mark() const {
    Mark mark;
    for (const std::uint64_t part : {static_cast<std::uint64_t>(type), place, own, strayLinks.value()}) {
        mark.number(part);
    }
    add(mark, members);
    for (const FunctionRow& function : functions) {
        mark.number(static_cast<std::uint64_t>(function.id)).number(function.told).number(function.kept);
        add(mark, function.members);
    }
    return mark.value();
}

const NodeRows* StoredRows::find(long long id) const {
    const auto place = places.find(id);
    return place == places.end() ? nullptr : &nodes[place->second];
}

StoredRows readStoredRows(StatementCache& repository, const entities::CatalogueTables& tables,
                          std::int16_t ScenarioID) {
    return RowReader(repository, tables, ScenarioID).read();
}

std::unordered_map<long long, std::uint64_t> marksOf(const StoredRows& rows) {
    std::unordered_map<long long, std::uint64_t> marks{{0, rows.lines}};
    for (const NodeRows& node : rows.nodes) {
        marks[node.id] = node.mark();
    }
    return marks;
}

std::uint64_t typeMark(const entities::NameTable& types, const std::string& name) {
    const auto place = types.indexOf(name);
    return place ? static_cast<std::uint64_t>(*place) + 1 : Mark().text(name).value();
}

std::uint64_t placeMark(std::string_view name, canvas::NodeTypeCode type, const canvas::Box& box) {
    Mark mark;
    // The update of a log moves it and leaves its name.
    mark.text(type == canvas::NodeTypeLog ? std::string_view() : name);
    for (const float side : {box.Left, box.Top, box.Width, box.Height}) {
        mark.number(std::bit_cast<std::uint32_t>(side));
    }
    return mark.value();
}

std::uint64_t recordSetMark(std::string_view sql) {
    return Mark().text(sql).value();
}

std::uint64_t commentMark(std::string_view text) {
    return Mark().text(text).value();
}

std::uint64_t activityMark(const ActivityText& text, std::uint64_t type, std::int64_t SchemaNo) {
    return Mark()
        .text(text.description)
        .text(text.log)
        .text(text.sql)
        .text(text.ldl)
        .number(type)
        .number(static_cast<std::uint64_t>(SchemaNo))
        .value();
}

std::uint64_t memberMark(std::string_view key, std::string_view name, std::uint64_t type) {
    return Mark().text(key).text(name).number(type).value();
}

std::uint64_t functionMark(std::string_view key, std::uint64_t type) {
    return Mark().text(key).number(type).value();
}

std::uint64_t outputMark(std::string_view dbKey, std::uint64_t type) {
    return Mark().text(dbKey).number(type).value();
}

void addLink(Mark& mark, std::int64_t kind, std::string_view key, std::string_view name, std::int64_t type) {
    mark.number(static_cast<std::uint64_t>(kind)).text(key).text(name).number(static_cast<std::uint64_t>(type));
}

std::uint64_t lineMark(std::string_view from, std::int64_t fromPoint, std::string_view to, std::int64_t toPoint,
                       std::int64_t type, std::int64_t angle) {
    return Mark()
        .text(from)
        .number(static_cast<std::uint64_t>(fromPoint))
        .text(to)
        .number(static_cast<std::uint64_t>(toPoint))
        .number(static_cast<std::uint64_t>(type))
        .number(static_cast<std::uint64_t>(angle))
        .value();
}

}  // namespace orvent::repository
