#include "design/astrometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "astro/angles.h"
#include "astro/calendar.h"
#include "record/winp_data.h"

namespace {

constexpr int rowLength = 4;
constexpr int stars = 3;

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
double onPlate(const double (&constants)[3], double dx, double dy)
{
    return constants[0] * dx + constants[1] * dy + constants[2];
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

void vsGetPict(double& r1, double& d1, double& r2, double& d2)
{
    // behind the three stars
    r1 = indata->astra[3];
    d1 = indata->astdec[3];
    r2 = indata->astra[4];
    d2 = indata->astdec[4];
}

void equplt(double ra0, double dec0, double ra, double dec, double& x, double& y)
{
    const double C = divisor(std::cos(dec0) * std::cos(dec) * std::cos(ra - ra0) + std::sin(dec0) * std::sin(dec));
    x = -std::cos(dec) * std::sin(ra - ra0) / C;
    y = -(std::cos(dec) * std::sin(dec0) * std::cos(ra - ra0) - std::sin(dec) * std::cos(dec0)) / C;
}

// NOLINTNEXTLINE(readability-non-const-parameter): the signature is fixed
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

void getPlateConst()
{
    const WinpData& in = *indata;
    std::array<double, stars * rowLength> rowsX{};
    std::array<double, stars * rowLength> rowsY{};
    for (int k = 0; k < stars; ++k) {
        double X = 0;
        double Y = 0;
        equplt(in.astra[0], in.astdec[0], in.astra[k], in.astdec[k], X, Y);
        const double dx = in.astx[k] - in.astx[0];
        const double dy = in.asty[k] - in.asty[0];
        std::ranges::copy(std::array{dx, dy, 1.0, -X}, rowsX.begin() + k * rowLength);
        std::ranges::copy(std::array{dx, dy, 1.0, -Y}, rowsY.begin() + k * rowLength);
    }
    lsqfit(rowsX.data(), indata->pla);
    lsqfit(rowsY.data(), indata->plb);
}

void getRaDec(int x, int y, double& ra, double& dec)
{
    const WinpData& in = *indata;
    const double dx = x - in.astx[0];
    const double dy = y - in.asty[0];
    const double X = onPlate(in.pla, dx, dy);
    const double Y = onPlate(in.plb, dx, dy);
    const double dec0 = in.astdec[0];
    const double t = divisor(std::cos(dec0) - Y * std::sin(dec0));
    const double alpha = in.astra[0] + std::atan2(-X, t);
    const double sine = (std::sin(dec0) + Y * std::cos(dec0)) / std::sqrt(1.0 + X * X + Y * Y);
    const double delta = std::asin(std::clamp(sine, -1.0, 1.0));  // the pole itself may round to more than 1
    ra = DegFDms((alpha < 0.0 ? alpha + twoPi : alpha) * 12.0 / std::numbers::pi);
    dec = DegFDms(delta * 180.0 / std::numbers::pi);
}

void getPixel(double ra, double dec, int& x, int& y)
{
    constexpr double leastScale = 1e-40;
    const WinpData& in = *indata;
    double X = 0;
    double Y = 0;
    equplt(in.astra[0], in.astdec[0], DmsDegF(ra) * radPerHour, DmsDegF(dec) * radPerDeg, X, Y);
    const double e = guarded(in.pla[0], leastScale);
    const double g = guarded(in.plb[1] - in.plb[0] * in.pla[1] / e, leastScale);
    const double dy = (Y - (X - in.pla[2]) * in.plb[0] / e - in.plb[2]) / g;
    // both rows give the same figure; on a picture turned by 90 degrees the first would divide it by nothing
    const double dx = std::abs(e) < std::abs(in.plb[0]) ? (Y - in.plb[1] * dy - in.plb[2]) / in.plb[0]
                                                        : (X - in.pla[1] * dy - in.pla[2]) / e;
    x = in.astx[0] + wholePixels(dx);
    y = in.asty[0] + wholePixels(dy);
}
