#include "app/cli_program.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "app/cli_commands.h"
#include "app/cli_run.h"
#include "app/man_page.h"
#include "platform/fault.h"
#include "shell/exporters.h"

namespace orvent::app {

namespace {

constexpr const char* kAbout =
    "Works on the scenarios of ORVENT II without windows: carries them between a repository and files, checks them, "
    "and "
    "writes down what follows from them. The repository is that of the settings, or the one that the options name. "
    "Results go to standard output, "
    "messages to standard error.";

/// A word that answers a question which a window would ask.
struct Answering {
    const char* option;
    const char* help;
};

constexpr Answering kMakeRepository{"--make-repository",
                                    "Makes the embedded repository, with its starter catalogue, when there is none"};
constexpr Answering kAddTypes{"--add-types", "Adds types that the repository lacks to its catalogue"};

/// What a command works on.
struct Positional {
    const char* name;
    const char* help;
    const char* type;
};

constexpr Positional kStored{"scenario", "Its name in the repository", "NAME"};
constexpr Positional kFile{"file", "The file of a scenario", "FILE"};
constexpr Positional kStoredOrFile{
    "scenario", "Its name in the repository, or a file: what ends with .orvent or holds a slash", "NAME"};

/// The command line: its commands, and what the words give.
class CommandLine {
  public:
    CommandLine() {
        app_.require_subcommand(1);
        app_.set_version_flag("--version", std::string("ORVENT II ") + ORVENT_VERSION);
        app_.set_help_flag("-h,--help", "Tells this and ends");
        app_.add_flag("--man", man_, "Writes the manual page and ends")->group("");
        app_.footer(manSections(false));
        addCommands();
    }

    int run(std::span<char* const> words, std::ostream& out, std::ostream& errors) {
        if (words.size() == 1 && std::string_view(words[0]) == "--man") {
            out << manPage(app_);
            return 0;
        }
        if (!words.empty() && words[0][0] != '-' && !isCommand(words[0])) {
            errors << "There is no command \"" << words[0] << "\".\nRun with --help for more information.\n";
            return static_cast<int>(ExitCode::wrongUse);
        }
        try {
            std::vector<std::string> reversed(words.rbegin(), words.rend());
            app_.parse(reversed);
        } catch (const CLI::ParseError& error) {
            const int code = app_.exit(error, out, errors);
            return static_cast<int>(code == 0 ? ExitCode::done : ExitCode::wrongUse);
        }
        try {
            return static_cast<int>(runCommand(out, errors));
        } catch (const WrongUse& fault) {
            errors << fault.what() << "\n";
            return static_cast<int>(ExitCode::wrongUse);
        } catch (const std::exception& fault) {
            errors << fault.what() << "\n";
            return static_cast<int>(ExitCode::outside);
        }
    }

  private:
    using Run = std::function<ExitCode(CliSession&, const CliOptions&, std::ostream&)>;

    void addCommands() {
        CLI::App& list = add(app_, "list", "Lists the names of the designer's scenarios.", listScenarios);
        addOutput(list);
        addJson(list);
        CLI::App& get = add(app_, "get", "Writes a scenario of the repository as a file.", getScenario);
        addScenario(get, kStored);
        addOutput(get);
        CLI::App& put = add(app_, "put",
                            "Stores the scenario of a file in the repository. An activity without a type is not "
                            "stored, which is told and ends with code 1.",
                            putScenario);
        addScenario(put, kFile);
        put.add_option("--name", options_.name, "The name to store it under, instead of its own")
            ->check(CLI::Validator([](const std::string& name) { return name.empty() ? "a name is needed" : ""; }, ""))
            ->type_name("NAME");
        addAnswer(put, {"--replace", "Replaces a stored scenario of that name"});
        CLI::App& check = add(app_, "check",
                              "Tells what is wrong or unfinished: what a broken save has left, links that lead to "
                              "nothing, and the rows of the list of problems, as far as the settings have them "
                              "told. Findings end with code 1.",
                              checkScenario);
        addScenario(check, kStoredOrFile);
        addOutput(check);
        addJson(check);
        for (const shell::Exporter& exporter : shell::exporters()) {
            addExporter(exporter);
        }
        addRun();
        CLI::App& convert =
            add(app_, "convert", "Writes a file anew, in the layout and the format of this version.", convertDocument);
        addScenario(convert, kFile);
        addOutput(convert);
        CLI::App& types = *app_.add_subcommand("types", "Carries the types of a catalogue.");
        types.require_subcommand(1);
        addOutput(add(types, "export", "Writes all types of the repository as a file without nodes.", exportTypes));
        CLI::App& import = add(types, "import",
                               "Adds the types of a file that the repository lacks. Those that it has with another "
                               "definition stay as they are, are told, and end with code 1.",
                               importTypes);
        addScenario(import, kFile);
    }

