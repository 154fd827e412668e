#include "tour_wizard.h"

#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <algorithm>
#include <string>

#include "entities/link_types.h"
#include "qt/shell/desk_area.h"
#include "tour_dialogs.h"
#include "tour_hand.h"

namespace orvent::tour {

namespace {

constexpr const char* kAttributes[] = {"ID", "REGION", "AMOUNT"};
constexpr const char* kOrders = "ORDERS";

/// One variable of a template and what the tour makes of it.
struct VariableStep {
    const char* option;
    const char* constant;               ///< or null
    const char* function;               ///< or null
    const char* regulator;              ///< or null
    std::initializer_list<int> inputs;  ///< attributes by position; several for an array
    const char* dataType = nullptr;     ///< of a constant or an output; null for the first one
};

const std::initializer_list<VariableStep> kSelection = {
    {"optParam", nullptr, nullptr, nullptr, {2}},
    {"optParam", ">", nullptr, nullptr, {}},
    {"optParam", "100", nullptr, nullptr, {}},
};

/// The rows whose third input is 1.
const std::initializer_list<VariableStep> kFirstOnes = {
    {"optParam", nullptr, nullptr, nullptr, {2}},
    {"optParam", "=", nullptr, nullptr, {}, "VARCHAR2"},
    {"optParam", "1", nullptr, nullptr, {}, "NUMBER"},
};

const std::initializer_list<VariableStep> kAggregation = {
    {"optParamArray", nullptr, nullptr, nullptr, {0, 1}}, {"optFunction", nullptr, "sum", nullptr, {}},
    {"optFunctionParam", nullptr, nullptr, nullptr, {2}}, {"optFunctionOutput", nullptr, nullptr, nullptr, {}},
    {"optOutput", nullptr, nullptr, "AGGRVALUE", {}},
};

entities::ActivityProperties& addActivity(canvas::DrawForm& form, const std::string& name, float top,
                                          std::int16_t type) {
    canvas::LabelsD& node = form.Labels.Add({6000, top, 1050, 450}, name, canvas::NodeTypeActivity, name);
    entities::ActivityProperties& activity = *node.activity();
    activity.Act_Type = type;
    entities::RecordSetProperties& source = *form.nodeNamed(kOrders)->recordSet();
    for (const std::string attribute : kAttributes) {
        entities::AttributeProperties& input = activity.Act_Inputs->Add(attribute, 0, entities::TagNone, attribute);
        input.ParentKeyName = name;
        input.ProvidedFrom->Add(kOrders, entities::LinkRecordSet, kOrders + ("." + attribute));
        source.RecordSet_Outputs->Item(attribute)->ProviderFor->Add(name, entities::LinkRecordSet,
                                                                    name + ".IN." + attribute);
    }
    for (const std::string output : {"ID", "REGION"}) {
        activity.Act_Outputs->Add(output, 0, entities::TagNone, output).ParentKeyName = name;
    }
    return activity;
}

class Wizard {
  public:
    Wizard(Player& player, QWidget& dialog, std::string name)
        : player_(player), dialog_(dialog), name_(std::move(name)) {}

    void play(const std::initializer_list<VariableStep>& steps) {
        player_.picture(dialog_, name_ + "-opened");
        std::size_t number = 0;
        for (const VariableStep& step : steps) {
            define(step);
            player_.picture(dialog_, name_ + "-variable-" + std::to_string(++number));
            if (number < steps.size()) {
                Player::press(dialog_, "cmdNext");
            }
        }
        Player::press(dialog_, "cmdGenerateLDL");
        player_.picture(dialog_, name_ + "-generated");
        Player::press(dialog_, "cmdCreateAct");
        player_.picture(dialog_, name_ + "-created");
        Player::press(dialog_, "cmdOK");
    }

  private:
    template <class Control>
    Control& control(const char* name) {
        return static_cast<Control&>(Player::child(dialog_, name));
    }

    void define(const VariableStep& step) {
        control<QRadioButton>(step.option).click();
        if (step.inputs.size() > 1) {
            take();
        } else if (step.inputs.size() == 1) {
            control<QComboBox>("listInputs").setCurrentIndex(0);
            control<QComboBox>("listInputAttributes").setCurrentIndex(*step.inputs.begin());
        }
        if (step.constant) {
            Player::type(control<QWidget>("txtConst"), QLatin1String(step.constant));
        }
        if (step.function) {
            Player::type(control<QWidget>("txtFunctionName"), QLatin1String(step.function));
        }
        if (step.regulator) {
            control<QComboBox>("listLDLvars").setCurrentText(QLatin1String(step.regulator));
        }
        auto& dataTypes = control<QComboBox>("listDataTypes");
        if (dataTypes.isVisible() && step.inputs.size() == 0) {
            dataTypes.setCurrentIndex(step.dataType ? dataTypes.findText(QLatin1String(step.dataType)) : 0);
        }
    }

