#include "tour_metrics.h"

#include <QHeaderView>
#include <QListView>
#include <QTableView>

#include "qt/analysis/metrics_window.h"

namespace orvent::tour {

namespace {

void choose(QWidget& metrics, int entry) {
    auto& list = dynamic_cast<QListView&>(Player::child(metrics, "Entities"));
    list.setCurrentIndex(list.model()->index(entry, 0));
}

/// The text of a cell of the first table.
QString cell(QWidget& metrics, int row, int column) {
    auto& table = dynamic_cast<QTableView&>(Player::child(metrics, "InpMetrView"));
    return table.model()->index(row, column).data().toString();
}

}  // namespace

void countMetrics(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme) {
    frame.run(shell::Command::metrics);
    QWidget& metrics = *window.findChild<qt::MetricsWindow*>();
    choose(metrics, 7);  // an activity
    player.picture(window, "metrics-attributes");
    Player::press(metrics, "Switch");
    choose(metrics, 0);
    auto& heads = *dynamic_cast<QTableView&>(Player::child(metrics, "InpMetrView")).horizontalHeader();
    Q_EMIT heads.sectionClicked(static_cast<int>(analysis::Total_DEGREE) + 1);
    player.expect(cell(metrics, 0, 9).toInt() >= cell(metrics, 1, 9).toInt(), "the metrics are not in order");
    player.picture(window, "metrics-nodes");
    frame.run(shell::Command::colourByMetric);
    player.picture(window, "metrics-tinted");
    const qt::ThemeMode mode = theme.mode();
    theme.setMode(qt::ThemeMode::dark);
    player.picture(window, "metrics-dark");
    theme.setMode(mode);
    frame.run(shell::Command::colourByMetric);
    metrics.close();
}

}  // namespace orvent::tour
