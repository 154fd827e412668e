// How long a keystroke takes in a text box of 100,000 characters, painting included, with the keyword colouring and
// without it, in one run.

#include <QApplication>
#include <QKeyEvent>
#include <QTextEdit>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

#include "qt/statements/keyword_colouring.h"

namespace {

constexpr int kCharacters = 100'000;
constexpr int kStrokes = 60;

/// A text of many lines, of one line, or of one word.
QString text(const char* shape) {
    const QString kind = QString::fromLatin1(shape);
    const QString part = kind == "lines" ? "SELECT COLUMN_1, COLUMN_2\nFROM WAREHOUSE_TABLE\nWHERE A = 1 AND B = 2\n"
                         : kind == "one line" ? "SELECT COLUMN_1, COLUMN_2 FROM WAREHOUSE_TABLE WHERE A = 1 AND B = 2 "
                                              : "COLUMN_1_OF_THE_WAREHOUSE_TABLE_";
    return part.repeated(kCharacters / static_cast<int>(part.size()) + 1).left(kCharacters);
}

void press(QTextEdit& box, int key, const QString& letters) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, letters);
        QApplication::sendEvent(&box, &event);
    }
    QApplication::processEvents();
    box.viewport()->repaint();
}

/// The median and the longest keystroke, in milliseconds: letters and spaces are typed in the middle of the text.
std::pair<double, double> keystroke(const char* shape, bool coloured) {
    QTextEdit box;
    box.resize(800, 600);
    box.setPlainText(text(shape));
    if (coloured) {
        (new orvent::qt::KeywordColouring(box))->colourAll();
    }
    box.show();
    QTextCursor caret = box.textCursor();
    caret.setPosition(kCharacters / 2);
    box.setTextCursor(caret);
    press(box, Qt::Key_X, "x");
    std::vector<double> times;
    for (int stroke = 0; stroke < kStrokes; ++stroke) {
        const bool space = stroke % 5 == 4;
        const auto begin = std::chrono::steady_clock::now();
        press(box, space ? Qt::Key_Space : Qt::Key_X, space ? " " : "x");
        times.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count());
    }
    std::sort(times.begin(), times.end());
    return {times[times.size() / 2], times.back()};
}

}  // namespace

int main(int argc, char* argv[]) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    for (const char* shape : {"lines", "one line", "one word"}) {
        const auto [plain, plainLongest] = keystroke(shape, false);
        const auto [median, longest] = keystroke(shape, true);
        std::printf(
            "a keystroke in 100,000 characters, %-8s  plain box %6.2f ms (longest %6.2f)  coloured %6.2f ms "
            "(longest %6.2f)  ratio %.2f\n",
            shape, plain, plainLongest, median, longest, median / plain);
    }
    return 0;
}
