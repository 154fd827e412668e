#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "canvas/draw_form.h"
#include "entities/name_tables.h"
#include "history/remembered.h"
#include "platform/state_folder.h"

namespace orvent::history {

/// A step as it is told.
struct Told {
    std::int64_t time = 0;  ///< seconds since 1970
    std::string words;
};

/// Writes the states of one scenario, for this user's own program: the whole once, part by part, and then what changes.
class StateWriter {
  public:
    /// `source` stands for the repository to which identifiers of rows belong.
    StateWriter(std::string source, const entities::CatalogueTables& tables)
        : source_(std::move(source)), tables_(tables) {}

    /// Begins with all of the scenario as it is now: its parts do not tell what changes until they are all written.
    /// Words that `told` has stand in front, where `readSummary` finds them in the file's first bytes.
    void begin(const canvas::DrawForm& form, const Remembered& remembered, const Told& told = {});
    /// The next part of it, of about so many bytes at most; nothing behind the last one.
    std::string nextPart(const Remembered& remembered, std::size_t most);
    /// What stands behind the parts of a state that is to stay as it was at the beginning.
    static std::string endAsBegun();
    /// What has changed since the whole was begun, and what was done to the scenario since it was stored. Only with
    /// this behind its parts the whole can be read.
    std::string end(const canvas::DrawForm& form, const Remembered& remembered, const canvas::Touched& changed,
                    const std::vector<Told>& told);

    /// What has changed since the state that was written last.
    std::string step(const canvas::DrawForm& form, const Remembered& remembered, const canvas::Touched& changed,
                     const Told& told);
    /// What the window knows of its store, when that is another thing than was written last; else nothing. `broken`
    /// tells that the identifiers of the nodes that were written are not all that are stored.
    std::string standing(const canvas::DrawForm& form, bool broken);

  private:
    /// What is to be written of a whole.
    struct Whole {
        SharedList<NodeBytes> nodes;
        SharedList<canvas::EdgeState> edges;
        std::size_t node = 0, edge = 0;  ///< the next ones
        std::uint32_t texts = 0;         ///< how many it needs
        std::string begin;
    };

    void writeTypes(std::string& out);
    void writeTexts(std::string& out, const TextPool& texts, std::uint32_t end, std::size_t most);
    void writeChanges(std::string& out, const canvas::DrawForm& form, const Remembered& remembered,
                      const canvas::Touched& changed);

    std::string source_;
    const entities::CatalogueTables& tables_;
    Whole whole_;
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
    std::vector<Told> told;  ///< what was done since it was stored
};

/// Reads what a `StateWriter` has written, as far as it is whole; any bytes. Throws `BadBytes` when no whole state is
/// there.
KeptState readState(std::string_view bytes);

/// What is told of a state without looking at its nodes.
struct StateSummary {
    std::string source, name;
    std::vector<Told> told;
};

/// The same for a file of so many bytes that `readState` reads; what it says of nodes is skipped. Of a state that is
/// kept as it was at the beginning only the first bytes are looked at.
StateSummary readSummary(const platform::ReadAt& read, std::uint64_t size);

/// What of a kept state is taken over.
enum class TakenOver {
    withRows,  ///< it goes on being the stored scenario that it was
    asNew,     ///< it belongs to no stored scenario
};

/// Fills an empty window with a state. Types that the tables lack become gone names. Throws a `Fault`, and changes
/// nothing, when the tables have no room for them.
void fillForm(canvas::DrawForm& form, KeptState state, entities::CatalogueTables& tables, TakenOver rows);

}  // namespace orvent::history
