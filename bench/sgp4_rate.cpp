// The rate of SGP4: every entry of a catalogue over the 1,440 minutes of 2018 January 20, on one thread.
//
//   sgp4_rate [CATALOGUE [RUNS]]
//
// The same task as bench/compare/sgp4_rate.mjs, and the same report: once as a series of instants for each entry, once
// as a call for each instant. A first run is not counted. The time is the CPU time of the process from loading an entry
// to its last state; reading the file stands outside of it. The sums are over all states without an error, those of the
// series.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <span>
#include <vector>

#include "elements/reader.h"
#include "orbit/sgp4.h"
#include "record/files.h"
#include "record/text.h"
#include "record/winp_data.h"

namespace {

constexpr int minutes = 1440;
constexpr double startDay = 58138.0;  // 2018 January 20

bool sameState(const Sgp4State& a, const Sgp4State& b)
{
    return std::equal(a.r, a.r + 3, b.r) && std::equal(a.v, a.v + 3, b.v) && a.error == b.error;
}

/// One walk through the catalogue in each of the two ways.
struct Run
{
    std::vector<Sgp4State> states;
    double seriesSeconds = 0, callsSeconds = 0;
    std::size_t different = 0;  // states that the two ways do not agree on
};

double cpuSeconds()
{
    return double(std::clock()) / CLOCKS_PER_SEC;
}

/// Loads the entry in the work slot into `satrec`; gives its instants, minutes from its epoch.
std::array<double, minutes> load(WinpData* in)
{
    const double start = startDay - in->mjdep[workSlot];
    in->sgpsat = noSlot;
    Vec3 r, v;
    Sgp4(in, start, workSlot, r, v);
    std::array<double, minutes> tsince;
    for (int i = 0; i < minutes; ++i)
        tsince[std::size_t(i)] = (start + i / 1440.0) * 1440.0;
    return tsince;
}

/// The day of the entry in the work slot.
void propagate(WinpData* in, Run& run)
{
    const std::size_t first = run.states.size();
    run.states.resize(first + minutes);
    const std::span<Sgp4State> series(&run.states[first], minutes);
    double before = cpuSeconds();
    sgp4Series(wgs72, satrec, load(in), series);
    run.seriesSeconds += cpuSeconds() - before;

    std::array<Sgp4State, minutes> calls{};
    before = cpuSeconds();
    const std::array<double, minutes> tsince = load(in);
    for (std::size_t i = 0; i < minutes; ++i)
        calls[i].error = sgp4(wgs72, satrec, tsince[i], calls[i].r, calls[i].v);
    run.callsSeconds += cpuSeconds() - before;
    for (std::size_t i = 0; i < minutes; ++i)
        run.different += sameState(series[i], calls[i]) ? 0 : 1;
}

bool propagateAll(const char* catalogue, Run& run)
{
    setDefaults(indata);
    assignField(indata->cfgname[workSlot], "*");
    const FilePtr file = openForReading(catalogue);
    if (!file)
        return false;
    run = {};
    char report[entryTextRoom];
    for (int more = 2; more == 2;) {
        more = tleread(indata, file.get(), report, 0);
        if (more != 0)
            propagate(indata, run);
    }
    return !run.states.empty();
}

double sizeOf(const double (&x)[3])
{
    return std::abs(x[0]) + std::abs(x[1]) + std::abs(x[2]);
}

void reportRates(const char* what, std::vector<double> rates)
{
    std::sort(rates.begin(), rates.end());
    std::printf("evaluations per CPU second, %s: median %.0f, %.0f to %.0f in %zu runs\n", what,
                rates[rates.size() / 2], rates.front(), rates.back(), rates.size());
}

void report(const Run& last)
{
    double r = 0, v = 0;
    std::size_t failures = 0;
    for (const Sgp4State& state : last.states) {
        if (state.error != 0) {
            ++failures;
            continue;
        }
        r += sizeOf(state.r);
        v += sizeOf(state.v);
    }
    std::printf("vorlix: %zu entries, %zu evaluations, %zu failed, %zu different\n", last.states.size() / minutes,
                last.states.size(), failures, last.different);
    std::printf("sums: %.3f km %.6f km/s\n", r, v);
}

}  // namespace

int main(int argc, char** argv)
{
    const char* catalogue = argc > 1 ? argv[1] : TEST_DATA "/elements/catalogue_2018.txt";
    const int runs = argc > 2 ? std::max(std::atoi(argv[2]), 1) : 5;
    Run run;
    std::vector<double> seriesRates, callsRates;
    for (int i = 0; i <= runs; ++i) {
        if (!propagateAll(catalogue, run)) {
            std::fprintf(stderr, "no entries in %s\n", catalogue);
            return 1;
        }
        if (i > 0) {
            seriesRates.push_back(double(run.states.size()) / run.seriesSeconds);
            callsRates.push_back(double(run.states.size()) / run.callsSeconds);
        }
    }
    report(run);
    reportRates("series", seriesRates);
    reportRates("calls", callsRates);
}
