#include "engine/fast_walk.h"

#include <cmath>

#include "astro/angles.h"
#include "engine/ray_bounds.h"
#include "record/progress.h"
#include "record/text.h"

namespace {

constexpr std::size_t mostUnseen = 4096;
constexpr double roundings = 1e-14;

NearSight::Sine sineOf(double elevationDeg)
{
    return {std::sin(elevationDeg * radPerDeg), roundings};
}

}  // namespace

bool FastWalk::possible(const PassQuery& query)
{
    const WinpData& in = *query.in;
    if (relativeSearch(query) || (query.events == event::iridium && query.isat == in.prs && !in.flarflg))
        return false;
    if (in.occflg == 0 && in.flarflg == 0)
        return true;
    const bool knownSurface = in.flarflg != 0 && in.flarmod > 0 && in.occflg == 0;
    return (knownSurface || in.flarflg == 0) && !in.numflg[query.isat];
}

FastWalk::FastWalk(const PassQuery& passQuery, double sense, Pass& passFound)
    : WalkBase(passQuery, sense, passFound),
      position(passQuery.in, passQuery.sp, passQuery.isat, viewOf(passQuery), false),
      marks(passQuery, position),
      bounds(*passQuery.in, passQuery.isat, sense, passQuery.limits.satel)
{}

void FastWalk::goTo(double t)
{
    marks.arrive(t);
    now = t;
    found = true;
    complete = false;
    position.look(t);
    bounds.anchor(position.scene());
}

/// Goes to an instant of which nothing has to be known.
void FastWalk::passBy(double t)
{
    marks.arrive(t);
    now = t;
    found = complete = false;
}

void FastWalk::findEventPoint(double t)
{
    if (!found || t != now)
        goTo(t);
    if (marks.wanted())
        marks.run();
    else
        position.complete();
}

void FastWalk::notePoint(double t)
{
    if (groundPoint || query.events == event::plain || !marks.wanted())
        return;
    if (!query.recordsRead && unseen.size() < mostUnseen) {
        unseen.push_back(t);
        return;
    }
    findEventPoint(t);
    groundPoint = sp->occlat[isat] < noGroundPoint;
}

bool FastWalk::sawGroundPoint()
{
    if (!marks.wanted())
        return sp->occlat[isat] < noGroundPoint;
    for (; !groundPoint && !unseen.empty(); unseen.pop_back()) {
        findEventPoint(unseen.back());
        groundPoint = sp->occlat[isat] < noGroundPoint;
    }
    return groundPoint;
}

bool FastWalk::eventImpossible()
{
    if (query.recordsRead || in->occflg == 0 || isat != in->prs)  // others have no distance
        return false;
    goTo(pass.tm[0]);
    position.needTransitTarget();
    return RayBounds(position.scene()).staysFar(pass.tm[2], limits.maxdst, bounds);
}

bool FastWalk::look(double t)
{
    goTo(t);
    return observerConditions(*in, *this);
}

double FastWalk::elevation(double t)
{
    goTo(t);
    return sp->el[isat];
}

void FastWalk::finish()
{
    if (!query.recordsRead && !in->numflg[isat])  // a numeric orbit goes on from where it is
        return;
    if (!found)
        position.look(now);
    found = true;
    if (!complete && !marks.settle())
        position.look(now);
    if (!complete)
        marks.completeHere();
    complete = true;
}

double FastWalk::sunAtObserver()
{
    const double el = position.sunAtObserver();
    bounds.anchorSun(position.scene());
    return el;
}

/// @param exactly  tells what the Sun's place itself says
template <class Exactly>
bool FastWalk::sunAbove(double degrees, Exactly exactly)
{
    if (degrees > highestSunDeg)
        return false;
    const Verdict settled = bounds.sunAbove(degrees, now);
    return settled == Verdict::open ? exactly() : settled == Verdict::yes;
}

bool FastWalk::dark()
{
    return !sunAbove(limits.sunel, [&] { return !(sunAtObserver() < limits.sunel); });
}

