#include "design/editor_rules.h"

#include <algorithm>
#include <cmath>

#include "astro/calendar.h"
#include "orbit/mean_motion.h"

namespace editor {

namespace {

constexpr double earthRadiusKm = 6378.14;
constexpr double largestEccentricity = 0.9999999;  // of an ellipse that is given by its heights
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

bool axisDecides(const Orbit& typed, Edits edits)
{
    return edits.n0c == 2 || typed.n0 < leastTypedMeanMotion;
}

void fromHeights(Orbit& orbit, const Orbit& typed, double inc)
{
    orbit.perigee = typed.perigee;
    orbit.apogee = typed.apogee;
    orbit.a = std::max(finite((orbit.perigee + orbit.apogee) / 2.0 + earthRadiusKm), 1.0);
    orbit.ecc = std::abs((orbit.apogee - orbit.perigee) / (2.0 * orbit.a));
    if (!(orbit.ecc < 1.0))
        orbit.ecc = largestEccentricity;
    orbit.n0 = getn0(orbit.a, orbit.ecc, inc);
}

void refreshEllipse(Orbit& orbit, const Orbit& typed, Edits edits, const Setting& setting)
{
    if (edits.n0c != 0) {
        if (axisDecides(typed, edits)) {
            orbit.a = typed.a;
            orbit.n0 = finite(getn0(orbit.a, orbit.ecc, setting.inc));
        } else {
            orbit.n0 = typed.n0;
            orbit.a = getsax(setting.sgp4 ? 1 : 0, orbit.n0, orbit.ecc, setting.inc);
        }
        orbit.n0 = notZero(orbit.n0);
    }
    setHeights(orbit);
}

void refreshHyperbola(Orbit& orbit, const Orbit& typed, Edits edits)
{
    if (edits.n0c != 0) {
        const double x = 1.0 - orbit.ecc;
        if (axisDecides(typed, edits)) {
            orbit.a = typed.a;
            orbit.n0 = finite(std::abs(x * orbit.a));
        } else {
            orbit.n0 = typed.n0;
            orbit.a = x < 0.0 ? finite(orbit.n0 / x) : 0.0;
        }
        orbit.n0 = notZero(orbit.n0);
    }
    orbit.perigee = 0.0;
    orbit.apogee = 0.0;
}

void refreshRates(Orbit& orbit, const Orbit& typed, Edits edits)
{
    // the sums with 0 keep a zero without a sign
    if (edits.ndc == 2) {
        orbit.adot = typed.adot;
        orbit.ndot = orbit.a == 0.0 ? 0.0 : finite(-0.75 * orbit.n0 * orbit.adot / orbit.a) + 0.0;
    } else if (edits.ndc == 1 || edits.n0c != 0 || edits.apc != 0) {
        orbit.ndot = typed.ndot;
        orbit.adot = orbit.n0 == 0.0 ? 0.0 : finite(-4.0 / 3.0 * orbit.a * orbit.ndot / orbit.n0) + 0.0;
    }
}

}  // namespace

Orbit refreshed(const Orbit& before, const Orbit& typed, Edits edits, const Setting& setting)
{
    Orbit orbit = before;
    orbit.ecc = typed.ecc;
    if (setting.byHeights) {
        if (edits.apc != 0)
            fromHeights(orbit, typed, setting.inc);
    } else if (orbit.ecc >= 1.0) {
        refreshHyperbola(orbit, typed, edits);
        return orbit;
    } else {
        if (edits.n0c == 0 && typed.a < 0.0)
            edits.n0c = 1;  // no ellipse has such an axis: the mean motion decides, and the rates follow
        refreshEllipse(orbit, typed, edits, setting);
    }
    refreshRates(orbit, typed, edits);
    return orbit;
}

void setHeights(Orbit& orbit)
{
    orbit.perigee = finite((1.0 - orbit.ecc) * orbit.a - earthRadiusKm);
    orbit.apogee = finite((1.0 + orbit.ecc) * orbit.a - earthRadiusKm);
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

double mjdOf(const Moment& local, double tzone)
{
    const double hour = local.hour - tzone + local.minute / 60.0 + local.second / 3600.0;
    return mjd(local.day, local.month, local.year, hour);
}

}  // namespace editor
