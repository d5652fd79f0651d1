// One place of the Sun, of the Moon, and of a planet.
#include "astro/planets.h"
#include "astro/sun_moon.h"

#include <benchmark/benchmark.h>

namespace {

template <class Series, Vec3 (Series::*place)(double)>
void places(benchmark::State& state)
{
    double T = 0.18;
    for (auto _ : state) {
        Series series;
        benchmark::DoNotOptimize((series.*place)(T));
        T += 1e-9;
    }
}

BENCHMARK(places<Sun200, &Sun200::position>)->Name("Sun200");
BENCHMARK(places<Moon200, &Moon200::position>)->Name("Moon200");
BENCHMARK(places<Plan200, &Plan200::Mars>)->Name("Plan200, Mars");

}  // namespace
