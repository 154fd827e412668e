#include "editors/set_act_prop.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "canvas/taken_name.h"
#include "editors/scenario_names.h"
#include "forms/name_check.h"
#include "links/synchronize_functions.h"
#include "links/unsynchronize_functions.h"
#include "platform/fault.h"
#include "statements/source_advice.h"
#include "statements/statement_fit.h"

namespace orvent::editors {

using namespace entities;
using platform::Icon;

namespace {

constexpr std::array<forms::NameRule, 3> kLabelRules = {{
    {forms::NameFault::empty, "Please,Give A Non Empty Name!", Icon::critical},
    {forms::NameFault::numeric, "NUMERIC NAMES ARE NOT ALLOWED!\nPLEASE GIVE A VALID NAME"},
    {forms::NameFault::dot, "DOTS ARE NOT ALLLOWED IN NAMES"},
}};

bool isBlank(const std::string& name) {
    return forms::hasFault(name, forms::NameFault::empty);
}

}  // namespace

SetActProp::SetActProp(const EditorServices& services, canvas::CanvasForm& form, canvas::LabelsD& node)
    : Editor(services.repository.messages),
      SetActProp_Functions(form, node, services.catalogue, services.repository.messages, services.repository.progress),
      services_(services) {
    // A catalogue that cannot be read ends the opening, before anything has to be put back.
    services_.catalogue.LoadActivityTypes();
    services_.catalogue.LoadFunctionTypes();
    services_.catalogue.LoadDataTypes();
    services_.nodes.prepare(ParForm, ActiveNode);
    ParForm.setEnabled(false);
    deletedMark_ = ParForm.DeletedNodes->mark();
    LoadActivity();
}

SetActProp::~SetActProp() {
    end();
}

void SetActProp::LoadActivity() {
    ActivityProperties& record = *ActiveNode.activity();
    tempProp = record.Clone();
    mirrorOrder_.emplace(ParForm, record, nullptr);
    links::UnSynchronizeActivity(ParForm, record, false, nullptr);
    keptCaption_ = ActiveNode.Caption();
    txtName = record.Act_Name.empty() ? keptCaption_ : record.Act_Name;
    tempProp->Act_Name = membersName_ = txtName;
    txtDescr = record.Act_Description;
    txtRejected = record.Act_Log;
    if (txtRejected.empty()) {
        const std::string folder =
            services_.repository.store.value("General", "LogPath", services_.folder.root().string());
        txtRejected = folder + std::string(1, std::filesystem::path::preferred_separator) + txtName + ".log";
    }
    txtSQL = tempProp->Act_LDL;
    buildTrees();
    fillLists();
    shownTypes_ = typeChanges();
    ActTypes = tempProp->Act_Type;
    if (!showsType()) {
        ActTypes = -1;
    }
    Saved = true;
    ActiveNode.setReady(false);
}

void SetActProp::setName(const std::string& text) {
    txtName = text;
    tempProp->Act_Name = text;
    tempProp->Changed = true;
    edited();
}

void SetActProp::txtName_Change(const std::string& text) {
    if (text == txtName) {
        return;
    }
    setName(text);
    if (text.empty()) {
        setName(services_.repository.input.ask("Please Give A Name", "An Activity Can Not Be Nameless", ""));
        changed();
    }
}

void SetActProp::txtName_Leave() {
    if (leaving_ || isBlank(txtName) || (txtName == membersName_ && txtName == ActiveNode.Caption())) {
        return;
    }
    leaving_ = true;
    const auto hasDot = [this](const std::string& name) {
        const bool dot = forms::hasFault(name, forms::NameFault::dot);
        if (dot) {
            tell("DOTS ARE NOT ALLLOWED IN NAMES", Icon::warning);
        }
        return dot;
    };
    if (hasDot(txtName)) {
        setName(ActiveNode.Caption());
    } else {
        const std::string former = ActiveNode.Caption();
        while (!takeName(txtName)) {
            const std::string answer =
                services_.repository.input.ask("Give A New Name For This Activity", "DUPLICATE NAME!", txtName);
            setName(isBlank(answer) || hasDot(answer) ? former : answer);
        }
        followName();
    }
    leaving_ = false;
    changed();
}

/// The node's caption takes the name; false when another node has it. Over a zoom view the scenario is asked, too.
bool SetActProp::takeName(const std::string& name) {
    if (isTakenBeyond(ParForm, ActiveNode, name)) {
        canvas::tellTakenName(messages());
        return false;
    }
    ActiveNode.setCaption(name);
    return ActiveNode.KeyName() != canvas::kErrorName;
}

/// Keys and links of the copy follow the name; the rows with them.
void SetActProp::followName() {
    if (txtName == membersName_) {
        return;
    }
    renameOwner(membersName_, txtName);
    membersName_ = txtName;
}

void SetActProp::txtDescr_Change(const std::string& text) {
    if (txtDescr != text) {
        tempProp->Act_Description = txtDescr = text;
        tempProp->Changed = true;
        edited();
    }
}

void SetActProp::txtRejected_Change(const std::string& text) {
    if (txtRejected != text) {
        tempProp->Act_Log = txtRejected = text;
        tempProp->Changed = true;
        if (const std::size_t name = text.find_last_of("/\\"); name != std::string::npos) {
            services_.repository.store.setValue("General", "LogPath", text.substr(0, name));
        }
        edited();
    }
}

void SetActProp::RejectedFileOpen_Click() {
    const std::string path = services_.saveDialog.saveFile("Save Log File As", "Log Files (*.log)|*.log",
                                                           services_.folder.path("\\Logs\\" + ParForm.Caption()),
                                                           platform::OldFile::onlyNamed);
    if (!path.empty()) {
        txtRejected_Change(path);
    }
}

std::string& SetActProp::statement() {
    return LangSelector == Language::LDL ? tempProp->Act_LDL : tempProp->Act_SQL;
}

void SetActProp::txtSQL_Change(const std::string& text) {
    txtSQL = text;
    if (statement() != text) {
        statement() = text;
        tempProp->Changed = true;
        edited();
    }
}

void SetActProp::LangSelector_Click(Language language) {
    LangSelector = language;
    txtSQL = statement();
}

void SetActProp::ActTypes_Click(int index) {
    if (isBlank(txtName)) {
        const std::string name =
            services_.repository.input.ask("You Have To Give A Name For This Activity Before Setting Its Type!",
                                           "Activity's Name", ActiveNode.Caption());
        if (isBlank(name)) {
            ActTypes = -1;
            return;
        }
        setName(name);
    }
    txtName_Leave();
    const std::int16_t former = tempProp->Act_Type;
    SetActivityType(index);
    if (tempProp->Act_Type != former || index == former) {
        ActTypes = index;
    }
}

std::array<std::uint32_t, 3> SetActProp::typeChanges() const {
    const CatalogueTables& tables = catalogue().tables;
    return {tables.dataTypes.changes(), tables.functionTypes.changes(), tables.activityTypes.changes()};
}

void SetActProp::followTypes() {
    if (shownTypes_ != typeChanges()) {
        shownTypes_ = typeChanges();
        refreshRows();
    }
}

void SetActProp::butRefresh_Click() {
    if (LangSelector != Language::LDL) {
        return;
    }
    txtName_Leave();
    const std::string before = tempProp->Act_LDL;
    services_.wizard.LDLCreate(ParForm.scenario(), *tempProp, this);
    txtSQL = tempProp->Act_LDL;
    if (before != tempProp->Act_LDL) {
        edited();
    }
    fillLists();
    changed();
}

std::string SetActProp::statementNote() const {
    return LangSelector == Language::LDL ? statements::misfitLine(*tempProp) : std::string();
}

void SetActProp::setEnabled(bool enabled) {
    Enabled = enabled;
    if (onEnable) {
        onEnable(enabled);
    }
}

void SetActProp::activityBuilt() {
    fillLists();
    edited();
}

void SetActProp::setStatement(const std::string& text) {
    if (LangSelector == Language::LDL) {
        txtSQL_Change(text);
    }
}

const std::string& SetActProp::sourceNote() {
    if (!sourceNote_) {
        sourceNote_.emplace();
        for (const auto& advice : {statements::circleThrough(ParForm.scenario(), *tempProp),
                                   statements::sourceLeftOut(*tempProp, [this] { return templateText(); })}) {
            *sourceNote_ += advice ? (sourceNote_->empty() ? "" : "\n") + advice->words : std::string();
        }
    }
    return *sourceNote_;
}

const std::string& SetActProp::templateText() {
    if (templateType_ != tempProp->Act_Type) {
        templateType_ = tempProp->Act_Type;
        templateText_.clear();
        try {
            if (showsType()) {
                templateText_ = catalogue().wholeActivityType(tempProp->Act_Type).ActType_LDL;
            }
        } catch (const platform::Fault&) {
            // A note is no reason to disturb: without the template it says less.
        }
    }
    return templateText_;
}

void SetActProp::TabStrip1_Click(int tab) {
    TabStrip1 = tab;
    if (tab != kLogTab) {
        SelectedList = static_cast<ActList>(tab);
    }
}

bool SetActProp::ListButtons() const {
    return TabStrip1 != kLogTab && AttList[SelectedList].Count() > 0;
}

namespace {

/// From the graph, activities and what they provide are dropped on the inputs, and any node on the parameters.
bool counts(const forms::Tree::Node& node, ActList front) {
    if (!node.parent() || !node.value().Refusal.empty()) {
        return false;
    }
    if (isFunctionNode(node) || isConstantNode(node)) {
        return front == kParameters;
    }
    const bool hasMembers = node.parent()->parent() || !node.children().empty();
    return hasMembers && (isDatabaseNode(node) || front != kOutputs);
}

}  // namespace

/// Those of the nodes whose drop on the list in front counts.
std::vector<forms::Tree::Node*> SetActProp::takenOf(const std::vector<std::string>& nodeKeys) const {
    std::vector<forms::Tree::Node*> nodes;
    for (const std::string& key : nodeKeys) {
        forms::Tree::Node* inGraph = ActView.find(key);
        forms::Tree::Node* node = inGraph ? inGraph : DBView.find(key);
        if (node && TabStrip1 != kLogTab && counts(*node, SelectedList)) {
            nodes.push_back(node);
        }
    }
    return nodes;
}

bool SetActProp::takes(const std::vector<std::string>& nodeKeys) const {
    return !takenOf(nodeKeys).empty();
}

void SetActProp::Drop(const std::vector<std::string>& nodeKeys, int position) {
    DropNodes(*this, takenOf(nodeKeys), frontList(), position);
}

bool SetActProp::AfterLabelEdit(int row, const std::string& text) {
    const forms::ListRow* shown = frontList().Item(row);
    if (!shown || shown->Text == text) {
        return shown != nullptr;
    }
    if (!forms::checkName(text, kLabelRules, messages())) {
        return false;
    }
    setRowText(row, SelectedList, text);
    RenameInList(row, SelectedList);
    return true;
}

}  // namespace orvent::editors
