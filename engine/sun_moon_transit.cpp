#include "engine/sun_moon_transit.h"

#include <algorithm>
#include <cmath>

#include "astro/angles.h"
#include "engine/event_geometry.h"
#include "engine/position.h"
#include "record/numbers.h"

namespace {

constexpr double oneSecondDays = 1.1574074074074073e-5;
constexpr double widestKm = 50.0;

/// The satellite from the central line, and the line there. Radians and km.
struct Sighting
{
    bool onGround;
    double lat, lng;
    double az, el, range;
};

Sighting sightingAt(double t, WinpData* in, int isat, const View& from)
{
    positionIn(from, t, in, satpos, isat);
    return {satpos->occlat[isat] < noGroundPoint, satpos->occlat[isat] * radPerDeg, satpos->occlng[isat] * radPerDeg,
            satpos->az[isat] * radPerDeg,         satpos->el[isat] * radPerDeg,     satpos->dst[isat]};
}

/// Direction of the central line over the ground, radians.
double trackDirection(const Sighting& now, const Sighting& then)
{
    if (!now.onGround || !then.onGround)
        return now.az;
    double cosine = 0;
    double direction = 0;
    ADisDir(now.lng, now.lat, then.lng, then.lat, cosine, direction);
    return direction * radPerDeg;
}

/// Half the width of the transit zone across the track, km; not above `widestKm`.
double halfWidth(const WinpData& in, const Sighting& now, double direction)
{
    constexpr double tangentOfSun = 0.00462516;
    const double tangent = in.occflg == 1 ? tangentOfSun : std::tan(satpos->moonrad * radPerDeg);
    const double R = now.range * tangent;
    const double E = std::sin(now.el) > 1e-10 ? R / std::sin(now.el) : R;
    const double w = direction - now.az;
    const double across = R * std::cos(w);
    const double along = E * std::sin(w);
    return std::min(std::sqrt(across * across + along * along), widestKm);
}

/// How long the satellite takes to cross the disk, seconds.
double crossingTime(double cosineOfMotion)
{
    constexpr double diskDeg = 0.53;
    if (!(std::abs(cosineOfMotion) < 1.0))
        return 0.0;
    const double v = std::acos(cosineOfMotion) * degPerRad;
    return std::abs(v) > 1e-40 ? diskDeg / v : v;
}

}  // namespace

void SunMoonTr(WinpData* in, double t, int isat, double dist, int autow, int& r, char* text)
{
    constexpr std::size_t room = 64;
    View centre = viewOf(*in);
    absolutePosition(t, in, satpos, isat);
    if (satpos->occlat[isat] < noGroundPoint) {
        centre.observer.lat = satpos->occlat[isat];
        centre.observer.lng = satpos->occlng[isat];
    }
    const Sighting now = sightingAt(t, in, isat, centre);
    const Sighting then = sightingAt(t + oneSecondDays, in, isat, centre);
    const double W = halfWidth(*in, now, trackDirection(now, then));
    double cosine = 0;
    double position = 0;
    ADisDir(now.az, now.el, then.az, then.el, cosine, position);
    const double T = crossingTime(cosine);

    TextWriter writer(text, room);
    if (T >= 0.05 && T <= 30.0)
        writer.addFormatted("   %4.1lf km %4.1lf sec %4.0lf", W, T, position);
    else
        writer.add(" ");
    constexpr std::size_t mark = 3;
    if (W >= widestKm && writer.text().size() > mark)
        text[mark] = '>';
    if (autow)
        r = W >= dist ? 1 : 2;
}
