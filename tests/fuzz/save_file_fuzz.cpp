// What reads a save file again: the sorter, and the table of flares.

#include "fuzz/fuzz_target.h"

#include "record/text.h"
#include "record/wout_data.h"
#include "scan/iridium_scan.h"
#include "scan/save_lines.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <array>
#include <vector>

namespace {

using fuzz::require;

constexpr const char* listName = "list.txt";
constexpr std::size_t stampLength = 16;

/// The lines of a save file, sorted out as a person would.
struct List
{
    explicit List(const std::string& text)
    {
        for (std::size_t begin = 0; begin < text.size();) {
            const std::size_t end = std::min(text.find('\n', begin), text.size());
            add(text.substr(begin, end - begin));
            begin = end + 1;
        }
    }

    void add(const std::string& line)
    {
        if (line.size() < 2)
            return;
        if (std::string_view("mGY= ").find(line[0]) != std::string_view::npos)
            headings.push_back(line);
        else if (line.size() >= stampLength)
            passes.push_back(line);
    }

    std::vector<std::string> headings, passes;
};

/// 1 to 12, 13 without a month.
int monthOf(const std::string& line)
{
    constexpr std::string_view names = "JANFEBMARAPRMAYJUNJULAUGSEPOCTNOVDEC";
    for (std::size_t i = 0; i < names.size(); i += 3)
        if (line.compare(0, 3, names.substr(i, 3)) == 0)
            return static_cast<int>(i / 3) + 1;
    return 13;
}

bool isLater(const std::string& one, const std::string& other)
{
    if (monthOf(one) != monthOf(other))
        return monthOf(one) > monthOf(other);
    // what stands behind a NUL is no part of the stamp
    const auto stamp = [](const std::string& line) { return line.substr(0, std::min(stampLength, line.find('\0'))); };
    return monthOf(one) <= 12 && stamp(one) > stamp(other);
}

void requireSorted(WinpData& in, const std::string& before)
{
    SortAos(&in);
    const std::string after = fuzz::readFile(listName);
    const List given(before), sorted(after);
    if (given.passes.size() < 2) {
        require(after == before, "a list that needs no sorting stays as it is");
        return;
    }
    require(sorted.headings == given.headings, "the headings stay in their order");
    require(std::is_permutation(sorted.passes.begin(), sorted.passes.end(), given.passes.begin(), given.passes.end()),
            "no pass is lost or added");
    require(std::adjacent_find(sorted.passes.begin(), sorted.passes.end(), isLater) == sorted.passes.end(),
            "no pass stands before an earlier one");
    SortAos(&in);
    require(fuzz::readFile(listName) == after, "a sorted list stays as it is");
}

void requireSoundTable(WinpData& in)
{
    static WoutData out;
    out.nlines = 0;
    Iriddspy(&in, &out);
    require(out.nlines >= 0 && out.nlines <= maxReportLines, "the table fits the record");
    for (int i = 0; i < out.nlines; ++i)
        require(fuzz::isTerminated(out.text[i]) || ::strnlen(out.text[i], layoutMarkByte) == layoutMarkByte,
                "each line of the table ends");
    require(in.naos >= 0 && in.naos <= static_cast<int>(std::size(in.aostm)), "its rows can all be chosen");
}

/// Two satellites of the list of flares.
void writeElements()
{
    fuzz::writeFile("iridium.txt", "IRIDIUM 7 [-]           \n"
                                   "1 24793U 97020B   18019.88206839  .00000079  00000-0  21253-4 0  9995\n"
                                   "2 24793  86.3950 196.2404 0002151  82.0733 278.0719 14.34219018 84889\n");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool entered = QDir::setCurrent(QFileInfo(QString::fromStdString(fuzz::scratchFile("x"))).path());
    require(entered, "there is a scratch folder");
    static WinpData in;
    setDefaults(&in);
    assignField(in.savename, listName);
    assignField(in.tlename, "iridium.txt");
    const std::string before(reinterpret_cast<const char*>(data), size);
    fuzz::writeFile(listName, before);
    requireSorted(in, before);
    static const bool written = (writeElements(), true);
    require(written, "the elements are there");
    fuzz::writeFile(listName, before);
    requireSoundTable(in);
    return 0;
}
