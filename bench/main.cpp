#include <benchmark/benchmark.h>

#include "bench/repository_bench.h"
#include "bench/schema_bench.h"

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    orvent::bench::registerRepositoryBenchmarks();
    orvent::bench::registerSchemaBenchmarks();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
