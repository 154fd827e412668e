#include "editors/record_set_prop.h"

#include <utility>

#include "canvas/taken_name.h"
#include "editors/list_rows.h"
#include "editors/scenario_names.h"
#include "forms/name_check.h"
#include "links/member_rename.h"
#include "links/mirror_exchange.h"
#include "links/synchronize_functions.h"
#include "links/unsynchronize_functions.h"

namespace orvent::editors {

using namespace entities;
using forms::Tree;
using platform::Icon;

namespace {

/// The keys that attributes of the graph get, by those that they have.
std::unordered_map<std::string, std::string> newKeysOf(const RecordSetProperties& record,
                                                       std::unordered_map<std::string, std::string>& OldKeys) {
    std::unordered_map<std::string, std::string> newKeys;
    for (const AttributeProperties& attribute : record.RecordSet_Outputs) {
        // A new one may bear the key that a renamed one had.
        if (const std::string& former = OldKeys[attribute.Key]; former == attribute.Key) {
            newKeys.emplace(former, attribute.Key);
        } else {
            newKeys[former] = attribute.Key;
        }
    }
    return newKeys;
}

void dropGone(canvas::CanvasForm& form, RecordSetProperties& record,
              const std::unordered_map<std::string, std::string>& newKeys) {
    for (int at = record.RecordSet_Outputs.count(); at >= 1; --at) {
        AttributeProperties& attribute = *record.RecordSet_Outputs->Item(at);
        if (!newKeys.count(attribute.Key)) {
            links::UnSynchronizeAttribute(form, attribute, true, nullptr);
            record.RecordSet_Outputs->Remove(at);
        }
    }
}

}  // namespace

RecordSetProp::RecordSetProp(const EditorServices& services, canvas::CanvasForm& form, canvas::LabelsD& node)
    : Editor(services.repository.messages), SourceDatabases(services), ParForm(form), ActiveNode(node) {
    services_.nodes.prepare(ParForm, ActiveNode);
    ParForm.setEnabled(false);
    deletedMark_ = ParForm.DeletedNodes->mark();
    Saved = false;
    RecordSetProperties& record = *ActiveNode.recordSet();
    tempProp = record.Clone();
    txtRecordSetName = record.RecordSet_Name.empty() ? ActiveNode.Caption() : record.RecordSet_Name;
    tempProp->RecordSet_Name = txtRecordSetName;
    txtSQL = record.RecordSet_SQL;
    SQLOption = !txtSQL.empty();
    fillList();
    fillColumnTypes();
    mirrorOrder_.emplace(ParForm, record);
    links::UnSynchronizeRecordSet(ParForm, record, false, nullptr);
}

std::string RecordSetProp::targetsOf(const AttributeProperties& attribute) {
    std::string keys;
    for (const ProviderProperties& link : attribute.ProviderFor) {
        keys += (keys.empty() ? "" : ", ") + link.Provider_Key();
    }
    return keys;
}

RecordSetProp::~RecordSetProp() {
    end();
}

void RecordSetProp::fillList() {
    AttList.showHint("Drag columns here");
    AttList.rebuild([&] {
        for (const AttributeProperties& attribute : tempProp->RecordSet_Outputs) {
            const std::string dbKey = tempProp->dbKey(attribute.Key);
            forms::ListRow row = newRow(dbKey.empty() ? attribute.Key : dbKey, attribute.Key, TagNone, RowKind::output);
            row.SubItems[0] = services_.catalogue.tables.dataTypes.shown(attribute.Attribute_Type);
            row.Tip = linksTip(dbKey, targetsOf(attribute));
            AttList.add(std::move(row));
            OldKeys[attribute.Key] = attribute.Key;
        }
    });
}

void RecordSetProp::markEdited() {
    tempProp->Changed = true;
    edited_ = true;
}

bool RecordSetProp::mayDismiss() {
    return !edited_ || messages().show("The changes of this record set have not been applied.", "Record Set Properties",
                                       platform::Icon::warning, platform::Buttons::discardGoOn) == platform::Answer::ok;
}

void RecordSetProp::txtRecordSetName_Change(const std::string& text) {
    if (txtRecordSetName != text) {
        tempProp->RecordSet_Name = txtRecordSetName = text;
        markEdited();
    }
}

void RecordSetProp::txtSQL_Change(const std::string& text) {
    txtSQL = text;
    if (tempProp->RecordSet_SQL != text) {
        tempProp->RecordSet_SQL = text;
        markEdited();
    }
}

std::string RecordSetProp::rowKeyOf(const Tree::Node& node) const {
    return node.parent() && node.parent()->parent() ? node.value().Key : std::string();
}

void RecordSetProp::AddRow(Tree::Node& node, int position) {
    const std::string rowKey = rowKeyOf(node);
    if (rowKey.empty()) {
        return;
    }
    const std::string name = AfterLastDot(rowKey);
    AttributeProperties* known = tempProp->RecordSet_Outputs->Item(name);
    if (known && tempProp->dbKey(name).empty()) {
        bindColumn(*known, rowKey);
    } else if (known) {
        taken_ = true;
        tellTaken();
    } else {
        addAttribute(name, node.value().Tag, rowKey, position);
        markNode(rowKey, true);
    }
}

void RecordSetProp::addAttribute(const std::string& name, std::int16_t type, const std::string& dbKey, int position) {
    AttributeProperties attribute;
    attribute.Attribute_Name = attribute.Key = name;
    attribute.Attribute_Type = type;
    attribute.NodeKind = KindRecordSetAttribute;
    attribute.ParentKeyName = tempProp->RecordSet_Name;
    tempProp->RecordSet_Outputs->AddFullAttribute(attribute, "", false, position);
    tempProp->addDbKey(name, dbKey);
    markEdited();
    OldKeys[name] = name;
    forms::ListRow row = newRow(dbKey.empty() ? name : dbKey, name, TagNone, RowKind::output);
    row.SubItems[0] = services_.catalogue.tables.dataTypes.shown(type);
    row.Tip = linksTip(dbKey, {});
    AttList.add(std::move(row), position);
}

void RecordSetProp::tellTaken() {
    if (!marksMany() && std::exchange(taken_, false)) {
        messages().tell("A NODE WITH THE SAME NAME ALLREADY EXISTS!!", "DUPLICATE NAME", Icon::critical);
    }
}

void RecordSetProp::moveMany(const std::function<void()>& moves) {
    {
        const forms::List::Gathering list(AttList);
        markMany(moves);
    }
    tellTaken();
}

void RecordSetProp::RemoveRowByTree(Tree::Node& node) {
    RemoveRow(AttList.positionOf(node.value().Key));
}

void RecordSetProp::RemoveRow(int row) {
    const forms::ListRow* shown = AttList.Item(row);
    if (!shown) {
        return;
    }
    const std::string name = shown->Text;
    markNode(shown->Key, false);
    if (AttributeProperties* attribute = tempProp->RecordSet_Outputs->Item(name)) {
        links::UnSynchronizeAttribute(ParForm, *attribute, true, nullptr);
        if (attribute->SubNode_ID != 0) {
            ParForm.DeletedNodes->Add(attribute->SubNode_ID, KindRecordSetAttribute);
        }
        tempProp->RecordSet_Outputs->Remove(name);
    }
    tempProp->DB2Key->Remove(name);
    OldKeys.erase(name);
    markEdited();
    AttList.remove(row);
}

void RecordSetProp::MoveAll2Tree_Click() {
    moveMany([this] {
        for (int row = AttList.Count(); row >= 1; --row) {
            RemoveRow(row);
        }
    });
}

void RecordSetProp::Move2Tree_Click() {
    moveMany([this] {
        removeSelected(
            AttList, [](const forms::ListRow&) { return true; }, [this](int row) { RemoveRow(row); });
    });
}

void RecordSetProp::Drop(const std::vector<std::string>& nodeKeys, int position) {
    std::vector<Tree::Node*> nodes;
    for (const std::string& key : nodeKeys) {
        if (Tree::Node* node = DBView.find(key)) {
            nodes.push_back(node);
        }
    }
    DropNodes(*this, nodes, AttList, position);
}

void RecordSetProp::MoveRow_Click(forms::RowMove where) {
    moveSelected(AttList, where, [this](int row, int to) { moveRowTo(row, to); });
}

void RecordSetProp::MoveRows(const std::vector<int>& rows, int place) {
    moveRowsTo(AttList, rows, place, [this](int row, int to) { moveRowTo(row, to); });
}

void RecordSetProp::moveRowTo(int row, int to) {
    const std::string name = AttList.Item(row)->Text;
    edited_ = edited_ || row != to;
    AttList.move(row, to);
    tempProp->RecordSet_Outputs->move(tempProp->RecordSet_Outputs->positionOf(name), to);
}

/// The attribute takes the last place, and its row with it.
bool RecordSetProp::rename(int row, const std::string& name) {
    const std::string former = AttList.Item(row)->Text;
    if (!tempProp->RenameRecordSetOutPut(former, name, ParForm)) {
        return false;
    }
    if (former != name) {
        const auto first = OldKeys.extract(former);
        OldKeys[name] = first.empty() ? former : first.mapped();
        const bool own = tempProp->dbKey(name).empty();
        AttList.alter(row, [&](forms::ListRow& shown) {
            shown.Text = name;
            shown.Key = own ? name : shown.Key;
        });
        AttList.move(row, AttList.Count());
        AttList.select(AttList.Count());
        markEdited();
    }
    return true;
}

bool RecordSetProp::AfterLabelEdit(int row, const std::string& text) {
    if (!AttList.Item(row) || forms::hasFault(text, forms::NameFault::empty)) {
        return false;
    }
    if (forms::hasFault(text, forms::NameFault::dot)) {
        tell("DOTS ARE NOT ALLLOWED IN NAMES");
        return false;
    }
    return rename(row, text);
}

/// False when all rows have that name already.
bool RecordSetProp::renameAll(const std::function<std::string(const std::string&)>& name) {
    std::vector<std::string> rowKeys;
    for (const forms::ListRow& row : AttList.rows()) {
        if (!tempProp->dbKey(row.Text).empty()) {
            rowKeys.push_back(row.Key);
        }
    }
    bool other = false;
    for (const std::string& rowKey : rowKeys) {
        const int row = AttList.positionOf(rowKey);
        other = other || AttList.Item(row)->Text != name(rowKey);
        rename(row, name(rowKey));
    }
    return other;
}

void RecordSetProp::CutFullNames_Click() {
    if (!renameAll([](const std::string& rowKey) { return AfterLastDot(rowKey); })) {
        messages().tell("The columns of databases bear their own names already.", {}, Icon::information);
    }
}

void RecordSetProp::RestoreFullNames_Click() {
    renameAll([](const std::string& rowKey) {
        const std::string table = BetweenFirstAndLastDot(rowKey);
        return table.empty() ? AfterLastDot(rowKey) : AfterLastDot(table) + "_" + AfterLastDot(rowKey);
    });
}

bool RecordSetProp::apply() {
    if (forms::hasFault(txtRecordSetName, forms::NameFault::empty)) {
        tell("PLEASE GIVE A VALID NAME");
        return false;
    }
    if (AttList.Count() == 0) {
        tell("PLEASE SET THE RECORDSET'S DATA");
        return false;
    }
    if (forms::hasFault(txtRecordSetName, forms::NameFault::dot)) {
        tell("DOTS ARE NOT ALLLOWED IN NAMES");
        return false;
    }
    const std::string former = ActiveNode.Caption();
    const bool taken = isTakenBeyond(ParForm, ActiveNode, txtRecordSetName);
    if (taken) {
        canvas::tellTakenName(messages());
    } else {
        ActiveNode.setCaption(txtRecordSetName);
    }
    if (taken || ActiveNode.KeyName() == canvas::kErrorName) {
        ActiveNode.setCaption(former);
        txtRecordSetName_Change({});
        return false;
    }
    applyRecord(former);
    return true;
}

/// The record set is in the links again, as the dialog found it.
void RecordSetProp::putBack() {
    if (mirrorOrder_) {
        RecordSetProperties& record = *ActiveNode.recordSet();
        links::SynchronizeRecordSet(ParForm, record);
        mirrorOrder_->restore(ParForm, record);
        mirrorOrder_.reset();
    }
}

/// The record set's record takes its new name and the new keys of its attributes before the copy replaces it, so that
/// the far ends keep what they know of it in its place; what reads it follows. Attributes that are gone leave first:
/// another one may bear their key.
void RecordSetProp::renameInGraph(RecordSetProperties& record, const std::string& formerName) {
    const std::unordered_map<std::string, std::string> newKeys = newKeysOf(*tempProp, OldKeys);
    dropGone(ParForm, record, newKeys);
    if (formerName != tempProp->RecordSet_Name) {
        links::renameOwner(ParForm, record, formerName, tempProp->RecordSet_Name);
    }
    const canvas::Renames renames = links::renameMembers(ParForm, record, newKeys);
    links::followRenames(*tempProp, renames);
}

void RecordSetProp::applyRecord(const std::string& formerName) {
    const platform::Busy busy(services_.repository.progress);
    const auto former = std::get<platform::Shared<RecordSetProperties>>(ActiveNode.Properties).share();
    if (tempProp->NodeID == 0) {
        tempProp->NodeID = former->NodeID;
    }
    for (AttributeProperties& attribute : tempProp->RecordSet_Outputs) {
        if (attribute.ParentKeyName != tempProp->RecordSet_Name) {
            attribute.ParentKeyName = tempProp->RecordSet_Name;
            attribute.Changed = true;
        }
    }
    putBack();
    renameInGraph(*former, formerName);
    links::MirrorExchange exchange(ParForm);
    exchange.leave(*former);
    ActiveNode.Properties = tempProp;
    exchange.come(*tempProp);
    exchange.finish();
    deletedMark_ = ParForm.DeletedNodes->mark();
    ActiveNode.setReady(true);
    ParForm.tellChanged(ActiveNode);
}

void RecordSetProp::closing() {
    ParForm.DeletedNodes->cutBack(deletedMark_);
    putBack();
    const RecordSetProperties& record = *ActiveNode.recordSet();
    ActiveNode.setReady(!record.RecordSet_Name.empty() && record.RecordSet_Outputs.count() > 0);
    services_.nodes.refresh(ParForm, ActiveNode);
    ParForm.setEnabled(true);
}

}  // namespace orvent::editors
