#pragma once

#include <memory>

#include "bench/graphs.h"
#include "bench/zoom/star.h"
#include "zoom/build_view.h"
#include "zoom/relationship_rules.h"
#include "zoom/zoom_form.h"

namespace orvent::bench {

struct Silent : platform::MessageBox {
    platform::Answer show(const std::string&, const std::string&, platform::Icon, platform::Buttons) override {
        return platform::Answer::ok;
    }
};

struct NoProgress : platform::Progress {
    void pointer(platform::PointerShape) override {}
    void status(const std::string&) override {}
    void step(std::size_t, std::size_t) override {}
};

/// All names are short.
struct ShortNames : canvas::NameMeasure {
    float widthForName(const canvas::LabelsD&) const override { return 0; }
};

/// A scenario of `around` nodes beside a star with that many members and attributes, and a zoom view of its middle once
/// `open` was called.
struct Stage {
    Stage(int subNodes, int around) : design({messages, settings}, nullptr) {
        buildScenario(design, around);
        synchronizeScenario(design);
        central = buildStar(design, subNodes);
        catalogue.dataTypes.add("NUMBER");
    }

    zoom::ZoomForm& open() {
        form.reset();
        form = std::make_unique<zoom::ZoomForm>(zoom::ZoomServices{{messages, settings}, catalogue, progress, names},
                                                design);
        zoom::buildZoomView(*form, *design.Labels.byIndex(central));
        return *form;
    }

    Silent messages;
    canvas::CanvasSettings settings;
    entities::CatalogueTables catalogue;
    NoProgress progress;
    ShortNames names;
    canvas::DrawForm design;
    canvas::NodeNumber central{};
    std::unique_ptr<zoom::ZoomForm> form;
};

}  // namespace orvent::bench
