// The tree of source databases of the record set dialog.

#include "editors/record_set_prop.h"
#include "platform/text.h"

namespace orvent::editors {

using forms::Tree;
using platform::Answer;
using platform::Buttons;
using platform::Icon;

bool RecordSetProp::LoadDB_Click() {
    if (!DBLoaded) {
        return true;
    }
    const Answer answer = messages().show("Do You Want To UnLoad The Current Database(s)?", "Load New DataBase",
                                          Icon::question, Buttons::yesNoCancel);
    if (answer == Answer::yes) {
        DBView.Clear();
        LoadedDatabases.clear();
        DBLoaded = false;
    }
    return answer != Answer::cancel;
}

void RecordSetProp::LoadDB(const GoOn& goOn) {
    if (!LoadDB_Click()) {
        return;
    }
    repository::frmDBLogin login(services_.repository);
    login.open();
    services_.dialogs.show(login);
    if (!login.chosen.name.empty()) {
        LoadDatabase(login.chosen, goOn);
    }
}

void RecordSetProp::LoadDatabase(const repository::SourceDatabase& source, const GoOn& goOn) {
    const std::string alias = platform::upperCase(source.name);
    if (LoadedDatabases.contains(alias)) {
        messages().tell("This Database Is Allready Loaded");
        return;
    }
    askedTypes_.clear();
    std::string words;
    try {
        repository::SchemaReader reader(services_.repository.database, source);
        LoadedDatabases.insert(alias);
        forms::TreeNode database;
        database.Key = database.Text = alias;
        database.Tag = 1;
        database.Image = "DB";
        database.Expanded = true;
        Tree::Node& root = DBView.add(database);
        DBLoaded = true;
        const auto read = [&] {
            reader.readTables();
            while (goOn(reader.begun(), reader.total())) {
                if (!reader.next()) {
                    break;
                }
            }
        };
        try {
            read();
        } catch (const platform::Fault& fault) {
            words = fault.description() + "\n";
        }
        DBView.rebuild([&] {
            for (const auto& table : reader.tables()) {
                addTable(root, *table);
            }
        });
        words += reader.shortfall();
    } catch (const platform::Fault& fault) {
        words = fault.description();
    }
    recomputeParents(DBView);
    if (!words.empty()) {
        messages().tell(words, {}, Icon::critical);
    }
}

void RecordSetProp::addTable(Tree::Node& root, const repository::SourceTable& table) {
    forms::TreeNode value;
    value.Key = root.value().Key + "." + table.name;
    value.Text = table.name;
    value.Image = "Table-UnChecked";
    Tree::Node& node = DBView.add(value, &root);
    ++many_;
    for (const repository::SourceColumn& column : table.columns) {
        forms::TreeNode field;
        field.Key = value.Key + "." + column.name;
        field.Text = column.name;
        field.Tag = typeOf(column.dataType);
        field.Image = "Field-UnChecked";
        DBView.add(field, &node);
        if (AttList.Item(field.Key)) {
            markNode(field.Key, true);
        }
    }
    --many_;
}

std::int16_t RecordSetProp::typeOf(const std::string& dataType) {
    const auto known = askedTypes_.find(dataType);
    if (known != askedTypes_.end()) {
        return known->second;
    }
    const std::int16_t index = services_.catalogue.DataTypeIndex(dataType);
    askedTypes_.emplace(dataType, index);
    return index;
}

void RecordSetProp::UnLoadDB_Click(Tree::Node& root) {
    const std::string alias = root.value().Key;
    if (root.parent() || messages().show("Are You Sure You Want To Unload Database " + alias + "?", {}, Icon::question,
                                         Buttons::okCancel) != Answer::ok) {
        return;
    }
    DBView.remove(root);
    LoadedDatabases.erase(alias);
    DBLoaded = !LoadedDatabases.empty();
}

}  // namespace orvent::editors
