#include "entities/keyed_collection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "entities/links.h"
#include "entities/name_tables.h"
#include "testkit/numbers.h"

using namespace orvent;
using namespace orvent::entities;
using orvent::platform::Fault;

namespace {

/// The collection beside a plain list of (key, value).
class Twin {
  public:
    void insert(int position, const std::string& key, int value) {
        if (find(key) != list_.end()) {
            EXPECT_THROW(tested_.insert(position, std::make_unique<int>(value), key), Fault);
            return;
        }
        tested_.insert(position, std::make_unique<int>(value), key);
        list_.insert(list_.begin() + position - 1, {key, value});
    }
    void remove(const std::string& key) { removed(tested_.Remove(key) != nullptr, find(key)); }
    void remove(int position) {
        const bool isThere = position >= 1 && position <= size();
        removed(tested_.Remove(position) != nullptr, isThere ? list_.begin() + position - 1 : list_.end());
    }
    void move(int from, int to) {
        tested_.move(from, to);
        if (std::min(from, to) >= 1 && std::max(from, to) <= size()) {
            const auto moved = *(list_.begin() + from - 1);
            list_.erase(list_.begin() + from - 1);
            list_.insert(list_.begin() + to - 1, moved);
        }
    }
    void reorder(const std::vector<std::string>& keys) {
        const int* const item = tested_.Item(keys.front());
        tested_.reorder(keys);
        EXPECT_EQ(tested_.Item(keys.front()), item) << "another item, or a copy";
        List ordered;
        for (const std::string& key : keys) {
            if (const auto place = find(key); place != list_.end()) {
                ordered.push_back(*place);
                list_.erase(place);
            }
        }
        list_.insert(list_.begin(), ordered.begin(), ordered.end());
    }
    void clear() {
        tested_.Clear();
        list_.clear();
    }
    void checkKey(const std::string& key) {
        const auto place = find(key);
        const bool isThere = place != list_.end();
        const int* item = tested_.Item(key);
        ASSERT_EQ(item != nullptr, isThere) << key;
        EXPECT_EQ(tested_.positionOf(key), isThere ? place - list_.begin() + 1 : 0) << key;
        EXPECT_TRUE(!isThere || *item == place->second) << key;
    }
    void checkOrder() const {
        List seen;
        for (const int value : tested_) {
            seen.emplace_back(tested_.keyAt(static_cast<int>(seen.size()) + 1), value);
        }
        EXPECT_EQ(seen, list_);
        EXPECT_FALSE(tested_.Item(0));
        EXPECT_FALSE(tested_.Item(size() + 1));
    }
    int size() const { return static_cast<int>(list_.size()); }

  private:
    using List = std::vector<std::pair<std::string, int>>;

    List::iterator find(const std::string& key) {
        return std::find_if(list_.begin(), list_.end(),
                            [&](const auto& pair) { return !key.empty() && pair.first == key; });
    }
    void removed(bool wasThere, List::iterator place) {
        EXPECT_EQ(wasThere, place != list_.end());
        if (place != list_.end()) {
            list_.erase(place);
        }
    }

