// The lists in which things are found: the search, the outline, and what assistive tools are told of a canvas.

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QPlainTextEdit>

#include "qt/canvas/canvas_accessible.h"
#include "qt/canvas/canvas_editor.h"
#include "qt/canvas/minimap.h"
#include "qt/shell/desk_window.h"
#include "testkit/graph_builder.h"
#include "window_program.h"

namespace orvent::qt {

namespace {

/// SOURCE -> Load -> TARGET.
struct Finding : StartedProgram {
    Finding() {
        form = open("One");
        testkit::GraphBuilder graph(*form);
        graph.recordSet("TARGET", {"ID"});
        graph.activity("Load", {"ID"}, {"ID"});
        graph.recordSet("SOURCE", {"ID"});
        graph.feed("SOURCE.ID", "Load.IN.ID");
        graph.edge("SOURCE", "Load");
        graph.edge("Load", "TARGET");
    }

    bool isSelected(const char* name) {
        return form->SelectedLabels.Count() == 1 && form->SelectedLabels.Item(form->NamesColl.Item(name));
    }

    canvas::DrawForm* form;
};

QString shown(const QModelIndex& index, int column = 0) {
    return index.siblingAtColumn(column).data().toString();
}

}  // namespace

class FindingTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void wordsAreFoundAsOneTypes() {
        Finding program;
        program.choose("FindM");
        auto* field = control<QLineEdit>(program.frame, "txtFind");
        auto* list = control<QTreeView>(program.frame, "lstFound");
        const QAbstractItemModelTester tester(list->model(), QAbstractItemModelTester::FailureReportingMode::Warning);
        QTRY_VERIFY(field->hasFocus());
        QTest::keyClicks(field, QStringLiteral("id"));
        QTRY_COMPARE(list->model()->rowCount(), 4);
        QCOMPARE(program.form->found().size(), 3U);
        QCOMPARE(shown(list->model()->index(1, 0)), QStringLiteral("Load.ID"));
        QCOMPARE(shown(list->model()->index(1, 0), 1), QStringLiteral("Input, name"));
        program.choose("FindNextM");
        program.choose("FindNextM");
        QVERIFY(program.isSelected("Load"));
        QCOMPARE(list->currentIndex().row(), 1);
        QCOMPARE(control<QLabel>(program.frame, "lblFound")->text(), QStringLiteral("2 of 4 hits"));
        QVERIFY2(field->hasFocus(), "one goes on typing");

        int row = 0;
        QTest::keyClick(field, Qt::Key_Down);
        program.dialogs.at(QStringLiteral("RecordSetProp"), [&](QDialog& window) {
            row = control<QTreeView>(window, "AttList")->currentIndex().row();
            window.close();
        });
        list->setCurrentIndex(list->model()->index(3, 0));
        QTest::keyClick(list, Qt::Key_Return);
        QCOMPARE(row, 0);
        QVERIFY(program.isSelected("SOURCE"));

        program.choose("FindM");
        QTest::keyClick(field, Qt::Key_Escape);
        QVERIFY(field->text().isEmpty() && program.form->found().empty());
        QCOMPARE(list->model()->rowCount(), 0);
        QTest::keyClick(field, Qt::Key_Escape);
        QTRY_VERIFY(!control<QDockWidget>(program.frame, "FindDock")->isVisible());
    }