    /// Chooses among the inputs of the source; the window of the choice is the next one.
    void take() {
        QMenu& menu = *control<QPushButton>("butTakeBunch").menu();
        Q_EMIT menu.aboutToShow();
        player_.expect(menu.actions().size() == 2, "not all inputs, or some, can be taken");
        menu.actions().back()->trigger();
        player_.expect(control<QListWidget>("listArrity").count() == 2, "the inputs were not taken");
    }

    Player& player_;
    QWidget& dialog_;
    std::string name_;
};

/// The inputs but the last one.
void chooseInputs(Player& player, QWidget& choice) {
    auto& rows = static_cast<QTreeWidget&>(Player::child(choice, "Rows"));
    rows.topLevelItem(rows.topLevelItemCount() - 1)->setCheckState(0, Qt::Unchecked);
    player.picture(choice, "wizard-take");
    Player::press(choice, "cmdTake");
}

/// Chooses the wizard in the activity's menu.
void openWizard(Player& player, qt::FrameWindow& window, canvas::LabelsD& node) {
    Hand hand(window);
    hand.tool("Arrow");
    const canvas::Point at{node.Left() + 200, node.Top() + 200};
    hand.move(at);
    hand.press(at, Qt::RightButton);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    player.expect(menu != nullptr, "the activity has no menu");
    if (!menu) {
        return;
    }
    auto* item = menu->findChild<QAction*>(QStringLiteral("CreateFromLDLM"));
    player.expect(item != nullptr, "the wizard is not in the activity's menu");
    menu->close();
    if (item) {
        item->trigger();
    }
}

void create(Player& player, qt::FrameWindow& window, const char* name,
            const std::initializer_list<VariableStep>& steps) {
    canvas::LabelsD& node = *window.area().active()->nodeNamed(name);
    std::deque<Player::Answer> answers = {[&](QWidget& dialog) {
        Player::press(dialog, "cmdParseLDL");
        Wizard(player, dialog, std::string("wizard-") + name).play(steps);
    }};
    if (std::any_of(steps.begin(), steps.end(), [](const VariableStep& step) { return step.inputs.size() > 1; })) {
        answers.emplace_back([&](QWidget& choice) { chooseInputs(player, choice); });
    }
    answers.emplace_back([](QWidget& box) { Player::press(box, "OK"); });
    player.during(
        name, [&] { openWizard(player, window, node); }, std::move(answers));
    player.expect(!node.activity()->Act_LDL.empty() && node.activity()->Act_LDL.find('@') == std::string::npos,
                  std::string(name) + " has no whole statement");
}

}  // namespace

void selectByWizard(Player& player, QWidget& dialog, const std::string& name) {
    Wizard(player, dialog, name).play(kFirstOnes);
}

std::deque<Player::Answer> leaveWizards(canvas::DrawForm& form) {
    std::deque<Player::Answer> answers;
    for (int node = 1; node <= form.Labels.Count(); ++node) {
        const entities::ActivityProperties* activity = form.Labels.at(node)->activity();
        if (activity && activity->Act_LDL.empty() && activity->Act_Type != -1) {
            answers.emplace_back([](QWidget& dialog) { Player::press(dialog, "cmdCancel"); });
        }
    }
    return answers;
}

void playWizard(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme) {
    std::string name = "Made by the wizard";
    frame.NewScenario(name);
    canvas::DrawForm& form = window.area().active()->scenario();
    canvas::LabelsD& source = form.Labels.Add({1500, 2400, 1050, 450}, kOrders, canvas::NodeTypeRecordSet, kOrders);
    for (const std::string attribute : kAttributes) {
        source.recordSet()->RecordSet_Outputs->Add(attribute, 0, attribute).ParentKeyName = kOrders;
    }
    addActivity(form, "Large", 1500, frame.catalogue().ActivityTypeIndex("Selection"));
    addActivity(form, "Totals", 3300, frame.catalogue().ActivityTypeIndex("Aggregation"));
    QApplication::processEvents();
    create(player, window, "Large", kSelection);
    theme.setMode(qt::ThemeMode::dark);
    create(player, window, "Totals", kAggregation);
    theme.setMode(qt::ThemeMode::light);
    closeScenario(player, frame);
}

}  // namespace orvent::tour
