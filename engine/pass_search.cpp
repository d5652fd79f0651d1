#include "engine/pass_search.h"

#include "astro/angles.h"
#include "engine/flares.h"
#include "engine/lazy_position.h"
#include "engine/pass_bounds.h"
#include "engine/position.h"
#include "engine/satpos_data.h"
#include "record/progress.h"
#include "record/text.h"
#include "record/vector_registers.h"
#include "record/winp_data.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double halfMinuteDays = 0.00034722222222222224;
constexpr double oneSecondDays = 1.157407407e-5;
constexpr double coarseStepDays = 0.0069;  // the satellite is far below the horizon
constexpr double sunStepDays = 0.0416667;  // the Sun is far above its limit
constexpr double lowestElevationDeg = -90.0;
constexpr double noneYetDeg = -100.0;
constexpr double highestSunDeg = 90.001;  // no Sun stands higher, roundings included
constexpr double sunFarAboveDeg = 15.0;   // above the limit of the Sun
constexpr double horizonRadiusKm = 6378.137;
constexpr int bisectionRounds = 6;
constexpr unsigned instantsPerTelling = 64;
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

/// The conditions at an observer, each looked at only if those before it hold.
///
/// @param at  answers highEnough, dark, sunlit and moonlit
template <class Instant>
bool observerConditions(const WinpData& in, Instant&& at)
{
    if (!at.highEnough() || !at.dark())
        return false;
    if (in.visflg == 0)
        return true;
    if (in.moonflg == 0)
        return at.sunlit();
    return at.moonlit() && !at.sunlit();
}

/// An instant that the position record holds.
struct RecordedInstant
{
    const WinpData& in;
    const SatPosData& sp;
    int isat;

    bool highEnough() const { return sp.el[isat] >= in.satel; }
    bool dark() const { return sp.osunel < in.sunel; }
    bool sunlit() const { return sp.sunel[isat] >= 0.0; }
    bool moonlit() const { return sp.moonel[isat] >= 0.0; }
};

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

/// Whether nothing that GetSatPos leaves depends on any instant but the last. An event leaves its mark where it was
/// seen last, and in relative mode the conditions are others.
bool lastInstantCounts(const WinpData& in, int isat)
{
    return in.occflg == 0 && in.flarflg == 0 && !(in.iridflg == event::iridium && isat == in.prs) &&
           !relativeMode(in);
}

/// A walk through time, forward or backward. What is "later" or "beyond" below is so in the sense of the walk.
///
/// It goes from instant to instant as if the whole position were found at each. Where the bounds settle what matters,
/// nothing is found at all; else the position, and Sun and Moon where a condition asks for them. `finish` completes the
/// last instant, so that the records are left as by a GetSatPos at each.
class Walk
{
public:
    Walk(WinpData* record, int slot, double sense, const PassArrays& arrays)
        : in(record),
          isat(slot),
          sign(sense),
          relative(relativeMode(*record)),
          lean(lastInstantCounts(*record, slot)),
          pass(arrays),
          position(record, satpos, slot),
          bounds(*record, slot, sense)
    {}

    bool findPass(double t, double limit);
    void bisectEnd(int index, bool wanted);
    void scanEnd(int index, bool wanted);
    bool maximumOutside() const;
    void refineMaximum();
    void finish();

    bool beyond(double t, double limit) const { return sign * t > sign * limit; }
    bool sawGroundPoint() const { return groundPoint; }

    // The conditions at the instant looked at.
    bool highEnough() const { return satpos->el[isat] >= in->satel; }
    bool dark()
    {
        return !sunAbove(in->sunel, [&] { return !(sunAtObserver() < in->sunel); });
    }
    bool sunlit();
    bool moonlit() { return position.moonAtSatellite() >= 0.0; }

private:
    void goTo(double t);
    bool look(double t);
    double elevation(double t);
    double step();
    void passBy(double t);
    Verdict conditionsAt(double t);
    bool failsAt(double t, double& stepThere);
    bool holdsBelowBest(double t);
    template <class Exactly>
    bool sunAbove(double degrees, Exactly exactly);
    double sunAtObserver();
    void putEnd(int index, double t) const;
    void noteInside();
    void noteHighest(double t, bool inside);
    void scanMaximum(double from, double to);

