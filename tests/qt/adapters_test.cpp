// The adapters of the ports: settings file, boxes, progress, help, and the event loop that survives faults.

#include "qt/platform/adapters.h"

#include <numeric>
#include <random>

#include "dialog_script.h"
#include "platform/fault.h"
#include "platform/scramble.h"
#include "platform/settings_text.h"
#include "platform/text.h"
#include "qt/platform/application.h"
#include "qt/platform/help_window.h"
#include "qt/text.h"
#include "qt/theme/icons.h"
#include "qt/theme/theme.h"
#include "testkit/file_text.h"

namespace orvent::qt {

namespace {

using platform::Answer;
using platform::Buttons;

std::string faultOf(const std::function<void()>& act) {
    try {
        act();
    } catch (const platform::Fault& fault) {
        return fault.description();
    }
    return {};
}

}  // namespace

class AdaptersTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    /// The settings of programs that kept them by the toolkit go on, and the other way round.
    void settingsAreTheToolkitsOwn() {
        std::string ascii(128, '\0');
        std::iota(ascii.begin(), ascii.end(), '\0');
        std::vector<std::string> values = {"",
                                           "  a b \t",
                                           " ",
                                           "\t",
                                           "x ",
                                           ascii,
                                           "@Variant(x)",
                                           "@",
                                           "@@x",
                                           "=;#[x]\\\"',%@Size(1 2)",
                                           "\x01"
                                           "fg\x02g",
                                           "a\nb\r",
                                           "\xCE\xB1 \xF0\x9F\x90\xA7 \xC2\x80\xEF\xBF\xBD\x7F",
                                           "\\",
                                           "\\x41",
                                           "\"a\" \"",
                                           "a,b",
                                           platform::ScramblePassword("-it's a \xC3\xA9t\xC3\xA9-")};
        std::mt19937 random(7);
        const std::string letters = std::string(" \t\n,;=@()\"\\'%#[]axf017\x01\x1F\x7F", 27) + '\0';
        for (int count = 0; count < 300; ++count) {
            std::string& value = values.emplace_back(random() % 8, ' ');
            std::generate(value.begin(), value.end(), [&] { return letters[random() % letters.size()]; });
        }
        const QTemporaryDir folder;
        const std::string path = folder.filePath(QStringLiteral("own.ini")).toStdString();
        const QString kept = folder.filePath(QStringLiteral("toolkit.ini"));
        platform::SettingsText own;
        {
            QSettings toolkit(kept, QSettings::IniFormat);
            for (std::size_t at = 0; at < values.size(); ++at) {
                const std::string section =
                    std::array{"DB", "General", "a b", "\xC3\xA9\xCE\xB1\xF0\x9F\x90\xA7%;"}[at % 4];
                const std::string key = "k/ \xC3\xA9\xF0\x9F\x90\xA7=" + std::to_string(at);
                own.setValue(section, key, values[at]);
                toolkit.setValue(text(section + "/" + key), text(values[at]));
            }
        }
        const std::string written = testkit::fileText(kept.toStdString());
        QCOMPARE(text(own.text()), text(written));
        platform::SettingsText read(written);
        QVERIFY(read.isSound());
        for (std::size_t at = 0; at < values.size(); ++at) {
            const std::string section =
                std::array{"DB", "General", "a b", "\xC3\xA9\xCE\xB1\xF0\x9F\x90\xA7%;"}[at % 4];
            QCOMPARE(read.value(section, "k/ \xC3\xA9\xF0\x9F\x90\xA7=" + std::to_string(at)),
                     std::optional(values[at]));
        }
        read.setValue("DB", "new", "x");
        own.setValue("DB", "new", "x");
        QCOMPARE(read.text(), own.text());
    }

