#include "engine/aos_list.h"

#include "engine/pass_search.h"
#include "engine/report_lines.h"
#include "engine/satpos_data.h"
#include "engine/sun_moon_transit.h"
#include "record/clock.h"
#include "record/files.h"
#include "record/numbers.h"
#include "record/progress.h"
#include "record/text.h"
#include "record/winp_data.h"
#include "record/wout_data.h"

#include <iterator>
#include <string>

namespace {

constexpr double oneHourDays = 0.041666666666666664;
constexpr double fastRevPerDay = 14.0;
constexpr int hitResult = 1;  // of nextpass: a pass or an event
constexpr int linesPerGroup = 10;
constexpr int stampRoom = 77;
constexpr int transitTextRoom = 64;

void addStamp(TextWriter& line, const WinpData& in, const Pass& pass, int k, int timeOnly)
{
    char stamp[stampRoom] = {};
    aosstr(pass.tm[k] + in.tzone / 24.0, pass.b[k], pass.a[k], stamp, timeOnly);
    line.add(fieldText(stamp));
}

void putFormatted(WoutData* out, const TextWriter& line)
{
    PutNxtLn(out, std::string(line.text()).c_str());
}

void putPlace(WoutData* out, const WinpData& in)
{
    char text[128];
    putFormatted(out, TextWriter(text).add(" Geographic Location: ").add(fieldText(in.geoname)));
    putFormatted(out, TextWriter(text).addFormatted(" Lat.: %g   Long.: %g   Height: %g", in.lat, in.lng, in.height));
    PutSpace(out);
}

void putEventKind(WoutData* out, const WinpData& in)
{
    char text[128];
    TextWriter line(text);
    if (in.iridflg == event::transit && in.occflg == 1)
        line.add(" >>> Sun Transit");
    else if (in.iridflg == event::transit && in.occflg == 2)
        line.add(" >>> Moon Transit");
    else if (in.iridflg == event::transit && in.occflg == 3)
        line.addFormatted(" >>> Occultation  R.A.: %g  Decl.: %g", in.occra, in.occdec);
    else if (in.iridflg == event::flare)
        line.addFormatted(in.flarmod == 1 ? " >>> Flares. Yaw: %g  Pitch: %g" : " >>> Flares. R.A.: %g  Decl.: %g",
                          in.occra, in.occdec);
    else
        return;
    putFormatted(out, line);
}

void putSatellites(WoutData* out, const WinpData& in)
{
    char text[128];
    putFormatted(out, TextWriter(text).add(" Satellite: ").add(fieldText(in.fsname[in.prs])));
    if (relativeMode(in))
        putFormatted(out, TextWriter(text).add(" ").add(fieldText(in.fsname[secondSatellite(in)])));
    putFormatted(out, TextWriter(text).add(" ").add(std::string(71, '=')));
}

void putConditions(WoutData* out, const WinpData& in, const PassLimits& limits)
{
    char text[128];
    TextWriter line(text);
    if (relativeMode(in))
        line.add(" ");
    else
        line.addFormatted(" min.Sat.Elev.: %g   max.Sun Elev.: %g", limits.satel, limits.sunel);
    if (in.visflg)
        line.add(in.moonflg ? "   Moonshine passes only" : "   visible passes only");
    putFormatted(out, line);
    putFormatted(out, TextWriter(text).addFormatted(" Year: %4i  +++ Timezone: %g +++", in.year, in.tzone));
    if (TextWriter note(text); addSpanNote(note, in))
        putFormatted(out, note);
    if (limits.horizon && !relativeMode(in))
        putLines(out, {" Above the horizon line of the place"});
    PutSpace(out);
}

void putHeading(WoutData* out, const WinpData& in, const PassLimits& limits)
{
    putPlace(out, in);
    putEventKind(out, in);
    putSatellites(out, in);
    putConditions(out, in, limits);
    if (relativeMode(in))
        PutNxtLnT(out, "       Start (Long.,Lat.)     End (Long.,Lat.)");
    else if (in.iridflg > event::plain)
        PutNxtLnT(out, "     Event Time (Azim.,Elev.)   Distance");
    else
        PutNxtLnT(out, "    Start (Azim.,Elev.)    Maximum (Azim.,Elev.)  End (Azim.,Elev.)");
}

/// The line of an event; false if the automatic width drops it.
bool addEvent(TextWriter& line, WinpData* in, const Pass& pass, bool automatic)
{
    addEventStamp(line, *in, pass);
    line.addFormatted(" %8.1lf km", pass.b[2]);
    if (!transitsOfDisk(*in))
        return true;
    int result = hitResult;
    char width[transitTextRoom] = {};
    SunMoonTr(in, pass.tm[1], in->prs, pass.b[2], automatic, result, width);
    line.add(fieldText(width));
    return result == hitResult;
}

void putSelectable(WinpData* in, WoutData* out, const TextWriter& line, double passStart)
{
    if (in->naos % linesPerGroup == 0)
        PutSpace(out);
    PutNxtLnT(out, std::string(line.text()).c_str());
    if (in->naos < static_cast<int>(std::size(in->aostm)))
        in->aostm[in->naos++] = passStart;
}

void putPasses(WoutData* out, const PassQuery& query, bool automatic)
{
    WinpData* in = query.in;
    const double end = startMjd(in) + clampedSpan(in->dur);
    double t = startMjd(in);
    Pass pass;
    while (t <= end) {
        const int result = findNextPass(query, t, end, pass);
        if (result == 0 || !tellProgress(fieldText(in->fsname[in->prs]), pass.tm[2]))
            return;
        char text[192];
        TextWriter line(text);
        line.add(".");
        bool listed = result == hitResult;
        if (in->iridflg == event::plain)
            addPassStamps(line, *in, pass, relativeMode(*in));
        else if (listed)
            listed = addEvent(line, in, pass, automatic);
        if (listed)
            putSelectable(in, out, line, pass.tm[0]);
        const double next = timeAfterPass(query, pass);
        if (!(next > t))  // a time too far off for steps of a minute
            return;
        t = next;
    }
}

/// False for a refusal, which is a text in `out` but no list.
bool composeList(WinpData* in, WoutData* out, const SearchStyle& style)
{
    const bool automatic = automaticWidth(*in);
    PassLimits limits = listLimits(*in);
    limits.horizon = style.horizon;
    if (in->iridflg > event::plain && limits.maxdst == 0.0) {
        putLines(out, {"", " *** Need distance > 0 for occultations or flares ***",
                       " *** except for Sun or Moon Transits ***", ""});
        return false;
    }
    putHeading(out, *in, limits);
    putPasses(out, {in, satpos, in->prs, limits, in->iridflg, false, style.thorough}, automatic);
    if (in->naos < 1)
        putLines(out, {"", " *** No suitable pass found within time interval ***", ""});
    return true;
}

std::string writeList(WinpData* in, const WoutData& out)
{
    const ReportFile file(in->savename, takeSaveMode(in));
    std::fputs("\n\n\n", outptr);
    for (int line = 0; line < out.nlines; ++line) {
        const std::string text(lineText(out, line));
        std::fputs((text + "\n").c_str(), outptr);
    }
    return file.save();
}

}  // namespace

