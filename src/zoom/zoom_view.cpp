// Building the zoom view.

#include "zoom/zoom_view.h"

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
    explicit Builder(ZoomForm& form) : form_(form), sizes_(form.settings()) {}

    LabelsD& copy(const LabelsD& design, ZoomPlace place, float left, float top) {
        LabelsD& node = form_.Labels.addLabel(design);
        if (!form_.bearsName(node)) {
            node.showCaption(nameOf(design));
        }
        node.setBox({left, top, sizes_.Width, sizes_.BigHeight});
        (node.activity() ? node.activity()->ZoomPosition : node.recordSet()->ZoomPosition) =
            static_cast<std::int16_t>(place);
        form_.New2OldIndex.push_back({node.Index(), design.Index()});
        return node;
    }

    void column(const Column& column, const canvas::LineNumbers& edges, std::int32_t (canvas::LinesD::*end)() const) {
        const LabelsD* previous = nullptr;
        for (const std::int32_t number : edges) {
            const canvas::LinesD* edge = form_.ParForm.Lines.byIndex(number);
            const LabelsD* design = edge && edge->EdgeType() == canvas::EdgeTypeProvider
                                        ? form_.ParForm.Labels.byIndex((edge->*end)())
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

    ZoomForm& form_;
    const canvas::CanvasSettings& sizes_;
};

}  // namespace

void buildZoomView(ZoomForm& form, const LabelsD& activity) {
    const platform::Busy busy(form.progress());
    const canvas::CanvasSettings& sizes = form.settings();
    const float Width = sizes.Width, HDist = sizes.HDist;
    Builder builder(form);
    // A neighbour that is reached twice bears its name once; nobody has to be told.
    form.quietNames = true;
    const LabelsD& central =
        builder.copy(activity, ZoomPlace::Central, sizes.WDist + Width + sizes.BigDist, HDist - sizes.Height / 2);
    form.CentralActivityNo = central.Index();
    builder.column({ZoomPlace::Providers, HDist, HDist, HDist / 2}, activity.EndingLines(), &canvas::LinesD::FromLabel);
    builder.column({ZoomPlace::Consumers, Width + 3 * sizes.WDist + sizes.BigDist, HDist - HDist / 4, HDist / 4},
                   activity.StartingLines(), &canvas::LinesD::ToLabel);
    form.quietNames = false;
    for (const NewANDoldIndex& pair : form.New2OldIndex) {
        LabelsD& node = *form.Labels.byIndex(pair.NewIndex);
        const bool beside = node.Left() < central.Left() || node.Left() > central.Left();
        if (!node.activity()) {
            ExpandRecordSet(form, node.Index());
        } else if (beside) {
            (node.Left() < central.Left() ? ExpandOutputs : ExpandInputs)(form, node.Index());
            node.Expanded = true;
        }
    }
    ExpandActivity(form, form.CentralActivityNo);
    form.ActiveLabel = -1;
    refreshFilters(form);
    form.setDisorder(disorderOf(form));
}

}  // namespace orvent::zoom
