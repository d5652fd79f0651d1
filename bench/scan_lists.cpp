// Runs the scans, AOS lists and searches of the catalogue of 2018 as a whole process, and says what came out and how
// long it took.
//
//   scan_lists [stride=N] [workers=N] [out=DIRECTORY] [only=WORD] [days=D] [digests]
//
// With every N-th entry; the cases whose name holds the word. The texts go to the directory, one file for each case.
// With "digests" the lines are SHA-256, stride and case: equal for two versions that give the same lists. Without words
// all cases run, in full.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench/lists/list_cases.h"
#include "bench/process_time.h"
#include "scan/workers.h"
#include "scratch_dir.h"

namespace {

struct Options
{
    int stride = 1;
    int workers = 0;  // 0 leaves the number to the program
    double days = 0;
    bool digests = false;
    std::string out, only;
};

Options optionsOf(int count, char** words)
{
    Options options;
    for (int k = 1; k < count; ++k) {
        const std::string word = words[k];
        const std::string name = word.substr(0, word.find('='));
        const std::string value = name.size() < word.size() ? word.substr(name.size() + 1) : "";
        if (name == "stride")
            options.stride = std::max(1, std::atoi(value.c_str()));
        else if (name == "workers")
            options.workers = std::atoi(value.c_str());
        else if (name == "days")
            options.days = std::atof(value.c_str());
        else if (name == "out")
            options.out = std::filesystem::absolute(value).string();
        else if (name == "only")
            options.only = value;
        else if (name == "digests")
            options.digests = true;
        else
            std::fprintf(stderr, "unknown: %s\n", word.c_str());
    }
    return options;
}

double clockSeconds()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void run(const ListCase& c, const Options& options)
{
    const double cpu = cpuSeconds();
    const double clock = clockSeconds();
    const std::string text = runListCase(c, options.stride, options.days);
    if (options.digests)
        std::printf("%s %3d %s\n", digestOf(text).c_str(), options.stride, c.what.c_str());
    else
        std::printf("%-36s %9zu bytes  cpu %7.3f s  clock %7.3f s\n", c.what.c_str(), text.size(), cpuSeconds() - cpu,
                    clockSeconds() - clock);
    std::fflush(stdout);
    if (!options.out.empty())
        std::ofstream(options.out + "/" + c.what + ".txt") << text;
}

}  // namespace

int main(int count, char** words)
{
    const Options options = optionsOf(count, words);
    if (!options.out.empty())
        std::filesystem::create_directories(options.out);
    if (options.workers > 0)
        setScanWorkers(options.workers);
    const ScratchDir here;
    for (const ListCase& c : listCases())
        if (c.what.find(options.only) != std::string::npos)
            run(c, options);
    if (!options.digests)
        std::printf("whole process: cpu %.3f s\n", cpuSeconds());
    return 0;
}
