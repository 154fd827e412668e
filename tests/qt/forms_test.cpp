// A small dialog of the tests' own: its logic, its window and the line that makes it known.

#include <QLineEdit>
#include <QPushButton>

#include "dialog_script.h"
#include "forms/dialog_port.h"
#include "forms/editor.h"
#include "forms/name_check.h"
#include "qt/forms/fields.h"
#include "qt/forms/form_window.h"
#include "testkit/scripted_ports.h"
#include "window_program.h"

namespace orvent::qt {

namespace {

using platform::Answer;
using platform::Buttons;

class NameForm : public forms::Editor {
  public:
    NameForm(platform::MessageBox& messages, std::string& target)
        : Editor(messages), txtName(target), target_(target) {}

    std::string txtName;
    int ended = 0;

    void changeName(const std::string& text) {
        txtName = text;
        Saved = false;
    }

  protected:
    bool apply() override {
        static constexpr forms::NameRule kRules[] = {{forms::NameFault::empty, "A name, please"}};
        if (!forms::checkName(txtName, kRules, messages())) {
            return false;
        }
        target_ = txtName;
        return true;
    }
    std::optional<forms::ClosingQuestion> closingQuestion() const override {
        return forms::ClosingQuestion{.text = "Keep it?", .title = "Name"};
    }
    void closing() override { ++ended; }

  private:
    std::string& target_;
};

class NameWindow : public FormWindow {
  public:
    NameWindow(NameForm& logic, QWidget* parent) : FormWindow(tr("Name"), logic, parent) {
        setObjectName(QStringLiteral("NameForm"));
        QLineEdit* name = newField(QStringLiteral("txtName"), this);
        name->setText(QString::fromStdString(logic.txtName));
        body().addWidget(name);
        connect(name, &QLineEdit::textChanged, this,
                [&logic](const QString& typed) { logic.changeName(typed.toStdString()); });
        addOK(QStringLiteral("OK"), tr("OK"));
        addCancel(QStringLiteral("Cancel"));
    }
};

}  // namespace

class FormsTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void aNewDialogIsItsLogicItsWindowAndOneLine() {
        enum class Way { ok, cancel, escape, closeButton };
        struct Row {
            Way way;
            const char* typed;  ///< null: nothing
            Answer answer;
            const char* name;  ///< afterwards
            bool closes;
        };
        const Row rows[] = {
            {Way::ok, nullptr, Answer::ok, "old", true},
            {Way::ok, "new", Answer::ok, "new", true},
            {Way::ok, "", Answer::ok, "old", false},
            {Way::cancel, nullptr, Answer::ok, "old", true},
            {Way::cancel, "new", Answer::yes, "new", true},
            {Way::escape, "new", Answer::no, "old", true},
            {Way::closeButton, "new", Answer::cancel, "old", false},
        };
        for (const Row& row : rows) {
            testkit::ScriptedMessageBox messages{failQt};
            forms::Dialogs dialogs;
            dialogs.add<NameForm>([](NameForm& form) { NameWindow(form, nullptr).exec(); });

            std::string name = "old";
            NameForm form(messages, name);
            DialogScript script;
            script.at(QStringLiteral("NameForm"), [&](QDialog& window) {
                if (row.typed) {
                    typeInto(window, "txtName", QLatin1String(row.typed));
                }
                if (row.way == Way::ok && !row.closes) {
                    messages.expect("A name, please", "", platform::Icon::warning);
                } else if (row.typed && row.way != Way::ok) {
                    messages.expect("Keep it?", "Name", platform::Icon::question, Buttons::yesNoCancel, row.answer);
                }
                switch (row.way) {
                    case Way::ok:
                        QTest::keyClick(control<QLineEdit>(window, "txtName"), Qt::Key_Return);
                        break;
                    case Way::cancel:
                        click(window, "Cancel");
                        break;
                    case Way::escape:
                        QTest::keyClick(&window, Qt::Key_Escape);
                        break;
                    case Way::closeButton:
                        window.close();
                        break;
                }
                QCOMPARE(window.isVisible(), !row.closes);
                QCOMPARE(form.ended, row.closes ? 1 : 0);
                form.Saved = true;
                window.close();
            });
            dialogs.show(form);
            QCOMPARE(name, std::string(row.name));
            QCOMPARE(form.ended, 1);
            messages.verify();
        }
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::FormsTest)
#include "forms_test.moc"
