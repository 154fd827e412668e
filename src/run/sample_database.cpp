#include "run/sample_database.h"

#include <algorithm>

#include "platform/text.h"
#include "sql/values.h"

namespace orvent::run {

using program::Family;

namespace {

constexpr std::size_t kDigits = 15;  ///< of a number that is not whole, or too large

bool isPlainNumber(const std::string& text) {
    const std::size_t start = text.starts_with('-') ? 1 : 0;
    const bool leadingZero = text.size() > start + 1 && text[start] == '0' && text[start + 1] != '.';
    return !leadingZero && text.size() <= kDigits && platform::parseNumber(text) &&
           text.find_first_of(" \t\r\n+") == std::string::npos;
}

bool areNumbers(const std::vector<FieldRow>& rows, std::size_t column) {
    bool any = false;
    for (const FieldRow& row : rows) {
        if (row[column] && !isPlainNumber(*row[column])) {
            return false;
        }
        any = any || row[column].has_value();
    }
    return any;
}

/// A text that counts as a number with more digits than are kept, and is none of 64 bits.
bool isTooLong(const std::string& text) {
    if (text.size() <= kDigits || platform::parseInteger(text)) {
        return false;
    }
    std::string_view mantissa(text);
    mantissa = mantissa.substr(0, mantissa.find_first_of("eE"));
    std::size_t digits = 0, zeros = 0;
    for (const char letter : mantissa) {
        const bool leading = digits == 0 && letter == '0';
        if (letter < '0' || letter > '9' || leading) {
            continue;
        }
        ++digits;
        zeros = letter == '0' ? zeros + 1 : 0;
    }
    return digits - zeros > kDigits;
}

/// A date without a fraction of nothing, and without a time at midnight.
void settleDate(std::string& text) {
    constexpr std::size_t kDay = 10, kSeconds = 19;
    constexpr std::string_view kMidnight = " 00:00:00";
    if (text.size() > kDay && text[kDay] == 'T') {
        text[kDay] = ' ';
    }
    if (text.size() > kSeconds && text[kSeconds] == '.') {
        const std::size_t last = text.find_last_not_of('0');
        text.resize(last == kSeconds ? kSeconds : last + 1);
    }
    if (text.size() == kSeconds && std::string_view(text).substr(kDay) == kMidnight) {
        text.resize(kDay);
    }
}

}  // namespace

SampleDatabase::SampleDatabase(platform::Database& database)
    : dialect_(*sql::dialectNamed("sqlite")), connection_(database.openScratch()) {}

long long SampleDatabase::make(const std::string& table, const std::string& select) {
    run("CREATE TABLE " + dialect_.quoted(table) + " AS " + select);
    // Rows that were put in by one statement are numbered without gaps.
    const auto last = connection_->prepareAsIs("SELECT MAX(rowid) FROM " + dialect_.quoted(table));
    last->execute();
    return last->fetch() ? last->number(1) : 0;
}

void SampleDatabase::drop(const std::string& table) {
    run("DROP TABLE IF EXISTS " + dialect_.quoted(table));
}

long long SampleDatabase::count(const std::string& table, const std::string& where) {
    return number("SELECT COUNT(*) FROM " + dialect_.quoted(table) + (where.empty() ? "" : " WHERE " + where));
}

long long SampleDatabase::number(const std::string& query) {
    const auto asked = connection_->prepareAsIs(query);
    asked->execute();
    return asked->fetch() ? asked->number(1) : 0;
}

Page SampleDatabase::page(const sql::Table& table, std::size_t most, const std::string& where) {
    const entities::CatalogueTables none;
    const sql::OwnFunctions nothing;
    const sql::Values values(dialect_, none, nothing);
    Page page;
    std::string list;
    for (std::size_t column = 0; column < table.families.size(); ++column) {
        const Family family = table.families[column];
        const std::string name = dialect_.quoted(table.columns[column]);
        page.columns.push_back(table.columns[column]);
        page.numbers.push_back(family == Family::number);
        list += (column == 0 ? "" : ", ") + values.as({name, family}, Family::text).sql;
    }
    const auto rows =
        connection_->prepareAsIs("SELECT " + (list.empty() ? "1" : list) + " FROM " + dialect_.quoted(table.name) +
                                 (where.empty() ? "" : " WHERE " + where) + " LIMIT " + std::to_string(most));
    for (rows->execute(); rows->fetch();) {
        FieldRow& row = page.rows.emplace_back();
        for (int column = 1; column <= static_cast<int>(page.columns.size()); ++column) {
            row.push_back(rows->isNull(column) ? Field() : Field(rows->text(column)));
        }
    }
    return page;
}

SampleDatabase::Filling::Filling(SampleDatabase& database, const std::string& table,
                                 const std::vector<Family>& families, const std::vector<FieldRow>& first)
    : database_(database), families_(families) {
    std::string columns, places;
    for (std::size_t column = 0; column < families_.size(); ++column) {
        if (families_[column] == Family::unknown && areNumbers(first, column)) {
            families_[column] = Family::number;
        }
        const Family family = families_[column];
        const char* type = family == Family::number ? " NUMERIC" : family == Family::unknown ? "" : " TEXT";
        columns += (column == 0 ? "c" : ", c") + std::to_string(column + 1) + type;
        places += column == 0 ? "?" : ", ?";
    }
    database_.run("BEGIN");
    try {
        const std::string name = database_.dialect_.quoted(table);
        database_.run("CREATE TABLE " + name + " (" + (columns.empty() ? "c1" : columns) + ")");
        insert_ = database_.connection_->prepareAsIs("INSERT INTO " + name + " VALUES (" +
                                                     (places.empty() ? "1" : places) + ")");
        for (const FieldRow& row : first) {
            add(row);
        }
    } catch (const platform::DatabaseError&) {
        insert_.reset();
        database_.run("ROLLBACK");
        throw;
    }
}

SampleDatabase::Filling::~Filling() {
    if (open_) {
        insert_.reset();
        try {
            database_.run("ROLLBACK");
        } catch (const platform::DatabaseError&) {
            // Then there is nothing that could be taken back.
        }
    }
}

void SampleDatabase::Filling::bind(std::size_t column, std::string& text) {
    const Family family = families_[column];
    const bool nothing = text.empty() && (family == Family::number || family == Family::date);
    if (family == Family::date) {
        settleDate(text);
    } else if (family == Family::number && !nothing) {
        rounded_ += isTooLong(text) ? 1 : 0;
        odd_ += std::string_view("0123456789+-.").find(text.front()) == std::string_view::npos ? 1 : 0;
    }
    insert_->bindAsIs(static_cast<int>(column) + 1, nothing ? nullptr : &text);
}

void SampleDatabase::Filling::add(const FieldRow& row) {
    for (std::size_t column = 0; column < families_.size(); ++column) {
        if (row[column]) {
            text_ = *row[column];
            bind(column, text_);
        } else {
            insert_->bindAsIs(static_cast<int>(column) + 1, nullptr);
        }
    }
    insert_->execute();
}

void SampleDatabase::Filling::add(platform::Statement& row) {
    for (std::size_t column = 0; column < families_.size(); ++column) {
        const int place = static_cast<int>(column) + 1;
        if (row.isNull(place)) {
            insert_->bindAsIs(place, nullptr);
        } else {
            text_ = row.text(place);
            bind(column, text_);
        }
    }
    insert_->execute();
}

std::string SampleDatabase::Filling::remark() const {
    std::string words;
    if (rounded_ > 0) {
        words = "numbers with more than the 15 digits that a sample keeps: " + std::to_string(rounded_);
    }
    if (odd_ > 0) {
        words += (words.empty() ? "" : "; ") + ("texts in columns of numbers: " + std::to_string(odd_));
    }
    return words;
}

void SampleDatabase::Filling::end() {
    insert_.reset();
    database_.run("COMMIT");
    open_ = false;
}

}  // namespace orvent::run
