#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "canvas/draw_form.h"
#include "links/far_end.h"
#include "testkit/letter_measure.h"
#include "testkit/model_text.h"
#include "testkit/scripted_ports.h"
#include "zoom/build_view.h"
#include "zoom/link_graph.h"
#include "zoom/zoom_form.h"

namespace orvent::testkit {

/// Stores nothing; a test gives what happens to the scenario meanwhile.
class LoggedStore : public canvas::ScenarioStore {
  public:
    std::function<void(canvas::DrawForm&)> save = [](canvas::DrawForm&) {};
    void saveScenario(canvas::DrawForm& form) override { save(form); }
};

/// A scenario with links of every kind around the activity A2, and its zoom view.
class ZoomTest : public CanvasTest {
  protected:
    using Texts = std::vector<std::string>;

    ZoomTest() {
        for (const char* type : {"NUMBER", "VARCHAR2(20)"}) {
            catalogue.dataTypes.add(type);
        }
        catalogue.functionTypes.add("SUM");
        for (const char* source : {"RS4", "A1", "RS3"}) {
            edge(source, "A2");
        }
        for (const char* target : {"RS2", "A3"}) {
            edge("A2", target);
        }
        graph.activity("A2").Act_Functions->Item("F1")->Function_Source = entities::SourceOwn;
        graph.activity("A2").Act_Functions->Item("A2.F2")->Function_Source = entities::SourceActivityType;
        // The links' constant has no node on a design window.
        design.Labels.Remove(design.NamesColl.Item("C1"));
    }

    void edge(const std::string& from, const std::string& to, canvas::EdgeTypeCode kind = canvas::EdgeTypeProvider) {
        design.Lines.addFullLine(design.NamesColl.Item(from), 3, design.NamesColl.Item(to), 1, kind,
                                 canvas::AngleStraight, 0);
    }

    zoom::ZoomForm& open(const std::string& activity = "A2") {
        form.reset();
        form =
            std::make_unique<zoom::ZoomForm>(zoom::ZoomServices{ports.services(), catalogue, progress, narrow}, design);
        zoom::buildZoomView(*form, *design.nodeNamed(activity));
        return *form;
    }

    canvas::LabelsD& node(const std::string& name) { return *form->nodeNamed(name); }
    canvas::NodeNumber index(const std::string& name) { return form->NamesColl.Item(name); }

    /// "name left top width height" of each node that the view shows, sorted.
    Texts boxes() const {
        Texts lines;
        for (const canvas::LabelsD& each : form->Labels) {
            std::string line = each.KeyName() + " '" + each.Caption() + "'";
            for (const float value : {each.Left(), each.Top(), each.Width(), each.Height()}) {
                line += " " + std::to_string(static_cast<int>(value));
            }
            lines.push_back(line);
        }
        return sorted(lines);
    }

    /// "from kind to" of each edge, sorted; part-of edges only when asked for.
    Texts edges(bool partOf = false) const {
        Texts lines;
        for (const canvas::LinesD& each : form->Lines) {
            if (partOf || each.EdgeType() != canvas::EdgeTypePartOf) {
                lines.push_back(form->Labels.byIndex(each.FromLabel())->KeyName() + " " +
                                std::to_string(static_cast<int>(each.EdgeType())) + " " +
                                form->Labels.byIndex(each.ToLabel())->KeyName());
            }
        }
        return sorted(lines);
    }

    static Texts sorted(Texts lines) {
        std::sort(lines.begin(), lines.end());
        return lines;
    }

    /// Every link between two nodes of the view has its edge and its mirror, every edge its link.
    void expectSound() {
        std::vector<canvas::EdgeNumber> drawn;
        for (canvas::LabelsD& each : form->Labels) {
            if (auto* attribute = each.entity<entities::AttributeProperties>()) {
                expectLinks(each, *attribute, drawn);
            } else if (auto* parameter = each.entity<entities::ParameterProperties>()) {
                expectLinks(each, *parameter, drawn);
            }
        }
        std::sort(drawn.begin(), drawn.end());
        drawn.erase(std::unique(drawn.begin(), drawn.end()), drawn.end());
        std::vector<canvas::EdgeNumber> present;
        for (const canvas::LinesD& each : form->Lines) {
            if (each.EdgeType() == canvas::EdgeTypeProvider || each.EdgeType() == canvas::EdgeTypeRegulator) {
                present.push_back(each.Index());
            }
        }
        EXPECT_EQ(drawn, present) << "edges of links, and edges of the view";
    }

    template <class Entity>
    void expectLinks(const canvas::LabelsD& shown, Entity& entity, std::vector<canvas::EdgeNumber>& drawn) {
        if (!form->bearsName(shown)) {
            return;
        }
        EXPECT_EQ(entity.LabelIndex, shown.Index()) << shown.KeyName();
        const auto each = [&](links::Direction direction, auto& links) {
            for (auto& link : links) {
                const links::FarEnd far =
                    links::findFarEnd(*form, direction, entity, {link.name(), link.type(), link.key()}, nullptr);
                if (far.node) {
                    EXPECT_TRUE(form->Lines.byIndex(link.LineIndex)) << shown.KeyName() << " to " << link.key();
                    drawn.push_back(link.LineIndex);
                }
            }
        };
        if constexpr (requires { entity.ProvidedFrom; }) {
            each(links::Direction::ProvidedFrom, entity.ProvidedFrom);
            each(links::Direction::ProviderFor, entity.ProviderFor);
        }
        each(links::Direction::RegulatedFrom, entity.RegulatedFrom);
        each(links::Direction::RegulatorFor, entity.RegulatorFor);
    }

    entities::CatalogueTables catalogue;
    QuietProgress progress;
    LetterMeasure narrow{0};
    LoggedStore store;
    canvas::DrawForm design{ports.services(), &store};
    LinkGraph graph{design};
    std::unique_ptr<zoom::ZoomForm> form;
};

}  // namespace orvent::testkit
