#pragma once

#include <string>

#include "entities/nodes.h"

namespace orvent::run {

/// Where the rows of a record set lie.
struct RecordSource {
    std::string alias;  ///< of the data source, in capitals; empty when there is none
    std::string why{};  ///< and why there is none
};

/// By the keys of its columns.
RecordSource recordSource(const entities::RecordSetProperties& recordSet);

}  // namespace orvent::run
