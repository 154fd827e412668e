// The editors of the catalogue over a real repository.

#include "editors/type_editor.h"

#include <gtest/gtest.h>

#include "editors/in_out_prop.h"
#include "testkit/embedded_repository.h"

namespace orvent::editors {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

class TypeEditorTest : public ::testing::Test {
  protected:
    TypeEditorTest() {
        catalogue.LoadDataTypes();
        catalogue.LoadFunctionTypes();
        catalogue.LoadActivityTypes();
        dialogs.add<InOutProp>([this](InOutProp& item) {
            captions.push_back(item.Caption);
            item.changeName(line);
            item.selectType(lineType);
            item.cmdOK();
        });
    }
    ~TypeEditorTest() override { messages.verify(); }

    TypeEditor editor(TypeKind kind, bool scenarioOpen = false) {
        return TypeEditor(kind, services, catalogue, dialogs, scenarioOpen);
    }
    void warn(const std::string& text) { messages.expect(text, "", Icon::warning); }
    void inform(const std::string& text) { messages.expect(text, "", Icon::information); }
    void expectTaken(const std::string& kindOfType) {
        messages.expect("THIS NAME IS USED FOR ANOTHER " + kindOfType + ".\nPLEASE GIVE ANOTHER NAME!",
                        "DUPLICATE NAME!", Icon::critical);
    }
    void elsewhere(const std::string& sql) {
        const auto other = services.database.open(repository.settings.login.ReposConnString, "", "");
        other->prepare(sql)->execute();
    }
    /// Makes a type with a line in each of its first two lists.
    void make(TypeEditor& types, const std::string& name) {
        types.But_NEW();
        types.changeName(name);
        for (std::size_t list = 0; list < types.lists.size() && list < 2; ++list) {
            addLine(types, list, "L" + std::to_string(list), 1);
        }
        types.changeDescr("first");
    }
    /// All that is stored of a type, and how many lines.
    std::string stored(TypeKind kind, const std::string& name) {
        catalogue.LoadDataTypes();
        catalogue.LoadFunctionTypes();
        catalogue.LoadActivityTypes();
        TypeEditor types = editor(kind);
        const int position = types.Types.positionOf(name);
        types.selectType(position);
        std::string lines;
        for (const forms::List& list : types.lists) {
            for (const forms::ListRow& row : list.rows()) {
                lines += " " + row.Text;
            }
        }
        return position == 0 ? "nothing" : types.txtName + ": " + types.txtDescr + lines;
    }
    void addLine(TypeEditor& to, std::size_t list, const std::string& name, int type = 0) {
        line = name;
        lineType = type;
        to.add(list);
    }

