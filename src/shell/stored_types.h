#pragma once

#include "exchange/type_catalogue.h"
#include "repository/catalogue.h"
#include "repository/services.h"

namespace orvent::shell {

/// What documents need of the catalogue, by the repository's.
class StoredTypes : public exchange::TypeCatalogue {
  public:
    StoredTypes(repository::Services& services, repository::Catalogue& catalogue)
        : services_(services), catalogue_(catalogue) {}

    entities::CatalogueTables& tables() override { return catalogue_.tables; }
    std::optional<entities::FunctionTypeProperties> functionType(std::int16_t index) override;
    std::optional<entities::ActivityTypeProperties> activityType(std::int16_t index) override;

    /// What was written goes again when the rest is refused, as far as the repository lets it.
    void add(const exchange::TypeDefinitions& types) override;

    /// All types of the catalogue.
    exchange::TypeDefinitions all();

  private:
    void write(const exchange::TypeDefinitions& types, repository::StatementCache& repository,
               exchange::TypeDefinitions& written);

    repository::Services& services_;
    repository::Catalogue& catalogue_;
};

}  // namespace orvent::shell
