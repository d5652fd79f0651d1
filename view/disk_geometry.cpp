#include "view/disk_geometry.h"

#include <cmath>
#include <numbers>

#include "astro/angles.h"
#include "astro/vec3.h"
#include "view/map_geometry.h"
#include "view/pixel.h"

namespace {

constexpr int limbStepDegrees = 5;

QPoint offset(const DiskFrame& disk, double x, double y)
{
    return {nearestPixel(disk.centre.x() + x), nearestPixel(disk.centre.y() + y)};
}

}  // namespace

QPoint pixelOf(const DiskFrame& disk, const Horizontal& body, double az, double el)
{
    constexpr double farDegrees = 5.0;
    constexpr int bottom = 362;
    const double bodyAz = body.az < 0 ? body.az * degPerRad + 360.0 : body.az * degPerRad;
    const double dx = halfTurns(az - bodyAz) * std::cos(body.el);
    const double dy = el - body.el * degPerRad;
    if (!(std::abs(dx) <= farDegrees && std::abs(dy) <= farDegrees))
        return {0, -10};
    const int x = nearestPixel(dx * disk.xscale) + disk.centre.x();
    const int y = nearestPixel(-dy * disk.yscale) + disk.centre.y();
    return {x, y >= bottom ? -10 : y};
}

QPoint limbPoint(const DiskFrame& disk, double radius, double angle)
{
    return offset(disk, radius * std::sin(angle), -radius * std::cos(angle));
}

std::vector<QPoint> limbPoints(const DiskFrame& disk, double radius, double start)
{
    std::vector<QPoint> points;
    for (int k = 0; k <= 360; k += limbStepDegrees)
        points.push_back(limbPoint(disk, radius, k * radPerDeg + start));
    return points;
}

double litStart(const Horizontal& sun, const Horizontal& moon)
{
    const double y = std::cos(sun.el) * std::sin(sun.az - moon.az);
    const double x =
        std::sin(sun.el) * std::cos(moon.el) - std::cos(sun.el) * std::sin(moon.el) * std::cos(sun.az - moon.az);
    return atan20(y, x) - std::numbers::pi / 2.0;
}

std::vector<QPoint> terminatorPoints(const DiskFrame& disk, double radius, double start, double phase)
{
    const double sine = std::sin(start), cosine = std::cos(start);
    std::vector<QPoint> points;
    for (int k = 0; k <= 180; k += limbStepDegrees) {
        const double u = -radius * std::sin(k * radPerDeg) * phase;
        const double v = radius * std::cos(k * radPerDeg);
        points.push_back(offset(disk, cosine * u + sine * v, sine * u - cosine * v));
    }
    return points;
}

double northAngle(const Horizontal& body, double lat)
{
    constexpr double smallestDivisor = 1e-40;
    const double f = lat * radPerDeg;
    const double s = std::sin(body.el) * std::sin(f) + std::cos(body.el) * std::cos(f) * std::cos(body.az);
    const double square = 1.0 - s * s;
    const double d = std::cos(body.el) * (square < 0 ? 0.0 : std::sqrt(square));
    if (!(std::abs(d) > smallestDivisor))
        return 0.0;
    const double cosine = (std::sin(f) - s * std::sin(body.el)) / d;
    const double q = std::abs(cosine) <= 1.0 ? std::acos(cosine) : 0.0;
    const bool west = body.az > std::numbers::pi || body.az < 0;
    return west ? q : -q;
}
