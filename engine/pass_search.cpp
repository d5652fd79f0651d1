#include "engine/pass_search.h"

#include "app/record/winp_data.h"
#include "astro/angles.h"
#include "engine/flares.h"
#include "engine/position.h"
#include "engine/satpos_data.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double halfMinuteDays = 0.00034722222222222224;
constexpr double oneSecondDays = 1.157407407e-5;
constexpr double coarseStepDays = 0.0069;  // the satellite is far below the horizon
constexpr double sunStepDays = 0.0416667;  // the Sun is far above its limit
constexpr double farBelowHorizonDeg = -25.0;
constexpr double sunFarAboveDeg = 15.0;  // above the limit of the Sun
constexpr double horizonRadiusKm = 6378.137;
constexpr int bisectionRounds = 6;
constexpr int secondsPerMinute = 60;

double horizonAngle(double heightKm)
{
    return heightKm > 0.0 ? std::acos(horizonRadiusKm / (horizonRadiusKm + heightKm)) : 0.0;
}

/// The prime satellite's point stands in lat, lng, hgt; the second one's in ra, dec, sunel.
bool seeEachOther(const SatPosData& sp, int isat)
{
    const double lat1 = radPerDeg * sp.lat[isat];
    const double lat2 = radPerDeg * sp.ra[isat];
    const double lngDifference = radPerDeg * (sp.lng[isat] - sp.dec[isat]);
    const double cosDistance =
        std::sin(lat1) * std::sin(lat2) + std::cos(lat1) * std::cos(lat2) * std::cos(lngDifference);
    return cosDistance > std::cos(horizonAngle(sp.hgt[isat]) + horizonAngle(sp.sunel[isat]));
}

bool relativeConditions(const WinpData& in, const SatPosData& sp, int isat)
{
    return seeEachOther(sp, isat) && (in.visflg == 0 || (sp.sunel1 >= 0.0 && sp.sunel2 >= 0.0));
}

bool observerConditions(const WinpData& in, const SatPosData& sp, int isat)
{
    if (!(sp.el[isat] >= in.satel) || !(sp.osunel < in.sunel))
        return false;
    if (in.visflg == 0)
        return true;
    if (in.moonflg == 0)
        return sp.sunel[isat] >= 0.0;
    return sp.moonel[isat] >= 0.0 && sp.sunel[isat] < 0.0;
}

/// The three instants of a pass in the arrays of the caller.
struct PassArrays
{
    double* tm;
    double* a;
    double* b;

    void put(int index, double t, double elevation, double azimuth) const
    {
        tm[index] = t;
        a[index] = elevation;
        b[index] = azimuth;
    }
    void copy(int to, int from) const { put(to, tm[from], a[from], b[from]); }
};

/// A walk through time, forward or backward. What is "later" or "beyond" below is so in the sense of the walk.
class Walk
{
public:
    Walk(WinpData* record, int slot, double sense, const PassArrays& arrays)
        : in(record), isat(slot), sign(sense), relative(relativeMode(*record)), pass(arrays)
    {}

    bool findPass(double t, double limit);
    void bisectEnd(int index, bool wanted);
    void scanEnd(int index, bool wanted);
    bool maximumOutside() const;
    void refineMaximum();

    bool beyond(double t, double limit) const { return sign * t > sign * limit; }
    bool sawGroundPoint() const { return groundPoint; }

private:
    bool look(double t);
    double elevation(double t);
    double step() const;
    void putEnd(int index, double t) const;
    void noteInside();
    void scanMaximum(double from, double to);

    WinpData* in;
    int isat;
    double sign;  // 1 forward, -1 backward
    bool relative;
    PassArrays pass;
    bool groundPoint = false;  // seen at an instant inside the pass
};

bool Walk::look(double t)
{
    GetSatPos(t, in, satpos, isat, 0);
    return cksatok(in, satpos, isat) != 0;
}

double Walk::elevation(double t)
{
    GetSatPos(t, in, satpos, isat, 0);
    return satpos->el[isat];
}

/// By the state at the instant looked at last.
double Walk::step() const
{
    if (relative || in->satel < 0.0)
        return oneMinuteDays;
    if (sign > 0.0 && satpos->osunel - sunFarAboveDeg > in->sunel)
        return sunStepDays;
    return satpos->el[isat] < farBelowHorizonDeg ? coarseStepDays : oneMinuteDays;
}

void Walk::putEnd(int index, double t) const
{
    if (relative)
        pass.put(index, t, satpos->lat[isat], satpos->lng[isat]);
    else
        pass.put(index, t, satpos->el[isat], satpos->az[isat]);
}

void Walk::noteInside()
{
    groundPoint = groundPoint || satpos->occlat[isat] < noGroundPoint;
}

/// Fills index 0 with the first instant in steps at which the conditions hold, index 1 with the highest, index 2 with
/// the first one after them, or with the limit.
bool Walk::findPass(double t, double limit)
{
    bool inside = false;
    while (!beyond(t, limit)) {
        const bool holds = look(t);
        if (inside && !holds) {
            putEnd(2, t);
            return true;
        }
        if (holds) {
            noteInside();
            if (!inside)
                putEnd(0, t);
            if (!inside || satpos->el[isat] > pass.a[1])
                pass.put(1, t, satpos->el[isat], satpos->az[isat]);
            inside = true;
        }
        const double next = t + sign * step();
        if (!beyond(next, t))  // a time too far off for steps of a minute, or no number
            break;
        t = next;
    }
    if (inside)
        putEnd(2, limit);
    return inside;
}

