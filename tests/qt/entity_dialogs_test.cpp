// The dialogs of activities and record sets as a user has them: keys, drags, boxes and what they show.

#include <QComboBox>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTextEdit>
#include <QTreeView>
#include <QTreeWidget>

#include "qt/canvas/canvas_editor.h"
#include "qt/forms/list_model.h"
#include "qt/forms/row_view.h"
#include "qt/forms/window_sizes.h"
#include "qt/shell/desk_window.h"
#include "repository/stored_content.h"
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
        graph.node("F1", canvas::NodeTypeFunction);
    }

    /// Opens the dialog of a node, as a double click on it does.
    void edit(const char* node, const char* window, DialogScript::Act act) {
        dialogs.at(QLatin1String(window), std::move(act));
        logic.pointerPorts().windows.openProperties(*form, *form->nodeNamed(node));
        dialogs.settle();
    }
    /// Clicks at the first node of a scenario, by way of the frame, from which a modal window would keep the mouse.
    void press(canvas::DrawForm& scenario, bool twice) {
        const CanvasEditor& editor = frame.area().windowOf(scenario)->editor();
        const QPoint at =
            editor.viewport()->mapTo(&frame, editor.transform().toPixels(canvas::Point{500, 200}).toPoint());
        twice ? QTest::mouseDClick(frame.windowHandle(), Qt::LeftButton, {}, at)
              : QTest::mouseClick(frame.windowHandle(), Qt::LeftButton, {}, at);
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

/// A click on the box beside a node.
void tick(QTreeView& tree, const char* words) {
    tree.scrollTo(indexOf(tree, words));  // opens its parent
    const QRect row = tree.visualRect(indexOf(tree, words));
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, QPoint(row.left() + 9, row.center().y()));
}

/// Opens the menu of a list and looks at it.
void inMenu(QTreeView& list, const std::function<void(QMenu&)>& look) {
    bool seen = false;
    QTimer::singleShot(0, &list, [&] {
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            seen = true;
            look(*menu);
            menu->close();
        }
    });
    Q_EMIT list.customContextMenuRequested({5, 5});
    QVERIFY(seen);
}

