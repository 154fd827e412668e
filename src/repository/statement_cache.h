#pragma once

#include <memory>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <utility>

#include "platform/database.h"

namespace orvent::repository {

/// An open connection and the statements prepared on it, each prepared once and used again.
class StatementCache {
  public:
    explicit StatementCache(std::unique_ptr<platform::Connection> connection) : connection_(std::move(connection)) {}

    /// The prepared statement of that text, which must outlive the cache (the texts are constants).
    platform::Statement& prepared(std::string_view sql) {
        std::unique_ptr<platform::Statement>& statement = statements_[sql];
        if (!statement) {
            statement = connection_->prepare(sql);
        }
        return *statement;
    }

    /// Binds the values in order and executes.
    template <class... Values>
    platform::Statement& run(std::string_view sql, const Values&... values) {
        platform::Statement& statement = prepared(sql);
        int parameter = 0;
        (bind(statement, ++parameter, values), ...);
        statement.execute();
        return statement;
    }

  private:
    template <class Value>
    static void bind(platform::Statement& statement, int parameter, const Value& value) {
        if constexpr (std::is_integral_v<Value> || std::is_enum_v<Value>) {
            statement.bind(parameter, static_cast<long long>(value));
        } else if constexpr (std::is_floating_point_v<Value>) {
            statement.bind(parameter, value);
        } else {
            statement.bind(parameter, std::string_view(value));
        }
    }

    std::unique_ptr<platform::Connection> connection_;
    std::unordered_map<std::string_view, std::unique_ptr<platform::Statement>> statements_;  // goes first
};

}  // namespace orvent::repository
