// A bare Qt program with an MDI window, which ends at its first painting. With an argument its window has a child with
// that title, so that it draws text.

#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>

#include "end_at_paint.h"

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    EndAtPaint end;
    application.installEventFilter(&end);
    QMainWindow window;
    auto* area = new QMdiArea(&window);
    window.setCentralWidget(area);
    if (argc > 1) {
        area->addSubWindow(new QWidget)->setWindowTitle(QString::fromLocal8Bit(argv[1]));
    }
    window.show();
    return QApplication::exec();
}
