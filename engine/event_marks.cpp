#include "engine/event_marks.h"

#include <optional>

#include "record/keep.h"

namespace {

constexpr std::size_t mostVisits = 4096;
constexpr double untouched = 1e300;  // no longitude

}  // namespace

EventMarks::EventMarks(const PassQuery& query, LazyPosition& walkPosition)
    : in(query.in), sp(query.sp), isat(query.isat), kept(query.recordsRead), position(walkPosition)
{}

void EventMarks::arrive(double t)
{
    if (!kept || !wanted())
        return;
    if (arrived && !known)
        visits.push_back(here);
    if (visits.size() >= mostVisits)
        settleVisits();
    here = {t, in->occra, in->occdec};
    arrived = true;
    known = false;
}

bool EventMarks::run()
{
    if (kept && !known && (here.first != in->occra || here.second != in->occdec))
        visits.push_back(here);  // the instant has been left for the same one with another surface
    here = {here.t, in->occra, in->occdec};
    known = true;
    position.findEventPoint();
    if (pointFound())
        visits.clear();
    else if (kept)
        visits.push_back(here);
    return pointFound();
}

void EventMarks::runAt(const Visit& visit)
{
    in->occra = visit.first;
    in->occdec = visit.second;
    position.look(visit.t);
    position.findEventPoint();
}

/// Goes back to the last ground point. The last surface in the light may be later.
void EventMarks::settleVisits()
{
    const Keep first(in->occra, in->occra);
    const Keep second(in->occdec, in->occdec);
    const double before = sp->occlng[isat];
    std::optional<Visit> lit;
    bool found = false;
    for (; !found && !visits.empty(); visits.pop_back()) {
        sp->occlng[isat] = untouched;
        runAt(visits.back());
        found = pointFound();
        if (!lit && sp->occlng[isat] != untouched)
            lit = visits.back();
    }
    visits.clear();
    if (lit)
        runAt(*lit);
    else
        sp->occlng[isat] = before;
}

bool EventMarks::settle()
{
    if (!wanted() || !arrived)
        return true;
    const Keep first(in->occra, here.first);
    const Keep second(in->occdec, here.second);
    if (known ? visits.empty() : run())
        return true;
    settleVisits();
    return false;
}

void EventMarks::completeHere()
{
    if (!wanted())
        return position.complete();
    const Keep first(in->occra, here.first);
    const Keep second(in->occdec, here.second);
    position.complete();
}
