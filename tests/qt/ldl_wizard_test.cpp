// The wizard's window over its real logic: what it shows at each step, and the way from a template to an activity with
// mouse and keys.

#include "qt/canvas/canvas_editor.h"
#include "testkit/graph_builder.h"
#include "window_program.h"

namespace orvent::qt {

namespace {

using platform::Answer;

/// A small scenario with one activity, and the wizard opened on it.
struct Wizard : StartedProgram {
    Wizard() {
        form = open("Wizardry");
        testkit::GraphBuilder graph(*form);
        graph.recordSet("ORDERS", {"ID", "NAME", "PRICE"});
        activity = &graph.activity("Sel", {"ID", "NAME", "PRICE"}, {"ID", "NAME"});
        for (const std::string attribute : {"ID", "NAME", "PRICE"}) {
            graph.feed("ORDERS." + attribute, "Sel.IN." + attribute);
        }
    }

    /// Opens the wizard on a type of the starter catalogue, as the menu of the activity does.
    void run(const char* type, const std::function<void(QDialog&)>& act) {
        activity->Act_Type = logic.catalogue().ActivityTypeIndex(type);
        dialogs.at(QStringLiteral("LDLForm"), act);
        logic.pointerPorts().windows.openTemplateWizard(*form, *form->nodeNamed("Sel"));
    }

    canvas::DrawForm* form = nullptr;
    entities::ActivityProperties* activity = nullptr;
};

/// Walks down a choice with the arrow key until it shows the text.
void pick(QDialog& window, const char* name, const char* text) {
    auto* box = control<QComboBox>(window, name);
    QVERIFY(box->isVisible());
    for (int step = 0; step < box->count() && box->currentText() != QLatin1String(text); ++step) {
        QTest::keyClick(box, Qt::Key_Down);
    }
    QCOMPARE(box->currentText(), QLatin1String(text));
}

void option(QDialog& window, const char* name) {
    auto* button = control<QRadioButton>(window, name);
    QVERIFY(button->isVisible());
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
    QVERIFY(button->isChecked());
}

void constant(QDialog& window, const char* text) {
    typeInto(window, "txtConst", QLatin1String(text));
    pick(window, "listDataTypes", "NUMBER");
}

void addElement(QDialog& window, const char* attribute) {
    QTest::keyClick(control<QSpinBox>(window, "UpDownArity"), Qt::Key_Up);
    auto* list = control<QListWidget>(window, "listArrity");
    QListWidgetItem* last = list->item(list->count() - 1);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(last).center());
    QCOMPARE(control<QComboBox>(window, "listInputAttributes")->currentText(), QString());
    QCOMPARE(last->toolTip(), QStringLiteral("Something is missing"));
    pick(window, "listInputs", "a_in1 (ORDERS)");
    pick(window, "listInputAttributes", attribute);
    QCOMPARE(last->toolTip(), QStringLiteral("Complete"));
}

/// An array's panel on a low screen: its last fields need no scrolling, and names are whole.
void wholeFields(QDialog& window) {
    option(window, "optValueRSField");
    pick(window, "listRS", "LATE");
    pick(window, "listRSattributes", "PLANNED_DELIVERY_DATE");
    QTest::qWait(1);
    for (const char* name : {"txtConst", "listDataTypes"}) {
        const auto* field = control<QWidget>(window, name);
        QVERIFY2(field->visibleRegion().boundingRect() == field->rect(), name);
    }
    constexpr int arrow = 26;
    for (const char* name : {"listRSattributes", "listInputs"}) {
        const auto* box = control<QComboBox>(window, name);
        QVERIFY2(box->width() - arrow >= box->fontMetrics().horizontalAdvance(box->currentText()), name);
    }
    option(window, "optValueInput");
}

QString lineOf(const QDialog& window, const char* name) {
    return control<QLabel>(window, name)->text();
}

bool isShown(const QDialog& window, const char* name) {
    return control<QWidget>(window, name)->isVisible();
}

/// The names of the buttons that are grey; each of them must tell why.
QString greyButtons(const QDialog& window) {
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
    return grey.join(u' ');
}

}  // namespace

class LdlWizardTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void scalarsAreDefinedOneByOne() {
        Wizard wizard;
        wizard.run("Selection", [&](QDialog& window) {
            const auto* text = control<QTextEdit>(window, "txtTemplate");
            click(window, "cmdEditTemplate");
            QVERIFY(!isShown(window, "frameVar"));
            QCOMPARE(greyButtons(window), QStringLiteral("cmdGenerateLDL cmdCreateAct cmdPrev cmdNext cmdOK"));
            QTest::keyClick(&window, Qt::Key_Return);  // the button that leads on is the standard one

            for (const auto& [name, weight] : {std::pair{"@FIELD", QFont::Bold}, {"@OPERATOR", QFont::Normal}}) {
                QCOMPARE(text->document()->find(QLatin1String(name)).charFormat().fontWeight(), int{weight});
            }
            QCOMPARE(lineOf(window, "progress"), QStringLiteral("Variable 1 of 3: @FIELD"));
            QCOMPARE(lineOf(window, "step"), QStringLiteral("1 of 3"));
            QCOMPARE(greyButtons(window), QStringLiteral("cmdGenerateLDL cmdCreateAct cmdPrev cmdOK"));
            option(window, "optParam");
            QVERIFY(!isShown(window, "frameArrity") && !isShown(window, "txtFunctionName"));
            pick(window, "listInputs", "a_in1 (ORDERS)");
            QVERIFY(control<QRadioButton>(window, "optValueInput")->isChecked());
            pick(window, "listInputAttributes", "3(PRICE)");
            QCOMPARE(lineOf(window, "hint"), QStringLiteral("Complete. Go on to the next variable."));
            QTest::keyClick(&window, Qt::Key_Return);

            QCOMPARE(lineOf(window, "lblVariable"), QStringLiteral("OPERATOR"));
            QVERIFY(control<QRadioButton>(window, "optParam")->hasFocus());
            QTest::keyClick(control<QRadioButton>(window, "optParam"), Qt::Key_Space);
            constant(window, ">");
            click(window, "cmdPrev");
            QCOMPARE(control<QComboBox>(window, "listInputAttributes")->currentText(), QStringLiteral("3(PRICE)"));
            click(window, "cmdNext");
            QCOMPARE(control<QLineEdit>(window, "txtConst")->text(), QStringLiteral(">"));
            click(window, "cmdNext");
            const auto* list = control<QTreeWidget>(window, "listVariables");
            QCOMPARE(list->topLevelItem(1)->text(1), QStringLiteral("Parameter"));
            QCOMPARE(list->topLevelItem(1)->toolTip(0), QStringLiteral("Complete"));
            QCOMPARE(list->topLevelItem(2)->toolTip(0), QStringLiteral("Something is missing"));
            option(window, "optParam");
            constant(window, "10");
            QTest::keyClick(&window, Qt::Key_Return);
            QVERIFY(text->toPlainText().contains(QLatin1String("Sel_IN1_PRICE > 10,")));
            wizard.messages.expect("Activity Created", "", platform::Icon::information);
            QTest::keyClick(&window, Qt::Key_Return);
            QTest::keyClick(&window, Qt::Key_Return);
            QVERIFY(!window.isVisible());
        });
        QVERIFY(wizard.activity->Act_LDL.find("Sel_IN1_PRICE > 10,") != std::string::npos);
        QCOMPARE(wizard.activity->Act_Parameters.count(), 3);
        QVERIFY(wizard.form->Enabled());
    }

    void anArrayGetsItsElements() {
        Wizard wizard;
        testkit::GraphBuilder(*wizard.form).recordSet("LATE", {"PLANNED_DELIVERY_DATE"});
        wizard.run("Aggregation", [&](QDialog& window) {
            window.resize(984, 660);  // on a screen of 1024 x 700
            click(window, "cmdParseLDL");
            QVERIFY(!isShown(window, "optParam"));
            option(window, "optParamArray");
            auto* number = control<QSpinBox>(window, "UpDownArity");
            for (const auto& [typed, key, count] :
                 {std::tuple{"12", Qt::Key_Return, 12}, {"12", Qt::Key_Down, 11}, {"0", Qt::Key_Return, 0}}) {
                number->selectAll();
                QTest::keyClicks(number, QLatin1String(typed));
                QTest::keyClick(number, key);
                QCOMPARE(control<QListWidget>(window, "listArrity")->count(), count);
                QCOMPARE(lineOf(window, "step"), QStringLiteral("1 of 5"));  // Return goes no further
            }
            addElement(window, "1(ID)");
            QCOMPARE(control<QGroupBox>(window, "frameValue")->title(), QStringLiteral("Value Of  GROUPATTR[1]"));
            addElement(window, "2(NAME)");
            wholeFields(window);
            click(window, "cmdNext");
            option(window, "optFunction");
            typeInto(window, "txtFunctionName", QStringLiteral("sum"));
            click(window, "cmdNext");
            option(window, "optFunctionParam");
            pick(window, "listInputs", "a_in1 (ORDERS)");
            pick(window, "listInputAttributes", "3(PRICE)");
            click(window, "cmdNext");
            option(window, "optFunctionOutput");
            QVERIFY(!isShown(window, "txtConst"));
            pick(window, "listDataTypes", "NUMBER");
            click(window, "cmdNext");
            option(window, "optOutput");
            pick(window, "listLDLvars", "AGGRVALUE");
            QVERIFY(!isShown(window, "listLDLSubVars"));
            click(window, "cmdGenerateLDL");
            QTest::qWait(1);
            for (const char* name : {"original", "txtTemplate"}) {
                const auto* text = control<QTextEdit>(window, name);
                QVERIFY2(text->viewport()->height() >= 8 * text->fontMetrics().lineSpacing(), name);
            }
            wizard.messages.expect("Activity Created", "", platform::Icon::information);
            click(window, "cmdCreateAct");
            click(window, "cmdOK");
        });
        QVERIFY(wizard.activity->Act_LDL.starts_with("sel_out_group(Sel_IN1_ID,Sel_IN1_NAME,sum<Sel_IN1_PRICE>)<-"));
        QVERIFY(wizard.activity->Act_Outputs->Item("TOTAL") != nullptr);
    }

    void createLdlOpensItForActivitiesWithoutTextAndTellsWhichStayedSo() {
        Wizard wizard;
        wizard.activity->Act_Type = wizard.logic.catalogue().ActivityTypeIndex("Union");
        testkit::GraphBuilder(*wizard.form).activity("Rest").Act_Type = wizard.activity->Act_Type;
        auto& doubted = testkit::GraphBuilder(*wizard.form).activity("Doubted");
        doubted.Act_LDL = "other_out(1).";
        doubted.statementDoubt = "It may mean another.";
        testkit::GraphBuilder(*wizard.form).recordSet("TARGET");
        testkit::GraphBuilder(*wizard.form).edge("Rest", "TARGET");
        const std::filesystem::path folder = wizard.repository.folder.path();
        std::filesystem::create_directories(folder / "LDLS");
        wizard.dialogs.at(QStringLiteral("LDLForm"), [](QDialog& window) {
            QVERIFY(window.windowTitle().startsWith(QLatin1String("Sel ")));
            QCOMPARE(lineOf(window, "round"), QStringLiteral("Activity 1 of 2 without a statement"));
            click(window, "cmdLeaveRest");
        });
        wizard.messages.expect("File \"" + platform::ProgramFolder(folder).path("\\LDLS\\") +
                               "Wizardry.ldl\" Was Created.");
        wizard.dialogs.at(QStringLiteral("UnfinishedWindow"), [](QDialog& window) {
            auto* list = control<QTreeWidget>(window, "rows");
            QCOMPARE(list->topLevelItemCount(), 4);
            list->setCurrentItem(list->topLevelItem(2));
            QCOMPARE(list->currentItem()->text(1), QStringLiteral("It may mean another."));
            click(window, "cmdConfirm");
        });
        wizard.dialogs.at(QStringLiteral("UnfinishedWindow"), [](QDialog& window) {
            auto* list = control<QTreeWidget>(window, "rows");
            QCOMPARE(list->topLevelItemCount(), 3);
            list->setCurrentItem(list->topLevelItem(2));
            QCOMPARE(list->currentItem()->text(0), QStringLiteral("TARGET"));
            QVERIFY2(!control<QPushButton>(window, "cmdGenerate")->isEnabled(), "it has no statement");
            list->setCurrentItem(list->topLevelItem(1));
            QVERIFY2(!control<QPushButton>(window, "cmdConfirm")->isEnabled(), "what it lacks is no doubt");
            click(window, "cmdGenerate");
        });
        wizard.dialogs.at(QStringLiteral("LDLForm"), [](QDialog& window) {
            QVERIFY(window.windowTitle().startsWith(QLatin1String("Rest ")));
            window.close();
        });
        wizard.dialogs.at(QStringLiteral("UnfinishedWindow"), [](QDialog& window) {
            auto* list = control<QTreeWidget>(window, "rows");
            list->setCurrentItem(list->topLevelItem(1));
            click(window, "cmdGoTo");
        });
        wizard.form->nodeNamed("Rest")->setBox({20000, 15000, 1050, 450});
        wizard.frame.show();
        const auto isInView = [&wizard] {
            const auto& editor = *wizard.frame.findChild<CanvasEditor*>();
            return editor.viewport()->rect().contains(
                editor.transform().toPixels(canvas::Point{20500, 15200}).toPoint());
        };
        QVERIFY(!isInView());
        auto* button = control<QToolButton>(wizard.frame, "LDL");
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(button->isEnabled());
        QVERIFY2(isInView(), "the activity that was gone to");
    }

    void theGuideLeadsSomebodyWhoNeverWroteATemplate() {
        Wizard wizard;
        wizard.run("Attribute Function", [&](QDialog& window) {
            QVERIFY(lineOf(window, "type").startsWith(QLatin1String("Attribute Function: Adds NEWFIELD")));
            QCOMPARE(lineOf(window, "progress"), QStringLiteral("Variable 1 of 4: @FUNCNAME"));
            QVERIFY(lineOf(window, "meaning").contains(QLatin1String("FUNCNAME gives")));
            QCOMPARE(lineOf(window, "whichText"), QStringLiteral("The template"));
            const auto* role = control<QRadioButton>(window, "optFunctionOutput");
            const QPoint place = role->mapTo(&window, QPoint());
            Q_EMIT control<QLabel>(window, "proposal")->linkActivated(QStringLiteral("take"));
            QVERIFY(control<QRadioButton>(window, "optFunction")->isChecked());
            QVERIFY(!isShown(window, "proposal"));
            QTest::qWait(1);
            QCOMPARE(role->mapTo(&window, QPoint()), place);
            auto* names = control<QComboBox>(window, "functionNames");
            names->setCurrentText(QStringLiteral("ROUND"));
            click(window, "cmdNext");
            option(window, "optFunctionParamArray");
            QTest::keyClick(control<QSpinBox>(window, "UpDownArity"), Qt::Key_Up);
            QVERIFY(!control<QComboBox>(window, "listInputs")->isEnabled());  // no element is chosen
            QVERIFY(isShown(window, "listInputs"));
            for (int step = 0; step < 2; ++step) {
                click(window, "cmdNext");
            }
            click(window, "cmdPrev");
            option(window, "optFunctionOutput");
            click(window, "cmdNext");
            QVERIFY(!isShown(window, "original"));
            click(window, "cmdGenerateLDL");
            QVERIFY(isShown(window, "original"));
            QCOMPARE(lineOf(window, "whichText"), QStringLiteral("The generated statement"));
            const QSize least = window.layout()->totalMinimumSize();
            QVERIFY2(least.width() <= 1000 && least.height() <= 660, "it fits a screen of 1024 x 700");
            QVERIFY(lineOf(window, "hint").startsWith(QLatin1String("The statement is not complete. @ARGUMENT[1]")));
            auto* strip = control<QLabel>(window, "progress")->parentWidget();
            QTest::mouseClick(strip, Qt::LeftButton, {}, QPoint(4, 4));
            QCOMPARE(lineOf(window, "lblVariable"), QStringLiteral("ARGUMENT"));
            const auto expect = [&](Answer answer) {
                wizard.messages.expect("What was defined since this window opened will be lost.", "Generate From LDL",
                                       platform::Icon::warning, platform::Buttons::discardGoOn, answer);
            };
            expect(Answer::cancel);
            QTest::keyClick(&window, Qt::Key_Escape);
            expect(Answer::cancel);
            window.close();
            QVERIFY(window.isVisible());
            expect(Answer::ok);
            QTest::keyClick(&window, Qt::Key_Escape);
            QVERIFY(!window.isVisible());
        });
        wizard.run("Attribute Function", [](QDialog& window) { QTest::keyClick(&window, Qt::Key_Escape); });
        wizard.run("Attribute Function", [](QDialog& window) {
            option(window, "optFunction");
            click(window, "cmdCancel");
            QVERIFY2(!window.isVisible(), "Cancel asks nothing");
        });
    }

    void aTemplateWithoutVariablesTakesTheWholeWindow() {
        Wizard wizard;
        wizard.run("Loader Overwrite", [&](QDialog& window) {
            auto* box = control<QTextEdit>(window, "txtTemplate");
            box->moveCursor(QTextCursor::End);
            QTest::keyClicks(box, QStringLiteral("%"));
            click(window, "cmdParseLDL");
            QVERIFY(box->isReadOnly());
            for (const char* gone : {"frameVar", "frameValue", "cmdNext", "cmdPrev", "listVariables"}) {
                QVERIFY2(!isShown(window, gone), gone);
            }
            QVERIFY(control<QGroupBox>(window, "frameTemplate")->width() > window.width() * 9 / 10);
            click(window, "cmdGenerateLDL");
            for (const Answer answer : {Answer::cancel, Answer::ok}) {
                wizard.messages.expect("*", "", platform::Icon::warning, platform::Buttons::okCancel, answer);
                click(window, "cmdOK");
                QCOMPARE(window.isVisible(), answer == Answer::cancel);
            }
        });
        QVERIFY(wizard.activity->Act_LDL.ends_with(".%"));
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::LdlWizardTest)
#include "ldl_wizard_test.moc"
