// The search for the times at which two satellites see each other. For the engine alone.
#pragma once

#include <limits>
#include <memory>

#include "engine/highest_of.h"
#include "engine/lazy_position.h"
#include "engine/pair_bounds.h"
#include "engine/pass_walk.h"
#include "orbit/sgp4.h"

/// A satellite as relative mode looks at it.
struct Overhead
{
    double lat, lng;  // of the place below, degrees
    double heightKm;
};

/// Over the limb of a sphere of 6378.137 km.
bool seeEachOther(const Overhead& a, const Overhead& b);

/// The walk of relative mode as `PlainWalk` goes it. Where the bounds settle whether the two see each other nothing is
/// found, elsewhere the two places and what light a condition asks for. `finish` finds the last instant in full.
class ContactWalk : public WalkBase
{
public:
    /// As `WalkBase`; `possible` must hold.
    ContactWalk(const PassQuery& passQuery, double sense, Pass& found);

    /// Whether nothing that GetSatPos leaves depends on any instant but the last.
    static bool possible(const PassQuery& query);

    // As those of `PlainWalk`.
    bool findPass(double t, double limit);
    /// As that of `PlainWalk`.
    void bisectEnd(int index, bool wanted);
    /// As that of `PlainWalk`.
    void scanEnd(int index, bool wanted);
    /// Finds ends and maximum of the pass.
    void fill();
    /// As that of `PlainWalk`.
    void refineMaximum();
    /// Goes to the instant where the walk is, with the records of the search.
    void finish();

    // There are no events in relative mode.
    bool sawGroundPoint() const { return false; }
    bool eventImpossible() const { return true; }
    void findEventPoint(double t) { now = t; }

private:
    /// An end of the pass: the instant of which its place is, and the place if it is known already.
    struct End
    {
        double t = 0;
        bool known = false;
        double lat = 0, lng = 0;  // degrees
    };

    /// Whether the conditions hold at an instant, by the bounds or else by the places.
    bool holdsAt(double t);
    Verdict settledAt(double t);
    /// Finds the two satellites, and tells whether the conditions hold.
    bool look(double t);
    void goTo(double t);
    double elevation(double t);
    bool lit(LazyPosition& position, PassBounds& bounds);
    void chooseModel(int slot);
    void noteInside(double t);
    void noteEnd(int index, double t);

    int other;
    std::unique_ptr<SatPosData> scratch = std::make_unique<SatPosData>();
    LazyPosition prime, second;
    PairBounds bounds;
    elsetrec parked{};  // the model of the one of the two that was not looked at last
    int parkedSlot = noSlot;
    double foundAt = std::numeric_limits<double>::quiet_NaN();  // the instant of the two positions
    End ends[3];
    HighestOf highest;
    double now = std::numeric_limits<double>::quiet_NaN();  // the instant where the walk is
};
