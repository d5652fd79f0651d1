#include "elements/reader.h"

#include "elements/catalogue_number.h"
#include "elements/entry_lines.h"
#include "elements/entry_stream.h"
#include "record/keep.h"
#include "record/numbers.h"
#include "record/text.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <tuple>

namespace {
constexpr std::size_t nameLength = 20;
constexpr std::string_view noName = "                    ";

enum SearchMode
{
    byName = 0,
    byNumber = 1,
    byDesignator = 2
};

/// Name line of the next match, found ahead of time for the search that goes on.
char nextsat[nameLength + 1] = {};

/// One call of `tleread`.
class Search
{
public:
    Search(WinpData* record, std::FILE* file, char* report) : in(record), fp(file), out(report)
    {
        assignField(wanted, fieldText(in->cfgname[workSlot]));
        length = static_cast<int>(fieldText(wanted).size());
        everything = wanted[0] == '*';
    }

    bool takesEverything() const { return everything; }

    /// The first accepted entry from where the file stands.
    bool find(bool continued)
    {
        if (entryFollows(fp))
            return findEntry(continued);
        char line[entryLineRoom];
        int eof = 0;
        if (continued && in->srcmd == byName && nextEntryLine(fp, line)) {
            assignField(in->fsname[workSlot], fieldText(nextsat));
            if (accepts(line, eof))
                return true;
        }
        while (nextEntryLine(fp, line))
            if (fits(line) && accepts(line, eof))
                return true;
        return false;
    }

    bool moreFollow() const
    {
        if (everything)
            return anotherLine();
        return in->srcmd == byName && (entryFollows(fp) ? anotherEntry() : findNextName());
    }

    void reportFailure() const
    {
        TextWriter text(out, entryTextRoom);
        if (in->srcmd == byNumber)
            text.addFormatted("\n+++ No match found for NORAD# %i +++", in->norad[workSlot]);
        else
            text.add("\n+++ No match found for ").add(fieldText(wanted)).add(" +++");
        if (!refusal.empty())
            text.add("\n\n").add(refusal);
    }

private:
    bool accepts(char* line, int& eof) { return gettle(in, fp, line, out, eof) != 0; }

    /// The first accepted one of a stream of entries; by name, one that was found ahead is the first.
    bool findEntry(bool continued)
    {
        Entry entry;
        for (bool ahead = continued && in->srcmd == byName; readEntry(fp, entry); ahead = false) {
            takeName(in, entry);
            if (!ahead && !fitsEntry(entry))
                continue;
            if (takeEntry(in, entry, out))
                return true;
            if (refusal.empty())
                refusal = out;
        }
        return false;
    }

    bool fitsEntry(const Entry& entry) const
    {
        if (in->srcmd == byNumber)
            return everything || entry.number == in->norad[workSlot];
        return in->srcmd == byName ? namedAs(entry) : fitsDesignator(fieldText(entry.designator));
    }

    bool namedAs(const Entry& entry) const { return Strncmpi(wanted, entry.name, length) == 0; }

    /// Whether one of that name follows; the stream stands before it then.
    bool anotherEntry() const
    {
        Entry entry;
        for (long at = std::ftell(fp); readEntry(fp, entry); at = std::ftell(fp))
            if (namedAs(entry))
                return std::fseek(fp, at, SEEK_SET) == 0;
        return false;
    }

    bool fits(const char* line) const
    {
        const std::string_view text(line);
        if (!isElementLine(text))
            return fitsName(line);
        if (line[0] == '2' || in->srcmd == byName)
            return false;
        if (in->srcmd == byNumber)
            return everything || catalogueNumber(entryColumns(text, 3, 7)) == in->norad[workSlot];
        return fitsDesignator(entryColumns(text, 10, 17));
    }

    /// A name is kept for the element lines behind it, whichever the mode.
    bool fitsName(const char* line) const
    {
        if (in->srcmd == byName && Strncmpi(wanted, line, length) != 0)
            return false;
        assignField(in->fsname[workSlot], std::string_view(line).substr(0, nameLength));
        return in->srcmd == byName;
    }

    /// @param raw  YYNNNAAA
    bool fitsDesignator(std::string_view raw) const
    {
        assignField(in->ldraw, raw);
        convldsn(in, true);
        return Strncmpi(wanted, in->ldfull, length) == 0;
    }

    bool findNextName() const
    {
        char line[entryLineRoom];
        while (nextEntryLine(fp, line)) {
            if (Strncmpi(wanted, line, length) != 0)
                continue;
            assignField(nextsat, std::string_view(line).substr(0, nameLength));
            return true;
        }
        return false;
    }

    bool anotherLine() const
    {
        const int c = std::getc(fp);
        return c != EOF && std::ungetc(c, fp) != EOF;
    }

    WinpData* in;
    std::FILE* fp;
    char* out;
    char wanted[nameLength + 1] = {};
    int length = 0;
    bool everything = false;
    std::string refusal;  // report of the first one
};
/// What the adjustment dialog shows: `sdp4`, `adjflg`, `adjtim`, `adjn0`, `adjra`, `wgs`.
auto adjustmentFields(auto& in)
{
    return std::tie(in.sdp4, in.adjflg, in.adjtim, in.adjn0, in.adjra, in.wgs);
}

void putAdjustment(const std::tuple<bool, bool, double, double, double, int>& values, WinpData& in)
{
    adjustmentFields(in) = values;
    in.sgpsat = noSlot;
}
}  // namespace

int tleread(WinpData* in, std::FILE* fp, char* out, int more)
{
    Search search(in, fp, out);
    const Keep mode(in->srcmd);
    if (search.takesEverything())
        in->srcmd = byNumber;
    assignField(in->fsname[workSlot], noName);
    in->sgpsat = noSlot;
    if (!search.find(more != 0)) {
        search.reportFailure();
        return 0;
    }
    return search.moreFollow() ? 2 : 1;
}

int gettle(WinpData* in, std::FILE* fp, char* line, char* out, int& eof)
{
    const Entry entry = readEntryLines(fp, line);
    if (std::feof(fp))
        eof = 1;
    return takeEntry(in, entry, out) ? 1 : 0;
}

void vsGetAdj(bool& sdp4, bool& adjflg, double& adjtim, double& adjn0, double& adjra, int& wgs)
{
    std::tie(sdp4, adjflg, adjtim, adjn0, adjra, wgs) = adjustmentFields(*indata);
}

void vsPutAdj(bool sdp4, bool adjflg, double adjtim, double adjn0, double adjra, int wgs)
{
    putAdjustment({sdp4, adjflg, adjtim, adjn0, adjra, wgs}, *indata);
}
