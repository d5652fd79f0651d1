// The numeric propagator: one evaluation of the forces at each degree of the field, and a day of a low orbit.
#include "astro/calendar.h"
#include "astro/frames.h"
#include "orbit/flight_helper.h"
#include "orbit/force_model.h"
#include "orbit/num_prop.h"
#include "record/winp_data.h"

#include <benchmark/benchmark.h>

namespace {

constexpr double epoch = 58138.0;  // 2018 January 20

/// Default forces for slot 0, Sun and Moon in place.
WinpData* prepare()
{
    WinpData* in = freshRecord();
    in->cstm[0] = in->mjdep[0] = epoch;
    nmrksx = 0;
    UpSunMoon(0, in, 0, spos, mpos);
    return in;
}

void evaluation(benchmark::State& state)
{
    prepare();
    const auto [r, v] = stateOf(1000.0 * double(state.range(1)), 0.001, 60, 30, 40, 0);
    const double y[6] = {r[0], r[1], r[2], v[0], v[1], v[2]};
    double dy[6];
    for (auto _ : state) {
        RKFun(0, y, dy);
        benchmark::DoNotOptimize(dy);
    }
}

BENCHMARK(evaluation)
    ->Name("RKFun")
    ->ArgNames({"degree", "axis, km"})
    ->Args({6, 42164})
    ->Args({10, 12000})
    ->Args({15, 8000})
    ->Args({20, 6778});

void density(benchmark::State& state)
{
    prepare();
    const Vec3 r(earthRadiusM + 1000.0 * double(state.range(0)), 0, 0);
    double height;
    for (auto _ : state)
        benchmark::DoNotOptimize(Jacc71(epoch, r, spos, 160, 160, 4, height));
}

BENCHMARK(density)->Name("Jacc71")->ArgName("height, km")->Arg(400)->Arg(800);

void dayOfALowOrbit(benchmark::State& state)
{
    WinpData* in = prepare();
    const State start = stateOf(7078e3, 0.001, 60, 30, 40, 0);
    double eqeq;
    const Mat3 N = nutmat(julcent(epoch), eqeq, false);
    const Vec3 sun = mxvct(N, spos) / earthRadiusM, moon = mxvct(N, mpos) / earthRadiusM;
    for (auto _ : state) {
        setState(in, epoch, start);
        Vec3 place, velocity;
        NumProp(epoch + 1.0, in, 0, sun, moon, place, velocity);
        benchmark::DoNotOptimize(place);
    }
}

BENCHMARK(dayOfALowOrbit)->Name("a day of a 700 km orbit, default tolerance")->Unit(benchmark::kMillisecond);

}  // namespace
