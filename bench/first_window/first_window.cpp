// How long from the start of the process to the first painted window: the program's, and that of a bare Qt program with
// an MDI window. Without arguments it runs both in turn, many times, and prints their medians and the ratio.

#include <QElapsedTimer>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "app/program.h"
#include "qt/platform/application.h"
#include "qt/theme/theme.h"

namespace {

constexpr int kRuns = 21;

/// Ends the process at the first painting of a window.
class EndAtPaint : public QObject {
  public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && watched->isWidgetType()) {
            QTimer::singleShot(0, [] { _exit(0); });
        }
        return false;
    }
};

int runBare(int argc, char* argv[]) {
    QApplication application(argc, argv);
    EndAtPaint end;
    application.installEventFilter(&end);
    QMainWindow window;
    auto* area = new QMdiArea(&window);
    window.setCentralWidget(area);
    area->addSubWindow(new QWidget)->setWindowTitle(QStringLiteral("Scenario1"));
    window.show();
    return QApplication::exec();
}

int runProgram(int argc, char* argv[], const char* home) {
    using namespace orvent;
    qt::Application application(argc, argv);
    EndAtPaint end;
    application.installEventFilter(&end);
    qt::Theme theme(qt::ThemeMode::light);
    theme.apply(application);
    app::Program program(app::Places::in(home), theme);
    return program.start() ? QApplication::exec() : 1;
}

double milliseconds(const char* self, const QStringList& arguments) {
    QElapsedTimer timer;
    timer.start();
    QProcess process;
    process.start(QString::fromLocal8Bit(self), arguments);
    if (!process.waitForFinished(60000) || process.exitCode() != 0) {
        std::fprintf(stderr, "%s\n", process.readAllStandardError().constData());
        std::exit(1);
    }
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

int compare(int argc, char* argv[]) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QCoreApplication application(argc, argv);
    const QTemporaryDir home;
    const QStringList ours = {"program", home.path()};
    milliseconds(argv[0], ours);  // the very first start makes the repository
    std::vector<double> program;
    std::vector<double> bare;
    for (int run = 0; run < kRuns; ++run) {
        program.push_back(milliseconds(argv[0], ours));
        bare.push_back(milliseconds(argv[0], {"bare"}));
    }
    std::printf("start to first painted window, median of %d: program %.0f ms, bare MDI window %.0f ms, ratio %.2f\n",
                kRuns, median(program), median(bare), median(program) / median(bare));
    return 0;
}

}  // namespace

int main(int argc, char* argv[]) {
    const QByteArray mode = argc > 1 ? argv[1] : "";
    if (mode == "bare") {
        return runBare(argc, argv);
    }
    return mode == "program" && argc > 2 ? runProgram(argc, argv, argv[2]) : compare(argc, argv);
}
