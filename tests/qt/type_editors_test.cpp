// The windows of the catalogue's editors: keys, buttons and what they show.

#include "window_program.h"

namespace orvent::qt {

using platform::Icon;

class TypeEditorsTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void aFunctionTypeIsMade() {
        StartedProgram program;
        program.dialogs.at(QStringLiteral("DBFunctionType"), [&](QDialog& window) {
            QCOMPARE(control<QGroupBox>(window, "title")->title(), QStringLiteral("EXISTING FUNCTION TYPES"));
            click(window, "But_NEW");
            QCOMPARE(control<QGroupBox>(window, "title")->title(), QStringLiteral("CREATE NEW FUNCTION TYPE"));
            auto* descr = control<QTextEdit>(window, "txtFunctionTypeDescr");
            QCOMPARE(descr->textCursor().selectedText(), QStringLiteral("Give A Description For This Function Type"));
            QVERIFY(control<QLineEdit>(window, "txtFunctionTypeName")->hasFocus());
            QTest::keyClicks(descr, QStringLiteral("The middle"));
            typeInto(window, "txtFunctionTypeName", QStringLiteral("MEDIAN_OF"));
            for (const char* add : {"AddInput", "AddOutPut"}) {
                program.dialogs.at(QStringLiteral("InOutProp"), [](QDialog& item) {
                    control<QComboBox>(item, "InOutTypes")->setCurrentIndex(1);
                    QTest::keyClicks(control<QLineEdit>(item, "txtInOutName"), QStringLiteral("X"));
                    QTest::keyClick(&item, Qt::Key_Return);
                });
                click(window, add);
            }
            QVERIFY(!control<QPushButton>(window, "AddOutPut")->isEnabled());
            auto* outputs = control<QListWidget>(window, "OutPutList");
            outputs->setCurrentRow(0);
            click(window, "RemOutPut");
            QCOMPARE(outputs->count(), 0);
            QVERIFY(control<QPushButton>(window, "AddOutPut")->isEnabled());

            program.messages.expect("THERE ARE NO OUTPUTS SET\nARE YOU SURE YOU WANT TO SAVE THIS FUNCTION TYPE?", "",
                                    Icon::question, platform::Buttons::yesNo, platform::Answer::yes);
            program.messages.expect("FUNCTION TYPE SAVED", "", Icon::information);
            QTest::keyClick(control<QLineEdit>(window, "txtFunctionTypeName"), Qt::Key_Return);  // Save, while editing
            QCOMPARE(control<QListWidget>(window, "FunctionTypes")->currentItem()->text(), QStringLiteral("MEDIAN_OF"));
            QTest::keyClick(&window, Qt::Key_Escape);
            QVERIFY(!window.isVisible());
        });
        program.choose("ShowFunctionTypesM");
    }

    void theTemplateShowsItsVariablesWhileItIsTyped() {
        StartedProgram program;
        program.dialogs.at(QStringLiteral("DBActTypes"), [&](QDialog& window) {
            click(window, "But_NEW");
            DialogScript::isNamed(window);  // now that other buttons answer
            for (const auto& [letter, add] :
                 {std::pair{Qt::Key_P, "AddParam"}, {Qt::Key_U, "AddOutPut"}, {Qt::Key_F, "AddFunction"}}) {
                QTest::keyClick(&window, letter, Qt::AltModifier);
                QVERIFY2(control<QPushButton>(window, add)->hasFocus(), add);
            }
            auto* ldl = control<QTextEdit>(window, "txtLDL");
            ldl->insertPlainText(QStringLiteral("a_out(@X[1])<-@Y."));
            const auto* variables = control<QListWidget>(window, "variables");
            QCOMPARE(variables->count(), 2);
            QCOMPARE(variables->item(0)->text(), QStringLiteral("@X[ ]"));
            auto* option = control<QRadioButton>(window, "ProvSemOption(0)");
            option->click();
            QVERIFY(option->isChecked());
            click(window, "But_Cancel");
            QVERIFY(!option->isChecked());
            click(window, "But_OK");
            QVERIFY(!window.isVisible());
        });
        program.choose("ShowActivityTypesM");
    }

    void whatIsGreySaysWhyAndSizesAreKept() {
        StartedProgram program;
        QSize left;
        program.dialogs.at(QStringLiteral("DBFunctionType"), [&](QDialog& window) {
            const auto whys = [&] {
                QStringList list;
                for (const char* name : {"But_NEW", "But_EDIT", "But_DELETE", "AddInput", "RemInput", "AddOutPut"}) {
                    const auto* button = control<QPushButton>(window, name);
                    list << (button->isEnabled() ? QStringLiteral("-") : button->toolTip());
                }
                return list.join(QLatin1Char('|'));
            };
            auto* types = control<QListWidget>(window, "FunctionTypes");
            types->setCurrentRow(-1);
            const QString begin = QStringLiteral("Choose New or Edit first");
            QCOMPARE(whys(), QStringLiteral("-|%1|%1|%2|%2|%2").arg(QStringLiteral("Choose a type first"), begin));
            types->setCurrentRow(1);
            QCOMPARE(whys(), QStringLiteral("-|-|-|%1|%1|%1").arg(begin));
            QCOMPARE(control<QLabel>(window, "usedBy")->text(), QStringLiteral("Used by no stored activity"));
            QTest::keyClick(types, Qt::Key_F2);
            const QString end = QStringLiteral("Save or cancel first");
            const QString one = QStringLiteral("A function type has one output");
            QCOMPARE(whys(), QStringLiteral("%1|%1|%1|-|Choose a line of the list first|%2").arg(end, one));
            window.resize(740, 530);
            left = window.size();
            window.close();
        });
        program.choose("ShowFunctionTypesM");
        program.dialogs.at(QStringLiteral("DBFunctionType"), [&](QDialog& window) {
            QCOMPARE(window.size(), left);
            window.close();
        });
        program.choose("ShowFunctionTypesM");
    }

    void aPressOnTheDisabledDeleteTellsWhy() {
        StartedProgram program;
        program.open("S");
        program.dialogs.at(QStringLiteral("DBDataTypes"), [&](QDialog& window) {
            auto* button = control<QPushButton>(window, "But_DELETE");
            QVERIFY(!button->isEnabled());
            program.messages.expect("Please Close All Active Scenarios In Order To Be Able To Delete A Data Type!", "",
                                    Icon::information);
            QTest::mouseClick(&window, Qt::LeftButton, {}, button->mapTo(&window, button->rect().center()));
            QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(2, 2));
            click(window, "But_OK");
        });
        program.choose("ShowDataTypesM");
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::TypeEditorsTest)
#include "type_editors_test.moc"
