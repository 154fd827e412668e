#include "entities/keyed_collection.h"

#include <gtest/gtest.h>

#include <random>

#include "entities/links.h"
#include "entities/name_tables.h"

using namespace orvent::entities;
using orvent::platform::Fault;

namespace {

/// The collection beside a plain list of (key, value).
class Twin {
  public:
    void insert(int position, const std::string& key, int value) {
        const bool taken = !key.empty() && at(key) != list_.size();
        if (taken) {
            EXPECT_THROW(tested_.insert(position, std::make_unique<int>(value), key), Fault);
            return;
        }
        tested_.insert(position, std::make_unique<int>(value), key);
        list_.insert(list_.begin() + position - 1, {key, value});
    }
    void remove(const std::string& key) {
        const std::size_t place = at(key);
        EXPECT_EQ(tested_.Remove(key) != nullptr, place != list_.size());
        drop(place);
    }
    void remove(int position) {
        const auto place = static_cast<std::size_t>(position - 1);
        EXPECT_EQ(tested_.Remove(position) != nullptr, place < list_.size());
        drop(place);
    }
    void clear() {
        tested_.Clear();
        list_.clear();
    }
    void checkKey(const std::string& key) const {
        const std::size_t place = at(key);
        const int* item = tested_.Item(key);
        ASSERT_EQ(item != nullptr, place != list_.size()) << key;
        EXPECT_EQ(tested_.positionOf(key), item ? static_cast<int>(place) + 1 : 0) << key;
        EXPECT_EQ(item ? *item : -1, item ? list_[place].second : -1) << key;
    }
    void checkOrder() const {
        ASSERT_EQ(tested_.Count(), size());
        int position = 0;
        for (const int value : tested_) {
            EXPECT_EQ(value, list_[static_cast<std::size_t>(position)].second);
            EXPECT_EQ(tested_.keyAt(position + 1), list_[static_cast<std::size_t>(position)].first);
            ++position;
        }
        EXPECT_EQ(position, size());
        EXPECT_FALSE(tested_.Item(0));
        EXPECT_FALSE(tested_.Item(size() + 1));
    }
    int size() const { return static_cast<int>(list_.size()); }

  private:
    std::size_t at(const std::string& key) const {
        std::size_t place = 0;
        while (place < list_.size() && (list_[place].first != key || key.empty())) {
            ++place;
        }
        return place;
    }
    void drop(std::size_t place) {
        if (place < list_.size()) {
            list_.erase(list_.begin() + static_cast<std::ptrdiff_t>(place));
        }
    }

    KeyedCollection<int> tested_;
    std::vector<std::pair<std::string, int>> list_;
};

TEST(KeyedCollection, BehavesAsAPlainListOfPairs) {
    std::mt19937 random(20240607);
    const auto upTo = [&](int last) { return std::uniform_int_distribution<int>(0, last)(random); };
    for (const int keys : {6, 40, 600}) {
        SCOPED_TRACE(keys);
        Twin twin;
        for (int step = 0; step < 6000; ++step) {
            const std::string key = upTo(20) ? std::to_string(upTo(keys)) : "";
            switch (upTo(7)) {
                case 0:
                case 1:
                    twin.insert(1, key, step);  // pushes all others away from where they were found last
                    break;
                case 2:
                    twin.insert(twin.size() + 1, key, step);
                    break;
                case 3:
                    twin.insert(1 + upTo(twin.size()), key, step);
                    break;
                case 4:
                    twin.remove(key);
                    break;
                case 5:
                    twin.remove(upTo(twin.size() + 1));
                    break;
                default:
                    twin.checkKey(key);
                    break;
            }
            if (step % 500 == 499) {
                twin.checkOrder();
            }
            if (step == 4000) {
                twin.clear();
            }
        }
        for (int key = 0; key <= keys; ++key) {
            twin.checkKey(std::to_string(key));
        }
    }
}

TEST(KeyedCollection, FindsKeysThatMovedFarAtOnce) {
    for (const int moves : {63, 64, 65, 200}) {
        Twin twin;
        for (int item = 0; item < 300; ++item) {
            twin.insert(item + 1, "k" + std::to_string(item), item);
        }
        twin.checkKey("k250");
        for (int move = 0; move < moves; ++move) {
            twin.remove(1);
        }
        twin.checkKey("k250");
        twin.checkKey("k0");
        for (int move = 0; move < 3 * moves; ++move) {
            twin.insert(1, "n" + std::to_string(move), move);
        }
        twin.checkKey("k250");
        twin.checkKey("n0");
        twin.remove("k299");
        twin.checkOrder();
    }
}

TEST(Links, ASecondAddUnderOneKeyIsSwallowed) {
    ProviderLinks links;
    ProviderProperties& first = links.Add("RS1", 1, "RS1.A", 7);
    ProviderProperties& second = links.Add("other", 2, "RS1.A", 9);
    EXPECT_EQ(&second, &first);
    EXPECT_EQ(first.Provider_Name, "RS1");
    EXPECT_EQ(first.LineIndex, 7);
    links.Add("x", 1, "");
    links.Add("y", 1, "");
    EXPECT_EQ(links.Count(), 3);
    EXPECT_FALSE(links.Item(""));
}

TEST(NameTable, IsNeverEmptyAndKeepsTheFirstOfEqualNames) {
    NameTable table;
    EXPECT_EQ(table.name(0), "");
    EXPECT_EQ(table.rows(), 0U);
    EXPECT_EQ(table.indexOf(""), std::nullopt);
    for (const char* name : {"a", "b", "a", "A"}) {
        table.add(name);
    }
    EXPECT_EQ(table.rows(), 4U);
    EXPECT_EQ(table.indexOf("a"), 0);
    EXPECT_EQ(table.indexOf("A"), 3);
    table.rename(0, "z");
    EXPECT_EQ(table.indexOf("a"), 2);
    EXPECT_EQ(table.indexOf("z"), 0);
    EXPECT_EQ(table.rows(), 4U);
    for (const std::int16_t index : {std::int16_t{-1}, std::int16_t{4}}) {
        EXPECT_THROW(table.name(index), Fault);
        EXPECT_THROW(table.rename(index, "q"), Fault);
    }
    table.clear();
    EXPECT_EQ(table.size(), 1U);
    EXPECT_EQ(table.indexOf("z"), std::nullopt);
    for (int row = 0; row < 32768; ++row) {
        table.add("n");
    }
    EXPECT_THROW(table.add("one too many"), Fault);
}

}  // namespace
