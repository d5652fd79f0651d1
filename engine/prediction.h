// Where a satellite stands for an observer, when it passes and what events it brings, as functions of values:
//
//   const Orbit orbit = orbitOf(record, slot);
//   const Site vienna{48.2, 16.4, 180.0};
//   const Position now = predictPosition(orbit, 58138.75, vienna);
//   for (const Pass& pass : predictPasses(orbit, vienna, 58138.0, 58141.0))
//       use(pass.tm[1], pass.a[1]);
//   for (const Event& event : predictEvents(orbit, vienna, 58138.0, 58141.0, {EventKind::moonTransit}))
//       use(event.mjd, event.transit->seconds);
//
// Times are MJD on the UTC scale, angles degrees. Nothing here keeps or changes anything outside of its arguments, so
// that any number of threads may call it at the same time. The figures are to the last bit those of GetSatPos and
// nextpass on a record with the same values.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "astro/vec3.h"
#include "engine/event.h"
#include "engine/horizon_line.h"
#include "engine/magnitude.h"
#include "engine/models.h"
#include "engine/pass.h"
#include "engine/site.h"
#include "orbit/orbit.h"

/// What counts as a pass: the program's defaults, passes of sunlit satellites in the dark.
struct Conditions
{
    double leastElevation = 10.0;  // of the satellite; below 0 every step of a search takes a minute
    double highestSun = -6.0;      // elevation of the Sun at the observer; above 90 any hour of the day
    bool visibleOnly = true;       // the satellite has to be sunlit; with `Models::moonlight` moonlit and not sunlit
    std::shared_ptr<const HorizonLine>
        horizon{};  // of the site; the satellite has to be above it as well. Null: none
};

/// What one instant gives for one satellite. All of it is finite.
struct Position
{
    double mjd = 0;
    bool found = true;  // false: the orbit model failed, and all below belongs to a point inside the Earth
    Vec3 r;             // km, true equator of date
    Vec3 v;             // km/s

    double lat = 0;     // geodetic, of the point below the satellite
    double lng = 0;     // east positive, -180 to 180
    double height = 0;  // km above the ellipsoid

    double elevation = 0;          // without refraction
    double apparentElevation = 0;  // with it, see `ElvRefr`
    double azimuth = 0;            // from north through east, 0 to 360
    double range = 0;              // km
    double rangeRate = 0;          // km/s, positive when receding
    double ra = 0;                 // apparent right ascension, hours
    double dec = 0;                // apparent declination

    double observerSun = 0;    // elevation of the Sun at the observer
    double sunElevation = 0;   // above the satellite's own horizon, its dip included: from 0 on it is sunlit
    double moonElevation = 0;  // the same for the Moon; 0 unless `Models::moonlight`
    double beta = 0;           // between orbit plane and Sun
    double subSolarLat = 0;    // geodetic, of the point with the Sun in the zenith
    double subSolarLng = 0;
    std::optional<double> magnitude;
    std::optional<SolarEclipse> eclipse;  // type 0 while the Moon is clear of the Sun
};

/// Which events to look for. The place of an occultation, and the normal of a surface that keeps its direction among
/// the stars (`inertial`), are `ra` and `dec` in the frame of `Models::equinox`; any other surface of a flare is fixed
/// to the satellite.
struct EventQuery
{
    EventKind kind = EventKind::sunTransit;
    // Of the observer from the centre line, km. 0, for transits alone: as far as their zone reaches.
    double maxDistance = 50.0;
    double ra = 0;   // hours
    double dec = 0;  // degrees
    bool inertial = false;
    double yaw = 0;         // of the normal from the flight direction, degrees, to the right
    double pitch = 0;       // upward
    double faintest = 1.0;  // magnitude, of a flare of a mirror
};

/// One satellite over one site, for many instants. An analytic orbit is made ready once, and a numeric one is flown on
/// from where the last call left it instead of from `Orbit::current`.
///
/// One thread may use an object at a time.
class Predictor
{
public:
    explicit Predictor(const Orbit& orbit, const Site& site = {}, const Conditions& conditions = {},
                       const Models& models = {});
    ~Predictor();
    /// The object moved from may only be given another value.
    Predictor(Predictor&&) noexcept;
    Predictor& operator=(Predictor&&) noexcept;

    /// The position at an instant.
    Position position(double mjd);

    /// The first pass between two times. One in progress at `from` starts there, one in progress at `until` ends there.
    std::optional<Pass> nextPass(double from, double until);

    /// Every pass between two times, in their order. After a satellite with more than 14 revolutions a day has passed,
    /// the search skips an hour, but with a line of the site goes on at once. A span above 100 000 days is cut to that.
    std::vector<Pass> passes(double from, double until);

    /// Every event between two times, in the order of time. A numeric orbit stays where it is.
    std::vector<Event> events(double from, double until, const EventQuery& search);

    /// Every interval between two times in which the conditions hold, none left out and to 0.01 s: where `passes` goes
    /// by steps. A pass that is broken by shadow, Sun or horizon gives one for each part.
    std::vector<Pass> intervals(double from, double until);

private:
    class Records;
    std::unique_ptr<Records> records;
};

/// The position of a satellite at an instant, as seen from a site.
Position predictPosition(const Orbit& orbit, double mjd, const Site& site, const Models& models = {});

/// The first pass between two times, see `Predictor::nextPass`.
std::optional<Pass> predictNextPass(const Orbit& orbit, const Site& site, double from, double until,
                                    const Conditions& conditions = {}, const Models& models = {});

/// Every pass between two times, see `Predictor::passes`.
std::vector<Pass> predictPasses(const Orbit& orbit, const Site& site, double from, double until,
                                const Conditions& conditions = {}, const Models& models = {});

/// Every event between two times, see `Predictor::events`.
std::vector<Event> predictEvents(const Orbit& orbit, const Site& site, double from, double until,
                                 const EventQuery& search, const Conditions& conditions = {},
                                 const Models& models = {});

/// The conditions of a record.
Conditions conditionsOf(const WinpData& in);
