#include "shell/options_data.h"

#include <cmath>
#include <limits>
#include <optional>

#include "platform/scramble.h"
#include "platform/text.h"
#include "shell/option_fields.h"

namespace orvent::shell {

namespace {

constexpr const char* kScript = "\\ORVENTII.sql";
constexpr const char* kHelpFile = "\\ORVENTII.chm";

/// Reads numbers of the store and remembers the first one that is none.
class NumberReader {
  public:
    explicit NumberReader(platform::SettingsStore& store) : store_(store) {}

    /// What is stored, or the standard value when nothing or no such number is.
    template <class Number>
    Number read(const char* section, const char* key, Number standard) {
        const std::string text = store_.value(section, key, std::to_string(standard));
        const std::optional<double> number = platform::parseNumber(text);
        if (number && fits<Number>(*number)) {
            return static_cast<Number>(*number);
        }
        if (fault_.empty()) {
            fault_ = "The stored setting " + std::string(key) + " is no number of its kind: \"" + text + "\"";
        }
        return standard;
    }

    const std::string& fault() const { return fault_; }

  private:
    template <class Number>
    static bool fits(double number) {
        using Limits = std::numeric_limits<Number>;
        return number >= Limits::lowest() && number <= Limits::max() &&
               (!Limits::is_integer || number == std::trunc(number));
    }

    platform::SettingsStore& store_;
    std::string fault_;
};

struct SightKey {
    const char* key;
    bool zoom::ZoomSight::*mark;
};

constexpr SightKey kSightKeys[] = {{"LightPaths", &zoom::ZoomSight::LightPathsM},
                                   {"Legend", &zoom::ZoomSight::LegendM}};
constexpr const char* kYes = "-1";

}  // namespace

void StoreSight(const zoom::ZoomSight& sight, platform::SettingsStore& store) {
    for (const SightKey& row : kSightKeys) {
        store.setValue("Zoom", row.key, sight.*row.mark ? kYes : "0");
    }
}

void StoreProblems(const analysis::ProblemKinds& problems, platform::SettingsStore& store) {
    for (const analysis::ProblemWords& row : analysis::problemWords()) {
        store.setValue("Problems", row.word, problems.test(static_cast<std::size_t>(row.kind)) ? kYes : "0");
    }
}

std::string LoadOptions(OptionsData& options, platform::SettingsStore& store, const platform::ProgramFolder& folder) {
    options.HelpFile = folder.path(kHelpFile);
    options.DefaultScript = folder.path(kScript);

    repository::LoginValues& login = options.repository.login;
    login.ReposConnString = store.value("DB", "ReposConnString", "");
    login.ReposLogin = store.value("DB", "ReposLogin", "");
    login.ReposPasw = platform::ScramblePassword(store.value("DB", "ReposPasw", ""));
    login.User = store.value("DB", "User", "");

    NumberReader numbers(store);
    const OptionsData standard;
    for (const OptionField& size : storedSizes()) {
        options.canvas.*size.value = numbers.read(size.section(), size.key, standard.canvas.*size.value);
    }
    options.canvas.SelColor = numbers.read("General", "SelColor", standard.canvas.SelColor);
    options.repository.SQLPath = store.value("General", "SQLPath", options.DefaultScript);
    options.TransDepth = numbers.read("General", "TransDepth", standard.TransDepth);
    const std::int32_t rows = numbers.read("General", "SampleRows", standard.SampleRows);
    options.SampleRows = rows < 1 ? standard.SampleRows : rows;
    options.WholeNumbers = store.value("General", "WholeNumbers", "0") == "-1";
    options.ShortNames = store.value("General", "ShortNames", "0") == kYes;
    for (const SightKey& row : kSightKeys) {
        options.sight.*row.mark = store.value("Zoom", row.key, kYes) == kYes;
    }
    for (const analysis::ProblemWords& row : analysis::problemWords()) {
        options.problems.set(static_cast<std::size_t>(row.kind), store.value("Problems", row.word, kYes) == kYes);
    }
    options.functions = sql::OwnFunctions::ofText(store.value("General", "SqlFunctions", ""));
    options.SqlDialect = store.value("General", "SqlDialect", standard.SqlDialect);
    options.LogPath = store.value("General", "LogPath", folder.root().string());
    return numbers.fault();
}

void DefaultOptions(OptionsData& options) {
    options.canvas = canvas::CanvasSettings{};
    options.repository.SQLPath = options.DefaultScript;
    options.problems = analysis::everyProblem();
    options.ShortNames = false;
    options.functions = {};
    options.SampleRows = OptionsData().SampleRows;
}

}  // namespace orvent::shell
