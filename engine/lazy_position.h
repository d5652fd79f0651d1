// One satellite at one instant, each quantity when it is asked for. For the engine alone.
#pragma once

#include "engine/position_stages.h"
#include "orbit/sgp4.h"

/// What GetSatPos gives, in two parts: position, azimuth, elevation and range at once, the rest on demand. Both write
/// the position record and the same fields of the input record, so that a search that completes its last instant leaves
/// what the whole call leaves there. The settings of the input record stay as they are while an object lives.
class LazyPosition
{
public:
    /// @param relative  `in` holds the second satellite's place as the observer's
    LazyPosition(WinpData* in, SatPosData* sp, int isat, bool relative);

    /// Goes to an instant, MJD UTC.
    void look(double mjd);

    /// Says that `look` at this instant comes next, and likely at others in equal steps.
    void expect(double mjd, double step);

    double elevation() const { return s.sp->el[s.isat]; }  // degrees
    double azimuth() const { return s.sp->az[s.isat]; }    // degrees
    double sunAtObserver();                                // elevation, degrees
    double sunAtSatellite();                               // the same with the horizon dip
    double moonAtSatellite();                              // the same; with moonflg only

    /// Everything else of the instant.
    void complete(int vis = 0);

    const Scene& scene() const { return s; }

private:
    void needSun();
    void needMoon();
    void needSubSatellitePoint();

    Scene s;
    Sgp4Ahead ahead;
    struct
    {
        bool sun, moon, subSatellitePoint, sunAtObserver, sunAtSatellite, moonAtSatellite;
    } known{};
};
