#include "editors/source_databases.h"

#include "platform/text.h"

namespace orvent::editors {

using forms::Tree;
using platform::Answer;
using platform::Buttons;
using platform::Icon;

bool SourceDatabases::LoadDB_Click() {
    if (!DBLoaded) {
        return true;
    }
    const Answer answer = box().show("Do You Want To UnLoad The Current Database(s)?", "Load New DataBase",
                                     Icon::question, Buttons::yesNoCancel);
    if (answer == Answer::yes) {
        DBView.Clear();
        LoadedDatabases.clear();
        DBLoaded = false;
    }
    return answer != Answer::cancel;
}

void SourceDatabases::LoadDB(const GoOn& goOn) {
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

void SourceDatabases::LoadDatabase(const repository::SourceDatabase& source, const GoOn& goOn) {
    const std::string alias = platform::upperCase(source.name);
    if (LoadedDatabases.contains(alias)) {
        box().tell("This Database Is Allready Loaded");
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
        box().tell(words, {}, Icon::critical);
    }
}

void SourceDatabases::addTable(Tree::Node& root, const repository::SourceTable& table) {
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
        if (isUsed(field.Key)) {
            markNode(field.Key, true);
        }
    }
    --many_;
}

std::int16_t SourceDatabases::typeOf(const std::string& dataType) {
    const auto known = askedTypes_.find(dataType);
    if (known != askedTypes_.end()) {
        return known->second;
    }
    const std::int16_t index = services_.catalogue.DataTypeIndex(dataType);
    askedTypes_.emplace(dataType, index);
    return index;
}

void SourceDatabases::markNode(const std::string& key, bool used) {
    Tree::Node* node = DBView.find(key);
    if (!node || !node->parent()) {
        return;
    }
    DBView.alter(*node, [&](forms::TreeNode& value) {
        value.Checked = used;
        value.Image = forms::withState(value.Image, used ? "Checked" : "UnChecked");
        value.ForeColor = used ? kListColours[kInputs] : 0;
    });
    if (many_ == 0 && node->parent()->parent()) {
        recomputeParent(DBView, *node->parent());
    }
}

void SourceDatabases::markMany(const std::function<void()>& marks) {
    const Tree::Gathering together(DBView);
    ++many_;
    marks();
    if (--many_ == 0) {
        recomputeParents(DBView);
    }
}

void SourceDatabases::UnLoadDB_Click(Tree::Node& root) {
    const std::string alias = root.value().Key;
    if (root.parent() || box().show("Are You Sure You Want To Unload Database " + alias + "?", {}, Icon::question,
                                    Buttons::okCancel) != Answer::ok) {
        return;
    }
    DBView.remove(root);
    LoadedDatabases.erase(alias);
    DBLoaded = !LoadedDatabases.empty();
}

}  // namespace orvent::editors
