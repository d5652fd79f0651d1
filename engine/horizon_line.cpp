#include "engine/horizon_line.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "astro/angles.h"

namespace {

constexpr double fullCircleDeg = 360.0;
constexpr double farthestDeg = 32.0;  // a distance from the line is not asked for beyond
constexpr double nearestDeg = 0.001;

double turnedIn(double azimuth)
{
    const double turned = std::fmod(azimuth, fullCircleDeg);
    return turned < 0.0 ? turned + fullCircleDeg : turned;
}

double along(const HorizonLine::Point& a, const HorizonLine::Point& b, double azimuth)
{
    const double width = b.azimuth - a.azimuth;
    return width > 0.0 ? a.elevation + (b.elevation - a.elevation) * (azimuth - a.azimuth) / width
                       : std::max(a.elevation, b.elevation);
}

bool before(const HorizonLine::Point& point, double azimuth)
{
    return point.azimuth < azimuth;
}

/// Whether the points go from east to west.
bool runsWest(const std::vector<HorizonLine::Point>& points)
{
    int east = 0, west = 0;
    for (std::size_t k = 1; k < points.size(); ++k) {
        east += points[k].azimuth > points[k - 1].azimuth;
        west += points[k].azimuth < points[k - 1].azimuth;
    }
    return west > east;
}

/// Half the azimuths that a cap on the sky covers, degrees.
double halfWidthOf(double elevation, double capDeg)
{
    if (std::abs(elevation) + capDeg >= 90.0)
        return fullCircleDeg / 2.0;
    return std::asin(std::sin(capDeg * radPerDeg) / std::cos(elevation * radPerDeg)) / radPerDeg;
}

}  // namespace

HorizonLine::HorizonLine(std::vector<Point> points) : corners(std::move(points))
{
    for (Point& point : corners) {
        if (point.azimuth != fullCircleDeg)
            point.azimuth = turnedIn(point.azimuth);
        point.elevation = std::clamp(point.elevation, -90.0, 90.0);
    }
    if (runsWest(corners))  // so that a wall keeps its sides
        std::reverse(corners.begin(), corners.end());
    std::stable_sort(corners.begin(), corners.end(),
                     [](const Point& a, const Point& b) { return a.azimuth < b.azimuth; });
    const Point first = corners.front(), last = corners.back();
    const double north = along(last, {first.azimuth + fullCircleDeg, first.elevation}, fullCircleDeg);
    if (first.azimuth > 0.0)
        corners.insert(corners.begin(), {0.0, north});
    if (last.azimuth < fullCircleDeg)
        corners.push_back({fullCircleDeg, north});
    const auto [low, high] = std::minmax_element(
        corners.begin(), corners.end(), [](const Point& a, const Point& b) { return a.elevation < b.elevation; });
    least = low->elevation;
    greatest = high->elevation;
}

double HorizonLine::at(double azimuth) const
{
    const double turned = turnedIn(azimuth);
    return between(turned, turned).high;
}

HorizonLine::Range HorizonLine::between(double from, double to) const
{
    auto next = std::lower_bound(corners.begin(), corners.end(), from, before);
    Range range{90.0, -90.0};
    const auto reach = [&range](double elevation) {
        range = {std::min(range.low, elevation), std::max(range.high, elevation)};
    };
    if (next != corners.begin() && next->azimuth > from)
        reach(along(*std::prev(next), *next, from));
    for (; next != corners.end() && next->azimuth <= to; ++next)
        reach(next->elevation);
    if (next != corners.begin() && next != corners.end())
        reach(along(*std::prev(next), *next, to));
    return range;
}

HorizonLine::Range HorizonLine::around(double azimuth, double halfWidth) const
{
    if (!(halfWidth < fullCircleDeg / 2.0))
        return {least, greatest};
    const double from = azimuth - halfWidth, to = azimuth + halfWidth;
    if (from >= 0.0 && to <= fullCircleDeg)
        return between(from, to);
    const Range one = between(turnedIn(from), fullCircleDeg);
    const Range other = between(0.0, turnedIn(to));
    return {std::min(one.low, other.low), std::max(one.high, other.high)};
}

HorizonLine::Stand HorizonLine::stand(double azimuth, double elevation) const
{
    const double turned = turnedIn(azimuth);
    const bool above = elevation >= between(turned, turned).high;
    for (double cap = farthestDeg; cap > nearestDeg; cap /= 2.0) {
        const Range line = around(turned, halfWidthOf(elevation, cap));
        if (above ? elevation - cap > line.high : elevation + cap < line.low)
            return {above, cap};
    }
    return {above, 0.0};
}
