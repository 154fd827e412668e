#include "repository/data_source_list.h"

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

}  // namespace orvent::repository
