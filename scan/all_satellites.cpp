#include "scan/all_satellites.h"

#include "elements/element_file.h"
#include "engine/aos_list.h"
#include "engine/pass_search.h"
#include "engine/report_lines.h"
#include "record/files.h"
#include "record/numbers.h"
#include "record/progress.h"
#include "record/slot_copy.h"
#include "record/text.h"
#include "record/winp_data.h"
#include "scan/entries.h"
#include "scan/entry_lines.h"
#include "scan/entry_task.h"
#include "scan/records_before.h"
#include "scan/save_lines.h"
#include "scan/workers.h"

#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr double faintestLimitMag = 29.0;
constexpr int lineRoom = 256;

bool refused(const WinpData& in, const PassLimits& limits)
{
    if (in.iridflg == event::iridium)
        return in.irmag > faintestLimitMag;
    return in.iridflg > event::plain && limits.maxdst == 0.0;
}

std::string headingOf(const WinpData& in, const PassLimits& limits)
{
    char text[4 * lineRoom];
    TextWriter heading(text);
    heading.add("Geographic Location: ").add(fieldText(in.geoname)).add("\n");
    heading.addFormatted(" Lat.: %g   Long.: %g   Height: %g \n\n", in.lat, in.lng, in.height);
    heading.addFormatted(" min.Sat.Elev.: %g   max.Sun Elev.: %g", limits.satel, limits.sunel);
    if (in.visflg)
        heading.add(in.moonflg ? "   Moonshine passes only" : "   visible passes only");
    if (limits.horizon)
        heading.add("   above the horizon line");
    heading.addFormatted("\n Year: %4i  +++ Timezone: %g +++ \n", in.year, in.tzone);
    if (addSpanNote(heading, in))
        heading.add("\n");
    heading.add(std::string(71, '='));
    heading.add(in.iridflg > event::plain
                    ? "\n    Event Time (Azim.,Elev.)\n"
                    : "\n  Start (Azim.,Elev.)    Maximum (Azim.,MaxElev.)     End (Azim.,Elev.)\n");
    return std::string(heading.text());
}

/// The scan of a file: one satellite after the other in the prime slot, whose content is parked meanwhile.
class Scan
{
public:
    Scan(WinpData* record, const PassLimits& limits, bool thorough)
        : in(record), entrySearch(record, limits, thorough), nothingSelected(record->satn < 1)
    {
        if (nothingSelected)
            in->satn = 1;
        ShiftElm(in, parkedSlot, in->prs);
    }
    ~Scan()
    {
        if (nothingSelected)
            in->satn = 0;
        ShiftElm(in, in->prs, parkedSlot);
    }
    Scan(const Scan&) = delete;
    Scan& operator=(const Scan&) = delete;

    /// Appends the lines of all entries to the heading.
    std::string list(std::FILE* elements, std::string heading);

private:
    void oneByOne(Entries& entries);
    void shared(Entries& entries);
    void take(const EntryLines& found);
    void joinSelection(const WinpData& hit);

    WinpData* in;
    EntrySearch entrySearch;
    bool nothingSelected;
    std::string lines;
};

std::string Scan::list(std::FILE* elements, std::string heading)
{
    lines = std::move(heading);
    Entries entries(in, elements);
    if (EntrySearch::entriesIndependent(*in))
        shared(entries);
    else
        oneByOne(entries);
    return std::move(lines);
}

void Scan::oneByOne(Entries& entries)
{
    while (entries.next()) {
        ShiftElm(in, in->prs, workSlot);
        take(entrySearch.search(in));
    }
}

void Scan::shared(Entries& entries)
{
    const auto searchOn = [&](WinpData* own) { return entrySearch.search(own, false); };
    const auto takeOver = [&](const EntryLines& found, const WinpData&) { take(found); };
    shareEntries<EntryLines>(entries, in, in->prs, searchOn, takeOver);
}

void Scan::take(const EntryLines& found)
{
    lines += found.text;
    for (const WinpData& hit : found.joining)
        joinSelection(hit);
}

/// With nothing selected before, the satellite takes the parked place and so becomes the prime one.
void Scan::joinSelection(const WinpData& hit)
{
    if (nothingSelected) {
        copySlot(in, parkedSlot, hit, in->prs);
        nothingSelected = false;
    } else if (in->satn < maxSatellites) {
        copySlot(in, in->satn, hit, in->prs);
        ++in->satn;
    }
}

}  // namespace

int AllSatAos(WinpData* in, std::string* why, const SearchStyle& style)
{
    const LongCalculation calculation;
    const auto before = std::make_unique<RecordsBefore>(*in);
    if (!mayBeWritten(in->savename, why))
        return 1;
    const FilePtr elements = openElementFile(in->tlename);
    if (!elements)
        return 2;
    PassLimits limits = listLimits(*in);
    limits.horizon = style.horizon;
    if (refused(*in, limits))
        return -1;
    std::string list = Scan(in, limits, style.thorough).list(elements.get(), headingOf(*in, limits));
    if (calculationEnded()) {
        before->putBack(in);
        return calculationCancelled;
    }
    if (in->newsave == 0)
        list.insert(0, contentOfFile(in->savename).value_or(std::string()));
    const std::string reason = replaceSorted(in->savename, list);
    if (why)
        *why = reason;
    if (!reason.empty())
        return 1;
    in->newsave = 0;
    return 0;
}
