#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "analysis/metrics_functions.h"
#include "canvas/draw_form.h"
#include "platform/program_folder.h"
#include "platform/save_dialog.h"
#include "platform/settings_store.h"

namespace orvent::analysis {

/// The open scenarios, as the metrics ask for them.
class OpenScenarios {
  public:
    virtual ~OpenScenarios() = default;

    /// The open scenarios, each by a number of its own that no later one gets.
    virtual std::vector<int> open() const = 0;
    /// The scenario of a number, or nothing when it was closed.
    virtual const canvas::DrawForm* at(int scenario) const = 0;
    /// Brings a scenario's window forward and shows the node.
    virtual void reveal(int scenario, canvas::NodeNumber node) = 0;
};

/// What the window of metrics asks of the program.
struct MetricsServices {
    OpenScenarios& scenarios;
    std::int16_t& TransDepth;  ///< the value of the run that goes with the stored setting
    platform::SettingsStore& store;
    platform::Progress& progress;
    platform::SaveDialog& saveDialog;
    const platform::ProgramFolder& folder;
};

/// The window of metrics. It has two faces: the record sets and activities of the scenario for which it was opened,
/// and the open scenarios. A click on an entry counts; an entry whose window or node is gone leaves empty tables.
class MetricsForm {
  public:
    enum class Face { Entities, Scenarios };

    /// An entry of the list `Entities`.
    struct Entry {
        std::string name;
        int scenario;
        canvas::NodeNumber node;  ///< `Index`, 0 for a scenario
    };

    /// Opens in the entities face.
    MetricsForm(const MetricsServices& services, int scenario);

    Face face = Face::Entities;
    std::string lblEntity;
    std::string Switch;      ///< text of the button that turns to the other face
    std::string nameColumn;  ///< head of the name column
    std::vector<Entry> Entities;
    int selected = -1;  ///< position in `Entities`, -1 for none
    bool twoLists = false;
    MetricsViews views;
    std::string note;          ///< why the chosen entry is not counted at the moment, else empty
    std::int16_t Counter = 0;  ///< the transitive depth; it takes effect at the next refresh

    /// Set by the window: shows everything again.
    std::function<void()> show;

    void EntitiesView();
    void ScenariosView();

    /// Counts. A scenario that a dialog or a zoom works on is not whole: its entry is chosen and not counted. The first
    /// number beyond 16 bits is told by a `Fault`, once for each window; the tables hold it nevertheless.
    void clickEntity(int position);
    void changeCounter(std::int16_t value);
    /// Lists the entries anew and counts the chosen one again.
    void RefreshBut();
    void clickSwitch();
    /// A click on a column button; `Index` counts from 0, without the name column.
    void lblButLittle(std::size_t Index);

    /// The positions of a view's rows in the order in which they are shown.
    std::vector<std::size_t> order(const std::vector<MetricsRow>& view) const;
    bool isSorted() const { return sorted_; }
    bool isAscending() const { return ascending_; }
    std::size_t sortColumn() const { return sortColumn_; }
    /// What the first table says while it has no rows: what to choose, or what the chosen entry has not.
    std::string hint() const;
    /// The text of a cell.
    static std::string cell(const MetricsRow& row, std::size_t column) {
        return PadColumns(std::to_string(row.values[column]));
    }
    /// The largest value of a column in the two views, at least 0.
    std::int32_t largest(std::size_t column) const;

    /// Goes to the node of a row in its scenario's window; nothing when it is gone.
    void reveal(const MetricsRow& row);

    /// Both views with their heads, sums and averages: cells behind one another with `separator` between them.
    std::string asText(char separator) const;
    /// Writes them to a file that the user chooses, with commas. Throws a `Fault` when it cannot be written; an older
    /// file is whole then.
    void saveAsCsv() const;

  private:
    void turn(Face to, const char* entityLabel, const char* switchText, const char* nameHead);
    void list();
    void count(const canvas::DrawForm& form, const Entry& entry);
    void showState() const;
    int scenarioOfTables() const;

    MetricsServices services_;
    int scenario_;
    bool sorted_ = false;
    bool ascending_ = true;
    std::size_t sortColumn_ = 0;
    bool toldBeyond_ = false;
};

}  // namespace orvent::analysis
