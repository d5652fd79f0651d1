// The search for a pass that finds no more of a position than it needs. For the engine alone.
#pragma once

#include <limits>
#include <vector>

#include "engine/event_marks.h"
#include "engine/highest_of.h"
#include "engine/lazy_position.h"
#include "engine/near_sight.h"
#include "engine/pass_bounds.h"
#include "engine/pass_walk.h"

/// The same walk at an observer: it goes from instant to instant as if the whole position were found
/// at each. Where the bounds settle what matters, nothing is found at all; else the position, and Sun and Moon where a
/// condition asks for them. `finish` completes the last instant, so that the records are left as by a GetSatPos at each.
class FastWalk : public WalkBase
{
public:
    /// As `WalkBase`; `possible` must hold.
    FastWalk(const PassQuery& passQuery, double sense, Pass& passFound);

    /// Whether nothing that GetSatPos leaves depends on any instant but the last, or on those that `EventMarks` finds, so
    /// that instants may be left out. In relative mode the conditions are others; the mirror loop and an unknown surface
    /// go on from what they left before.
    static bool possible(const PassQuery& query);

    // As those of `PlainWalk`.
    bool findPass(double t, double limit);
    /// As that of `PlainWalk`.
    void bisectEnd(int index, bool wanted);
    /// As that of `PlainWalk`.
    void scanEnd(int index, bool wanted);
    /// Finds those of ends and maximum of the pass that the bounds have settled.
    void fill();
    /// As that of `PlainWalk`.
    void refineMaximum();
    /// Completes the instant where the walk is.
    void finish();

    /// Goes to an instant of an event and finds its ground point.
    void findEventPoint(double t);

    /// As that of `PlainWalk`; without events in work the ground point is that of an earlier call.
    bool sawGroundPoint();

    /// Whether it is certain that the pass has no event, and nobody reads the records.
    bool eventImpossible();

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
    Verdict settledAt(double t, bool inside, double& stepThere);
    /// Whether the bounds settle that the conditions fail outside of passes, and the step from there.
    bool failsAt(double t, double& stepThere);
    /// Whether the Sun is higher at the observer: by the bounds, or by `exactly`.
    template <class Exactly>
    bool sunAbove(double degrees, Exactly exactly);
    /// Elevation, degrees.
    double sunAtObserver();
    /// Elevation and azimuth of an index of the pass, at an instant that is not gone to.
    void putAside(int index, double t);
    void noteEnd(int index, double t);
    /// Finds an end for the pass, if it is not there.
    void fillEnd(int index);
    /// The elevation there.
    double elevationAside(double t);
    /// Takes note of an instant inside the pass, which may be the highest.
    void noteInside(double t);
    /// Takes note of a ground point at an instant inside the pass, if that is asked for.
    void notePoint(double t);
    void scanMaximum(double from, double to);

    /// The highest second of a scan so far.
    struct Second
    {
        double t;
        NearSight::Sine sine;
        bool inPass;  // elevation and azimuth are in the pass
    };

    /// Goes to an instant; above 0 if it is higher than the highest so far, and takes its place, else 0 or below.
    int compare(double t, const NearSight* sight, Second& best);

    /// Finds the highest second for the pass, if it is not there.
    void putBest(Second& best);

    LazyPosition position;
    EventMarks marks;
    bool groundPoint = false;
    struct
    {
        double t;
        bool known;  // elevation and azimuth are in the pass
    } ends[3]{};
    HighestOf highest;
    double highestFound = std::numeric_limits<double>::quiet_NaN();  // of those found exactly; it is in the pass
    std::vector<double> unseen;  // instants inside the pass of which it is not known whether they have a ground point
    PassBounds bounds;
    double now = 0;        // the instant where the walk is
    bool found = true;     // the position there has been found
    bool complete = true;  // and everything else
};
