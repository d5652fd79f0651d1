// Reading 30,000 objects in each form of element file, from the open to the last entry.
#include "elements/element_file.h"
#include "elements/reader.h"

#include "omm_catalogue.h"
#include "record/text.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {
constexpr std::size_t objects = 30000;

/// The catalogue of 2018 so many times that there are 30,000.
std::string manyLines()
{
    const FilePtr file = openForReading(TEST_DATA "/elements/catalogue_2018.txt");
    std::vector<std::string> lines;
    for (std::string line; readLine(file.get(), line);)
        lines.push_back(line);
    std::string text;
    for (std::size_t i = 0; i < 3 * objects; ++i)
        text += lines[i % lines.size()];
    return text;
}

void readAll(benchmark::State& state, const std::string& bytes)
{
    const QTemporaryDir folder;
    const std::string name = folder.filePath(QStringLiteral("elements")).toStdString();
    if (const FilePtr file{std::fopen(name.c_str(), "w")})
        std::fwrite(bytes.data(), 1, bytes.size(), file.get());
    setDefaults(indata);
    assignField(indata->cfgname[workSlot], "*");
    char report[entryTextRoom];
    for (auto _ : state) {
        const FilePtr file = openElementFile(name.c_str());
        std::size_t entries = 0;
        for (int more = 2; more == 2; ++entries)
            more = tleread(indata, file.get(), report, 0);
        if (entries != objects)
            state.SkipWithError("the catalogue is not whole");
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(objects));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

void readForm(benchmark::State& state, std::string (*write)(const std::vector<omm::Message>&))
{
    readAll(state, write(omm::messages(manyLines())));
}

void readTwoLines(benchmark::State& state)
{
    readAll(state, manyLines());
}
BENCHMARK(readTwoLines)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(readForm, csv, omm::csv)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(readForm, json, omm::json)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(readForm, xml, omm::xml)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(readForm, kvn, omm::kvn)->Unit(benchmark::kMillisecond);
}  // namespace
