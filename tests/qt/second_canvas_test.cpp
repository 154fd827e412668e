// A window with another kind of canvas among those of the scenarios: whatever the frame does for the window in front,
// it does for this one, too.

#include <QToolBar>

#include "qt/canvas/canvas_editor.h"
#include "qt/shell/desk_area.h"
#include "qt/shell/desk_window.h"
#include "testkit/second_form.h"
#include "window_program.h"

namespace orvent::qt {

namespace {

struct Desk : StartedProgram {
    Desk() {
        design = open("One");
        auto form =
            std::make_unique<testkit::SecondForm>(*design, canvas::CanvasServices{messages, logic.options().canvas});
        second = form.get();
        node = &form->Labels.Add({1000, 1000, 1050, 450}, "RS", canvas::NodeTypeRecordSet);
        logic.show(std::move(form));
        QApplication::processEvents();
    }

    DeskWindow& window() { return *frame.area().windowOf(*second); }
    QPoint middleOfNode() { return window().editor().transform().toPixels(canvas::Point{1500, 1200}).toPoint(); }

    canvas::DrawForm* design;
    testkit::SecondForm* second;
    canvas::LabelsD* node;
};

}  // namespace

class SecondCanvasTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void menusAndToolsAreThoseOfItsKind() {
        Desk desk;
        QCOMPARE(desk.frame.area().active(), desk.second);
        QCOMPARE(desk.frame.windowTitle(), QStringLiteral("One - View — ORVENT II"));
        for (const auto& [item, shown, on] : {std::tuple{"SaveChangesM", true, true},
                                              {"SaveScenarioM", false, false},
                                              {"SaveScenarioAsM", false, false},
                                              {"CloseZoomingM", true, true},
                                              {"ExportTxtM", false, false},
                                              {"ViewFitM", true, true},
                                              {"ZoomInM", true, true},
                                              {"LoginM", false, false},
                                              {"NewScenarioM", true, true}}) {
            QVERIFY2(desk.menuItem(item)->isVisible() == shown && desk.menuItem(item)->isEnabled() == on, item);
        }
        auto* nodes = control<QToolBar>(desk.frame, "NodeBar");
        QVERIFY(control<QAction>(*nodes, "Constant")->isEnabled() &&
                !control<QAction>(*nodes, "Activity")->isEnabled());
        QVERIFY(!desk.frame.area().windowOf(*desk.design)->isEnabled());
        desk.second->setCaption("Other");
        QCOMPARE(desk.frame.windowTitle(), QStringLiteral("Other — ORVENT II"));
    }

    void commandsGoToIt() {
        Desk desk;
        QTest::keyClick(&desk.window().editor(), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(desk.second->saves, 1);
        desk.choose("SelectAllM");
        QCOMPARE(desk.second->SelectedLabels.Count(), 1);
        desk.input.expect("ZOOM IN RATIO :", "Zooming IN", "", "2");
        desk.choose("ZoomInM");
        QCOMPARE(desk.node->Width(), 2100.0F);
        desk.choose("ViewSmallerM");
        QVERIFY(desk.window().editor().scale() < 1);
        desk.dialogs.at(QStringLiteral("PrintDialog"), [](QDialog& dialog) { dialog.reject(); });
        desk.choose("PrintZoomM");
    }

    void itsContextMenuPopsUpInItAlsoWhileAnotherWindowIsInFront() {
        Desk desk;
        canvas::DrawForm& other = *desk.open("Two");
        QCOMPARE(desk.frame.area().active(), &other);
        desk.frame.area().showMenu(*desk.second, desk.second->rules().menus()[0], {1500, 1200});
        auto* menu = desk.window().findChild<QMenu*>(QStringLiteral("RecordSetM"));
        QVERIFY(menu && menu->isVisible());
        QCOMPARE(menu->actions().constFirst()->objectName(), QStringLiteral("SecondPropertiesM"));
        menu->close();
        desk.frame.area().reveal(*desk.second, *desk.node);
        QCOMPARE(desk.frame.area().active(), desk.second);
        QTest::mouseClick(desk.window().editor().viewport(), Qt::RightButton, {}, desk.middleOfNode());
        QCOMPARE(desk.second->ActiveLabel, desk.node->Index());
        QVERIFY(desk.second->SelectedLabels.Item(desk.node->Index()));
        auto* opened = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(opened && opened->defaultAction()->objectName() == QStringLiteral("SecondPropertiesM"));
        QVERIFY(opened->actions()[1]->isSeparator());
        auto* ready = control<QAction>(*opened, "SecondReadyM");
        auto* off = control<QAction>(*opened, "SecondOffM");
        QVERIFY(ready->isCheckable() && !ready->isChecked() && ready->isEnabled());
        QVERIFY(!off->isCheckable() && !off->isEnabled());
        opened->close();
        desk.node->setReady(true);
        desk.frame.area().showMenu(*desk.second, desk.second->rules().menus()[0], {1500, 1200});
        QVERIFY(control<QAction>(*QApplication::activePopupWidget(), "SecondReadyM")->isChecked());
        QApplication::activePopupWidget()->close();
    }

    void itClosesBeforeTheScenarios() {
        Desk desk;
        desk.second->mayClose = false;
        desk.choose("CloseZoomingM");
        QVERIFY(desk.window().isVisible());
        QVERIFY2(!desk.frame.close(), "no scenario was asked");
        desk.second->mayClose = true;
        desk.answerClose("One", platform::Answer::cancel);
        QVERIFY(!desk.frame.close());
        QCOMPARE(desk.frame.area().active(), desk.design);
        QVERIFY2(desk.design->Enabled(), "the view over it has gone");
        QVERIFY2(desk.frame.area().windowOf(*desk.design)->isMaximized(), "it fills its tab");
        QTRY_VERIFY2(desk.logic.tools().DesignToolsOn(), "its canvas has the focus");
        QVERIFY(desk.menuItem("SaveScenarioM")->isVisible() && !desk.menuItem("SaveChangesM")->isVisible());
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::SecondCanvasTest)
#include "second_canvas_test.moc"