    WinpData* in;
    int isat;
    double sign;  // 1 forward, -1 backward
    bool relative;
    bool lean;  // only what is asked for is found, and bounds may settle it
    PassArrays pass;
    bool groundPoint = false;  // seen at an instant inside the pass
    LazyPosition position;
    PassBounds bounds;
    double now = 0;        // the instant where the walk is
    bool found = true;     // the position there has been found
    bool complete = true;  // and everything else
};

void Walk::goTo(double t)
{
    now = t;
    found = true;
    complete = !lean;
    if (!lean) {
        GetSatPos(t, in, satpos, isat, 0);
        return;
    }
    position.look(t);
    bounds.anchor(position.scene());
}

/// Goes to an instant of which nothing has to be known.
void Walk::passBy(double t)
{
    now = t;
    found = complete = false;
}

bool Walk::look(double t)
{
    goTo(t);
    return lean ? observerConditions(*in, *this) : cksatok(in, satpos, isat) != 0;
}

double Walk::elevation(double t)
{
    goTo(t);
    return satpos->el[isat];
}

void Walk::finish()
{
    if (!found)
        goTo(now);
    if (!complete)
        position.complete();
    complete = true;
}

double Walk::sunAtObserver()
{
    if (!lean)
        return satpos->osunel;
    const double el = position.sunAtObserver();
    bounds.anchorSun(position.scene());
    return el;
}

/// @param exactly  tells what the Sun's place itself says
template <class Exactly>
bool Walk::sunAbove(double degrees, Exactly exactly)
{
    if (degrees > highestSunDeg)
        return false;
    const Verdict settled = lean ? bounds.sunAbove(degrees, now) : Verdict::open;
    return settled == Verdict::open ? exactly() : settled == Verdict::yes;
}

bool Walk::sunlit()
{
    const Verdict settled = bounds.sunlit(now);
    if (settled != Verdict::open)
        return settled == Verdict::yes;
    const double el = position.sunAtSatellite();
    bounds.anchorSun(position.scene());
    return el >= 0.0;
}

/// By the state at the instant looked at last.
double Walk::step()
{
    if (relative || in->satel < 0.0)
        return oneMinuteDays;
    const auto sunFarAbove = [&] { return sunAtObserver() - sunFarAboveDeg > in->sunel; };
    if (sign > 0.0 && sunAbove(in->sunel + sunFarAboveDeg, sunFarAbove))
        return sunStepDays;
    return satpos->el[isat] < farBelowHorizonDeg ? coarseStepDays : oneMinuteDays;
}

/// What the bounds settle of the conditions, the cheaper ones first.
Verdict Walk::conditionsAt(double t)
{
    if (!lean)
        return Verdict::open;
    const Verdict tooHigh = in->sunel > highestSunDeg ? Verdict::no : bounds.sunAbove(in->sunel, t);
    if (tooHigh == Verdict::yes)
        return Verdict::no;
    const Verdict high = bounds.highEnough(t);
    if (high == Verdict::no || in->visflg == 0)
        return high == Verdict::yes && tooHigh == Verdict::open ? Verdict::open : high;
    const Verdict lit = bounds.sunlit(t);
    if (lit == (in->moonflg ? Verdict::yes : Verdict::no))
        return Verdict::no;
    const bool holds = !in->moonflg && lit == Verdict::yes && high == Verdict::yes && tooHigh == Verdict::no;
    return holds ? Verdict::yes : Verdict::open;
}

/// Whether the bounds settle that the conditions fail at an instant outside of passes, and the step from there.
bool Walk::failsAt(double t, double& stepThere)
{
    const bool stepsVary = !(in->satel < 0.0);
    if (lean && stepsVary && sign > 0.0 && !(in->sunel > highestSunDeg)) {
        const Verdict farAbove = bounds.sunAbove(in->sunel + sunFarAboveDeg, t);
        stepThere = sunStepDays;
        if (farAbove != Verdict::no)
            return farAbove == Verdict::yes;
    }
    if (conditionsAt(t) != Verdict::no)
        return false;
    const Verdict farBelow = stepsVary ? bounds.farBelow(t) : Verdict::no;
    stepThere = farBelow == Verdict::yes ? coarseStepDays : oneMinuteDays;
    return farBelow != Verdict::open;
}