    KeyedCollection<int> tested_;
    List list_;
};

TEST(KeyedCollection, BehavesAsAPlainListOfPairs) {
    std::mt19937 random(20240607);
    const auto upTo = [&](int last) { return std::uniform_int_distribution<int>(0, last)(random); };
    for (const int keys : {6, 40, 600, 4000}) {
        SCOPED_TRACE(keys);
        Twin twin;
        for (int step = 0; step < 6000; ++step) {
            const std::string key = upTo(20) ? std::to_string(upTo(keys)) : "";
            const int action = step / 500 % 3 == 2 && upTo(2) ? 5 : upTo(8);  // grows, and shrinks again
            if (action < 2) {
                twin.insert(1, key, step);  // pushes all others away from where they were found last
            } else if (action == 2) {
                twin.insert(twin.size() + 1, key, step);
            } else if (action == 3) {
                twin.insert(1 + upTo(twin.size()), key, step);
            } else if (action == 4) {
                twin.remove(key);
            } else if (action == 5) {
                twin.remove(upTo(twin.size() + 1));
            } else if (action == 6) {
                twin.move(upTo(twin.size() + 1), upTo(twin.size() + 1));
            } else {
                twin.checkKey(key);
            }
            if (step % 700 == 99) {
                twin.reorder({key, "gone", std::to_string(upTo(keys)), key, std::to_string(upTo(keys))});
                twin.checkOrder();
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

TEST(Links, AKeyChangesThroughItsCollection) {
    RegulatorLinks links;
    links.Add("A", LinkInput, ".IN.a", 4_edge);
    RegulatorProperties& second = links.Add("A", LinkInput, ".IN.b", 5_edge);
    links.Add("A", LinkInput, ".IN.c", 6_edge);
    EXPECT_TRUE(links.rekey(".IN.b", ".IN.z"));
    EXPECT_EQ(links.Item(".IN.z"), &second);
    EXPECT_EQ(links.positionOf(".IN.z"), 2);
    EXPECT_EQ(second.Regulator_Key(), ".IN.z");
    EXPECT_FALSE(links.Item(".IN.b"));
    EXPECT_FALSE(links.rekey(".IN.z", ".IN.c")) << "another link bears the key";
    EXPECT_FALSE(links.rekey(".IN.b", ".IN.y"));
    EXPECT_TRUE(links.rekey(".IN.z", ".IN.z"));
    EXPECT_EQ(links.Count(), 3);
}

TEST(Links, ASecondAddUnderOneKeyIsSwallowed) {
    ProviderLinks links;
    ProviderProperties& first = links.Add("RS1", LinkRecordSet, "RS1.A", 7_edge);
    ProviderProperties& second = links.Add("other", LinkActivity, "RS1.A", 9_edge);
    EXPECT_EQ(&second, &first);
    EXPECT_EQ(first.Provider_Name, "RS1");
    EXPECT_EQ(first.LineIndex, 7_edge);
    links.Add("x", LinkRecordSet, "");
    links.Add("y", LinkRecordSet, "");
    EXPECT_EQ(links.Count(), 3);
    EXPECT_FALSE(links.Item(""));
}

TEST(NameTable, IsNeverEmptyAndKeepsTheFirstOfEqualNames) {
    NameTable table;
    EXPECT_EQ(table.name(0), "");
    EXPECT_EQ(table.rows(), 0U);
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
    EXPECT_THROW(table.name(-1), Fault);
    EXPECT_THROW(table.rename(4, "q"), Fault);
    table.clear();
    EXPECT_EQ(table.size(), 1U);
    EXPECT_EQ(table.indexOf("z"), std::nullopt);
    for (int row = 0; row < 32768; ++row) {
        table.add("n");
    }
    EXPECT_THROW(table.add("one too many"), Fault);
}

TEST(NameTable, AKeptIndexGoesOnMeaningItsName) {
    using Indices = std::vector<std::int16_t>;
    NameTable table;
    table.reload({"a", "b", "c"}, false);
    table.reload({"x", "c"}, true);
    EXPECT_EQ(table.name(0) + table.name(1) + table.name(2) + table.name(3), "abcx");
    EXPECT_EQ(table.indexOf("a"), std::nullopt);
    EXPECT_EQ(table.shown(0) + table.shown(2) + table.shown(9), "a (gone)c");
    EXPECT_EQ(table.listed(), (Indices{2, 3}));
    EXPECT_EQ(table.listed(1), (Indices{1, 2, 3}));
    EXPECT_EQ(table.first(), 2);
    table.take("b");
    EXPECT_EQ(table.indexOf("b"), 1) << "what returns has its former index";
    table.reload({}, true);
    EXPECT_EQ(table.name(table.first()), "") << "none falls back on what is gone";
    EXPECT_EQ(table.listed(table.first()), Indices());
    table.reload({"y"}, true);
    EXPECT_EQ(table.indexOf("y"), 5);
    table.reload({"y"}, false);
    EXPECT_EQ(table.indexOf("y"), 0);
    EXPECT_EQ(table.size(), 1U);
}

}  // namespace
