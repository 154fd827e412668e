#include "statements/template_advice.h"

#include <algorithm>
#include <set>

#include "platform/text.h"
#include "statements/activity_builder.h"
#include "statements/no_place.h"

namespace orvent::statements {

namespace {

constexpr int kFirstCut = 10;  // the first number that holds another one as its head

bool holds(const std::string& text, const std::string& part) {
    return text.find(part) != kNone;
}

/// Whether the template writes each output beside the input of the same position: in so many words, or by a rule
/// whose head takes all inputs over.
bool pairsByPosition(const std::string& lowered) {
    const std::string output = "a_out_$";
    for (std::size_t at = lowered.find(output); at != kNone; at = lowered.find(output, at + 1)) {
        const std::size_t sign = lowered.find('$', at + output.size());
        if (sign != kNone && lowered.compare(sign + 1, 8, "=a_in1_$") == 0) {
            return true;
        }
    }
    const std::string head = "(a_in1_1";
    for (std::size_t at = lowered.find(head); at != kNone; at = lowered.find(head, at + 1)) {
        const std::size_t name =
            lowered.find_last_not_of("abcdefghijklmnopqrstuvwxyz0123456789_", at == 0 ? 0 : at - 1);
        const std::size_t from = name == kNone ? 0 : name + 1;
        if (lowered.compare(from, 6, "a_out_") == 0) {
            return true;
        }
    }
    return false;
}

void adviseOutputs(const TemplateSubject& subject, const std::string& lowered, std::vector<Advice>& result) {
    if (subject.OutputsView.Count() == 0) {
        if (holds(lowered, "a_out_") || holds(lowered, "arityof(a_out)")) {
            result.push_back(
                {"The activity has no output that was defined by hand, and the template asks for its "
                 "outputs. Those that the wizard makes do not count.",
                 {}});
        }
        return;
    }
    const LDLSource* source = subject.Sources.Source(1);
    if (!source || !pairsByPosition(lowered)) {
        return;
    }
    if (subject.OutputsView.Count() > source->Count()) {
        result.push_back({"There are " + std::to_string(subject.OutputsView.Count()) + " outputs, but a_in1 has only " +
                              std::to_string(source->Count()) + " of the inputs that they take their values from.",
                          {}});
        return;
    }
    for (int i = 1; i <= subject.OutputsView.Count(); ++i) {
        const std::string& output = subject.OutputsView.Item(i)->Attribute_Name;
        const std::string& input = source->Item(i)->Attribute_Name;
        bool elsewhere = false;
        for (const entities::AttributeProperties& other : *source) {
            elsewhere = elsewhere || other.Attribute_Name == output;
        }
        if (output != input && elsewhere) {
            result.push_back({"The outputs stand in another order than the inputs: output " + output +
                                  " takes its value from input " + input + ".",
                              {}});
            return;
        }
    }
}

std::string cutTokens(const std::string& token, int count) {
    return token + std::to_string(kFirstCut) + (count > kFirstCut ? " to " + token + std::to_string(count) : "");
}

void adviseNumbers(const TemplateSubject& subject, const std::string& lowered, std::vector<Advice>& result) {
    const auto advise = [&](const std::string& token, int count) {
        if (count >= kFirstCut && holds(lowered, platform::lowerCase(token).substr(0, 5))) {
            result.push_back({cutTokens(token, count) + (count > kFirstCut ? " are" : " is") +
                                  " cut: each is read as " + token +
                                  "1 and further digits. \"Whole Numbers\" reads them whole.",
                              {}});
        }
    };
    int k = 0;
    for (const LDLSource& source : subject.Sources) {
        advise("A_IN" + std::to_string(++k) + "_", source.Count());
    }
    advise("A_IN", subject.Sources.Count());
    advise("A_OUT_", subject.OutputsView.Count());
}

void adviseNames(const TemplateSubject& subject, const std::string& lowered, std::vector<Advice>& result) {
    const std::string& name = subject.Activity.Act_Name;
    if (!name.empty() && (name.back() == 'a' || name.back() == 'A') &&
        (holds(lowered, "a_in") || holds(lowered, "a_out"))) {
        result.push_back({"The activity's name ends in \"" + name.substr(name.size() - 1) +
                              "\": its end is taken for the beginning of a further name. Give it another name.",
                          {}});
    }
    std::set<std::string> names;
    for (const LDLVariable& variable : subject.Variables) {
        names.insert(variable.VariableName);
    }
    for (const std::string& head : names) {
        for (auto longer = names.upper_bound(head); longer != names.end() && longer->starts_with(head); ++longer) {
            result.push_back({"@" + head + " is the head of @" + *longer + ": where @" + head +
                                  " is replaced first, @" + *longer + " is cut.",
                              *longer});
        }
    }
}

}  // namespace

std::vector<Advice> adviceOn(const TemplateSubject& subject) {
    const std::string lowered = platform::lowerCase(subject.text);
    std::vector<Advice> result;
    adviseOutputs(subject, lowered, result);
    if (!subject.WholeNumbers) {
        adviseNumbers(subject, lowered, result);
    }
    adviseNames(subject, lowered, result);
    return result;
}

bool cutsNumbers(const TemplateSubject& subject) {
    std::vector<Advice> cut;
    adviseNumbers(subject, platform::lowerCase(subject.text), cut);
    return !cut.empty();
}

int linksOfGeneratedOutputs(const entities::ActivityProperties& activity) {
    int links = 0;
    for (const entities::AttributeProperties& output : activity.Act_Outputs) {
        links += isGenerated(output) ? output.ProviderFor.count() + output.RegulatorFor.count() : 0;
    }
    return links;
}

std::vector<Advice> faultsOf(const std::string& statement) {
    std::vector<Advice> result;
    const auto add = [&result](Advice advice) {
        if (std::find(result.begin(), result.end(), advice) == result.end()) {
            result.push_back(std::move(advice));
        }
    };
    if (platform::trimmed(statement).empty()) {
        return {{"The statement is empty.", {}}};
    }
    if (statement.starts_with("CRITICAL ERROR AT POSITION: ")) {
        add({"The loops of the template could not be expanded.", {}});
    }
    const std::string before = "!! \"";
    const std::string behind = "\" Has Not Been Declared!!";
    for (std::size_t at = statement.find(before); at != kNone; at = statement.find(before, at + 1)) {
        const std::size_t begin = at + before.size();
        const std::size_t end = statement.find(behind, begin);
        if (end != kNone) {
            const std::string token = statement.substr(begin, end - begin);
            add({"@" + token + " has not been declared.", token.substr(0, token.find('['))});
        }
    }
    for (std::size_t at = statement.find('@'); at != kNone; at = statement.find('@', at + 1)) {
        const bool behindName = at > 0 && isNameCharacter(statement[at - 1]) && statement[at - 1] != '_';
        const std::string name(nameAt(statement, at + 1));
        if (!name.empty() && !behindName) {
            add({"@" + name + " was not replaced.", name});
        }
    }
    return result;
}

}  // namespace orvent::statements
