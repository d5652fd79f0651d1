// Reading a whole element file, entry by entry, as the scans do.
#include "elements/reader.h"

#include "record/files.h"
#include "record/text.h"

#include <benchmark/benchmark.h>

namespace {
constexpr int entriesOfCatalogue = 979;

int readAll(WinpData* in, std::FILE* file)
{
    char report[entryTextRoom];
    int entries = 0;
    for (int more = 2; more == 2; ++entries)
        more = tleread(in, file, report, 0);
    return entries;
}

void readCatalogue(benchmark::State& state)
{
    const FilePtr file = openForReading(TEST_DATA "/elements/catalogue_2018.txt");
    setDefaults(indata);
    assignField(indata->cfgname[workSlot], "*");
    for (auto _ : state) {
        std::rewind(file.get());
        if (readAll(indata, file.get()) != entriesOfCatalogue)
            state.SkipWithError("the catalogue is not whole");
    }
    state.SetItemsProcessed(state.iterations() * entriesOfCatalogue);
}
BENCHMARK(readCatalogue)->Unit(benchmark::kMillisecond);

/// The last entry by its number: every line before it is passed over.
void findLast(benchmark::State& state)
{
    const FilePtr file = openForReading(TEST_DATA "/elements/catalogue_2018.txt");
    setDefaults(indata);
    assignField(indata->cfgname[workSlot], "*");
    readAll(indata, file.get());
    const int last = indata->norad[workSlot];
    assignField(indata->cfgname[workSlot], "");
    indata->srcmd = 1;
    char report[entryTextRoom];
    for (auto _ : state) {
        std::rewind(file.get());
        indata->norad[workSlot] = last;
        if (tleread(indata, file.get(), report, 0) != 1)
            state.SkipWithError("not found");
    }
}
BENCHMARK(findLast)->Unit(benchmark::kMicrosecond);
}  // namespace
