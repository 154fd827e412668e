#pragma once

#include "exchange/type_catalogue.h"

namespace orvent::app {

/// The types of a document as a catalogue of its own, so that a file can be worked on without a repository. A type of
/// which the document knows the name alone is there, without a definition.
class DocumentTypes : public exchange::TypeCatalogue {
  public:
    explicit DocumentTypes(const exchange::Document& document);

    entities::CatalogueTables& tables() override { return tables_; }
    std::optional<entities::FunctionTypeProperties> functionType(std::int16_t index) override;
    std::optional<entities::ActivityTypeProperties> activityType(std::int16_t index) override;
    /// Nothing lacks here.
    void add(const exchange::TypeDefinitions&) override {}

  private:
    exchange::TypeDefinitions types_;
    entities::CatalogueTables tables_;
};

/// All types that a catalogue has stored.
exchange::TypeDefinitions allTypes(exchange::TypeCatalogue& catalogue);

}  // namespace orvent::app
