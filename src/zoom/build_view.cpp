// Building the zoom view.

#include "zoom/build_view.h"

#include "zoom/expand_collapse.h"
#include "zoom/make_room.h"
#include "zoom/view_filters.h"

namespace orvent::zoom {

using namespace links;

using namespace entities;
using canvas::LabelsD;

namespace {

/// What differs between the two columns.
struct Column {
    ZoomPlace place;
    float left;
    float first;  ///< `Top` of the first node
    float inset;  ///< by which every further node stands higher
};

const std::string& nameOf(const LabelsD& node) {
    return node.activity() ? node.activity()->Act_Name : node.recordSet()->RecordSet_Name;
}

/// How many rows a node of a column takes. The right column shows inputs, and is spaced by outputs all the same.
int rowsOf(const LabelsD& node) {
    const ActivityProperties* activity = node.activity();
    return activity ? activity->Act_Outputs.count() : node.recordSet()->RecordSet_Outputs.count();
}

class Builder {
  public:
    explicit Builder(ZoomView& view) : view_(view), sizes_(view.settings()) {}

    LabelsD& copy(const LabelsD& design, ZoomPlace place, float left, float top) {
        LabelsD& node = view_.Labels.addLabel(design);
        if (!view_.bearsName(node)) {
            node.showCaption(nameOf(design));
        }
        node.setBox({left, top, sizes_.Width, sizes_.BigHeight});
        (node.activity() ? node.activity()->ZoomPosition : node.recordSet()->ZoomPosition) =
            static_cast<std::int16_t>(place);
        view_.New2OldIndex.push_back({node.Index(), design.Index()});
        return node;
    }

    void column(const Column& column, const canvas::LineNumbers& edges,
                canvas::NodeNumber (canvas::LinesD::*end)() const) {
        const LabelsD* previous = nullptr;
        for (const canvas::EdgeNumber number : edges) {
            const canvas::LinesD* edge = view_.ParForm().Lines.byIndex(number);
            const LabelsD* design = edge && edge->EdgeType() == canvas::EdgeTypeProvider
                                        ? view_.ParForm().Labels.byIndex((edge->*end)())
                                        : nullptr;
            if (!design || (!design->activity() && !design->recordSet())) {
                continue;
            }
            previous = &copy(*design, column.place, column.left, previous ? below(*previous, column) : column.first);
        }
    }

  private:
    float below(const LabelsD& previous, const Column& column) const {
        return previous.Top() + sizes_.BigHeight + sizes_.HDist +
               (sizes_.Height + sizes_.HDist) * static_cast<float>(rowsOf(previous)) - column.inset;
    }

    ZoomView& view_;
    const canvas::CanvasSettings& sizes_;
};

}  // namespace

void buildZoomView(ZoomView& view, const LabelsD& activity) {
    const platform::Busy busy(view.progress());
    const canvas::CanvasSettings& sizes = view.settings();
    const float Width = sizes.Width, HDist = sizes.HDist;
    Builder builder(view);
    // A neighbour that is reached twice bears its name once; nobody has to be told.
    view.quietNames = true;
    const LabelsD& central =
        builder.copy(activity, ZoomPlace::Central, sizes.WDist + Width + sizes.BigDist, HDist - sizes.Height / 2);
    view.CentralActivityNo = central.Index();
    builder.column({ZoomPlace::Providers, HDist, HDist, HDist / 2}, activity.EndingLines(), &canvas::LinesD::FromLabel);
    builder.column({ZoomPlace::Consumers, Width + 3 * sizes.WDist + sizes.BigDist, HDist - HDist / 4, HDist / 4},
                   activity.StartingLines(), &canvas::LinesD::ToLabel);
    view.quietNames = false;
    for (const NewANDoldIndex& pair : view.New2OldIndex) {
        LabelsD& node = *view.Labels.byIndex(pair.NewIndex);
        const bool beside = node.Left() < central.Left() || node.Left() > central.Left();
        if (!node.activity()) {
            ExpandRecordSet(view, node.Index());
        } else if (beside) {
            (node.Left() < central.Left() ? ExpandOutputs : ExpandInputs)(view, node.Index());
            node.Expanded = true;
        }
    }
    ExpandActivity(view, view.CentralActivityNo);
    view.ActiveLabel = canvas::kNoNode;
    refreshFilters(view);
    view.setDisorder(disorderOf(view));
}

}  // namespace orvent::zoom
