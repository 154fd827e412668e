#include "platform/database.h"

#include <utility>

namespace orvent::platform {

DatabaseError::DatabaseError(const std::string& description, std::string sqlState, long nativeCode, bool integrity)
    : Fault(description), sqlState_(std::move(sqlState)), nativeCode_(nativeCode), integrity_(integrity) {}

}  // namespace orvent::platform
