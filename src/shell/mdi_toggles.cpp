// The frame's commands that show or hide something.

#include "analysis/metric_tints.h"
#include "shell/mdi_form.h"
#include "zoom/view_filters.h"

namespace orvent::shell {

void MDIForm1::toggleMark(bool zoom::ViewMarks::*mark) {
    toggleFilter(*zoomInFront(), mark);
    host_.commandsChanged();
}

void MDIForm1::toggleTints() {
    canvas::DrawForm& form = *activeScenario();
    if (tints_.contains(&form)) {
        desk_.showTints(form, nullptr);
        tints_.erase(&form);
    } else {
        const auto [place, isNew] =
            tints_.emplace(&form, std::make_unique<analysis::MetricTints>(form, options_.TransDepth));
        desk_.showTints(form, place->second.get());
    }
    host_.commandsChanged();
}

bool MDIForm1::marked(bool zoom::ViewMarks::*mark) const {
    const zoom::ZoomForm* form = zoomInFront();
    return form && form->marks.*mark;
}

void MDIForm1::toggleSight(bool zoom::ZoomSight::*mark) {
    options_.sight.*mark = !(options_.sight.*mark);
    StoreSight(options_.sight, ports_.store);
    zoomInFront()->setSight(options_.sight);
    host_.commandsChanged();
}

}  // namespace orvent::shell
