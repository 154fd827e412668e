#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "canvas/canvas.h"
#include "entities/name_tables.h"
#include "forms/editor.h"

namespace orvent::editors {

/// A column that may be taken over.
struct TakeOverRow {
    std::string name, type;
    std::optional<std::int16_t> typeIndex;  ///< nothing: the catalogue lacks the type
    bool checked = true;
    std::string why = {};  ///< why it cannot be taken; empty as a rule

    bool mayBeTaken() const { return why.empty(); }
};

/// Where a record set takes columns over from that it does not read from a database: the outputs of an activity, the
/// attributes of another record set, or lines of text.
class TakeOverForm : public forms::Editor {
  public:
    /// The record set has a column, or something else, of that name: its data type, or -1. Nothing for a free name.
    using TakenName = std::function<std::optional<std::int16_t>(const std::string& name)>;

    TakeOverForm(platform::MessageBox& messages, const entities::CatalogueTables& catalogue, const canvas::Canvas& form,
                 const canvas::LabelsD& node, TakenName takenName);

    std::vector<std::string> Sources;  ///< names of nodes, those first that feed the record set; behind them the lines
    int Source = 0;                    ///< the chosen one, from 0
    std::string Pasted;
    std::vector<TakeOverRow> Rows;
    bool taken = false;  ///< OK was pressed

    void Source_Click(int index);
    void Pasted_Change(const std::string& text);
    void Row_Check(std::size_t row, bool on);
    bool readsLines() const { return Source == static_cast<int>(Sources.size()) - 1; }
    bool mayTake() const;

  protected:
    bool apply() override;

  private:
    void addSources(const canvas::LabelsD& node);
    void fill();
    void fillFrom(const canvas::LabelsD& source);
    void fillFromLines();
    void add(TakeOverRow row);
    std::string whyNot(const TakeOverRow& row) const;

    const entities::CatalogueTables& catalogue_;
    const canvas::Canvas& form_;
    TakenName takenName_;
    std::vector<canvas::NodeNumber> nodes_;  ///< of the sources
};

}  // namespace orvent::editors
