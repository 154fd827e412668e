// The dialogs of single nodes of a zoom view, from their menu to the view.

#include "qt/editors/item_window.h"
#include "window_program.h"

namespace orvent::qt {

using platform::Icon;

class ItemDialogsTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void aNodeIsNamedAndTyped() {
        StartedProgram program;
        zoom::ZoomForm& zoom = openZoom(program);
        canvas::LabelsD* placed = nullptr;
        zoom.rules().placeNode(zoom, "Parameter", {3000, 3000});
        for (canvas::LabelsD& node : zoom.Labels) {
            placed = &node;
        }
        program.messages.expect("PLEASE GIVE A VALID NAME", "", Icon::warning);
        program.dialogs.at(QStringLiteral("ParameterProp"), [](QDialog& window) {
            auto* name = control<QLineEdit>(window, "txtParamName");
            QVERIFY(name->hasFocus());
            QCOMPARE(name->selectedText(), QStringLiteral("Parameter1"));
            QTest::keyClick(name, Qt::Key_Backspace);
            control<QComboBox>(window, "DataTypes")->setFocus();
            click(window, "OK");
            QVERIFY(name->hasFocus());
            QTest::keyClicks(name, QStringLiteral("Threshold"));
            control<QComboBox>(window, "DataTypes")->setCurrentIndex(1);
            QTest::keyClick(&window, Qt::Key_Return);
            QVERIFY(!window.isVisible());
        });
        open(program, zoom, *placed);
        QCOMPARE(placed->Caption(), std::string("Threshold"));
        QVERIFY(placed->Ready());
        QVERIFY(zoom.unapplied());
        QCOMPARE(placed->entity<entities::ParameterProperties>()->Parameter_Type, std::int16_t{1});
    }

    void theTypeOfAMemberIsOnlyShown() {
        StartedProgram program;
        zoom::ZoomForm& zoom = openZoom(program);
        canvas::LabelsD* member = nullptr;
        for (canvas::LabelsD& node : zoom.Labels) {
            if (!member && node.NodeType() == canvas::NodeTypeAttribute) {
                member = &node;
            }
        }
        const std::string name = member->Caption();
        program.dialogs.at(QStringLiteral("AttributeProp"), [](QDialog& window) {
            QVERIFY(control<QLineEdit>(window, "txtType")->isReadOnly());
            QVERIFY(!window.findChild<QComboBox*>());
            typeInto(window, "txtAttributeName", QStringLiteral("Other"));
            QTest::keyClick(&window, Qt::Key_Escape);
        });
        open(program, zoom, *member);
        QCOMPARE(member->Caption(), name);
        QVERIFY(!zoom.unapplied());
    }

  private:
    static zoom::ZoomForm& openZoom(WindowProgram& program) {
        program.logic.run(shell::Command::loadTestGraph);
        canvas::DrawForm& design = *program.logic.activeScenario();
        for (const canvas::LabelsD& node : design.Labels) {
            if (node.activity()) {
                program.logic.ZoomActivity(design.slot(), node.Index());
                break;
            }
        }
        return dynamic_cast<zoom::ZoomForm&>(*program.frame.area().active());
    }

    static void open(WindowProgram& program, canvas::CanvasForm& form, canvas::LabelsD& node) {
        program.logic.pointerPorts().windows.openProperties(form, node);
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::ItemDialogsTest)
#include "item_dialogs_test.moc"
