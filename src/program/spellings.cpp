#include "program/spellings.h"

#include <algorithm>

#include "entities/link_types.h"
#include "links/far_end.h"
#include "platform/letter_case.h"
#include "platform/utf8.h"
#include "program/reference.h"
#include "statements/activity_builder.h"
#include "statements/ldl_generator.h"

namespace orvent::program {

using entities::AttributeProperties;
using rules::Word;
using rules::WordKind;

namespace {

constexpr std::size_t kCutFrom =
    10;  ///< from so many on a token may have been read as a shorter one and further digits

bool isLetter(char c, char small) {
    return c == small || c == small - 'a' + 'A';
}

/// Whether the generator's last pass may find one of its tokens in a name.
bool holdsToken(std::string_view text) {
    for (std::size_t line = text.find('_', 1); line != std::string_view::npos; line = text.find('_', line + 1)) {
        if (isLetter(text[line - 1], 'a') && line + 2 < text.size() &&
            (isLetter(text[line + 1], 'i') || isLetter(text[line + 1], 'o'))) {
            return true;
        }
    }
    return false;
}

/// The other of the two names that have one spelling as the head of a predicate.
std::string withCapital(std::string_view name) {
    const std::size_t first = platform::firstCharacterLength(name);
    return platform::upperLetters(name.substr(0, first)) + std::string(name.substr(first));
}

}  // namespace

Spellings::Spellings(const canvas::Canvas& form, const entities::ActivityProperties& activity, const Types& types)
    : form_(form), activity_(activity), types_(types), small_(statements::FirstCapitalReplacer(activity.Act_Name)) {
    addSources();
    addOutputs();
    addConstants();
    addFunctions();
    addPassed();
    small_ += "_out";
    words_.setAsk([this](std::string_view name) { return ask(name); });
}

int Spellings::helper(const std::string& name) {
    const auto [entry, isNew] = helperNumbers_.try_emplace(name, static_cast<int>(helpers_.size()));
    if (isNew) {
        helpers_.push_back(name);
    }
    return reference::kHelpers + entry->second;
}

int Spellings::addValue(const NamedValue& value) {
    values_.push_back(value);
    return static_cast<int>(values_.size()) - 1;
}

void Spellings::addToken(std::string token, const std::string& spelling, Word word) {
    passes_ = passes_ || holdsToken(spelling);
    if (const Word* known = words_.add(spelling, std::move(word))) {
        tokens_.push_back({std::move(token), known});
    }
}

/// Where numbers of tokens are not read whole, the tenth is the first with a "0" behind it.
void Spellings::addCut(const std::vector<std::string>& spelt, std::size_t first) {
    for (std::size_t at = kCutFrom - 1; at < spelt.size(); ++at) {
        const std::string number = std::to_string(at + 1);
        words_.add(spelt[static_cast<std::size_t>(number[0] - '1')] + number.substr(1),
                   {WordKind::variable, spelt[at], static_cast<int>(first + at)});
    }
}

void Spellings::addSources() {
    int k = 0;
    for (const statements::SourceInputs& source : statements::sourceInputsOf(activity_)) {
        const std::string number = std::to_string(++k);
        const std::string token = "A_IN" + number;
        const Word name{WordKind::name, small_ + "_in" + number, reference::source(k)};
        addToken(token, name.text, name);
        words_.add(activity_.Act_Name + "_IN" + number, name);
        sources_.emplace_back();
        const std::size_t first = values_.size();
        std::vector<std::string> spelt;
        for (const int position : source.inputs) {
            const AttributeProperties& input = *activity_.Act_Inputs.peek()->Item(position);
            const std::size_t column = sources_.back().size();
            sources_.back().push_back(&input);
            spelt.push_back(activity_.Act_Name + "_IN" + number + "_" + input.Attribute_Name);
            const int tag = addValue({NamedValue::Kind::input, k, column, types_.typeOf(input)});
            addToken(token + "_" + std::to_string(column + 1), spelt.back(), {WordKind::variable, spelt.back(), tag});
        }
        addCut(spelt, first);
    }
    passes_ = passes_ || sources_.size() >= kCutFrom;
}

void Spellings::addOutputs() {
    const Word name{WordKind::name, small_ + "_out", reference::kOutput};
    addToken("A_OUT", name.text, name);
    words_.add(activity_.Act_Name + "_OUT", name);
    const std::size_t first = values_.size();
    std::vector<std::string> spelt;
    for (const AttributeProperties& output : activity_.Act_Outputs) {
        const std::string head = activity_.Act_Name + "_OUT_";
        const int tag = addValue({NamedValue::Kind::output, 0, outputs_.size(), types_.typeOf(output)});
        const Word word{WordKind::variable, head + output.Attribute_Name, tag};
        outputs_.push_back(&output);
        if (statements::isGenerated(output)) {
            words_.add(word.text, word);
            const std::string capitals = head + platform::upperLetters(output.Attribute_Name);
            if (capitals != word.text) {
                words_.add(capitals, word);
            }
        } else {
            spelt.push_back(word.text);
            addToken("A_OUT_" + std::to_string(spelt.size()), word.text, word);
        }
    }
    addCut(spelt, first);
}

template <class List>
void Spellings::addRegulators(const List& parameters) {
    using enum entities::LinkType;
    for (const entities::ParameterProperties& parameter : parameters) {
        for (const entities::RegulatorProperties& link : parameter.RegulatedFrom) {
            const entities::LinkType type = link.Regulator_type;
            if (type == LinkConstant || type == LinkConstantFunction) {
                const std::string capitals = platform::upperLetters(link.Regulator_name);
                const auto known = words_.valueAt(capitals, 0);
                const bool again = known && known->length == capitals.size() &&
                                   known->word->kind == WordKind::constant && known->word->text == link.Regulator_name;
                if (!again && !capitals.empty()) {
                    const int tag = addValue({NamedValue::Kind::constant, 0, 0, parameter.Parameter_Type});
                    addToken(capitals, capitals, {WordKind::constant, link.Regulator_name, tag});
                }
            } else if (type == LinkRecordSet || type == LinkRecordSetFunction) {
                const canvas::LabelsD* node = form_.nodeNamed(link.Regulator_name);
                const AttributeProperties* field =
                    node && node->recordSet() ? links::attributeUnder(*node->recordSet(), link.key()) : nullptr;
                const std::string capitals =
                    field ? platform::upperLetters(link.Regulator_name + "_" + field->Attribute_Name) : "";
                // Two columns whose names differ by case alone are one name of a value.
                if (field && !words_.valueAt(capitals, 0)) {
                    addToken(capitals, capitals,
                             {WordKind::variable, capitals,
                              addValue({NamedValue::Kind::other, 0, 0, types_.typeOf(*field)})});
                }
            }
        }
    }
}

void Spellings::addConstants() {
    addRegulators(activity_.Act_Parameters);
    for (const entities::FunctionProperties& function : activity_.Act_Functions) {
        addRegulators(function.Function_Inputs);
    }
}

void Spellings::addFunctions() {
    for (const entities::FunctionProperties& function : activity_.Act_Functions) {
        if (function.Function_Name.empty()) {
            continue;
        }
        const std::string spelling = statements::FirstCapitalReplacer(function.Function_Name);
        words_.add(spelling, {WordKind::name, function.Function_Name, reference::kFunction});
        for (const entities::ParameterProperties& output : function.Function_Outputs) {
            const std::string capitals = platform::upperLetters(output.Parameter_Name);
            addToken(capitals, capitals,
                     {WordKind::variable, capitals, addValue({NamedValue::Kind::other, 0, 0, output.Parameter_Type})});
        }
    }
}

/// What the generator's own pass makes of the tokens, where that is not plain.
void Spellings::addPassed() {
    if (!passes_) {
        return;
    }
    std::string text;
    for (const Token& token : tokens_) {
        text += token.token + '\n';
    }
    const statements::LDLVariableCollection none;
    const statements::LDLsourceColl sources = statements::sourcesOf(activity_);
    entities::Act_OutputsCollection byHand;
    for (const AttributeProperties* output : outputs_) {
        if (!statements::isGenerated(*output)) {
            byHand.AddFullAttribute(*output, "", false, 0);
        }
    }
    for (const bool whole : {false, true}) {
        statements::LDLGenerator generator(none, sources, byHand, activity_, form_);
        generator.WholeNumbers = whole;
        const std::string passed = generator.ReplaceActivityNames(text);
        std::size_t begin = 0;
        for (const Token& token : tokens_) {
            const std::size_t end = std::min(passed.find('\n', begin), passed.size());
            words_.add(std::string_view(passed).substr(begin, end - begin), *token.word);
            begin = std::min(end + 1, passed.size());
        }
    }
}

const Word* Spellings::keep(Word word) {
    kept_.push_back(std::move(word));
    return &kept_.back();
}

/// A name that stands before "(": a record set, another activity's outputs, or a helper with letters that no name has.
const Word* Spellings::ask(std::string_view name) {
    if (name.empty()) {
        return nullptr;
    }
    const auto nodesOf = [&](std::string_view spelling, auto isMeant) {
        std::vector<const canvas::LabelsD*> found;
        const std::string given(spelling);
        const std::string capital = withCapital(spelling);
        for (const std::string* each : {&given, &capital}) {
            const canvas::LabelsD* node = form_.nodeNamed(*each);
            if (std::find(asked_.begin(), asked_.end(), *each) == asked_.end()) {
                asked_.push_back(*each);
            }
            if (node && isMeant(*node) && (found.empty() || found.front() != node)) {
                found.push_back(node);
            }
        }
        return found;
    };
    const auto recordSets = nodesOf(name, [](const canvas::LabelsD& node) { return node.recordSet() != nullptr; });
    if (!recordSets.empty()) {
        return keep({WordKind::name, recordSets[0]->recordSet()->RecordSet_Name,
                     reference::recordSet(recordSets[0]->Index()), recordSets.size() > 1});
    }
    if (name.size() > 4 && (name.ends_with("_out") || name.ends_with("_OUT"))) {
        const auto activities = nodesOf(name.substr(0, name.size() - 4), [&](const canvas::LabelsD& node) {
            return node.activity() && node.activity()->Act_Name != activity_.Act_Name;
        });
        if (!activities.empty()) {
            return keep({WordKind::name, std::string(name), reference::activity(activities[0]->Index()),
                         activities.size() > 1});
        }
    }
    const bool odd = name.front() <= '9' || !std::all_of(name.begin(), name.end(), rules::isNameLetter);
    if (odd && name.starts_with(small_)) {
        const std::string helperName(name);
        return keep({WordKind::name, helperName, helper(helperName)});
    }
    return nullptr;
}

std::vector<std::string> twinsOf(const std::string& name) {
    const std::size_t first = platform::firstCharacterLength(name);
    const std::string head = name.substr(0, first);
    std::vector<std::string> result;
    for (const std::string& letter : {platform::lowerLetters(head), platform::upperLetters(head)}) {
        if (letter != head) {
            result.push_back(letter + name.substr(first));
        }
    }
    return result;
}

std::vector<Finding> nameFindings(const canvas::Canvas& form, const canvas::LabelsD& node) {
    const std::string& name = node.KeyName();
    if (name.empty()) {
        return {{FindingKind::spelling, node.Index(), 0, {}, "It has no name that a statement could spell."}};
    }
    for (const std::string& other : twinsOf(name)) {
        const canvas::LabelsD* twin = form.nodeNamed(other);
        if (twin && (twin->activity() || twin->recordSet())) {
            return {{FindingKind::spelling,
                     node.Index(),
                     0,
                     {},
                     name + " and " + other + " have one spelling in statements."}};
        }
    }
    return {};
}

}  // namespace orvent::program
