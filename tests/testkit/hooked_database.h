#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/database.h"
#include "platform/text.h"

namespace orvent::testkit {

/// A database passed through, in which something happens in the middle of the work: `hook` runs once, right before the
/// `countdown`-th execution from now, or right behind it. Only texts that begin with `beginning` count. What was
/// executed is kept as "text [value,value]", but for queries.
class HookedDatabase : public platform::Database {
  public:
    explicit HookedDatabase(platform::Database& real) : real_(real) {}

    enum class Side { before, behind };

    void after(int executions, std::function<void()> hook, Side side = Side::before, std::string beginning = {}) {
        countdown_ = executions;
        beginning_ = std::move(beginning);
        hook_ = std::move(hook);
        side_ = side;
    }
    std::optional<platform::TextLimit> keyLimit;  ///< in the place of the real one's
    std::optional<platform::TextLimit> plainLimit;
    bool happened() const { return !hook_; }

    std::vector<std::string> written;
    bool countsNoRow = false;      ///< an UPDATE is said to reach no row
    std::function<void()> atOpen;  ///< before a source is opened
    std::string standsFor;         ///< the source that is opened whatever the name, or empty

    std::unique_ptr<platform::Connection> open(const std::string& source, const std::string& user,
                                               const std::string& password) override {
        if (atOpen) {
            atOpen();
        }
        return std::make_unique<HookedConnection>(*this,
                                                  real_.open(standsFor.empty() ? source : standsFor, user, password));
    }

    std::unique_ptr<platform::Connection> openScratch() override { return real_.openScratch(); }

  private:
    class HookedStatement : public platform::Statement {
      public:
        HookedStatement(HookedDatabase& owner, std::string_view sql, std::unique_ptr<platform::Statement> real)
            : owner_(owner), sql_(sql), real_(std::move(real)) {}

        void bind(int parameter, std::string_view text) override { keep(parameter, std::string(text), text); }
        void bind(int parameter, long long number) override { keep(parameter, std::to_string(number), number); }
        void bind(int parameter, float number) override { keep(parameter, platform::numberText(number), number); }
        void execute() override {
            const bool now = owner_.hook_ && sql_.starts_with(owner_.beginning_) && --owner_.countdown_ <= 0;
            if (now && owner_.side_ == Side::before) {
                std::exchange(owner_.hook_, nullptr)();
            }
            if (!sql_.starts_with("SELECT")) {
                owner_.written.push_back(values_.empty() ? sql_ : sql_ + " [" + values_ + "]");
            }
            real_->execute();
            if (now && owner_.side_ == Side::behind) {
                std::exchange(owner_.hook_, nullptr)();  // the database has done it, and nobody is told
            }
        }
        bool fetch() override { return real_->fetch(); }
        bool isNull(int column) override { return real_->isNull(column); }
        std::string text(int column) override { return real_->text(column); }
        long long number(int column) override { return real_->number(column); }
        float realNumber(int column) override { return real_->realNumber(column); }
        long long changedRows() override { return owner_.countsNoRow ? 0 : real_->changedRows(); }

      private:
        template <class Value>
        void keep(int parameter, const std::string& text, Value value) {
            values_ = parameter == 1 ? text : values_ + "," + text;
            real_->bind(parameter, value);
        }

        HookedDatabase& owner_;
        std::string sql_;
        std::string values_;
        std::unique_ptr<platform::Statement> real_;
    };

    class HookedConnection : public platform::Connection {
      public:
        HookedConnection(HookedDatabase& owner, std::unique_ptr<platform::Connection> real)
            : owner_(owner), real_(std::move(real)) {}

        std::unique_ptr<platform::Statement> prepare(std::string_view sql) override {
            return std::make_unique<HookedStatement>(owner_, sql, real_->prepare(sql));
        }
        platform::TextLimit textLimit(std::size_t width, platform::TextColumn column) const override {
            const auto& stated = column == platform::TextColumn::key ? owner_.keyLimit : owner_.plainLimit;
            return stated ? *stated : real_->textLimit(width, column);
        }
        std::unique_ptr<platform::Statement> prepareAsIs(std::string_view sql) override {
            return std::make_unique<HookedStatement>(owner_, sql, real_->prepareAsIs(sql));
        }
        std::string databaseName() const override { return real_->databaseName(); }
        void refuseChanges() override { real_->refuseChanges(); }
        void cancel() override { real_->cancel(); }
        bool readOnly() const override { return real_->readOnly(); }

      private:
        HookedDatabase& owner_;
        std::unique_ptr<platform::Connection> real_;
    };

    platform::Database& real_;
    std::function<void()> hook_;
    std::string beginning_;
    int countdown_ = 0;
    Side side_ = Side::before;
};

}  // namespace orvent::testkit
