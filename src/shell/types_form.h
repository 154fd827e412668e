#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "editors/place_node.h"
#include "entities/name_tables.h"
#include "repository/catalogue.h"

namespace orvent::shell {

/// What the list of types asks of the frame.
class TypesPorts {
  public:
    virtual ~TypesPorts() = default;

    /// The activity types as they are stored. Throws what fails.
    virtual std::vector<repository::ActivityTypeWords> activityTypes() = 0;
    /// Places a node in the scenario in front.
    virtual void placeInFront(const std::string& key) = 0;
};

/// What can be placed, as the list shows it.
struct TypeRow {
    std::string key;  ///< what it is called by one who drops it
    std::string name;
    std::string schemata;  ///< of an activity type: how many it reads
    std::string tip;
    canvas::NodeTypeCode kind;
};

/// What the key of a row stands for, or nothing.
std::optional<editors::Placement> placementOf(const std::string& key, const entities::NameTable& activityTypes);

/// The list of all that can be placed on a design window: record set, comment and log, then the activity types by name.
class TypesForm {
  public:
    TypesForm(TypesPorts& ports, const entities::NameTable& activityTypes) : ports_(ports), types_(activityTypes) {}

    std::function<void()> onRows;  ///< set by the window: the rows are others

    const std::string& txtSearch() const { return text_; }
    /// Rows remain that have all the words in their names or descriptions.
    void txtSearch_Change(const std::string& text);
    int Count() const { return static_cast<int>(shown_.size()); }
    const TypeRow& row(int position) const {
        return rows_[shown_[static_cast<std::size_t>(position) - 1]];
    }  ///< 1-based
    /// Why the list is not whole, or empty; empty as a rule.
    std::string status() const;

    /// Places a node as the row says in the scenario in front.
    void place(int position);

    /// False: it is closed.
    void show(bool shown);
    /// The catalogue may be another one.
    void follow();
    /// Its texts are.
    void renew();

  private:
    void filter();

    TypesPorts& ports_;
    const entities::NameTable& types_;
    bool shownAtAll_ = false;
    std::optional<std::uint32_t> known_;  ///< the table as the rows tell it
    std::string text_, fault_;
    std::vector<TypeRow> rows_;
    std::vector<std::size_t> shown_;  ///< places of the rows that remain
};

}  // namespace orvent::shell
