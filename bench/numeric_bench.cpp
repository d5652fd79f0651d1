// The numeric propagator: one evaluation of the forces at each degree of the field, and a day of a low orbit.
#include "app/record/winp_data.h"
#include "astro/calendar.h"
#include "astro/frames.h"
#include "astro/two_body.h"
#include "orbit/force_model.h"
#include "orbit/num_prop.h"

#include <benchmark/benchmark.h>

namespace {

constexpr double epoch = 58138.0;  // 2018 January 20
constexpr double earthRadiusM = 6378137.0;
constexpr double gmM3PerS2 = 398600.4415e9;

/// Default forces for slot 0, Sun and Moon in place.
WinpData* prepare()
{
    WinpData* in = indata;
    *in = WinpData{};
    setDefaults(in);
    in->F107[0] = in->dF107;
    in->FB107[0] = in->dFB107;
    in->Kp[0] = in->dKp;
    in->Cd[0] = in->dCd;
    in->Cr[0] = in->dCr;
    in->Am[0] = in->dAm;
    in->cstm[0] = in->mjdep[0] = epoch;
    nmrksx = 0;
    UpSunMoon(0, in, 0, spos, mpos);
    return in;
}

void evaluation(benchmark::State& state)
{
    prepare();
    Vec3 r, v;
    kepler(gmM3PerS2, 0, 0, 0, 1000.0 * double(state.range(1)), 0.001, 30, 40, 60, r, v);
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
    Vec3 r, v;
    kepler(gmM3PerS2, 0, 0, 0, 7078e3, 0.001, 30, 40, 60, r, v);
    double eqeq;
    const Mat3 N = nutmat(julcent(epoch), eqeq, false);
    const Vec3 sun = mxvct(N, spos) / earthRadiusM, moon = mxvct(N, mpos) / earthRadiusM;
    for (auto _ : state) {
        in->cstm[0] = epoch;
        in->csr0[0] = r[0];
        in->csr1[0] = r[1];
        in->csr2[0] = r[2];
        in->csv0[0] = v[0];
        in->csv1[0] = v[1];
        in->csv2[0] = v[2];
        Vec3 place, velocity;
        NumProp(epoch + 1.0, in, 0, sun, moon, place, velocity);
        benchmark::DoNotOptimize(place);
    }
}

BENCHMARK(dayOfALowOrbit)->Name("a day of a 700 km orbit, default tolerance")->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
