#pragma once

#include "repository/catalogue.h"
#include "repository/services.h"

namespace orvent::repository {

/// When the loaded catalogue has no data types, no function types or no activity types, tells it and offers to add
/// those of the creation script. Types that are there stay as they are.
void offerStarterCatalogue(Services& services, Catalogue& catalogue);

}  // namespace orvent::repository
