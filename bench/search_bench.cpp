// How long the searches take: passes of one satellite, a match and all passes of a file of 979 entries.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include "bench/vienna_record.h"
#include "elements/reader.h"
#include "engine/aos_list.h"
#include "engine/pass_search.h"
#include "record/files.h"
#include "record/text.h"
#include "record/winp_data.h"
#include "record/wout_data.h"
#include "scan/all_satellites.h"
#include "scan/matching.h"

namespace {

constexpr double startDay = 58138.0;  // 2018-01-20

/// The evening in Vienna.
std::unique_ptr<WinpData> searchRecord()
{
    auto in = viennaRecord();
    in->mjd = startDay + 0.7;
    assignField(in->savename, (std::filesystem::temp_directory_path() / "vorlix_search_bench.txt").string());
    return in;
}

void select(WinpData* in, const char* name)
{
    const FilePtr file = openForReading(in->tlename);
    char report[entryTextRoom];
    assignField(in->cfgname[workSlot], name);
    if (file && tleread(in, file.get(), report, 0) != 0)
        ShiftElm(in, in->satn++, workSlot);
}

/// All passes of three days, one after the other; the second argument asks for those seen in the dark only.
void passes(benchmark::State& state, const char* name, int visible)
{
    const auto in = searchRecord();
    select(in.get(), name);
    if (in->satn != 1)
        state.SkipWithError("the satellite is not in the file");
    in->visflg = visible;
    in->sunel = visible ? -6.0 : 91.0;
    const double end = startDay + 3.1;
    int found = 0;
    for (auto _ : state) {
        Pass pass;
        found = 0;
        for (double t = startDay; t <= end; t = timeAfterPass(*in, 0, pass), ++found)
            if (nextpass(in.get(), 0, t, end, pass.tm, pass.a, pass.b) == 0)
                break;
    }
    state.counters["passes"] = found;
}
BENCHMARK_CAPTURE(passes, station, "ISS", 0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(passes, envisatVisible, "ENVISAT", 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(passes, molniya, "MOLNIYA 2-9", 0)->Unit(benchmark::kMillisecond);

void match(benchmark::State& state)
{
    const auto in = searchRecord();
    in->rdf = 0;
    in->az = 180.0;
    in->el = 45.0;
    in->tm = 2.0;
    const auto out = std::make_unique<WoutData>();
    for (auto _ : state) {
        in->satn = 0;
        if (SatMatch(in.get(), out.get()) != 0)
            state.SkipWithError("no element file");
    }
    state.counters["matches"] = in->satn;
}
BENCHMARK(match)->Unit(benchmark::kMillisecond);

void allSatellites(benchmark::State& state)
{
    const auto in = searchRecord();
    for (auto _ : state) {
        in->newsave = 1;
        if (AllSatAos(in.get()) != 0)
            state.SkipWithError("the scan failed");
    }
    std::remove(in->savename);
}
BENCHMARK(allSatellites)->Unit(benchmark::kMillisecond);

}  // namespace
