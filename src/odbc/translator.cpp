#include "odbc/translator.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "odbc/key_columns.h"
#include "platform/text.h"

namespace orvent::odbc {

namespace {

using platform::equalIgnoringCase;

/// Words that are no names, in order. LEFT and KEY are not among them: the one is a column, the other only follows
/// PRIMARY or FOREIGN.
constexpr std::array<std::string_view, 52> kKeywords = {
    "add",   "all",   "alter",      "and",         "as",      "asc",        "between", "by",       "cascade",
    "case",  "check", "constraint", "constraints", "create",  "default",    "delete",  "desc",     "distinct",
    "drop",  "else",  "end",        "escape",      "exists",  "foreign",    "from",    "group",    "having",
    "in",    "index", "insert",     "into",        "is",      "join",       "key",     "like",     "not",
    "null",  "on",    "or",         "order",       "primary", "references", "select",  "sequence", "set",
    "table", "then",  "union",      "unique",      "update",  "values",     "where"};
static_assert(std::is_sorted(kKeywords.begin(), kKeywords.end()));

/// Keywords that a name follows, even when a bracket stands behind it.
constexpr std::string_view kNameFollows[] = {"into", "table", "references", "on", "index", "constraint"};

/// Keywords and functions that make other rows of the table's rows, or order them.
constexpr std::string_view kReorders[] = {"order", "group", "distinct", "union", "count", "min", "max", "sum", "avg"};

template <class List>
bool contains(const List& list, std::string_view word) {
    return std::find(std::begin(list), std::end(list), word) != std::end(list);
}

std::string replaced(std::string_view pattern, char mark, std::string_view value) {
    std::string result;
    for (const char c : pattern) {
        if (c == mark) {
            result += value;
        } else {
            result += c;
        }
    }
    return result;
}

void trimEnd(std::string& text) {
    text.resize(text.find_last_not_of(" \t\r\n") + 1);
}

}  // namespace

std::string filled(std::string_view pattern, std::string_view name) {
    return replaced(pattern, '%', name);
}

Translator::Translator(const DialectRules& rules, const std::string& user, std::string_view sql)
    : rules_(rules), user_(user), tokens_(tokenise(sql)) {}

Translation Translator::run() {
    const bool creates = is(wordAt(0), "create");
    const bool drops = is(wordAt(0), "drop");
    const std::size_t named = wordAt(2);
    if (creates && is(wordAt(1), "sequence") && named < tokens_.size()) {
        return createSequence();
    }
    if (drops && is(wordAt(1), "sequence") && named < tokens_.size()) {
        return dropSequence();
    }
    if (drops && is(wordAt(1), "table") && named < tokens_.size()) {
        return dropTable();
    }
    result_.definition = creates || drops || is(wordAt(0), "alter");
    createsTable_ = creates && is(wordAt(1), "table");
    if (createsTable_ && rules_.keyWidth > 0) {
        keyColumns_ = keyColumnsOf(tokens_);
    }
    rewrite();
    trimEnd(result_.sql);
    if (is(wordAt(0), "select")) {
        orderRows();
    }
    return std::move(result_);
}

Translation Translator::createSequence() const {
    const std::string pattern = filled(rules_.createSequence, sequenceName(tokens_[wordAt(2)].text));
    Translation made{.sql = replaced(replaced(pattern, '@', optionNumber("start")), '+', optionNumber("increment"))};
    if (!rules_.prepareSequences.empty()) {
        made.before.emplace_back(rules_.prepareSequences);
    }
    made.definition = true;
    return made;
}

Translation Translator::dropSequence() const {
    return {.sql = filled(rules_.dropSequence, sequenceName(tokens_[wordAt(2)].text)), .definition = true};
}

Translation Translator::dropTable() const {
    Translation made{.sql = filled(rules_.dropTable, quoted(canonicalName(tokens_[wordAt(2)].text)))};
    if (!rules_.beforeDrop.empty()) {
        made.before.emplace_back(rules_.beforeDrop);
        made.after.emplace_back(rules_.afterDrop);
    }
    made.definition = true;
    return made;
}

void Translator::rewrite() {
    for (std::size_t at = 0; at < tokens_.size() && !finished_; ++at) {
        const std::string_view text = tokens_[at].text;
        switch (tokens_[at].kind) {
            case TokenKind::word:
                word(at);
                break;
            case TokenKind::quotedName:
                result_.sql += text.size() > 2 ? quoted(text.substr(1, text.size() - 2)) : std::string(text);
                break;
            case TokenKind::literal:
                // The empty text is null in the dialect.
                result_.sql += text == "''" ? std::string_view("NULL") : text;
                break;
            case TokenKind::parameter:
                parameter();
                break;
            case TokenKind::symbol:
                bracket(text);
                break;
            case TokenKind::number:
            case TokenKind::space:
                result_.sql += text;
                break;
        }
    }
}

void Translator::word(std::size_t& at) {
    if (createsTable_ && depth_ == 1 && itemWords_++ == 0) {
        const std::string lower = platform::lowerCase(tokens_[at].text);
        column_ = isConstraint(lower) ? std::string() : lower;
        if (!column_.empty()) {
            name(at);
            return;
        }
    }
    if (sequenceNumber(at) || type(at)) {
        return;
    }
    if (std::binary_search(kKeywords.begin(), kKeywords.end(), platform::lowerCase(tokens_[at].text))) {
        keyword(at);
    } else if (!catalogueView(at) && !function(at)) {
        name(at);
    }
}

void Translator::keyword(std::size_t& at) {
    keyword_ = platform::lowerCase(tokens_[at].text);
    if (keyword_ == "from" && is(next(at), "dual")) {
        trimEnd(result_.sql);
        at = next(at);
        return;
    }
    if (keyword_ == "references") {
        references_ = depth_;
    }
    keepsOrder_ = keepsOrder_ && !contains(kReorders, keyword_);
    result_.sql += tokens_[at].text;
}

void Translator::name(std::size_t at) {
    const std::string canonical = canonicalName(tokens_[at].text);
    if (keyword_ == "from" && depth_ == 0) {
        ++sources_;
        readsRepository_ = readsRepository_ || isRepositoryTable(canonical);
    }
    result_.sql += quoted(canonical);
    if (references_ == depth_ && !is(next(at), "(")) {
        result_.sql += " ON UPDATE CASCADE";
        references_.reset();
    }
}

void Translator::bracket(std::string_view symbol) {
    const bool closes = symbol == ")";
    depth_ += closes ? -1 : symbol == "(" ? 1 : 0;
    if ((symbol == "(" || symbol == ",") && depth_ == 1) {
        itemWords_ = 0;
    }
    const bool endsTable = createsTable_ && closes && depth_ == 0;
    if (endsTable && !rules_.orderDefinition.empty()) {
        trimEnd(result_.sql);
        result_.sql += ", ";
        result_.sql += rules_.orderDefinition;
    }
    result_.sql += symbol;
    if (endsTable) {
        result_.sql += rules_.tableOptions;
        finished_ = true;
    }
    if (closes && references_ == depth_) {
        result_.sql += " ON UPDATE CASCADE";
        references_.reset();
    }
}

void Translator::parameter() {
    ++parameters_;
    // An empty text is sent as null, and no owner is an owner here.
    result_.sql += view_ != nullptr ? "coalesce(?,'')" : "?";
}

bool Translator::sequenceNumber(std::size_t& at) {
    if (at + 2 >= tokens_.size() || tokens_[at + 1].text != ".") {
        return false;
    }
    const bool draws = is(at + 2, "nextval");
    if (!draws && !is(at + 2, "currval")) {
        return false;
    }
    const std::string sequence = sequenceName(tokens_[at].text);
    if (rules_.nextValue.empty()) {
        result_.sql += "?";
        result_.sequences.push_back({++parameters_, sequence, draws});
    } else {
        result_.sql += filled(draws ? rules_.nextValue : rules_.currentValue, sequence);
    }
    at += 2;
    return true;
}

bool Translator::type(std::size_t& at) {
    if (column_.empty() || depth_ != 1 || itemWords_ != 2) {
        return false;
    }
    // The type's name, then what stands in brackets behind it without its spaces.
    const std::string oracle = platform::lowerCase(tokens_[at].text);
    std::string_view width;
    std::string_view scale;
    std::size_t end = at;
    if (is(next(at), "(")) {
        for (end = next(at); end < tokens_.size() && tokens_[end].text != ")"; ++end) {
            if (tokens_[end].kind == TokenKind::number) {
                (width.empty() ? width : scale) = tokens_[end].text;
            }
        }
    }
    const TypeNames& names = rules_.types;
    std::string made;
    if (oracle == "varchar2" || oracle == "varchar" || oracle == "char" || oracle == "nvarchar2") {
        made = textType(width);
    } else if (oracle == "clob" || oracle == "nclob" || oracle == "long") {
        made = names.longText;
    } else if (oracle == "number" && !scale.empty()) {
        made = std::string(names.decimal) + "(" + std::string(width) + "," + std::string(scale) + ")";
    } else if (oracle == "number" || oracle == "integer" || oracle == "smallint") {
        made = names.integer;
    } else if (oracle == "binary_float" || oracle == "binary_double" || oracle == "float" || oracle == "real") {
        made = names.real;
    } else if (oracle == "date" || oracle == "timestamp") {
        made = names.date;
    } else {
        return false;
    }
    result_.sql += made;
    at = end;
    return true;
}

std::string Translator::textType(std::string_view width) const {
    long characters = 1;  // what Oracle gives a CHAR without a length
    std::from_chars(width.data(), width.data() + width.size(), characters);
    if (keyColumns_.contains(column_)) {
        characters = std::min(characters, rules_.keyWidth);
    }
    return std::string(rules_.types.text) + "(" + std::to_string(characters) + ")";
}

bool Translator::catalogueView(std::size_t at) {
    if (keyword_ != "from" || depth_ != 0) {
        return false;
    }
    const auto view = std::find_if(rules_.views.begin(), rules_.views.end(), [&](const CatalogueView& candidate) {
        return equalIgnoringCase(candidate.name, tokens_[at].text);
    });
    if (view == rules_.views.end()) {
        return false;
    }
    view_ = &*view;
    const std::string user = replaced(user_, '\'', "''");
    result_.sql.append("(").append(replaced(replaced(view_->query, '~', kOracleType), '$', user));
    result_.sql.append(") ").append(quoted(view_->name));
    return true;
}

bool Translator::function(std::size_t at) {
    if (!is(next(at), "(") || contains(kNameFollows, keyword_)) {
        return false;
    }
    result_.sql += tokens_[at].text;
    keepsOrder_ = keepsOrder_ && !contains(kReorders, platform::lowerCase(tokens_[at].text));
    return true;
}

void Translator::orderRows() {
    if (!keepsOrder_ || sources_ > 1) {
        return;
    }
    if (view_ != nullptr) {
        result_.sql += " ORDER BY ";
        result_.sql += view_->order;
    } else if (readsRepository_) {
        result_.sql += " ORDER BY ";
        result_.sql += rules_.orderColumn;
    }
}

std::size_t Translator::next(std::size_t at) const {
    do {
        ++at;
    } while (at < tokens_.size() && tokens_[at].kind == TokenKind::space);
    return at;
}

bool Translator::is(std::size_t at, std::string_view word) const {
    return at < tokens_.size() && equalIgnoringCase(tokens_[at].text, word);
}

std::size_t Translator::wordAt(int count) const {
    std::size_t at = !tokens_.empty() && tokens_.front().kind == TokenKind::space ? 1 : 0;
    for (; count > 0; --count) {
        at = next(at);
    }
    return at;
}

std::string Translator::quoted(std::string_view name) const {
    return rules_.quote + std::string(name) + rules_.quote;
}

std::string Translator::sequenceName(std::string_view name) const {
    // Numbers that the connection provides are found by the bare name.
    return rules_.nextValue.empty() ? canonicalName(name) : quoted(canonicalName(name));
}

std::string Translator::optionNumber(std::string_view option) const {
    for (std::size_t at = 0; at < tokens_.size(); ++at) {
        if (is(at, option)) {
            const std::size_t number = next(next(at));  // behind WITH or BY
            if (number < tokens_.size() && tokens_[number].kind == TokenKind::number) {
                return std::string(tokens_[number].text);
            }
        }
    }
    return "1";
}

}  // namespace orvent::odbc
