#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "editors/source_databases.h"
#include "links/mirror_order.h"

namespace orvent::editors {

/// `RecordSetProp`: the dialog that defines a record set. Its attributes come from a tree of source databases. It works
/// on a copy, `tempProp`, which OK gives to the graph; the record set stays out of the links while it is open.
class RecordSetProp : public forms::Editor, public SourceDatabases, private RowOperations {
  public:
    RecordSetProp(const EditorServices& services, canvas::CanvasForm& form, canvas::LabelsD& node);
    ~RecordSetProp() override;

    canvas::CanvasForm& ParForm;
    canvas::LabelsD& ActiveNode;
    std::shared_ptr<entities::RecordSetProperties> tempProp;
    forms::List AttList;
    std::unordered_map<std::string, std::string> OldKeys;  ///< the first `Key` of each attribute under its present one

    std::string txtRecordSetName, txtSQL;
    bool SQLOption = false;  ///< the statement is in use: `txtSQL` is enabled

    void txtRecordSetName_Change(const std::string& text);
    void txtSQL_Change(const std::string& text);
    void SQLOption_Click(bool on) { SQLOption = on; }
    /// The window is closed neither by OK nor by Cancel: asks when that would lose changes. True when it closes.
    bool mayDismiss();
    /// The SELECT of what comes from a database; what does not is left out and told.
    void SQLAuto_Click();

    // Columns that no database has yet: they stand under their names, with an empty source. One is bound to a table
    // when a column of its name is taken from there.

    std::string txtColumnName;
    std::vector<std::string> ColumnTypes;  ///< names of the catalogue
    int ColumnType = -1;                   ///< the chosen one, from 0
    /// Adds a column of that name and type behind the others. False when it was refused, which was told.
    bool AddColumn_Click();
    /// Asks what to take over from other nodes or from a text.
    void TakeOver_Click();

    bool ListButtons() const { return AttList.Count() > 0; }
    void MoveRow_Click(forms::RowMove where);
    void MoveRows(const std::vector<int>& rows, int place);
    void Move2Tree_Click();
    void MoveAll2Tree_Click();
    void CutFullNames_Click();
    void RestoreFullNames_Click();
    void NodeClick(const std::vector<forms::Tree::Node*>& nodes) { NodeCheck(*this, nodes); }
    void Drop(const std::vector<std::string>& nodeKeys, int position);
    /// False: the label keeps its text.
    bool AfterLabelEdit(int row, const std::string& text);
    /// In a zoom view names are not edited here.
    bool ListItemEditM() const { return !ParForm.isZoom(); }

  protected:
    bool apply() override;
    void closing() override;

  private:
    forms::List& listFor(const forms::Tree::Node&) override { return AttList; }
    std::string rowKeyOf(const forms::Tree::Node& node) const override;
    void AddRow(forms::Tree::Node& node, int position) override;
    void RemoveRowByTree(forms::Tree::Node& node) override;
    void moveMany(const std::function<void()>& moves) override;
    bool isUsed(const std::string& key) const override { return AttList.Item(key) != nullptr; }

    void markEdited();
    static std::string targetsOf(const entities::AttributeProperties& attribute);  ///< whole keys
    void fillList();
    void fillColumnTypes();
    std::optional<std::int16_t> takenName(const std::string& name) const;  ///< as in `TakeOverForm::TakenName`
    void addAttribute(const std::string& name, std::int16_t type, const std::string& dbKey, int position);
    void bindColumn(entities::AttributeProperties& attribute, const std::string& dbKey);
    void RemoveRow(int row);
    void moveRowTo(int row, int to);
    bool rename(int row, const std::string& name);
    bool renameAll(const std::function<std::string(const std::string& rowKey)>& name);
    void putBack();
    void renameInGraph(entities::RecordSetProperties& record, const std::string& formerName);
    void applyRecord(const std::string& formerName);
    void tellTaken();
    void tell(const char* text) { messages().tell(text, {}, platform::Icon::warning); }

    std::optional<links::MirrorOrder> mirrorOrder_;  ///< of the neighbours as the dialog found it
    std::vector<std::int16_t> columnTypes_;          ///< in the catalogue
    bool edited_ = false;                            ///< something was changed by hand
    int deletedMark_ = 0;
    bool taken_ = false;  // of several nodes that move together, one was refused; it is told once
};

}  // namespace orvent::editors
