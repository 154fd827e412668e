// The wizard's window over its real logic: what it shows at each step, and the way from a template to an activity with
// mouse and keys.

#include <QLabel>
#include <QTextEdit>
#include <QTreeWidget>

#include "window_test.h"
#include "wizard_player.h"

namespace orvent::qt {

namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

QString lineOf(const QDialog& window, const char* name) {
    return control<QLabel>(window, name)->text();
}

/// The names of the buttons that are grey, and whether each tells why.
QStringList greyButtons(const QDialog& window) {
    QStringList grey;
    for (const char* name : {"cmdParseLDL", "cmdGenerateLDL", "cmdCreateAct", "cmdPrev", "cmdNext", "cmdOK"}) {
        const auto* button = control<QPushButton>(window, name);
        if (!button->isEnabled()) {
            grey << QLatin1String(name);
        }
        if (button->isEnabled() != button->toolTip().isEmpty()) {
            failQt(std::string(name) + " should tell why it is grey, and only then");
        }
    }
    return grey;
}

/// The stretches of the template that are marked.
QStringList marked(const QTextEdit& box) {
    QStringList result;
    bool inside = false;
    for (int at = 0; at < box.document()->characterCount() - 1; ++at) {
        QTextCursor cursor(box.document());
        cursor.setPosition(at + 1);
        const bool bold = cursor.charFormat().fontWeight() == QFont::Bold;
        if (bold && !inside) {
            result << QString();
        }
        if (bold) {
            result.last() += box.document()->characterAt(at);
        }
        inside = bold;
    }
    return result;
}

QString text(const QDialog& window) {
    return control<QTextEdit>(window, "txtTemplate")->toPlainText();
}

}  // namespace

class LdlWizardTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void scalarsAreDefinedOneByOne() {
        WizardPlayer player;
        player.run("Selection", [&](QDialog& window) {
            QVERIFY(!control<QWidget>(window, "frameVar")->isVisible());
            QCOMPARE(greyButtons(window).size(), 5);
            QVERIFY(control<QPushButton>(window, "cmdParseLDL")->hasFocus());
            QTest::keyClick(&window, Qt::Key_Return);  // the button that leads on is the standard one

            QCOMPARE(marked(*control<QTextEdit>(window, "txtTemplate")), QStringList{QStringLiteral("@FIELD")});
            QCOMPARE(lineOf(window, "progress"), QStringLiteral("Variable 1 of 3: @FIELD"));
            QCOMPARE(lineOf(window, "hint"), QStringLiteral("Choose what @FIELD stands for."));
            QCOMPARE(lineOf(window, "step"), QStringLiteral("1 of 3"));
            QCOMPARE(greyButtons(window), QStringList({QStringLiteral("cmdGenerateLDL"), QStringLiteral("cmdCreateAct"),
                                                       QStringLiteral("cmdPrev"), QStringLiteral("cmdOK")}));
            WizardPlayer::option(window, "optParam");
            QVERIFY(!control<QWidget>(window, "frameArrity")->isVisible());
            QVERIFY(!control<QWidget>(window, "txtFunctionName")->isVisible());
            WizardPlayer::pick(window, "listInputs", "a_in1");
            QVERIFY(control<QRadioButton>(window, "optValueInput")->isChecked());
            QCOMPARE(lineOf(window, "hint"), QStringLiteral("Select the attribute of a_in1."));
            WizardPlayer::pick(window, "listInputAttributes", "3(PRICE)");
            QCOMPARE(lineOf(window, "hint"), QStringLiteral("Complete. Go on to the next variable."));
            QTest::keyClick(&window, Qt::Key_Return);

            QCOMPARE(lineOf(window, "lblVariable"), QStringLiteral("OPERATOR"));
            QVERIFY(control<QRadioButton>(window, "optParam")->hasFocus());
            QTest::keyClick(control<QRadioButton>(window, "optParam"), Qt::Key_Space);
            WizardPlayer::constant(window, ">");
            click(window, "cmdPrev");
            QCOMPARE(control<QComboBox>(window, "listInputAttributes")->currentText(), QStringLiteral("3(PRICE)"));
            click(window, "cmdNext");
            QCOMPARE(control<QLineEdit>(window, "txtConst")->text(), QStringLiteral(">"));
            click(window, "cmdNext");
            const auto* list = control<QTreeWidget>(window, "listVariables");
            QCOMPARE(list->topLevelItem(1)->text(1), QStringLiteral("Parameter"));
            QCOMPARE(list->topLevelItem(1)->toolTip(0), QStringLiteral("Complete"));
            QCOMPARE(list->topLevelItem(2)->toolTip(0), QStringLiteral("Something is missing"));
            WizardPlayer::option(window, "optParam");
            WizardPlayer::constant(window, "10");
            QTest::keyClick(&window, Qt::Key_Return);
            QVERIFY(text(window).contains(QLatin1String("Sel_IN1_PRICE > 10,")));
            QVERIFY(!text(window).contains(QLatin1Char('@')));
            player.program.messages.expect("Activity Created", "", Icon::information);
            QTest::keyClick(&window, Qt::Key_Return);
            QVERIFY(greyButtons(window).contains(QStringLiteral("cmdNext")));
            QTest::keyClick(&window, Qt::Key_Return);
            QVERIFY(!window.isVisible());
        });
        QVERIFY(player.activity->Act_LDL.find("Sel_IN1_PRICE > 10,") != std::string::npos);
        QCOMPARE(player.activity->Act_Parameters.count(), 3);
        QVERIFY(player.form->Enabled);
    }

    void anArrayGetsItsElements() {
        WizardPlayer player;
        player.run("Aggregation", [&](QDialog& window) {
            click(window, "cmdParseLDL");
            QVERIFY(!control<QRadioButton>(window, "optParam")->isVisible());
            WizardPlayer::option(window, "optParamArray");
            QCOMPARE(lineOf(window, "hint"), QStringLiteral("Set the number of elements."));
            WizardPlayer::addElement(window);
            QCOMPARE(control<QGroupBox>(window, "frameValue")->title(), QStringLiteral("Value Of  GROUPATTR[1]"));
            WizardPlayer::input(window, "1(ID)");
            WizardPlayer::addElement(window);
            QCOMPARE(control<QComboBox>(window, "listInputAttributes")->currentText(), QString());
            const auto* elements = control<QListWidget>(window, "listArrity");
            QCOMPARE(elements->item(0)->toolTip(), QStringLiteral("Complete"));
            QCOMPARE(elements->item(1)->toolTip(), QStringLiteral("Something is missing"));
            WizardPlayer::input(window, "2(NAME)");
            click(window, "cmdNext");
            WizardPlayer::option(window, "optFunction");
            typeInto(window, "txtFunctionName", QStringLiteral("sum"));
            click(window, "cmdNext");
            WizardPlayer::option(window, "optFunctionParam");
            WizardPlayer::input(window, "3(PRICE)");
            click(window, "cmdNext");
            WizardPlayer::option(window, "optFunctionOutput");
            QVERIFY(!control<QWidget>(window, "txtConst")->isVisible());
            WizardPlayer::pick(window, "listDataTypes", "NUMBER");
            click(window, "cmdNext");
            WizardPlayer::option(window, "optOutput");
            WizardPlayer::pick(window, "listLDLvars", "AGGRVALUE");
            QVERIFY(!control<QWidget>(window, "listLDLSubVars")->isVisible());
            click(window, "cmdGenerateLDL");
            player.program.messages.expect("Activity Created", "", Icon::information);
            click(window, "cmdCreateAct");
            click(window, "cmdOK");
        });
        QCOMPARE(player.activity->Act_LDL,
                 std::string("sel_out_group(Sel_IN1_ID,Sel_IN1_NAME,sum<Sel_IN1_PRICE>)<-sel_in1(Sel_IN1_ID,Sel_IN1_"
                             "NAME,Sel_IN1_PRICE). sel_out_result(Sel_OUT_ID,Sel_OUT_NAME,AGGRVALUE)<-sel_out_group("
                             "Sel_OUT_ID,Sel_OUT_NAME,AGGRVALUE). sel_out(Sel_OUT_ID,Sel_OUT_NAME,Sel_OUT_TOTAL)<-sel_"
                             "out_result(Sel_OUT_ID,Sel_OUT_NAME,Sel_OUT_TOTAL)."));
        QVERIFY(player.activity->Act_Outputs->Item("TOTAL") != nullptr);
    }

    void aTypedNumberOfElementsIsTakenAtOnce() {
        WizardPlayer player;
        player.run("Aggregation", [](QDialog& window) {
            click(window, "cmdParseLDL");
            WizardPlayer::option(window, "optParamArray");
            auto* number = control<QSpinBox>(window, "UpDownArity");
            number->selectAll();
            QTest::keyClicks(number, QStringLiteral("12"));
            QTest::keyClick(number, Qt::Key_Return);
            QCOMPARE(control<QListWidget>(window, "listArrity")->count(), 12);
            QCOMPARE(lineOf(window, "step"), QStringLiteral("1 of 5"));
            QTest::keyClick(number, Qt::Key_Down);
            QCOMPARE(control<QListWidget>(window, "listArrity")->count(), 11);
            QTest::keyClick(&window, Qt::Key_Escape);
        });
        QCOMPARE(player.activity->Act_LDL, std::string());
        QVERIFY(player.form->Enabled);
    }

    void createLdlOpensItForAnActivityWithoutText() {
        WizardPlayer player;
        WindowProgram& program = player.program;
        player.activity->Act_Type = program.logic.catalogue().ActivityTypeIndex("Union");
        std::filesystem::create_directories(program.repository.folder.path() / "LDLS");
        program.dialogs.at(QStringLiteral("LDLForm"), [&](QDialog& window) {
            QVERIFY(window.windowTitle().startsWith(QLatin1String("Sel ")));
            QTest::keyClick(&window, Qt::Key_Escape);
        });
        const platform::ProgramFolder folder(program.repository.folder.path());
        program.messages.expect("File \"" + folder.path("\\LDLS\\") + "Wizardry.ldl\" Was Created.");
        program.logic.run(shell::Command::createLdl);
        QVERIFY(program.logic.isEnabled(shell::Command::createLdl));
    }

    void aTemplateWithoutVariablesTakesTheWholeWindow() {
        WizardPlayer player;
        player.run("Loader Overwrite", [&](QDialog& window) {
            auto* box = control<QTextEdit>(window, "txtTemplate");
            box->moveCursor(QTextCursor::End);
            QTest::keyClicks(box, QStringLiteral("%"));
            click(window, "cmdParseLDL");
            QVERIFY(box->isReadOnly());
            for (const char* gone : {"frameVar", "frameValue", "cmdNext", "cmdPrev", "listVariables"}) {
                QVERIFY2(!control<QWidget>(window, gone)->isVisible(), gone);
            }
            QVERIFY(control<QGroupBox>(window, "frameTemplate")->width() > window.width() * 9 / 10);
            click(window, "cmdGenerateLDL");
            for (const Answer answer : {Answer::cancel, Answer::ok}) {
                player.program.messages.expect(
                    "The Activity's Generation Has Not Been Completed.\r\n"
                    "Are You Sure You Want To Close This Window?",
                    "", Icon::warning, Buttons::okCancel, answer);
                click(window, "cmdOK");
                QCOMPARE(window.isVisible(), answer == Answer::cancel);
            }
        });
        QVERIFY(player.activity->Act_LDL.starts_with("sel_out("));
        QVERIFY(player.activity->Act_LDL.ends_with(".%"));
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::LdlWizardTest)
#include "ldl_wizard_test.moc"
