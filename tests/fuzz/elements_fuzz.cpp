// The element reader: Two Line Elements, state vectors and messages through every kind of search; and what it finds
// comes back from the files that it is saved in.

#include "fuzz/fuzz_target.h"
#include "record_fields.h"

#include "elements/element_file.h"
#include "elements/entry_stream.h"
#include "elements/reader.h"
#include "elements/writer.h"
#include "record/text.h"

#include <algorithm>
#include <cctype>
#include <initializer_list>
#include <vector>

namespace {

using fuzz::require;

constexpr int byName = 0, byNumber = 1, byDesignator = 2;
constexpr double startMjd = 58138.0;  // of the filter for low orbits

struct Found
{
    std::string name, designator;
    int number = 0, numeric = 0, model = 0;
    double epoch = 0;
    std::vector<double> figures, exponents;
};

/// A mantissa with leading zeros may differ in the last bit from the same number without them.
bool sameExponents(const Found& one, const Found& other)
{
    return std::equal(one.exponents.begin(), one.exponents.end(), other.exponents.begin(),
                      [](double a, double b) { return std::abs(a - b) <= 3e-16 * std::abs(a); });
}

WinpData freshRecord()
{
    WinpData in;
    setDefaults(&in);
    in.mjd = startMjd;
    return in;
}

/// The record beside the work slot, by its texts.
void requireNeighboursUntouched(const WinpData& in)
{
    for (const int slot : {workSlot - 1, workSlot + 1})
        require(in.norad[slot] == 0 && in.fsname[slot][0] == '\0' && in.ldsn[slot][0] == '\0' && in.a[slot] == 0,
                "the slots beside the work slot stay as they are");
}

void requireSoundEntry(const WinpData& in, const char (&report)[entryTextRoom])
{
    constexpr int k = workSlot;
    require(fuzz::isTerminated(report), "the report ends");
    require(fuzz::isTerminated(in.fsname[k]) && fuzz::isTerminated(in.ldsn[k]) && fuzz::isTerminated(in.cfgname[k]) &&
                fuzz::isTerminated(in.ldraw) && fuzz::isTerminated(in.ldfull),
            "the texts end in their fields");
    for (const double x : slotFields(in, k))
        require(std::isfinite(x), "the elements are numbers");
    require(in.numflg[k] == 0 || in.numflg[k] == 1, "a satellite is numeric or is not");
}

Found entryOf(const WinpData& in)
{
    constexpr int k = workSlot;
    return {std::string(fieldText(in.fsname[k])),
            std::string(fieldText(in.ldsn[k])),
            in.norad[k],
            in.numflg[k],
            in.aflg[k],
            in.mjdep[k],
            {in.n0[k], in.ecc[k], in.inc[k], in.ra[k], in.aper[k], in.m0[k], in.ndot[k]},
            {in.bstar[k], in.n6dot[k]}};
}

/// All matches, in the order of the file; `keep` takes the first ten into the selection.
std::vector<Found> search(WinpData* in, std::FILE* file, std::size_t bytes, bool keep = false)
{
    std::vector<Found> all;
    char report[entryTextRoom];
    std::rewind(file);
    for (int result = 2; result == 2;) {
        result = tleread(in, file, report, all.empty() ? 0 : 1);
        require(result >= 0 && result <= 2, "tleread tells one of three things");
        if (result == 0) {
            require(fuzz::isTerminated(report), "the report of a failure ends");
            break;
        }
        requireSoundEntry(*in, report);
        all.push_back(entryOf(*in));
        require(all.size() <= bytes, "a search comes to its end");
        if (keep && in->satn < maxSatellites)
            ShiftElm(in, in->satn++, workSlot);
    }
    return all;
}

std::vector<Found> everything(WinpData* in, const std::string& fileName, bool keep = false)
{
    const FilePtr file = openElementFile(fileName.c_str());
    require(static_cast<bool>(file), "a file that is there opens");
    assignField(in->cfgname[workSlot], "*");
    return search(in, file.get(), fuzz::readFile(fileName).size() + 1, keep);
}

/// Of a text that begins like this, or is empty.
bool beginsLike(const std::string& text, const std::string& begin)
{
    return begin.empty() || Strncmpi(text.c_str(), begin.c_str(), static_cast<int>(begin.size())) == 0;
}

void requireMatches(const std::string& fileName, std::size_t bytes, const Found& wanted, bool plainLines)
{
    const FilePtr file = openElementFile(fileName.c_str());
    WinpData in = freshRecord();
    const auto found = [&](int mode, const std::string& text) {
        in.srcmd = mode;
        assignField(in.cfgname[workSlot], text);
        return search(&in, file.get(), bytes);
    };
    in.norad[workSlot] = wanted.number;
    const std::vector<Found> numbers = found(byNumber, "?");
    require(!plainLines || !numbers.empty(), "what the walk found is found by its number");
    for (const Found& one : numbers)
        require(one.number == wanted.number, "a search by number finds that number");
    if (wanted.name.starts_with('*') || wanted.designator.starts_with('*'))
        return;
    for (const Found& one : found(byName, wanted.name))
        require(beginsLike(one.name, wanted.name), "a search by name finds names that begin so");
    for (const Found& one : found(byDesignator, wanted.designator))
        require(beginsLike(one.designator, wanted.designator), "a search by designator finds those that begin so");
}

void requireFiltered(const std::string& fileName)
{
    constexpr double lowOrbitRevPerDay = 16.088, oldestDays = 7.0;
    WinpData in = freshRecord();
    in.lowflg = 1;
    in.recflg = 1;
    for (const Found& found : everything(&in, fileName))
        require(found.figures[0] >= lowOrbitRevPerDay && startMjd - found.epoch <= oldestDays, "the filter holds");
    in = freshRecord();
    setFields(in, "adjflg=1 adjtim=12.5 adjn0=14.25 adjra=-7.5");
    for (const Found& found : everything(&in, fileName))
        require(found.numeric || (found.figures[0] == in.adjn0 && found.model == 0), "the adjustment holds");
}

/// Saves the selection and reads it again.
std::vector<Found> saved(WinpData* in, const char* name)
{
    const std::string path = fuzz::scratchFile(name);
    std::remove(path.c_str());
    assignField(in->tlesave, path);
    in->newtle = 1;
    if (SaveTle(in, true) != 0)
        return {};
    WinpData again = freshRecord();
    std::vector<Found> all = everything(&again, path, true);
    again.sgpsat = noSlot;
    *in = again;
    return all;
}

/// Figures with as many digits as they need come back the same.
void requireSameFromMessages(WinpData selection, const std::vector<Found>& all)
{
    constexpr double firstDay = -678577.0, lastDay = 2973483.0;  // of the years 1 and 9999
    constexpr double microsecondDays = 1.0 / 86400e6;
    std::vector<Found> expected;
    for (std::size_t i = 0; i < std::min<std::size_t>(all.size(), maxSatellites); ++i)
        if (!all[i].numeric && all[i].figures[1] >= 0 && all[i].number >= 0)
            expected.push_back(all[i]);
        else if (!all[i].numeric)
            return;  // no message can say so, and is refused
    const std::vector<Found> again = saved(&selection, "again.csv");
    require(again.size() == expected.size(), "each message is read again");
    for (std::size_t i = 0; i < again.size(); ++i) {
        require(again[i].number == expected[i].number && again[i].model == expected[i].model,
                "number and model come back from a message");
        require(again[i].figures == expected[i].figures && sameExponents(again[i], expected[i]),
                "all figures come back from a message");
        if (expected[i].epoch >= firstDay && expected[i].epoch < lastDay)
            require(std::abs(again[i].epoch - expected[i].epoch) <=
                        microsecondDays + 1e-9 * microsecondDays + std::abs(expected[i].epoch) * 4e-16,
                    "the epoch comes back to the microsecond");
    }
}

/// Without the columns of the two exponents, which are cut off and not rounded, and the sum of the line.
std::string comparable(std::string text)
{
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        if (text[begin] == '1' && end - begin == 69 && text.compare(begin + 39, 5, "+++++") != 0)
            text.replace(begin + 44, 25, 25, '.');
        if (text[begin] == '2' && end - begin == 69)
            text[begin + 68] = '.';
        begin = end + 1;
    }
    return text;
}

