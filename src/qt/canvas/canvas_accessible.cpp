#include "qt/canvas/canvas_accessible.h"

#include <QPointer>

#include "canvas/node_tip.h"
#include "qt/canvas/canvas_view.h"
#include "qt/text.h"

namespace orvent::qt {

namespace {

/// A node or an edge by its number. It may be asked after its item has gone, or the view.
template <class Number>
class CanvasChild : public QAccessibleInterface {
  public:
    CanvasChild(CanvasViewWidget& view, Number number) : view_(&view), number_(number) {}

    Number number() const { return number_; }

    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(view_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}
    QAccessible::Role role() const override { return QAccessible::Graphic; }

    QRect rect() const override {
        if (!isValid()) {
            return {};
        }
        const QRect inView = view_->transform().toPixels(extent()).toAlignedRect();
        return {view_->viewport()->mapToGlobal(inView.topLeft()), inView.size()};
    }

  protected:
    virtual Extent extent() const = 0;
    const canvas::Canvas& form() const { return view_->shown(); }
    bool isInSight() const {
        return view_->isVisible() &&
               view_->transform().toPixels(extent()).intersects(QRectF(view_->viewport()->rect()));
    }

    QPointer<CanvasViewWidget> view_;
    Number number_;
};

class NodeChild : public CanvasChild<canvas::NodeNumber> {
  public:
    using CanvasChild::CanvasChild;

    bool isValid() const override { return node() != nullptr; }
    QString text(QAccessible::Text kind) const override {
        const canvas::LabelsD* its = node();
        if (!its || (kind != QAccessible::Name && kind != QAccessible::Description)) {
            return {};
        }
        const canvas::NodeTip tip = canvas::tipOf(*its, {});
        if (kind == QAccessible::Name) {
            return qt::text(tip.name);
        }
        std::string words = tip.kind;
        for (const std::string& more : {tip.counts, tip.lack}) {
            words += more.empty() ? "" : ", " + more;
        }
        return qt::text(words);
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        const canvas::LabelsD* its = node();
        state.invalid = !its;
        if (its) {
            state.selectable = state.focusable = state.multiSelectable = true;
            state.selected = form().SelectedLabels.Item(number_) != nullptr;
            state.focused = view_->hasFocus() && form().ActiveLabel == number_;
            state.disabled = !view_->isEnabled();
            state.invisible = !its->Visible();
            state.offscreen = !isInSight();
        }
        return state;
    }

  private:
    const canvas::LabelsD* node() const { return view_ ? form().Labels.byIndex(number_) : nullptr; }
    Extent extent() const override { return boxOf(*node()); }
};

class EdgeChild : public CanvasChild<canvas::EdgeNumber> {
  public:
    using CanvasChild::CanvasChild;

    bool isValid() const override { return edge() != nullptr; }
    QString text(QAccessible::Text kind) const override {
        const canvas::LinesD* its = edge();
        if (!its || (kind != QAccessible::Name && kind != QAccessible::Description)) {
            return {};
        }
        if (kind == QAccessible::Description) {
            return QCoreApplication::translate("Canvas", "Edge");
        }
        const auto nameOf = [this](canvas::NodeNumber number) {
            const canvas::LabelsD* node = form().Labels.byIndex(number);
            return node ? qt::text(node->Caption()) : QString();
        };
        return nameOf(its->FromLabel()) + QStringLiteral(" → ") + nameOf(its->ToLabel());
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        const canvas::LinesD* its = edge();
        state.invalid = !its;
        if (its) {
            state.selectable = true;
            state.selected = its->Selected();
            state.disabled = !view_->isEnabled();
            state.invisible = !its->Visible();
            state.offscreen = !isInSight();
        }
        return state;
    }

  private:
    const canvas::LinesD* edge() const { return view_ ? form().Lines.byIndex(number_) : nullptr; }
    Extent extent() const override { return extentOf(*edge()); }
};

template <class Child, class Number>
QAccessibleInterface* childFor(std::unordered_map<Number, QAccessible::Id>& known, CanvasViewWidget& view,
                               Number number) {
    const auto [place, isNew] = known.try_emplace(number, 0);
    if (isNew) {
        place->second = QAccessible::registerAccessibleInterface(new Child(view, number));
    }
    return QAccessible::accessibleInterface(place->second);
}

}  // namespace

CanvasAccessible::CanvasAccessible(CanvasViewWidget& view)
    : QAccessibleWidget(&view, QAccessible::Canvas), view_(view) {}

CanvasAccessible::~CanvasAccessible() {
    const auto forget = [](const auto& known) {
        for (const auto& [number, id] : known) {
            QAccessible::deleteAccessibleInterface(id);
        }
    };
    forget(nodes_);
    forget(edges_);
}

int CanvasAccessible::childCount() const {
    return view_.shown().Labels.Count() + view_.shown().Lines.Count();
}

QAccessibleInterface* CanvasAccessible::child(int index) const {
    const canvas::Canvas& canvas = view_.shown();
    if (const canvas::LabelsD* node = canvas.Labels.at(index + 1)) {
        return ofNode(node->Index());
    }
    const canvas::LinesD* edge = canvas.Lines.at(index - canvas.Labels.Count() + 1);
    return edge ? ofEdge(edge->Index()) : nullptr;
}

QAccessibleInterface* CanvasAccessible::ofNode(canvas::NodeNumber number) const {
    return view_.shown().Labels.byIndex(number) ? childFor<NodeChild>(nodes_, view_, number) : nullptr;
}

QAccessibleInterface* CanvasAccessible::ofEdge(canvas::EdgeNumber number) const {
    return view_.shown().Lines.byIndex(number) ? childFor<EdgeChild>(edges_, view_, number) : nullptr;
}

QAccessibleInterface* CanvasAccessible::childAt(int x, int y) const {
    const canvas::Hit hit = view_.hitAt(view_.viewport()->mapFromGlobal(QPointF(x, y)));
    if (hit.element == canvas::Element::node) {
        return ofNode(hit.node);
    }
    return canvas::isGiven(hit.edge) ? ofEdge(hit.edge) : nullptr;
}

int CanvasAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const canvas::Canvas& canvas = view_.shown();
    int index = 0;
    const auto isAmong = [&index](const auto& items, auto number) {
        for (const auto& item : items) {
            if (item.Index() == number) {
                return true;
            }
            ++index;
        }
        return false;
    };
    const auto* node = dynamic_cast<const NodeChild*>(child);
    if (node && isAmong(canvas.Labels, node->number())) {
        return index;
    }
    const auto* edge = dynamic_cast<const EdgeChild*>(child);
    index = canvas.Labels.Count();
    return edge && isAmong(canvas.Lines, edge->number()) ? index : -1;
}

QAccessibleInterface* CanvasAccessible::focusChild() const {
    return view_.hasFocus() ? ofNode(view_.shown().ActiveLabel) : nullptr;
}

void installCanvasAccessible() {
    QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
        auto* view = qobject_cast<CanvasViewWidget*>(object);
        return view ? new CanvasAccessible(*view) : nullptr;
    });
}

void tellAccessibleFocus(CanvasViewWidget& view) {
    if (!QAccessible::isActive()) {
        return;
    }
    auto* canvas = static_cast<CanvasAccessible*>(QAccessible::queryAccessibleInterface(&view));
    if (QAccessibleInterface* child = canvas ? canvas->focusChild() : nullptr) {
        QAccessibleEvent event(child, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}

}  // namespace orvent::qt
