#include "bench/canvas/measure.h"

#include <malloc.h>

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>
#include <chrono>
#include <limits>
#include <vector>

#include "qt/canvas/minimap.h"

namespace orvent::bench {

namespace {

constexpr int kRuns = 31;
constexpr int kPanPixels = 60;  // one notch of the wheel
constexpr QPoint kDropBy(40, 20);

void mouse(Subject& subject, QEvent::Type type, QPoint at) {
    QWidget* viewport = subject.area().viewport();
    const bool moves = type == QEvent::MouseMove;
    const bool released = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, at, viewport->mapToGlobal(at), moves ? Qt::NoButton : Qt::LeftButton,
                      released ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &event);
}

/// Counts what a widget is asked to paint, so that a step that shows nothing is not taken for a quick one.
class Paintings : public QObject {
  public:
    explicit Paintings(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        count_ += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    /// The time as it is when each of so many steps was painted, endless otherwise.
    double time(double measured, int steps) const {
        return count_ >= steps ? measured : std::numeric_limits<double>::infinity();
    }

  private:
    int count_ = 0;
};

}  // namespace

double median(int runs, const std::function<void()>& work, const std::function<void()>& prepare) {
    using Clock = std::chrono::steady_clock;
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        prepare();
        const Clock::time_point start = Clock::now();
        work();
        times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

void settle() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

double heapBytes() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

double openToPicture(const std::function<std::unique_ptr<Subject>()>& make) {
    std::unique_ptr<Subject> subject;
    return median(
        7,
        [&] {
            subject = make();
            settle();
        },
        [&] {
            subject.reset();
            settle();
        });
}

double repaintAll(Subject& subject) {
    subject.showAll();
    settle();
    return median(kRuns, [&] {
        subject.area().viewport()->update();
        settle();
    });
}

MinimapCosts minimap(Ours& subject) {
    qt::Minimap map(subject.view(), subject.theme());
    map.show();
    settle();
    QImage target(map.size(), QImage::Format_RGB32);
    const auto cost = [&](bool changed) {
        return median(kRuns, [&] {
            if (changed) {
                map.manyChanged();
            }
            map.render(&target);
        });
    };
    return {cost(true), cost(false)};
}

double pan(Subject& subject, canvas::NodeNumber number) {
    subject.showNode(number);
    settle();
    QScrollBar* across = subject.area().horizontalScrollBar();
    // A tall picture may be shown in its whole width.
    const bool isWider = across->maximum() - across->value() > 2 * kRuns * kPanPixels;
    QScrollBar* bar = isWider ? across : subject.area().verticalScrollBar();
    const Paintings paintings(*subject.area().viewport());
    int step = 0;
    const double time = median(2 * kRuns, [&] {
        // In a small picture to and fro, since it ends soon.
        const bool back = bar->value() + kPanPixels > bar->maximum() || (!isWider && step % 2 == 1);
        ++step;
        bar->setValue(bar->value() + (back ? -kPanPixels : kPanPixels));
        settle();
    });
    return paintings.time(time, step);
}

double dragStep(Subject& subject, canvas::NodeNumber number) {
    subject.showNode(number);
    settle();
    const QPoint start = subject.pixelOf(number);
    mouse(subject, QEvent::MouseButtonPress, start);
    int step = 0;
    const Paintings paintings(*subject.area().viewport());
    const double time = median(2 * kRuns, [&] {
        ++step;
        mouse(subject, QEvent::MouseMove, start + QPoint(4 * step % 160, 3 * step % 90));
        settle();
    });
    const double painted = paintings.time(time, step);
    mouse(subject, QEvent::MouseMove, start);
    mouse(subject, QEvent::MouseButtonRelease, start);
    settle();
    return painted;
}

double drop(Subject& subject, canvas::NodeNumber number, int runs) {
    subject.showNode(number);
    settle();
    QPoint at = subject.pixelOf(number);
    QPoint by = kDropBy;
    return median(
        runs,
        [&] {
            at += by;
            mouse(subject, QEvent::MouseMove, at);
            mouse(subject, QEvent::MouseButtonRelease, at);
            settle();
            by = -by;
        },
        [&] {
            mouse(subject, QEvent::MouseButtonPress, at);
            settle();
        });
}

double hitTest(Subject& subject) {
    constexpr int kPlaces = 500;
    int hits = 0;
    const double time = median(kRuns, [&] {
        for (int i = 0; i < kPlaces; ++i) {
            hits += subject.hits(QPoint(37 * i % 1500, 91 * i % 800)) ? 1 : 0;
        }
    });
    return hits > 0 ? time / kPlaces : 0;
}

double selectAll(Subject& subject) {
    subject.showAll();
    settle();
    return median(9, [&] {
        subject.selectAll();
        settle();
    });
}

double cropStep(Ours& ours, const Graph& graph) {
    ours.useTool("Crop");
    ours.showNode(graph.star);
    settle();
    mouse(ours, QEvent::MouseButtonPress, QPoint(100, 20));
    int step = 0;
    const Paintings paintings(*ours.area().viewport());
    const double time = median(2 * kRuns, [&] {
        ++step;
        mouse(ours, QEvent::MouseMove, QPoint(200 + 20 * step, 100 + 11 * step));
        settle();
    });
    const double painted = paintings.time(time, step);
    mouse(ours, QEvent::MouseButtonRelease, QPoint(200, 100));
    ours.useTool("Move");
    settle();
    return painted;
}

GroupDrag groupDrag(Ours& ours, canvas::NodeNumber number) {
    constexpr int kGroup = 1000;
    canvas::CanvasForm& form = ours.form();
    ours.useTool("Arrow");
    ours.showNode(number);
    form.ClearCrop();
    GroupDrag figures{0, 0, 0};
    for (int offset = -kGroup / 2; offset < kGroup / 2; ++offset) {
        const canvas::NodeNumber index{static_cast<int>(number) + offset};
        if (const canvas::LabelsD* node = form.Labels.byIndex(index)) {
            form.SelectedLabels.Add(index);
            figures.edges += node->StartingLines().Count() + node->EndingLines().Count();
        }
    }
    settle();
    const QPoint start = ours.pixelOf(number);
    mouse(ours, QEvent::MouseButtonPress, start);
    int step = 0;
    const Paintings paintings(*ours.area().viewport());
    figures.step = median(kRuns, [&] {
        ++step;
        mouse(ours, QEvent::MouseMove, start + QPoint(40 + 4 * step % 160, 40 + 3 * step % 90));
        settle();
    });
    figures.step = paintings.time(figures.step, step);
    figures.drop = median(1, [&] {
        mouse(ours, QEvent::MouseButtonRelease, start + QPoint(60, 50));
        settle();
    });
    form.ClearCrop();
    ours.useTool("Move");
    settle();
    return figures;
}

double lightStep(Ours& ours, canvas::NodeNumber number, bool wholePicture) {
    wholePicture ? ours.showAll() : ours.showNode(number);
    settle();
    canvas::CanvasForm& form = ours.form();
    const auto on = [&] {
        form.setLight(form.rules().pathOf(form, *form.Labels.byIndex(number)));
        settle();
    };
    const auto off = [&] {
        form.setLight({});
        settle();
    };
    const double time = median(kRuns, on, off);
    const bool lit = !form.light().isEmpty();
    off();
    return lit ? time : std::numeric_limits<double>::infinity();
}

double zoomStep(Subject& subject, canvas::NodeNumber number, int runs) {
    constexpr double kStep = 1.25;
    subject.showAll();
    settle();
    double slowest = 0;
    for (double scale = subject.scale(); scale <= 1; scale *= kStep) {
        const auto zoom = [&](double to) {
            subject.zoomTo(to, number);
            settle();
        };
        slowest = std::max(slowest, median(
                                        runs, [&] { zoom(scale); }, [&] { zoom(scale / kStep); }));
    }
    return slowest;
}

void hideBars(Subject& subject) {
    subject.area().setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    subject.area().setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

}  // namespace orvent::bench
