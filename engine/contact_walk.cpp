#include "engine/contact_walk.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "astro/angles.h"
#include "astro/earth.h"
#include "engine/lazy_position.h"
#include "record/progress.h"
#include "record/text.h"

namespace {

double horizonAngle(double heightKm)
{
    return heightKm > 0.0 ? std::acos(earthRadiusKm / (earthRadiusKm + heightKm)) : 0.0;
}

}  // namespace

bool seeEachOther(const Overhead& a, const Overhead& b)
{
    const double lat1 = radPerDeg * a.lat;
    const double lat2 = radPerDeg * b.lat;
    const double lngDifference = radPerDeg * (a.lng - b.lng);
    const double cosDistance =
        std::sin(lat1) * std::sin(lat2) + std::cos(lat1) * std::cos(lat2) * std::cos(lngDifference);
    return cosDistance > std::cos(horizonAngle(a.heightKm) + horizonAngle(b.heightKm));
}

bool ContactWalk::possible(const PassQuery& query)
{
    const WinpData& in = *query.in;
    return relativeSearch(query) && query.events == event::plain && query.isat == in.prs && !in.numflg[in.prs] &&
           !in.numflg[secondSatellite(in)];
}

ContactWalk::ContactWalk(const PassQuery& passQuery, double sense, Pass& found)
    : WalkBase(passQuery, sense, found),
      other(secondSatellite(*passQuery.in)),
      prime(in, scratch.get(), isat, viewOf(query), true),
      second(in, scratch.get(), other, viewOf(query), false),
      bounds(*passQuery.in, passQuery.isat, other, sense)
{}

/// The record keeps one model ready, the walk another.
void ContactWalk::chooseModel(int slot)
{
    if (!in->aflg[slot] || in->sgpsat == slot)
        return;
    std::swap(satrec, parked);
    std::swap(in->sgpsat, parkedSlot);
}

void ContactWalk::goTo(double t)
{
    if (t == foundAt)
        return;
    foundAt = t;
    chooseModel(other);
    second.goTo(t);
    second.needSubSatellitePoint();
    bounds.second().anchor(second.scene());
    chooseModel(isat);
    prime.goTo(t);
    prime.needSubSatellitePoint();
    bounds.first().anchor(prime.scene());
}

bool ContactWalk::look(double t)
{
    goTo(t);
    const auto overhead = [&](int slot) {
        return Overhead{scratch->lat[slot], scratch->lng[slot], scratch->hgt[slot]};
    };
    if (!seeEachOther(overhead(isat), overhead(other)))
        return false;
    return in->visflg == 0 || (lit(prime, bounds.first()) && lit(second, bounds.second()));
}

bool ContactWalk::lit(LazyPosition& position, PassBounds& anchored)
{
    const double el = position.sunAtSatellite();
    anchored.anchorSun(position.scene());
    return el >= 0.0;
}

/// Of the prime satellite over the horizon of the second, degrees.
double ContactWalk::elevation(double t)
{
    goTo(t);
    prime.lookFrom({scratch->lat[other], scratch->lng[other], scratch->hgt[other] * 1000.0});
    return prime.elevation();
}

Verdict ContactWalk::settledAt(double t)
{
    const Verdict sight = bounds.inSight(t);
    if (sight == Verdict::no || in->visflg == 0)
        return sight;
    const Verdict lit = bounds.bothSunlit(t);
    if (lit == Verdict::no)
        return lit;
    return sight == lit ? sight : Verdict::open;
}

bool ContactWalk::holdsAt(double t)
{
    now = t;
    const Verdict settled = settledAt(t);
    return settled == Verdict::open ? look(t) : settled == Verdict::yes;
}

bool ContactWalk::findPass(double t, double limit)
{
    bool inside = false;
    unsigned instants = 0;
    while (!beyond(t, limit)) {
        const bool holds = holdsAt(t);
        if (inside != holds)
            noteEnd(inside ? 2 : 0, t);
        if (inside && !holds)
            return true;
        inside = holds;
        if (inside)
            noteInside(t);
        const double next = t + sign * oneMinuteDays;
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

void ContactWalk::noteEnd(int index, double t)
{
    pass.tm[index] = t;
    ends[index] = {t, t == foundAt, scratch->lat[isat], scratch->lng[isat]};
}

void ContactWalk::noteInside(double t)
{
    PassBounds::Estimate guessed = bounds.elevation(t);
    if (t == foundAt)
        guessed = {elevation(t), 0.0};
    highest.add(t, guessed.value - guessed.doubt, guessed.value + guessed.doubt,
                [this](double instant) { return elevation(instant); });
}

void ContactWalk::fill()
{
    for (const int index : {0, 2}) {
        if (!ends[index].known) {
            goTo(ends[index].t);
            ends[index].lat = scratch->lat[isat];
            ends[index].lng = scratch->lng[isat];
        }
        put(index, pass.tm[index], ends[index].lat, ends[index].lng);
    }
    const double t = highest.instant([this](double instant) { return elevation(instant); });
    const double el = elevation(t);
    put(1, t, el, prime.azimuth());
}

void ContactWalk::bisectEnd(int index, bool wanted)
{
    double h = halfMinuteDays;
    double trial = pass.tm[index] - h;
    for (int round = 0; round < bisectionRounds; ++round) {
        const bool holds = holdsAt(trial);
        if (holds == wanted)
            noteEnd(index, trial);
        h /= 2.0;
        trial += holds == wanted ? -h : h;
    }
}

void ContactWalk::scanEnd(int index, bool wanted)
{
    double trial = pass.tm[index] + oneMinuteDays;
    for (int count = 0; count < secondsPerMinute; ++count, trial -= oneSecondDays)
        if (holdsAt(trial) == wanted)
            return noteEnd(index, trial);
}

/// In relative mode the maximum stays that of the minutes; `PlainWalk` looks at the seconds beside it all the same.
void ContactWalk::refineMaximum()
{
    now = pass.tm[1] + sign * oneSecondDays;
}

void ContactWalk::finish()
{
    if (query.recordsRead && !std::isnan(now))
        positionAt(now, query);
}