/// Moves an end back by bisection, starting one step after the change, to where `wanted` still is the outcome.
void Walk::bisectEnd(int index, bool wanted)
{
    double h = halfMinuteDays;
    double trial = pass.tm[index] - h;
    for (int round = 0; round < bisectionRounds; ++round) {
        const bool holds = look(trial);
        if (holds)
            noteInside();
        if (holds == wanted)
            putEnd(index, trial);
        h /= 2.0;
        trial += holds == wanted ? -h : h;
    }
}

/// For the backward walk: from one minute later (in time) downward to the first second with the wanted outcome.
void Walk::scanEnd(int index, bool wanted)
{
    double trial = pass.tm[index] + oneMinuteDays;
    for (int second = 0; second < secondsPerMinute; ++second, trial -= oneSecondDays) {
        if (look(trial) == wanted) {
            putEnd(index, trial);
            return;
        }
    }
}

/// Brings a maximum that lies outside the refined ends to the end.
bool Walk::maximumOutside() const
{
    if (beyond(pass.tm[1], pass.tm[2])) {
        pass.copy(1, 2);
        return true;
    }
    if (beyond(pass.tm[0], pass.tm[1])) {
        pass.copy(1, 0);
        return true;
    }
    return false;
}

void Walk::refineMaximum()
{
    const double middle = pass.tm[1];
    const double before = elevation(middle - sign * oneSecondDays);
    const double after = elevation(middle + sign * oneSecondDays);
    if (relative || before == after)
        return;
    const double minute = sign * oneMinuteDays;
    if (before > after)
        scanMaximum(beyond(pass.tm[0], middle - minute) ? pass.tm[0] : middle - minute, middle);
    else
        scanMaximum(middle, beyond(middle + minute, pass.tm[2]) ? pass.tm[2] : middle + minute);
}

/// Ends where the elevation falls below the best of the scan, which has none before it improves on the pass.
void Walk::scanMaximum(double from, double to)
{
    double best = -100.0;
    double t = from;
    for (int second = 0; second <= secondsPerMinute && !beyond(t, to); ++second, t += sign * oneSecondDays) {
        const double el = elevation(t);
        if (el > pass.a[1]) {
            pass.put(1, t, el, satpos->az[isat]);
            best = el;
        }
        if (el < best)
            return;
    }
}

/// The first time, in steps of a minute, at which the conditions fail or the limit is passed.
double leavePass(WinpData* in, SatPosData* sp, int isat, double t, double limit, double sign)
{
    while (!(sign * t > sign * limit)) {
        GetSatPos(t, in, sp, isat, 0);
        if (!cksatok(in, sp, isat))
            return t;
        const double next = t + sign * oneMinuteDays;
        if (!(sign * next > sign * t))
            return t;
        t = next;
    }
    return t;
}

}  // namespace

bool relativeMode(const WinpData& in)
{
    return in.rlm != 0 && in.satn > 1 && in.occflg == 0 && in.flarflg == 0;
}

double heldSpan(double days)
{
    return std::isnan(days) ? longestSpanDays : std::clamp(days, -longestSpanDays, longestSpanDays);
}

int cksatok(WinpData* in, SatPosData* sp, int isat)
{
    return relativeMode(*in) ? relativeConditions(*in, *sp, isat) : observerConditions(*in, *sp, isat);
}

double gpassend(WinpData* in, SatPosData* sp, int isat, double t, double tlimit)
{
    return leavePass(in, sp, isat, t, tlimit, 1.0);
}

double gpassbeg(WinpData* in, SatPosData* sp, int isat, double t, double tlimit)
{
    return leavePass(in, sp, isat, t, tlimit, -1.0);
}

int nextpass(WinpData* in, int isat, double t0, double t1, double* tm, double* a, double* b)
{
    if (in->iridflg == event::iridium)
        in->occra = 0.0;
    Walk walk(in, isat, 1.0, {tm, a, b});
    if (!walk.findPass(in->pasjmp ? gpassend(in, satpos, isat, t0, t1) : t0, t1))
        return 0;
    if (tm[0] > t0)
        walk.bisectEnd(0, true);
    if (tm[2] > t0 && tm[2] < t1)
        walk.bisectEnd(2, false);
    if (in->iridflg != event::plain)
        return GetIrid(in, isat, walk.sawGroundPoint(), tm, a, b);
    if (!walk.maximumOutside())
        walk.refineMaximum();
    return 1;
}

int lastpass(WinpData* in, int isat, double t0, double t1, double* tm, double* a, double* b)
{
    Walk walk(in, isat, -1.0, {tm, a, b});
    if (!walk.findPass(in->pasjmp ? gpassbeg(in, satpos, isat, t0, t1) : t0, t1))
        return 0;
    if (tm[0] < t0)
        walk.scanEnd(0, true);
    if (tm[2] > t1 && tm[2] < t0)
        walk.scanEnd(2, false);
    if (!walk.maximumOutside())
        walk.refineMaximum();
    return 1;
}
