// Lookups in a keyed collection, which must take the same time whatever its size.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "entities/keyed_collection.h"

namespace {

using Collection = orvent::entities::KeyedCollection<int>;

Collection filled(int count) {
    Collection items;
    for (int i = 1; i <= count; ++i) {
        items.append(std::make_unique<int>(i), "Activity" + std::to_string(i));
    }
    return items;
}

/// The positions of a hundred items anywhere in the collection. The same few are looked up again and again, so that
/// what is measured is the collection and not how much of it fits into the processor's caches.
std::vector<int> somePositions(int count) {
    std::vector<int> positions;
    std::mt19937 random(1);
    for (int i = 0; i < 100; ++i) {
        positions.push_back(std::uniform_int_distribution(1, count)(random));
    }
    return positions;
}

void lookupByKey(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    const Collection items = filled(count);
    std::vector<std::string> keys;
    for (const int position : somePositions(count)) {
        keys.push_back(items.keyAt(position));
    }
    for (auto _ : state) {
        for (const std::string& key : keys) {
            benchmark::DoNotOptimize(items.Item(key));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<benchmark::IterationCount>(keys.size()));
}

void lookupByPosition(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    const Collection items = filled(count);
    const std::vector<int> positions = somePositions(count);
    for (auto _ : state) {
        for (const int position : positions) {
            benchmark::DoNotOptimize(items.Item(position));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<benchmark::IterationCount>(positions.size()));
}

BENCHMARK(lookupByKey)->Name("lookup by key")->Arg(100)->Arg(1000)->Arg(10000)->Arg(30000);
BENCHMARK(lookupByPosition)->Name("lookup by position")->Arg(100)->Arg(1000)->Arg(10000)->Arg(30000);

}  // namespace
