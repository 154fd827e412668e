#pragma once

#include <array>
#include <initializer_list>
#include <memory>
#include <string>

#include "canvas/canvas_form.h"
#include "editors/activity_lists.h"
#include "editors/list_rows.h"
#include "editors/schema_trees.h"
#include "editors/tree_view_moving.h"
#include "entities/nodes.h"
#include "forms/list.h"
#include "links/member_rename.h"
#include "platform/dialogs.h"
#include "repository/catalogue.h"

namespace orvent::editors {

/// How a row of the activity dialog and its entity are made, renamed, moved and removed together. All of it works on
/// `tempProp`, the dialog's copy of the activity.
class SetActProp_Functions : public RowOperations {
  public:
    SetActProp_Functions(canvas::CanvasForm& form, canvas::LabelsD& node, repository::Catalogue& catalogue,
                         platform::MessageBox& messages, platform::Progress& progress);

    canvas::CanvasForm& ParForm;
    canvas::LabelsD& ActiveNode;
    std::shared_ptr<entities::ActivityProperties> tempProp;
    ByList<forms::List> AttList;
    forms::Tree ActView;
    forms::Tree DBView;
    ActList SelectedList = kInputs;

    forms::List& frontList() { return AttList[SelectedList]; }

    /// Replaces only what the present type brought. An index beyond the table is told, and so is a type that cannot be
    /// read whole; then nothing is replaced.
    void SetActivityType(int index);

    void RemoveRow(int row);
    void SendOutput(int row);
    void SendParameter(int row);
    /// Why the chosen input cannot be sent to the output, or else to the parameter, of its key; empty when it can.
    std::string whyNotSent(bool toOutput) const;
    void RenameInList(int row, ActList listNumber);
    /// Brings the row of the list in front to another place, and its entity with it.
    void moveRowTo(int row, int to);

    /// Fills the three lists from `tempProp` and marks what they use in the trees.
    void fillLists() { lists_.fill(); }
    /// Members, links and rows follow a new name of the activity.
    void renameOwner(const std::string& formerName, const std::string& newName) {
        lists_.renameOwner(formerName, newName);
    }
    /// The copy and the trees follow what was renamed in the graph.
    void followRenames(const canvas::Renames& renames);
    /// Sets the columns of all rows again.
    void refreshRows() { lists_.refresh(); }

    // RowOperations
    forms::List& listFor(const forms::Tree::Node& node) override;
    std::string rowKeyOf(const forms::Tree::Node& node) const override;
    void AddRow(forms::Tree::Node& node, int position) override;
    void RemoveRowByTree(forms::Tree::Node& node) override;
    void moveMany(const std::function<void()>& moves) override;

  protected:
    /// Something of the copy was changed.
    virtual void edited() = 0;
    /// Another list came forward.
    virtual void tabMoved() = 0;
    /// A new member bears the bare name of its source, where that is free, and not its key.
    virtual bool givesShortNames() const = 0;

    /// The entity takes the text of its row.
    void renameMember(int row, ActList listNumber);
    /// Sets the text of a row, which its entity does not know yet.
    void setRowText(int row, ActList listNumber, const std::string& text) { lists_.setText(listNumber, row, text); }
    /// Fills the trees with what the scenario offers.
    void buildTrees() { buildSchemaTrees(ParForm, ActiveNode, ActView, DBView); }

    repository::Catalogue& catalogue() const { return catalogue_; }

  private:
    forms::List& list(ActList number) { return AttList[number]; }

    /// The name of a new member with that key, which no row of these lists has.
    std::string newName(const forms::Tree::Node& node, const std::string& key, std::initializer_list<ActList> among);
    void addInput(const forms::Tree::Node& node, const std::string& key, int position);
    void addMirror(const entities::AttributeProperties& input);
    void addOutput(const forms::Tree::Node& node, const std::string& key, int position);
    void addParameter(const forms::Tree::Node& node, const std::string& key, int position);
    void addFunction(const forms::Tree::Node& node, int position);
    int parameterPlace(int position) const;
    void moveParameter(const std::string& key, int position);

    void removeInput(const std::string& key);
    void removeOutput(const std::string& key);
    void removeParameter(const std::string& key);
    void removeFunction(const std::string& key);
    template <class List>
    bool removeMember(List& members, const std::string& key, entities::NodeKindCode kind);
    void note(std::int16_t id, entities::NodeKindCode kind);
    bool unlink(const std::string& nodeKey, ActList number, int row);
    void removeTypeMembers();
    void addTypeMembers(const entities::ActivityTypeProperties& type, entities::Act_FunctionsCollection& functions);

    template <class Member>
    void sendInput(int row, Member* member, const char* taken);
    bool takesType(std::int16_t source, std::int16_t& target);

    entities::ActivityProperties* self() { return tempProp.get(); }

    repository::Catalogue& catalogue_;
    platform::MessageBox& messages_;
    platform::Progress& progress_;
    ActivityLists lists_;
};

}  // namespace orvent::editors
