#pragma once

#include <utility>
#include <vector>

#include "odbc/own_sources.h"
#include "platform/database.h"

namespace orvent::odbc {

/// The list of data sources: the program's own, then the ODBC manager's. A source whose statements are translated from
/// the Oracle dialect has "<driver> (Oracle dialect translator)" as its driver.
class OdbcDataSources : public platform::DataSources {
  public:
    explicit OdbcDataSources(OwnSources own) : own_(std::move(own)) {}

    std::vector<platform::DataSource> list() override;

  private:
    OwnSources own_;
};

}  // namespace orvent::odbc
