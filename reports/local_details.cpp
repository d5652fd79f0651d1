#include "reports/local_details.h"

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/earth.h"
#include "astro/frames.h"
#include "engine/clamped_values.h"
#include "engine/event_geometry.h"
#include "engine/position.h"
#include "orbit/attitude.h"
#include "record/numbers.h"
#include "record/text.h"
#include "record/winp_data.h"

#include <cmath>

namespace {

constexpr double moonRadiusKm = 1738.0;
constexpr double noSurfaceAngle = -1.0;
constexpr double smallestDivisor = 1e-50;
constexpr int onlySlot = 0;  // of a selection of one satellite

/// A point of a sphere, radians.
struct Direction
{
    double lng, lat;
};

double cosineBetween(const Direction& one, const Direction& other)
{
    return std::sin(one.lat) * std::sin(other.lat) +
           std::cos(one.lat) * std::cos(other.lat) * std::cos(one.lng - other.lng);
}

/// Degrees brought to 0 to 360, from one turn around.
double compass(double degrees)
{
    if (degrees < 0.0)
        return degrees + 360.0;
    return degrees >= 360.0 ? degrees - 360.0 : degrees;
}

void addSkyPoint(TextWriter& text, const WinpData& in)
{
    // the commas of the text stay, so only the numbers go through the repair of decimal commas
    text.add("\n\nAzimuth (deg.):  ").addFormatted("%6.1lf", in.az1);
    text.add(",    Elevation (deg):  ").addFormatted("%6.1lf", in.el1);
    text.add("\n\n R.A.(HH.MM):  ").addFormatted("%6.2lf", in.az2);
    text.add(",    Decl.(DD.MM):  ").addFormatted("%6.2lf", in.el2);
}

void addDistanceFromPoint(TextWriter& text, const WinpData& in)
{
    const Direction point{in.az1 * radPerDeg, in.el1 * radPerDeg};
    const Direction satellite{satpos->az[in.prs] * radPerDeg, satpos->el[in.prs] * radPerDeg};
    const double cosine = cosineBetween(point, satellite);
    if (!(std::abs(cosine) <= 1.0))
        return;
    text.add("\n\n").add(fieldText(in.fsname[in.prs]));
    text.addFormatted("\n\tAngular distance:%7.2lf", std::acos(cosine) * degPerRad);
}

/// Apparent place of the prime satellite, true equator of date.
Direction placeAt(WinpData* in, double t)
{
    View ofDate = viewOf(*in);
    ofDate.equinox = 0.0;
    positionIn(ofDate, t, in, satpos, in->prs);
    return {DmsDegF(satpos->ra[in->prs]) * 15.0 * radPerDeg, DmsDegF(satpos->dec[in->prs]) * radPerDeg};
}

/// The direction of the motion among the stars, counted from north through west.
void addSkyCourse(TextWriter& text, WinpData* in)
{
    constexpr double twoSecondsDays = 2.3148148148148147e-05;
    const Direction now = placeAt(in, in->mjd);
    const Direction then = placeAt(in, in->mjd + twoSecondsDays);
    const double cosine = cosineBetween(now, then);
    const double s = std::abs(cosine) <= 1.0 ? std::acos(cosine) : 0.0;
    const double divisor = std::cos(now.lat) * std::sin(s);
    if (!(std::abs(divisor) > smallestDivisor))
        return;
    const double x = (std::sin(then.lat) - std::cos(s) * std::sin(now.lat)) / divisor;
    if (!(std::abs(x) <= 1.0))
        return;
    const double course = std::acos(x) * degPerRad;
    const bool eastward = std::sin(then.lng - now.lng) > 0.0;
    text.addFormatted("\n\n\tSky Course:%7.2lf", compass(eastward ? -course : course));
}

void skyDetails(TextWriter& text, WinpData* in)
{
    constexpr double lowestElevationDeg = -90.0;
    if (in->el1 < lowestElevationDeg) {
        text.add("\n\n   *** Cursor outside Map ***");
        return;
    }
    addSkyPoint(text, *in);
    if (in->satn < 1) {
        text.add("\n\n\n *** No satellite has been selected ***");
        return;
    }
    absolutePosition(in->mjd, in, satpos, in->prs);
    addDistanceFromPoint(text, *in);
    addSkyCourse(text, in);
    GetSatPos(in->mjd, in, satpos, in->prs, 0);
}

void addPlace(TextWriter& text, const WinpData& in)
{
    text.add("Lat: ").addFormatted("%g", in.lat).add(",  Long: ").addFormatted("%g", in.lng);
    text.add(",   SunElev:").addFormatted("%6.1lf", satpos->osunel);
}

void addView(TextWriter& text, const WinpData& in, int slot)
{
    text.add("\n\n").add(fieldText(in.fsname[slot]));
    text.add("\n\tAzim:").addFormatted("%7.2lf", satpos->az[slot]);
    text.add(",\tElev:").addFormatted("%7.2lf", apparentElevation(in.refrc, satpos->el[slot]));
    text.add(",\tSun:").addFormatted("%6.1lf", satpos->sunel[slot]);
}

/// The only satellite as the report looks at it from all sides.
struct Closeup
{
    Direction place, subPoint;             // geodetic
    double surfaceAngle = noSurfaceAngle;  // between the two, radians
    Vec3 r, v;                             // true equator of date, metres and metres per second
    Mat3 attitude;                         // from there into the frame of the satellite
};

double surfaceAngle(const Closeup& c)
{
    // nearer than the double can tell: less than half a metre on the ground
    constexpr double cosineOfSamePoint = 1.0 - 1e-15;
    const double cosine = cosineBetween(c.place, c.subPoint);
    if (cosine >= cosineOfSamePoint)
        return 0.0;
    return std::abs(cosine) <= 1.0 ? std::acos(cosine) : noSurfaceAngle;
}

void addDistance(TextWriter& text, const WinpData& in, Closeup& c)
{
    if (in.numflg[onlySlot] && in.moondst > 0.0) {
        text.addFormatted("\n\n\tDistance to surface of Moon:%9.1lf km", in.moondst * 0.001 - moonRadiusKm);
        return;
    }
    c.surfaceAngle = surfaceAngle(c);
    if (c.surfaceAngle >= 0.0)
        text.addFormatted("\n\n\tAlong-the-Surface-Distance:%8.1lf km", earthRadiusKm * c.surfaceAngle);
}

void addState(TextWriter& text, const WinpData& in)
{
    const int k = onlySlot;
    text.add("\n\n\tState Vector in km and km/s");
    text.addFormatted("\nx\t%16.8le ", in.csr0[k] / 1000.0);
    text.addFormatted("\ny\t%16.8le ", in.csr1[k] / 1000.0);
    text.addFormatted("\nz\t%16.8le ", in.csr2[k] / 1000.0);
    text.addFormatted("\nvx\t%16.8le ", in.csv0[k] / 1000.0);
    text.addFormatted("\nvy\t%16.8le ", in.csv1[k] / 1000.0);
    text.addFormatted("\nvz\t%16.8le ", in.csv2[k] / 1000.0);
}

void setAttitude(WinpData* in, Closeup& c)
{
    const int k = onlySlot;
    double eqeq = 0;
    const Mat3 nutation = nutmat(julcent(clamped(in->mjd, limitDays)), eqeq, in->IERSflg);
    c.r = mxvct(nutation, Vec3(in->csr0[k], in->csr1[k], in->csr2[k]));
    c.v = mxvct(nutation, Vec3(in->csv0[k], in->csv1[k], in->csv2[k]));
    c.attitude =
        in->flaryst ? yawSteering(in->n0[k], in->inc[k], c.r, c.v, 0.0, 0.0) : GetRVMat(c.r, c.v, 0.0, 0.0, 1);
}

/// The Sun in the frame of the satellite: from the flight direction, and above the local horizontal.
void addSun(TextWriter& text, const WinpData& in, const Closeup& c)
{
    const Vec3 north = carpol(vnorm(mxvct(c.attitude, Vec3(0.0, 0.0, 1.0))));
    const double fromNorth = satpos->sunaz[onlySlot] * degPerRad;
    // a bracket in the piece would keep the repair of decimal commas from the number
    text.add(in.flaryst ? "\n\n\tSun Azimuth (+V YSM): " : "\n\n\tSun Azimuth (from +V): ");
    text.addFormatted("%7.2lf", compass(fromNorth + 360.0 - north[1] * degPerRad));
    const double distanceKm = abs(c.r) / 1000.0;
    if (distanceKm > earthRadiusKm) {
        const double dip = 90.0 - std::asin(earthRadiusKm / distanceKm) * degPerRad;
        text.addFormatted("\n\tSun Elevation: %7.2lf", satpos->sunel[onlySlot] - dip);
    }
}

/// Azimuth of the place at the sub-satellite point, degrees; 0 also where there is none.
double azimuthOfPlace(const Closeup& c)
{
    const double d = c.surfaceAngle;
    if (!(d > 0.0))
        return 0.0;
    const double divisor = std::sin(d) * std::cos(c.subPoint.lat);
    if (!(std::abs(divisor) > smallestDivisor))
        return 0.0;
    const double x = (std::sin(c.place.lat) - std::sin(c.subPoint.lat) * std::cos(d)) / divisor;
    if (!(std::abs(x) <= 1.0))
        return 0.0;
    const double azimuth = std::acos(x) * degPerRad;
    return compass(std::sin(c.place.lng - c.subPoint.lng) < 0.0 ? -azimuth : azimuth);
}

/// Where the satellite sees the place.
void addObserver(TextWriter& text, const WinpData& in, const Closeup& c)
{
    const double t = clamped(in.mjd, limitDays);
    const double height = clamped(in.height, limitHeightMetres);
    const Vec3 place = GeoPos(t, 0.0, c.place.lat, c.place.lng, height, 0.0, 0.0) * earthRadiusKm;
    const Vec3 seen = carpol(vnorm(mxvct(c.attitude, place - c.r * 0.001)));
    const double yaw = compass(360.0 - seen[1] * degPerRad);
    const double pitch = seen[2] * degPerRad;
    const double azimuth = azimuthOfPlace(c);
    if (azimuth > 0.0)
        text.add("\n\n\tObserver (Yaw, Pitch, Azimuth): ")
            .addFormatted("%7.2lf  %7.2lf  %7.2lf", yaw, pitch, azimuth);
    else
        text.add("\n\n\tObserver (Yaw, Pitch): ").addFormatted("%7.2lf  %7.2lf", yaw, pitch);
}

void addCloseup(TextWriter& text, WinpData* in)
{
    const int k = onlySlot;
    Closeup c;
    c.place = {in->lng * radPerDeg, in->lat * radPerDeg};
    c.subPoint = {satpos->lng[k] * radPerDeg, satpos->lat[k] * radPerDeg};
    addDistance(text, *in, c);
    addState(text, *in);
    text.addFormatted("\n\n\tBeta Angle: %7.2lf", satpos->beta[k]);
    const bool inertial = std::abs(in->flarmod) == 2;
    if (inertial) {
        text.add("\n\n\tSun Azimuth (from North): ").addFormatted("%7.2lf", compass(satpos->sunaz[k] * degPerRad));
        return;
    }
    setAttitude(in, c);
    addSun(text, *in, c);
    addObserver(text, *in, c);
}

void worldDetails(TextWriter& text, WinpData* in)
{
    constexpr double southPoleDeg = -90.0, dateLineDeg = 180.0;
    if (in->lat < southPoleDeg || in->lng > dateLineDeg) {
        text.add("\n\n   *** Cursor outside Map ***");
        return;
    }
    if (in->satn < 1) {
        text.add("*** No satellite has been selected ***");
        return;
    }
    View view = viewOf(*in);
    for (int slot = 0; slot < in->satn; ++slot) {
        view.prime = slot;
        positionIn(view, in->mjd, in, satpos, slot);
        if (slot == 0)
            addPlace(text, *in);
        addView(text, *in, slot);
    }
    if (in->satn == 1)
        addCloseup(text, in);
}

}  // namespace

void LocalInf(WinpData* in, char* text)
{
    TextWriter report(text, localDetailsRoom);
    if (in->skymap)
        skyDetails(report, in);
    else
        worldDetails(report, in);
}
