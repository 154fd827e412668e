// Columns of a record set that no database has, or not yet.

#include <unordered_map>
#include <utility>

#include "editors/record_set_prop.h"
#include "editors/take_over.h"
#include "forms/name_check.h"
#include "platform/name_list.h"
#include "statements/sql_creator.h"

namespace orvent::editors {

using namespace entities;
using platform::Icon;

void RecordSetProp::fillColumnTypes() {
    const NameTable& types = services_.catalogue.tables.dataTypes;
    columnTypes_ = types.listed();
    ColumnTypes.clear();
    for (const std::int16_t index : columnTypes_) {
        ColumnTypes.push_back(types.name(index));
    }
}

bool RecordSetProp::AddColumn_Click() {
    const forms::NameRule rules[] = {{forms::NameFault::empty, "PLEASE GIVE A VALID NAME"},
                                     {forms::NameFault::dot, "DOTS ARE NOT ALLLOWED IN NAMES"}};
    if (!forms::checkName(txtColumnName, rules, messages())) {
        return false;
    }
    if (ColumnType < 0 || ColumnType >= static_cast<int>(columnTypes_.size())) {
        tell("PLEASE SELECT A DATATYPE");
        return false;
    }
    if (takenName(txtColumnName)) {
        taken_ = true;
        tellTaken();
        return false;
    }
    addAttribute(txtColumnName, columnTypes_[static_cast<std::size_t>(ColumnType)], {}, 0);
    AttList.select(AttList.Count());
    txtColumnName.clear();
    return true;
}

std::optional<std::int16_t> RecordSetProp::takenName(const std::string& name) const {
    if (const AttributeProperties* column = tempProp->RecordSet_Outputs->Item(name)) {
        return column->Attribute_Type;
    }
    return ParForm.isNameTaken(tempProp->RecordSet_Name + "." + name) ? std::optional<std::int16_t>(-1) : std::nullopt;
}

void RecordSetProp::TakeOver_Click() {
    TakeOverForm form(messages(), services_.catalogue.tables, ParForm, ActiveNode,
                      [this](const std::string& name) { return takenName(name); });
    services_.dialogs.show(form);
    if (!form.taken) {
        return;
    }
    std::unordered_map<std::string, std::int16_t> asked;  // each unknown type once
    for (const TakeOverRow& row : form.Rows) {
        if (!row.checked) {
            continue;
        }
        std::optional<std::int16_t> type = row.typeIndex;
        if (!type) {
            const auto known = asked.find(row.type);
            type = known != asked.end() ? known->second : services_.catalogue.DataTypeIndex(row.type);
            asked.emplace(row.type, *type);
        }
        addAttribute(row.name, *type, {}, 0);
    }
    fillColumnTypes();  // a type may have been added
    AttList.select(AttList.Count());
}

/// A column that was designed before its table gets its place in the database. What is stored of it cannot learn that,
/// so its row goes and comes anew.
void RecordSetProp::bindColumn(AttributeProperties& attribute, const std::string& dbKey) {
    if (attribute.SubNode_ID != 0) {
        ParForm.DeletedNodes->Add(attribute.SubNode_ID, KindRecordSetAttribute);
        attribute.SubNode_ID = 0;
    }
    tempProp->addDbKey(attribute.Key, dbKey);
    AttList.alter(AttList.positionOf(attribute.Key), [&](forms::ListRow& row) {
        row.Key = dbKey;
        row.Tip = linksTip(dbKey, targetsOf(attribute));
    });
    markNode(dbKey, true);
    markEdited();
}

void RecordSetProp::SQLAuto_Click() {
    std::vector<statements::AttributeRow> rows;
    std::vector<std::string> without;
    for (const forms::ListRow& row : AttList.rows()) {
        if (tempProp->dbKey(row.Text).empty()) {
            without.push_back(row.Text);
        } else {
            rows.push_back({row.Key, row.Text});
        }
    }
    if (const std::optional<std::string> statement = statements::CreateSelectStatement(rows)) {
        txtSQL_Change(*statement);
        SQLOption = true;
    }
    if (!without.empty()) {
        messages().tell("The SELECT leaves out what comes from no database: " + platform::nameList(without) + ".", {},
                        Icon::information);
    }
}

}  // namespace orvent::editors
