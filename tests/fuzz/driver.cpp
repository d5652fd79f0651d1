// Runs a fuzz target on files and on changed copies of them:
//
//     fuzz_elements [--runs N] [--seconds S] [--seed K] FILE|FOLDER...
//
// Every file is run as it is first. Then come changed copies, until N of them have run or S seconds are over, the same
// ones for the same seed. The environment variable VORLIX_FUZZ_SECONDS takes the place of both limits for a long run.
// The input at work lies in the file fuzz_elements.input of the working directory; it remains there after a crash, and
// running the target on it repeats the case.

#include "fuzz/fuzz_target.h"
#include "fuzz/mutations.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>

#include <fcntl.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr std::size_t longestInput = 16384;
constexpr unsigned secondsOfAHang = 60;  // for one input

/// Shows each input to whoever finds the program dead.
class InputFile
{
public:
    explicit InputFile(const fs::path& name)
        : path(fs::absolute(name)), file(::open(path.c_str(), O_CREAT | O_RDWR, 0644))
    {}
    ~InputFile()
    {
        ::close(file);
        fs::remove(path);
    }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    void show(const std::string& input) const
    {
        const auto length = static_cast<ssize_t>(input.size());
        if (::ftruncate(file, length) != 0 || ::pwrite(file, input.data(), input.size(), 0) != length)
            std::fprintf(stderr, "cannot write %s\n", path.c_str());
    }

private:
    const fs::path path;
    const int file;
};

struct Options
{
    Options(int argc, char* argv[])
    {
        for (int i = 1; i < argc; ++i) {
            const std::string_view word = argv[i];
            const bool hasValue = i + 1 < argc;
            if (word == "--runs" && hasValue)
                runs = std::strtoull(argv[++i], nullptr, 10);
            else if (word == "--seconds" && hasValue)
                seconds = std::atof(argv[++i]);
            else if (word == "--seed" && hasValue)
                seed = std::strtoull(argv[++i], nullptr, 10);
            else
                files.emplace_back(word);
        }
        if (const char* wanted = std::getenv("VORLIX_FUZZ_SECONDS")) {
            seconds = std::atof(wanted);
            runs = std::numeric_limits<unsigned long long>::max();
        }
    }

    unsigned long long runs = 100000;
    double seconds = 10;
    unsigned long long seed = 1;
    std::vector<fs::path> files;
};

std::string bytesOf(const fs::path& name)
{
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// In the order of their names, so that a seed means the same everywhere.
std::vector<std::string> samplesOf(const std::vector<fs::path>& names)
{
    std::vector<fs::path> files;
    for (const fs::path& name : names) {
        if (!fs::is_directory(name)) {
            files.push_back(name);
            continue;
        }
        for (const auto& entry : fs::recursive_directory_iterator(name))
            if (entry.is_regular_file())
                files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    std::vector<std::string> samples;
    std::transform(files.begin(), files.end(), std::back_inserter(samples), bytesOf);
    return samples;
}

void run(const std::string& input, const InputFile& shown)
{
    shown.show(input);
    ::alarm(secondsOfAHang);
    // in memory of its own size, so that a look behind the end is seen
    const std::vector<std::uint8_t> bytes(input.begin(), input.end());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

}  // namespace

int main(int argc, char* argv[])
{
    const Options options(argc, argv);
    const std::string name = fs::path(argv[0]).filename().string();
    std::vector<std::string> samples = samplesOf(options.files);
    if (samples.empty()) {
        std::fprintf(stderr, "usage: %s [--runs N] [--seconds S] [--seed K] FILE|FOLDER...\n", name.c_str());
        return 2;
    }
    const InputFile shown(name + ".input");
    const auto start = std::chrono::steady_clock::now();
    const auto secondsSoFar = [start] {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    for (const std::string& sample : samples)
        run(sample, shown);
    std::erase_if(samples, [](const std::string& sample) { return sample.size() > longestInput; });
    fuzz::Dice dice(options.seed);
    unsigned long long runs = 0;
    for (; !samples.empty() && runs < options.runs && secondsSoFar() < options.seconds; ++runs)
        run(fuzz::mutated(samples, dice, longestInput), shown);
    std::printf("%s: %llu changed inputs from %zu samples in %.1f s, seed %llu\n", name.c_str(), runs, samples.size(),
                secondsSoFar(), options.seed);
    return 0;
}
