#include "shell/options_form.h"

#include "platform/fault.h"
#include "platform/text.h"

namespace orvent::shell {

namespace {

using canvas::CanvasSettings;
using enum OptionGroup;

// Fixed, so that stored sizes do not depend on the screen.
constexpr float kTwipsPerPixel = 15;

constexpr std::array<OptionField, 14> kFields = {{
    {"Text1", zoom, "Activity-RecordSet\nFunction-Constant", "Height", "BigHeight", &CanvasSettings::BigHeight},
    {"Text2", zoom, "Attribute-Parameter Height:", "", "Height", &CanvasSettings::Height},
    {"Text3", zoom, "Nodes Width:", "", "Width", &CanvasSettings::Width},
    {"Text4", zoom, "Zoomed Activity-Entities Distance:", "", "BigDist", &CanvasSettings::BigDist},
    {"Text5", zoom, "Activity-SubNodes Distance:", "", "WDist", &CanvasSettings::WDist},
    {"Text6", zoom, "Nodes Vertical Distance:", "", "HDist", &CanvasSettings::HDist},
    {"Text7", draw, "Activity:", "Height", "ActH", &CanvasSettings::ActH},
    {"Text8", draw, "Activity:", "Width", "ActW", &CanvasSettings::ActW},
    {"Text9", draw, "Record Set:", "Height", "RecH", &CanvasSettings::RecH},
    {"Text10", draw, "Record Set:", "Width", "RecW", &CanvasSettings::RecW},
    {"Text11", draw, "Comment:", "Height", "ComH", &CanvasSettings::ComH},
    {"Text12", draw, "Comment:", "Width", "ComW", &CanvasSettings::ComW},
    {"Text13", draw, "Log:", "Height", "LogH", &CanvasSettings::LogH},
    {"Text14", draw, "Log:", "Width", "LogW", &CanvasSettings::LogW},
}};

float twipsOf(const std::string& text, const OptionField& field) {
    const auto pixels = platform::parseNumber(text);
    if (!pixels) {
        throw platform::Fault("This is no number: \"" + text + "\" (" + field.key + ")");
    }
    return static_cast<float>(*pixels * kTwipsPerPixel);
}

}  // namespace

std::span<const OptionField, 14> optionFields() {
    return kFields;
}

void OptionsForm::open() {
    for (std::size_t i = 0; i < kFields.size(); ++i) {
        Text[i] = platform::numberText(options_.canvas.*kFields[i].value / kTwipsPerPixel);
    }
    lblColor = options_.canvas.SelColor;
    txtSQL = options_.repository.SQLPath;
}

void OptionsForm::butAplly() {
    std::array<float, kFields.size()> twips{};
    for (std::size_t i = 0; i < kFields.size(); ++i) {
        twips[i] = twipsOf(Text[i], kFields[i]);
    }
    for (std::size_t i = 0; i < kFields.size(); ++i) {
        ports_.store.setValue(kFields[i].group == zoom ? "Zoom" : "Draw", kFields[i].key,
                              platform::numberText(twips[i]));
    }
    ports_.store.setValue("General", "SelColor", std::to_string(lblColor));
    ports_.store.setValue("General", "SQLPath", txtSQL);
    for (std::size_t i = 0; i < kFields.size(); ++i) {
        options_.canvas.*kFields[i].value = twips[i];
    }
    options_.canvas.SelColor = lblColor;
    options_.repository.SQLPath = txtSQL;
}

void OptionsForm::butDefault() {
    DefaultOptions(options_);
    open();
    if (changed) {
        changed();  // the message stands over the fields that it speaks of
    }
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

}  // namespace orvent::shell
