#include "engine/pass_search.h"

#include "engine/contact_walk.h"
#include "engine/fast_walk.h"
#include "engine/flares.h"
#include "engine/horizon_line.h"
#include "engine/plain_walk.h"
#include "engine/position.h"
#include "engine/satpos_data.h"
#include "engine/thorough_search.h"
#include "record/progress.h"
#include "record/text.h"
#include "record/vector_registers.h"
#include "record/winp_data.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>
#include <vector>

namespace {

/// The prime satellite's point stands in lat, lng, hgt; the second one's in ra, dec, sunel.
bool seeEachOther(const SatPosData& sp, int isat)
{
    return seeEachOther(Overhead{sp.lat[isat], sp.lng[isat], sp.hgt[isat]},
                        Overhead{sp.ra[isat], sp.dec[isat], sp.sunel[isat]});
}

bool relativeConditions(const WinpData& in, const SatPosData& sp, int isat)
{
    return seeEachOther(sp, isat) && (in.visflg == 0 || (sp.sunel1 >= 0.0 && sp.sunel2 >= 0.0));
}

/// An instant that the position record holds.
struct RecordedInstant
{
    const SatPosData& sp;
    int isat;
    const PassLimits& limits;
    const HorizonLine* line;

    bool highEnough() const { return sp.el[isat] >= limits.satel && (!line || sp.el[isat] >= line->at(sp.az[isat])); }
    bool dark() const { return sp.osunel < limits.sunel; }
    bool sunlit() const { return sp.sunel[isat] >= 0.0; }
    bool moonlit() const { return sp.moonel[isat] >= 0.0; }
};

/// The first time, in steps of a minute, at which the conditions fail or the limit is passed.
double leavePass(const PassQuery& q, double t, double limit, double sign)
{
    while (!(sign * t > sign * limit)) {
        positionAt(t, q);
        if (!conditionsHold(q) || !tellProgress(fieldText(q.in->fsname[q.isat]), t))
            return t;
        const double next = t + sign * oneMinuteDays;
        if (!(sign * next > sign * t))
            return t;
        t = next;
    }
    return t;
}

double searchStart(const PassQuery& q, double t0, double t1, double sign)
{
    return q.in->pasjmp ? leavePass(q, t0, t1, sign) : t0;
}

void refine(auto& walk)
{
    if (!walk.maximumOutside())
        walk.refineMaximum();
    walk.finish();
}

constexpr int passWithoutEvent = 2;

int nextBy(auto&& walk, const PassQuery& q, double start, double t0, double t1, Pass& pass)
{
    if (!walk.findPass(start, t1)) {
        walk.finish();
        return 0;
    }
    if (pass.tm[0] > t0)
        walk.bisectEnd(0, true);
    if (pass.tm[2] > t0 && pass.tm[2] < t1)
        walk.bisectEnd(2, false);
    walk.fill();
    if (q.events != event::plain) {
        if (walk.eventImpossible())
            return passWithoutEvent;
        const int result = findEvent(q, walk.sawGroundPoint(), pass, [&](double t) { walk.findEventPoint(t); });
        walk.finish();
        return result;
    }
    refine(walk);
    return 1;
}

int lastBy(auto&& walk, double start, double t0, double t1, Pass& pass)
{
    if (!walk.findPass(start, t1)) {
        walk.finish();
        return 0;
    }
    if (pass.tm[0] < t0)
        walk.scanEnd(0, true);
    if (pass.tm[2] > t1 && pass.tm[2] < t0)
        walk.scanEnd(2, false);
    walk.fill();
    refine(walk);
    return 1;
}

/// Calls `search` with the fastest walk that serves the query.
template <class Search>
int searchBy(const PassQuery& q, double sense, Pass& pass, Pace pace, Search search)
{
    if (pace == Pace::fast && FastWalk::possible(q))
        return search(FastWalk(q, sense, pass));
    if (pace == Pace::fast && ContactWalk::possible(q))
        return search(ContactWalk(q, sense, pass));
    return search(PlainWalk(q, sense, pass));
}

/// The next pass of a walk that begins at `start`, with the line of the place left out.
int walkForward(const PassQuery& q, double start, double t0, double t1, Pass& pass, Pace pace)
{
    return searchBy(q, 1.0, pass, pace, [&](auto&& walk) { return nextBy(walk, q, start, t0, t1, pass); });
}

int walkBackward(const PassQuery& q, double start, double t0, double t1, Pass& pass, Pace pace)
{
    return searchBy(q, -1.0, pass, pace, [&](auto&& walk) { return lastBy(walk, start, t0, t1, pass); });
}

/// A pass in the other sense of time.
Pass turned(Pass pass)
{
    std::swap(pass.tm[0], pass.tm[2]);
    std::swap(pass.a[0], pass.a[2]);
    std::swap(pass.b[0], pass.b[2]);
    return pass;
}

PassQuery aboveLowest(const PassQuery& q, const HorizonLine& line)
{
    PassQuery lowest = q;
    lowest.limits.satel = std::max(q.limits.satel, line.lowest());
    lowest.limits.horizon = nullptr;
    return lowest;
}

/// Goes from pass to pass above the lowest of the line until one has a part, or an event, above it.
int nextAbove(const HorizonLine& line, const PassQuery& q, double t0, double t1, Pass& pass, Pace pace)
{
    const PassQuery lowest = aboveLowest(q, line);
    double from = t0;
    double start = searchStart(q, t0, t1, 1.0);
    while (from < t1) {
        const int result = walkForward(lowest, start, from, t1, pass, pace);
        if (result == 0)
            return 0;
        if (q.events != event::plain)
            return result == 1 && pass.a[1] < line.at(pass.b[1]) ? passWithoutEvent : result;
        if (const std::vector<Pass> parts = partsAboveLine(q, pass); !parts.empty()) {
            pass = parts.front();
            return 1;
        }
        from = start = std::max(pass.tm[2], start + oneMinuteDays);
    }
    return 0;
}

int lastAbove(const HorizonLine& line, const PassQuery& q, double t0, double t1, Pass& pass, Pace pace)
{
    const PassQuery lowest = aboveLowest(q, line);
    double from = t0;
    double start = searchStart(q, t0, t1, -1.0);
    while (from > t1) {
        if (walkBackward(lowest, start, from, t1, pass, pace) == 0)
            return 0;
        if (const std::vector<Pass> parts = partsAboveLine(q, turned(pass)); !parts.empty()) {
            pass = turned(parts.back());
            return 1;
        }
        from = start = std::min(pass.tm[2], start - oneMinuteDays);
    }
    return 0;
}

Pass passIn(const double* tm, const double* a, const double* b)
{
    return {{tm[0], tm[1], tm[2]}, {a[0], a[1], a[2]}, {b[0], b[1], b[2]}};
}

void copyOut(const Pass& pass, double* tm, double* a, double* b)
{
    std::copy(std::begin(pass.tm), std::end(pass.tm), tm);
    std::copy(std::begin(pass.a), std::end(pass.a), a);
    std::copy(std::begin(pass.b), std::end(pass.b), b);
}

}  // namespace

