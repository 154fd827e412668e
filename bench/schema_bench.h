#pragma once

namespace orvent::bench {

/// Makes the reading of a source's schema known to the benchmark library.
void registerSchemaBenchmarks();

}  // namespace orvent::bench
