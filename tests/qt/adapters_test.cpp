// The adapters of the ports: settings file, boxes, progress, help, and the event loop that survives faults.

#include "qt/platform/adapters.h"

#include <QDir>
#include <QFile>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QUrl>

#include "platform/fault.h"
#include "platform/scramble.h"
#include "qt/platform/application.h"
#include "qt/platform/settings_file.h"
#include "qt/theme/icons.h"
#include "qt/theme/theme.h"
#include "window_test.h"

namespace orvent::qt {

namespace {

using platform::Answer;
using platform::Buttons;

/// Runs `act` on the modal window of that kind as soon as it is open; the test fails when none opens.
template <class Window>
class WhenOpen {
  public:
    explicit WhenOpen(std::function<void(Window&)> act) : act_(std::move(act)) {
        QObject::connect(&timer_, &QTimer::timeout, [this] {
            if (auto* window = qobject_cast<Window*>(QApplication::activeModalWidget())) {
                timer_.stop();
                met_ = true;
                act_(*window);
            }
        });
        timer_.start(5);
    }
    bool met() const { return met_; }

  private:
    std::function<void(Window&)> act_;
    QTimer timer_;
    bool met_ = false;
};

class Thrower : public QObject {
  public:
    std::function<void()> act;

  protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::User) {
            act();
            return true;
        }
        return QObject::event(event);
    }
};

}  // namespace

class AdaptersTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void settingsKeepAnyText_data() {
        QTest::addColumn<QByteArray>("value");
        const auto row = [](const char* name, const QByteArray& value) { QTest::newRow(name) << value; };
        row("empty", "");
        row("blanks at both ends", "  a b \t");
        row("line ends", "one\r\ntwo\nthree\r");
        row("NUL", QByteArray("a\0b\0", 4));
        row("marks of the format", "=;#[x]\\\"',%@Size(1 2)");
        row("at", "@Variant(x)");
        row("other scripts", "\xCE\xB1\xCE\xB2 \xE6\xBC\xA2 \xF0\x9F\x90\xA7");
        row("number", "0.1");
        QByteArray every;
        for (int code = 0; code < 128; ++code) {
            every.append(static_cast<char>(code));
        }
        row("every ASCII character", every);
        row("scrambled password", QByteArray::fromStdString(platform::ScramblePassword("-it's a \xC3\xA9t\xC3\xA9-")));
    }
    void settingsKeepAnyText() {
        QFETCH(QByteArray, value);
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("deep/er/settings.ini"));
        QtSettingsStore first(path);
        QVERIFY(!first.exists());
        QCOMPARE(first.value("DB", "ReposPasw", "none"), std::string("none"));
        first.setValue("DB", "ReposPasw", value.toStdString());
        first.setValue("General", "ReposPasw", "other");
        QVERIFY(first.exists());
        // Read from a copy, so that nothing comes out of memory.
        const QString copy = folder.filePath(QStringLiteral("copy.ini"));
        QVERIFY(QFile::copy(path, copy));
        QtSettingsStore second(copy);
        QCOMPARE(second.value("DB", "ReposPasw", "none"), value.toStdString());
        QCOMPARE(second.value("General", "ReposPasw", "none"), std::string("other"));
        QCOMPARE(second.value("Draw", "ReposPasw", "none"), std::string("none"));
    }

    void settingsThatCannotBeWrittenAreAFault() {
        QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("file"));
        QFile blocker(file);
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        blocker.close();
        QtSettingsStore store(file + QStringLiteral("/settings.ini"));
        try {
            store.setValue("DB", "User", "x");
            QFAIL("no fault");
        } catch (const platform::Fault& fault) {
            QVERIFY(fault.description().find("settings.ini") != std::string::npos);
        }
    }

    void messageBoxButtons_data() {
        QTest::addColumn<int>("buttons");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("answer");
        const auto row = [](const char* name, Buttons buttons, Qt::Key key, Answer answer) {
            QTest::newRow(name) << static_cast<int>(buttons) << static_cast<int>(key) << static_cast<int>(answer);
        };
        row("ok, return", Buttons::ok, Qt::Key_Return, Answer::ok);
        row("ok, escape", Buttons::ok, Qt::Key_Escape, Answer::ok);
        row("ok cancel, return", Buttons::okCancel, Qt::Key_Return, Answer::ok);
        row("ok cancel, escape", Buttons::okCancel, Qt::Key_Escape, Answer::cancel);
        row("yes no, return", Buttons::yesNo, Qt::Key_Return, Answer::yes);
        row("yes no, escape", Buttons::yesNo, Qt::Key_Escape, Answer::no);
        row("yes no cancel, return", Buttons::yesNoCancel, Qt::Key_Return, Answer::yes);
        row("yes no cancel, escape", Buttons::yesNoCancel, Qt::Key_Escape, Answer::cancel);
    }
    void messageBoxButtons() {
        QFETCH(int, buttons);
        QFETCH(int, key);
        QFETCH(int, answer);
        QString title;
        QString text;
        WhenOpen<QMessageBox> then([&](QMessageBox& box) {
            title = box.windowTitle();
            text = box.text();
            QTest::keyClick(&box, static_cast<Qt::Key>(key));
        });
        QtMessageBox messages;
        const Answer got = messages.show("<b>1 < 2</b>", "", platform::Icon::question, static_cast<Buttons>(buttons));
        QVERIFY(then.met());
        QCOMPARE(static_cast<int>(got), answer);
        QCOMPARE(title, QStringLiteral("ORVENT II"));
        QCOMPARE(text, QStringLiteral("<b>1 < 2</b>"));
    }

    void longMessagesWrap() {
        int width = 0;
        WhenOpen<QMessageBox> then([&](QMessageBox& box) {
            width = box.width();
            box.accept();
        });
        std::string words;
        for (int i = 0; i < 200; ++i) {
            words += "several words ";
        }
        QtMessageBox().tell(words, "T");
        QVERIFY(then.met());
        QVERIFY2(width < 900, qPrintable(QString::number(width)));
    }

    void inputBoxAnswers() {
        QtInputBox input;
        WhenOpen<QInputDialog> accept([](QInputDialog& dialog) {
            QCOMPARE(dialog.textValue(), QStringLiteral("2"));
            dialog.setTextValue(QStringLiteral("1,5"));
            dialog.accept();
        });
        QCOMPARE(input.ask("ZOOM IN RATIO :", "Zooming IN", "2"), std::string("1,5"));
        WhenOpen<QInputDialog> cancel([](QInputDialog& dialog) { dialog.reject(); });
        QCOMPARE(input.ask("p", "t", "2"), std::string());
    }

    void fileFilters() {
        QCOMPARE(toolkitFilter("SQL Files (*.sql)|*.sql"), QStringLiteral("SQL Files (*.sql)"));
        QCOMPARE(toolkitFilter("Text|*.txt;*.log|All Files|*"), QStringLiteral("Text (*.txt *.log);;All Files (*)"));
        QCOMPARE(toolkitFilter(""), QString());
    }

    void progressInTheStatusBar() {
        QStatusBar bar;
        bar.show();
        QtProgress progress;
        progress.status("lost");  // no bar yet
        progress.attach(&bar);
        progress.status("Ready");
        const auto* label = bar.findChild<QLabel*>();
        const auto* amount = bar.findChild<QProgressBar*>();
        QCOMPARE(label->text(), QStringLiteral("Ready"));
        progress.step(250, 1000);
        QVERIFY(amount->isVisible());
        QCOMPARE(amount->value() * 4, amount->maximum());
        progress.step(0, 0);
        QVERIFY(!amount->isVisible());

        progress.pointer(11);
        progress.pointer(11);
        QVERIFY(QApplication::overrideCursor() != nullptr);
        progress.pointer(1);
        QVERIFY(QApplication::overrideCursor() == nullptr);
        progress.attach(nullptr);
        progress.step(1, 2);
        progress.status("gone");
    }

    void stepsLetTheWindowsPaint() {
        QStatusBar bar;
        QtProgress progress;
        progress.attach(&bar);
        int rounds = 0;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] { ++rounds; });
        timer.start(0);
        progress.step(1, 1000);
        QVERIFY(rounds > 0);
        rounds = 0;
        for (std::size_t i = 2; i < 500; ++i) {
            progress.step(i, 1000);
        }
        QVERIFY2(rounds < 100, "the event loop ran at nearly every step");
        progress.attach(nullptr);
    }

    void helpThatCannotBeShownIsAFault() {
        QTemporaryDir folder;
        const std::string path = folder.filePath(QStringLiteral("help file.html")).toStdString();
        QUrl opened;
        bool answers = true;
        QtHelpViewer help([&](const QUrl& url) {
            opened = url;
            return answers;
        });
        const auto fault = [&]() -> std::string {
            try {
                help.open(path);
            } catch (const platform::Fault& found) {
                return found.description();
            }
            return {};
        };
        QVERIFY(fault().find(path) != std::string::npos);
        QVERIFY(opened.isEmpty());
        QFile file(QString::fromStdString(path));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        QCOMPARE(fault(), std::string());
        QCOMPARE(opened.toLocalFile().toStdString(), path);
        answers = false;
        QVERIFY(fault().find(path) != std::string::npos);
    }

    void faultsInHandlersAreShownAndTheLoopGoesOn() {
        Thrower thrower;
        QStringList shown;
        const auto run = [&](std::function<void()> act) {
            thrower.act = std::move(act);
            WhenOpen<QMessageBox> then([&](QMessageBox& box) {
                shown << box.text();
                QCOMPARE(box.icon(), QMessageBox::Critical);
                box.accept();
            });
            QCoreApplication::postEvent(&thrower, new QEvent(QEvent::User));
            QApplication::processEvents();
            QVERIFY(then.met());
        };
        run([] { throw platform::Fault("The key is taken."); });
        run([] { std::vector<int>().at(3) = 1; });
        QCOMPARE(shown.value(0), QStringLiteral("The key is taken."));
        QVERIFY(!shown.value(1).isEmpty());
    }

    void iconsFollowTheThemeAndTheScale() {
        Theme theme(ThemeMode::light);
        theme.apply(*qApp);
        const auto darkest = [](const QImage& image) {
            int least = 255;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    const QColor colour = image.pixelColor(x, y);
                    least = colour.alpha() > 200 ? std::min(least, colour.lightness()) : least;
                }
            }
            return least;
        };
        const QIcon save = icon(QStringLiteral("save"));
        QVERIFY(darkest(save.pixmap(QSize(24, 24), 1.0).toImage()) < 90);
        QCOMPARE(save.pixmap(QSize(24, 24), 2.0).toImage().size(), QSize(48, 48));
        theme.setMode(ThemeMode::dark);
        QVERIFY(darkest(save.pixmap(QSize(24, 24), 1.0).toImage()) > 150);
        QVERIFY(icon(QStringLiteral("there-is-none")).isNull());
        for (const QString& file : QDir(QStringLiteral(":/orvent/icons")).entryList()) {
            const QImage image = icon(file.chopped(4)).pixmap(QSize(24, 24), 1.0).toImage();
            QVERIFY2(darkest(image) > 150 && darkest(image) < 255, qPrintable(file));
        }
        theme.setMode(ThemeMode::light);
    }
};

}  // namespace orvent::qt

int main(int argc, char** argv) {
    orvent::qt::Application application(argc, argv);
    orvent::qt::AdaptersTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "adapters_test.moc"
