#pragma once

#include "canvas/canvas.h"
#include "entities/nodes.h"
#include "sql/compiler.h"

namespace orvent::sql {

/// Record sets by their own statement, or by the columns of the one table that their keys name; where there are no
/// keys, by the table and the columns of their names.
class DesignRows : public HeldRows {
  public:
    DesignRows(const canvas::Canvas& form, const Dialect& dialect) : form_(form), dialect_(dialect) {}

    Held heldBy(const program::Predicate& predicate, std::size_t place) const override;

    /// The table that holds the rows of a record set that is fed, whatever its statement.
    Held tableOf(const entities::RecordSetProperties& recordSet, bool named) const;

  private:
    const canvas::Canvas& form_;
    const Dialect& dialect_;
};

}  // namespace orvent::sql
