#include "layout/heights.h"

#include <algorithm>

namespace orvent::layout {

namespace {

constexpr int kRounds = 8;
constexpr double kWaypointWeight = 4;  // bends of a long arc are worse than slopes

class Heights {
  public:
    Heights(const Layered& graph, const Rows& rows, const std::vector<Extent>& extents, double gap)
        : graph_(graph), rows_(rows), extents_(extents), gap_(gap), height_(graph.nodes.size()) {}

    std::vector<double> run() {
        for (std::size_t layer = 0; layer < graph_.layers(); ++layer) {
            stack(rowOf(graph_, rows_, layer));
        }
        for (int round = 0; round < kRounds; ++round) {
            const bool both = round >= kRounds / 2;
            for (std::size_t layer = 0; layer < graph_.layers(); ++layer) {
                settle(rowOf(graph_, rows_, layer), true, both);
            }
            for (std::size_t layer = graph_.layers(); layer-- > 0;) {
                settle(rowOf(graph_, rows_, layer), both, true);
            }
        }
        return std::move(height_);
    }

  private:
    double& height(std::int32_t vertex) { return height_[static_cast<std::size_t>(vertex)]; }
    Extent extent(std::int32_t vertex) const {
        return graph_.isWaypoint(vertex) ? Extent{} : extents_[static_cast<std::size_t>(graph_.node(vertex))];
    }

    double apart(std::int32_t upper, std::int32_t lower) const {
        const bool waypoint = graph_.isWaypoint(upper) || graph_.isWaypoint(lower);
        return extent(upper).below + (waypoint ? gap_ / 2 : gap_) + extent(lower).above;
    }

    void stack(std::span<const std::int32_t> row) {
        for (std::size_t at = 1; at < row.size(); ++at) {
            height(row[at]) = height(row[at - 1]) + apart(row[at - 1], row[at]);
        }
    }

    /// What is pulled one way as one: a run of vertices that touch each other.
    struct Run {
        double sum, weight;
        std::size_t count;
        double mean() const { return sum / weight; }
    };

    /// Moves a row's vertices as near to their neighbours as the others let them. With the least distances taken off,
    /// the heights only have to grow; where the wishes do not, the vertices go together to the mean of their wishes.
    void settle(std::span<const std::int32_t> row, bool byBefore, bool byBehind) {
        runs_.clear();
        double taken = 0;
        for (std::size_t at = 0; at < row.size(); ++at) {
            taken += at == 0 ? 0 : apart(row[at - 1], row[at]);
            Run run = wish(row[at], byBefore, byBehind);
            run.sum -= taken * run.weight;
            while (!runs_.empty() && runs_.back().mean() >= run.mean()) {
                run = {run.sum + runs_.back().sum, run.weight + runs_.back().weight, run.count + runs_.back().count};
                runs_.pop_back();
            }
            runs_.push_back(run);
        }
        std::size_t at = 0;
        taken = 0;
        for (const Run& run : runs_) {
            for (std::size_t end = at + run.count; at < end; ++at) {
                taken += at == 0 ? 0 : apart(row[at - 1], row[at]);
                height(row[at]) = run.mean() + taken;
            }
        }
    }

    Run wish(std::int32_t vertex, bool byBefore, bool byBehind) {
        Run run{0, 0, 1};
        const auto pull = [&](std::span<const std::int32_t> others) {
            for (const std::int32_t other : others) {
                const double weight = graph_.isWaypoint(vertex) && graph_.isWaypoint(other) ? kWaypointWeight : 1;
                run.sum += weight * height(other);
                run.weight += weight;
            }
        };
        if (byBefore) {
            pull(graph_.before.of(vertex));
        }
        if (byBehind) {
            pull(graph_.behind.of(vertex));
        }
        constexpr double kFaint = 0.01;  // who has no neighbour there stays, if nobody needs the place
        return run.weight > 0 ? run : Run{kFaint * height(vertex), kFaint, 1};
    }

    const Layered& graph_;
    const Rows& rows_;
    const std::vector<Extent>& extents_;
    double gap_;
    std::vector<double> height_;
    std::vector<Run> runs_;
};

}  // namespace

std::vector<double> heightsOf(const Layered& graph, const Rows& rows, const std::vector<Extent>& extents, double gap) {
    return Heights(graph, rows, extents, gap).run();
}

}  // namespace orvent::layout
