#include "scan/entry_lines.h"

#include "engine/aos_list.h"
#include "engine/flares.h"
#include "engine/pass_search.h"
#include "engine/satpos_data.h"
#include "engine/sun_moon_transit.h"
#include "record/clock.h"
#include "record/numbers.h"
#include "record/progress.h"
#include "record/text.h"

namespace {

constexpr int hitResult = 1;  // of nextpass: a pass or an event
constexpr int transitTextRoom = 64;
constexpr int lineRoom = 256;
constexpr bool absolute = true;  // the searches of a file look from the observer alone

struct Band
{
    double lowKm, highKm;
};
constexpr Band operationalMeanKm{7157.0, 7157.6};        // semi-major axes of SGP4 elements
constexpr Band operationalOsculatingKm{7150.0, 7159.9};  // of all others

const char* mirrorName(const WinpData& in)
{
    if (in.irsolp)
        return mirrors[3].name;
    if (in.occra < 0.0)
        return mirrors[1].name;
    return in.occra > 0.0 ? mirrors[2].name : mirrors[0].name;
}

void addIridiumFlare(TextWriter& line, const WinpData& in, const Pass& pass)
{
    line.add("  Iridium Flare  ").add(mirrorName(in)).add(pass.a[0] > pass.a[2] ? "->S" : "->N");
    line.addFormatted("  mag %5.1lf", pass.b[2]);
}

void addDistantEvent(TextWriter& line, const WinpData& in, const Pass& pass)
{
    if (in.iridflg == event::flare && in.flarmod == 1)
        line.addFormatted("  Flare  Y: %g  P: %g", in.occra, in.occdec);
    else if (in.iridflg == event::flare)
        line.addFormatted("  Flare  R.A.: %g  Dec.: %g", in.occra, in.occdec);
    else if (in.occflg == 1)
        line.add("  Sun Transit");
    else if (in.occflg == 2)
        line.add("  Moon Transit");
    else
        line.addFormatted("  Occ. R.A.: %g  Dec.: %g", in.occra, in.occdec);
    line.addFormatted("  dist:%7.1lf km", pass.b[2]);
}

}  // namespace

bool operationalOrbit(const WinpData& in, int isat)
{
    const Band band = in.aflg[isat] ? operationalMeanKm : operationalOsculatingKm;
    return in.a[isat] >= band.lowKm && in.a[isat] <= band.highKm;
}

EntrySearch::EntrySearch(WinpData* in, const PassLimits& searchLimits, bool everyInterval)
    : limits(searchLimits),
      thorough(everyInterval),
      automatic(automaticWidth(*in)),
      hitsJoinSelection(transitsOfDisk(*in) && in->maxdst == 0.0),
      start(startMjd(in)),
      end(start + clampedSpan(in->dur))
{}

bool EntrySearch::entriesIndependent(const WinpData& in)
{
    if (in.iridflg == event::iridium)
        return in.flarflg != 0 && in.flarmod == 1 && in.flaryst == 0 && in.occdec == mirrorPitchDeg;
    return in.flarflg == 0 || in.flarmod > 0;
}

EntryLines EntrySearch::search(WinpData* in, bool recordsRead) const
{
    EntryLines lines;
    in->irsolp = false;
    round(in, recordsRead, lines);
    if (in->iridflg != event::iridium || !in->irsol)
        return lines;
    in->irsolp = true;
    round(in, recordsRead, lines);
    in->irsolp = false;
    return lines;
}

void EntrySearch::round(WinpData* in, bool recordsRead, EntryLines& lines) const
{
    if (in->iridflg == event::iridium && in->ops && !operationalOrbit(*in, in->prs))
        return;
    const PassQuery query{in, satpos, in->prs, limits, in->iridflg, absolute, thorough, recordsRead};
    double t = start;
    Pass pass;
    while (t <= end) {
        const int result = findNextPass(query, t, end, pass);
        if (result == 0 || !tellProgress(fieldText(in->fsname[in->prs]), pass.tm[2]))
            return;
        char text[lineRoom];
        TextWriter line(text);
        bool hit = result == hitResult;
        if (in->iridflg == event::plain)
            addPassStamps(line, *in, pass, !absolute);
        else if (hit)
            hit = addEvent(line, in, pass);
        if (hit)
            addLine(line, *in, lines);
        const double next = timeAfterPass(query, pass);
        if (!(next > t))  // a time too far off for steps of a minute
            return;
        t = next;
    }
}

/// False if the automatic width drops the event.
bool EntrySearch::addEvent(TextWriter& line, WinpData* in, const Pass& pass) const
{
    addEventStamp(line, *in, pass);
    if (in->iridflg == event::iridium)
        addIridiumFlare(line, *in, pass);
    else
        addDistantEvent(line, *in, pass);
    if (!transitsOfDisk(*in))
        return true;
    int result = hitResult;
    char width[transitTextRoom] = {};  // not part of these lines
    SunMoonTr(in, pass.tm[1], in->prs, pass.b[2], automatic, result, width);
    return result == hitResult;
}

void EntrySearch::addLine(TextWriter& line, const WinpData& in, EntryLines& lines) const
{
    const bool doubtful = in.iridflg == event::iridium && !operationalOrbit(in, in.prs);
    line.add(doubtful ? " ? " : "   ").add(fieldText(in.fsname[in.prs])).add("\n");
    if (lines.text.empty())
        lines.text += '\n';
    lines.text += line.text();
    if (hitsJoinSelection && lines.joining.size() < maxSatellites)
        lines.joining.push_back(in);
}
