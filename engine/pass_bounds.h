// What can be said of the visibility conditions at an instant without the orbit model: bounds on the elevations of
// satellite and Sun. For the pass search.
#pragma once

#include <cmath>
#include <optional>

#include "engine/guide_orbit.h"
#include "engine/position_stages.h"

/// Whether a condition is settled, and how.
enum class Verdict
{
    open,
    no,
    yes
};

/// The observer's horizon, turning with the Earth.
class Horizon
{
public:
    /// A point as seen by the observer, km: above the plane of the horizon, and from the vertical.
    struct Sight
    {
        double up, aside;
    };

    /// Of no observer; not to be asked.
    Horizon() = default;

    /// At the instant of a scene, of which time and observer have been set; good for `goodDays` to both sides.
    explicit Horizon(const Scene& s);

    static constexpr double goodDays = 5.0;

    double anchor() const { return anchorMjd; }
    /// Where the guide of a satellite is seen; within `goodDays`.
    Sight sight(const GuideOrbit& guide, const GuideOrbit::Place& place, double mjd) const;

    /// Sine of the elevation of a direction, a unit vector in the true equator of date.
    double sineOfElevation(const Vec3& direction, double mjd) const;

private:
    /// The sidereal time there.
    double siderealAt(double mjd) const;  // at the observer, radians

    double anchorMjd = 0;
    double sidereal = 0;
    double cosLat = 1, sinLat = 0;
    double fromAxis = 0, fromEquator = 0;  // km, signed
};

/// A limit of the elevation as a cone around the vertical.
class Limit
{
public:
    /// Of -90 to 90 degrees, the ends left out; others settle nothing.
    explicit Limit(double degrees);

    /// Positive for a point lower than the limit. The size is not above the distance from the cone, and it changes by
    /// no more than the way that the point moves. NaN for a limit that is no elevation.
    double outside(const Horizon::Sight& s) const { return sine * s.aside - cosine * s.up; }

private:
    double sine, cosine;
};

/// The apparent Sun moves by less than this among the stars, its parallax and the rounding of the times included.
constexpr double sunDegPerDay = 1.1;

/// Polar motion that is no more than this puts no point of the Earth, and nothing above it, farther off than `poleRad`.
bool poleNear(const WinpData& in);
constexpr double poleRad = 1e-4;

/// The bounds of one search, for a slot and an observer that stay as they are.
class PassBounds
{
public:
    /// @param sense  1 for a search forward in time, -1 backward
    /// @param least  the least elevation of a pass, degrees
    PassBounds(const WinpData& record, int slot, double sense, double least);

    /// Takes note of an instant at which the position has been found.
    void anchor(const Scene& s);
    /// Takes note of one at which the Sun has been found as well.
    void anchorSun(const Scene& s);

    /// From now on `notAboveBest` may be asked, with this elevation, and `farBelow` no more.
    void setBest(double degrees);

    // The satellite's elevation.
    Verdict highEnough(double t) { return at(t).highEnough; }  // at least the least elevation
    Verdict farBelow(double t) { return at(t).farBelow; }      // below the limit of the coarse step
    Verdict notAboveBest(double t) { return at(t).notAboveBest; }

    /// Whether the Sun is higher than so many degrees at the observer.
    Verdict sunAbove(double degrees, double t) const;

    /// Whether the Sun is above the satellite's own horizon.
    Verdict sunlit(double t);

    /// A quantity, and how far the true one may be from it; the doubt is infinite where nothing can be said.
    struct Estimate
    {
        double value, doubt;

        /// By how much the sign of the value is settled; negative: it is not.
        double settled() const { return std::abs(value) - doubt; }
    };

    /// How far outside the cone of the least elevation the satellite is, km. The doubt holds for the whole guide.
    Estimate outsideLeastElevation(double t);

    /// The satellite's elevation, degrees.
    Estimate elevation(double t);

    /// How far outside the Earth's shadow the satellite is, km.
    Estimate outsideShadow(double t);

    /// How much higher than so many degrees the Sun is at the observer, degrees. A day adds `sunDegPerDay` to the doubt.
    Estimate sunOver(double degrees, double t) const;

    /// Of the guide in the frame of the horizon, km/s; in space it is slower.
    double fastestKmPerS() const;

    /// Where the guide has the satellite, true equator of date.
    struct Stand
    {
        Vec3 r;        // km
        double range;  // from the Earth's centre, km
        double offKm;  // the satellite is not farther away
    };

    /// Nothing where there is no guide.
    std::optional<Stand> stand(double t);

    /// The guide in use, and the times within which it may be asked, MJD; from after to: none.
    const GuideOrbit& orbit() const { return guide; }
    double reachesFrom() const { return guide.usable() ? guideFrom : 1.0; }
    double reachesTo() const { return guide.usable() ? guideTo : 0.0; }

private:
    struct Verdicts
    {
        Verdict highEnough = Verdict::open, farBelow = Verdict::open, notAboveBest = Verdict::open;
        double from = 1, to = 0;  // MJD
    };

    /// What the guide settles at an instant, and for how long.
    const Verdicts& at(double t);
    /// Whether the guide may be asked.
    bool guideReaches(double t) const;
    /// The place in the guide, kept for the next question; null where there is none.
    const GuideOrbit::Place* guidePlace(double t);
    /// Times of the guide.
    double minutesFromEpoch(double t) const;
    Vec3 guidePosition(const GuideOrbit::Place& at) const;
    bool shadowKnown(double t) const;
    double sunDoubtDeg(double t) const;
    double lightDoubtRad(double r, double t) const;

    const WinpData& in;
    int isat;
    double sign;
    bool analytic;
    bool inside = false;
    Limit satel, coarse, best;

    GuideOrbit guide;
    double guideFrom = 1, guideTo = 0;  // MJD
    Horizon horizon;
    GuideOrbit::Place place{};
    double placeAt;  // NaN: nowhere

    Verdicts verdicts;

    bool sunKnown = false;
    Horizon sunHorizon;
    Vec3 sunDirection;
};