    void theOutlineIsTheScenarioByKeyboard() {
        Finding program;
        program.choose("ViewOutlineM");
        auto* tree = control<QTreeView>(program.frame, "treOutline");
        QAbstractItemModel& rows = *tree->model();
        const QAbstractItemModelTester tester(&rows, QAbstractItemModelTester::FailureReportingMode::Warning);
        QTRY_COMPARE(rows.rowCount(), 3);
        QCOMPARE(shown(rows.index(0, 0)), QStringLiteral("SOURCE"));
        QTRY_VERIFY(tree->hasFocus());
        QTest::keyClick(tree, Qt::Key_Down);
        QVERIFY(program.isSelected("Load"));
        QVERIFY2(tree->hasFocus(), "the keys go on here");
        QTest::keyClick(tree, Qt::Key_Right);
        QTest::keyClick(tree, Qt::Key_Down);
        QCOMPARE(tree->currentIndex().data(Qt::ToolTipRole).toString(), QStringLiteral("ID, Input, VARCHAR2"));
        QTest::keyClick(tree, Qt::Key_Right);
        QTest::keyClick(tree, Qt::Key_Down);
        QCOMPARE(shown(tree->currentIndex()), QStringLiteral("from SOURCE.ID"));
        QTest::keyClick(tree, Qt::Key_Return);
        QCOMPARE(shown(tree->currentIndex().parent()), QStringLiteral("SOURCE"));

        program.form->SelectedLabels.Clear();
        program.form->SelectedLabels.Add(program.form->NamesColl.Item("Load"));
        QTRY_COMPARE(shown(tree->currentIndex()), QStringLiteral("Load"));
        QVERIFY(tree->isExpanded(tree->currentIndex()));
        QTest::keyClick(tree, Qt::Key_F2);
        auto* editor = tree->findChild<QLineEdit*>();
        QVERIFY(editor);
        editor->setText(QStringLiteral("Fetch"));
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(shown(tree->currentIndex()), QStringLiteral("Fetch"));
        QVERIFY2(tree->isExpanded(tree->currentIndex()), "it stays open");
        QCOMPARE(
            program.form->nodeNamed("SOURCE")->recordSet()->RecordSet_Outputs->Item(1)->ProviderFor->Item(1)->key(),
            "Fetch.IN.ID");
        program.form->Labels.Remove(program.form->NamesColl.Item("TARGET"));
        QTRY_COMPARE(rows.rowCount(), 2);
        QVERIFY2(tree->isExpanded(rows.index(1, 0)), "likewise when all rows are new");
        QCOMPARE(shown(tree->currentIndex()), QStringLiteral("Fetch"));
        control<QDockWidget>(program.frame, "OutlineDock")->close();
        QTRY_VERIFY(!program.menuItem("ViewOutlineM")->isChecked());
        QCOMPARE(rows.rowCount(), 0);
    }

