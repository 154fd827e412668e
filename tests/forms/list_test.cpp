#include "forms/list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace orvent::forms {
namespace {

std::vector<std::string> keys(const List& list) {
    std::vector<std::string> result;
    for (int at = 1; at <= list.Count(); ++at) {
        result.push_back(list.Item(at)->Key);
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
        EXPECT_EQ(keys(list), keys(letters(row.after)));
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

TEST(List, AKeyIsFoundWhereItsFirstRowStands) {
    List list;
    std::mt19937 random(7);
    const auto any = [&random](int last) { return std::uniform_int_distribution(0, last)(random); };
    for (int step = 0; step < 3000; ++step) {
        const std::string key = std::to_string(any(600));
        const int at = any(list.Count() + 1);
        switch (any(step % 1500 == 0 ? 6 : 5)) {
            case 0:
            case 1:
                list.add({.Key = key}, at);
                break;
            case 2:
                list.add({.Key = key}, 1);  // shifts all others from where they were seen last
                break;
            case 3:
                list.remove(at);
                break;
            case 4:
                list.move(at, any(list.Count() + 1));
                break;
            case 5:
                list.alter(at, [&key](ListRow& row) { row.Key = key; });
                break;
            default:
                list.rebuild([&] {
                    list.Clear();
                    list.add({.Key = key});
                });
        }
        const auto rows = keys(list);
        const auto first = std::ranges::find(rows, key);
        ASSERT_EQ(list.positionOf(key), first == rows.end() ? 0 : first - rows.begin() + 1) << key;
    }
}

}  // namespace
}  // namespace orvent::forms
