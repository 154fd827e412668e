#include "forms/list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace orvent::forms {
namespace {

std::string keys(const List& list) {
    std::string result;
    for (int at = 1; at <= list.Count(); ++at) {
        result += list.Item(at)->Key;
    }
    return result;
}

List letters(const std::string& all) {
    List list;
    for (const char letter : all) {
        list.add({.Key = std::string(1, letter)});
    }
    return list;
}

TEST(List, ButtonsMoveARowAndTheSelectionGoesWithIt) {
    struct Row {
        int position;
        RowMove where;
        const char* after;
    };
    const Row rows[] = {
        {3, RowMove::top, "cabd"},    {3, RowMove::up, "acbd"},   {2, RowMove::down, "acbd"},
        {2, RowMove::bottom, "acdb"}, {1, RowMove::up, "abcd"},   {4, RowMove::bottom, "abcd"},
        {1, RowMove::top, "abcd"},    {4, RowMove::down, "abcd"}, {9, RowMove::top, "abcd"},
    };
    for (const Row& row : rows) {
        List list = letters("abcd");
        list.select({1, 2, 3, 4}, row.position);
        const std::string current = row.position <= 4 ? list.Item(row.position)->Key : "";
        if (const int to = list.target(row.position, row.where)) {
            list.move(row.position, to);
        }
        EXPECT_EQ(keys(list), row.after);
        EXPECT_EQ(list.selected(), list.positionOf(current));
        EXPECT_EQ(list.selection(), (std::vector<int>{1, 2, 3, 4}));
    }
}

TEST(List, ThePromptIsNoRow) {
    List list;
    list.showHint("Drag attributes here");
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.Item(1), nullptr);
    list.add({.Key = "a"});
    EXPECT_FALSE(list.hint());
    list.remove(1);
    EXPECT_FALSE(list.hint());
}

/// Keeps its own rows by what it is told.
class Copy : public ListListener {
  public:
    explicit Copy(List& list) : list_(list) { list.watch(this); }
    void about(const ListChange&) override { EXPECT_EQ(rows, keys(list_)); }
    void done(const ListChange& change) override {
        const auto at = static_cast<std::size_t>(change.position - 1);
        switch (change.kind) {
            case ListChange::Kind::inserted:
                rows.insert(at, list_.Item(change.position)->Key);
                break;
            case ListChange::Kind::removed:
                rows.erase(at, 1);
                break;
            case ListChange::Kind::moved: {
                const std::string moved = rows.substr(at, 1);
                rows.erase(at, 1);
                rows.insert(static_cast<std::size_t>(change.to - 1), moved);
                break;
            }
            case ListChange::Kind::altered:
                rows.replace(at, 1, list_.Item(change.position)->Key);
                break;
            case ListChange::Kind::selected:
                break;
            case ListChange::Kind::reset:
                rows = keys(list_);
                break;
        }
        EXPECT_EQ(rows, keys(list_));
    }

    std::string rows;

  private:
    List& list_;
};

TEST(List, WhoShowsItCanFollowEveryChange) {
    List list;
    Copy copy(list);
    std::mt19937 random(7);
    const auto any = [&random](int last) { return std::uniform_int_distribution(0, last)(random); };
    for (int step = 0; step < 3000; ++step) {
        const std::string key(1, static_cast<char>('a' + any(25)));
        const int at = any(list.Count() + 1);
        switch (any(step % 60 == 0 ? 5 : 4)) {
            case 0:
            case 1:
                list.add({.Key = key}, at);
                break;
            case 2:
                list.remove(at);
                break;
            case 3:
                list.move(at, any(list.Count() + 1));
                break;
            case 4:
                list.alter(at, [&key](ListRow& row) { row.Key = key; });
                break;
            default:
                list.rebuild([&] {
                    list.Clear();
                    list.add({.Key = key});
                });
        }
        list.select(any(list.Count()));
        const std::size_t first = copy.rows.find(key);
        ASSERT_EQ(list.positionOf(key), first == std::string::npos ? 0 : static_cast<int>(first) + 1);
    }
}

TEST(List, ARowIsFoundHoweverFarItWasShifted) {
    List list;
    std::vector<std::string> wanted;
    const auto check = [&] {
        for (std::size_t at = 0; at < wanted.size(); ++at) {
            ASSERT_EQ(list.positionOf(wanted[at]), static_cast<int>(at) + 1) << wanted[at];
        }
    };
    for (int number = 0; number < 600; ++number) {
        wanted.push_back("k" + std::to_string(number));
        list.add({.Key = wanted.back()});
    }
    check();
    for (int gone = 0; gone < 200; ++gone) {
        list.remove(1);
    }
    wanted.erase(wanted.begin(), wanted.begin() + 200);
    check();
    for (int number = 0; number < 90; ++number) {
        wanted.insert(wanted.begin(), "n" + std::to_string(number));
        list.add({.Key = wanted.front()}, 1);
    }
    list.move(1, list.Count());
    std::rotate(wanted.begin(), wanted.begin() + 1, wanted.end());
    check();
    EXPECT_EQ(list.positionOf("k0"), 0);
}

}  // namespace
}  // namespace orvent::forms
