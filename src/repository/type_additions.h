#pragma once

#include <string>
#include <utility>
#include <vector>

#include "entities/type_records.h"
#include "repository/catalogue.h"

namespace orvent::repository {

/// Types that are added together. What was added is taken back when one of them fails; nothing runs in a transaction,
/// so that is done by deletions.
class TypeAdditions {
  public:
    TypeAdditions(Catalogue& catalogue, StatementCache& repository) : catalogue_(catalogue), repository_(repository) {}

    // Each after those that it uses; what fails is thrown.
    void add(const std::string& dataType);
    void add(const entities::FunctionTypeProperties& type);
    void add(const entities::ActivityTypeProperties& type);

    /// Takes back what was added, also by a step that failed. Gives the names of types that may be there in part.
    std::vector<std::string> takeBack();

  private:
    enum class Kind { data, function, activity };

    template <class Add>
    void add(Kind kind, const std::string& name, Add add);
    void remove(Kind kind, const std::string& name);

    Catalogue& catalogue_;
    StatementCache& repository_;
    std::vector<std::pair<Kind, std::string>> added_;
    std::vector<std::string> left_;
};

}  // namespace orvent::repository