/// What the columns cannot hold is cut to size when it is saved first; from then on nothing changes.
void requireSettledLines(WinpData selection)
{
    const std::vector<Found> first = saved(&selection, "once.txt");
    saved(&selection, "twice.txt");
    saved(&selection, "thrice.txt");
    const std::string twice = fuzz::readFile(fuzz::scratchFile("twice.txt"));
    require(first.empty() || comparable(twice) == comparable(fuzz::readFile(fuzz::scratchFile("thrice.txt"))),
            "lines that are read and saved again are the same");
}

/// Whether each line 1 can only be the start of an entry: no state vectors, whose figures may look like one, and none
/// right behind another, which would take it for its line 2.
bool hasPlainLines(const std::string& fileName)
{
    std::string text = fuzz::readFile(fileName);
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    if (text.find("+++statevct1+++") != std::string::npos)
        return false;
    const FilePtr file = openElementFile(fileName.c_str());
    if (entryFollows(file.get()))
        return true;
    char line[80];
    for (bool behindOne = false; std::fgets(line, sizeof line, file.get());) {
        if (line[0] == '1' && behindOne)
            return false;
        behindOne = line[0] == '1';
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::string name = fuzz::scratchFile("elements.txt");
    fuzz::writeFile(name, text);
    WinpData in = freshRecord();
    for (int slot = 0; slot < slotCount; ++slot)
        in.fsname[slot][0] = in.ldsn[slot][0] = '\0';
    const std::vector<Found> all = everything(&in, name);
    requireNeighboursUntouched(in);
    in = freshRecord();
    everything(&in, name, true);
    for (const std::size_t i : {std::size_t{0}, all.size() / 2})
        if (i < all.size())
            requireMatches(name, size + 1, all[i], hasPlainLines(name));
    requireFiltered(name);
    if (!all.empty()) {
        requireSameFromMessages(in, all);
        requireSettledLines(in);
    }
    return 0;
}
