#include "repository/new_row.h"

namespace orvent::repository {

std::int16_t identifierOf(StatementCache& repository, const NewRow& row) {
    platform::Statement& number = repository.run(row.identifier);
    if (!number.fetch()) {
        throw platform::Fault("The sequence gave no number.");
    }
    const long long identifier = number.number(1);
    number.fetch();  // steps behind the only row, which frees the query
    if (identifier > std::numeric_limits<std::int16_t>::max()) {
        repository.run(row.drop, identifier);
        throw NoIdentifiersLeft();
    }
    return static_cast<std::int16_t>(identifier);
}

}  // namespace orvent::repository
