#include "repository/data_source_list.h"

#include <algorithm>

namespace orvent::repository {

std::vector<std::string> GetDSNsAndDrivers(platform::DataSources& dataSources) {
    std::vector<std::string> names{kNoDataSource};
    for (const platform::DataSource& source : dataSources.list()) {
        if (source.driver.find("Oracle") != std::string::npos) {
            names.push_back(source.name);
        }
    }
    return names;
}

bool isSourceOnly(platform::DataSources& dataSources, const std::string& name) {
    const std::vector<platform::DataSource> sources = dataSources.list();
    return std::any_of(sources.begin(), sources.end(),
                       [&](const platform::DataSource& source) { return source.name == name && source.sourceOnly; });
}

}  // namespace orvent::repository
