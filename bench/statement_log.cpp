#include "bench/statement_log.h"

#include <algorithm>
#include <utility>

namespace orvent::bench {

namespace {

class RecordingStatement : public platform::Statement {
  public:
    RecordingStatement(std::unique_ptr<platform::Statement> real, StatementLog& log, StatementLog::Event event)
        : real_(std::move(real)), log_(log), event_(std::move(event)) {}

    void bind(int parameter, std::string_view text) override {
        keep(parameter, std::string(text));
        real_->bind(parameter, text);
    }
    void bind(int parameter, long long number) override {
        keep(parameter, number);
        real_->bind(parameter, number);
    }
    void bind(int parameter, float number) override {
        keep(parameter, number);
        real_->bind(parameter, number);
    }
    void execute() override {
        log_.events.push_back(event_);
        real_->execute();
    }
    bool fetch() override {
        const bool found = real_->fetch();
        log_.rows += found ? 1 : 0;
        return found;
    }
    bool isNull(int column) override { return real_->isNull(column); }
    std::string text(int column) override { return real_->text(column); }
    long long number(int column) override { return real_->number(column); }
    float realNumber(int column) override { return real_->realNumber(column); }
    long long changedRows() override { return real_->changedRows(); }

  private:
    void keep(int parameter, StatementLog::Value value) {
        const auto place = static_cast<std::size_t>(parameter);
        event_.values.resize(std::max(event_.values.size(), place));
        event_.values[place - 1] = std::move(value);
    }

    std::unique_ptr<platform::Statement> real_;
    StatementLog& log_;
    StatementLog::Event event_;
};

class RecordingConnection : public platform::Connection {
  public:
    RecordingConnection(std::unique_ptr<platform::Connection> real, StatementLog& log)
        : real_(std::move(real)), log_(log), number_(log.connections++) {
        log_.events.push_back({StatementLog::Kind::open, number_});
    }
    ~RecordingConnection() override { log_.events.push_back({StatementLog::Kind::close, number_}); }

    std::unique_ptr<platform::Statement> prepare(std::string_view sql) override {
        return std::make_unique<RecordingStatement>(
            real_->prepare(sql), log_, StatementLog::Event{StatementLog::Kind::execute, number_, log_.placeOf(sql)});
    }

  private:
    std::unique_ptr<platform::Connection> real_;
    StatementLog& log_;
    std::size_t number_;
};

}  // namespace

std::size_t StatementLog::placeOf(std::string_view sql) {
    const auto found = std::find(texts.begin(), texts.end(), sql);
    const auto place = static_cast<std::size_t>(found - texts.begin());
    if (found == texts.end()) {
        texts.emplace_back(sql);
    }
    return place;
}

std::unique_ptr<platform::Connection> RecordingDatabase::open(const std::string& source, const std::string& user,
                                                              const std::string& password) {
    return std::make_unique<RecordingConnection>(real_.open(source, user, password), log_);
}

}  // namespace orvent::bench
