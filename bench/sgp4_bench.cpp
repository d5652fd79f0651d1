// Time of one SGP4 call: near Earth, deep space with and without resonance, and of loading an element set.

#include "orbit/sgp4.h"

#include <benchmark/benchmark.h>

#include "astro/angles.h"

namespace {

/// Angles in degrees, mean motion in revolutions per day; days from 1950.
struct Elements
{
    double epoch, bstar, ecco, argpo, inclo, mo, no, nodeo;
};

// From the verification set of AIAA 2006-6753.
constexpr Elements nearEarth{20630.33, 0.28098e-4, 0.1859667, 331.7664, 34.2682, 19.3264, 10.82419157, 348.7242};
constexpr Elements geostationary{20631.04, 1e-4, 0.002664, 311.0977, 3.8536, 48.3, 1.00778054, 80.0121};
constexpr Elements molniya{20630.0, 0.11873e-3, 0.6877146, 264.7651, 64.1586, 20.2257, 2.00491383, 279.0717};
constexpr Elements navigation{20629.57, 1e-4, 0.0048506, 266.264, 54.7298, 93.1663, 2.00562768, 324.8098};

int load(const Elements& e, elsetrec& sat)
{
    return sgp4init(wgs72, true, e.epoch, e.bstar, e.ecco, e.argpo * radPerDeg, e.inclo * radPerDeg, e.mo * radPerDeg,
                    e.no * twoPi / 1440.0, e.nodeo * radPerDeg, sat);
}

/// Steps of one minute from `start` minutes on, over a week.
void propagate(benchmark::State& state, const Elements& e, double start)
{
    elsetrec sat;
    if (load(e, sat) != 0) {
        state.SkipWithError("element set refused");
        return;
    }
    double t = start;
    double r[3], v[3];
    for (auto _ : state) {
        benchmark::DoNotOptimize(sgp4(wgs72, sat, t, r, v));
        benchmark::DoNotOptimize(r);
        benchmark::DoNotOptimize(v);
        t = t < start + 10080.0 ? t + 1.0 : start;
    }
}

void initialise(benchmark::State& state, const Elements& e)
{
    elsetrec sat;
    for (auto _ : state)
        benchmark::DoNotOptimize(load(e, sat));
}

constexpr double monthMin = 30 * 1440.0;

BENCHMARK_CAPTURE(propagate, near_earth, nearEarth, 0.0);
BENCHMARK_CAPTURE(propagate, deep_no_resonance, navigation, 0.0);
BENCHMARK_CAPTURE(propagate, deep_one_day, geostationary, 0.0);
BENCHMARK_CAPTURE(propagate, deep_half_day, molniya, 0.0);
BENCHMARK_CAPTURE(propagate, deep_half_day_after_a_month, molniya, monthMin);
BENCHMARK_CAPTURE(initialise, near_earth, nearEarth);
BENCHMARK_CAPTURE(initialise, deep_half_day, molniya);

}  // namespace
