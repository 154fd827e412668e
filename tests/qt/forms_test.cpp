// A small dialog of the tests' own: its window and the line that makes it known to its logic.

#include "dialog_script.h"
#include "forms/dialog_port.h"
#include "qt/forms/fields.h"
#include "qt/forms/form_window.h"
#include "testkit/note.h"
#include "window_program.h"

namespace orvent::qt {

namespace {

using platform::Answer;
using platform::Buttons;

class NoteWindow : public FormWindow {
  public:
    explicit NoteWindow(testkit::Note& logic) : FormWindow(tr("Note"), logic, nullptr) {
        setObjectName(QStringLiteral("Note"));
        QLineEdit* text = newField(QStringLiteral("txtNote"), this);
        text->setAccessibleName(tr("Note"));
        body().addWidget(text);
        connect(text, &QLineEdit::textChanged, this, [&logic] { logic.Saved = false; });
        addOK(QStringLiteral("OK"), tr("&OK"));
        addCancel(QStringLiteral("Cancel"));
    }
};

}  // namespace

class FormsTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void theWheelChangesOnlyAChoiceThatHasTheFocus() {
        QWidget window;
        QComboBox* choice = newChoice(QStringLiteral("choice"), &window);
        choice->addItems({QStringLiteral("one"), QStringLiteral("two")});
        QComboBox* other = newChoice(QStringLiteral("other"), &window);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        for (const bool focused : {false, true}) {
            (focused ? choice : other)->setFocus();
            QWheelEvent wheel({5, 5}, choice->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(choice, &wheel);
            QCOMPARE(choice->currentIndex(), focused ? 1 : 0);
            QCOMPARE(wheel.isAccepted(), focused);
        }
    }

    void aNewDialogIsItsLogicItsWindowAndOneLine() {
        using Act = void (*)(QDialog&);
        const Act ok = [](QDialog& window) { QTest::keyClick(control<QLineEdit>(window, "txtNote"), Qt::Key_Return); };
        const Act cancel = [](QDialog& window) { click(window, "Cancel"); };
        const Act escape = [](QDialog& window) { QTest::keyClick(&window, Qt::Key_Escape); };
        const Act closeButton = [](QDialog& window) { window.close(); };
        struct Row {
            Act leave;
            bool typed;
            std::optional<Answer> answer;  ///< to whether to keep it
            bool applies;
            int applied;
            bool closes;
        };
        const Row rows[] = {
            {ok, false, {}, true, 0, true},
            {ok, true, {}, true, 1, true},
            {ok, true, {}, false, 0, false},
            {cancel, false, {}, true, 0, true},
            {cancel, true, Answer::yes, true, 1, true},
            {escape, true, Answer::no, true, 0, true},
            {closeButton, true, Answer::cancel, true, 0, false},
        };
        for (const Row& row : rows) {
            testkit::ScriptedMessageBox messages{failQt};
            forms::Dialogs dialogs;
            dialogs.add<testkit::Note>([](testkit::Note& note) { NoteWindow(note).exec(); });
            testkit::Note note(messages);
            note.question = forms::ClosingQuestion{.text = "Keep it?", .title = "Note"};
            note.applies = row.applies;
            DialogScript script;
            script.at(QStringLiteral("Note"), [&](QDialog& window) {
                if (row.typed) {
                    typeInto(window, "txtNote", QStringLiteral("new"));
                }
                if (row.answer) {
                    messages.expect("Keep it?", "Note", platform::Icon::question, Buttons::yesNoCancel, *row.answer);
                }
                row.leave(window);
                QCOMPARE(window.isVisible(), !row.closes);
                QCOMPARE(note.ended, row.closes ? 1 : 0);
                note.Saved = true;
                window.close();
            });
            dialogs.show(note);
            QCOMPARE(note.applied, row.applied);
            QCOMPARE(note.ended, 1);
            messages.verify();
        }
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::FormsTest)
#include "forms_test.moc"
