// The plot clock: steps, pass jumps, and the ticks of real-time and delta plots.

#include "view/vorlix_view.h"

#include "astro/calendar.h"
#include "engine/event_geometry.h"
#include "engine/pass_search.h"
#include "record/clock.h"
#include "record/keep.h"
#include "view/calculation.h"
#include "view/message_boxes.h"

namespace {

constexpr double oneSecondDays = 1.1574074074074073e-05;

double toWholeSeconds(double t)
{
    int day = 0, month = 0, year = 0, hour = 0, minute = 0;
    double hours = 0, seconds = 0;
    caldat(t, day, month, year, hours);
    dms(hours, hour, minute, seconds);
    return mjd(day, month, year, hour + minute / 60.0 + truncToInt(seconds + 0.5) / 3600.0);
}

}  // namespace

void VorlixView::vCurrent()
{
    showMapIfText();
    SatPlot(indata->mjd, 1);
}

void VorlixView::vForward()
{
    showMapIfText();
    SatPlot(indata->mjd + indata->tmstep, 1);
}

void VorlixView::vBackward()
{
    showMapIfText();
    SatPlot(indata->mjd - indata->tmstep, 1);
}

/// A pass table stays on show: the map goes on behind it.
void VorlixView::showMapIfText()
{
    if (indata->dspmd != 0)
        return;
    indata->dspmd = 1;
    redrawBehindPlot();
}

void VorlixView::RT_Plot()
{
    if (pickbusy)
        return;
    indata->dspmd = 1;
    SatPlot(RT_MJD(indata), 1);
}

int VorlixView::PlotDelta()
{
    if (pickbusy)
        return 1;
    const double t = indata->mjd + indata->tmstep;
    if (t > dtend)
        return 1;
    SatPlot(t, 0);
    return 0;
}

void VorlixView::vTmCheck(int mode)
{
    switch (mode) {
    case 1:
        indata->rtflg = 1;
        if (indata->dspmd < 1)
            vRefresh();
        break;
    case 2:
        indata->rtflg = 0;
        indata->dtflg = 1;
        setNewMjd(indata);
        vCurrent();
        dtend = indata->mjd + clampedSpan(indata->dur);
        if (indata->dspmd < 1)
            vRefresh();
        break;
    default:
        if (indata->rtflg == 1) {
            indata->rtflg = 0;
            vCurrent();
        }
    }
}

void VorlixView::vPlotNext()
{
    jumpToPass(true);
}

void VorlixView::vPlotLast()
{
    jumpToPass(false);
}

void VorlixView::jumpToPass(bool forward)
{
    if (indata->satn < 1) {
        warnWithCancel(this, tr("No satellite selected"));
        return;
    }
    const Keep kind(indata->iridflg, indata->iridflg == event::iridium ? event::plain : indata->iridflg);
    if (indata->rlm && indata->skymap)
        indata->rlm = 0;

    PassQuery query{indata, satpos, indata->prs};
    query.limits.horizon = horizon.get();
    Pass pass;
    const double sense = forward ? 1.0 : -1.0;
    const double from = indata->mjd + sense * indata->tmstep;
    const double to = from + sense * clampedSpan(indata->dur);
    int found = 0;
    const auto search = [&] { found = (forward ? findNextPass : findLastPass)(query, from, to, pass, Pace::fast); };
    if (!calculated(search))
        return;
    if (found == 0) {
        if (indata->dspmd != 0)
            SatPlot(indata->mjd, 1);
        warnWithCancel(this, tr("No suitable pass found"));
        return;
    }
    redrawBehindPlot();
    indata->pasjmp = 1;
    showPassAt(indata->rlm && indata->satn >= 2 ? pass.tm[0] : centredOn(pass.tm[1]));
}

/// Turns an automatic sky map towards the satellite at t.
double VorlixView::centredOn(double t)
{
    if (indata->skymap && indata->skyprj == 5) {
        SkyAzim(indata, t);
        redrawBehindPlot();
    }
    return t;
}

void VorlixView::showPassAt(double t)
{
    SatPlot(indata->tmstep >= oneSecondDays ? toWholeSeconds(t) : t, 1);
}
