// The position engine per orbit model, and with the stages that searches for events switch on.
#include <benchmark/benchmark.h>

#include "engine/position.h"
#include "record_fields.h"

namespace {

constexpr double startMjd = 58138.0;
constexpr double stepDays = 1.0 / 1440.0;

// Of January 2018; the Molniya satellite is in deep space.
constexpr const char* station = "mjdep=58138.89808844 inc=51.6424 ra=32.9776 ecc=0.0003646 aper=28.7227 m0=39.5332 "
                                "n0=15.54190080 a=6782 ndot=0.00002078 bstar=0.38550e-4";
constexpr const char* molniya = "mjdep=58138.23876876 inc=62.8736 ra=133.4813 ecc=0.6827707 aper=288.5239 m0=12.4629 "
                                "n0=2.45096043 a=23240 bstar=-0.68415e-3";

WinpData recordOf(const std::string& satellite, const std::string& settings)
{
    WinpData in;
    setDefaults(&in);
    setFields(in, "lat=48.25 lng=16.5 height=200 satn=1 sgpsat=9999 aflg=1 " + satellite + " " + settings, 0);
    return in;
}

void position(benchmark::State& state, const char* satellite, const char* settings)
{
    WinpData in = recordOf(satellite, settings);
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

BENCHMARK_CAPTURE(position, nearEarth, station, "");
BENCHMARK_CAPTURE(position, deepSpace, molniya, "");
BENCHMARK_CAPTURE(position, twoBodyEllipse, station, "aflg=0");
BENCHMARK_CAPTURE(position, hyperbola, station, "aflg=0 ecc=1.3 n0=7000");
BENCHMARK_CAPTURE(position, withMoon, station, "moonflg=1");
BENCHMARK_CAPTURE(position, withSunTransit, station, "occflg=1");
BENCHMARK_CAPTURE(position, withMirrors, station, "iridflg=3 irsol=1");

/// Each call goes on from the last: a minute of integration with all forces.
void numericMinute(benchmark::State& state)
{
    WinpData in = recordOf(station, "");
    SatPosData sp;
    GetSatPos(in.mjdep[0], &in, &sp, 0, 0);
    currentToEpochState(&in, 0);
    in.numflg[0] = 1;
    double t = in.mjdep[0];
    for (auto _ : state) {
        t += stepDays;
        GetSatPos(t, &in, &sp, 0, 0);
        benchmark::DoNotOptimize(sp.el[0]);
    }
}
BENCHMARK(numericMinute);

}  // namespace
