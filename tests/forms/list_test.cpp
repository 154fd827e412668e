#include "forms/list.h"

#include <gtest/gtest.h>

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

TEST(List, TheSelectionGoesWithARowThatMoves) {
    struct Row {
        int position, to;
        const char* after;
    };
    const Row rows[] = {
        {3, 1, "cabd"},
        {3, 2, "acbd"},
        {2, 3, "acbd"},
        {2, 4, "acdb"},
    };
    for (const Row& row : rows) {
        List list = letters("abcd");
        list.select({1, 2, 3, 4}, row.position);
        const std::string current = list.Item(row.position)->Key;
        list.move(row.position, row.to);
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

/// Against a plain vector of keys and marks.
TEST(List, KeysAndTheSelectionAreFoundWhereTheirRowsStand) {
    struct Plain {
        std::string key;
        bool selected, current;
    };
    List list;
    std::vector<Plain> plain;
    std::mt19937 random(7);
    const auto any = [&random](int last) { return std::uniform_int_distribution(0, last)(random); };
    for (int step = 0; step < 3000; ++step) {
        const std::string key = std::to_string(any(600));
        const int at = any(list.Count() + 1), to = any(list.Count() + 1);
        const bool holds = at >= 1 && at <= list.Count();
        const auto row = plain.begin() + (holds ? at - 1 : static_cast<int>(plain.size()));
        switch (any(step % 1500 == 0 ? 7 : 6)) {
            case 0:
            case 1:
                list.add({.Key = key}, at);
                plain.insert(row, {key, false, false});
                break;
            case 2:
                list.add({.Key = key}, 1);  // shifts all others from where they were seen last
                plain.insert(plain.begin(), {key, false, false});
                break;
            case 3:
                list.remove(at);
                plain.erase(row, row + holds);
                break;
            case 4:
                list.move(at, to);
                if (holds && to >= 1 && to <= list.Count()) {
                    const Plain moved = *row;
                    plain.erase(row);
                    plain.insert(plain.begin() + to - 1, moved);
                }
                break;
            case 5:
                list.alter(at, [&key](ListRow& altered) { altered.Key = key; });
                if (holds) {
                    row->key = key;
                }
                break;
            case 6:
                list.select({at, to}, to);
                for (int each = 1; each <= list.Count(); ++each) {
                    plain[static_cast<std::size_t>(each - 1)].selected = each == at || each == to;
                    plain[static_cast<std::size_t>(each - 1)].current = each == to;
                }
                break;
            default:
                list.rebuild([&] {
                    list.Clear();
                    list.add({.Key = key});
                });
                plain = {{key, false, false}};
        }
        std::vector<int> selected;
        int current = 0, first = 0;
        for (int each = static_cast<int>(plain.size()); each >= 1; --each) {
            const Plain& held = plain[static_cast<std::size_t>(each - 1)];
            if (held.selected) {
                selected.insert(selected.begin(), each);
            }
            current = held.current ? each : current;
            first = held.key == key ? each : first;
        }
        ASSERT_EQ(list.positionOf(key), first) << key;
        ASSERT_EQ(list.selection(), selected) << step;
        ASSERT_EQ(list.selected(), current) << step;
    }
}

}  // namespace
}  // namespace orvent::forms
