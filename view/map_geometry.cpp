#include "view/map_geometry.h"

#include <array>
#include <cmath>
#include <numbers>

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/frames.h"
#include "astro/sun_moon.h"
#include "engine/clamped_values.h"
#include "view/coast_data.h"
#include "view/pixel.h"
#include "view/stereographic.h"

namespace {

constexpr int mapRight = 721;        // a hemisphere map ends here,
constexpr int mapBottom = 362;       // and here the legend begins
constexpr int edgeJumpPixels = 200;  // a longer piece of coast crosses the edge of the map

QPoint offMap(const MapFrame& map)
{
    return {map.width + 3, map.height + 3};
}

double meridianOf(const MapFrame& map)
{
    return clamped(map.centmer, limitDegrees);
}

/// A parallel of the hemisphere; it holds no point where the latitude lies in the other one.
struct Parallel
{
    Parallel(const MapFrame& map, double lat)
    {
        constexpr double beyondPole = 90.1;  // a little more than a right angle still counts as the pole
        const double phi = map.southern() ? -lat : lat;
        visible = phi >= 0 && phi <= beyondPole;
        radius = stereographic::radius(phi * radPerDeg);
    }

    bool visible;
    double radius;
};

/// The direction of a meridian from the pole of a hemisphere map.
struct Spoke
{
    Spoke(const MapFrame& map, double lng)
    {
        const double east = halfTurns(lng - meridianOf(map));
        const double lambda = (map.southern() ? -east : east) * radPerDeg;
        sine = std::sin(lambda);
        cosine = std::cos(lambda);
    }

    double sine, cosine;
};

QPoint crossing(const MapFrame& map, const Parallel& parallel, const Spoke& spoke)
{
    if (!parallel.visible)
        return offMap(map);
    int x = nearestPixel(-parallel.radius * spoke.sine * map.xscale) + map.centre.x();
    const int y = nearestPixel(-parallel.radius * spoke.cosine * map.yscale) + map.centre.y();
    if (x > mapRight)
        x = map.width + 3;
    if (y >= mapBottom)
        return {map.width + 3, map.width + 3};
    return {x, y};
}

GeoPlace placeOnHemisphere(double u, double v)
{
    if (u == 0 && v == 0)
        return {90.0, 0.0};
    const auto [lambda, sine] = stereographic::directionAt(-u, v);
    GeoPlace place{outsideMap, lambda * degPerRad};
    if (sine && *sine >= 0)
        place.lat = std::asin(*sine) * degPerRad;
    return place;
}

/// The lines through points at every `step` degrees between `from` and `to`, whether shown or not.
template <class PointAt>
void addCurve(std::vector<QLine>& lines, int from, int to, int step, const PointAt& pointAt)
{
    QPoint last = pointAt(from);
    for (int at = from + step; at <= to; at += step) {
        const QPoint next = pointAt(at);
        lines.emplace_back(last, next);
        last = next;
    }
}

/// From the pole in one line to latitude 10, and on in small steps to the equator as far as the map reaches.
void addHemisphereMeridian(std::vector<QLine>& lines, const MapFrame& map, double lng)
{
    const double north = map.southern() ? -1.0 : 1.0;
    QPoint last = pixelOf(map, north * 90.0, 0.0);
    for (int lat = 10; lat >= 0; --lat) {
        const QPoint next = pixelOf(map, north * lat, lng);
        if (lat == 10 || map.shows(next))
            lines.emplace_back(last, next);
        last = next;
    }
}

}  // namespace

double halfTurns(double degrees)
{
    constexpr double turn = 360.0;
    if (std::abs(degrees) > 3.0 * turn)
        degrees = std::remainder(degrees, turn);
    while (degrees > 180.0)
        degrees -= turn;
    while (degrees < -180.0)
        degrees += turn;
    return degrees;
}

QPoint pixelOf(const MapFrame& map, double lat, double lng)
{
    if (map.hemisphere())
        return crossing(map, Parallel(map, lat), Spoke(map, lng));
    const double east = halfTurns(lng - meridianOf(map));
    return {nearestPixel(east * map.xscale) + map.centre.x(), nearestPixel(-lat * map.yscale) + map.centre.y()};
}

GeoPlace placeAt(const MapFrame& map, const QPoint& p)
{
    GeoPlace place{-(p.y() - map.centre.y()) / map.yscale, (p.x() - map.centre.x()) / map.xscale};
    if (map.hemisphere()) {
        place = placeOnHemisphere(place.lng, place.lat);
        if (map.southern() && place.lat != outsideMap)
            place = {-place.lat, -place.lng};
        place.lng = halfTurns(place.lng);
    }
    if (map.centmer != 0)
        place.lng = halfTurns(place.lng + meridianOf(map));
    return place;
}