bool FastWalk::sunlit()
{
    const Verdict settled = bounds.sunlit(now);
    if (settled != Verdict::open)
        return settled == Verdict::yes;
    const double el = position.sunAtSatellite();
    bounds.anchorSun(position.scene());
    return el >= 0.0;
}

/// By the state at the instant looked at last.
double FastWalk::step()
{
    if (limits.satel < 0.0)
        return oneMinuteDays;
    const auto sunFarAbove = [&] { return sunAtObserver() - sunFarAboveDeg > limits.sunel; };
    if (sign > 0.0 && sunAbove(limits.sunel + sunFarAboveDeg, sunFarAbove))
        return sunStepDays;
    return sp->el[isat] < farBelowHorizonDeg ? coarseStepDays : oneMinuteDays;
}

/// What the bounds settle of the conditions, the cheaper ones first.
Verdict FastWalk::conditionsAt(double t)
{
    const Verdict tooHigh = limits.sunel > highestSunDeg ? Verdict::no : bounds.sunAbove(limits.sunel, t);
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
bool FastWalk::failsAt(double t, double& stepThere)
{
    const bool stepsVary = !(limits.satel < 0.0);
    if (stepsVary && sign > 0.0 && !(limits.sunel + sunFarAboveDeg > highestSunDeg)) {
        const Verdict farAbove = bounds.sunAbove(limits.sunel + sunFarAboveDeg, t);
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

/// What is settled at an instant of the walk through time, and the step from there if anything is.
Verdict FastWalk::settledAt(double t, bool inside, double& stepThere)
{
    if (!inside && failsAt(t, stepThere))
        return Verdict::no;
    stepThere = oneMinuteDays;
    const Verdict settled = conditionsAt(t);
    if (settled == Verdict::no && in->numflg[isat])  // a numeric orbit goes on from the end of the pass
        return Verdict::open;
    return inside || settled == Verdict::yes ? settled : Verdict::open;
}

bool FastWalk::findPass(double t, double limit)
{
    bool inside = false;
    unsigned instants = 0;
    while (!beyond(t, limit)) {
        double stepThere = oneMinuteDays;
        const Verdict settled = settledAt(t, inside, stepThere);
        if (settled != Verdict::open)
            passBy(t);
        const bool holds = settled == Verdict::open ? look(t) : settled == Verdict::yes;
        if (settled == Verdict::open)
            stepThere = step();
        if (holds != inside)
            noteEnd(inside ? 2 : 0, t);
        if (inside && !holds)
            return true;
        inside = holds;
        if (inside)
            noteInside(t);
        const double next = t + sign * stepThere;
        if (!beyond(next, t))  // a time too far off for steps of a minute, or no number
            break;
        t = next;
        if (++instants % instantsPerTelling == 0 && !tellProgress(fieldText(in->fsname[isat]), t))
            return false;
    }
    if (inside) {
        noteEnd(2, now);
        pass.tm[2] = limit;
    }
    return inside;
}

void FastWalk::putAside(int index, double t)
{
    position.look(t);
    found = t == now;
    complete = false;
    put(index, pass.tm[index], sp->el[isat], sp->az[isat]);
}

void FastWalk::noteEnd(int index, double t)
{
    const bool known = found && t == now;
    ends[index] = {t, known};
    pass.tm[index] = t;
    if (known)
        put(index, t, sp->el[isat], sp->az[isat]);
}

double FastWalk::elevationAside(double t)
{
    position.look(t);
    found = t == now;
    complete = false;
    return sp->el[isat];
}

void FastWalk::noteInside(double t)
{
    PassBounds::Estimate guessed{sp->el[isat], 0.0};
    if (!found) {
        guessed = bounds.elevation(t);
    } else if (std::isnan(highestFound) || guessed.value > pass.a[1]) {
        put(1, t, sp->el[isat], sp->az[isat]);
        highestFound = t;
    }
    highest.add(t, guessed.value - guessed.doubt, guessed.value + guessed.doubt,
                [this](double instant) { return elevationAside(instant); });
    notePoint(t);
}

void FastWalk::fill()
{
    for (const int index : {0, 2})
        fillEnd(index);
    if (!query.recordsRead && query.events != event::plain)  // nobody asks for the maximum
        return;
    const double t = highest.instant([this](double instant) { return elevationAside(instant); });
    if (t != highestFound) {
        pass.tm[1] = t;
        putAside(1, t);
    }
    bounds.setBest(pass.a[1]);
}

void FastWalk::bisectEnd(int index, bool wanted)
{
    double h = halfMinuteDays;
    double trial = pass.tm[index] - h;
    for (int round = 0; round < bisectionRounds; ++round) {
        const Verdict settled = conditionsAt(trial);
        const bool holds = settled == Verdict::open ? look(trial) : settled == Verdict::yes;
        if (settled != Verdict::open)
            passBy(trial);
        if (holds == wanted)
            noteEnd(index, trial);
        if (holds)
            notePoint(trial);
        h /= 2.0;
        trial += holds == wanted ? -h : h;
    }
    fillEnd(index);
}

void FastWalk::fillEnd(int index)
{
    if (!ends[index].known)
        putAside(index, ends[index].t);
    ends[index].known = true;
}

void FastWalk::scanEnd(int index, bool wanted)
{
    double trial = pass.tm[index] + oneMinuteDays;
    for (int second = 0; second < secondsPerMinute; ++second, trial -= oneSecondDays)
        if (look(trial) == wanted)
            return noteEnd(index, trial);
}

void FastWalk::refineMaximum()
{
    const double middle = pass.tm[1];
    const double before = elevation(middle - sign * oneSecondDays);
    const double after = elevation(middle + sign * oneSecondDays);
    if (before == after)
        return;
    const double minute = sign * oneMinuteDays;
    if (before > after)
        scanMaximum(beyond(pass.tm[0], middle - minute) ? pass.tm[0] : middle - minute, middle);
    else
        scanMaximum(middle, beyond(middle + minute, pass.tm[2]) ? pass.tm[2] : middle + minute);
}

int FastWalk::compare(double t, const NearSight* sight, Second& best)
{
    if (Vec3 r; sight && position.stateAhead(t, r)) {
        const NearSight::Sine sine = sight->sineAt(t, r);
        const double over = sine.value - best.sine.value;
        if (std::abs(over) > sine.doubt + best.sine.doubt) {
            passBy(t);
            if (over > 0.0)
                best = {t, sine, false};
            return over > 0.0 ? 1 : -1;
        }
    }
    putBest(best);
    const double el = elevation(t);
    if (!(el > pass.a[1]))
        return el < pass.a[1] ? -1 : 0;
    put(1, t, el, sp->az[isat]);
    best = {t, sineOf(el), true};
    return 1;
}

void FastWalk::putBest(Second& best)
{
    if (best.inPass)
        return;
    pass.tm[1] = best.t;
    putAside(1, best.t);
    best = {best.t, sineOf(pass.a[1]), true};
}

/// Ends where the elevation falls below the best of the scan, which has none before it improves on the pass.
void FastWalk::scanMaximum(double from, double to)
{
    const NearSight sight(position.scene());
    const bool near = bounds.reachesFrom() <= now && now <= bounds.reachesTo();
    Second best{pass.tm[1], sineOf(pass.a[1]), true};
    bool risen = false;
    double t = from;
    for (int second = 0; second <= secondsPerMinute && !beyond(t, to); ++second, t += sign * oneSecondDays) {
        if (!risen && bounds.notAboveBest(t) == Verdict::yes) {
            passBy(t);
            continue;
        }
        position.expect(t, sign * oneSecondDays);
        const int over = compare(t, near ? &sight : nullptr, best);
        risen = risen || over > 0;
        if (risen && over < 0)
            break;
    }
    putBest(best);
}
