// Tool bars, palettes, options, and the dialogs of printing.

#include <QDoubleSpinBox>
#include <QToolBar>
#include <QToolButton>

#include "window_program.h"
#include "window_test.h"

namespace orvent::qt {

using platform::Answer;

class ToolsTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void toolsShowOneStateInBarsAndPalettes() {
        WindowProgram program;
        program.start();
        auto* band = control<QToolBar>(program.frame, "NodeBar");
        auto* palette = control<QWidget>(program.frame, "NodeForm");
        QVERIFY(!band->isVisible());
        program.open("One");
        QTRY_VERIFY(band->isVisible() && !palette->isVisible());  // when the window becomes active
        const auto press = [&](const char* key) {
            QTest::mouseClick(control<QToolButton>(program.frame, key), Qt::LeftButton);
        };
        press("Nodes");
        QVERIFY(!band->isVisible() && palette->isVisible());
        auto* twin = control<QAction>(*palette, "Comment");
        twin->trigger();
        QVERIFY(twin->isChecked() && control<QAction>(*band, "Comment")->isChecked());
        control<QAction>(*control<QToolBar>(program.frame, "ArrowBar"), "Crop")->trigger();
        QVERIFY(!twin->isChecked() && !control<QAction>(*band, "Comment")->isChecked());
        QVERIFY(!control<QAction>(*palette, "Function")->isEnabled());

        program.frame.showMinimized();
        QVERIFY(!palette->isVisible());
        program.frame.showNormal();
        QVERIFY(palette->isVisible());
        const std::pair<const char*, Qt::ToolBarArea> sides[] = {{"DockL", Qt::LeftToolBarArea},
                                                                 {"DockR", Qt::RightToolBarArea},
                                                                 {"DockD", Qt::BottomToolBarArea},
                                                                 {"DockU", Qt::TopToolBarArea}};
        for (const auto& [button, area] : sides) {
            QTest::mouseClick(control<QToolButton>(*palette, button), Qt::LeftButton);
            QVERIFY(band->isVisible() && !palette->isVisible());
            QCOMPARE(program.frame.toolBarArea(band), area);
            press("Nodes");
        }
        QTest::mouseClick(control<QToolButton>(*palette, "DockNo"), Qt::LeftButton);
        QVERIFY(palette->isVisible());
        palette->close();
        QVERIFY(band->isVisible() && !palette->isVisible());

        // Dragged out of its bar, a band becomes a palette where it is dropped.
        const QPoint handle(5, band->height() / 2);
        const QPoint centre = program.frame.centralWidget()->rect().center();
        const QPoint drop = band->mapFromGlobal(program.frame.centralWidget()->mapToGlobal(centre));
        QTest::mousePress(band, Qt::LeftButton, {}, handle);
        QTest::mouseRelease(band, Qt::LeftButton, {}, drop);
        QVERIFY(!band->isVisible() && palette->isVisible());
        program.answerClose("One", Answer::ok);
        program.choose("CloseScenarioM");
        QVERIFY(!twin->isEnabled() && !control<QToolBar>(program.frame, "EdgeBar")->isVisible());
    }

    void optionsAreStoredAndCancelledDialogsDoNothing() {
        WindowProgram program;
        program.start();
        program.repository.store.setValue("Draw", "ActW", "9000");
        program.dialogs.at(QStringLiteral("OptionsForm"), [&](QDialog& window) {
            auto* width = control<QDoubleSpinBox>(window, "Text8");
            QCOMPARE(width->value(), 70.0);
            width->setFocus();
            width->selectAll();
            QTest::keyClicks(width, QStringLiteral("100"));
            click(window, "butOK");
        });
        QTest::mouseClick(control<QToolButton>(program.frame, "Options"), Qt::LeftButton);
        QCOMPARE(program.repository.store.value("Draw", "ActW", ""), std::string("1500"));
        QCOMPARE(program.logic.options().canvas.ActW, 1500.0F);
        program.open("One");
        for (const auto& [item, dialog] : {std::pair{"PrintScenarioM", "PrintDialog"},
                                           {"PrintPreviewM", "PrintPreview"},
                                           {"HelpShortcutsM", "ShortcutsForm"}}) {
            program.dialogs.at(QLatin1String(dialog), [](QDialog& window) { window.reject(); });
            program.choose(item);
        }
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::ToolsTest)
#include "tools_test.moc"