    void addRun() {
        CLI::App& run = add(app_, "run",
                            "Runs a scenario on given rows, in a database in memory, and tells how many rows each node "
                            "has: what came in, and what went out. Rows come from the files of a folder, from the "
                            "scenario itself, or from data sources that need no login. What is expected of a node and "
                            "is not so is told with the rows that should not be there; that, or a statement that the "
                            "database refuses, ends with code 1.",
                            runScenario);
        addScenario(run, kStoredOrFile);
        run.add_option("--facts", options_.facts,
                       "A folder with the rows of record sets, each a file that is named like it and ends with .csv. "
                       "The first line names the columns; nothing between two commas is NULL, and \"\" the empty text")
            ->type_name("FOLDER");
        run.add_option("--rows", options_.rows, "Writes the rows of this node, with commas, instead of the numbers")
            ->type_name("NODE");
        run.add_option("--sample", options_.sampleRows,
                       "How many rows of a record set are read from its data source; 1000 without it")
            ->check(CLI::Range(1, 1000000).description(""))
            ->type_name("ROWS");
        run.add_flag("--keep-duplicates", options_.keepDuplicates,
                     "Leaves equal rows as many as there are ways to derive them");
        addOutput(run);
        addJson(run);
    }

    void addExporter(const shell::Exporter& exporter) {
        CLI::App& command = add(app_, std::string(exporter.name), "Writes " + std::string(exporter.words) + ".",
                                [&exporter](CliSession& session, const CliOptions& options, std::ostream& out) {
                                    return exportScenario(session, exporter, options, out);
                                });
        addScenario(command, kStoredOrFile);
        if (exporter.files) {
            command.add_option("-o,--output", options_.output, "The folder to write")->required()->type_name("FOLDER");
        } else {
            addOutput(command);
        }
        if (exporter.name == shell::kProgramExporter) {
            command.add_flag("--with-facts", options_.withFacts,
                             "Writes the rows that the scenario gives by hand, too");
            command
                .add_option("--facts", options_.facts,
                            "The same with rows from the files of a folder, as run reads them")
                ->type_name("FOLDER");
        }
        if (exporter.needs == shell::Exporter::Needs::depth) {
            command.add_option("--depth", options_.depth, "How many steps the walks take at most")
                ->check(CLI::Range(0, 32767).description(""))
                ->type_name("STEPS");
            addJson(command);
        }
        if (exporter.needs == shell::Exporter::Needs::dialect) {
            std::vector<std::string> names;
            for (const sql::Dialect& dialect : sql::dialects()) {
                names.emplace_back(dialect.name);
            }
            command.add_option("--dialect", options_.dialect, "The database it is for")
                ->check(CLI::IsMember(names))
                ->required()
                ->type_name("NAME");
            command.add_flag("--keep-duplicates", options_.keepDuplicates,
                             "Leaves equal rows as many as there are ways to derive them");
        }
    }

    bool isCommand(const std::string& name) const {
        const std::vector<const CLI::App*> commands = app_.get_subcommands({});
        return std::ranges::any_of(commands, [&name](const CLI::App* command) { return command->get_name() == name; });
    }

    CLI::App& add(CLI::App& parent, const std::string& name, const std::string& words, Run run) {
        CLI::App& command = *parent.add_subcommand(name, words);
        const auto choice = [&command](const char* option, std::string& value, const char* help) {
            command.add_option(option, value, help)->type_name("NAME")->group(kOfEveryCommand);
        };
        choice("--source", options_.repository.source, "The repository's data source");
        choice("--user", options_.repository.user, "The database user; the password is asked for");
        choice("--designer", options_.repository.designer, "Whose scenarios are meant");
        for (const Answering& answer : {kMakeRepository, kAddTypes}) {
            addAnswer(command, answer).group(kOfEveryCommand);
        }
        command.callback([this, run] { run_ = run; });
        return command;
    }

    CLI::Option& addAnswer(CLI::App& command, const Answering& answer) {
        return *command.add_flag_callback(
            answer.option, [this, answer] { answers_.emplace_back(answer.option); }, answer.help);
    }

    void addScenario(CLI::App& command, const Positional& positional) {
        command.add_option(positional.name, options_.scenario, positional.help)->required()->type_name(positional.type);
    }

    void addOutput(CLI::App& command) {
        command.add_option("-o,--output", options_.output, "The file to write, instead of standard output")
            ->type_name("FILE");
    }

    void addJson(CLI::App& command) { command.add_flag("--json", options_.json, "Writes the table as JSON"); }

    ExitCode runCommand(std::ostream& out, std::ostream& errors) {
        AnsweredBox box(errors);
        for (const std::string& answer : answers_) {
            box.give(answer);
        }
        CliSession session(Places::ofUser(), options_.repository, box);
        return run_(session, options_, out);
    }

    CLI::App app_{kAbout, "orvent-cli"};
    CliOptions options_;
    std::vector<std::string> answers_;
    bool man_ = false;
    Run run_;
};

}  // namespace

int runCli(std::span<char* const> words, std::ostream& out, std::ostream& errors) {
    return CommandLine().run(words, out, errors);
}

}  // namespace orvent::app
