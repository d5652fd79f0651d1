#include "engine/night.h"

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/frames.h"
#include "astro/sun_moon.h"
#include "astro/time_scales.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double sunsetDeg = -0.833;  // refraction and the Sun's radius
constexpr double searchStepDays = 5.0 / 1440.0;
constexpr double oneSecondDays = 1.0 / 86400.0;
constexpr double earthRadiiPerAu = 23454.78;

/// What turns a place of the series to the horizon.
struct Instant
{
    explicit Instant(double t)
        : mjd(t), T(julcent(t + DefTdUt(yearOf(t)) / 86400.0)), nutation(nutmat(T, eqeq, false))
    {}

    /// The place of a geocentric vector in Earth radii.
    SkyPlace seenFrom(const Site& site, const Vec3& body) const
    {
        double azimuth = 0, elevation = 0, distance = 0;
        AppPos(mjd, eqeq, site.lat * radPerDeg, site.lng * radPerDeg, site.height, 1, body, azimuth, elevation,
               distance);
        return {azimuth * degPerRad, elevation * degPerRad};
    }

    Vec3 sun() const
    {
        Sun200 series;
        return mxvct(nutation, eclequ(T, series.position(T))) * earthRadiiPerAu;
    }

    Vec3 moon() const
    {
        Moon200 series;
        return mxvct(nutation, eclequ(T, series.position(T)));
    }

    double mjd, eqeq = 0, T;
    Mat3 nutation;

private:
    static int yearOf(double t)
    {
        int day = 0, month = 0, year = 0;
        double hours = 0;
        caldat(t, day, month, year, hours);
        return year;
    }
};

bool down(double t, const Site& site)
{
    return sunPlace(t, site).elevation < sunsetDeg;
}

/// Where the Sun changes sides between two instants.
double crossing(double from, double to, const Site& site)
{
    const bool before = down(from, site);
    while (std::abs(to - from) > oneSecondDays) {
        const double middle = 0.5 * (from + to);
        (down(middle, site) == before ? from : to) = middle;
    }
    return 0.5 * (from + to);
}

/// The first change within a day of `t`, forward or backward.
std::optional<double> nextChange(double t, double step, const Site& site)
{
    const bool before = down(t, site);
    const int steps = static_cast<int>(1.0 / std::abs(step)) + 1;
    for (int i = 0; i < steps; ++i)
        if (down(t + (i + 1) * step, site) != before)
            return crossing(t + i * step, t + (i + 1) * step, site);
    return std::nullopt;
}

}  // namespace

SkyPlace sunPlace(double mjd, const Site& site)
{
    const Instant instant(mjd);
    return instant.seenFrom(site, instant.sun());
}

MoonPlace moonPlace(double mjd, const Site& site)
{
    const Instant instant(mjd);
    const Vec3 moon = instant.moon();
    const double cosine = dot(vnorm(moon), vnorm(moon - instant.sun()));
    return {instant.seenFrom(site, moon), std::acos(std::clamp(cosine, -1.0, 1.0)) * degPerRad};
}

std::optional<Night> nightAt(double t, const Site& site)
{
    if (!down(t, site)) {
        const std::optional<double> sunset = nextChange(t, searchStepDays, site);
        if (!sunset)
            return std::nullopt;
        const double after = *sunset + 2.0 * oneSecondDays;
        return Night{*sunset, nextChange(after, searchStepDays, site).value_or(*sunset + 1.0)};
    }
    const std::optional<double> sunset = nextChange(t, -searchStepDays, site);
    const std::optional<double> sunrise = nextChange(t, searchStepDays, site);
    return Night{sunset.value_or(t), sunrise.value_or(t + 1.0)};
}
