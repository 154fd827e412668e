#include "program/activity_program.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "entities/link_types.h"
#include "links/far_end.h"
#include "platform/text.h"
#include "program/components.h"
#include "program/reference.h"
#include "program/rule_check.h"
#include "program/spellings.h"
#include "rules/parser.h"
#include "statements/ldl_generator.h"

namespace orvent::program {

using entities::AttributeProperties;
using rules::Atom;
using rules::Literal;
using rules::LiteralKind;
using rules::Rule;
using rules::Term;
using rules::TermKind;

namespace {

std::string counted(std::size_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

/// One look at a statement.
class StatementReader : RuleScene {
  public:
    StatementReader(const ProgramSources& sources, const canvas::LabelsD& node)
        : sources_(sources),
          node_(node),
          activity_(*node.activity()),
          spellings_(sources.form, activity_, sources.types) {}

    ActivityProgram read() {
        rules::Parsed parsed = rules::parse(activity_.Act_LDL, &spellings_.words());
        result_.rules = std::move(parsed.rules);
        if (parsed.fault) {
            tell(FindingKind::syntax, parsed.fault->place, parsed.fault->words);
        }
        settleNames();
        result_.sound.assign(result_.rules.size(), true);
        for (const rules::SyntaxFault& ambiguous : parsed.ambiguous) {
            rule_ = static_cast<int>(std::count_if(result_.rules.begin(), result_.rules.end(), [&](const Rule& rule) {
                return rule.head.place.offset <= ambiguous.place.offset;
            }));
            tell(FindingKind::spelling, ambiguous.place, ambiguous.words);
        }
        rule_ = 0;
        origins_.resize(result_.helpers.size());
        for (Rule& rule : result_.rules) {
            ++rule_;
            checkFit(rule);
            RuleCheck check(rule, spellings_, sources_.types, *this);
            check.run();
            learnHelper(rule, check);
            learnOrigins(rule, check);
        }
        rule_ = 0;
        checkPairing();
        checkRecursion();
        std::sort(result_.reads.begin(), result_.reads.end());
        result_.reads.erase(std::unique(result_.reads.begin(), result_.reads.end()), result_.reads.end());
        result_.asked = spellings_.asked();
        result_.plain = !spellings_.passes();
        return std::move(result_);
    }

  private:
    using Origins = std::vector<std::set<int>>;  ///< by column: the inputs that a value may come from

    void tell(FindingKind kind, const rules::Place& place, std::string words) override {
        result_.findings.push_back({kind, node_.Index(), rule_, place, std::move(words)});
        if (rule_ > 0 && wordsOf(kind).stops) {
            result_.sound[static_cast<std::size_t>(rule_) - 1] = false;
        }
    }

    std::int16_t columnType(int predicate, std::size_t column) const override {
        if (reference::isHelper(predicate)) {
            const Helper& helper = result_.helpers[static_cast<std::size_t>(reference::helperIn(predicate))];
            return column < helper.columns.size() ? helper.columns[column].type : std::int16_t{-1};
        }
        const std::vector<const AttributeProperties*>* known = columnsOf(predicate);
        return known && column < known->size() ? sources_.types.typeOf(*(*known)[column]) : std::int16_t{-1};
    }

    /// The columns of a predicate that is no helper; null for a source that is not there.
    const std::vector<const AttributeProperties*>* columnsOf(int predicate) const {
        if (predicate == reference::kOutput) {
            return &spellings_.outputs();
        }
        if (reference::isSource(predicate)) {
            const auto k = static_cast<std::size_t>(predicate);
            return k <= spellings_.sources().size() ? &spellings_.sources()[k - 1] : nullptr;
        }
        if (!reference::isRecordSet(predicate) && !reference::isActivity(predicate)) {
            return nullptr;
        }
        auto [entry, isNew] = elsewhere_.try_emplace(predicate);
        if (isNew) {
            const canvas::LabelsD& node = *sources_.form.Labels.byIndex(reference::nodeIn(predicate));
            std::vector<const AttributeProperties*>& columns = entry->second;
            const auto take = [&columns](const auto& list) {
                for (const AttributeProperties& attribute : list) {
                    columns.push_back(&attribute);
                }
            };
            if (node.recordSet()) {
                take(node.recordSet()->RecordSet_Outputs);
            } else {
                take(node.activity()->Act_Outputs);
            }
        }
        return &entry->second;
    }

    /// Gives every atom what its name means: helpers are what a rule derives.
    void settleNames() {
        for (Rule& rule : result_.rules) {
            Atom& head = rule.head;
            if (head.tag == reference::kFunction) {
                head.tag = spellings_.helper(head.name);
            }
            heads_.insert(head.name);
        }
        for (Rule& rule : result_.rules) {
            for (Literal& literal : rule.body) {
                if (literal.kind != LiteralKind::comparison && literal.atom.tag == reference::kFunction) {
                    literal.atom.tag = meaningOf(literal.atom.name);
                }
            }
        }
        for (const std::string& name : spellings_.helpers()) {
            result_.helpers.push_back({name, {}});
        }
        arities_.assign(result_.helpers.size(), -1);
    }

    void checkFit(const Rule& rule) {
        const int head = rule.head.tag;
        if (head != reference::kOutput && !reference::isHelper(head)) {
            tell(FindingKind::stale, rule.head.place,
                 rule.head.name + " is not derived here: a statement gives rows to its own outputs.");
        }
        checkAtom(rule.head);
        for (const Literal& literal : rule.body) {
            if (literal.kind != LiteralKind::comparison) {
                checkAtom(literal.atom);
            }
        }
    }

    void checkAtom(const Atom& atom) {
        if (atom.tag == reference::kFunction) {
            if (!isTyped(atom.name)) {
                tell(FindingKind::unknownFunction, atom.place,
                     "The function " + atom.name + " is known to its data source at most.");
            } else if (const std::string why = whyNotCalled(atom.name, atom.arguments.size()); !why.empty()) {
                tell(FindingKind::unknownFunction, atom.place, atom.name + " " + why + ".");
            }
            return;
        }
        const std::size_t count = atom.arguments.size();
        if (reference::isHelper(atom.tag)) {
            int& arity = arities_[static_cast<std::size_t>(reference::helperIn(atom.tag))];
            if (!heads_.contains(atom.name)) {
                tell(FindingKind::undefined, atom.place, "Nothing defines " + atom.name + ".");
            } else if (arity >= 0 && arity != static_cast<int>(count)) {
                tell(FindingKind::columns, atom.place,
                     atom.name + " has " + counted(count, "column") + " here, and " + std::to_string(arity) +
                         " where it stands first.");
            }
            arity = arity < 0 ? static_cast<int>(count) : arity;
            return;
        }
        if (reference::isRecordSet(atom.tag) || reference::isActivity(atom.tag)) {
            result_.reads.push_back(reference::nodeIn(atom.tag));
        }
        const auto* known = columnsOf(atom.tag);
        if (!known) {
            tell(FindingKind::stale, atom.place, "There is no source " + atom.name + ".");
            return;
        }
        if (known->size() != count) {
            const bool own = atom.tag == reference::kOutput || reference::isSource(atom.tag);
            tell(own ? FindingKind::stale : FindingKind::columns, atom.place,
                 atom.name + " has " + counted(count, "column") + " here, and " + counted(known->size(), "member") +
                     " in the scenario.");
            return;
        }
        for (std::size_t at = 0; at < count; ++at) {
            checkMember(atom, at);
        }
    }

    /// A member's own name stands at its own place, as others go by the place.
    void checkMember(const Atom& atom, std::size_t at) {
        const Term& term = atom.arguments[at];
        if (term.kind != TermKind::variable || term.tag < 0) {
            return;
        }
        const NamedValue& value = spellings_.values()[static_cast<std::size_t>(term.tag)];
        const bool own = value.kind == NamedValue::Kind::output  ? atom.tag == reference::kOutput
                         : value.kind == NamedValue::Kind::input ? atom.tag == reference::source(value.source)
                                                                 : false;
        if (own && value.column != at) {
            tell(FindingKind::stale, term.place,
                 term.text + " stands at place " + std::to_string(at + 1) + " of " + atom.name + ", but has place " +
                     std::to_string(value.column + 1) + ".");
        }
    }

    bool isTyped(const std::string& function) const {
        return isCommonFunction(function) || sources_.catalogue.functionTypes.indexOf(function);
    }

    /// What a plain name means: a source that is gone, a function, or else a helper, defined or not.
    int meaningOf(const std::string& name) {
        const std::string source = statements::FirstCapitalReplacer(activity_.Act_Name) + "_in";
        const auto number =
            name.starts_with(source) ? platform::parseInteger(name.substr(source.size())) : std::nullopt;
        if (number && *number > 0 && *number < reference::kHelpers) {
            return reference::source(static_cast<int>(*number));
        }
        bool own = false;
        for (const entities::FunctionProperties& function : activity_.Act_Functions) {
            own = own || function.Function_Name == name;
        }
        return !heads_.contains(name) && (own || isTyped(name)) ? reference::kFunction : spellings_.helper(name);
    }

    void learnHelper(const Rule& rule, const RuleCheck& check) {
        for (const Term& term : rule.head.arguments) {
            if (term.kind == TermKind::aggregate && !isAggregate(term.text)) {
                tell(FindingKind::unknownFunction, term.place,
                     "The aggregate " + term.text + " is known to its data source at most.");
            }
        }
        if (!reference::isHelper(rule.head.tag)) {
            return;
        }
        std::vector<Column>& columns =
            result_.helpers[static_cast<std::size_t>(reference::helperIn(rule.head.tag))].columns;
        for (std::size_t at = columns.size(); at < rule.head.arguments.size(); ++at) {
            const Term& term = rule.head.arguments[at];
            columns.push_back({term.kind == TermKind::variable ? term.text : "", check.typeOf(term)});
        }
    }

    /// Follows the values from the inputs to the columns of the rule's head.
    void learnOrigins(const Rule& rule, const RuleCheck& check) {
        std::vector<std::set<int>> classes(static_cast<std::size_t>(check.classes()));
        for (const Literal& literal : rule.body) {
            if (literal.kind != LiteralKind::atom) {
                continue;
            }
            for (std::size_t at = 0; at < literal.atom.arguments.size(); ++at) {
                const int own = check.classOf(literal.atom.arguments[at]);
                if (own < 0) {
                    continue;
                }
                std::set<int>& known = classes[static_cast<std::size_t>(own)];
                if (reference::isHelper(literal.atom.tag)) {
                    const Origins& from = origins_[static_cast<std::size_t>(reference::helperIn(literal.atom.tag))];
                    if (at < from.size()) {
                        known.insert(from[at].begin(), from[at].end());
                    }
                } else if (reference::isSource(literal.atom.tag)) {
                    const auto* columns = columnsOf(literal.atom.tag);
                    if (columns && at < columns->size()) {  // what does not fit is told, and comes from no input
                        known.insert(literal.atom.tag * kMostColumns + static_cast<int>(at));
                    }
                }
            }
        }
        Origins& head = reference::isHelper(rule.head.tag)
                            ? origins_[static_cast<std::size_t>(reference::helperIn(rule.head.tag))]
                            : ofOutputs_;
        head.resize(std::max(head.size(), rule.head.arguments.size()));
        for (std::size_t at = 0; at < rule.head.arguments.size(); ++at) {
            if (const int own = check.classOf(rule.head.arguments[at]); own >= 0) {
                head[at].insert(classes[static_cast<std::size_t>(own)].begin(),
                                classes[static_cast<std::size_t>(own)].end());
            }
        }
    }

    void checkPairing() {
        for (std::size_t at = 0; at < std::min(ofOutputs_.size(), spellings_.outputs().size()); ++at) {
            const AttributeProperties& output = *spellings_.outputs()[at];
            std::set<std::string> linked;
            for (const entities::ProviderProperties& link : output.ProvidedFrom) {
                const AttributeProperties* input =
                    links::attributeUnder(activity_, entities::KindInput, link.Provider_Key());
                if (input) {
                    linked.insert(input->Attribute_Name);
                }
            }
            std::set<std::string> given;
            for (const int origin : ofOutputs_[at]) {
                const auto& source = spellings_.sources()[static_cast<std::size_t>(origin / kMostColumns) - 1];
                given.insert(source[static_cast<std::size_t>(origin % kMostColumns)]->Attribute_Name);
            }
            const bool same = std::any_of(linked.begin(), linked.end(),
                                          [&](const std::string& name) { return given.contains(name); });
            if (!linked.empty() && !given.empty() && !same) {
                tell(FindingKind::pairing, {},
                     "Output " + output.Attribute_Name + " is linked with input " + *linked.begin() +
                         ", but the statement gives it " + *given.begin() + ".");
            }
        }
    }

    /// Circles of what this statement derives. Vertex 0 is its output, the others are its helpers.
    void checkRecursion() {
        const auto vertexOf = [](int tag) {
            return tag == reference::kOutput ? 0 : reference::isHelper(tag) ? reference::helperIn(tag) + 1 : -1;
        };
        Graph graph(result_.helpers.size() + 1);
        for (const Rule& rule : result_.rules) {
            for (const Literal& literal : rule.body) {
                const int from = literal.kind == LiteralKind::comparison ? -1 : vertexOf(literal.atom.tag);
                if (const int to = vertexOf(rule.head.tag); from >= 0 && to >= 0) {
                    graph[static_cast<std::size_t>(from)].push_back(to);
                }
            }
        }
        const std::vector<int> component = componentsOf(graph);
        std::set<int> told;
        for (const bool breaking : {true, false}) {
            for (std::size_t at = 0; at < result_.rules.size(); ++at) {
                const Rule& rule = result_.rules[at];
                const int to = vertexOf(rule.head.tag);
                for (const Literal& literal : rule.body) {
                    const int from = literal.kind == LiteralKind::comparison ? -1 : vertexOf(literal.atom.tag);
                    const bool inside =
                        from >= 0 && to >= 0 &&
                        component[static_cast<std::size_t>(from)] == component[static_cast<std::size_t>(to)];
                    if (inside && breaksCircle(rule, literal) == breaking &&
                        (told.insert(component[static_cast<std::size_t>(to)]).second || breaking)) {
                        rule_ = static_cast<int>(at) + 1;
                        tellCircle(circleThrough(graph, to), literal.atom.place, breaking);
                        rule_ = 0;
                    }
                }
            }
        }
    }

    void tellCircle(const std::vector<int>& circle, const rules::Place& place, bool breaks) {
        std::string way;
        for (const int vertex : circle) {
            way += (way.empty() ? "" : ", ") +
                   (vertex == 0 ? spellings_.outputName() : result_.helpers[static_cast<std::size_t>(vertex) - 1].name);
        }
        tell(breaks ? FindingKind::negatedCycle : FindingKind::recursion, place, circleWords(way, breaks));
    }

    static constexpr int kMostColumns = 1 << 16;

    const ProgramSources& sources_;
    const canvas::LabelsD& node_;
    const entities::ActivityProperties& activity_;
    Spellings spellings_;
    ActivityProgram result_;
    std::set<std::string> heads_;
    std::vector<int> arities_;      ///< of the helpers, -1 before the first use
    std::vector<Origins> origins_;  ///< of the helpers
    Origins ofOutputs_;
    mutable std::map<int, std::vector<const AttributeProperties*>> elsewhere_;
    int rule_ = 0;  ///< the one that is looked at, from 1
};

}  // namespace

ActivityProgram activityProgram(const ProgramSources& sources, const canvas::LabelsD& node) {
    const entities::ActivityProperties& activity = *node.activity();
    if (activity.Act_LDL.empty() || activity.Act_Name.empty()) {
        return {};
    }
    return StatementReader(sources, node).read();
}

}  // namespace orvent::program
