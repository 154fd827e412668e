#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "editors/set_act_prop_functions.h"
#include "forms/dialog_port.h"
#include "forms/editor.h"
#include "links/member_rename.h"
#include "links/mirror_order.h"
#include "platform/program_folder.h"
#include "platform/save_dialog.h"
#include "statements/activity_wizard.h"

namespace orvent::editors {

/// What a dialog over a zoom view asks of it: its node is collapsed while the dialog is open, so that its entity holds
/// all its members, and expanded when it closes. In a design window both do nothing.
class NodePreparation {
  public:
    virtual ~NodePreparation() = default;
    virtual void prepare(canvas::CanvasForm& form, canvas::LabelsD& node) = 0;
    virtual void refresh(canvas::CanvasForm& form, canvas::LabelsD& node) = 0;
};

/// What the entity dialogs ask of the outside.
struct EditorServices {
    repository::Services& repository;
    repository::Catalogue& catalogue;
    statements::ActivityWizard& wizard;
    const platform::ProgramFolder& folder;
    platform::SaveDialog& saveDialog;
    NodePreparation& nodes;
    const forms::Dialogs& dialogs;
    const bool* shortNames = nullptr;  ///< new members bear the bare names of their sources, where those are free
};

/// `SetActProp`: the dialog that defines an activity. It works on a copy, `tempProp`; the graph changes when it is
/// applied. The activity stays out of the links from opening to closing, and its window takes no input.
class SetActProp : public forms::Editor, public SetActProp_Functions, public statements::ActivityDialog {
  public:
    enum class Language { LDL, SQL };
    static constexpr int kLogTab = 3;

    SetActProp(const EditorServices& services, canvas::CanvasForm& form, canvas::LabelsD& node);
    ~SetActProp() override;

    // Controls.
    std::string txtName, txtDescr, txtRejected, txtSQL;
    int ActTypes = -1;                           ///< the chosen type's index in the catalogue
    Language LangSelector = Language::LDL;       ///< which statement `txtSQL` shows
    int TabStrip1 = tabOf(kInputs);              ///< the three lists, then the log's tab
    bool ReportView = true;                      ///< the lists show their columns
    bool Enabled = true;                         ///< false while the wizard is open over it
    std::function<void(bool enabled)> onEnable;  ///< set by the window
    // Set by who opens it.
    std::function<void()> onApplied;  ///< the graph holds what the dialog shows
    std::function<void()> onEnd;      ///< its window takes input again

    void txtName_Change(const std::string& text);
    void txtName_Leave();
    void txtDescr_Change(const std::string& text);
    void txtRejected_Change(const std::string& text);
    void RejectedFileOpen_Click();
    void txtSQL_Change(const std::string& text);
    void LangSelector_Click(Language language);
    void ActTypes_Click(int index);
    void butRefresh_Click();
    void TabStrip1_Click(int tab);
    /// Brings the list forward in which the row of a member, or of a function, stands, and selects the row.
    void showRow(entities::NodeKindCode kind, const std::string& key);
    void ShowDetailsM_Click() { ReportView = !ReportView; }

    /// Whether the list buttons are enabled: the list in front has a row.
    bool ListButtons() const;
    // The buttons act on all selected rows.
    void MoveRow_Click(forms::RowMove where);
    /// Brings rows of the list in front before the one at `place`, 0 for behind the last.
    void MoveRows(const std::vector<int>& rows, int place);
    void Move2Tree_Click();
    void MoveAll2Tree_Click();
    void ItemSendOutputM_Click() { SendOutput(frontList().selected()); }
    void ItemSendParamM_Click() { SendParameter(frontList().selected()); }
    void CutFullNamesM_Click();
    void RestoreNamesM_Click();
    void RefreshHeadersM_Click() { refreshRows(); }
    /// A click on nodes of one tree.
    void NodeClick(const std::vector<forms::Tree::Node*>& nodes) { NodeCheck(*this, nodes); }
    /// A dragged node comes near the edge of its tree: the list that receives it comes forward.
    void DragOut(const forms::Tree::Node& node) { listFor(node); }
    /// Whether a drop of nodes of these keys on the list in front counts.
    bool takes(const std::vector<std::string>& nodeKeys) const;
    void Drop(const std::vector<std::string>& nodeKeys, int position);
    /// False: the label keeps its text.
    bool AfterLabelEdit(int row, const std::string& text);

    /// Where the shown statement does not fit the members any more; empty when it does, or was written by hand.
    std::string statementNote() const;

    /// What does not fit between the activity and its sources, in words; empty when all does.
    const std::string& sourceNote();

    const entities::NameTable& typeNames() const { return catalogue().tables.activityTypes; }
    /// What `ActTypes` offers, by index; a type that is gone only while the activity has it.
    std::vector<std::int16_t> offeredTypes() const { return typeNames().listed(tempProp->Act_Type); }
    /// The catalogue may have other names by now: the rows tell those of their types.
    void followTypes();

    /// `Apply` without a word of success, for a change that is made without the window.
    bool takeOver();

    // ActivityDialog
    void setEnabled(bool enabled) override;
    void activityBuilt() override;
    void setStatement(const std::string& text) override;

  protected:
    bool apply() override;
    bool isComplete() const override;
    std::optional<forms::ClosingQuestion> closingQuestion() const override;
    void closing() override;
    void edited() override {
        Saved = false;
        sourceNote_.reset();
    }
    void tabMoved() override { TabStrip1 = tabOf(SelectedList); }
    bool givesShortNames() const override { return services_.shortNames && *services_.shortNames; }

  private:
    void LoadActivity();
    void putBack();
    bool ApplyActivity();
    void bindFunctions(const entities::ActivityProperties& former, entities::ActivityProperties& now);
    canvas::Renames renameInGraph(entities::ActivityProperties& record);
    const std::string& templateText();
    bool takeName(const std::string& name);
    void followName();
    void setName(const std::string& text);
    template <class Text>
    bool renameRows(Text text);
    std::string& statement();
    /// Whether `ActTypes` shows a type.
    bool showsType() const { return ActTypes >= 0 && !typeNames().shown(static_cast<std::int16_t>(ActTypes)).empty(); }
    std::array<std::uint32_t, 3> typeChanges() const;
    std::vector<forms::Tree::Node*> takenOf(const std::vector<std::string>& nodeKeys) const;
    void tell(const char* text, platform::Icon icon) { messages().tell(text, {}, icon); }

    EditorServices services_;
    std::string keptCaption_;                        ///< the caption that closing without Apply puts back
    std::string membersName_;                        ///< the name that keys and links of the copy bear
    std::optional<links::MirrorOrder> mirrorOrder_;  ///< of the neighbours, while the activity is out of the links
    int deletedMark_ = 0;
    std::optional<std::string> sourceNote_;  ///< nothing: to be looked for
    std::string templateText_;               ///< of the type `templateType_`
    int templateType_ = -1;
    bool leaving_ = false;
    std::array<std::uint32_t, 3> shownTypes_{};  ///< the tables as the rows tell them
};

}  // namespace orvent::editors