    void settingsByOtherHandsReadAlike() {
        const QTemporaryDir folder;
        const std::string lines[] = {R"(a = \x41 b)",
                                     R"("x y" z)",
                                     R"("a"b"c")",
                                     "a;b",
                                     "a,b",
                                     R"("a,b")",
                                     R"(a\qb)",
                                     R"(\101\0z)",
                                     R"(\xd83d\xdc27q)",

                                     "@Size(1 2)",
                                     "@ByteArray(x y)",
                                     "@String(a)",
                                     "@Invalid()",
                                     "@@x",
                                     "@zz",
                                     R"("")",
                                     R"("  ")",
                                     "a\tb",
                                     "a#b",
                                     R"("a;b")",
                                     R"(\"x\")",
                                     "@Foo(x)",
                                     ",",
                                     "a,",
                                     R"("@x")",
                                     R"(q "a")",
                                     R"("a" , b)",
                                     R"(\x)",
                                     R"(\1234567g)",
                                     "@",
                                     "%41",
                                     "'a'"};
        for (const std::string& line : lines) {
            const std::string file = "[d%20b]\n b%41\\c = " + line + "\n[General]\nk=root\n[%general]\nk=own\n";
            // A file of its own: the toolkit keeps what it has read of a path for a while.
            const QString path = folder.filePath(QString::number(&line - lines) + QStringLiteral(".ini"));
            platform::writeFile(path.toStdString(), file);
            const QSettings toolkit(path, QSettings::IniFormat);
            const QVariant value = toolkit.value(QStringLiteral("d b/bA/c"));
            const bool isText =
                value.metaType().id() == QMetaType::QString || value.metaType().id() == QMetaType::QByteArray;
            const std::optional<std::string> own = platform::SettingsText(file).value("d b", "bA/c");
            QVERIFY2(own.has_value() == isText, line.c_str());
            QVERIFY2(!isText || text(*own) == value.toString(), line.c_str());
            QCOMPARE(*platform::SettingsText(file).value("", "k") + *platform::SettingsText(file).value("general", "k"),
                     std::string("rootown"));
        }
    }

