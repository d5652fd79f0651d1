// The search for a pass in two ways that give the same figures: by the whole position at each instant, and faster. For
// the engine alone.
#pragma once

#include "engine/lazy_position.h"
#include "engine/pass.h"
#include "engine/pass_bounds.h"
#include "engine/pass_search.h"
#include "engine/satpos_data.h"
#include "record/winp_data.h"

// The steps of a search, days.
constexpr double oneSecondDays = 1.157407407e-5;
constexpr double halfMinuteDays = 0.00034722222222222224;
constexpr double coarseStepDays = 0.0069;  // the satellite is far below the horizon
constexpr double sunStepDays = 0.0416667;  // the Sun is far above its limit
constexpr double sunFarAboveDeg = 15.0;    // above the limit of the Sun
constexpr double noneYetDeg = -100.0;      // before the scan of the maximum has improved on the pass
constexpr int bisectionRounds = 6;
constexpr int secondsPerMinute = 60;

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

/// What the two walks through time have in common. "Later" and "beyond" are so in the sense of the walk.
class WalkBase
{
public:
    /// @param sense  1 forward, -1 backward
    /// @param found  the pass, filled on the way
    WalkBase(const PassQuery& passQuery, double sense, Pass& found)
        : query(passQuery),
          in(query.in),
          sp(query.sp),
          isat(query.isat),
          limits(query.limits),
          sign(sense),
          pass(found)
    {}

    /// Whether a time lies after another one in the sense of the walk; false for NaN.
    bool beyond(double t, double limit) const { return sign * t > sign * limit; }

    /// Brings a maximum that lies outside the refined ends to the end; false if it lies inside.
    bool maximumOutside() const;

protected:
    /// Stores time, elevation and azimuth (degrees) at an index of the pass.
    void put(int index, double t, double elevation, double azimuth) const;

    PassQuery query;
    WinpData* in;
    SatPosData* sp;
    int isat;
    PassLimits limits;
    double sign;
    Pass& pass;
};

/// The definition of a search: the whole position at each instant.
class PlainWalk : public WalkBase
{
public:
    /// As `WalkBase`.
    PlainWalk(const PassQuery& passQuery, double sense, Pass& found);

    /// Fills index 0 with the first instant in steps at which the conditions hold, index 1 with the highest, index 2
    /// with the first one after them, or with the limit.
    ///
    /// @return  false: no pass, or the listener has ended the search
    bool findPass(double t, double limit);

    /// Moves an end back by bisection, starting one step after the change, to where `wanted` still is the outcome.
    void bisectEnd(int index, bool wanted);

    /// For the backward walk: from one minute later (in time) downward to the first second with the wanted outcome.
    void scanEnd(int index, bool wanted);

    /// Looks for a higher elevation in steps of a second, up to a minute to the side where it rises.
    void refineMaximum();

    /// Whether a ground point was seen at an instant inside the pass.
    bool sawGroundPoint() const { return groundPoint; }

    /// Nothing: the records are those of the last instant.
    void finish() const {}

private:
    /// Finds the position at an instant; whether the conditions hold there.
    bool look(double t);
    /// The same for its elevation, degrees.
    double elevation(double t);
    /// To the next instant of the search, days.
    double step() const;
    /// Stores what an end of a pass shows: place of the satellite in relative mode, else direction.
    void putEnd(int index, double t) const;
    /// Remembers a ground point.
    void noteInside();
    /// Takes an instant at which the conditions hold as start and as maximum.
    void noteHighest(double t, bool inside);
    /// Goes by seconds from one time to a later one while the elevation rises.
    void scanMaximum(double from, double to);

    bool relative;
    bool groundPoint = false;
};

/// The same walk at an observer, plain passes only: it goes from instant to instant as if the whole position were found
/// at each. Where the bounds settle what matters, nothing is found at all; else the position, and Sun and Moon where a
/// condition asks for them. `finish` completes the last instant, so that the records are left as by a GetSatPos at each.
class FastWalk : public WalkBase
{
public:
    /// As `WalkBase`; `possible` must hold.
    FastWalk(const PassQuery& passQuery, double sense, Pass& passFound);

    /// Whether nothing that GetSatPos leaves depends on any instant but the last, so that instants may be left out. An
    /// event leaves its mark where it was seen last, and in relative mode the conditions are others.
    static bool possible(const PassQuery& query);

    // As those of `PlainWalk`.
    bool findPass(double t, double limit);
    /// As that of `PlainWalk`.
    void bisectEnd(int index, bool wanted);
    /// As that of `PlainWalk`.
    void scanEnd(int index, bool wanted);
    /// As that of `PlainWalk`.
    void refineMaximum();
    /// Completes the instant where the walk is.
    void finish();

    /// The ground point of an earlier call: this walk finds none.
    bool sawGroundPoint() const { return sp->occlat[isat] < noGroundPoint; }

    // The conditions at the instant looked at.
    bool highEnough() const { return sp->el[isat] >= limits.satel; }
    /// The Sun is below its limit at the observer.
    bool dark();
    /// The Sun is above the horizon of the satellite.
    bool sunlit();
    bool moonlit() { return position.moonAtSatellite() >= 0.0; }

private:
    /// Finds position, azimuth and elevation at an instant.
    void goTo(double t);
    bool look(double t);
    double elevation(double t);
    /// To the next instant after one that has been looked at, days.
    double step();
    /// Goes to an instant of which nothing has to be known.
    void passBy(double t);
    /// What the bounds settle of the conditions.
    Verdict conditionsAt(double t);
    /// Whether the bounds settle that the conditions fail outside of passes, and the step from there.
    bool failsAt(double t, double& stepThere);
    /// Whether the bounds settle that the pass goes on, no higher than its best so far.
    bool holdsBelowBest(double t);
    /// Whether the Sun is higher at the observer: by the bounds, or by `exactly`.
    template <class Exactly>
    bool sunAbove(double degrees, Exactly exactly);
    /// Elevation, degrees.
    double sunAtObserver();
    void putEnd(int index, double t) const { put(index, t, sp->el[isat], sp->az[isat]); }
    void noteHighest(double t, bool inside);
    void scanMaximum(double from, double to);

    LazyPosition position;
    PassBounds bounds;
    double now = 0;        // the instant where the walk is
    bool found = true;     // the position there has been found
    bool complete = true;  // and everything else
};