/// The greyed items, as "name: why".
QString greyed(const QMenu& menu) {
    QStringList items;
    for (const QAction* item : menu.actions()) {
        if (!item->isEnabled() && !item->isSeparator()) {
            items << item->objectName() + QStringLiteral(": ") + item->toolTip();
        }
    }
    return items.join(QStringLiteral(", "));
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
            for (const auto& [key, order] :
                 {std::pair{Qt::Key_Escape, "RS_PRICE RS_NAME"}, {Qt::Key_Return, "RS_PRICE Title"}}) {
                QTest::keyClick(&inputs, Qt::Key_F2);
                QPointer<QLineEdit> label = inputs.findChild<QLineEdit*>();
                QVERIFY(label);
                label->setText(QStringLiteral("Title"));
                QTest::keyClick(label, key);
                QTRY_VERIFY(!label);
                QCOMPARE(rows(inputs), QLatin1String(order));
                QVERIFY2(window.isVisible(), "the key is the label's");
            }

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

    void theProgramGoesOnBesideAnActivity() {
        Desk desk;
        desk.edit("Act", "SetActProp", [&](QDialog& first) {
            desk.frame.activateWindow();
            QTRY_VERIFY(!first.isActiveWindow());
            desk.press(*desk.form, false);
            QTRY_VERIFY2(first.isActiveWindow(), "what holds the scenario comes forward");
            canvas::DrawForm& other = *desk.open("T");
            testkit::GraphBuilder(other).node("B", canvas::NodeTypeActivity);
            desk.press(other, true);
            QDialog* second = nullptr;
            for (auto* dialog : desk.frame.findChildren<QDialog*>(QStringLiteral("SetActProp"))) {
                second = dialog != &first ? dialog : second;
            }
            QVERIFY2(second && second->isVisible() && first.isVisible(), "a scenario beside it takes the mouse");
            QVERIFY(!desk.frame.area().windowOf(other)->isEnabled());
            desk.messages.expect("Please Close All Property Forms Before Login Out!", "Property Form(s) Open!");
            desk.logic.run(shell::Command::changeUser);
            first.close();
            QVERIFY(desk.form->Enabled() && desk.frame.area().windowOf(*desk.form)->isEnabled());
            QVERIFY(!other.Enabled());
            second->close();
            QVERIFY(desk.frame.area().windowOf(other)->isEnabled());
        });
        QVERIFY(!desk.frame.findChild<QDialog*>());
    }

    void whatIsGreySaysWhy() {
        Desk desk;
        desk.edit("Act", "SetActProp", [&](QDialog& window) {
            const auto why = [&](const char* button) {
                const auto* shown = control<QAbstractButton>(window, button);
                return shown->isEnabled() ? QStringLiteral("-") : shown->toolTip();
            };
            QCOMPARE(why("OK"), QStringLiteral("Choose an activity type first"));
            QTest::keyClicks(control<QTextEdit>(window, "txtDescr"), QStringLiteral("x"));
            QCOMPARE(why("OK"), QStringLiteral("-"));
            QVERIFY(why("Move2Tree").endsWith(QStringLiteral("The list has no rows")));
            QTreeView& inputs = *view(window, "AttList(0)");
            const QString noRow = QStringLiteral("Choose a row first");
            const QString sends = QStringLiteral("ItemSendParamM: %1, ItemSendOutputM: %1, ");
            const QString noParameter = QStringLiteral("ItemSendParamM: The activity has no parameter RS_ID");
            const QString rest = QStringLiteral("ItemEditM: %1, ItemDeleteM: %1").arg(noRow);
            inMenu(inputs, [&](QMenu& menu) {
                const QString none = QStringLiteral(
                    ", CutFullNamesM: The list has no rows, RestoreNamesM: The list has no rows, "
                    "RefreshHeadersM: The list has no rows");
                QCOMPARE(greyed(menu), sends.arg(noRow) + rest + none);
            });
            check(*view(window, "DBView"), "RS");
            inMenu(inputs, [&](QMenu& menu) { QCOMPARE(greyed(menu), sends.arg(noRow) + rest); });
            select(inputs, "RS_ID");
            inMenu(inputs, [&](QMenu& menu) { QCOMPARE(greyed(menu), noParameter); });
            control<QTabWidget>(window, "TabStrip1")->setCurrentIndex(1);
            QTreeView& outputs = *view(window, "AttList(1)");
            select(outputs, "RS_ID");
            inMenu(outputs, [&](QMenu& menu) {
                QCOMPARE(greyed(menu) + QStringLiteral(", "), sends.arg(QStringLiteral("Only an input is sent")));
            });
            check(*view(window, "ActView"), "F1");
            QTreeView& parameters = *view(window, "AttList(2)");
            select(parameters, "F1");
            inMenu(parameters, [&](QMenu& menu) {
                QVERIFY(greyed(menu).endsWith(QStringLiteral("ItemEditM: A function keeps its own name")));
            });
            desk.answerSave(Answer::no);
            window.close();
        });
    }

    void keysMoveAndTurn() {
        Desk desk;
        desk.edit("Act", "SetActProp", [&](QDialog& window) {
            check(*view(window, "DBView"), "RS");
            QTreeView& inputs = *view(window, "AttList(0)");
            QVERIFY(view(window, "DBView")->hasFocus());
            tick(*view(window, "DBView"), "NAME");
            QCOMPARE(rows(inputs), QStringLiteral("RS_ID RS_PRICE"));
            tick(*view(window, "DBView"), "NAME");
            QVERIFY2(inputs.hasFocus(), "the list shows what the mouse brought");
            struct Row {
                Qt::Key key;
                const char* order;
            };
            select(inputs, "RS_NAME");
            for (const Row& row :
                 {Row{Qt::Key_Home, "RS_NAME RS_ID RS_PRICE"}, Row{Qt::Key_Down, "RS_ID RS_NAME RS_PRICE"},
                  Row{Qt::Key_End, "RS_ID RS_PRICE RS_NAME"}, Row{Qt::Key_Up, "RS_ID RS_NAME RS_PRICE"}}) {
                QTest::keyClick(&inputs, row.key, Qt::AltModifier);
                QCOMPARE(rows(inputs), QLatin1String(row.order));
            }
            auto* descr = control<QTextEdit>(window, "txtDescr");
            descr->setFocus();
            QTest::keyClick(descr, Qt::Key_Return);
            QCOMPARE(descr->toPlainText(), QStringLiteral("\n"));
            const auto* tabs = control<QTabWidget>(window, "TabStrip1");
            for (const int tab : {3, 2}) {
                QTest::keyClick(&window, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
                QCOMPARE(tabs->currentIndex(), tab);
            }
            QVERIFY(window.isVisible());
            desk.answerSave(Answer::no);
            QTest::keyClick(&window, Qt::Key_Escape);
            QVERIFY(!window.isVisible());
        });
    }

    void rowsShowTheLineOfADragAndTheMarkOfATwin() {
        forms::List list;
        for (const char* key : {"A", "B", "C"}) {
            list.add({.Key = key, .Text = key});
        }
        ListModel model(
            list, {QStringLiteral("Name")}, [](const std::string&, std::int32_t) { return QIcon(); }, nullptr);
        model.dropRows = [](const std::vector<int>&, int) {};
        RowView shown(model, QStringLiteral("rows"), nullptr);
        shown.resize(300, 200);
        shown.show();
        const auto picture = [&] { return shown.viewport()->grab().toImage(); };
        const QImage plain = picture();
        const std::unique_ptr<QMimeData> dragged(model.mimeData({model.index(0, 0)}));
        const QPoint between(30, shown.visualRect(model.index(1, 0)).bottom());
        QDragEnterEvent enter(between, Qt::MoveAction, dragged.get(), Qt::LeftButton, Qt::NoModifier);
        QDragMoveEvent move(between, Qt::MoveAction, dragged.get(), Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(shown.viewport(), &enter);
        QApplication::sendEvent(shown.viewport(), &move);
        QVERIFY(move.isAccepted());
        const QImage lined = picture();
        const auto inked = [&](int y) {
            int count = 0;
            for (int x = 0; x < plain.width(); ++x) {
                count += lined.pixel(x, y) != plain.pixel(x, y);
            }
            return count;
        };
        QVERIFY2(std::max(inked(between.y()), inked(between.y() + 1)) > 200, "the line lies between the rows");
        QCOMPARE(inked(between.y() - 8), 0);
        QDragLeaveEvent leave;
        QApplication::sendEvent(shown.viewport(), &leave);
        QCOMPARE(picture(), plain);
        list.alter(2, [](forms::ListRow& row) { row.Warning = "The row A has this name, too."; });
        QVERIFY(picture() != plain);
        QCOMPARE(model.index(1, 0).data(Qt::ToolTipRole).toString(),
                 QStringLiteral("B\nThe row A has this name, too."));
    }

    void whatIsAppliedMarksTheScenarioAtOnce() {
        Desk desk;
        testkit::GraphBuilder graph(*desk.form);
        for (const std::string name : {"Typed", "Beside"}) {
            graph.activity(name, {"RS_ID"});
            graph.feed("RS.ID", name + ".IN.RS_ID");
        }
        repository::markStored(*desk.form);
        desk.edit("Typed", "SetActProp", [&](QDialog& window) {
            for (const bool changes : {false, true}) {
                if (changes) {
                    QTest::keyClicks(control<QTextEdit>(window, "txtDescr"), QStringLiteral("x"));
                }
                desk.messages.expect("Properties Saved", "", Icon::information);
                click(window, "Apply");
                QCOMPARE(desk.frame.windowTitle().contains(QChar(0x2022)), changes);
            }
            window.close();
        });
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
            QCOMPARE(inputs.currentIndex().data().toString(), QStringLiteral("RS_ID"));
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
            QCOMPARE(indexOf(database, "RS").siblingAtColumn(1).data().toString(), QStringLiteral("1 of 3 shown"));
            auto* filter = control<QLineEdit>(window, "DBViewFilter");
            filter->setFocus();
            QTest::keyClick(filter, Qt::Key_Return);
            QVERIFY(database.hasFocus());
            QCOMPARE(database.currentIndex().data().toString(), QStringLiteral("PRICE"));
            filter->setFocus();
            QTest::keyClick(filter, Qt::Key_Escape);
            QVERIFY2(window.isVisible(), "the keys are the box's");
            QCOMPARE(rows(database), QStringLiteral("Record Sets RS ID NAME PRICE"));
            QVERIFY2(database.isExpanded(indexOf(database, "RS")), "what was found stays in sight");
            filter->setFocus();
            QTest::keyClick(filter, Qt::Key_Escape);
            QVERIFY2(!window.isVisible(), "with nothing to clear it is the window's");
        });
    }

    void clicksMeanWhatIsShown() {
        Desk desk;
        desk.edit("Act", "SetActProp", [&](QDialog& window) {
            QTreeView& database = *view(window, "DBView");
            control<QLineEdit>(window, "DBViewFilter")->setText(QStringLiteral("pri"));
            check(database, "RS");
            QCOMPARE(rows(*view(window, "AttList(0)")), QStringLiteral("RS_PRICE"));
            QCOMPARE(indexOf(database, "RS").data(Qt::CheckStateRole).toInt(), int(Qt::PartiallyChecked));
            control<QLineEdit>(window, "DBViewFilter")->clear();
            QCOMPARE(rows(database), QStringLiteral("Record Sets RS ID NAME PRICE"));
            QVERIFY(!database.isExpanded(indexOf(database, "RS")));
            select(database, "ID");
            QTest::keyClick(&database, Qt::Key_Down, Qt::ShiftModifier);
            QTest::keyClick(&database, Qt::Key_Down, Qt::ShiftModifier);
            QTest::keyClick(&database, Qt::Key_Space);
            QCOMPARE(rows(*view(window, "AttList(0)")), QStringLiteral("RS_PRICE RS_ID RS_NAME"));
            QCOMPARE(database.selectionModel()->selectedRows().size(), 3);
            QTest::keyClick(&database, Qt::Key_Space);
            QCOMPARE(rows(*view(window, "AttList(0)")), QString());
            desk.answerSave(Answer::no);
            window.close();
        });
    }

    void aRecordSetAsksOnceBeforeItDropsChanges() {
        Desk desk;
        desk.form->nodeNamed("RS")->recordSet()->RecordSet_SQL = "select id from rs";
        for (const bool cancels : {false, true}) {
            desk.edit("RS", "RecordSetProp", [&](QDialog& window) {
                QVERIFY(view(window, "AttList")->model()->index(0, 1).data(Qt::ToolTipRole).isValid());
                auto* statement = control<QTextEdit>(window, "txtSQL");
                QTextCursor caret = statement->textCursor();
                caret.setPosition(8);
                statement->setTextCursor(caret);
                typeInto(window, "txtRecordSetName", QStringLiteral("Other"));
                QCOMPARE(statement->textCursor().position(), 8);
                if (cancels) {
                    click(window, "Cancel");
                    return;
                }
                for (const Answer answer : {Answer::cancel, Answer::ok}) {
                    desk.messages.expect("The changes of this record set have not been applied.",
                                         "Record Set Properties", Icon::warning, platform::Buttons::discardGoOn,
                                         answer);
                    answer == Answer::cancel ? QTest::keyClick(&window, Qt::Key_Escape) : void(window.close());
                    QCOMPARE(window.isVisible(), answer == Answer::cancel);
                }
            });
        }
        QVERIFY(desk.form->nodeNamed("RS"));
    }

    void aStatementThatDoesNotFitHasALineOfItsOwn() {
        Desk desk;
        desk.form->nodeNamed("Act")->activity()->Act_LDL = "act_out(Act_OUT_X).";
        desk.edit("Act", "SetActProp", [&](QDialog& window) {
            const auto* line = control<QLabel>(window, "misfit");
            QCOMPARE(line->text(),
                     QStringLiteral(
                         "Does not fit any more: act_out has 1 argument, the activity has 0 outputs. (and 1 more)"));
            QVERIFY(line->isVisible() && line->toolTip().contains(QStringLiteral("Generate…")));
            control<QTextEdit>(window, "txtSQL")->clear();
            QVERIFY(!line->isVisible());
            desk.answerSave(Answer::no);
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

    void aTypeIsShownWholeWithinReason() {
        Desk desk;
        entities::RecordSet_OutputsCollection& attributes = *desk.form->nodeNamed("RS")->recordSet()->RecordSet_Outputs;
        attributes.Item("ID")->Attribute_Type = desk.logic.catalogue().DataTypeIndex("BINARY_DOUBLE");
        for (const bool endless : {false, true}) {
            if (endless) {
                desk.messages.expect("DATA TYPE SAVED", "", Icon::information);
                attributes.Item("ID")->Attribute_Type = desk.logic.catalogue().SaveDataType(std::string(500, 'W'));
            }
            desk.edit("RS", "RecordSetProp", [&](QDialog& window) {
                const QTreeView& list = *view(window, "AttList");
                const QModelIndex type = list.model()->index(0, 1);
                const int needed = list.fontMetrics().horizontalAdvance(type.data().toString());
                QCOMPARE(list.columnWidth(1) > needed, !endless);
                QVERIFY2(list.columnWidth(0) + 1 >= list.columnWidth(1), "names need the room more");
                window.close();
            });
        }
    }

    void aTargetIsDesignedWithoutADatabase() {
        Desk desk;
        testkit::GraphBuilder(*desk.form).recordSet("New");
        desk.edit("New", "RecordSetProp", [&](QDialog& window) {
            auto* name = control<QLineEdit>(window, "txtColumnName");
            auto* types = control<QComboBox>(window, "ColumnTypes");
            name->setFocus();
            QTest::keyClicks(name, QStringLiteral("KEY"));
            desk.messages.expect("PLEASE SELECT A DATATYPE", "", Icon::warning);
            QTest::keyClick(name, Qt::Key_Return);
            desk.messages.verify();
            QCOMPARE(window.focusWidget(), types);
            types->setCurrentIndex(1);
            Q_EMIT types->activated(1);
            name->setFocus();
            QTest::keyClick(name, Qt::Key_Return);
            QVERIFY2(window.isVisible(), "Enter adds the column and leaves the window open");
            QCOMPARE(name->text(), QString());
            QCOMPARE(window.focusWidget(), name);
            desk.dialogs.at(QStringLiteral("TakeOverForm"), [&](QDialog& over) {
                auto* lines = control<QPlainTextEdit>(over, "txtLines");
                auto* found = control<QTreeWidget>(over, "Rows");
                QVERIFY(!lines->isVisible());
                QCOMPARE(found->topLevelItemCount(), 3);
                found->topLevelItem(1)->setCheckState(0, Qt::Unchecked);
                auto* sources = control<QComboBox>(over, "Sources");
                sources->setCurrentIndex(1);
                Q_EMIT sources->activated(1);
                QVERIFY(lines->isVisible());
                QVERIFY(!control<QPushButton>(over, "cmdOK")->isEnabled());
                lines->setPlainText(QStringLiteral("KEY number\nPRICE %1\nTEXT %1").arg(types->itemText(0)));
                QCOMPARE(found->topLevelItem(0)->text(2),
                         QStringLiteral("is there already, as %1").arg(types->itemText(1)));
                found->topLevelItem(1)->setCheckState(0, Qt::Unchecked);
                click(over, "cmdOK");
            });
            click(window, "butTakeOver");
            QCOMPARE(rows(*view(window, "AttList")), QStringLiteral("KEY TEXT"));
            click(window, "OK");
        });
        QCOMPARE(desk.form->nodeNamed("New")->recordSet()->RecordSet_Outputs.count(), 2);
        QVERIFY(desk.form->nodeNamed("New")->Ready());
    }

    void pairsAreProposedAndOnlyTheCheckedAreJoined() {
        Desk desk;
        testkit::GraphBuilder graph(*desk.form);
        graph.activity("Load", {"id", "NAME"});
        for (const char* name : {"RS", "Load"}) {
            desk.form->SelectedLabels.Add(desk.form->NamesColl.Item(name));
        }
        desk.dialogs.at(QStringLiteral("ConnectByName"), [&](QDialog& window) {
            auto* found = control<QTreeWidget>(window, "Rows");
            QCOMPARE(found->topLevelItemCount(), 2);
            for (const Qt::CheckState state : {Qt::Unchecked, Qt::Checked}) {
                found->topLevelItem(1)->setCheckState(0, state);
            }
            found->topLevelItem(0)->setCheckState(0, Qt::Unchecked);
            click(window, "cmdOK");
        });
        desk.logic.run(shell::Command::connectByName);
        desk.dialogs.settle();
        const entities::Act_InputsCollection& inputs = *desk.form->nodeNamed("Load")->activity()->Act_Inputs.peek();
        QCOMPARE(inputs.Item(1)->ProvidedFrom.count(), 0);
        QCOMPARE(inputs.Item(2)->ProvidedFrom.count(), 1);
    }

    void aRecordSetIsMadeFromASourceDatabase() {
        Desk desk;
        testkit::GraphBuilder(*desk.form).recordSet("New");
        // Of the source's types the catalogue knows all but one.
        desk.repository.database.open(desk.source(), "", "")
            ->prepare("CREATE TABLE PLACES (PLACE GEOGRAPHY)")
            ->execute();
        desk.messages.expect("*", "DATA TYPE NOT RPOPERLY SET", Icon::question, Buttons::okCancel, Answer::cancel);
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
            typeInto(window, "txtRecordSetName", QStringLiteral("Act"));
            desk.messages.expect("THIS NAME IS USED FOR ANOTHER NODE OF THE GRAPH.\nPLEASE GIVE ANOTHER NAME!",
                                 "DUPLICATE NAME!", Icon::critical);
            auto* name = control<QLineEdit>(window, "txtRecordSetName");
            for (int refused = 0; refused < 2; ++refused) {
                click(window, "OK");
                QCOMPARE(name->text(), QString());
                QCOMPARE(window.focusWidget(), name);
                desk.messages.verify();
                desk.messages.expect("PLEASE GIVE A VALID NAME", "", Icon::warning);
            }
            click(window, "OK");
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
