// The search for a pass by the whole position at each instant. For the engine alone.
#pragma once

#include "engine/pass_walk.h"

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

    /// Fills what is left open of the pass: nothing.
    void fill() const {}

    /// Whether it is certain that the pass has no event.
    bool eventImpossible() const { return false; }

    /// Finds the whole position at an instant of an event.
    void findEventPoint(double t) { positionAt(t, query); }

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