bool relativeMode(const WinpData& in)
{
    return in.rlm != 0 && in.satn > 1 && in.occflg == 0 && in.flarflg == 0;
}

int secondSatellite(const WinpData& in)
{
    return in.prs + 1 < in.satn ? in.prs + 1 : 0;
}

double clampedSpan(double days)
{
    return std::isnan(days) ? longestSpanDays : std::clamp(days, -longestSpanDays, longestSpanDays);
}

PassLimits limitsOf(const WinpData& in)
{
    return {in.satel, in.sunel, in.maxdst, nullptr};
}

bool thoroughSearch(const PassQuery& q)
{
    return q.thorough && q.events == event::plain && !relativeSearch(q);
}

const HorizonLine* lineOf(const PassQuery& q)
{
    const HorizonLine* line = q.limits.horizon;
    return line && line->highest() > q.limits.satel && !relativeSearch(q) ? line : nullptr;
}

bool relativeSearch(const PassQuery& q)
{
    return !q.absolute && relativeMode(*q.in);
}

View viewOf(const PassQuery& q)
{
    View view = viewOf(*q.in);
    view.events = q.events;
    return view;
}

void positionAt(double mjd, const PassQuery& q)
{
    const View view = viewOf(q);
    if (relativeSearch(q))
        relativePosition(view, mjd, q.in, q.sp, q.isat);
    else
        positionIn(view, mjd, q.in, q.sp, q.isat);
}

bool conditionsHold(const PassQuery& q)
{
    return relativeSearch(q) ? relativeConditions(*q.in, *q.sp, q.isat)
                             : observerConditions(*q.in, RecordedInstant{*q.sp, q.isat, q.limits, lineOf(q)});
}

int findNextPass(const PassQuery& q, double t0, double t1, Pass& pass, Pace pace)
{
    releaseVectorRegisters();
    if (thoroughSearch(q))
        return findNextInterval(q, t0, t1, pass);
    if (q.events == event::iridium)
        q.in->occra = 0.0;
    if (const HorizonLine* line = lineOf(q))
        return nextAbove(*line, q, t0, t1, pass, pace);
    return walkForward(q, searchStart(q, t0, t1, 1.0), t0, t1, pass, pace);
}

int findLastPass(const PassQuery& q, double t0, double t1, Pass& pass, Pace pace)
{
    releaseVectorRegisters();
    if (const HorizonLine* line = lineOf(q))
        return lastAbove(*line, q, t0, t1, pass, pace);
    return walkBackward(q, searchStart(q, t0, t1, -1.0), t0, t1, pass, pace);
}

int cksatok(WinpData* in, SatPosData* sp, int isat)
{
    return conditionsHold({in, sp, isat});
}

double gpassend(WinpData* in, SatPosData* sp, int isat, double t, double tlimit)
{
    return leavePass({in, sp, isat}, t, tlimit, 1.0);
}

double gpassbeg(WinpData* in, SatPosData* sp, int isat, double t, double tlimit)
{
    return leavePass({in, sp, isat}, t, tlimit, -1.0);
}

int nextpass(WinpData* in, int isat, double t0, double t1, double* tm, double* a, double* b)
{
    Pass pass = passIn(tm, a, b);
    const int result = findNextPass({in, satpos, isat}, t0, t1, pass);
    copyOut(pass, tm, a, b);
    return result;
}

int lastpass(WinpData* in, int isat, double t0, double t1, double* tm, double* a, double* b)
{
    Pass pass = passIn(tm, a, b);
    const int result = findLastPass({in, satpos, isat}, t0, t1, pass);
    copyOut(pass, tm, a, b);
    return result;
}
