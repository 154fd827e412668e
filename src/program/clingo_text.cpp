#include "program/clingo_text.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "platform/text.h"
#include "program/rule_check.h"
#include "program/safe_names.h"
#include "program/types.h"

namespace orvent::program {

using rules::Atom;
using rules::Literal;
using rules::LiteralKind;
using rules::Rule;
using rules::Term;
using rules::TermKind;

namespace {

using Parts = std::vector<std::string>;

std::string joined(const Parts& parts, const char* between) {
    std::string result;
    for (const std::string& part : parts) {
        result += (&part == &parts.front() ? "" : between) + part;
    }
    return result;
}

std::string call(const std::string& name, const Parts& arguments) {
    return arguments.empty() ? name : name + "(" + joined(arguments, ",") + ")";
}

std::string quotedText(const std::string& text) {
    std::string result = "\"";
    for (const char c : text) {
        result += c == '\\' ? "\\\\" : c == '"' ? "\\\"" : c == '\n' ? "\\n" : std::string(1, c);
    }
    return result + '"';
}

void variablesOf(const Term& term, std::set<std::string>& result) {
    if (term.kind == TermKind::variable) {
        result.insert(term.text);
    }
    for (const Term& part : term.parts) {
        variablesOf(part, result);
    }
}

class ClingoWriter {
  public:
    ClingoWriter(const Program& program, const entities::CatalogueTables& catalogue)
        : program_(program), catalogue_(catalogue) {}

    std::string write(const std::map<canvas::NodeNumber, entities::NodeFacts>& rows) {
        for (const Predicate& predicate : program_.predicates) {
            names_.of(predicate.name, false);
        }
        for (const ProgramRule& rule : program_.rules) {
            writeRule(rule.rule);
        }
        std::string head;
        for (const Predicate& predicate : program_.predicates) {
            const std::string place = names_.of(predicate.name, false) + "/" + std::to_string(predicate.columns.size());
            Parts columns;
            for (const Column& column : predicate.columns) {
                columns.push_back(column.name);
            }
            if (predicate.isGiven()) {
                head += "% given: " + place + " (" + oneLine(joined(columns, ", ")) + ")\n#defined " + place + ".\n";
                const auto given = rows.find(predicate.node);
                if (given != rows.end() && given->second.facts && predicate.kind == PredicateKind::given) {
                    writeFacts(predicate, *given->second.facts);
                }
            } else if (predicate.broken) {
                head += "% not whole: " + place + "\n#defined " + place + ".\n";
            }
            if (predicate.kind == PredicateKind::recordSet || predicate.kind == PredicateKind::output) {
                shown_ += "#show " + place + ".\n";
            }
        }
        for (const std::string& function : functions_) {
            head += "% function: " + function + "\n#defined " + function + ".\n";
        }
        return head + text_ + shown_;
    }

  private:
    /// A column that the rows do not have is NULL.
    void writeFacts(const Predicate& predicate, const entities::Facts& facts) {
        for (const entities::FieldRow& row : facts.rows) {
            Parts values;
            for (const Column& column : predicate.columns) {
                const auto place = std::find(facts.columns.begin(), facts.columns.end(), column.name);
                const entities::Field field = place == facts.columns.end()
                                                  ? entities::Field()
                                                  : row[static_cast<std::size_t>(place - facts.columns.begin())];
                Term value;
                value.kind = field ? TermKind::constant : TermKind::aggregate;
                value.tag = column.type;
                value.text = field.value_or("");
                values.push_back(spelt(value));
            }
            add(call(names_.of(predicate.name, false), values), {});
        }
    }

    static std::string oneLine(std::string text) {
        std::replace(text.begin(), text.end(), '\n', ' ');
        std::replace(text.begin(), text.end(), '\r', ' ');
        return text;
    }

    std::string plain(const std::string& text, bool isNumber) const {
        const auto whole = isNumber ? platform::parseInteger(text) : std::nullopt;
        return whole ? std::to_string(*whole) : quotedText(text);
    }

    std::string spelt(const Term& term) {
        switch (term.kind) {
            case TermKind::variable:
                return names_.of(term.text, true);
            case TermKind::anonymous:
                return "_";
            case TermKind::number:
                return plain(term.text, true);
            case TermKind::constant: {
                const bool typed = term.tag >= 0 && static_cast<std::size_t>(term.tag) < catalogue_.dataTypes.size();
                const Family family =
                    typed ? familyOf(catalogue_.dataTypes.name(static_cast<std::int16_t>(term.tag))) : Family::text;
                return plain(term.text, family == Family::number || family == Family::unknown);
            }
            case TermKind::arithmetic:
                return term.parts.size() == 1 ? "(-" + spelt(term.parts[0]) + ")"
                                              : "(" + spelt(term.parts[0]) + term.text + spelt(term.parts[1]) + ")";
            case TermKind::aggregate:
                break;
        }
        return "null";
    }

