#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "platform/database.h"

namespace orvent::bench {

/// All that a piece of work asked of a database, in order.
struct StatementLog {
    using Value = std::variant<std::string, long long, float>;

    enum class Kind { open, execute, close };
    struct Event {
        Kind kind;
        std::size_t connection;
        std::size_t text = 0;            ///< place in `texts`
        std::vector<Value> values = {};  ///< of the parameters, from the first on
    };

    std::vector<std::string> texts;  ///< the statements, each once, in the Oracle dialect
    std::vector<Event> events;
    std::size_t connections = 0;
    std::size_t rows = 0;  ///< rows that were read

    std::size_t placeOf(std::string_view sql);
};

/// A database that passes everything on to another one and logs it. Both the database and the log must outlive it.
class RecordingDatabase : public platform::Database {
  public:
    RecordingDatabase(platform::Database& real, StatementLog& log) : real_(real), log_(log) {}

    std::unique_ptr<platform::Connection> open(const std::string& source, const std::string& user,
                                               const std::string& password) override;

  private:
    platform::Database& real_;
    StatementLog& log_;
};

}  // namespace orvent::bench
