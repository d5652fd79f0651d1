// Command lines: whatever the words, the command ends with one of its four statuses, and a complaint is one line. The
// bytes are a command line, and the seed of another one of legal and illegal words.

#include "fuzz/fuzz_target.h"
#include "fuzz/mutations.h"
#include "fuzz/words_table.h"

#include "cli/command.h"
#include "cli/session.h"
#include "cli/words.h"

#include <QDir>
#include <QString>
#include <array>
#include <cmath>
#include <vector>

namespace {

using fuzz::require;
using Words = std::vector<std::string>;

constexpr double longestDays = 0.2;  // of an interval that is computed
constexpr double mostSteps = 300;
constexpr double epoch = 58138.5;  // near those of the elements, MJD

// clang-format off
const std::array values{
    "now", "tonight", "2018-01-20T12:00Z", "2018-01-20", "2018-01-20T12:00:00.5+01:00", "2018-02-30", "48.2,16.4",
    "48.2,16.4,200", "91,0", "-90,180", "68.98,16.51", "1,2,3,4", ",", "0.1", "0.05", "30", "10", "1", "0", "-5", "5",
    "1e3", "10967", "SEASAT", "seasat 1", "1978-064A", "1978-064", "ISS", "*", "", " ", "--", "-", "Kourou", "Z", "+01:00",
    "local", "Europe/Vienna", "time", "entry", "sun", "moon", "place", "flare", "iridium", "j2000", "earth-fixed",
    "mean-of-date", "table", "csv", "json", "ndjson", "ics", "geojson", "oem", "tle", "xml", "kvn",
};
// clang-format on

constexpr const char* elements = "SEASAT 1\n"
                                 "1 10967U 78064A   18020.63020774 -.00000062  00000-0  22054-4 0  9997\n"
                                 "2 10967 108.0191  33.9037 0002540 248.9289 111.1583 14.43691453     3\n"
                                 "IRIDIUM 61\n"
                                 "1 25263U 98021D   18020.50000000  .00000050  00000-0  10000-4 0  9990\n"
                                 "2 25263  86.3980  33.9037 0002000  90.0000 270.1583 14.34216000     9\n";

/// The samples' folder of the command: a file of two satellites in the place of the default one.
const std::string& home()
{
    static const std::string folder = [] {
        const std::string name = fuzz::scratchFile("visual.txt");
        fuzz::writeFile(name, elements);
        return name.substr(0, name.rfind('/'));
    }();
    return folder;
}

std::string_view randomValue(fuzz::Dice& dice)
{
    if (dice.oneIn(20))
        return fuzz::words[dice.below(fuzz::words.size())];
    if (dice.oneIn(12))
        return fuzz::numbers[dice.below(fuzz::numbers.size())];
    return values[dice.below(values.size())];
}

/// A line of words that mostly fit each other.
Words randomLine(fuzz::Dice& dice)
{
    const TaskWords& task = allTasks()[dice.below(allTasks().size())];
    Words words{task.name};
    if (!dice.oneIn(4))
        words.insert(words.end(), {"--site", "48.2,16.4"});
    if (task.task != Task::match && !dice.oneIn(4))
        words.insert(words.end(), {"--from", "2018-01-20T16:00Z"});
    if (task.task == Task::contacts)
        words.insert(words.end(), {"10967", "25263"});
    for (bool more = task.task == Task::match; more; more = dice.oneIn(3))
        words.insert(words.end(), {"--at", "2018-01-20T17:00Z", dice.oneIn(2) ? "--azel" : "--radec", "180,45"});
    if (!dice.oneIn(3) && (allOptions()[6].tasks & bitOf(task.task)))
        words.insert(words.end(), {"--days", "0.05"});
    for (std::size_t more = dice.below(4); more > 0; --more) {
        const OptionWords& option = allOptions()[dice.below(allOptions().size())];
        if (std::string_view(option.name) == "output")
            continue;
        words.push_back(std::string("--") + option.name);
        if (option.value && !dice.oneIn(20))
            words.emplace_back(randomValue(dice));
    }
    return words;
}

/// Whether a line asks for something that takes long.
bool takesLong(const Words& words, const Channels& channels)
{
    const ReadWords read = readWords(words);
    if (!read.complaint.empty() || !read.answer.empty())
        return false;
    Session session;
    session.request = read.request;
    if (!session.request.output.empty())
        return true;
    if (prepare(session, channels))
        return false;
    const double days = session.to - session.from;
    if (session.request.numeric && std::abs(session.from - epoch) > 1.0)
        return true;
    return days > longestDays || days * 86400.0 / session.request.step > mostSteps;
}

void checkLine(const Words& words)
{
    std::string out, err;
    const auto into = [](std::string& text) {
        return [&text](std::string_view piece) {
            text += piece;
            return true;
        };
    };
    const Channels channels{into(out), into(err), nullptr, QString::fromStdString(home()), false};
    if (takesLong(words, channels))
        return;
    err.clear();
    const int status = runCommand(words, channels);
    require(status >= 0 && status <= 3, "a status is one of four");
    require(status < 2 || !err.empty(), "a failure is explained");
    require(status != 2 || (err.find('\n') == err.size() - 1 && out.empty()), "by one line, and nothing else");
    require(status != 0 || !out.empty(), "what is found is told");
    require(out.empty() || out.back() == '\n', "lines are whole");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    QDir::setCurrent(QString::fromStdString(home()));
    Words words;
    for (const std::string& word : splitWords(text.substr(0, text.find('\n'))))
        if (!word.empty())
            words.push_back(word);
    if (words.empty() || words[0] != "vorlix" || !isCommand({words.begin() + 1, words.end()}))
        words = {"vorlix", text};
    checkLine({words.begin() + 1, words.end()});
    std::uint64_t seed = 1469598103934665603u;
    for (const char c : text)
        seed = (seed ^ static_cast<unsigned char>(c)) * 1099511628211u;
    fuzz::Dice dice(seed);
    checkLine(randomLine(dice));
    return 0;
}