    Parts spelt(const std::vector<Term>& terms) {
        Parts result;
        for (const Term& term : terms) {
            result.push_back(spelt(term));
        }
        return result;
    }

    void add(const std::string& head, const Parts& body) {
        text_ += head + (body.empty() ? "" : " :- " + joined(body, ", ")) + ".\n";
    }

    /// A fresh name of a predicate that only this text has.
    std::string fresh(const std::string& name) { return names_.of(name + " " + std::to_string(++helpers_), false); }

    std::string guard(const std::string& variable) { return names_.of(variable, true) + "!=null"; }

    std::string nameOf(const Atom& atom) {
        const std::string& name = names_.of(atom.name, false);
        if (atom.tag < 0) {
            functions_.insert(name + "/" + std::to_string(atom.arguments.size()));
        }
        return name;
    }

    static bool isTest(const Atom& atom) { return atom.tag < 0 && callKind(atom.name) == CallKind::test; }

    /// What NULL must not match behind "not" is left out of a predicate of its own.
    std::string negated(const Atom& atom) {
        if (isTest(atom) && atom.arguments.size() == 1) {
            const bool isNull = platform::lowerCase(atom.name) == "isnull";
            return spelt(atom.arguments[0]) + (isNull ? "!=null" : "==null");
        }
        std::set<std::string> variables;
        for (const Term& term : atom.arguments) {
            variablesOf(term, variables);
        }
        Parts body = {call(nameOf(atom), spelt(atom.arguments))};
        Parts columns;
        for (const std::string& variable : variables) {
            columns.push_back(names_.of(variable, true));
            body.push_back(guard(variable));
        }
        const std::string matched = call(fresh(atom.name), columns);
        add(matched, body);
        return "not " + matched;
    }

    Parts bodyOf(const Rule& rule) {
        Parts body;
        std::set<std::string> guarded;
        std::map<std::string, int> met;
        for (const Literal& literal : rule.body) {
            if (literal.kind == LiteralKind::atom && !isTest(literal.atom)) {
                body.push_back(call(nameOf(literal.atom), spelt(literal.atom.arguments)));
                for (const Term& term : literal.atom.arguments) {
                    const bool input = literal.atom.tag < 0 && &term != &literal.atom.arguments.back();
                    if (term.kind == TermKind::variable && (met[term.text] += input ? 0 : 1) > 1) {
                        guarded.insert(term.text);
                    }
                }
            } else if (literal.kind == LiteralKind::atom) {
                const bool isNull = platform::lowerCase(literal.atom.name) == "isnull";
                for (const Term& term : literal.atom.arguments) {
                    body.push_back(spelt(term) + (isNull ? "==null" : "!=null"));
                }
            } else if (literal.kind == LiteralKind::negated) {
                body.push_back(negated(literal.atom));
            }
        }
        compare(rule, body, guarded, met);
        for (const std::string& variable : guarded) {
            body.push_back(guard(variable));
        }
        return body;
    }

    /// Comparisons in an order in which the equalities that give values are known: these hold for NULL.
    void compare(const Rule& rule, Parts& body, std::set<std::string>& guarded, std::map<std::string, int>& met) {
        std::vector<const Literal*> waiting;
        for (const Literal& literal : rule.body) {
            if (literal.kind == LiteralKind::comparison) {
                waiting.push_back(&literal);
            }
        }
        const auto isNew = [&](const Term& term, const Term& from) {
            std::set<std::string> needed;
            variablesOf(from, needed);
            return term.kind == TermKind::variable && met[term.text] == 0 &&
                   std::all_of(needed.begin(), needed.end(), [&](const std::string& name) { return met[name] > 0; });
        };
        for (bool again = true; again;) {
            again = false;
            for (auto at = waiting.begin(); at != waiting.end(); ++at) {
                const Term& left = (*at)->values[0];
                const Term& right = (*at)->values[1];
                if ((*at)->op == "=" && (isNew(left, right) || isNew(right, left))) {
                    met[isNew(left, right) ? left.text : right.text] = 1;
                    body.push_back(spelt(left) + "=" + spelt(right));
                    waiting.erase(at);
                    again = true;
                    break;
                }
            }
        }
        for (const Literal* literal : waiting) {
            body.push_back(spelt(literal->values[0]) + (literal->op == "<>" ? "!=" : literal->op) +
                           spelt(literal->values[1]));
            variablesOf(literal->values[0], guarded);
            variablesOf(literal->values[1], guarded);
        }
    }

