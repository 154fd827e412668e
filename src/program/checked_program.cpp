#include "program/checked_program.h"

#include <algorithm>
#include <map>
#include <unordered_set>
#include <utility>

#include "links/far_end.h"
#include "program/components.h"
#include "program/reference.h"
#include "program/spellings.h"
#include "statements/ldl_generator.h"
#include "statements/ldl_sources.h"

namespace orvent::program {

using canvas::LabelsD;
using entities::AttributeProperties;
using rules::Atom;
using rules::Literal;
using rules::LiteralKind;
using rules::Rule;
using rules::Term;
using rules::TermKind;

namespace {

template <class Number>
std::size_t placeOf(Number number) {
    return static_cast<std::size_t>(number);
}

Term variable(std::string name) {
    Term term;
    term.kind = TermKind::variable;
    term.text = std::move(name);
    return term;
}

/// Columns of a node that a link may lead from.
const entities::AttributeCollection* columnsOf(const LabelsD& node) {
    return node.recordSet()
               ? static_cast<const entities::AttributeCollection*>(node.recordSet()->RecordSet_Outputs.peek())
           : node.activity() ? node.activity()->Act_Outputs.peek()
                             : nullptr;
}

/// One node's predicates, by their places.
struct NodePredicates {
    int own = -1;  ///< of a record set or of an activity's outputs
    int before = -1;
    std::vector<int> inputs;
    std::vector<int> helpers;
};

/// What feeds a node: one source of an activity, or one provider of a record set.
struct Feed {
    const LabelsD* from;
    std::vector<const AttributeProperties*> columns;  ///< that the rule gives values, in their order
};

class ProgramBuilder {
  public:
    ProgramBuilder(const canvas::DrawForm& form, const entities::CatalogueTables& catalogue, StatementCache* cache)
        : form_(form), types_(form, catalogue), sources_{form, catalogue, types_}, cache_(cache) {}

    Program build() {
        if (cache_) {
            cache_->begin(sources_.catalogue);
        }
        nodes_.resize(placeOf(form_.LabelsNo) + 1);
        statements_.resize(nodes_.size());
        feeds_.resize(nodes_.size());
        readNodes();
        findFormerReads();
        for (const LabelsD& node : form_.Labels) {
            if (node.activity()) {
                addActivity(node);
            } else if (node.recordSet()) {
                tie(node, program_.predicates[placeOf(nodes_[placeOf(node.Index())].own)].columns,
                    nodes_[placeOf(node.Index())].own, feeds_[placeOf(node.Index())]);
            }
        }
        spreadBroken();
        findCircles();
        return std::move(program_);
    }

  private:
    int addPredicate(PredicateKind kind, std::string name, const LabelsD& node, std::vector<Column> columns) {
        while (!names_.insert(name).second) {
            name += '\'';
        }
        program_.predicates.push_back({kind, std::move(name), node.Index(), std::move(columns)});
        return static_cast<int>(program_.predicates.size()) - 1;
    }

    template <class List>
    std::vector<Column> columnsIn(const List& list) const {
        std::vector<Column> result;
        for (const AttributeProperties& attribute : list) {
            result.push_back({attribute.Attribute_Name, types_.typeOf(attribute)});
        }
        return result;
    }

    /// Every node's statement, what feeds it, and the predicates that others may read.
    void readNodes() {
        for (const LabelsD& node : form_.Labels) {
            NodePredicates& own = nodes_[placeOf(node.Index())];
            if (!node.activity() && !node.recordSet()) {
                continue;
            }
            add(nameFindings(form_, node));
            std::vector<Feed>& feeds = feeds_[placeOf(node.Index())];
            if (const entities::ActivityProperties* activity = node.activity()) {
                for (const statements::SourceInputs& source : statements::sourceInputsOf(*activity)) {
                    feeds.push_back({form_.nodeNamed(*source.name), {}});
                    for (const int position : source.inputs) {
                        feeds.back().columns.push_back(activity->Act_Inputs.peek()->Item(position));
                    }
                }
                statements_[placeOf(node.Index())] =
                    cache_ ? cache_->read(sources_, node) : activityProgram(sources_, node);
                add(std::exchange(statements_[placeOf(node.Index())].findings, {}));
                own.own = addPredicate(PredicateKind::output, activity->Act_Name + "_out", node,
                                       columnsIn(activity->Act_Outputs));
            } else {
                for (const AttributeProperties& column : node.recordSet()->RecordSet_Outputs) {
                    for (const entities::ProviderProperties& link : column.ProvidedFrom) {
                        const LabelsD* from = form_.nodeNamed(link.Provider_Name);
                        const bool known = std::any_of(feeds.begin(), feeds.end(),
                                                       [&](const Feed& feed) { return feed.from == from; });
                        if (from && !known) {
                            feeds.push_back({from, {}});
                        }
                    }
                }
                for (Feed& feed : feeds) {
                    for (const AttributeProperties& column : node.recordSet()->RecordSet_Outputs) {
                        feed.columns.push_back(&column);
                    }
                }
                own.own = addPredicate(feeds.empty() ? PredicateKind::given : PredicateKind::recordSet,
                                       node.recordSet()->RecordSet_Name, node,
                                       columnsIn(node.recordSet()->RecordSet_Outputs));
            }
        }
    }

