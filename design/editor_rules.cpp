#include "design/editor_rules.h"

#include <algorithm>
#include <cmath>

#include "astro/calendar.h"
#include "orbit/mean_motion.h"

namespace editor {

namespace {

constexpr double earthRadiusKm = 6378.14;
constexpr double largestEccentricity = 0.9999999;  // of an ellipse made from heights
constexpr double leastTypedMeanMotion = 0.0001;    // rev/day; below it the axis decides
constexpr double substituteMeanMotion = 0.01;      // in place of 0

double finite(double x)
{
    return std::isfinite(x) ? x : 0.0;
}

double notZero(double n0)
{
    return n0 == 0.0 ? substituteMeanMotion : n0;
}

bool axisDecides(const Shape& typed, Edits edits)
{
    return edits.n0c == 2 || typed.n0 < leastTypedMeanMotion;
}

void fromHeights(Shape& shape, const Shape& typed, double inc)
{
    shape.perigee = typed.perigee;
    shape.apogee = typed.apogee;
    shape.a = std::max(finite((shape.perigee + shape.apogee) / 2.0 + earthRadiusKm), 1.0);
    shape.ecc = std::abs((shape.apogee - shape.perigee) / (2.0 * shape.a));
    if (!(shape.ecc < 1.0))
        shape.ecc = largestEccentricity;
    shape.n0 = getn0(shape.a, shape.ecc, inc);
}

void refreshEllipse(Shape& shape, const Shape& typed, Edits edits, const Setting& setting)
{
    if (edits.n0c != 0) {
        if (axisDecides(typed, edits)) {
            shape.a = typed.a;
            shape.n0 = finite(getn0(shape.a, shape.ecc, setting.inc));
        } else {
            shape.n0 = typed.n0;
            shape.a = getsax(setting.sgp4 ? 1 : 0, shape.n0, shape.ecc, setting.inc);
        }
        shape.n0 = notZero(shape.n0);
    }
    setHeights(shape);
}

void refreshHyperbola(Shape& shape, const Shape& typed, Edits edits)
{
    if (edits.n0c != 0) {
        const double x = 1.0 - shape.ecc;
        if (axisDecides(typed, edits)) {
            shape.a = typed.a;
            shape.n0 = finite(std::abs(x * shape.a));
        } else {
            shape.n0 = typed.n0;
            shape.a = x < 0.0 ? finite(shape.n0 / x) : 0.0;
        }
        shape.n0 = notZero(shape.n0);
    }
    shape.perigee = 0.0;
    shape.apogee = 0.0;
}

void refreshRates(Shape& shape, const Shape& typed, Edits edits)
{
    // the sums with 0 keep a zero without a sign
    if (edits.ndc == 2) {
        shape.adot = typed.adot;
        shape.ndot = shape.a == 0.0 ? 0.0 : finite(-0.75 * shape.n0 * shape.adot / shape.a) + 0.0;
    } else if (edits.ndc == 1 || edits.n0c != 0 || edits.apc != 0) {
        shape.ndot = typed.ndot;
        shape.adot = shape.n0 == 0.0 ? 0.0 : finite(-4.0 / 3.0 * shape.a * shape.ndot / shape.n0) + 0.0;
    }
}

}  // namespace

Shape refreshed(const Shape& before, const Shape& typed, Edits edits, const Setting& setting)
{
    Shape shape = before;
    shape.ecc = typed.ecc;
    if (setting.byHeights) {
        if (edits.apc != 0)
            fromHeights(shape, typed, setting.inc);
    } else if (shape.ecc >= 1.0) {
        refreshHyperbola(shape, typed, edits);
        return shape;
    } else {
        // no ellipse has such an axis or such a mean motion: the other one decides, and the rates follow
        if (edits.n0c == 0 && (typed.a < 0.0 || before.n0 < leastTypedMeanMotion))
            edits.n0c = 1;
        refreshEllipse(shape, typed, edits, setting);
    }
    refreshRates(shape, typed, edits);
    return shape;
}

void setHeights(Shape& shape)
{
    shape.perigee = finite((1.0 - shape.ecc) * shape.a - earthRadiusKm);
    shape.apogee = finite((1.0 + shape.ecc) * shape.a - earthRadiusKm);
}

double storedMeanMotion(double n0, double ecc)
{
    const double raised = std::max(n0, 0.001);
    return ecc < 1.0 ? std::min(raised, 100.0) : raised;
}

YearDay yearDay(double mjd)
{
    int day = 0;
    int month = 0;
    int year = 0;
    double hour = 0;
    caldat(mjd, day, month, year, hour);
    return {year, mjd - ::mjd(0, 1, year, 0.0)};
}

double mjdOf(const YearDay& epoch)
{
    return mjd(0, 1, epoch.year, 0.0) + epoch.day;
}

Moment moment(double mjd)
{
    constexpr double roundingSeconds = 0.001;  // a whole second must not fall short by the rounding of the day
    Moment m;
    double hour = 0;
    double second = 0;
    caldat(mjd, m.day, m.month, m.year, hour);
    dms(hour, m.hour, m.minute, second);
    m.second = truncToInt(second + roundingSeconds);
    if (m.second >= 60) {
        m.second -= 60;
        ++m.minute;
    }
    if (m.minute >= 60) {
        m.minute -= 60;
        ++m.hour;
    }
    return m;
}

bool isDate(int year, int month, int day)
{
    int d = 0;
    int m = 0;
    int y = 0;
    double hour = 0;
    caldat(mjd(day, month, year, 0.0), d, m, y, hour);
    return d == day && m == month && y == year;
}

double mjdOf(const Moment& local, double tzone)
{
    const double hour = local.hour - tzone + local.minute / 60.0 + local.second / 3600.0;
    return mjd(local.day, local.month, local.year, hour);
}

}  // namespace editor
