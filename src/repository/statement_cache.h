#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <utility>

#include "platform/database.h"
#include "platform/text.h"

namespace orvent::repository {

/// The repository can only be read, and something was to be stored.
class OnlyRead : public platform::Fault {
  public:
    OnlyRead() : Fault("This repository can only be read. Nothing was stored.") {}
};

/// An open connection and the statements prepared on it, each prepared once and used again.
class StatementCache {
  public:
    explicit StatementCache(std::unique_ptr<platform::Connection> connection)
        : connection_(std::move(connection)), readOnly_(connection_->readOnly()) {}

    /// The prepared statement of that text, which must outlive the cache (the texts are constants).
    platform::Statement& prepared(std::string_view sql) {
        std::unique_ptr<platform::Statement>& statement = statements_[sql];
        if (!statement) {
            statement = connection_->prepare(sql);
        }
        return *statement;
    }

    bool readOnly() const { return readOnly_; }

    /// Binds the values in order and executes. Throws `OnlyRead` for what would change a repository that takes none.
    template <class... Values>
    platform::Statement& run(std::string_view sql, const Values&... values) {
        if (readOnly_ && !platform::equalIgnoringCase(platform::trimmed(sql).substr(0, 6), "SELECT")) {
            throw OnlyRead();
        }
        platform::Statement& statement = prepared(sql);
        int parameter = 0;
        (bind(statement, ++parameter, values), ...);
        statement.execute();
        return statement;
    }

    /// What the database takes in a column to which the creation script gives `width` characters.
    platform::TextLimit textLimit(std::size_t width, platform::TextColumn column) const {
        return connection_->textLimit(width, column);
    }

    /// Whether a query by one identifier has a row.
    bool finds(std::string_view sql, std::int16_t identifier) {
        platform::Statement& row = run(sql, identifier);
        const bool found = row.fetch();
        while (row.fetch()) {
        }
        return found;
    }

  private:
    template <class Value>
    static void bind(platform::Statement& statement, int parameter, const Value& value) {
        if constexpr (std::is_integral_v<Value> || std::is_enum_v<Value>) {
            statement.bind(parameter, static_cast<long long>(value));
        } else if constexpr (std::is_floating_point_v<Value>) {
            statement.bind(parameter, value);
        } else {
            const std::string_view text(value);
            if (text.find('\0') != std::string_view::npos) {
                throw platform::Fault("A text with a null character cannot be stored: \"" +
                                      std::string(text.substr(0, text.find('\0'))) + "...\"");
            }
            statement.bind(parameter, text);
        }
    }

    std::unique_ptr<platform::Connection> connection_;
    bool readOnly_;
    std::unordered_map<std::string_view, std::unique_ptr<platform::Statement>> statements_;  // goes first
};

}  // namespace orvent::repository
