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
struct CentreView
{
    bool onGround;
    double lat, lng;
    double az, el, range;
};

CentreView viewFromCentre(double t, WinpData* in, SatPosData* sp, int isat, const View& from)
{
    positionIn(from, t, in, sp, isat);
    return {sp->occlat[isat] < noGroundPoint, sp->occlat[isat] * radPerDeg, sp->occlng[isat] * radPerDeg,
            sp->az[isat] * radPerDeg,         sp->el[isat] * radPerDeg,     sp->dst[isat]};
}

/// Direction of the central line over the ground, radians.
double trackDirection(const CentreView& now, const CentreView& then)
{
    if (!now.onGround || !then.onGround)
        return now.az;
    double cosine = 0;
    double direction = 0;
    ADisDir(now.lng, now.lat, then.lng, then.lat, cosine, direction);
    return direction * radPerDeg;
}

/// Half the width of the transit zone across the track, km; not above `widestKm`.
double halfWidth(const WinpData& in, double moonRadiusDeg, const CentreView& now, double direction)
{
    constexpr double tangentOfSun = 0.00462516;
    const double tangent = in.occflg == 1 ? tangentOfSun : std::tan(moonRadiusDeg * radPerDeg);
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

DiskTransit diskTransit(WinpData* in, SatPosData* sp, double t, int isat)
{
    View centre = viewOf(*in);
    absolutePosition(t, in, sp, isat);
    if (sp->occlat[isat] < noGroundPoint) {
        centre.observer.lat = sp->occlat[isat];
        centre.observer.lng = sp->occlng[isat];
    }
    const CentreView now = viewFromCentre(t, in, sp, isat, centre);
    const CentreView then = viewFromCentre(t + oneSecondDays, in, sp, isat, centre);
    DiskTransit transit;
    transit.halfWidthKm = halfWidth(*in, sp->moonrad, now, trackDirection(now, then));
    double cosine = 0;
    ADisDir(now.az, now.el, then.az, then.el, cosine, transit.angleDeg);
    transit.seconds = crossingTime(cosine);
    return transit;
}

void SunMoonTr(WinpData* in, double t, int isat, double dist, int autow, int& r, char* text)
{
    constexpr std::size_t room = 64;
    const DiskTransit transit = diskTransit(in, satpos, t, isat);
    TextWriter writer(text, room);
    if (transit.sensible())
        writer.addFormatted("   %4.1lf km %4.1lf sec %4.0lf", transit.halfWidthKm, transit.seconds, transit.angleDeg);
    else
        writer.add(" ");
    constexpr std::size_t mark = 3;
    if (transit.halfWidthKm >= widestKm && writer.text().size() > mark)
        text[mark] = '>';
    if (autow)
        r = transit.halfWidthKm >= dist ? 1 : 2;
}
