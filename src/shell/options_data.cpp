#include "shell/options_data.h"

#include <array>

#include "platform/fault.h"
#include "platform/scramble.h"
#include "platform/text.h"

namespace orvent::shell {

namespace {

using canvas::CanvasSettings;

struct NumberRow {
    const char* section;
    const char* key;
    float CanvasSettings::*value;
};

constexpr std::array<NumberRow, 14> kNumbers = {{
    {"Draw", "ActH", &CanvasSettings::ActH},
    {"Draw", "ActW", &CanvasSettings::ActW},
    {"Draw", "RecH", &CanvasSettings::RecH},
    {"Draw", "RecW", &CanvasSettings::RecW},
    {"Draw", "ComH", &CanvasSettings::ComH},
    {"Draw", "ComW", &CanvasSettings::ComW},
    {"Draw", "LogH", &CanvasSettings::LogH},
    {"Draw", "LogW", &CanvasSettings::LogW},
    {"Zoom", "WDist", &CanvasSettings::WDist},
    {"Zoom", "HDist", &CanvasSettings::HDist},
    {"Zoom", "Width", &CanvasSettings::Width},
    {"Zoom", "Height", &CanvasSettings::Height},
    {"Zoom", "BigDist", &CanvasSettings::BigDist},
    {"Zoom", "BigHeight", &CanvasSettings::BigHeight},
}};

constexpr const char* kScript = "\\ORVENTII.sql";
constexpr const char* kHelp = "\\ORVENTII.chm";

/// Reads numbers of the store and remembers the first one that is none.
class NumberReader {
  public:
    explicit NumberReader(platform::SettingsStore& store) : store_(store) {}

    template <class Number>
    void read(const char* section, const char* key, Number& value) {
        const std::string text = store_.value(section, key, "");
        if (text.empty()) {
            return;
        }
        try {
            const auto number = platform::parseNumber(text);
            if (!number) {
                throw platform::Fault("The stored setting " + std::string(key) + " is no number: " + text);
            }
            value = convert<Number>(*number, key);
        } catch (const platform::Fault& fault) {
            if (fault_.empty()) {
                fault_ = fault.description();
            }
        }
    }

    const std::string& fault() const { return fault_; }

  private:
    template <class Number>
    static Number convert(double number, const char* key) {
        if constexpr (std::is_same_v<Number, std::int16_t>) {
            return platform::checkedI16(static_cast<long long>(number), key);
        } else if constexpr (std::is_same_v<Number, std::int32_t>) {
            if (number < 0 || number > 0xFFFFFF) {
                throw platform::Fault("The stored setting " + std::string(key) + " is no 24-bit colour.");
            }
            return static_cast<std::int32_t>(number);
        } else {
            return static_cast<Number>(number);
        }
    }

    platform::SettingsStore& store_;
    std::string fault_;
};

}  // namespace

std::string LoadOptions(OptionsData& options, platform::SettingsStore& store, const platform::ProgramFolder& folder) {
    options.HelpFile = folder.path(kHelp);
    options.DefaultScript = folder.path(kScript);

    repository::LoginValues& login = options.repository.login;
    login.ReposConnString = store.value("DB", "ReposConnString", "");
    login.ReposLogin = store.value("DB", "ReposLogin", "");
    login.ReposPasw = platform::ScramblePassword(store.value("DB", "ReposPasw", ""));
    login.User = store.value("DB", "User", "");

    NumberReader numbers(store);
    for (const NumberRow& row : kNumbers) {
        numbers.read(row.section, row.key, options.canvas.*row.value);
    }
    numbers.read("General", "SelColor", options.canvas.SelColor);
    options.repository.SQLPath = store.value("General", "SQLPath", options.DefaultScript);
    numbers.read("General", "TransDepth", options.TransDepth);
    options.WholeNumbers = store.value("General", "WholeNumbers", "0") == "-1";
    options.LogPath = store.value("General", "LogPath", folder.root().string());
    return numbers.fault();
}

void DefaultOptions(OptionsData& options) {
    options.canvas = CanvasSettings{};
    options.repository.SQLPath = options.DefaultScript;
}

}  // namespace orvent::shell
