#include "design/astrometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <tuple>

#include "astro/angles.h"
#include "astro/calendar.h"

namespace {

constexpr std::size_t rowLength = 4;

/// x, with `least` in the place of what is nearly nothing.
double guarded(double x, double least)
{
    return std::abs(x) < least ? least : x;
}

/// A cosine to divide by; where it vanishes 1 keeps the quotient finite.
double divisor(double cosine)
{
    return std::abs(cosine) < 1e-60 ? 1.0 : cosine;
}

/// Standard coordinates from pixels relative to the first star.
double onPlate(const std::array<double, 3>& constants, double dx, double dy)
{
    return constants[0] * dx + constants[1] * dy + constants[2];
}

/// Radians from 0 to a turn, for an angle less than a turn outside.
double withinTurn(double angle)
{
    if (angle < 0.0)
        return angle + twoPi;
    return angle >= twoPi ? angle - twoPi : angle;
}

/// A distance in whole pixels.
int wholePixels(double distance)
{
    constexpr double farthest = 100000.0;
    if (!std::isfinite(distance))
        return truncToInt(farthest);
    return truncToInt(std::clamp(distance + 0.5, -farthest, farthest));
}

}  // namespace

void equplt(double ra0, double dec0, double ra, double dec, double& x, double& y)
{
    const double C = divisor(std::cos(dec0) * std::cos(dec) * std::cos(ra - ra0) + std::sin(dec0) * std::sin(dec));
    x = -std::cos(dec) * std::sin(ra - ra0) / C;
    y = -(std::cos(dec) * std::sin(dec0) * std::cos(ra - ra0) - std::sin(dec) * std::cos(dec0)) / C;
}

// NOLINTNEXTLINE(readability-non-const-parameter): rows and result are passed alike
void lsqfit(double* rows, double* out)
{
    constexpr double leastPixels = 1e-20;
    const double* const a = rows;
    const double* const b = a + rowLength;
    const double* const c = b + rowLength;
    out[2] = a[3];
    const double d = guarded(b[1] * c[0] - c[1] * b[0], leastPixels);
    out[1] = (c[3] * b[0] - b[3] * c[0] + (b[0] - c[0]) * a[3]) / d;
    // both rows give the same figure; a star straight above or below the first one would divide it by nothing
    const double* const wide = std::abs(b[0]) < std::abs(c[0]) ? c : b;
    out[0] = -(out[1] * wide[1] + a[3] + wide[3]) / guarded(wide[0], leastPixels);
}

namespace astrometry {

Plate plateOf(const std::array<Star, lastStar>& stars)
{
    std::array<double, lastStar * rowLength> rowsX{};
    std::array<double, lastStar * rowLength> rowsY{};
    const Star& origin = stars[0];
    for (std::size_t k = 0; k < stars.size(); ++k) {
        const Star& star = stars[k];
        double X = 0;
        double Y = 0;
        equplt(origin.ra, origin.dec, star.ra, star.dec, X, Y);
        const double dx = star.x - origin.x;
        const double dy = star.y - origin.y;
        std::ranges::copy(std::array{dx, dy, 1.0, -X}, rowsX.begin() + k * rowLength);
        std::ranges::copy(std::array{dx, dy, 1.0, -Y}, rowsY.begin() + k * rowLength);
    }
    Plate plate{origin, {}, {}};
    lsqfit(rowsX.data(), plate.a.data());
    lsqfit(rowsY.data(), plate.b.data());
    return plate;
}

Place placeOf(const Plate& plate, int x, int y)
{
    const double dx = x - plate.origin.x;
    const double dy = y - plate.origin.y;
    const double X = onPlate(plate.a, dx, dy);
    const double Y = onPlate(plate.b, dx, dy);
    const double dec0 = plate.origin.dec;
    const double t = divisor(std::cos(dec0) - Y * std::sin(dec0));
    const double alpha = withinTurn(plate.origin.ra + std::atan2(-X, t));
    const double sine = (std::sin(dec0) + Y * std::cos(dec0)) / std::sqrt(1.0 + X * X + Y * Y);
    const double delta = std::asin(std::clamp(sine, -1.0, 1.0));  // the pole itself may round to more than 1
    return {DegFDms(alpha * 12.0 / std::numbers::pi), DegFDms(delta * 180.0 / std::numbers::pi)};
}

Pixel pixelOf(const Plate& plate, const Place& place)
{
    constexpr double leastScale = 1e-40;
    const auto& a = plate.a;
    const auto& b = plate.b;
    double X = 0;
    double Y = 0;
    equplt(plate.origin.ra, plate.origin.dec, DmsDegF(place.ra) * radPerHour, DmsDegF(place.dec) * radPerDeg, X, Y);
    const double e = guarded(a[0], leastScale);
    const double g = guarded(b[1] - b[0] * a[1] / e, leastScale);
    const double dy = (Y - (X - a[2]) * b[0] / e - b[2]) / g;
    // both rows give the same figure; on a picture turned by 90 degrees the first would divide it by nothing
    const double dx = std::abs(e) < std::abs(b[0]) ? (Y - b[1] * dy - b[2]) / b[0] : (X - a[1] * dy - a[2]) / e;
    return {plate.origin.x + wholePixels(dx), plate.origin.y + wholePixels(dy)};
}

Star starOf(const WinpData& in, std::size_t k)
{
    return {in.astx[k], in.asty[k], in.astra[k], in.astdec[k]};
}

Plate plateOf(const WinpData& in)
{
    return {starOf(in, 0), std::to_array(in.pla), std::to_array(in.plb)};
}

void measure(WinpData* in)
{
    const Plate plate = plateOf({starOf(*in, 0), starOf(*in, 1), starOf(*in, 2)});
    std::ranges::copy(plate.a, in->pla);
    std::ranges::copy(plate.b, in->plb);
}

std::array<Place, 2> trailEnds(const WinpData& in)
{
    return {Place{in.astra[lastStar], in.astdec[lastStar]}, Place{in.astra[lastStar + 1], in.astdec[lastStar + 1]}};
}

}  // namespace astrometry

// The record of the program stands behind these.

void vsGetPict(double& r1, double& d1, double& r2, double& d2)
{
    const auto [first, second] = astrometry::trailEnds(*indata);
    std::tie(r1, d1, r2, d2) = std::tuple(first.ra, first.dec, second.ra, second.dec);
}

void getPlateConst()
{
    astrometry::measure(indata);
}

void getRaDec(int x, int y, double& ra, double& dec)
{
    const astrometry::Place place = placeOf(astrometry::plateOf(*indata), x, y);
    std::tie(ra, dec) = std::tuple(place.ra, place.dec);
}

void getPixel(double ra, double dec, int& x, int& y)
{
    const astrometry::Pixel pixel = pixelOf(astrometry::plateOf(*indata), {ra, dec});
    std::tie(x, y) = std::tuple(pixel.x, pixel.y);
}