    void writeRule(const Rule& rule) {
        const bool sums = std::any_of(rule.head.arguments.begin(), rule.head.arguments.end(),
                                      [](const Term& term) { return term.kind == TermKind::aggregate; });
        const Parts body = bodyOf(rule);
        if (sums) {
            writeSums(rule, body);
            return;
        }
        Parts head;
        for (const Term& term : rule.head.arguments) {
            head.push_back(term.kind == TermKind::anonymous ? "null" : spelt(term));
        }
        add(call(names_.of(rule.head.name, false), head), body);
    }

    /// The different rows of the body are kept in a predicate of their own; each aggregate is one over its group.
    void writeSums(const Rule& rule, const Parts& body) {
        std::set<std::string> variables;
        for (const Literal& literal : rule.body) {
            for (const auto* terms : {&literal.atom.arguments, &literal.values}) {
                for (const Term& term : *terms) {
                    variablesOf(term, variables);
                }
            }
        }
        Parts group, row, head;
        for (const Term& term : rule.head.arguments) {
            if (term.kind == TermKind::variable) {
                group.push_back(spelt(term));
            }
        }
        for (const std::string& variable : variables) {
            row.push_back(names_.of(variable, true));
        }
        Parts filled = body, measures;
        for (const Term& term : rule.head.arguments) {
            if (term.kind != TermKind::aggregate) {
                continue;
            }
            measures.push_back(spelt(term.parts[0]));
            if (term.parts[0].kind != TermKind::variable) {
                const std::string measure = names_.of("measure " + std::to_string(measures.size()), true);
                filled.push_back(measure + "=" + measures.back());
                measures.back() = measure;
                row.push_back(measure);
            }
        }
        const std::string rows = call(fresh(rule.head.name), row);
        add(rows, filled);
        Parts derived = {rows};
        for (const Term& term : rule.head.arguments) {
            if (term.kind != TermKind::aggregate) {
                head.push_back(spelt(term));
                continue;
            }
            const std::string value = names_.of("value " + std::to_string(derived.size()), true);
            const std::string sum = fresh(rule.head.name);
            writeSum(platform::lowerCase(term.text), measures[derived.size() - 1], group, row, rows, sum);
            Parts columns = group;
            columns.push_back(value);
            head.push_back(value);
            derived.push_back(call(sum, columns));
        }
        add(call(names_.of(rule.head.name, false), head), derived);
    }

    void writeSum(const std::string& name, const std::string& measure, const Parts& group, const Parts& row,
                  const std::string& rows, const std::string& sum) {
        const std::string hasValue = call(fresh(name), group);
        add(hasValue, {rows, measure + "!=null"});
        Parts others = row;  // of the other rows of the group
        for (std::string& column : others) {
            column = std::find(group.begin(), group.end(), column) == group.end() ? names_.of("other " + column, true)
                                                                                  : column;
        }
        const std::string otherRows =
            rows.substr(0, rows.find('(')) + (row.empty() ? "" : "(" + joined(others, ",") + ")");
        std::string otherMeasure = measure;
        for (std::size_t at = 0; at < row.size(); ++at) {
            otherMeasure = otherMeasure == row[at] ? others[at] : otherMeasure;
        }
        const auto over = [&](const char* kind, const std::string& first) {
            return std::string(kind) + "{" + first + joined(others, ",") + " : " + otherRows + "," + otherMeasure +
                   "!=null}";
        };
        Parts known = group, none = group;
        known.push_back("S");
        none.push_back(name == "count" ? "0" : "null");
        if (name == "avg") {
            add(call(sum, known),
                {hasValue, "T=" + over("#sum", otherMeasure + ","), "N=" + over("#count", ""), "S=T/N"});
        } else {
            add(call(sum, known),
                {hasValue,
                 "S=" + (name == "count" ? over("#count", "") : over(("#" + name).c_str(), otherMeasure + ","))});
        }
        add(call(sum, none), {rows, "not " + hasValue});
    }

    const Program& program_;
    const entities::CatalogueTables& catalogue_;
    SafeNames names_;
    std::set<std::string> functions_;
    std::string text_, shown_;
    int helpers_ = 0;
};

}  // namespace

std::string clingoText(const Program& program, const entities::CatalogueTables& catalogue,
                       const std::map<canvas::NodeNumber, entities::NodeFacts>& rows) {
    return ClingoWriter(program, catalogue).write(rows);
}

}  // namespace orvent::program
