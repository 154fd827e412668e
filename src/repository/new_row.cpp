#include "repository/new_row.h"

namespace orvent::repository {

namespace {

constexpr long long kLast = std::numeric_limits<std::int16_t>::max();

long long sequenceNumber(StatementCache& repository, std::string_view sql) {
    platform::Statement& number = repository.run(sql);
    if (!number.fetch()) {
        throw platform::Fault("The sequence gave no number.");
    }
    const long long identifier = number.number(1);
    number.fetch();  // steps behind the only row, which frees the query
    return identifier;
}

}  // namespace

std::int16_t identifierOf(StatementCache& repository, const NewRow& row) {
    const long long identifier = sequenceNumber(repository, row.identifier);
    if (identifier > kLast) {
        repository.run(row.drop, identifier);
        throw NoIdentifiersLeft();
    }
    return static_cast<std::int16_t>(identifier);
}

void requireIdentifiers(StatementCache& repository, std::string_view draw, long long rows) {
    if (rows > 0 && sequenceNumber(repository, draw) + rows > kLast) {
        throw NoIdentifiersLeft();
    }
}

}  // namespace orvent::repository
