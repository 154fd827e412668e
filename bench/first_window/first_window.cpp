// How long from the start of the process to the first painted window: the program's, that of a bare Qt program with an
// empty MDI window, and that of one whose MDI window has a child with a title, since loading fonts is a good part of
// it. Without arguments it runs them in turn, many times, and prints their medians and the ratios.

#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "app/program.h"
#include "end_at_paint.h"
#include "qt/platform/application.h"
#include "qt/theme/theme.h"

namespace {

constexpr int kRuns = 41;

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

double milliseconds(const QString& program, const QStringList& arguments) {
    QElapsedTimer timer;
    timer.start();
    QProcess process;
    process.start(program, arguments);
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
    const QString self = QCoreApplication::applicationFilePath();
    const QString bare = QCoreApplication::applicationDirPath() + "/orvent_bare_window";
    const QStringList ours = {"program", home.path()};
    milliseconds(self, ours);  // the very first start makes the repository
    std::vector<double> program, empty, titled;
    for (int run = 0; run < kRuns; ++run) {
        program.push_back(milliseconds(self, ours));
        empty.push_back(milliseconds(bare, {}));
        titled.push_back(milliseconds(bare, {"Scenario1"}));
    }
    std::printf(
        "start to first painted window, median of %d: program %.1f ms; bare MDI window %.1f ms, ratio %.2f; "
        "with a titled child %.1f ms, ratio %.2f (aim 1.5)\n",
        kRuns, median(program), median(empty), median(program) / median(empty), median(titled),
        median(program) / median(titled));
    return 0;
}

}  // namespace

int main(int argc, char* argv[]) {
    const QByteArray mode = argc > 1 ? argv[1] : "";
    return mode == "program" && argc > 2 ? runProgram(argc, argv, argv[2]) : compare(argc, argv);
}
