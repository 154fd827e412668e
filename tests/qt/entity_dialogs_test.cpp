// The dialogs of activities and record sets as a user has them: keys, drags, boxes and what they show.

#include <QComboBox>
#include <QMimeData>
#include <QTabWidget>
#include <QTextEdit>
#include <QTreeView>

#include "qt/forms/list_model.h"
#include "qt/forms/window_sizes.h"
#include "qt/shell/desk_window.h"
#include "testkit/graph_builder.h"
#include "window_program.h"

namespace orvent::qt {

namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

/// A scenario with a record set and an activity in the started program.
struct Desk : StartedProgram {
    Desk() {
        form = open("S");
        testkit::GraphBuilder graph(*form);
        graph.recordSet("RS", {"ID", "NAME", "PRICE"});
        graph.node("Act", canvas::NodeTypeActivity);
        graph.node("C1", canvas::NodeTypeConstant);
    }

    /// Opens the dialog of a node, as a double click on it does.
    void edit(const char* node, const char* window, DialogScript::Act act) {
        dialogs.at(QLatin1String(window), std::move(act));
        logic.pointerPorts().windows.openProperties(*form, *form->nodeNamed(node));
    }
    void answerSave(Answer answer) {
        messages.expect("THE ACTIVITY'S PROPERTIES HAVE NOT BEEN SAVED.\nDO YOU WANT TO SAVE BEFORE EXIT?", "",
                        Icon::question, Buttons::yesNoCancel, answer);
    }
    const entities::ActivityProperties& activity() const { return *form->nodeNamed("Act")->activity(); }

    canvas::DrawForm* form;
};

QTreeView* view(const QWidget& window, const char* name) {
    return control<QTreeView>(window, name);
}

/// The texts of the first column, all levels one after the other.
QString rows(const QTreeView& tree, const QModelIndex& parent = {}) {
    QStringList texts;
    for (int row = 0; row < tree.model()->rowCount(parent); ++row) {
        const QModelIndex at = tree.model()->index(row, 0, parent);
        texts << at.data().toString();
        if (const QString inner = rows(tree, at); !inner.isEmpty()) {
            texts << inner;
        }
    }
    return texts.join(QLatin1Char(' '));
}

QModelIndex indexOf(const QTreeView& tree, const char* words, const QModelIndex& parent = {}) {
    for (int row = 0; row < tree.model()->rowCount(parent); ++row) {
        const QModelIndex at = tree.model()->index(row, 0, parent);
        if (at.data().toString() == QLatin1String(words)) {
            return at;
        }
        if (const QModelIndex inner = indexOf(tree, words, at); inner.isValid()) {
            return inner;
        }
    }
    return {};
}

void select(QTreeView& tree, const char* words) {
    const QModelIndex at = indexOf(tree, words);
    QVERIFY2(at.isValid(), words);
    tree.setCurrentIndex(at);
    tree.setFocus();
}

void check(QTreeView& tree, const char* words) {
    select(tree, words);
    QTest::keyClick(&tree, Qt::Key_Space);
}

}  // namespace

class EntityDialogsTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void anActivityIsDefinedByKeys() {
        Desk desk;
        desk.messages.expect("S stays open until its dialog is closed.", "", Icon::information);
        desk.messages.expect("Properties Saved", "", Icon::information);
        desk.edit("Act", "SetActProp", [&](QDialog& window) {
            QVERIFY(!desk.form->nodeNamed("Act")->Ready());
            desk.frame.area().windowOf(*desk.form)->close();
            QVERIFY(window.isVisible());
            auto* types = control<QComboBox>(window, "ActTypes");
            QCOMPARE(types->currentIndex(), -1);
            types->setFocus();
            QTest::keyClick(types, Qt::Key_Down);
            QCOMPARE(types->currentIndex(), 0);
            auto* language = control<QComboBox>(window, "LangSelector");
            language->setFocus();
            QTest::keyClick(language, Qt::Key_Down);
            QVERIFY(!control<QPushButton>(window, "butRefresh")->isEnabled());
            QTest::keyClick(language, Qt::Key_Up);
            QVERIFY(control<QPushButton>(window, "butRefresh")->isEnabled());
            QTreeView& database = *view(window, "DBView");
            QTreeView& inputs = *view(window, "AttList(0)");
            check(database, "RS");
            QCOMPARE(rows(inputs), QStringLiteral("RS_ID RS_NAME RS_PRICE"));
            QCOMPARE(indexOf(database, "RS").siblingAtColumn(1).data().toString(), QStringLiteral("3 of 3"));

            select(inputs, "RS_PRICE");
            QTest::keyClick(&inputs, Qt::Key_Home, Qt::AltModifier);
            QCOMPARE(rows(inputs), QStringLiteral("RS_PRICE RS_ID RS_NAME"));
            select(inputs, "RS_ID");
            QTest::keyClick(&inputs, Qt::Key_Delete);
            QCOMPARE(rows(inputs), QStringLiteral("RS_PRICE RS_NAME"));
            QCOMPARE(inputs.currentIndex().data().toString(), QStringLiteral("RS_NAME"));
            QTest::keyClick(&inputs, Qt::Key_F2);
            auto* label = inputs.findChild<QLineEdit*>();
            QVERIFY(label);
            label->setText(QStringLiteral("Title"));
            QTest::keyClick(label, Qt::Key_Return);
            QTRY_COMPARE(rows(inputs), QStringLiteral("RS_PRICE Title"));
            QVERIFY(window.isVisible());

            QTest::keyClick(&window, Qt::Key_Tab, Qt::ControlModifier);
            QCOMPARE(control<QTabWidget>(window, "TabStrip1")->currentIndex(), 1);
            check(*view(window, "ActView"), "C1");
            QCOMPARE(control<QTabWidget>(window, "TabStrip1")->currentIndex(), 2);
            QTest::keyClick(view(window, "AttList(2)"), Qt::Key_Return);
            QVERIFY(!window.isVisible());
        });
        QVERIFY(desk.form->nodeNamed("Act")->Ready());
        QCOMPARE(desk.activity().Act_Inputs.count(), 2);
        QCOMPARE(desk.activity().Act_Inputs.peek()->Item("RS_NAME")->Attribute_Name, std::string("Title"));
        QVERIFY(desk.activity().Act_Parameters.peek()->Item("C1"));
        QCOMPARE(desk.activity().Act_Type, std::int16_t(0));
    }

    void leavingWithANameThatIsTakenAsksOnlyOnce() {
        Desk desk;
        desk.edit("Act", "SetActProp", [&](QDialog& window) {
            QTest::keyClicks(control<QLineEdit>(window, "txtName"), QStringLiteral("RS"));
            desk.answerSave(Answer::no);
            QTest::keyClick(&window, Qt::Key_Escape);
            QVERIFY(!window.isVisible());
        });
        QCOMPARE(desk.form->nodeNamed("Act")->Caption(), std::string("Act"));
    }

    void nodesAreDroppedWhereTheLineStands() {
        Desk desk;
        desk.edit("Act", "SetActProp", [&](QDialog& window) {
            QTreeView& database = *view(window, "DBView");
            QTreeView& inputs = *view(window, "AttList(0)");
            check(database, "ID");
            const std::unique_ptr<QMimeData> dragged(
                database.model()->mimeData({indexOf(database, "NAME"), indexOf(database, "PRICE")}));
            QVERIFY(inputs.model()->canDropMimeData(dragged.get(), Qt::CopyAction, 0, 0, {}));
            inputs.model()->dropMimeData(dragged.get(), Qt::CopyAction, 0, 0, {});
            QCOMPARE(rows(inputs), QStringLiteral("RS_NAME RS_PRICE RS_ID"));
            const std::unique_ptr<QMimeData> moved(
                inputs.model()->mimeData({inputs.model()->index(0, 0), inputs.model()->index(1, 0)}));
            inputs.model()->dropMimeData(moved.get(), Qt::MoveAction, 3, 0, {});
            QCOMPARE(rows(inputs), QStringLiteral("RS_ID RS_NAME RS_PRICE"));
            QVERIFY(!view(window, "AttList(1)")->model()->canDropMimeData(moved.get(), Qt::MoveAction, 0, 0, {}));
            desk.answerSave(Answer::no);
            window.close();
        });
        QCOMPARE(desk.activity().Act_Inputs.count(), 0);
    }

    void theFilterOnlyHides() {
        Desk desk;
        desk.edit("Act", "SetActProp", [&](QDialog& window) {
            QTreeView& database = *view(window, "DBView");
            QTest::keyClicks(control<QLineEdit>(window, "DBViewFilter"), QStringLiteral("pri"));
            QCOMPARE(rows(database), QStringLiteral("Record Sets RS PRICE"));
            QVERIFY(database.isExpanded(indexOf(database, "RS")));
            QCOMPARE(indexOf(database, "RS").siblingAtColumn(1).data().toString(), QStringLiteral("0 of 3"));
            control<QLineEdit>(window, "DBViewFilter")->clear();
            QCOMPARE(rows(database), QStringLiteral("Record Sets RS ID NAME PRICE"));
            QVERIFY(!database.isExpanded(indexOf(database, "RS")));
            window.close();
        });
    }

    void sizesOutliveTheProgram() {
        Desk desk;
        QSize left;
        desk.edit("Act", "SetActProp", [&](QDialog& window) {
            window.resize(770, 530);
            left = window.size();
            window.close();
        });
        SizeMemory next;
        next.attach(&desk.repository.store);
        QWidget window;
        next.of("SetActProp").give(window);
        QCOMPARE(window.size(), left);
        QVERIFY(next.of("SetActProp").text().find(" zones=") != std::string::npos);
        for (const char* damaged : {"", "x", "770", "a b zones=?", "-5 530", "770 530x"}) {
            WindowSizes sizes;
            sizes.read(damaged);
            window.resize(300, 200);
            sizes.give(window);
            QCOMPARE(window.size(), QSize(300, 200));
        }
    }

    void typesThatChangeUnderneathAreShownByTheirNewNames() {
        Desk desk;
        repository::Catalogue& catalogue = desk.logic.catalogue();
        desk.edit("Act", "SetActProp", [&](QDialog& window) {
            auto* types = control<QComboBox>(window, "ActTypes");
            types->setFocus();
            QTest::keyClick(types, Qt::Key_Down);
            QTest::keyClick(types, Qt::Key_Down);
            QCOMPARE(types->currentIndex(), 1);
            desk.messages.expect("Activity TYPE SAVED", "", Icon::information);
            desk.messages.expect("Activity TYPE UPDATED", "", Icon::information);
            entities::ActivityTypeProperties added = catalogue.GetActivityType(0);
            added.ActType_Name = "Added";
            catalogue.SaveActivityType(added);
            entities::ActivityTypeProperties renamed = catalogue.GetActivityType(1);
            renamed.ActType_Name = "Renamed";
            catalogue.UpdateActivityType(renamed);
            control<QTabWidget>(window, "TabStrip1")->setCurrentIndex(1);
            QCOMPARE(types->currentText(), QStringLiteral("Renamed"));
            QCOMPARE(types->currentIndex(), 1);
            QCOMPARE(types->itemText(types->count() - 1), QStringLiteral("Added"));
            QTest::keyClick(types, Qt::Key_End);
            QCOMPARE(types->currentText(), QStringLiteral("Added"));
            desk.messages.expect("Properties Saved", "", Icon::information);
            click(window, "Apply");
            window.close();
        });
        QCOMPARE(desk.activity().Act_Type, catalogue.ActivityTypeIndex("Added"));
    }

    void aLoadThatIsCancelledKeepsWhatCame() {
        Desk desk;
        desk.edit("RS", "RecordSetProp", [&](QDialog& window) {
            const auto load = [&] {
                desk.dialogs.at(QStringLiteral("frmDBLogin"), [&](QDialog& login) {
                    auto* names = control<QComboBox>(login, "DSNNames");
                    names->setCurrentIndex(names->findText(QString::fromStdString(desk.source())));
                    click(login, "cmdOK");
                });
                click(window, "butLoadDB");
            };
            const QTreeView& databases = *view(window, "DBView");
            const auto tables = [&] { return databases.model()->rowCount(databases.model()->index(0, 0)); };
            load();
            const int whole = tables();
            const std::string alias = databases.model()->index(0, 0).data().toString().toStdString();
            QVERIFY(whole > 10);
            desk.messages.expect("Do You Want To UnLoad The Current Database(s)?", "Load New DataBase", Icon::question,
                                 Buttons::yesNoCancel, Answer::yes);
            desk.repository.hooked.after(
                3, [&] { control<QDialog>(window, "loading")->findChild<QPushButton*>()->click(); },
                testkit::HookedDatabase::Side::before, "SELECT column_name");
            desk.messages.expect("Only 3 of " + std::to_string(whole) + " tables of " + alias + " were loaded.", "",
                                 Icon::critical);
            load();
            QCOMPARE(tables(), 3);
            QVERIFY(!window.findChild<QDialog*>(QStringLiteral("loading")));
            window.close();
        });
    }

    void aRecordSetIsMadeFromASourceDatabase() {
        Desk desk;
        testkit::GraphBuilder(*desk.form).recordSet("New");
        desk.edit("New", "RecordSetProp", [&](QDialog& window) {
            desk.dialogs.at(QStringLiteral("frmDBLogin"), [&](QDialog& login) {
                auto* names = control<QComboBox>(login, "DSNNames");
                names->setCurrentIndex(names->findText(QString::fromStdString(desk.source())));
                click(login, "cmdOK");
            });
            click(window, "butLoadDB");
            QTreeView& databases = *view(window, "DBView");
            check(databases, "scenario_name");
            QTreeView& list = *view(window, "AttList");
            QCOMPARE(rows(list), QStringLiteral("scenario_name"));
            auto* statement = control<QTextEdit>(window, "txtSQL");
            QVERIFY(!statement->isEnabled());
            click(window, "SQLAuto");
            QVERIFY(statement->isEnabled());
            QVERIFY(statement->toPlainText().contains(QStringLiteral("scenario_name AS scenario_name")));
            QVERIFY(!statement->document()->isUndoAvailable());
            typeInto(window, "txtRecordSetName", QStringLiteral("Scenarios"));
            QTest::keyClick(control<QLineEdit>(window, "txtRecordSetName"), Qt::Key_Return);
            QVERIFY(!window.isVisible());
        });
        QCOMPARE(desk.form->nodeNamed("Scenarios")->recordSet()->RecordSet_Outputs.count(), 1);
        QVERIFY(desk.form->nodeNamed("Scenarios")->Ready());
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::EntityDialogsTest)
#include "entity_dialogs_test.moc"
