#include "shell/options_form.h"

#include <array>
#include <cmath>
#include <filesystem>
#include <limits>
#include <utility>

#include "platform/fault.h"
#include "platform/text.h"

namespace orvent::shell {

namespace {

float twipsOf(const std::string& text, const OptionField& field) {
    const auto pixels = platform::parseNumber(text);
    const double twips = pixels.value_or(0) * canvas::kTwipsPerPixel;
    if (!pixels || std::abs(twips) > std::numeric_limits<float>::max()) {
        throw platform::Fault("This is no number: \"" + text + "\" (" + field.key + ")");
    }
    return static_cast<float>(twips);
}

std::int32_t rowsOf(const std::string& text) {
    const auto rows = platform::parseInteger(text);
    if (!rows || *rows < 1 || *rows > std::numeric_limits<std::int32_t>::max()) {
        throw platform::Fault("This is no number of rows: \"" + text + "\" (SampleRows)");
    }
    return static_cast<std::int32_t>(*rows);
}

}  // namespace

void OptionsForm::open() {
    const auto fields = optionFields();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        Text[i] = platform::numberText(options_.canvas.*fields[i].value / canvas::kTwipsPerPixel);
    }
    lblColor = options_.canvas.SelColor;
    txtSQL = options_.repository.SQLPath;
    Problems = options_.problems;
    ShortNames = options_.ShortNames;
    SampleRows = std::to_string(options_.SampleRows);
    Functions = options_.functions.rows();
}

bool OptionsForm::apply() {
    const auto fields = optionFields();
    std::array<float, 14> twips{};
    for (std::size_t i = 0; i < fields.size(); ++i) {
        twips[i] = twipsOf(Text[i], fields[i]);
    }
    const std::int32_t rows = rowsOf(SampleRows);
    sql::OwnFunctions functions(Functions);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        ports_.store.setValue(fields[i].section(), fields[i].key, platform::numberText(twips[i]));
    }
    ports_.store.setValue("General", "SelColor", std::to_string(lblColor));
    ports_.store.setValue("General", "SQLPath", txtSQL);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        options_.canvas.*fields[i].value = twips[i];
    }
    options_.canvas.SelColor = lblColor;
    options_.repository.SQLPath = txtSQL;
    options_.ShortNames = ShortNames;
    ports_.store.setValue("General", "ShortNames", ShortNames ? "-1" : "0");
    ports_.store.setValue("General", "SqlFunctions", functions.text());
    options_.functions = std::move(functions);
    ports_.store.setValue("General", "SampleRows", std::to_string(rows));
    options_.SampleRows = rows;
    StoreProblems(options_.problems = Problems, ports_.store);
    return true;
}

void OptionsForm::butDefault() {
    DefaultOptions(options_);
    open();
    changed();  // the message stands over the fields that it speaks of
    ports_.messages.tell("All Options Restored To Default Values", "Restored Options", platform::Icon::information);
}

void OptionsForm::chooseColour() {
    lblColor = ports_.colours.choose(lblColor).value_or(lblColor);
}

void OptionsForm::SqlOpen() {
    const std::string path = ports_.files.openFile("SQL Files (*.sql)|*.sql");
    if (!path.empty()) {
        txtSQL = path;
    }
}

bool OptionsForm::hasScript() const {
    std::error_code unreachable;
    return std::filesystem::is_regular_file(txtSQL, unreachable);
}

}  // namespace orvent::shell
