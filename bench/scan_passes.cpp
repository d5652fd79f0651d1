// All passes above 10 degrees of every entry of an element file, as the program lists them, as a whole process.
//
//   scan_passes [FILE] [DAYS] [visible] [workers=N]
//
// From 2018-01-20 on as seen from Vienna; with "visible" those of lit satellites in the dark only. One worker is the
// default. Says how many passes the list has, and what it cost.
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

#include "bench/process_time.h"
#include "bench/vienna_record.h"
#include "record/files.h"
#include "record/text.h"
#include "scan/all_satellites.h"
#include "scan/save_lines.h"
#include "scan/workers.h"

namespace {

long passesIn(const char* name)
{
    const FilePtr file = openForReading(name);
    long passes = 0;
    for (std::string line; file && nextSaveLine(file.get(), line);)
        passes += line.size() >= passStampLength && !isHeading(line);
    return passes;
}

}  // namespace

int main(int count, char** words)
{
    const auto in = viennaRecord();
    in->visflg = 0;
    in->sunel = 91.0;
    setScanWorkers(1);
    for (int k = 1; k < count; ++k) {
        if (std::strcmp(words[k], "visible") == 0) {
            in->visflg = 1;
            in->sunel = -6.0;
        } else if (std::strncmp(words[k], "workers=", 8) == 0) {
            setScanWorkers(std::atoi(words[k] + 8));
        } else if (std::atof(words[k]) > 0) {
            in->dur = std::atof(words[k]);
        } else {
            assignField(in->tlename, words[k]);
        }
    }
    const std::string list =
        (std::filesystem::temp_directory_path() / ("scan_passes_" + std::to_string(::getpid()))).string();
    assignField(in->savename, list);
    const auto start = std::chrono::steady_clock::now();
    if (AllSatAos(in.get()) != 0)
        return 1;
    const std::chrono::duration<double> clock = std::chrono::steady_clock::now() - start;
    const double cpu = cpuSeconds();
    std::printf("passes %ld cpu %.4f clock %.4f\n", passesIn(in->savename), cpu, clock.count());
    std::remove(in->savename);
    return 0;
}