    testkit::TestRepository repository;
    testkit::ScriptedMessageBox& messages = repository.messages;
    repository::Services services = repository.services();
    repository::Catalogue catalogue{services, [] { FAIL() << "the catalogue could not be read"; }};
    forms::Dialogs dialogs;
    std::string line;
    int lineType = 0;
    std::vector<std::string> captions;
};

TEST_F(TypeEditorTest, ChecksComeInTheirOrderAndKeepTheMode) {
    struct Row {
        TypeKind kind;
        const char* name;
        const char* descr;  ///< nothing: the hint is left as it is
        const char* words;
    };
    const Row rows[] = {
        {TypeKind::data, "", "", "PLEASE GIVE A NAME FOR THIS DATA TYPE"},
        {TypeKind::data, "  ", "", "PLEASE GIVE A NAME FOR THIS DATA TYPE"},
        {TypeKind::data, "a.b", "", "DOTS ARE NOT ALLLOWED IN NAMES"},
        {TypeKind::function, "", "", "PLEASE GIVE A NAME FOR THIS FUNCTION TYPE"},
        {TypeKind::function, "a.b", "", "DOTS ARE NOT ALLLOWED IN NAMES"},
        {TypeKind::function, "F", nullptr, "PLEASE GIVE A DESCRIPTION FOR THIS FUNCTION TYPE"},
        {TypeKind::function, "F", " \n", "PLEASE GIVE A DESCRIPTION FOR THIS FUNCTION TYPE"},
        {TypeKind::function, "F", "", "PLEASE GIVE A DESCRIPTION FOR THIS FUNCTION TYPE"},
        {TypeKind::activity, "", "", "PLEASE GIVE A NAME FOR THIS ACTIVITY TYPE"},
        {TypeKind::activity, "a.b", "", "DOTS ARE NOT ALLLOWED IN NAMES"},
        {TypeKind::activity, "A", nullptr, "PLEASE GIVE A DESCRIPTION FOR THIS ACTIVITY TYPE"},
        {TypeKind::activity, "A", "", "PLEASE GIVE A DESCRIPTION FOR THIS ACTIVITY TYPE"},
    };
    for (const Row& row : rows) {
        TypeEditor types = editor(row.kind);
        types.But_NEW();
        types.changeName(row.name);
        if (row.descr) {
            types.changeDescr(row.descr);
        }
        warn(row.words);
        types.But_SAVE();
        EXPECT_EQ(types.mode, TypeMode::create) << row.words;
        messages.verify();
    }
}

TEST_F(TypeEditorTest, AnEmptyFunctionTypeIsAskedAboutTwice) {
    const std::string question = "\nARE YOU SURE YOU WANT TO SAVE THIS FUNCTION TYPE?";
    const auto ask = [&](const std::string& missing, Answer answer) {
        messages.expect(missing + question, "", Icon::question, Buttons::yesNo, answer);
    };
    TypeEditor types = editor(TypeKind::function);
    types.But_NEW();
    EXPECT_TRUE(types.descrIsHint);
    EXPECT_EQ(types.txtDescr, "Give A Description For This Function Type");
    types.changeName("CLOCK");
    types.changeDescr("The time");
    ask("THERE ARE NO INPUTS SET.", Answer::no);
    types.But_SAVE();
    ask("THERE ARE NO INPUTS SET.", Answer::yes);
    ask("THERE ARE NO OUTPUTS SET", Answer::no);
    types.But_SAVE();
    EXPECT_EQ(types.mode, TypeMode::create);

    addLine(types, 1, "NOW", 2);
    EXPECT_FALSE(types.canAdd(1)) << "one output";
    addLine(types, 1, "LATER");
    EXPECT_EQ(types.lists[1].Count(), 1);
    ask("THERE ARE NO INPUTS SET.", Answer::yes);
    inform("FUNCTION TYPE SAVED");
    types.But_SAVE();
    EXPECT_EQ(types.mode, TypeMode::browse);
    EXPECT_EQ(types.txtName, "CLOCK") << "the new one is chosen";
    ASSERT_EQ(types.lists[1].Count(), 1);
    EXPECT_EQ(types.lists[1].Item(1)->Tag, 2);
}

TEST_F(TypeEditorTest, AnActivityTypeIsStoredAndComesBackWhole) {
    TypeEditor types = editor(TypeKind::activity);
    types.But_NEW();
    types.changeName("Mask");
    types.changeDescr("Hides");
    types.changeSQL("SELECT 1");
    types.changeLDL("a_out(@X[1])<-@Y.");
    types.choose(&TypeEditor::RsNoOption, 1);
    types.choose(&TypeEditor::ProvSemOption, 0);
    types.choose(&TypeEditor::ConsSemOption, 1);
    addLine(types, 0, "P", 1);
    addLine(types, 1, "O", 2);
    addLine(types, 2, "F", 1);
    EXPECT_EQ(captions,
              (std::vector<std::string>{"PARAMETER's PROPERTIES", "OUTPUT's PROPERTIES", "FUNCTION's PROPERTIES"}));
    EXPECT_EQ(types.templateVariables(), (std::vector<std::string>{"@X[ ]", "@Y"}));
    inform("Activity TYPE SAVED");
    types.But_SAVE();

    const auto index = catalogue.tables.activityTypes.indexOf("Mask");
    ASSERT_TRUE(index);
    const entities::ActivityTypeProperties stored = catalogue.GetActivityType(*index);
    EXPECT_EQ(stored.ActType_Description, "Hides ");
    EXPECT_EQ(stored.ActType_SchemaNo, 2);
    EXPECT_EQ(stored.ActType_ProviderSemantics, 1);
    EXPECT_EQ(stored.ActType_ConsumerSemantics, 2);

    TypeEditor again = editor(TypeKind::activity);
    again.selectType(again.Types.positionOf("Mask"));
    EXPECT_EQ(again.txtSQL, "SELECT 1");
    EXPECT_EQ(again.RsNoOption, 1);
    EXPECT_EQ(again.lists[0].Item(1)->Text, "P(" + catalogue.tables.dataTypes.name(1) + ")");
    EXPECT_EQ(again.lists[2].Item(1)->Text, "F(" + catalogue.tables.functionTypes.name(1) + ")");
    again.But_EDIT();
    again.changeName("Masking");
    inform("Activity TYPE UPDATED");
    again.But_SAVE();
    EXPECT_EQ(catalogue.tables.activityTypes.indexOf("Masking"), index) << "its index stays";
    EXPECT_EQ(catalogue.GetActivityType(*index).ActType_Description, "Hides  ") << "one more blank a save";
}

TEST_F(TypeEditorTest, ANameThatStandsInAListTwiceKeepsTheMode) {
    TypeEditor functions = editor(TypeKind::function);
    functions.But_NEW();
    functions.changeName("TWICE");
    functions.changeDescr("described");
    addLine(functions, 0, "A");
    addLine(functions, 0, "A");
    addLine(functions, 1, "B");
    messages.expect("*", "", Icon::critical);
    functions.But_SAVE();
    EXPECT_TRUE(functions.isEditing());
    EXPECT_FALSE(catalogue.tables.functionTypes.indexOf("TWICE"));
}

TEST_F(TypeEditorTest, ATypeThatAnotherUserDeletesIsToldAndNothingTypedIsLost) {
    struct Row {
        TypeKind kind;
        const char* word;
        const char* newName;
        std::vector<const char*> deletions;
    };
    const Row rows[] = {
        {TypeKind::data, "DATA TYPE", "Odd", {"DELETE FROM DataTypes WHERE DataType_name='Odd'"}},
        {TypeKind::data, "DATA TYPE", "Even", {"DELETE FROM DataTypes WHERE DataType_name='Odd'"}},
        {TypeKind::function,
         "FUNCTION TYPE",
         "Odd",
         {"DELETE FROM FunctionTypesParams WHERE FunctionType_name='Odd'",
          "DELETE FROM FunctionTypes WHERE FunctionType_name='Odd'"}},
        {TypeKind::activity,
         "Activity TYPE",
         "Even",
         {"DELETE FROM ActivityTypesParams WHERE ActivityType_name='Odd'",
          "DELETE FROM ActivityTypes WHERE ActivityType_name='Odd'"}},
    };
    for (const Row& row : rows) {
        const auto deleteElsewhere = [&] {
            const auto other = services.database.open(repository.settings.login.ReposConnString, "", "");
            for (const char* sql : row.deletions) {
                other->prepare(sql)->execute();
            }
        };
        const std::string saved = std::string(row.word) + " SAVED";
        TypeEditor types = editor(row.kind);
        SCOPED_TRACE(types.words.window);
        types.But_NEW();
        types.changeName("Odd");
        types.changeDescr("first");
        for (std::size_t list = 0; list < types.lists.size() && list < 2; ++list) {
            addLine(types, list, "L" + std::to_string(list));
        }
        inform(saved);
        types.But_SAVE();
        const std::string newName = row.newName;
        types.But_EDIT();
        types.changeName(newName);
        types.changeDescr("typed");
        types.changeLDL("a_out(@X)");
        deleteElsewhere();
        messages.expect("The repository has no type Odd any more.\nSaving once more makes it a new type.", "",
                        Icon::critical);
        types.But_SAVE();
        messages.verify();
        EXPECT_EQ(editor(row.kind).Types.positionOf("Odd"), 0) << "it is offered no more";
        EXPECT_EQ(types.txtName + types.txtDescr + types.txtLDL, newName + "typeda_out(@X)");
        inform(saved);
        types.But_SAVE();
        messages.verify();
        TypeEditor again = editor(row.kind);
        again.selectType(again.Types.positionOf(newName));
        EXPECT_EQ(again.usedBy, "Used by no stored activity");
        EXPECT_EQ(again.txtLDL, types.kind == TypeKind::activity ? "a_out(@X)" : "");
        for (const forms::List& list : again.lists) {
            EXPECT_EQ(list.Count(), &list == &again.lists.front() || &list == &again.lists[1] ? 1 : 0);
        }

        // One that is gone before it is chosen.
        if (newName != "Odd") {
            again.But_EDIT();
            again.changeName("Odd");
            inform(std::string(row.word) + " UPDATED");
            again.But_SAVE();
        }
        deleteElsewhere();
        TypeEditor late = editor(row.kind);
        late.selectType(late.Types.positionOf("Odd"));
        EXPECT_EQ(late.usedBy, "The repository has no such type any more");
    }
}

TEST_F(TypeEditorTest, AnyNameWithoutADotComesBackFromTheRepository) {
    const std::string names[] = {std::string(1000, 'x'), "a \"b\" 'c'", "größe_Ü", "12", " x "};
    TypeEditor types = editor(TypeKind::function);
    for (const std::string& name : names) {
        types.But_NEW();
        types.changeName(name);
        types.changeDescr(name);
        addLine(types, 0, name);
        addLine(types, 1, name + "2");
        inform("FUNCTION TYPE SAVED");
        types.But_SAVE();
        EXPECT_EQ(types.txtName, name);
    }
    catalogue.LoadFunctionTypes();
    TypeEditor again = editor(TypeKind::function);
    for (const std::string& name : names) {
        again.selectType(again.Types.positionOf(name));
        ASSERT_EQ(again.lists[0].Count(), 1) << name;
        EXPECT_EQ(again.lists[0].Item(1)->Key + again.lists[1].Item(1)->Key, name + name + "2");
    }
}

TEST_F(TypeEditorTest, ATakenNameIsRefusedBeforeAnythingIsWritten) {
    const std::pair<TypeKind, const char*> kinds[] = {
        {TypeKind::data, "DATA TYPE"}, {TypeKind::function, "FUNCTION TYPE"}, {TypeKind::activity, "ACTIVITY TYPE"}};
    elsewhere("INSERT INTO DataTypes VALUES ('NEWS')");
    elsewhere("INSERT INTO FunctionTypes VALUES ('NEWS','')");
    elsewhere("INSERT INTO ActivityTypes VALUES ('NEWS','','',1,1,1,'')");
    for (const auto& [kind, word] : kinds) {
        SCOPED_TRACE(word);
        TypeEditor types = editor(kind);
        messages.anyway = [](const std::string&) { return Answer::ok; };
        make(types, "Mine");
        types.But_SAVE();
        messages.anyway = {};
        const std::string before = stored(kind, "Mine");
        types.But_EDIT();
        for (const char* taken : {"NEWS", types.Types.Item(1)->Key.c_str()}) {  // NEWS is another user's
            types.changeName(taken);
            expectTaken(word);
            types.But_SAVE();
            messages.verify();
            EXPECT_EQ(types.mode, TypeMode::edit);
        }
        types.But_Cancel();
        make(types, "NEWS");
        expectTaken(word);
        types.But_SAVE();
        messages.verify();
        EXPECT_EQ(types.mode, TypeMode::create);
        EXPECT_EQ(stored(kind, "Mine"), before);
    }
}

// At each statement of a save in turn; then the user presses once more.
TEST_F(TypeEditorTest, ASaveThatBreaksOffIsTakenUpAgain) {
    struct Way {
        bool edit;  ///< a type that stands is edited and renamed
        testkit::HookedDatabase::Side side;
    };
    using enum testkit::HookedDatabase::Side;
    const Way ways[] = {{false, behind}, {true, before}, {true, behind}};
    repository::Catalogue busy{services, [] { ADD_FAILURE() << "work would be lost"; }, [] { return true; }};
    busy.tables = catalogue.tables;
    bool broken = false;
    for (const TypeKind kind : {TypeKind::data, TypeKind::function, TypeKind::activity}) {
        for (const Way& way : ways) {
            for (int at = 1;; ++at) {
                SCOPED_TRACE(std::string(typeWords(kind).window) + (way.edit ? " edit" : " new") +
                             (way.side == behind ? " behind " : " before ") + std::to_string(at));
                messages.anyway = [&broken](const std::string& text) {
                    broken = broken || text.find("line is down") != std::string::npos;
                    return text.find("DELETE") != std::string::npos ? Answer::yes : Answer::ok;
                };
                TypeEditor types(kind, services, busy, dialogs, false);
                make(types, "Odd");
                if (way.edit) {
                    types.But_SAVE();
                    types.But_EDIT();
                    types.changeName("Even");
                    types.changeDescr("second");
                    for (std::size_t list = 0; list < types.lists.size() && list < 1; ++list) {
                        addLine(types, list, "M", 2);
                    }
                }
                broken = false;
                repository.hooked.after(
                    at, [] { throw platform::DatabaseError("line is down", "08S01", 7, false); }, way.side);
                types.But_SAVE();
                const bool happened = repository.hooked.happened();
                repository.hooked.after(0, [] {});
                if (broken && types.isEditing()) {
                    types.But_SAVE();
                }
                EXPECT_FALSE(types.isEditing());
                const std::string name = types.txtName;
                const std::string descr = way.edit ? "second" : "first";
                const std::string type = catalogue.tables.dataTypes.name(1);
                const std::string more = way.edit ? " M(" + catalogue.tables.dataTypes.name(2) + ")" : "";
                const std::string blank = kind == TypeKind::activity ? " " : "";
                EXPECT_EQ(stored(kind, name), name + ": " +
                                                  (kind == TypeKind::data ? ""
                                                                          : descr + blank + " L0(" + type + ")" + more +
                                                                                " L1(" + type + ")"));
                EXPECT_EQ(stored(kind, way.edit ? "Odd" : "Even"), "nothing");
                TypeEditor after = editor(kind);
                after.selectType(after.Types.positionOf(name));
                after.But_DELETE();
                messages.anyway = {};
                if (!happened) {
                    EXPECT_GT(at, 3);
                    break;
                }
            }
        }
    }
}

TEST_F(TypeEditorTest, ATypeThatCannotBeReadWholeIsNeitherShownNorEdited) {
    for (const TypeKind kind : {TypeKind::function, TypeKind::activity}) {
        TypeEditor types = editor(kind);
        messages.anyway = [](const std::string&) { return Answer::ok; };
        make(types, "Mine");
        types.But_SAVE();
        messages.anyway = {};
        types.selectType(1);
        for (int at = 1; at <= 3; ++at) {
            const auto breakOff = [&] {
                repository.hooked.after(at, [] { throw platform::DatabaseError("line is down", "08S01", 7, false); });
                messages.expect("line is down", "", Icon::critical);
            };
            breakOff();
            types.selectType(types.Types.positionOf("Mine"));
            EXPECT_EQ(types.txtDescr, "");
            EXPECT_EQ(types.lists[0].Count() + types.lists[1].Count(), 0);
            breakOff();
            types.But_EDIT();
            EXPECT_FALSE(types.isEditing());
            messages.verify();
            types.But_EDIT();
            EXPECT_TRUE(types.isEditing());
            EXPECT_EQ(types.lists[0].Count() + types.lists[1].Count(), 2);
            types.But_Cancel();
            types.selectType(1);
        }
    }
}

TEST_F(TypeEditorTest, WhatAnotherUserDidToATypeIsToldOrAskedAbout) {
    for (const TypeKind kind : {TypeKind::function, TypeKind::activity}) {
        repository::Catalogue others{services, [] { FAIL(); }};
        others.tables = catalogue.tables;
        TypeEditor first(kind, services, others, dialogs, false);
        messages.anyway = [](const std::string&) { return Answer::ok; };
        make(first, "Both");
        first.But_SAVE();
        messages.anyway = {};
        catalogue.tables = others.tables;
        TypeEditor second = editor(kind);
        second.selectType(second.Types.positionOf("Both"));
        const auto edit = [&](TypeEditor& types, const std::string& descr) {
            types.But_EDIT();
            types.changeDescr(descr);
        };
        const auto ask = [&](Answer answer) {
            messages.expect(
                "Another user has changed the type Both since you began to edit it.\n"
                "Would you like to replace what is stored by what you see here?",
                "Type Changed", Icon::question, Buttons::destroyYesNo, answer);
        };
        const std::string updated = kind == TypeKind::function ? "FUNCTION TYPE UPDATED" : "Activity TYPE UPDATED";
        edit(second, "of the second");
        edit(first, "of the first");
        inform(updated);
        first.But_SAVE();
        ask(Answer::no);
        second.But_SAVE();
        messages.verify();
        EXPECT_EQ(second.mode, TypeMode::edit);
        EXPECT_TRUE(stored(kind, "Both").starts_with("Both: of the first"));
        ask(Answer::yes);
        inform(updated);
        second.But_SAVE();
        EXPECT_TRUE(stored(kind, "Both").starts_with("Both: of the second"));

        // Both delete it.
        messages.anyway = [](const std::string&) { return Answer::yes; };
        first.But_DELETE();
        messages.anyway = {};
        messages.expect(second.words.deleteQuestion + std::string("Both"), second.words.deleteTitle, Icon::question,
                        Buttons::destroyYesNo, Answer::yes);
        inform("The repository has no type Both any more.");
        second.But_DELETE();
        messages.verify();
        EXPECT_EQ(second.Types.positionOf("Both"), 0);
    }
}

TEST_F(TypeEditorTest, ANameThatTheDatabaseCannotKeepIsRefusedInWords) {
    repository.hooked.keyLimit = platform::TextLimit{.characters = 6, .bytes = 9};
    TypeEditor types = editor(TypeKind::activity);
    make(types, "");
    const auto refuse = [&](const std::string& name, const std::string& has, const std::string& most) {
        types.changeName(name);
        warn("The name is too long: it has " + has + ", and this repository keeps at most " + most +
             " of a type's name.\nPlease give a shorter one.");
        types.But_SAVE();
        messages.verify();
        EXPECT_TRUE(types.isEditing());
    };
    refuse("sevenxx", "7 characters", "6");
    refuse("größßß", "10 bytes", "9");
    types.changeName("größß");
    repository.hooked.plainLimit = platform::TextLimit{.characters = 1, .bytes = 0};
    warn(
        "The name \"L0\" is too long: it has 2 characters, and this repository keeps at most 1 of a name.\n"
        "Please give a shorter one.");
    types.But_SAVE();
    repository.hooked.plainLimit.reset();
    inform("Activity TYPE SAVED");
    types.But_SAVE();
    EXPECT_FALSE(types.isEditing());
}

TEST_F(TypeEditorTest, DeletingIsAskedAndBlockedByOpenScenarios) {
    struct Row {
        TypeKind kind;
        const char* title;
        const char* question;
        const char* blocked;
    };
    const Row rows[] = {
        {TypeKind::data, "DELETING DATATYPE", "ARE YOU SURE YOU WANT TO DELETE DATATYPE :",
         "Please Close All Active Scenarios In Order To Be Able To Delete A Data Type!"},
        {TypeKind::function, "DELETING DATATYPE", "ARE YOU SURE YOU WANT TO DELETE FUNCTION TYPE :",
         "Please Close All Active Scenarios In Order To Be Able To Delete A Funtion Type!"},
        {TypeKind::activity, "DELETING ACTIVITY TYPE", "ARE YOU SURE YOU WANT TO DELETE ACTIVITY TYPE :",
         "Please Close All Active Scenarios In Order To Be Able To Delete An Activity Type!"},
    };
    for (const Row& row : rows) {
        TypeEditor blocked = editor(row.kind, true);
        blocked.selectType(1);
        blocked.But_DELETE();
        inform(row.blocked);
        blocked.pressDisabledDelete();

        TypeEditor types = editor(row.kind);
        types.But_DELETE();  // nothing is chosen
        types.selectType(1);
        messages.expect(row.question + types.txtName, row.title, Icon::question, Buttons::destroyYesNo, Answer::no);
        types.But_DELETE();
        EXPECT_EQ(types.Types.selected(), 1);
        messages.verify();
    }
}

TEST_F(TypeEditorTest, WhoUsesATypeIsSaidAndTheUsersOwnAreNamed) {
    const std::string type = catalogue.tables.activityTypes.name(0);
    const std::string data = catalogue.tables.dataTypes.name(0);
    const auto connection = services.database.open(repository.settings.login.ReposConnString, "", "");
    const auto run = [&](const std::string& sql) { connection->prepare(sql)->execute(); };
    int id = 1;
    for (const std::string user : {"anna", "ben"}) {
        const std::string key = std::to_string(id);
        run("INSERT INTO Scenarios VALUES ('Of " + user + "'," + key + ",'" + user + "')");
        run("INSERT INTO ScenarioNodes VALUES (" + key + "," + key + ",'Load',8,0,0,1,1)");
        run("INSERT INTO Activities VALUES (" + key + ",'','" + type + "','','',1,'')");
        run("INSERT INTO ActivitySubNodes VALUES (" + key + "," + key + ",'A',1,'A','" + data + "',1)");
        ++id;
    }
    TypeEditor types = editor(TypeKind::activity);
    types.selectType(1);
    EXPECT_EQ(types.usedBy, "Used by 2 stored activities\nYours: Load (Of anna)");
    types.selectType(2);
    EXPECT_EQ(types.usedBy, "Used by no stored activity");
    TypeEditor dataTypes = editor(TypeKind::data);
    dataTypes.selectType(1);
    EXPECT_EQ(dataTypes.usedBy, "Used by 2 stored activities\nYours: Load (Of anna)");
    TypeEditor functions = editor(TypeKind::function);
    functions.selectType(1);
    EXPECT_EQ(functions.usedBy, "Used by no stored activity");
    TypeEditor blocked = editor(TypeKind::function, true);
    blocked.selectType(1);
    EXPECT_EQ(blocked.usedBy, "Used by no stored activity; to delete it, close all scenarios");
}

TEST_F(TypeEditorTest, OnlyUnsavedChangesAreAskedAboutAtTheEnd) {
    TypeEditor types = editor(TypeKind::activity);
    EXPECT_TRUE(types.But_OK());
    types.But_NEW();
    EXPECT_TRUE(types.But_OK()) << "nothing was typed";
    types.changeLDL("x");
    messages.expect("THIS ACTIVITY TYPE HAS NOT BEEN SAVED.\nARE YOU SURE YOU WANT TO EXIT WITHOUT SAVING?",
                    "Closing Scenario", Icon::question, Buttons::yesNo, Answer::no);
    EXPECT_FALSE(types.But_OK());
    types.But_Cancel();
    EXPECT_TRUE(types.But_OK());
}

TEST_F(TypeEditorTest, ALineIsCheckedInItsOrder) {
    struct Row {
        const char* kind;
        int type;
        const char* name;
        const char* words;
    };
    const Row rows[] = {
        {"OUTPUT", -1, "", "PLEASE SELECT A DATATYPE"},
        {"FUNCTION", -1, "a.b", "PLEASE SELECT A DATATYPE"},
        {"OUTPUT", 0, "", "PLEASE GIVE THE AN OUTPUT 's NAME!"},
        {"INPUT", 0, "", "PLEASE GIVE THE AN OUTPUT 's NAME!"},
        {"FUNCTION", 0, "", "PLEASE GIVE THE A FUNCTION OR A PARAMETER 's NAME!"},
        {"OUTPUT", 0, "a.b", "DOTS ARE NOT ALLLOWED IN NAMES"},
    };
    for (const Row& row : rows) {
        forms::List lines;
        InOutProp item(messages, catalogue.tables, row.kind, lines);
        item.changeName(row.name);
        item.selectType(row.type);
        warn(row.words);
        EXPECT_FALSE(item.cmdOK());
        EXPECT_EQ(lines.Count(), 0);
        messages.verify();
    }
}

}  // namespace
}  // namespace orvent::editors