std::vector<QLine> coastLines(const MapFrame& map)
{
    std::vector<QLine> lines;
    lines.reserve(coastPoints.size());
    bool penDown = false;
    QPoint pen;
    for (const CoastPoint& point : coastPoints) {
        if (point.lat == penUp) {
            penDown = false;
            continue;
        }
        const QPoint next = pixelOf(map, point.lat * 0.1, point.lng * 0.1);
        const bool inPicture = map.shows(pen) || map.shows(next);
        if (penDown && inPicture && std::abs(next.x() - pen.x()) < edgeJumpPixels)
            lines.emplace_back(pen, next);
        pen = next;
        penDown = true;
    }
    return lines;
}

std::vector<QLine> equatorLines(const MapFrame& map)
{
    return ringOfLines([&](double lng) { return pixelOf(map, 0.0, lng); }, map.width, map.height);
}

std::vector<QLine> worldGrid(const MapFrame& map, int step)
{
    constexpr int right = 721, bottom = 361;
    std::vector<QLine> lines;
    for (int lng = step - 180; lng <= 180; lng += step) {
        const int x = pixelOf(map, 90.0, lng).x();
        lines.emplace_back(x, 0, x, bottom);
    }
    for (int lat = step - 90; lat < 90; lat += step) {
        const int y = pixelOf(map, lat, -180.0).y();
        lines.emplace_back(0, y, right, y);
    }
    return lines;
}

std::vector<QLine> hemisphereGrid(const MapFrame& map)
{
    std::vector<QLine> lines;
    for (int lng = -180; lng <= 150; lng += 30)
        addHemisphereMeridian(lines, map, lng);
    for (const double lat : {60.0, 30.0}) {
        const double parallel = map.southern() ? -lat : lat;
        addCurve(lines, -180, 180, 5, [&](double lng) { return pixelOf(map, parallel, lng); });
    }
    return lines;
}

Vec3 sunDirection(double mjd)
{
    Sun200 sun;
    const double T = julcent(clamped(mjd, limitDays));
    return vnorm(eclequ(T, sun.position(T)));
}

double terminatorLatitude(const Vec3& sun, const Vec3& meridian)
{
    constexpr double smallestDivisor = 1e-10, inItsPlace = 1.74533e-07;
    const auto arcOf = [](double cosine) { return std::abs(cosine) > 1.0 ? 0.0 : std::acos(cosine); };
    const double A = arcOf(dot(vnorm({sun[0], sun[1], 0.0}), meridian));
    const double B = arcOf(std::abs(sun[2]));
    const double C = std::asin(std::sin(B) * std::sin(A));
    double d = std::cos((A - C) / 2.0);
    if (std::abs(d) < smallestDivisor)
        d = inItsPlace;
    const double t = std::atan(std::cos((A + C) / 2.0) * std::tan((B + std::numbers::pi / 2.0) / 2.0) / d);
    return 90.0 - 2.0 * t * 180.0 / std::numbers::pi;
}

std::vector<NightMeridian> nightMeridians(double mjd)
{
    constexpr double radPerDegree = 0.0174533;  // as coarse as the step of the night
    const Vec3 sun = sunDirection(mjd);
    std::vector<NightMeridian> night;
    night.reserve(721);
    for (int i = -360; i <= 360; ++i) {
        const double lng = 0.5 * i;
        const Vec3 meridian = vnorm(GeoPos(clamped(mjd, limitDays), 0, 0, lng * radPerDegree, 0));
        const int n = std::clamp(truncToInt(2.0 * terminatorLatitude(sun, meridian)), -181, 180);
        if (sun[2] > 0)
            night.push_back({lng, -180, n});
        else
            night.push_back({lng, -n, 180});
    }
    return night;
}

std::vector<QLine> nightColumns(const MapFrame& map, double mjd)
{
    std::vector<QLine> columns;
    columns.reserve(721);
    for (const NightMeridian& dark : nightMeridians(mjd)) {
        const QPoint low = pixelOf(map, dark.first / 2.0, dark.lng);
        const QPoint high = pixelOf(map, dark.last / 2.0, dark.lng);
        if (dark.first <= dark.last && map.shows(low))
            columns.emplace_back(low, high);
    }
    return columns;
}

std::vector<QPoint> nightPoints(const MapFrame& map, double mjd)
{
    std::vector<Parallel> parallels;
    for (int k = -180; k <= 180; ++k)
        parallels.emplace_back(map, k / 2.0);

    std::vector<QPoint> points;
    for (const NightMeridian& dark : nightMeridians(mjd)) {
        const Spoke spoke(map, dark.lng);
        for (int k = dark.first; k <= dark.last; ++k) {
            const std::size_t halfDegrees = k + 180;  // from the south pole on
            const QPoint p = crossing(map, parallels[halfDegrees], spoke);
            if (map.shows(p))
                points.push_back(p);
        }
    }
    return points;
}
