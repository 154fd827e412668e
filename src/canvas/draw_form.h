#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "canvas/canvas_form.h"
#include "canvas/canvas_rules.h"
#include "entities/node_facts.h"

namespace orvent::canvas {

/// Who stores the scenarios of design windows.
class ScenarioStore {
  public:
    virtual ~ScenarioStore() = default;

    /// Stores the scenario under its identifier; one that has none asks for its name first.
    virtual void saveScenario(DrawForm& form) = 0;
};

/// What is offered when an edge was drawn between two nodes of a design window.
class EdgeOffers {
  public:
    virtual ~EdgeOffers() = default;

    virtual std::optional<Offer> offerFor(const DrawForm& form, const LinesD& edge) const = 0;
    virtual void take(DrawForm& form, const LinesD& edge) const = 0;
};

/// An edge that links ask for: data flows from one node to the other, or control.
struct WantedEdge {
    NodeNumber from, to;
    bool control = false;

    bool operator==(const WantedEdge&) const = default;
};

/// A design window: one scenario on screen. It owns all of the scenario.
class DrawForm : public CanvasForm {
  public:
    /// Without a store, "Save" does nothing.
    explicit DrawForm(const CanvasServices& services, ScenarioStore* store = nullptr)
        : CanvasForm(services), store_(store) {}

    std::string Tag;              ///< the slot in the table of scenario windows, as decimal text
    std::int16_t ScenarioID = 0;  ///< repository key, 0 until the scenario was saved or loaded
    /// What is stored of the scenario, as far as the window knows.
    struct Stored {
        std::uint64_t mark = 0;  ///< stands for the content as it was made, saved or loaded last
        bool changed = false;    ///< something has changed since, or the stored scenario is not the window's any more
        /// What the rows of each node were when the window read or wrote them last, by its identifier; 0 is the edges.
        std::unordered_map<long long, std::uint64_t> rows;
        bool forced = false;      ///< it is so whatever the content is
        bool broken = false;      ///< a save has begun to write, and has not ended
        std::uint32_t times = 0;  ///< how often the window was saved or loaded
    };
    Stored stored;
    /// Offers to draw edges, until that is answered. Those that are there by then, or lack a node, are left out.
    void offerEdges(std::vector<WantedEdge> edges);
    const EdgeOffers* edgeOffers = nullptr;  ///< set by who opens the window
    bool deleted = false;                    ///< the scenario that the window showed was removed from the repository

    /// The nodes that no save writes: activities without a type.
    std::vector<std::string> unstorable() const;

    /// Tells that `stored` or `deleted` has changed.
    void tellStored() { tellForm(); }

    // The window's title is the scenario's name.
    const std::string& ScenarioName() const { return Caption(); }
    void setScenarioName(const std::string& value) { setCaption(value); }

    /// The caption as it was before the scenario dialog changed it; put back when that save is given up.
    std::string KeptCaption;

    /// Rows of its program are bags: equal ones stay. It is no part of what a save stores.
    bool KeepDuplicates = false;

    /// What the scenario is tried on and what is expected of it, by node. It is no part of what a save stores, and no
    /// step changes it; that of a node that has gone waits for its coming back.
    std::map<NodeNumber, entities::NodeFacts> facts;

    /// The LDL text gathered so far; empty but after a file that could not be written.
    std::string txtLDL;

    int slot() const { return Tag.empty() ? -1 : std::stoi(Tag); }

    // CanvasForm
    DrawForm& scenario() override { return *this; }
    CanvasRules& rules() override { return rules_; }
    std::string titleMark() const override;
    void Save() override;
    bool QueryUnload() override;
    std::optional<Offer> offer() const override;
    void answerOffer(bool taken) override;
    void edgeDrawn(const LinesD& edge) override;
    void forgetEdge(const LinesD& edge) override;

  private:
    std::optional<Offer> edgeOffer() const;
    std::vector<WantedEdge> wantedEdges() const;
    void drawWanted(const std::vector<WantedEdge>& edges);

    EdgeNumber drawn_{};              ///< the edge whose offer has not been answered
    std::vector<WantedEdge> wanted_;  ///< that were offered
    ScenarioStore* store_;
    DesignRules rules_;
};

}  // namespace orvent::canvas
