#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "canvas/draw_form.h"
#include "entities/name_tables.h"
#include "history/remembered.h"

namespace orvent::history {

/// Writes the states of one scenario, for this user's own program: the whole once, and then what changes.
class StateWriter {
  public:
    /// A step as it is told.
    struct Told {
        std::int64_t time = 0;  ///< seconds since 1970
        std::string words;
    };

    /// `source` stands for the repository to which identifiers of rows belong.
    StateWriter(std::string source, const entities::CatalogueTables& tables)
        : source_(std::move(source)), tables_(tables) {}

    /// All of the scenario, with what was done to it since it was stored.
    std::string whole(const canvas::DrawForm& form, const Remembered& remembered, const std::vector<Told>& told);
    /// What has changed since the state that was written last.
    std::string step(const canvas::DrawForm& form, const Remembered& remembered, const canvas::Touched& changed,
                     const Told& told);
    /// What the window knows of its store, when that is another thing than was written last; else nothing. `broken`
    /// tells that the identifiers of the nodes that were written are not all that are stored.
    std::string standing(const canvas::DrawForm& form, bool broken);

  private:
    void writeTypes(std::string& out);
    void writeTexts(std::string& out, const TextPool& texts);

    std::string source_;
    const entities::CatalogueTables& tables_;
    std::uint32_t texts_ = 0;  ///< how many were written
    std::uint64_t types_ = 0;  ///< stands for the tables as they were written
    std::string scenario_;     ///< as it was written
};

/// A scenario as it was when it was written last.
struct KeptState {
    std::string source, name;
    std::int16_t scenario = 0;
    bool changed = false, forced = false, broken = false;
    std::uint64_t mark = 0;
    std::vector<canvas::DeletedNode> deleted;
    std::vector<std::pair<long long, std::uint64_t>> rows;
    std::vector<canvas::NodeState> nodes;  ///< types by the numbers of the lists below
    std::vector<canvas::CanvasChange::Edge> edges;
    std::vector<std::string> dataTypes, functionTypes, activityTypes;
    std::vector<StateWriter::Told> told;  ///< what was done since it was stored
};

/// Reads what a `StateWriter` has written, as far as it is whole; any bytes. Throws `BadBytes` when no whole state is
/// there.
KeptState readState(std::string_view bytes);

/// What is told of a state without looking at its nodes.
struct StateSummary {
    std::string source, name;
    std::vector<StateWriter::Told> told;
};

/// The same for what `readState` reads; what it says of nodes is not looked at.
StateSummary readSummary(std::string_view bytes);

/// What of a kept state is taken over.
enum class TakenOver {
    withRows,  ///< it goes on being the stored scenario that it was
    asNew,     ///< it belongs to no stored scenario
};

/// Fills an empty window with a state. Types that the tables lack become gone names. Throws a `Fault`, and changes
/// nothing, when the tables have no room for them.
void fillForm(canvas::DrawForm& form, KeptState state, entities::CatalogueTables& tables, TakenOver rows);

}  // namespace orvent::history