    void messageBoxesTakeKeysAndWrap() {
        struct Row {
            Buttons buttons;
            Answer atReturn, atEscape;
        };
        DialogScript dialogs;
        const QString text = QStringLiteral("<b>1 < 2</b>") + QStringLiteral(" several words").repeated(200) +
                             QStringLiteral("/a/folder").repeated(100);
        for (const Row& row : {Row{Buttons::ok, Answer::ok, Answer::ok},
                               {Buttons::okCancel, Answer::ok, Answer::cancel},
                               {Buttons::yesNo, Answer::yes, Answer::no},
                               {Buttons::yesNoCancel, Answer::yes, Answer::cancel},
                               {Buttons::destroyOkCancel, Answer::cancel, Answer::cancel},
                               {Buttons::destroyYesNo, Answer::no, Answer::no},
                               {Buttons::destroyYesNoCancel, Answer::cancel, Answer::cancel},
                               {Buttons::discardGoOn, Answer::cancel, Answer::cancel}}) {
            for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
                dialogs.at({}, [&](QDialog& window) {
                    const auto& box = static_cast<const QMessageBox&>(window);
                    QCOMPARE(box.windowTitle(), QStringLiteral("ORVENT II"));
                    QCOMPARE(box.text(), text);
                    QCOMPARE(box.textFormat(), Qt::PlainText);
                    QTest::keyClick(&window, key);
                });
                const Answer got = QtMessageBox().show(text.toStdString(), "", platform::Icon::question, row.buttons);
                QVERIFY(got == (key == Qt::Key_Return ? row.atReturn : row.atEscape));
            }
        }
    }

    /// Whatever opens while something is loaded lies over the window that loads, and the progress steps back for it.
    void boxesLieOverTheWindowAtWork() {
        DialogScript dialogs;
        QMainWindow frame;
        frame.show();
        QDialog window(&frame);
        window.setObjectName(QStringLiteral("window"));
        for (const bool shown : {true, false}) {  // or due while the box is open
            QVERIFY2(!QApplication::activeModalWidget(), "a window is left");
            dialogs.at(QStringLiteral("window"), [&](QDialog&) {
                QProgressDialog progress(QStringLiteral("loading"), QStringLiteral("Cancel"), 0, 9, &window);
                progress.setObjectName(QStringLiteral("progress"));
                progress.setWindowModality(Qt::WindowModal);
                progress.setMinimumDuration(shown ? 0 : 60);
                progress.setValue(shown ? 8 : 0);
                QCOMPARE(progress.isVisible(), shown);
                const auto ask = [&](const char* what, const std::function<void()>& open) {
                    QPointer<QWidget> opened;
                    dialogs.at({}, [&](QDialog& box) {
                        opened = &box;
                        QTest::qWait(shown ? 0 : 120);
                        QVERIFY2(!progress.isVisible(), what);
                        QVERIFY2(box.parentWidget() == &window, what);
                        box.reject();
                    });
                    open();
                    QCOMPARE(progress.isVisible(), shown);
                };
                ask("message", [] { QtMessageBox().tell("DATA TYPE"); });
                ask("input", [] { QtInputBox().ask("p", "t", "2"); });
                ask("colour", [] { QVERIFY(!QtColourDialog().choose(0)); });
                progress.setValue(9);
                window.accept();
            });
            window.exec();
        }
        dialogs.at({}, [&](QDialog& box) {
            QCOMPARE(box.parentWidget(), &frame);
            box.reject();
        });
        QtMessageBox().tell("nothing loads");
    }

    void inputBoxAnswers() {
        DialogScript dialogs;
        dialogs.at({}, [](QDialog& window) {
            auto& box = static_cast<QInputDialog&>(window);
            QCOMPARE(box.textValue(), QStringLiteral("2"));
            box.setTextValue(QStringLiteral("1,5"));
            box.accept();
        });
        QCOMPARE(QtInputBox().ask("ZOOM IN RATIO :", "Zooming IN", "2"), std::string("1,5"));
        dialogs.at({}, [](QDialog& window) { window.reject(); });
        QCOMPARE(QtInputBox().ask("p", "t", "2"), std::string());
    }

    void savingProposesAFileAndGivesItsSuffix() {
        QTemporaryDir folder;
        const struct {
            const char* wished;
            const char* proposed;
            const char* typed;
            const char* chosen;
        } cases[] = {{"/Sales 2.0.orvent", "Sales 2.0.orvent", "new", "/new.orvent"},
                     {"/none/yet", "", "other.orvent", "/other.orvent"}};
        for (const auto& row : cases) {
            QString proposed = QStringLiteral("no dialog");
            QTimer::singleShot(50, [&] {
                if (auto* window = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
                    auto* name = window->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
                    proposed = name->text();
                    name->setText(QLatin1String(row.typed));
                    QMetaObject::invokeMethod(window, "accept");
                }
            });
            const std::string root = folder.path().toStdString();
            QCOMPARE(QtSaveDialog().saveFile("Export", "Scenarios|*.orvent", root + row.wished,
                                             platform::OldFile::askedAbout),
                     root + row.chosen);
            QCOMPARE(proposed, QLatin1String(row.proposed));
        }
    }

    void fileFilters() {
        QCOMPARE(toolkitFilter("Text|*.txt;*.log|All Files|*"), QStringLiteral("Text (*.txt *.log);;All Files (*)"));
        QCOMPARE(toolkitFilter("SQL Files (*.sql)|*.sql"), QStringLiteral("SQL Files (*.sql)"));
        QCOMPARE(toolkitFilter(""), QString());
    }

    void progressInTheStatusBar() {
        QStatusBar bar;
        bar.show();
        QtProgress progress;
        progress.status("lost");  // no bar yet
        progress.attach(&bar);
        progress.status("Ready");
        QCOMPARE(bar.findChild<QLabel*>()->text(), QStringLiteral("Ready"));
        const auto* amount = bar.findChild<QProgressBar*>();
        int rounds = 0;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] { ++rounds; });
        timer.start(0);
        progress.step(250, 1000);
        QVERIFY2(rounds > 0, "windows are painted");
        for (int step = 0; step < 500; ++step) {
            progress.step(250, 1000);
        }
        QVERIFY2(rounds < 100, "the event loop ran at nearly every step");
        QVERIFY(amount->isVisible());
        QCOMPARE(amount->value() * 4, amount->maximum());
        progress.step(0, 0);
        QVERIFY(!amount->isVisible());

        progress.pointer(platform::PointerShape::busy);
        progress.pointer(platform::PointerShape::busy);
        QVERIFY(QApplication::overrideCursor() != nullptr);
        progress.pointer(platform::PointerShape::ordinary);
        QVERIFY(QApplication::overrideCursor() == nullptr);
        progress.attach(nullptr);
        progress.step(1, 2);
        progress.status("gone");
    }

    void helpThatCannotBeShownIsAFault() {
        const QTemporaryDir folder;
        const std::string path = folder.filePath(QStringLiteral("help file.html")).toStdString();
        QUrl opened;
        bool answers = true;
        QtHelpViewer help([&](const QUrl& url) {
            opened = url;
            return answers;
        });
        const auto open = [&] { help.open(path); };
        QVERIFY(faultOf(open).find(path) != std::string::npos);
        QVERIFY(opened.isEmpty());
        QVERIFY(QFile(QString::fromStdString(path)).open(QIODevice::WriteOnly));
        QCOMPARE(faultOf(open), std::string());
        QCOMPARE(opened.toLocalFile().toStdString(), path);
    }

    void helpWithoutAViewerComesInAWindow() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("help.chm"));
        QVERIFY(QFile(path).open(QIODevice::WriteOnly));
        QtHelpViewer help([](const QUrl&) { return false; });
        help.open(path.toStdString());
        help.open(path.toStdString());
        QList<HelpWindow*> open;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (auto* found = qobject_cast<HelpWindow*>(window)) {
                open.append(found);
            }
        }
        QCOMPARE(open.size(), 1);
        auto* contents = open[0]->findChild<QListWidget*>();
        auto* page = open[0]->findChild<QTextBrowser*>();
        QVERIFY(contents->count() >= 6);
        QVERIFY(page->toPlainText().startsWith(contents->currentItem()->text()));
        open[0]->findChild<QLineEdit*>()->setText(QStringLiteral("spreadsheet"));
        QCOMPARE(contents->currentItem()->text(), QStringLiteral("Metrics"));
        QCOMPARE(page->textCursor().selectedText(), QStringLiteral("spreadsheet"));
        open[0]->close();
    }

    void faultsInHandlersAreShownAndTheLoopGoesOn() {
        DialogScript dialogs;
        QStringList shown;
        for (void (*fail)() : {+[] { throw platform::Fault("The key is taken."); },  //
                               +[] { std::vector<int>().at(3) = 1; }}) {
            dialogs.at({}, [&](QDialog& window) {
                const auto& box = static_cast<const QMessageBox&>(window);
                shown << box.text();
                QCOMPARE(box.icon(), QMessageBox::Critical);
                window.accept();
            });
            QMetaObject::invokeMethod(this, fail, Qt::QueuedConnection);
            QApplication::processEvents();
        }
        QCOMPARE(shown.value(0), QStringLiteral("The key is taken."));
        QVERIFY(!shown.value(1).isEmpty());
    }

    void marksAndPagesStandOutFromTheirGround() {
        Theme theme(ThemeMode::light);
        theme.apply(*qApp);
        for (const ThemeMode mode : {ThemeMode::light, ThemeMode::dark}) {
            theme.setMode(mode);
            const auto drawn = [](QStyle::PrimitiveElement element, QPalette::ColorRole ground, QStyle::State state) {
                QImage image(20, 20, QImage::Format_RGB32);
                image.fill(qApp->palette().color(ground));
                QStyleOptionTabWidgetFrame option;
                option.palette = qApp->palette();
                option.rect = QRect(3, 3, 14, 14);
                option.state = QStyle::State_Enabled | QStyle::State_Active | state;
                QPainter painter(&image);
                qApp->style()->drawPrimitive(element, &option, &painter);
                return image;
            };
            for (const QPalette::ColorRole ground : {QPalette::Base, QPalette::Highlight}) {
                const bool chosen = ground == QPalette::Highlight;
                const QImage box = drawn(QStyle::PE_IndicatorItemViewItemCheck, ground,
                                         QStyle::State_On | (chosen ? QStyle::State_Selected : QStyle::State_None));
                const int rim = box.pixelColor(3, 10).lightness();
                QVERIFY2(std::abs(rim - qApp->palette().color(ground).lightness()) > 40, chosen ? "chosen" : "plain");
            }
            QCOMPARE(drawn(QStyle::PE_FrameTabWidget, QPalette::Window, {}).pixelColor(10, 10),
                     qApp->palette().color(QPalette::Base));
        }
        theme.setMode(ThemeMode::light);
    }

    void iconsFollowTheThemeAndTheScale() {
        Theme theme(ThemeMode::light);
        theme.apply(*qApp);
        const auto darkest = [](const QString& name) {
            const QImage image = icon(name).pixmap(QSize(24, 24), 1.0).toImage();
            int least = 255;
            for (int pixel = 0; pixel < image.width() * image.height(); ++pixel) {
                const QColor colour = image.pixelColor(pixel % image.width(), pixel / image.width());
                least = colour.alpha() > 200 ? std::min(least, colour.lightness()) : least;
            }
            return least;
        };
        QVERIFY(darkest(QStringLiteral("save")) < 90);
        QCOMPARE(icon(QStringLiteral("save")).pixmap(QSize(24, 24), 2.0).toImage().size(), QSize(48, 48));
        QVERIFY(icon(QStringLiteral("there-is-none")).isNull());
        theme.setMode(ThemeMode::dark);
        for (const QString& file : QDir(QStringLiteral(":/orvent/icons")).entryList()) {
            const int least = darkest(file.chopped(4));
            QVERIFY2(least > 150 && least < 255, qPrintable(file));
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
