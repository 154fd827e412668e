#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "platform/tiered_vector.h"

namespace orvent::forms {

/// A row of a list.
struct ListRow {
    std::string Key = {};
    std::string Text = {};
    std::int16_t Tag = 0;
    std::int16_t Kind = 0;                     ///< what it stands for, in the words of its dialog
    std::string Image = {};                    ///< key of its picture
    std::array<std::string, 5> SubItems = {};  ///< the columns behind the first
    std::int32_t ForeColor = 0;                ///< blue in the high byte; 0 is the ordinary colour
    bool Editable = true;                      ///< its label can be edited
    std::string Warning = {};                  ///< words of a warning mark, which has none when they are empty
    std::string Tip = {};                      ///< lines that only the row's tip shows
};

/// One change of a list.
struct ListChange {
    enum class Kind { inserted, removed, moved, altered, selected, reset };
    Kind kind;
    int position = 0;  ///< 1-based; of `moved` the old one, of `altered` the first
    int to = 0;        ///< of `moved`; of `altered` the last
};

/// Who shows a list. Each change is told before and behind it.
class ListListener {
  public:
    virtual ~ListListener() = default;
    virtual void about(const ListChange&) {}
    virtual void done(const ListChange& change) = 0;
};

/// Where the list buttons move a row.
enum class RowMove { top, up, down, bottom };

/// The rows of a list view with its selection and its prompt: a plain value of a dialog's logic, which a window only
/// shows. Positions are 1-based; 0 stands for none. Two rows may have one key; then the first is found.
class List {
    /// A row, and where it was seen last.
    struct Held : ListRow {
        explicit Held(ListRow row) : ListRow(std::move(row)) {}
        mutable int place = 0;
    };
    using Place = platform::TieredVector<std::unique_ptr<Held>>::Iterator;

    class Iterator {
      public:
        explicit Iterator(const Place& at) : at_(at) {}
        const ListRow& operator*() const { return **at_; }
        Iterator& operator++() {
            ++at_;
            return *this;
        }
        bool operator!=(const Iterator& other) const { return at_ != other.at_; }

      private:
        Place at_;
    };

    struct Rows {
        Place first, last;
        Iterator begin() const { return Iterator(first); }
        Iterator end() const { return Iterator(last); }
    };

  public:
    int Count() const { return static_cast<int>(rows_.size()); }
    /// All rows in order, for a loop.
    Rows rows() const { return {rows_.begin(), rows_.end()}; }
    /// Null beyond the ends.
    const ListRow* Item(int position) const;
    const ListRow* Item(const std::string& Key) const { return Item(positionOf(Key)); }
    int positionOf(const std::string& Key) const;

    /// Inserts before `position`; anything else than 1 to `Count` appends. The prompt goes. Gives the row's position.
    int add(ListRow row, int position = 0);
    void remove(int position);
    void move(int from, int to);
    /// Changes the row in place; its key may change too.
    void alter(int position, const std::function<void(ListRow&)>& change);
    void setText(int position, const std::string& text);
    /// Takes the rows and the prompt away.
    void Clear();
    /// Many changes that are told as one.
    void rebuild(const std::function<void()>& changes);

    /// While one lives, changes of the selection and within rows are told in the end. One row that comes, goes or moves
    /// is told as itself; with the second everything is new, which is told in the end, and until then nothing that
    /// shows the list may be asked for its rows.
    class Gathering {
      public:
        explicit Gathering(List& list) : list_(list) { ++list_.gathering_; }
        ~Gathering();
        Gathering(const Gathering&) = delete;
        Gathering& operator=(const Gathering&) = delete;

      private:
        List& list_;
    };

    // The selection: any number of rows, one of which is the current.

    int selected() const { return current_ ? placeOf(*current_) : 0; }
    std::vector<int> selection() const;  ///< ascending
    void select(int position);
    void select(std::vector<int> positions, int current);

    // The prompt of a list that has no rows yet. It is no row: no command counts, moves or removes it.

    const std::optional<std::string>& hint() const { return hint_; }
    void showHint(std::string text);
    /// True when it was there.
    bool clearHint();

    /// Null: nobody shows it.
    void watch(ListListener* listener) { listener_ = listener; }

  private:
    bool holds(int position) const { return position >= 1 && position <= Count(); }
    std::size_t index(int position) const { return static_cast<std::size_t>(position - 1); }
    int placeOf(const Held& row) const;
    void unlist(const Held& row);
    void tell(const ListChange& change, const std::function<void()>& act);
    bool gather(const ListChange& change);
    void tellGathered();

    platform::TieredVector<std::unique_ptr<Held>> rows_;
    std::unordered_multimap<std::string, const Held*> byKey_;
    mutable std::ptrdiff_t drift_ = 0;  // by how much the row that was looked for last had been shifted
    std::unordered_set<const Held*> selection_;
    const Held* current_ = nullptr;
    std::optional<std::string> hint_;
    ListListener* listener_ = nullptr;
    bool quiet_ = false;  // within `rebuild`
    int gathering_ = 0;
    bool toldOne_ = false;              // of the changes that shift rows, since gathering began
    std::vector<ListChange> gathered_;  // at most one of a kind; a reset stands alone, and its beginning has been told
};

}  // namespace orvent::forms
