#include "statements/template_roles.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "platform/text.h"
#include "statements/no_place.h"

namespace orvent::statements {

namespace {

bool holdsWord(std::string_view text, std::string_view word) {
    for (std::size_t at = text.find(word); at != kNone; at = text.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        if ((at == 0 || !isNameCharacter(text[at - 1])) && (end == text.size() || !isNameCharacter(text[end]))) {
            return true;
        }
    }
    return false;
}

/// Behind the bracket that closes the one at `open`, or the end of the text.
std::size_t closeOf(std::string_view text, std::size_t open) {
    int depth = 0;
    for (std::size_t at = open; at < text.size(); ++at) {
        depth += text[at] == '(' || text[at] == '{' || text[at] == '[' ? 1 : 0;
        depth -= text[at] == ')' || text[at] == '}' || text[at] == ']' ? 1 : 0;
        if (depth == 0) {
            return at + 1;
        }
    }
    return text.size();
}

/// The arguments between the brackets of a call, "(" at `open`; commas inside further brackets part nothing.
std::vector<std::string_view> argumentsAt(std::string_view text, std::size_t open) {
    std::vector<std::string_view> result;
    const std::size_t end = closeOf(text, open);
    std::size_t from = open + 1;
    for (std::size_t at = from; at < end; ++at) {
        if (text[at] == '[' || text[at] == '{' || text[at] == '(') {
            at = closeOf(text, at) - 1;
        } else if (text[at] == ',' || at + 1 == end) {
            result.push_back(platform::trimmed(text.substr(from, at - from)));
            from = at + 1;
        }
    }
    return result;
}

class RoleFinder {
  public:
    RoleFinder(const std::string& text, const LDLVariableCollection& variables,
               const entities::ActivityTypeProperties& type)
        : text_(text), variables_(variables), type_(type) {}

    std::map<std::string, TemplateRole> run() {
        readType();
        readHeads();
        for (std::size_t at = text_.find('@'); at != kNone; at = text_.find('@', at + 1)) {
            readReference(at);
        }
        return std::move(roles_);
    }

  private:
    bool isArray(const std::string& name) const {
        const LDLVariable* variable = variables_.Item(name);
        return variable && variable->SubVariables;
    }

    /// The first role found stands.
    void add(const std::string& name, LDLVariableType scalar, LDLVariableType array, const std::string& why) {
        if (!variables_.Item(name)) {
            return;
        }
        const LDLVariableType kind = isArray(name) ? array : scalar;
        if (kind != VarUndefined) {
            roles_.try_emplace(name, TemplateRole{kind, why});
        }
    }

    void readType() {
        for (const entities::ParamProperties& parameter : type_.ActType_Parameters) {
            const std::string& name = parameter.Parameter_Name;
            add(name, VarParameter, VarUndefined, "The type has a parameter of this name.");
            if (name.ends_with("_1")) {
                add(name.substr(0, name.size() - 2), VarUndefined, VarParameterArray,
                    "The type has parameters of this name.");
            }
        }
        for (const entities::OutputProperties& output : type_.ActType_OutPuts) {
            add(output.Output_Name, VarOutput, VarUndefined, "The type has an output of this name.");
        }
    }

    /// Variables in the head of a rule for the activity's output.
    void readHeads() {
        const std::string lowered = platform::lowerCase(text_);
        const std::string_view head = "a_out(";
        for (std::size_t at = lowered.find(head); at != kNone; at = lowered.find(head, at + 1)) {
            const std::size_t open = at + head.size() - 1;
            const std::size_t end = closeOf(lowered, open);
            if ((at > 0 && isNameCharacter(lowered[at - 1])) || lowered.compare(end, 2, "<-") != 0) {
                continue;
            }
            for (const std::string_view argument : argumentsAt(text_, open)) {
                if (argument.starts_with("@")) {
                    add(std::string(nameAt(argument, 1)), VarOutput, VarOutputArray,
                        "The template gives it out as an output.");
                }
            }
        }
    }

    void readReference(std::size_t at) {
        const std::string name(nameAt(text_, at + 1));
        const std::size_t end = at + 1 + name.size();
        const char next = end < text_.size() ? text_[end] : ' ';
        if (next == '(') {
            readCall(name, end);
        } else if (next == '<' && end + 1 < text_.size() && text_[end + 1] == '@') {
            add(name, VarFunction, VarUndefined, "The template uses it as an aggregate function.");
            add(std::string(nameAt(text_, end + 2)), VarFunctionParameter, VarUndefined,
                "The template hands it to a function.");
        }
        readBound(name, at);
    }

    void readCall(const std::string& name, std::size_t open) {
        const std::string& description = type_.ActType_Description;
        if (description.find("record set " + name) != std::string::npos) {
            add(name, VarRecordSet, VarUndefined, "The template reads it like a record set.");
        } else if (description.find("function " + name) != std::string::npos) {
            add(name, VarFunction, VarUndefined, "The template calls it as a function.");
        }
        const auto role = roles_.find(name);
        if (role == roles_.end() || role->second.kind != VarFunction) {
            return;
        }
        const std::vector<std::string_view> arguments = argumentsAt(text_, open);
        for (const std::string_view& argument : arguments) {
            if (!argument.starts_with("@")) {
                continue;
            }
            const bool last = &argument == &arguments.back() && arguments.size() > 1;
            add(std::string(nameAt(argument, 1)), last ? VarFunctionOutput : VarFunctionParameter,
                VarFunctionParameterArray,
                last ? "The function @" + name + " gives it as its last argument."
                     : "The template hands it to the function @" + name + ".");
        }
    }

    /// A variable that counts the turns of a loop.
    void readBound(const std::string& name, std::size_t at) {
        const std::size_t open = text_.rfind('[', at);
        const std::size_t close = text_.find(']', at);
        if (open == kNone || close == kNone || text_.find(']', open) != close || close + 1 >= text_.size() ||
            text_[close + 1] != '{') {
            return;
        }
        const std::string head = platform::lowerCase(text_.substr(open, at - open));
        if (head.find_first_of("<=") != kNone && !head.ends_with("arityof(")) {
            add(name, VarParameter, VarUndefined, "The template counts with it: a parameter with a number.");
        }
    }

    const std::string& text_;
    const LDLVariableCollection& variables_;
    const entities::ActivityTypeProperties& type_;
    std::map<std::string, TemplateRole> roles_;
};

}  // namespace

std::map<std::string, TemplateRole> rolesIn(const std::string& text, const LDLVariableCollection& variables,
                                            const entities::ActivityTypeProperties& type) {
    return RoleFinder(text, variables, type).run();
}

std::string sentencesAbout(const std::string& description, const std::string& name) {
    std::string result;
    if (name.empty()) {
        return result;
    }
    for (std::size_t from = 0; from < description.size();) {
        const std::size_t stop = description.find(". ", from);
        const std::size_t end = stop == std::string::npos ? description.size() : stop + 1;
        const std::string_view sentence = platform::trimmed(std::string_view(description).substr(from, end - from));
        if (holdsWord(sentence, name)) {
            result.append(result.empty() ? "" : " ").append(sentence);
        }
        from = end;
    }
    return result;
}

}  // namespace orvent::statements