    void add(std::vector<Finding> findings) {
        for (Finding& finding : findings) {
            program_.findings.push_back(std::move(finding));
        }
    }

    /// Readers and record sets from which a way leads back stand in one component of the nodes.
    void findFormerReads() {
        Graph graph(nodes_.size());
        for (std::size_t node = 0; node < nodes_.size(); ++node) {
            for (const Feed& feed : feeds_[node]) {
                if (feed.from) {
                    graph[placeOf(feed.from->Index())].push_back(static_cast<int>(node));
                }
            }
            for (const canvas::NodeNumber read : statements_[node].reads) {
                graph[placeOf(read)].push_back(static_cast<int>(node));
            }
        }
        component_ = componentsOf(graph);
    }

    /// The predicate that a reader means by a node.
    int readOf(const LabelsD& node, const LabelsD& reader) {
        NodePredicates& meant = nodes_[placeOf(node.Index())];
        const bool former = node.recordSet() && !feeds_[placeOf(node.Index())].empty() &&
                            component_[placeOf(node.Index())] == component_[placeOf(reader.Index())];
        if (!former) {
            return meant.own;
        }
        if (meant.before < 0) {
            meant.before = addPredicate(PredicateKind::before, node.recordSet()->RecordSet_Name + "_before", node,
                                        program_.predicates[placeOf(meant.own)].columns);
        }
        return meant.before;
    }

    /// The rules that give a predicate what its feeds hold.
    void tie(const LabelsD& node, const std::vector<Column>& columns, int predicate, const std::vector<Feed>& feeds) {
        for (const Feed& feed : feeds) {
            const entities::AttributeCollection* from = feed.from ? columnsOf(*feed.from) : nullptr;
            if (from) {
                tieOne(node, columns, predicate, feed, *from);
            }
        }
    }

    void tieOne(const LabelsD& node, const std::vector<Column>& columns, int predicate, const Feed& feed,
                const entities::AttributeCollection& from) {
        ProgramRule result{{}, node.Index(), true};
        Atom& head = result.rule.head;
        head.tag = predicate;
        head.name = program_.predicates[placeOf(predicate)].name;
        Literal source;
        source.atom.tag = readOf(*feed.from, node);
        source.atom.name = program_.predicates[placeOf(source.atom.tag)].name;
        std::vector<std::pair<const AttributeProperties*, std::size_t>> places;
        for (const AttributeProperties& column : from) {
            places.emplace_back(&column, places.size());
        }
        std::sort(places.begin(), places.end());
        std::vector<Term>& values = source.atom.arguments;
        values.resize(places.size());
        std::vector<Literal> equalities;
        for (std::size_t at = 0; at < feed.columns.size(); ++at) {
            Term own = variable(head.name + "_" + columns[at].name);
            own.tag = static_cast<int>(at);
            Term given;
            for (const entities::ProviderProperties& link : feed.columns[at]->ProvidedFrom) {
                const AttributeProperties* end =
                    link.Provider_Name != feed.from->KeyName() ? nullptr
                    : feed.from->recordSet()
                        ? links::attributeUnder(*feed.from->recordSet(), link.Provider_Key())
                        : links::attributeUnder(*feed.from->activity(), entities::KindOutput, link.Provider_Key());
                const auto place = std::lower_bound(places.begin(), places.end(), std::pair(end, std::size_t{0}));
                if (place == places.end() || place->first != end) {
                    continue;
                }
                Term& value = values[place->second];
                if (value.kind == TermKind::anonymous) {
                    value = own;
                } else {
                    Literal both;
                    both.kind = LiteralKind::comparison;
                    both.op = "=";
                    both.values = {own, value};
                    equalities.push_back(std::move(both));
                }
                given = own;
            }
            head.arguments.push_back(std::move(given));
        }
        result.rule.body.push_back(std::move(source));
        std::move(equalities.begin(), equalities.end(), std::back_inserter(result.rule.body));
        program_.rules.push_back(std::move(result));
    }

    void addActivity(const LabelsD& node) {
        NodePredicates& own = nodes_[placeOf(node.Index())];
        const std::vector<Feed>& feeds = feeds_[placeOf(node.Index())];
        for (const Feed& feed : feeds) {
            std::vector<Column> columns;
            for (const AttributeProperties* input : feed.columns) {
                columns.push_back({input->Attribute_Name, types_.typeOf(*input)});
            }
            own.inputs.push_back(addPredicate(PredicateKind::input,
                                              node.activity()->Act_Name + "_in" + std::to_string(own.inputs.size() + 1),
                                              node, columns));
            tie(node, columns, own.inputs.back(), {feed});
        }
        ActivityProgram& statement = statements_[placeOf(node.Index())];
        for (Helper& helper : statement.helpers) {
            own.helpers.push_back(addPredicate(PredicateKind::helper, helper.name, node, std::move(helper.columns)));
        }
        program_.predicates[placeOf(own.own)].broken = statement.rules.empty();
        for (std::size_t at = 0; at < statement.rules.size(); ++at) {
            Rule& rule = statement.rules[at];
            if (!statement.sound[at]) {
                const bool mine = rule.head.tag == reference::kOutput || reference::isHelper(rule.head.tag);
                program_.predicates[placeOf(mine ? predicateOf(rule.head, node) : own.own)].broken = true;
                continue;
            }
            settle(rule.head, node);
            for (Literal& literal : rule.body) {
                if (literal.kind != LiteralKind::comparison) {
                    settle(literal.atom, node);
                }
            }
            program_.rules.push_back({std::move(rule), node.Index(), false});
        }
    }

