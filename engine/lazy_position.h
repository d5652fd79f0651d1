// One satellite at one instant, each quantity when it is asked for. For the engine alone.
#pragma once

#include "engine/position_stages.h"
#include "orbit/sgp4.h"

/// What GetSatPos gives, in two parts: position, azimuth, elevation and range at once, the rest on demand. Both write
/// the position record and the same fields of the input record, so that a search that completes its last instant leaves
/// what the whole call leaves there. An object goes by the settings that the input record has
/// when it is made; the elements stay as they are while it lives.
class LazyPosition
{
public:
    /// As the observer of the record sees it.
    LazyPosition(WinpData* in, SatPosData* sp, int isat);

    /// In another view.
    ///
    /// @param relative  the observer is the second satellite: its true of date state stays in the position record
    LazyPosition(WinpData* in, SatPosData* sp, int isat, const View& view, bool relative);

    /// Moves the satellite by another model than that of its slot.
    void moveBy(Propagator model) { s.model = model; }

    /// Goes to an instant, MJD UTC.
    void look(double mjd);

    /// The same without azimuth and elevation.
    void goTo(double mjd);

    /// Azimuth and elevation at the instant, as seen from another place.
    void lookFrom(const Site& observer);

    /// Prepares for `look` at this instant and at others that follow it in equal steps, days.
    void expect(double mjd, double step);

    /// The state of the model at an instant that `expect` has prepared, as `findState` has it; false if there is none.
    bool stateAhead(double mjd, Vec3& r) const;

    double elevation() const { return s.sp->el[s.isat]; }  // degrees
    double azimuth() const { return s.sp->az[s.isat]; }    // degrees
    double sunAtObserver();                                // elevation, degrees
    double sunAtSatellite();                               // the same with the horizon dip
    double moonAtSatellite();                              // the same; with moonflg only

    /// The place below the satellite and its height; the sidereal time as well.
    void needSubSatellitePoint();

    /// What `transitTarget` needs.
    void needTransitTarget();

    /// The ground point of a transit, an occultation or a flare, and what goes with it; no more than that takes.
    void findEventPoint();

    /// Everything else of the instant.
    void complete(int vis = 0);

    const Scene& scene() const { return s; }

private:
    /// Each works its quantity out unless it is known for this instant.
    void needSun();
    /// As `needSun`.
    void needMoon();

    Scene s;
    Sgp4Ahead ahead;
    struct
    {
        bool sun, moon, subSatellitePoint, sunAtObserver, sunAtSatellite, moonAtSatellite;
    } known{};
};
