#include "engine/position.h"

#include <array>
#include <cmath>
#include <utility>

#include "astro/angles.h"
#include "engine/event_geometry.h"
#include "engine/lazy_position.h"
#include "engine/pass_search.h"
#include "engine/position_stages.h"

namespace {

/// In relative mode the observer stands at the second satellite for the length of the prime's call.
class RelativeObserver
{
public:
    RelativeObserver(double mjd, WinpData* input, SatPosData* positions, int isat)
        : in(input), sp(positions), on(relativeMode(*input) && isat == input->prs)
    {
        if (!on)
            return;
        second = secondSatellite(*in);
        observer = {in->lat, in->lng, in->height};
        before = placeOfSecond();
        GetSatPos(mjd, in, sp, second, 0);
        found = placeOfSecond();
        in->lat = found.lat;
        in->lng = found.lng;
        in->height = found.height * 1000.0;
        sp->sunel2 = sp->sunel[second];
    }
    ~RelativeObserver()
    {
        if (!on)
            return;
        in->lat = observer.lat;
        in->lng = observer.lng;
        in->height = observer.height;
        sp->lat[second] = before.lat;
        sp->lng[second] = before.lng;
        sp->hgt[second] = before.height;
    }
    RelativeObserver(const RelativeObserver&) = delete;
    RelativeObserver& operator=(const RelativeObserver&) = delete;

    bool active() const { return on; }

    /// The second satellite's place takes the fields of the prime that mean nothing here.
    void close(const Scene& s) const
    {
        sp->sunel1 = sp->sunel[s.isat];
        sp->ra[s.isat] = found.lat;
        sp->dec[s.isat] = found.lng;
        sp->sunel[s.isat] = found.height;
        sp->rrate[s.isat] = dot(s.v - sp->vsat, vnorm(s.r - sp->rsat));
    }

private:
    struct Place
    {
        double lat = 0, lng = 0, height = 0;
    };

    Place placeOfSecond() const { return {sp->lat[second], sp->lng[second], sp->hgt[second]}; }

    WinpData* in;
    SatPosData* sp;
    bool on;
    int second = 0;
    Place observer;  // height in metres
    Place before;    // height in km, as the record has it
    Place found;
};

}  // namespace

LazyPosition::LazyPosition(WinpData* in, SatPosData* sp, int isat, bool relative)
{
    s.in = in;
    s.sp = sp;
    s.isat = isat;
    s.prime = isat == in->prs;
    s.relative = relative;
    readObserver(s);
}

void LazyPosition::look(double mjd)
{
    known = {};
    setTimes(s, mjd);
    setNutation(s);
    if (s.in->numflg[s.isat]) {
        needSun();
        needMoon();
    }
    propagate(s);
    turnToTrueOfDate(s);
    findAzimuthElevation(s);
}

void LazyPosition::expect(double mjd, double step)
{
    const WinpData& in = *s.in;
    const double epoch = in.mjdep[s.isat];
    if (in.numflg[s.isat] || !in.aflg[s.isat] || ahead.has(mjd - epoch))
        return;
    std::array<double, Sgp4Ahead::instants> days{};
    for (double& day : days) {
        day = mjd - epoch;
        mjd += step;
    }
    ahead.workOut(s.in, s.isat, days);
    s.ahead = &ahead;
}

void LazyPosition::needSun()
{
    if (!std::exchange(known.sun, true))
        placeSun(s);
}

void LazyPosition::needMoon()
{
    if (!std::exchange(known.moon, true))
        placeMoon(s);
}

void LazyPosition::needSubSatellitePoint()
{
    if (std::exchange(known.subSatellitePoint, true))
        return;
    setGreenwich(s);
    findSubSatellitePoint(s);
}

double LazyPosition::sunAtObserver()
{
    needSun();
    if (!std::exchange(known.sunAtObserver, true))
        findSunAtObserver(s);
    return s.sp->osunel;
}

double LazyPosition::sunAtSatellite()
{
    needSun();
    needSubSatellitePoint();
    if (!std::exchange(known.sunAtSatellite, true))
        findSunAtSatellite(s);
    return s.sp->sunel[s.isat];
}

double LazyPosition::moonAtSatellite()
{
    needMoon();
    needSubSatellitePoint();
    if (!std::exchange(known.moonAtSatellite, true))
        findMoonAtSatellite(s);
    return s.sp->moonel[s.isat];
}

void LazyPosition::complete(int vis)
{
    const WinpData& in = *s.in;
    needSun();
    if (moonWanted(s))
        needMoon();
    needSubSatellitePoint();
    setEpochMatrix(s);
    placeObserver(s);
    findObserverVelocity(s);
    findApparentPlace(s);
    findRangeRate(s);
    findSubSolarPoint(s);
    findBeta(s);
    if (in.eclflg && s.prime)
        findSolarEclipse(s);
    sunAtObserver();
    sunAtSatellite();
    if (in.moonflg)
        moonAtSatellite();
    if (in.chlen > 0 && s.prime)
        findMagnitude(s);
    if (vis && in.occflg == 0 && in.flarflg == 0)
        GetSatVis(s.sp, s.subLatGeocentric, s.isat);
    if (in.occflg != 0)
        findTransitPoint(s);
    if (in.flarflg || (in.iridflg == event::iridium && s.prime))
        findFlare(s);
}

void GetSatPos(double mjd, WinpData* in, SatPosData* sp, int isat, int vis)
{
    const RelativeObserver relative(mjd, in, sp, isat);
    LazyPosition position(in, sp, isat, relative.active());
    position.look(mjd);
    position.complete(vis);
    if (relative.active())
        relative.close(position.scene());
}

double ElvRefr(WinpData* in, double el)
{
    if (!in->refrc || in->rlm || !(el > -2.0 && el < 85.0))
        return el;
    if (el >= 10.0)
        return el + 0.01521154622 / std::tan(el * radPerDeg);
    if (el > -1.0)
        return el + 3.5689 * (0.1594 + 0.0196 * el + 0.0002 * el * el) / (1.0 + 0.505 * el + 0.0845 * el * el);
    return el + 0.84446937 * (el + 2.0);
}
