#pragma once

#include <string>
#include <vector>

#include "repository/services.h"

namespace orvent::repository {

/// The kinds of the catalogue's entries.
enum class TypeKind { data, function, activity };

/// Which stored activities have a type: as their own, of one of their functions, or of one of their members.
struct TypeUsage {
    struct Activity {
        std::string scenario;
        std::string name;
    };
    bool isStored = false;      ///< the catalogue has the type; another user may have deleted it
    int count = 0;              ///< of all users
    std::vector<Activity> own;  ///< those of the user
};

/// Throws a `Fault` when the repository cannot be read.
TypeUsage usageOfType(Services& services, TypeKind kind, const std::string& name);

}  // namespace orvent::repository