/// Whether the bounds settle that the pass goes on at an instant, and that it is not the highest so far.
bool Walk::holdsBelowBest(double t)
{
    return lean && bounds.notAboveBest(t) == Verdict::yes && conditionsAt(t) == Verdict::yes;
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
    unsigned instants = 0;
    while (!beyond(t, limit)) {
        double stepThere = oneMinuteDays;
        if (inside ? holdsBelowBest(t) : failsAt(t, stepThere)) {
            passBy(t);
        } else {
            const bool holds = look(t);
            if (inside && !holds) {
                putEnd(2, t);
                return true;
            }
            if (holds)
                noteHighest(t, inside);
            inside = holds;
            stepThere = step();
        }
        const double next = t + sign * stepThere;
        if (!beyond(next, t))  // a time too far off for steps of a minute, or no number
            break;
        t = next;
        if (++instants % instantsPerTelling == 0 && !tellProgress(fieldText(in->fsname[isat]), t))
            return false;
    }
    if (!found)
        goTo(now);
    if (inside)
        putEnd(2, limit);
    return inside;
}

void Walk::noteHighest(double t, bool inside)
{
    noteInside();
    if (!inside)
        putEnd(0, t);
    if (inside && !(satpos->el[isat] > pass.a[1]))
        return;
    pass.put(1, t, satpos->el[isat], satpos->az[isat]);
    bounds.setBest(satpos->el[isat]);
}

/// Moves an end back by bisection, starting one step after the change, to where `wanted` still is the outcome.
void Walk::bisectEnd(int index, bool wanted)
{
    double h = halfMinuteDays;
    double trial = pass.tm[index] - h;
    bool endFound = true;
    for (int round = 0; round < bisectionRounds; ++round) {
        const Verdict settled = conditionsAt(trial);
        const bool holds = settled == Verdict::open ? look(trial) : settled == Verdict::yes;
        if (settled != Verdict::open)
            passBy(trial);
        if (holds)
            noteInside();
        if (holds == wanted) {
            endFound = settled == Verdict::open;
            pass.tm[index] = trial;
            if (endFound)
                putEnd(index, trial);
        }
        h /= 2.0;
        if (round + 1 < bisectionRounds)
            trial += holds == wanted ? -h : h;
    }
    if (endFound)
        return;
    goTo(pass.tm[index]);
    putEnd(index, now);
    if (trial != now)
        passBy(trial);
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
    double best = noneYetDeg;
    double t = from;
    for (int second = 0; second <= secondsPerMinute && !beyond(t, to); ++second, t += sign * oneSecondDays) {
        if (lean && best < lowestElevationDeg && bounds.notAboveBest(t) == Verdict::yes) {
            passBy(t);
            continue;
        }
        if (lean)
            position.expect(t, sign * oneSecondDays);
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
        if (!cksatok(in, sp, isat) || !tellProgress(fieldText(in->fsname[isat]), t))
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

int secondSatellite(const WinpData& in)
{
    return in.prs + 1 < in.satn ? in.prs + 1 : 0;
}

double heldSpan(double days)
{
    return std::isnan(days) ? longestSpanDays : std::clamp(days, -longestSpanDays, longestSpanDays);
}

int cksatok(WinpData* in, SatPosData* sp, int isat)
{
    return relativeMode(*in) ? relativeConditions(*in, *sp, isat)
                             : observerConditions(*in, RecordedInstant{*in, *sp, isat});
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
    releaseVectorRegisters();
    if (in->iridflg == event::iridium)
        in->occra = 0.0;
    Walk walk(in, isat, 1.0, {tm, a, b});
    if (!walk.findPass(in->pasjmp ? gpassend(in, satpos, isat, t0, t1) : t0, t1)) {
        walk.finish();
        return 0;
    }
    if (tm[0] > t0)
        walk.bisectEnd(0, true);
    if (tm[2] > t0 && tm[2] < t1)
        walk.bisectEnd(2, false);
    if (in->iridflg != event::plain) {
        walk.finish();
        return GetIrid(in, isat, walk.sawGroundPoint(), tm, a, b);
    }
    if (!walk.maximumOutside())
        walk.refineMaximum();
    walk.finish();
    return 1;
}

int lastpass(WinpData* in, int isat, double t0, double t1, double* tm, double* a, double* b)
{
    releaseVectorRegisters();
    Walk walk(in, isat, -1.0, {tm, a, b});
    if (!walk.findPass(in->pasjmp ? gpassbeg(in, satpos, isat, t0, t1) : t0, t1)) {
        walk.finish();
        return 0;
    }
    if (tm[0] < t0)
        walk.scanEnd(0, true);
    if (tm[2] > t1 && tm[2] < t0)
        walk.scanEnd(2, false);
    if (!walk.maximumOutside())
        walk.refineMaximum();
    walk.finish();
    return 1;
}
