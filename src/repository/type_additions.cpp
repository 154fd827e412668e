#include "repository/type_additions.h"

#include <utility>

#include "repository/catalogue_statements.h"

namespace orvent::repository {

/// A refused row may be one that another user has added meanwhile, which is not ours to delete.
template <class Add>
void TypeAdditions::add(Kind kind, const std::string& name, Add add) {
    try {
        add();
    } catch (const platform::DatabaseError& error) {
        if (error.integrityViolation()) {
            left_.push_back(name);
        } else {
            added_.emplace_back(kind, name);
        }
        throw;
    }
    added_.emplace_back(kind, name);
}

void TypeAdditions::add(const std::string& dataType) {
    add(Kind::data, dataType, [&] { catalogue_.addDataType(repository_, dataType); });
}

void TypeAdditions::add(const entities::FunctionTypeProperties& type) {
    add(Kind::function, type.FunctionType_Name, [&] { catalogue_.addFunctionType(repository_, type); });
}

void TypeAdditions::add(const entities::ActivityTypeProperties& type) {
    add(Kind::activity, type.ActType_Name, [&] { catalogue_.addActivityType(repository_, type); });
}

void TypeAdditions::remove(Kind kind, const std::string& name) {
    switch (kind) {
        case Kind::data:
            repository_.run(sql::kDropDataType, name);
            break;
        case Kind::function:
            repository_.run(sql::kDropFunctionTypeParams, name);
            repository_.run(sql::kDropFunctionType, name);
            break;
        case Kind::activity:
            repository_.run(sql::kDropActivityTypeParams, name);
            repository_.run(sql::kDropActivityTypeFunctions, name);
            repository_.run(sql::kDropActivityType, name);
            break;
    }
}

std::vector<std::string> TypeAdditions::takeBack() {
    for (auto added = added_.rbegin(); added != added_.rend(); ++added) {
        const auto& [kind, name] = *added;
        try {
            remove(kind, name);
        } catch (const platform::Fault&) {
            left_.push_back(name);  // the fault that stopped the additions is the one to be told
        }
    }
    added_.clear();
    return std::exchange(left_, {});
}

}  // namespace orvent::repository
