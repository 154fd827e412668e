#pragma once

namespace orvent::bench {

/// Makes saving and loading known to the benchmark library, which has its own list of what to run.
void registerRepositoryBenchmarks();

}  // namespace orvent::bench
