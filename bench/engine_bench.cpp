// The position engine per orbit model, and with the stages that searches for events switch on.
#include <benchmark/benchmark.h>

#include "app/record/winp_data.h"
#include "engine/position.h"

namespace {

constexpr double startMjd = 58138.0;
constexpr double stepDays = 1.0 / 1440.0;

/// The ISS of January 2018, by its elements.
void setStation(WinpData& in)
{
    in.aflg[0] = 1;
    in.mjdep[0] = 58138.89808844;
    in.inc[0] = 51.6424;
    in.ra[0] = 32.9776;
    in.ecc[0] = 0.0003646;
    in.aper[0] = 28.7227;
    in.m0[0] = 39.5332;
    in.n0[0] = 15.54190080;
    in.a[0] = 6782.0;
    in.ndot[0] = 0.00002078;
    in.bstar[0] = 0.38550e-4;
}

/// A Molniya satellite of the same month: deep space.
void setMolniya(WinpData& in)
{
    in.aflg[0] = 1;
    in.mjdep[0] = 58138.23876876;
    in.inc[0] = 62.8736;
    in.ra[0] = 133.4813;
    in.ecc[0] = 0.6827707;
    in.aper[0] = 288.5239;
    in.m0[0] = 12.4629;
    in.n0[0] = 2.45096043;
    in.a[0] = 23240.0;
    in.bstar[0] = -0.68415e-3;
}

WinpData recordOf(void (*satellite)(WinpData&))
{
    WinpData in;
    setDefaults(&in);
    in.lat = 48.25;
    in.lng = 16.5;
    in.height = 200.0;
    in.satn = 1;
    in.sgpsat = noSlot;
    satellite(in);
    return in;
}

void run(benchmark::State& state, WinpData in)
{
    SatPosData sp;
    double t = startMjd;
    for (auto _ : state) {
        GetSatPos(t, &in, &sp, 0, 0);
        benchmark::DoNotOptimize(sp.el[0]);
        t += stepDays;
        if (t > startMjd + 3.0)
            t = startMjd;
    }
}

void nearEarth(benchmark::State& state)
{
    run(state, recordOf(setStation));
}
BENCHMARK(nearEarth);

void deepSpace(benchmark::State& state)
{
    run(state, recordOf(setMolniya));
}
BENCHMARK(deepSpace);

void twoBodyEllipse(benchmark::State& state)
{
    WinpData in = recordOf(setStation);
    in.aflg[0] = 0;
    run(state, in);
}
BENCHMARK(twoBodyEllipse);

void hyperbola(benchmark::State& state)
{
    WinpData in = recordOf(setStation);
    in.aflg[0] = 0;
    in.ecc[0] = 1.3;
    in.n0[0] = 7000.0;
    run(state, in);
}
BENCHMARK(hyperbola);

/// Each call goes on from the last: a minute of integration with all forces.
void numericMinute(benchmark::State& state)
{
    WinpData in = recordOf(setStation);
    SatPosData sp;
    GetSatPos(in.mjdep[0], &in, &sp, 0, 0);
    in.epr0[0] = in.csr0[0];
    in.epr1[0] = in.csr1[0];
    in.epr2[0] = in.csr2[0];
    in.epv0[0] = in.csv0[0];
    in.epv1[0] = in.csv1[0];
    in.epv2[0] = in.csv2[0];
    in.numflg[0] = 1;
    double t = in.mjdep[0];
    for (auto _ : state) {
        t += stepDays;
        GetSatPos(t, &in, &sp, 0, 0);
        benchmark::DoNotOptimize(sp.el[0]);
    }
}
BENCHMARK(numericMinute);

void withMoon(benchmark::State& state)
{
    WinpData in = recordOf(setStation);
    in.moonflg = 1;
    run(state, in);
}
BENCHMARK(withMoon);

void withSunTransit(benchmark::State& state)
{
    WinpData in = recordOf(setStation);
    in.occflg = 1;
    run(state, in);
}
BENCHMARK(withSunTransit);

void withMirrors(benchmark::State& state)
{
    WinpData in = recordOf(setStation);
    in.iridflg = event::iridium;
    in.irsol = true;
    run(state, in);
}
BENCHMARK(withMirrors);

}  // namespace

BENCHMARK_MAIN();
