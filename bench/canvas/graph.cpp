#include "bench/canvas/graph.h"

#include <cmath>

namespace orvent::bench {

namespace {

constexpr float kColumnTwips = 2000;
constexpr float kRowTwips = 1000;
constexpr int kStarColumn = 8, kStarRow = 9, kStarReach = 2;
constexpr int kStarEdges = 20;
constexpr int kHubEdges = 2000;

class Drawer {
  public:
    Drawer(canvas::DrawForm& form, int nodes)
        : form_(form), nodes_(nodes), columns_(static_cast<int>(std::lround(std::sqrt(nodes)))) {}

    void drawNodes() {
        for (int i = 0; i < nodes_; ++i) {
            const bool isActivity = i % columns_ % 2 != 0;
            form_.Labels.Add({kColumnTwips * static_cast<float>(i % columns_),
                              kRowTwips * static_cast<float>(i / columns_), 1050, 450},
                             "NODE_" + std::to_string(i),
                             isActivity ? canvas::NodeTypeActivity : canvas::NodeTypeRecordSet);
        }
    }

    canvas::NodeNumber drawStar() {
        const canvas::NodeNumber star = numberAt(kStarColumn, kStarRow);
        for (int y = kStarRow - kStarReach; y <= kStarRow + kStarReach; ++y) {
            for (int x = kStarColumn - kStarReach; x <= kStarColumn + kStarReach; ++x) {
                if (form_.Lines.Count() < kStarEdges) {
                    connect(star, numberAt(x, y));
                }
            }
        }
        return star;
    }

    canvas::NodeNumber drawHub() {
        const canvas::NodeNumber hub = numberAt(columns_ / 2, columns_ / 2);
        for (int i = 0; i < kHubEdges; ++i) {
            connect(hub, canvas::NodeNumber{i * (nodes_ / kHubEdges) + 1});
        }
        return hub;
    }

    /// Every node with its right neighbour, and half of them with the one below that.
    void drawRest() {
        const int most = nodes_ + nodes_ / 2;
        for (int i = 0; i < nodes_ && form_.Lines.Count() < most; ++i) {
            const int column = i % columns_;
            const int row = i / columns_;
            connect(numberAt(column, row), numberAt(column + 1, row));
            connect(numberAt(column, row), (column + row) % 2 ? numberAt(column + 1, row + 1) : canvas::NodeNumber{});
        }
        for (int i = nodes_ - 1; i >= 0 && form_.Lines.Count() < most; --i) {
            connect(numberAt(i % columns_, i / columns_), numberAt(i % columns_ + 2, i / columns_ - 1));
        }
    }

  private:
    /// The number of the node there, or 0.
    canvas::NodeNumber numberAt(int column, int row) const {
        const int place = row * columns_ + column;
        return canvas::NodeNumber{column >= 0 && column < columns_ && row >= 0 && place < nodes_ ? place + 1 : 0};
    }

    void connect(canvas::NodeNumber from, canvas::NodeNumber to) {
        if (!canvas::isGiven(from) || !canvas::isGiven(to) || from == to) {
            return;
        }
        const bool fromActivity = form_.Labels.byIndex(from)->NodeType() == canvas::NodeTypeActivity;
        form_.Lines.addFullLine(from, fromActivity ? 4 : 3, to, 1, canvas::EdgeTypeProvider, canvas::AngleStraight, 0);
    }

    canvas::DrawForm& form_;
    int nodes_;
    int columns_;
};

}  // namespace

Graph drawGraph(const canvas::CanvasServices& services, int nodes, bool withHub) {
    Graph graph;
    auto form = std::make_unique<canvas::DrawForm>(services);
    Drawer drawer(*form, nodes);
    drawer.drawNodes();
    graph.star = drawer.drawStar();
    graph.hub = withHub ? drawer.drawHub() : canvas::NodeNumber{};
    drawer.drawRest();
    graph.form = std::move(form);
    return graph;
}

}  // namespace orvent::bench
