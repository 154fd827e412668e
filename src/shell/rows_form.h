#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "canvas/canvas_form.h"
#include "forms/dialog_port.h"
#include "platform/worker.h"
#include "run/expectations.h"
#include "run/run.h"
#include "run/source_connections.h"
#include "shell/desk.h"
#include "shell/kept_facts.h"
#include "shell/ports.h"
#include "shell/row_table.h"

namespace orvent::shell {

struct OptionsData;
struct ScenarioRows;

/// What the rows ask of the frame. All of it outlives them.
struct RowsPorts {
    const Ports& ports;
    const forms::Dialogs& dialogs;
    const entities::CatalogueTables& tables;
    const OptionsData& options;
    KeptFacts& facts;
    Desk& desk;
    std::function<void(canvas::NodeNumber)> showNode;
};

/// The dialog that asks for the login at a data source.
class SourceLogin {
  public:
    explicit SourceLogin(std::string source) : source_(std::move(source)) {}

    const std::string& source() const { return source_; }
    std::string txtUser, txtPassword;
    bool isOk = false;

  private:
    std::string source_;
};

/// The rows at the nodes of the scenario in front: the node's that is selected and those that come into it, or how many
/// each node has. A run is long work: it goes on in a thread of its own, piece by piece, and can be cancelled in the
/// middle of a statement. One piece works at a time, whichever scenario it is for; what it works on is not looked at
/// until it has ended.
class RowsForm : private run::Logins {
  public:
    enum class Way { sample, atSource };

    explicit RowsForm(const RowsPorts& ports);
    ~RowsForm() override;

    // Set by the window.
    std::function<void()> onTables;  ///< other rows are shown
    std::function<void()> onState;   ///< how far a run is, or what can be done now

    /// The rows of the selected node and behind them those that come in, or one table with a row for each node.
    std::vector<RowTable>& tables() { return tables_; }
    std::string status() const;
    /// Something works for the scenario in front, or is to.
    bool isRunning() const;
    bool isOld() const;
    /// How far a run is; 0 of 0 when nobody can say.
    std::size_t done() const;
    std::size_t total() const;

    Way way() const { return way_; }
    void optWay_Click(Way way);
    /// Whether equal rows stay in the scenario in front; the choice is kept with it.
    bool keepDuplicates() const { return form_ && form_->scenario().KeepDuplicates; }
    void chkKeepDuplicates_Click(bool keep);
    /// The choice of a scenario is another one.
    void takeDuplicates(const canvas::DrawForm& form);
    bool canRefresh() const { return form_ != nullptr && !isRunning() && !working_; }
    /// Runs what has changed. Where nothing has, data sources are read anew.
    void cmdRefresh_Click();
    /// Breaks into what works. A driver that does not know how is left to its statement, and nothing else runs until
    /// that has ended.
    void cmdCancel_Click();
    void txtFilter_Change(const std::string& word);
    const std::string& txtFilter() const { return filter_; }
    /// Puts rows of a table into the clipboard, by their places; all that are shown without any.
    void copy(std::size_t table, const std::vector<std::size_t>& rows) const;
    void cmdExport_Click(std::size_t table) const;
    /// The row of a node goes there.
    void choose(std::size_t table, std::size_t row) const;
    /// Whether a node is selected whose rows, or what is expected of them, can be given.
    bool canGive() const;
    void cmdFacts_Click();

    /// The rows of its record sets that the scenario was run on last, where some were read from data sources and it has
    /// not changed since.
    std::map<canvas::NodeNumber, entities::NodeFacts> sampleOf(const canvas::DrawForm& form);

    /// Shows how many rows went in and out of each node of the scenario in front, or no more. What is not known yet is
    /// run first.
    void toggleCounts();
    bool countsShown() const;

    /// False: it is closed. Nothing runs then.
    void show(bool shown);
    void watch(canvas::CanvasForm* form);
    canvas::CanvasForm* watched() const { return form_; }
    /// Another node may be selected.
    void follow();
    void touch(const canvas::DrawForm& form);
    /// The form is about to go.
    void forget(canvas::CanvasForm& form);
    /// Goes on. False when there is nothing more to do, or somebody is woken when there is.
    bool idle();
    /// What to call, in any thread, when the program should look in at `idle` again. Without it `idle` waits a while
    /// for what works.
    void setWake(std::function<void()> wake) { worker_.setOnEnd(std::move(wake)); }

  private:
    using State = ScenarioRows;
    /// What is selected: a node of the scenario, and the column of a member of a view over it.
    struct Focus {
        canvas::NodeNumber node = canvas::kNoNode;
        std::string column{};
        bool operator==(const Focus&) const = default;
    };

    /// What is worked on.
    enum class Piece { none, opening, steps, pages };
    /// Rows that are to be read for a table.
    struct Wanted {
        std::size_t table;
        std::size_t predicate;
    };
    /// Or why there are none.
    struct Brought {
        Wanted wanted;
        run::Page page;
        std::string fault;
        std::optional<long long> held;  ///< by a target, before
        std::string heldFault;
    };

    std::optional<run::Login> loginFor(const std::string& source) override;
    State* state() const;
    Focus focus() const;
    void fill();
    void fillOverview(const State& state);
    RowTable tableOf(const State& state, std::size_t predicate, const std::string& title);
    void showTables();
    bool goOn();
    void begin(State& state);
    void startOpening(State& state);
    void takeOpened(State& state);
    void startSteps(State& state);
    void startPages(State& state);
    void take();
    void takePages();
    bool stop(std::chrono::milliseconds most);
    void narrow(RowTable& table) const;
    void tell() const;

    RowsPorts ports_;
    run::SourceConnections connections_;
    std::map<const canvas::DrawForm*, std::unique_ptr<State>> states_;
    canvas::CanvasForm* form_ = nullptr;
    bool shown_ = false;
    Way way_ = Way::sample;
    Focus shownFocus_;
    std::string filter_;
    std::vector<RowTable> tables_;
    std::size_t shows_ = 0;           ///< how often the window was told of them
    std::vector<Wanted> wanted_;      ///< of the tables
    std::optional<Focus> notWanted_;  ///< what was selected when reading its rows was cancelled

    Piece piece_ = Piece::none;
    State* working_ = nullptr;        ///< whose piece it is
    std::unique_ptr<State> leaving_;  ///< of a scenario that has gone while its source was opened
    bool outdated_ = false;           ///< nobody waits for these pages any more
    bool more_ = false;               ///< the piece's own, as are those below
    std::vector<run::Verdict> verdicts_;
    std::vector<Brought> brought_;
    platform::Worker worker_;  ///< the last, since it works on the others
};

}  // namespace orvent::shell