double timeAfterPass(const WinpData& in, int isat, const Pass& pass)
{
    return in.rlm == 0 ? timeAfterPass(in.n0[isat], pass) : pass.tm[2] + oneMinuteDays;
}

double timeAfterPass(const PassQuery& q, const Pass& pass)
{
    if (thoroughSearch(q) || (q.events == event::plain && lineOf(q)))
        return pass.tm[2];
    return q.absolute ? timeAfterPass(q.in->n0[q.isat], pass) : timeAfterPass(*q.in, q.isat, pass);
}

double timeAfterPass(double revPerDay, const Pass& pass)
{
    const double next = pass.tm[2] + oneMinuteDays;
    return revPerDay > fastRevPerDay ? next + oneHourDays : next;
}

void addPassStamps(TextWriter& line, const WinpData& in, const Pass& pass, bool relative)
{
    for (int k = 0; k < 3; ++k)
        if (k != 1 || !relative)
            addStamp(line, in, pass, k, k);
}

void addEventStamp(TextWriter& line, const WinpData& in, const Pass& pass)
{
    addStamp(line, in, pass, 1, 0);
}

bool chooseEventKind(WinpData* in)
{
    if (in->occflg)
        in->iridflg = event::transit;
    if (in->flarflg && in->flarmod > 0)
        in->iridflg = event::flare;
    return in->iridflg > event::plain;
}

bool transitsOfDisk(const WinpData& in)
{
    return in.iridflg == event::transit && (in.occflg == 1 || in.occflg == 2);
}

bool automaticWidth(const WinpData& in)
{
    return transitsOfDisk(in) && in.maxdst <= 0.0;
}

PassLimits sunAtAnyHeight(const WinpData& in)
{
    PassLimits limits = limitsOf(in);
    if (in.occflg == 1)
        limits.sunel = anySunElevationDeg;
    return limits;
}

PassLimits listLimits(const WinpData& in)
{
    constexpr double automaticWidthKm = 35.0;
    PassLimits limits = in.iridflg == event::transit ? sunAtAnyHeight(in) : limitsOf(in);
    if (automaticWidth(in))
        limits.maxdst = automaticWidthKm;
    return limits;
}

std::string aospass(WinpData* in, WoutData* out, const SearchStyle& style)
{
    in->naos = 0;
    out->nlines = 0;
    if (in->satn < 1) {
        putLines(out, {"", " *** No satellite has been selected ***", "", " Use the Input / Select Satellite menu",
                       " (and don't forget to press the SELECT button)", ""});
        return {};
    }
    const bool listed = composeList(in, out, style) && !calculationEnded();
    return listed && in->tofile == 1 ? writeList(in, *out) : std::string();
}
