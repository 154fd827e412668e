#include "run/sample_run.h"

#include <algorithm>
#include <unordered_set>

#include "run/source_query.h"

namespace orvent::run {

using program::Family;
using sql::Query;
using State = Outcome::State;

namespace {

constexpr std::size_t kBatch = 200;  ///< rows that are read between two looks at the world

}  // namespace

void SampleRun::begin(const canvas::DrawForm& form, const entities::CatalogueTables& catalogue,
                      const RunOptions& options) {
    if (!sample_) {
        sample_ = std::make_unique<SampleDatabase>(database_);
    }
    Origins origins(form, sample_->dialect(), options.sampleRows);
    program::Program program = program::checkedProgram(form, catalogue, &statements_);
    // No name of a table begins as those do that the engine keeps for itself.
    sql::Compiled compiled = sql::compiled(program, form, catalogue, sample_->dialect(), origins,
                                           {options.keepDuplicates, "rows ", options.functions});
    for (auto& [name, made] : tables_) {
        made.origin.most = options.anew && !made.origin.alias.empty() ? 0 : made.origin.most;
    }
    for (const auto& [place, origin] : origins.found()) {
        if (!origin.alias.empty() && !isHeld(origin)) {
            sources_.ask(origin.alias);
        }
    }
    reading_.reset();
    sources_.closeAll();
    resume();
    plan(std::move(program), std::move(compiled), sample_->dialect(), form);
    origins_ = std::move(origins.found());
}

bool SampleRun::readsSources() const {
    return std::any_of(origins_.begin(), origins_.end(), [](const auto& each) { return !each.second.alias.empty(); });
}

bool SampleRun::isHeld(const Origin& origin) const {
    const auto held = tables_.find(origin.table);
    return held != tables_.end() && held->second.origin == origin;
}

bool SampleRun::step() {
    for (bool worked = false; !worked && done_ < total() && !isCancelled();) {
        const Query& next = query(done_);
        try {
            worked = work(next);
        } catch (const platform::Fault& fault) {
            reading_.reset();
            worked = true;
            if (!isCancelled()) {
                outcome(next.predicate) = {State::failed, 0, fault.description(), statement_};
                ++done_;
            }
        }
    }
    if (done_ < total()) {
        return true;
    }
    dropOthers();
    sources_.closeAll();
    return false;
}

/// Takes the next step towards the rows of a query; false when nothing had to be done for them.
bool SampleRun::work(const Query& next) {
    statement_.clear();
    Outcome& its = outcome(next.predicate);
    if (std::string why = whyNot(next); !why.empty()) {
        its.words = its.state == State::none ? its.words : why;
        its.state = State::none;
        ++done_;
        return false;
    }
    if (reading_) {
        readOn(origins_.at(next.predicate));
        return true;
    }
    if (const auto given = origins_.find(next.predicate); given != origins_.end()) {
        const Origin& origin = given->second;
        if (!isHeld(origin)) {
            const std::vector<Family>& families = table(next.predicate).families;
            origin.rows ? fillByHand(origin, families) : startReading(origin, families);
            return true;
        }
    }
    const bool present = isPresent(next);
    if (!present) {
        makeTable(next);
    }
    const Made& made = tables_.at(table(next.predicate).name);
    its = {State::there, made.rows, made.words, {}, made.fallen};
    ++done_;
    return !present;
}

std::string SampleRun::whyNot(const Query& next) const {
    return next.select.empty() ? next.why : missingRead(next);
}

std::vector<std::size_t> SampleRun::numbersRead(const Query& next) const {
    std::vector<std::size_t> numbers;
    if (const auto origin = origins_.find(next.predicate); origin != origins_.end()) {
        numbers.push_back(tables_.at(origin->second.table).number);
    }
    for (const int read : next.reads) {
        numbers.push_back(tables_.at(table(static_cast<std::size_t>(read)).name).number);
    }
    return numbers;
}

bool SampleRun::isPresent(const Query& next) {
    const auto known = tables_.find(table(next.predicate).name);
    return known != tables_.end() && known->second.select == next.select && known->second.reads == numbersRead(next);
}

void SampleRun::makeTable(const Query& next) {
    const std::string& name = table(next.predicate).name;
    drop(name);
    statement_ = next.select;
    const Interruption::Working working(interruption_, sample_->connection());
    Made made;
    made.rows = sample_->make(name, next.select);
    made.fallen = next.fallen.empty() ? 0 : sample_->number(next.fallen);
    made.number = ++numbers_;
    made.select = next.select;
    made.reads = numbersRead(next);
    if (const auto origin = origins_.find(next.predicate); origin != origins_.end()) {
        made.words = tables_.at(origin->second.table).words;
    }
    tables_[name] = std::move(made);
}

void SampleRun::fillByHand(const Origin& origin, const std::vector<Family>& families) {
    drop(origin.table);
    SampleDatabase::Filling filling(*sample_, origin.table, families, *origin.rows);
    endFilling(filling, origin);
}

void SampleRun::startReading(const Origin& origin, const std::vector<Family>& families) {
    drop(origin.table);
    OpenSource& source = sources_.open(origin.alias);
    statement_ = firstRows(*source.dialect, origin.queries.at(source.dialect->name), origin.most);
    auto reading = std::make_unique<Reading>();
    reading->query = statement_;
    reading->connection = source.connection;
    const Interruption::Working working(interruption_, *reading->connection);
    reading->rows = source.connection->prepareAsIs(statement_);
    reading->rows->execute();
    std::vector<FieldRow> first;
    bool more = true;
    while (first.size() < std::min(kBatch, origin.most) && (more = reading->rows->fetch())) {
        FieldRow& row = first.emplace_back();
        for (int column = 1; column <= static_cast<int>(families.size()); ++column) {
            row.push_back(reading->rows->isNull(column) ? Field() : Field(reading->rows->text(column)));
        }
    }
    if (isCancelled()) {
        return;  // a driver may give fewer rows, or others, without a fault
    }
    reading->left = more ? origin.most - first.size() : 0;
    reading->filling = std::make_unique<SampleDatabase::Filling>(*sample_, origin.table, families, first);
    reading_ = std::move(reading);
}

void SampleRun::readOn(const Origin& origin) {
    statement_ = reading_->query;
    const std::shared_ptr<platform::Connection> connection = reading_->connection;  // which outlives what is done in it
    const Interruption::Working working(interruption_, *connection);
    for (std::size_t row = 0; row < kBatch && reading_->left > 0; ++row) {
        if (!reading_->rows->fetch()) {
            reading_->left = 0;
            break;
        }
        reading_->filling->add(*reading_->rows);
        --reading_->left;
    }
    if (isCancelled()) {
        reading_.reset();
    } else if (reading_->left == 0) {
        reading_->rows.reset();
        endFilling(*reading_->filling, origin);
        reading_.reset();
    }
}

void SampleRun::endFilling(SampleDatabase::Filling& filling, const Origin& origin) {
    filling.end();
    Made made;
    made.number = ++numbers_;
    made.origin = origin;
    made.words = filling.remark();
    tables_[origin.table] = std::move(made);
}

void SampleRun::drop(const std::string& name) {
    tables_.erase(name);
    sample_->drop(name);
}

/// Of tables that the scenario has no more.
void SampleRun::dropOthers() {
    std::unordered_set<std::string> wanted;
    for (const Query& each : compiled_.queries) {
        wanted.insert(table(each.predicate).name);
    }
    for (const auto& [place, origin] : origins_) {
        wanted.insert(origin.table);
    }
    for (auto made = tables_.begin(); made != tables_.end();) {
        const std::string name = (made++)->first;
        if (!wanted.contains(name)) {
            drop(name);
        }
    }
}

Page SampleRun::page(std::size_t predicate, std::size_t most) {
    const Interruption::Working working(interruption_, sample_->connection());
    return sample_->page(table(predicate), most);
}

Run::Selected SampleRun::select(std::size_t predicate, const std::string& condition, std::size_t most) {
    const Interruption::Working working(interruption_, sample_->connection());
    return {sample_->count(table(predicate).name, condition), sample_->page(table(predicate), most, condition)};
}

}  // namespace orvent::run
