#include "app/man_page.h"

#include <CLI/CLI.hpp>

namespace orvent::app {

namespace {

struct Section {
    const char* head;
    std::vector<std::pair<const char*, const char*>> rows;
};

const std::vector<Section>& sections() {
    static const std::vector<Section> all = {
        {"EXIT STATUS",
         {{"0", "All went well."},
          {"1", "A check has findings, or what was asked for was done in part."},
          {"2", "The words of the call are wrong, or an option is missing that answers a question."},
          {"3", "The repository, a file or the system refused."}}},
        {"ENVIRONMENT",
         {{"ORVENT_PASSWORD", "The database user's password."},
          {"ORVENT_HOME", "One folder for settings, repository and files, instead of the usual ones."}}},
    };
    return all;
}

/// Plain text as roff shows it.
std::string roff(std::string_view text) {
    std::string result;
    for (const char c : text) {
        const bool isStart = result.empty() || result.back() == '\n';
        if (isStart && (c == '.' || c == '\'')) {
            result += "\\&";
        }
        result += c == '\\' ? "\\e" : c == '-' ? "\\-" : std::string(1, c);
    }
    return result;
}

void addRow(std::string& page, const std::string& term, const std::string& words) {
    page += ".TP\n.B " + roff(term) + "\n" + roff(words) + "\n";
}

std::string termOf(const CLI::Option& option) {
    std::string term = option.get_name(option.get_positional(), true);
    if (const std::size_t comma = term.find(','); comma != std::string::npos) {
        term.replace(comma, 1, ", ");
    }
    const bool isFlag = option.get_items_expected_max() == 0;
    return option.get_positional() || isFlag ? term : term + " " + option.get_type_name();
}

void addOptions(std::string& page, const CLI::App& command, const std::function<bool(const CLI::Option&)>& isMeant) {
    for (const CLI::Option* option : command.get_options()) {
        if (isMeant(*option)) {
            addRow(page, termOf(*option), option->get_description());
        }
    }
}

void addCommand(std::string& page, const CLI::App& command) {
    const std::string parent =
        command.get_parent()->get_parent() ? command.get_parent()->get_name() + " " : std::string();
    std::string head = parent + command.get_name();
    for (const CLI::Option* option : command.get_options()) {
        head += option->get_positional() ? " " + option->get_name(true) : "";
    }
    page += ".SS " + roff(head) + "\n" + roff(command.get_description()) + "\n";
    addOptions(page, command, [&command](const CLI::Option& option) {
        return option.get_group() != kOfEveryCommand && &option != command.get_help_ptr();
    });
}

}  // namespace

std::string manSections(bool forManual) {
    std::string text;
    for (const Section& section : sections()) {
        text += forManual ? ".SH " + std::string(section.head) + "\n" : "\n" + std::string(section.head) + "\n";
        for (const auto& [term, words] : section.rows) {
            if (forManual) {
                addRow(text, term, words);
            } else {
                text += "  " + std::string(term) + "  " + words + "\n";
            }
        }
    }
    return text;
}

std::string manPage(const CLI::App& app) {
    const std::string& name = app.get_name();
    std::string page = ".TH " + CLI::detail::to_lower(name) + " 1 \"\" \"ORVENT II " ORVENT_VERSION "\" \"\"\n";
    page += ".SH NAME\n" + roff(name) + " \\- scenarios without windows\n";
    page += ".SH SYNOPSIS\n.B " + roff(name) + "\n.I command\n[options]\n";
    page += ".SH DESCRIPTION\n" + roff(app.get_description()) + "\n.SH COMMANDS\n";
    const std::vector<const CLI::App*> commands = app.get_subcommands([](const CLI::App*) { return true; });
    for (const CLI::App* command : commands) {
        const std::vector<const CLI::App*> parts = command->get_subcommands([](const CLI::App*) { return true; });
        for (const CLI::App* part : parts.empty() ? std::vector{command} : parts) {
            addCommand(page, *part);
        }
    }
    page += ".SH OPTIONS OF EVERY COMMAND\n";
    addOptions(page, *commands.front(),
               [](const CLI::Option& option) { return option.get_group() == kOfEveryCommand; });
    return page + manSections(true);
}

}  // namespace orvent::app
