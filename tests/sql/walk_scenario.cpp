#include "walk_scenario.h"

#include <algorithm>
#include <iterator>
#include <numeric>

#include "statements/activity_builder.h"

namespace orvent::sql {

namespace {

constexpr const char* kTexts[] = {"a", "b",   "A", "a ",   "o'neil", "ü",        "10",
                                  "9", "a b", "",  "日本", "b\\c",   "say \"x\""};

std::vector<std::string> inputs(int source, const std::vector<int>& places) {
    std::vector<std::string> result;
    for (const int place : places) {
        result.push_back("in " + std::to_string(source) + " " + std::to_string(place));
    }
    return result;
}

void choose(statements::LDLForm& wizard, const std::string& value) {
    if (value.starts_with("const ")) {
        wizard.chooseValue(statements::RegConstant);
        wizard.txtConst = value.substr(6);
        wizard.selectDataType(0);
    } else {
        statements::chooseValueOf(wizard, value);
    }
}

}  // namespace

std::string WalkScenario::columnName() {
    constexpr const char* kHeads[] = {"ID", "name", "PRICE", "a", "x y", "Ärger", "V"};
    return kHeads[below(std::size(kHeads))] + std::to_string(++names_);
}

std::int16_t WalkScenario::typeOf(const FlowColumn& column) const {
    return catalogue_.tables.dataTypes.indexOf(column.number ? "NUMBER" : "VARCHAR2").value();
}

std::string WalkScenario::constant(bool number) {
    return number ? std::to_string(below(5)) : kTexts[below(9)];
}

std::vector<FactRow> WalkScenario::facts(const std::vector<bool>& numbers) {
    int texts[4];  // few, so that they meet
    for (int& text : texts) {
        text = below(std::size(kTexts));
    }
    std::vector<FactRow> rows(static_cast<std::size_t>(below(8)));
    for (FactRow& row : rows) {
        if (chance(15) && &row != &rows.front()) {
            row = rows.front();
            continue;
        }
        for (const bool number : numbers) {
            const bool null = chance(15);
            row.push_back({null, null ? "" : number ? std::to_string(below(5) - 1) : kTexts[texts[below(4)]]});
        }
    }
    return rows;
}

Flow WalkScenario::recordSet(const std::vector<FlowColumn>& columns) {
    const std::string name = "R" + std::to_string(++nodes_);
    entities::RecordSetProperties& made = graph_.recordSet(name);
    for (const FlowColumn& column : columns) {
        made.RecordSet_Outputs->Add(column.name, typeOf(column), column.name).ParentKeyName = name;
    }
    return {name, true, columns};
}

void WalkScenario::draw(int activities) {
    for (int count = 2 + below(2); count > 0; --count) {
        std::vector<FlowColumn> columns;
        for (int column = 2 + below(3); column > 0; --column) {
            columns.push_back({columnName(), columns.empty() || (columns.size() > 1 && chance(50))});
        }
        flows_.push_back(recordSet(columns));
    }
    for (int count = 0; count < activities; ++count) {
        carryOut(anyStep());
        if (chance(20)) {
            feedTarget();
        }
    }
}

/// Some inputs of the first source, all different.
void WalkScenario::addKeys(Step& step, const char* variable, bool order) {
    std::vector<int> places(step.sources[0].columns.size());
    std::iota(places.begin(), places.end(), 0);
    std::shuffle(places.begin(), places.end(), random_);
    const int first = places.back();
    places.resize(static_cast<std::size_t>(1 + below(std::max<std::size_t>(places.size() - 1, 1))));
    step.answers.push_back({statements::VarParameterArray, variable, inputs(0, places)});
    if (order) {
        step.answers.push_back({statements::VarParameter, "ORDERATTR", inputs(0, {first})});
    }
}

/// Pairs of inputs of both sources that are of one kind; false when there are none.
bool WalkScenario::addPairs(Step& step, const char* first, const char* second) {
    std::vector<int> left, right;
    for (std::size_t at = 0; at < step.sources[0].columns.size(); ++at) {
        for (std::size_t other = 0; other < step.sources[1].columns.size(); ++other) {
            const bool fits = step.sources[0].columns[at].number == step.sources[1].columns[other].number;
            if (fits && std::find(right.begin(), right.end(), static_cast<int>(other)) == right.end() &&
                (left.empty() || chance(40)) && (left.empty() || left.back() != static_cast<int>(at))) {
                left.push_back(static_cast<int>(at));
                right.push_back(static_cast<int>(other));
            }
        }
    }
    step.answers.push_back({statements::VarParameterArray, first, inputs(0, left)});
    step.answers.push_back({statements::VarParameterArray, second, inputs(1, right)});
    return !left.empty();
}

WalkScenario::Step WalkScenario::anyStep() {
    using namespace statements;
    constexpr const char* kTypes[] = {"Selection",
                                      "Projection",
                                      "Not Null Check",
                                      "Domain Check",
                                      "Difference",
                                      "Primary Key Check",
                                      "Foreign Key Check",
                                      "Aggregation",
                                      "Duplicate Removal",
                                      "Join",
                                      "Union",
                                      "Surrogate Key Assignment",
                                      "Loader Append",
                                      "Sample Transfer",
                                      "Attribute Function",
                                      "Loader Overwrite",
                                      "Projection",
                                      "Aggregation"};
    Step step{kTypes[below(std::size(kTypes))], {anyFlow()}, {}, {}, {}, ""};
    const std::vector<FlowColumn>& columns = step.sources[0].columns;
    const int at = below(columns.size());
    const bool number = columns[static_cast<std::size_t>(at)].number;
    const auto put = [&step](LDLVariableType kind, const char* name, std::vector<std::string> values) {
        step.answers.push_back({kind, name, std::move(values)});
    };
    const auto same = [&] {
        for (const FlowColumn& column : columns) {
            step.outputs.push_back({columnName(), column.number});
        }
    };
    if (step.type != "Projection" && step.type != "Aggregation" && step.type != "Join") {
        same();
    }
    if (step.type == "Selection") {
        constexpr const char* kSigns[] = {"=", "!=", "<>", "<", ">", "<=", ">="};
        put(VarParameter, "FIELD", inputs(0, {at}));
        put(VarParameter, "OPERATOR", {std::string("const ") + kSigns[below(std::size(kSigns))]});
        put(VarParameter, "VALUE", {"const " + constant(number)});
    } else if (step.type == "Projection") {
        addKeys(step, "KEPT", false);
        for (const std::string& kept : step.answers[0].values) {
            step.outputs.push_back({columnName(), columns[static_cast<std::size_t>(std::stoi(kept.substr(5)))].number});
        }
    } else if (step.type == "Not Null Check") {
        addKeys(step, "CHECKED", false);
    } else if (step.type == "Domain Check") {
        put(VarParameter, "FIELD", inputs(0, {at}));
        put(VarParameter, "LOWVALUE", {"const " + (number ? std::to_string(below(3)) : std::string("9"))});
        put(VarParameter, "HIGHVALUE", {"const " + (number ? std::to_string(3 + below(4)) : std::string("b"))});
    } else if (step.type == "Primary Key Check") {
        addKeys(step, "KEYATTR", false);
    } else if (step.type == "Duplicate Removal") {
        addKeys(step, "KEYATTR", true);
    } else if (step.type == "Foreign Key Check") {
        const Flow table = recordSet({{columnName(), number}, {columnName(), false}});
        put(VarRecordSet, "REFTABLE", {table.node});
        put(VarParameterArray, "REFCOLUMN", {inputs(0, {at})[0], "rs " + table.node + " 1"});
    } else if (step.type == "Surrogate Key Assignment") {
        const Flow table = recordSet({{columnName(), number}, {columnName(), true}, {columnName(), true}});
        put(VarRecordSet, "LOOKUPTABLE", {table.node});
        put(VarParameter, "PRODKEY", inputs(0, {at}));
        put(VarParameter, "SOURCEID", {"const " + std::to_string(below(3))});
        put(VarParameter, "SKVALUE", {"rs " + table.node + " 2"});
        put(VarOutput, "SKEY", {"SKVALUE"});
        step.made.push_back({"SKEY", true});
    } else if (step.type == "Difference" || step.type == "Join") {
        step.sources.push_back(anyFlow());
        if (!addPairs(step, "KEYFIRST", "KEYSECOND") || step.sources[1].node == step.sources[0].node) {
            return anyStep();
        }
        if (step.type == "Join") {
            std::vector<std::string> results;
            for (int count = 1 + below(3); count > 0; --count) {
                const int source = below(2);
                const std::vector<FlowColumn>& from = step.sources[static_cast<std::size_t>(source)].columns;
                const int place = below(from.size());
                results.push_back(inputs(source, {place})[0]);
                step.outputs.push_back({columnName(), from[static_cast<std::size_t>(place)].number});
            }
            put(VarParameterArray, "RESULT", results);
        }
    } else if (step.type == "Union") {
        std::vector<FlowColumn> others;
        for (const FlowColumn& column : columns) {
            others.push_back({columnName(), column.number});
        }
        step.sources.push_back(recordSet(others));
    } else if (step.type == "Aggregation") {
        constexpr const char* kSums[] = {"sum", "count", "avg", "min", "max"};
        const std::string sum = kSums[below(std::size(kSums))];
        if ((sum == "sum" || sum == "avg") && !number) {
            return anyStep();
        }
        addKeys(step, "GROUPATTR", false);
        for (const std::string& kept : step.answers[0].values) {
            step.outputs.push_back({columnName(), columns[static_cast<std::size_t>(std::stoi(kept.substr(5)))].number});
        }
        put(VarFunction, "AGGRNAME", {sum});
        put(VarFunctionParameter, "MEASURE", inputs(0, {at}));
        put(VarFunctionOutput, "AGGRVALUE", {});
        put(VarOutput, "TOTAL", {"AGGRVALUE"});
        step.made.push_back({"TOTAL", number || sum == "count"});
        averages_ = averages_ || sum == "avg";
    } else if (step.type == "Attribute Function") {
        constexpr const char* kFunctions[] = {"multiply", "add", "subtract", "concat"};
        const std::string function = number ? kFunctions[below(3)] : "concat";
        put(VarFunction, "FUNCNAME", {function});
        put(VarFunctionParameterArray, "ARGUMENT", {inputs(0, {at})[0], "const " + (number ? "2" : constant(false))});
        put(VarFunctionOutput, "FUNCVALUE", {});
        put(VarOutput, "NEWFIELD", {"FUNCVALUE"});
        step.made.push_back({"NEWFIELD", number});
        calls_ = true;
    } else if (step.type == "Sample Transfer") {
        put(VarParameter, "Stamp", {"const " + constant(false)});
        put(VarOutput, "Output31", {"Stamp"});
        step.made.push_back({"Output31", false});
    } else if (step.type == "Loader Append") {
        std::vector<FlowColumn> held;
        for (const FlowColumn& column : columns) {
            held.push_back({columnName(), column.number});
        }
        step.target = recordSet(held).node;
        put(VarRecordSet, "TARGET", {step.target});
    }
    return step;
}

void WalkScenario::link(const Flow& from, std::size_t at, const std::string& to) {
    graph_.feed(from.node + (from.recordSet ? "." : ".OUT.") + from.columns[at].name, to);
}

void WalkScenario::carryOut(const Step& step) {
    const std::string name = "A" + std::to_string(++nodes_);
    entities::ActivityProperties& activity = graph_.activity(name);
    for (const Flow& source : step.sources) {
        for (std::size_t at = 0; at < source.columns.size(); ++at) {
            const FlowColumn input{columnName(), source.columns[at].number};
            activity.Act_Inputs->Add(input.name, typeOf(input), entities::TagNone, input.name).ParentKeyName = name;
            link(source, at, name + ".IN." + input.name);
        }
    }
    Flow made{name, false, step.outputs};
    for (const FlowColumn& output : step.outputs) {
        activity.Act_Outputs->Add(output.name, typeOf(output), entities::TagNone, output.name).ParentKeyName = name;
    }
    activity.Act_Type = catalogue_.ActivityTypeIndex(step.type);
    statements::FakeWizardServices services;
    services.whole = true;
    statements::WizardScript window;
    window.play = [&](statements::LDLForm& wizard) { answer(wizard, step); };
    statements::LDLForm(messages_, catalogue_.tables, services, window).LDLCreate(form_, activity);
    for (const FlowColumn& output : step.made) {
        for (entities::AttributeProperties& attribute : activity.Act_Outputs) {
            if (statements::isGenerated(attribute)) {
                attribute.Attribute_Type = typeOf(output);
                made.columns.push_back({attribute.Key, output.number});
            }
        }
    }
    ASSERT_EQ(static_cast<std::size_t>(activity.Act_Outputs->Count()), made.columns.size()) << activity.Act_LDL;
    if (!step.target.empty()) {
        const entities::RecordSetProperties& target = *form_.nodeNamed(step.target)->recordSet();
        std::size_t at = 0;
        for (const entities::AttributeProperties& column : target.RecordSet_Outputs) {
            link(made, at++, step.target + "." + column.Attribute_Name);
        }
    }
    flows_.push_back(std::move(made));
}

void WalkScenario::answer(statements::LDLForm& wizard, const Step& step) {
    wizard.cmdParseLDL();
    ASSERT_EQ(static_cast<std::size_t>(wizard.Variables.Count()), step.answers.size()) << step.type;
    for (std::size_t count = 0; count < step.answers.size(); ++count) {
        const auto found = std::find_if(step.answers.begin(), step.answers.end(),
                                        [&](const Answer& each) { return each.name == wizard.lblVariable; });
        ASSERT_NE(found, step.answers.end()) << step.type << " asks for " << wizard.lblVariable;
        const bool named = found->kind >= statements::VarRecordSet;
        if (named) {
            statements::defineCurrent(wizard, found->kind, found->values.empty() ? "" : found->values[0], {});
        } else {
            wizard.chooseKind(found->kind);
            for (std::size_t element = 0; element < found->values.size(); ++element) {
                if (wizard.Visible.frameArrity) {
                    wizard.UpDownArity_Up();
                    wizard.selectArrity(static_cast<int>(element));
                }
                choose(wizard, found->values[element]);
            }
        }
        wizard.cmdNext();
    }
    wizard.cmdGenerateLDL();
    wizard.cmdCreateAct();
    wizard.cmdOK();
}

/// A record set that one or two flows feed, each some of its columns.
void WalkScenario::feedTarget() {
    const Flow first = anyFlow();
    const Flow second = anyFlow();
    std::vector<FlowColumn> columns;
    for (const FlowColumn& column : first.columns) {
        columns.push_back({columnName(), column.number});
    }
    const Flow target = recordSet(columns);
    for (const Flow* from : {&first, &second}) {
        std::size_t column = 0;
        for (std::size_t at = 0; at < from->columns.size() && column < columns.size(); ++at) {
            const bool mine = from == &first || second.node != first.node;
            if (mine && from->columns[at].number == columns[column].number && chance(85)) {
                link(*from, at, target.node + "." + columns[column].name);
                ++column;
            }
        }
    }
    flows_.push_back(target);
}

}  // namespace orvent::sql
