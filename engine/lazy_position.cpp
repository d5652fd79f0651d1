#include "engine/lazy_position.h"

#include <array>
#include <utility>

#include "engine/event_geometry.h"

LazyPosition::LazyPosition(WinpData* in, SatPosData* sp, int isat) : LazyPosition(in, sp, isat, viewOf(*in), false) {}

LazyPosition::LazyPosition(WinpData* in, SatPosData* sp, int isat, const View& view, bool relative)
{
    setSatellite(s, in, sp, isat);
    s.relative = relative;
    setView(s, view);
}

void LazyPosition::look(double mjd)
{
    goTo(mjd);
    findAzimuthElevation(s);
}

void LazyPosition::lookFrom(const Site& observer)
{
    View view = s.view;
    view.observer = observer;
    setView(s, view);
    findAzimuthElevation(s);
}

void LazyPosition::goTo(double mjd)
{
    known = {};
    setTimes(s, mjd);
    setNutation(s);
    if (s.model == Propagator::numeric) {
        needSun();
        needMoon();
    }
    findState(s);
    turnToTrueOfDate(s);
}

void LazyPosition::expect(double mjd, double step)
{
    const WinpData& in = *s.in;
    const double epoch = in.mjdep[s.isat];
    if (s.model != Propagator::analytic || ahead.has(mjd - epoch))
        return;
    std::array<double, Sgp4Ahead::instants> days{};
    for (double& day : days) {
        day = mjd - epoch;
        mjd += step;
    }
    ahead.workOut(s.in, s.isat, days);
    s.ahead = &ahead;
}

bool LazyPosition::stateAhead(double mjd, Vec3& r) const
{
    Vec3 v;
    return s.ahead && s.ahead->find(mjd - s.in->mjdep[s.isat], r, v);
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

void LazyPosition::needTransitTarget()
{
    setEpochMatrix(s);
    if (s.transit == 1 || (s.transit == 2 && s.in->sunmplt))
        needSun();
    if (s.transit == 2)
        needMoon();
}

void LazyPosition::findEventPoint()
{
    const WinpData& in = *s.in;
    needTransitTarget();
    if (s.transit != 0)
        findTransitPoint(s);
    if (!in.flarflg)
        return;
    placeObserver(s);
    sunAtSatellite();
    findBeta(s);
    if (moonWanted(s))
        needMoon();
    if (s.models.solarEclipses && s.prime)
        findSolarEclipse(s);
    if (s.models.moonlight)
        moonAtSatellite();
    if (s.models.sphereDiameter > 0 && s.prime)
        findMagnitude(s);
    findFlare(s);
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
    if (s.models.solarEclipses && s.prime)
        findSolarEclipse(s);
    sunAtObserver();
    sunAtSatellite();
    if (s.models.moonlight)
        moonAtSatellite();
    if (s.models.sphereDiameter > 0 && s.prime)
        findMagnitude(s);
    if (vis && s.transit == 0 && in.flarflg == 0)
        GetSatVis(s.sp, s.subLatGeocentric, s.isat);
    if (s.transit != 0)
        findTransitPoint(s);
    if (in.flarflg || (s.view.events == event::iridium && s.prime))
        findFlare(s);
}