    void typesAreDroppedAndNamed() {
        Finding program;
        program.choose("ViewTypesM");
        auto* field = control<QLineEdit>(program.frame, "txtTypes");
        auto* list = control<QTreeView>(program.frame, "lstTypes");
        QAbstractItemModel& rows = *list->model();
        const QAbstractItemModelTester tester(&rows, QAbstractItemModelTester::FailureReportingMode::Warning);
        QTRY_VERIFY(field->hasFocus());
        QTest::keyClicks(field, QStringLiteral("comment"));
        QVERIFY(rows.rowCount() >= 1);
        QTest::keyClick(field, Qt::Key_Return);
        auto& view = program.frame.area().activeWindow()->editor();
        QVERIFY2(control<QPlainTextEdit>(view, "commentEditor")->hasFocus(), "its text is written");
        QTest::keyClick(control<QPlainTextEdit>(view, "commentEditor"), Qt::Key_Escape);

        field->clear();
        int row = 0;
        while (row < rows.rowCount() && shown(rows.index(row, 0), 1) != QStringLiteral("1")) {
            ++row;
        }
        QVERIFY2(row < rows.rowCount(), "no type reads one source");
        const QString type = shown(rows.index(row, 0));
        const std::unique_ptr<QMimeData> data(rows.mimeData({rows.index(row, 0), rows.index(row, 1)}));
        const canvas::LinesD& edge = *program.form->Lines.at(1);
        program.form->nodeNamed("SOURCE")->setBox({1000, 3000, 1050, 450});
        program.form->nodeNamed("Load")->setBox({4500, 3000, 1050, 450});
        QApplication::processEvents();
        const auto drop = [&](canvas::Point place) {
            const QPoint at = view.transform().toPixels(place).toPoint();
            QDragEnterEvent enter(at, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(view.viewport(), &enter);
            QDragMoveEvent move(at, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(view.viewport(), &move);
            if (!move.isAccepted()) {
                return false;
            }
            QDropEvent event(at, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(view.viewport(), &event);
            return true;
        };
        QVERIFY2(!drop({4800, 3200}), "a node stands there");
        QVERIFY(drop({edge.Xm(), edge.Ym()}));
        const canvas::LabelsD& node = *program.form->Labels.byIndex(program.form->LabelsNo);
        QCOMPARE(program.logic.catalogue().tables.activityTypes.shown(node.activity()->Act_Type), type.toStdString());
        QCOMPARE(node.activity()->Act_Inputs.count(), 1);
        QTRY_VERIFY(view.findChild<QLineEdit*>(QStringLiteral("nameEditor")));
        auto* name = control<QLineEdit>(view, "nameEditor");
        QTRY_VERIFY(name->hasFocus());
        name->setText(QStringLiteral("Sieve"));
        QTest::keyClick(name, Qt::Key_Return);
        QCOMPARE(program.form->nodeNamed("Load")->activity()->Act_Inputs->Item(1)->ProvidedFrom->Item(1)->name(),
                 std::string("Sieve"));
    }

    void theMinimapShowsAndMovesWhatTheViewShows() {
        Finding program;
        for (int at = 0; at < 3; ++at) {
            program.form->Labels.at(at + 1)->setBox(
                {1000.0F + 30000.0F * static_cast<float>(at), 20000.0F * static_cast<float>(at), 1050, 450});
        }
        program.choose("ViewMinimapM");
        auto* map = control<Minimap>(program.frame, "minimap");
        auto& view = program.frame.area().activeWindow()->editor();
        QTRY_VERIFY(map->paintings() > 0);
        QApplication::processEvents();
        const int painted = map->paintings();
        const canvas::LabelsD& node = *program.form->Labels.at(2);
        const canvas::Point middle{node.Left() + 500, node.Top() + 200};
        QTest::mouseClick(map, Qt::LeftButton, {}, map->shownAt(middle).toPoint());
        const QPointF shown = view.transform().toPixels(middle) - QRectF(view.viewport()->rect()).center();
        const double pixel = 1 / (map->shownAt({15, 0}).x() - map->shownAt({0, 0}).x());
        QVERIFY2(std::abs(shown.x()) <= pixel && std::abs(shown.y()) <= pixel, "within a pixel of the minimap");
        QApplication::processEvents();
        QCOMPARE(map->paintings(), painted);
        program.form->Labels.at(1)->setBox({1000, 5000, 1050, 450});
        QTRY_COMPARE(map->paintings(), painted + 1);

        program.open("Two");
        QVERIFY(program.frame.area().activeWindow()->editor().findChild<Minimap*>()->isVisible());
        program.choose("ViewMinimapM");
        QVERIFY(!program.frame.findChild<Minimap*>());
    }

    void assistiveToolsAreToldOfNodesAndEdges() {
        installCanvasAccessible();
        Finding program;
        auto& view = program.frame.area().activeWindow()->editor();
        QAccessibleInterface* canvas = QAccessible::queryAccessibleInterface(&view);
        QVERIFY(canvas);
        QCOMPARE(canvas->role(), QAccessible::Canvas);
        QCOMPARE(canvas->childCount(), 5);
        QAccessibleInterface* load = canvas->child(1);
        QCOMPARE(load->text(QAccessible::Name), QStringLiteral("Load"));
        QVERIFY(load->text(QAccessible::Description).startsWith(QStringLiteral("Activity, not ready, inputs: 1")));
        QCOMPARE(canvas->child(3)->text(QAccessible::Name), QStringLiteral("SOURCE → Load"));
        for (int child = 0; child < 5; ++child) {
            QCOMPARE(canvas->indexOfChild(canvas->child(child)), child);
            QCOMPARE(canvas->child(child)->parent(), canvas);
        }
        canvas::LabelsD& node = *program.form->nodeNamed("Load");
        node.setBox({3000, 1500, 1500, 900});
        const QPoint middle = load->rect().center();
        QCOMPARE(canvas->childAt(middle.x(), middle.y()), load);
        QVERIFY(load->state().selectable && !load->state().selected && !load->state().offscreen);

        view.setFocus();
        QTRY_VERIFY(view.hasFocus());
        program.form->SelectedLabels.Add(node.Index());
        program.form->ActiveLabel = node.Index();
        QVERIFY(load->state().selected && load->state().focused);
        QCOMPARE(canvas->focusChild(), load);
        QTest::keyClick(&view, Qt::Key_Left);
        QVERIFY(canvas->focusChild() && canvas->focusChild() != load);
        program.form->Labels.Remove(node.Index());
        QVERIFY(!load->isValid() && load->state().invalid);
        QCOMPARE(canvas->childCount(), 2);
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::FindingTest)
#include "finding_test.moc"
