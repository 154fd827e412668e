#pragma once

#include "exchange/type_catalogue.h"
#include "repository/catalogue.h"

namespace orvent::shell {

/// The repository's catalogue as documents need it.
class DocumentCatalogue : public exchange::TypeCatalogue {
  public:
    DocumentCatalogue(repository::Services& services, repository::Catalogue& catalogue)
        : services_(services), catalogue_(catalogue) {}

    entities::CatalogueTables& tables() override { return catalogue_.tables; }
    std::optional<entities::FunctionTypeProperties> functionType(std::int16_t index) override;
    std::optional<entities::ActivityTypeProperties> activityType(std::int16_t index) override;

    /// What another user has added meanwhile is left as it is, and nothing is added while a name is too long for the
    /// repository. After a fault the types that were added are taken back;
    /// those that may be there in part are told with it.
    void add(const exchange::TypeDefinitions& types) override;

  private:
    repository::Services& services_;
    repository::Catalogue& catalogue_;
};

}  // namespace orvent::shell
