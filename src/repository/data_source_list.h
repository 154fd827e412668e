#pragma once

#include <string>
#include <vector>

#include "platform/database.h"

namespace orvent::repository {

/// The entry of a data source list that stands for no choice; always the first.
inline constexpr const char* kNoDataSource = "(None)";

/// The names offered in `DSNNames`: "(None)", then every data source whose driver speaks the Oracle dialect.
std::vector<std::string> GetDSNsAndDrivers(platform::DataSources& dataSources);

/// True for a data source that can be no repository.
bool isSourceOnly(platform::DataSources& dataSources, const std::string& name);

}  // namespace orvent::repository
