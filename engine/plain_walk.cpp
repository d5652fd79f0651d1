#include "engine/plain_walk.h"

#include "engine/satpos_data.h"
#include "record/progress.h"
#include "record/text.h"

PlainWalk::PlainWalk(const PassQuery& passQuery, double sense, Pass& found)
    : WalkBase(passQuery, sense, found), relative(relativeSearch(passQuery))
{}

bool PlainWalk::look(double t)
{
    positionAt(t, query);
    return conditionsHold(query);
}

double PlainWalk::elevation(double t)
{
    positionAt(t, query);
    return sp->el[isat];
}

/// By the state at the instant looked at last.
double PlainWalk::step() const
{
    if (relative || limits.satel < 0.0)
        return oneMinuteDays;
    if (sign > 0.0 && sp->osunel - sunFarAboveDeg > limits.sunel)
        return sunStepDays;
    return sp->el[isat] < farBelowHorizonDeg ? coarseStepDays : oneMinuteDays;
}

void PlainWalk::putEnd(int index, double t) const
{
    if (relative)
        put(index, t, sp->lat[isat], sp->lng[isat]);
    else
        put(index, t, sp->el[isat], sp->az[isat]);
}

bool PlainWalk::findPass(double t, double limit)
{
    bool inside = false;
    while (!beyond(t, limit)) {
        const bool holds = look(t);
        if (inside && !holds) {
            putEnd(2, t);
            return true;
        }
        if (holds)
            noteHighest(t, inside);
        inside = holds;
        const double next = t + sign * step();
        if (!beyond(next, t))  // a time too far off for steps of a minute, or no number
            break;
        t = next;
        if (!tellProgress(fieldText(in->fsname[isat]), t))
            return false;
    }
    if (inside)
        putEnd(2, limit);
    return inside;
}

void PlainWalk::noteInside()
{
    groundPoint = groundPoint || sp->occlat[isat] < noGroundPoint;
}

void PlainWalk::noteHighest(double t, bool inside)
{
    noteInside();
    if (!inside)
        putEnd(0, t);
    if (!inside || sp->el[isat] > pass.a[1])
        put(1, t, sp->el[isat], sp->az[isat]);
}

void PlainWalk::bisectEnd(int index, bool wanted)
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

void PlainWalk::scanEnd(int index, bool wanted)
{
    double trial = pass.tm[index] + oneMinuteDays;
    for (int second = 0; second < secondsPerMinute; ++second, trial -= oneSecondDays)
        if (look(trial) == wanted)
            return putEnd(index, trial);
}

void PlainWalk::refineMaximum()
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
void PlainWalk::scanMaximum(double from, double to)
{
    double best = noneYetDeg;
    double t = from;
    for (int second = 0; second <= secondsPerMinute && !beyond(t, to); ++second, t += sign * oneSecondDays) {
        const double el = elevation(t);
        if (el > pass.a[1]) {
            put(1, t, el, sp->az[isat]);
            best = el;
        }
        if (el < best)
            return;
    }
}
