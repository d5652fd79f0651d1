// Time of the nutation matrix: it is made anew at every evaluation of a position and of the force model.

#include "astro/frames.h"

#include <benchmark/benchmark.h>

namespace {

void nutation(benchmark::State& state, bool full)
{
    double T = 0.18;
    for (auto _ : state) {
        double eqeq = 0;
        benchmark::DoNotOptimize(nutmat(T, eqeq, full));
        benchmark::DoNotOptimize(eqeq);
        T += 3e-10;  // about a second
    }
}

BENCHMARK_CAPTURE(nutation, five_terms, false);
BENCHMARK_CAPTURE(nutation, fifty_terms, true);

}  // namespace
