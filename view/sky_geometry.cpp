#include "view/sky_geometry.h"

#include <cmath>
#include <cstdlib>
#include <numbers>
#include <optional>

#include "astro/angles.h"
#include "engine/horizon_line.h"
#include "view/pixel.h"
#include "view/stereographic.h"

namespace {

constexpr int skyRight = 721, skyBottom = 361;  // last pixels of the sky

QPoint offMap(const SkyFrame& sky)
{
    return {sky.width + 3, sky.height + 3};
}

/// Brought into -pi to pi.
double turned(double radians)
{
    return std::atan2(std::sin(radians), std::cos(radians));
}

/// The angle x of the Mollweide projection: x + sin x = pi sin t0.
double mollweideAngle(double t0)
{
    constexpr double nearZenith = 1.22173;
    const double target = std::numbers::pi * std::sin(t0);
    double x = t0;
    for (int steps = t0 > nearZenith ? 8 : 3; steps > 0; --steps)
        x = x - (std::sin(x) + x - target) / (1.0 + std::cos(x));
    return x;
}

/// A point of the picture in radii of the sphere, upward and to the right.
struct PicturePoint
{
    double x, y;
};

PicturePoint mollweide(double t0, double lambda)
{
    const double x = mollweideAngle(t0);
    return {0.900316 * lambda * std::cos(x / 2.0), 1.41421 * std::sin(x / 2.0)};
}

/// North is up and east to the left, as the sky is seen from below.
PicturePoint aboutZenith(double el, double az)
{
    const double r = stereographic::radius(el);
    return {-r * std::sin(az), r * std::cos(az)};
}

double compassDegrees(double radians)
{
    const double degrees = radians * degPerRad;
    return degrees < 0 ? degrees + 360.0 : degrees;
}

SkyPlace placeAboutZenith(double u, double w, double limit)
{
    if (u == 0 && w == 0)
        return {0.0, 90.0};
    const auto [angle, sine] = stereographic::directionAt(-w, u);
    const double el = sine ? std::asin(*sine) * degPerRad : outsideSky;
    return {compassDegrees(angle), el < limit ? outsideSky : el};
}

SkyPlace placeOnMollweide(const SkyFrame& sky, double u, double w, double limit)
{
    const double t = std::asin(0.707107 * u);
    if (!(u >= 0 && std::cos(t) >= 0))
        return {0.0, outsideSky};
    const double el = std::asin((std::sin(2.0 * t) + 2.0 * t) / std::numbers::pi) * degPerRad + limit;
    const double lambda = 1.11072 * w / std::cos(t) + sky.skaz * radPerDeg;
    return {compassDegrees(turned(lambda)), el};
}

}  // namespace

double skyLimit(const SkyFrame& sky)
{
    constexpr double earthRadiusM = 6378137.0;
    if (!sky.satsky || !(sky.altitude > 0))
        return 0.0;
    return -std::acos(earthRadiusM / (sky.altitude + earthRadiusM));
}

QPoint pixelOf(const SkyFrame& sky, double el, double az)
{
    const double limit = skyLimit(sky) * degPerRad;
    if (!(el >= limit) || (!sky.zenith() && sky.satsky && el > 90.0 + limit))
        return offMap(sky);
    const PicturePoint at = sky.zenith() ? aboutZenith(el * radPerDeg, az * radPerDeg)
                                         : mollweide((el - limit) * radPerDeg, turned((az - sky.skaz) * radPerDeg));
    int x = nearestPixel(at.x * sky.xscale) + sky.centre.x();
    int y = nearestPixel(-at.y * sky.yscale) + sky.centre.y();
    if (y > skyBottom)
        y = sky.width + 3;
    if (x > skyRight)
        x = sky.width + 3;
    return {x, y};
}

SkyPlace placeAt(const SkyFrame& sky, const QPoint& p)
{
    const double u = -(p.y() - sky.centre.y()) / sky.yscale;
    const double w = (p.x() - sky.centre.x()) / sky.xscale;
    const double limit = skyLimit(sky) * degPerRad;
    return sky.zenith() ? placeAboutZenith(u, w, limit) : placeOnMollweide(sky, u, w, limit);
}

std::vector<QLine> skyline(const SkyFrame& sky, const HorizonLine& line)
{
    const std::vector<HorizonLine::Point>& corners = line.points();
    std::vector<QLine> lines;
    std::optional<QPoint> from;
    const auto goTo = [&](double az, double el) {
        const QPoint to = pixelOf(sky, std::max(el, 0.0), az);
        const bool shown = to.x() <= sky.width && to.y() <= sky.height;
        const bool sameEdge = from && (sky.zenith() || std::abs(to.x() - from->x()) < sky.width / 2);
        if (shown && sameEdge)
            lines.emplace_back(*from, to);
        from = shown ? std::optional(to) : std::nullopt;
    };
    for (std::size_t k = 0; k + 1 < corners.size(); ++k) {
        const auto [az, el] = corners[k];
        const double width = corners[k + 1].azimuth - az, rise = corners[k + 1].elevation - el;
        const int steps = std::max(1, static_cast<int>(std::ceil(width)));
        for (int step = 0; step < steps; ++step)
            goTo(az + width * step / steps, el + rise * step / steps);
    }
    goTo(corners.back().azimuth, corners.back().elevation);
    return lines;
}

std::vector<QLine> horizonLines(const SkyFrame& sky)
{
    return ringOfLines([&](double az) { return pixelOf(sky, 0.0, az); }, sky.width, sky.height);
}
