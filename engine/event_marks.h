// What a search for transits and flares leaves in the records for good. For the engine alone.
#pragma once

#include <vector>

#include "engine/lazy_position.h"
#include "engine/pass_search.h"
#include "engine/satpos_data.h"
#include "record/winp_data.h"

/// A ground point keeps its distance or magnitude in `mag` until the next one, and a surface in the light its angle in
/// `flrang` and its mark in `occlng`. So what stands there after a search need not be of its last instant. This class
/// runs the event stage at the instants that count only, and leaves the records as if it had run at each.
class EventMarks
{
public:
    /// Runs the stage by `position`, which the walk moves.
    EventMarks(const PassQuery& query, LazyPosition& position);

    /// Whether transits, occultations or flares are in work at all.
    bool wanted() const { return in->occflg != 0 || in->flarflg != 0; }

    /// The walk comes to an instant. The position may have moved elsewhere afterwards.
    void arrive(double t);

    /// Runs the stage where walk and position are.
    ///
    /// @return  whether there is a ground point
    bool run();

    /// Brings the marks to what they are after the instant of the walk, with the angles of the surface that it had.
    ///
    /// @return  false if the position stands elsewhere afterwards
    bool settle();

    /// The same instant once more, everything of it.
    void completeHere();

private:
    /// An instant of the walk, with yaw and pitch of the surface.
    struct Visit
    {
        double t = 0, first = 0, second = 0;
    };

    void runAt(const Visit& visit);
    void settleVisits();
    bool pointFound() const { return sp->occlat[isat] < noGroundPoint; }

    WinpData* in;
    SatPosData* sp;
    int isat;
    bool kept;  // the marks matter afterwards
    LazyPosition& position;
    Visit here;
    bool arrived = false;
    bool known = false;         // the stage has run here
    std::vector<Visit> visits;  // that may count: none after them had a ground point
};