    int predicateOf(const Atom& atom, const LabelsD& node) {
        const NodePredicates& own = nodes_[placeOf(node.Index())];
        if (atom.tag == reference::kFunction || atom.tag == reference::kOutput) {
            return atom.tag == reference::kOutput ? own.own : -1;
        }
        if (reference::isSource(atom.tag)) {
            return own.inputs[placeOf(atom.tag) - 1];
        }
        return reference::isHelper(atom.tag) ? own.helpers[placeOf(reference::helperIn(atom.tag))]
                                             : readOf(*form_.Labels.byIndex(reference::nodeIn(atom.tag)), node);
    }

    void settle(Atom& atom, const LabelsD& node) {
        atom.tag = predicateOf(atom, node);
        if (atom.tag >= 0) {
            atom.name = program_.predicates[placeOf(atom.tag)].name;
        }
    }

    /// From each predicate to those that are derived of it.
    Graph derivations() const {
        Graph graph(program_.predicates.size());
        for (const ProgramRule& rule : program_.rules) {
            for (const Literal& literal : rule.rule.body) {
                if (literal.kind != LiteralKind::comparison && literal.atom.tag >= 0) {
                    graph[placeOf(literal.atom.tag)].push_back(rule.rule.head.tag);
                }
            }
        }
        return graph;
    }

    void spreadBroken() {
        const Graph graph = derivations();
        std::vector<int> round;
        for (std::size_t at = 0; at < graph.size(); ++at) {
            if (program_.predicates[at].broken) {
                round.push_back(static_cast<int>(at));
            }
        }
        for (std::size_t at = 0; at < round.size(); ++at) {
            for (const int target : graph[placeOf(round[at])]) {
                if (!std::exchange(program_.predicates[placeOf(target)].broken, true)) {
                    round.push_back(target);
                }
            }
        }
    }

    /// Circles that run through several nodes, or through a node that feeds itself; those of one statement are told
    /// with it.
    void findCircles() {
        const Graph graph = derivations();
        const std::vector<int> component = componentsOf(graph);
        std::map<int, canvas::NodeNumber> firsts;
        std::map<int, bool> several;
        for (std::size_t at = 0; at < graph.size(); ++at) {
            const auto [entry, isNew] = firsts.try_emplace(component[at], program_.predicates[at].node);
            several[component[at]] |= program_.predicates[at].kind == PredicateKind::input ||
                                      (!isNew && entry->second != program_.predicates[at].node);
        }
        std::unordered_set<int> told;
        for (const bool breaking : {true, false}) {
            for (const ProgramRule& rule : program_.rules) {
                const int to = rule.rule.head.tag;
                const int circle = component[placeOf(to)];
                for (const Literal& literal : rule.rule.body) {
                    const bool inside = literal.kind != LiteralKind::comparison && literal.atom.tag >= 0 &&
                                        component[placeOf(literal.atom.tag)] == circle && several[circle];
                    if (inside && breaksCircle(rule.rule, literal) == breaking &&
                        (told.insert(circle).second || breaking)) {
                        tellCircle(graph, to, rule.node, breaking);
                    }
                }
            }
        }
    }

    void tellCircle(const Graph& graph, int predicate, canvas::NodeNumber node, bool breaks) {
        std::string way;
        canvas::NodeNumber last{};
        for (const int each : circleThrough(graph, predicate)) {
            const canvas::NodeNumber at = program_.predicates[placeOf(each)].node;
            const bool fed = program_.predicates[placeOf(each)].kind == PredicateKind::input;
            if (std::exchange(last, at) != at || fed) {
                way += (way.empty() ? "" : ", ") + form_.Labels.byIndex(at)->KeyName();
            }
        }
        add({{breaks ? FindingKind::negatedCycle : FindingKind::recursion, node, 0, {}, circleWords(way, breaks)}});
    }

    const canvas::DrawForm& form_;
    const Types types_;
    const ProgramSources sources_;
    StatementCache* cache_;
    Program program_;
    std::unordered_set<std::string> names_;
    std::vector<NodePredicates> nodes_;  ///< by `Index`, as are those below
    std::vector<ActivityProgram> statements_;
    std::vector<std::vector<Feed>> feeds_;
    std::vector<int> component_;
};

}  // namespace

Program checkedProgram(const canvas::DrawForm& form, const entities::CatalogueTables& catalogue,
                       StatementCache* cache) {
    return ProgramBuilder(form, catalogue, cache).build();
}

}  // namespace orvent::program
