// The report behind a pick on a map.

#include "reports/local_details.h"

#include "astro/angles.h"
#include "engine/position.h"
#include "reports/report_helper.h"

#include <cmath>

namespace {

std::string report()
{
    char text[localDetailsRoom];
    LocalInf(indata, text);
    return text;
}

bool has(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

/// The number behind a label.
double after(const std::string& text, const std::string& label)
{
    const std::size_t at = text.find(label);
    EXPECT_NE(at, std::string::npos) << label << " in " << text;
    return at == std::string::npos ? NAN : std::stod(text.substr(at + label.size()));
}

std::string upTo(const std::string& text, const char* part)
{
    return text.substr(0, text.find(part));
}

class LocalDetails : public ReportTest
{
protected:
    LocalDetails() { indata->mjd = 58138.0695; }
};

TEST_F(LocalDetails, AreThoseOfAnIndependentComputation)
{
    const std::string alone = expectedText("local_details.txt");
    EXPECT_EQ(report(), alone);

    addSatellite(indata, 20580);
    indata->rlm = 1;
    const std::string text = report();
    EXPECT_EQ(upTo(text, "\n\nHST                 \n\tAzim:"), upTo(alone, "\n\n\tAlong"));
    EXPECT_FALSE(has(text, "State Vector"));
    EXPECT_EQ(indata->prs, 0);
    EXPECT_EQ(indata->rlm, 1);
}

struct Refusal
{
    const char* what;
    int skymap;
    double lat, lng, el1;
    int satellites;
    const char* text;
};

constexpr Refusal refusals[] = {
    {"beyond a hemisphere", 0, -100.0, 0.0, 0.0, 1, "\n\n   *** Cursor outside Map ***"},
    {"right of the world", 0, 0.0, 180.5, 0.0, 1, "\n\n   *** Cursor outside Map ***"},
    {"outside the sky", 1, 0.0, 0.0, -90.1, 1, "\n\n   *** Cursor outside Map ***"},
    {"nothing selected", 0, 10.0, 20.0, 0.0, 0, "*** No satellite has been selected ***"},
    {"nothing selected, sky", 1, 10.0, 20.0, 45.0, 0,
     "\n\nAzimuth (deg.):     0.0,    Elevation (deg):    45.0\n\n R.A.(HH.MM):    0.00,    Decl.(DD.MM):    "
     "0.00\n\n\n"
     " *** No satellite has been selected ***"},
};

TEST_F(LocalDetails, SayWhyThereAreNone)
{
    for (const Refusal& c : refusals) {
        SCOPED_TRACE(c.what);
        indata->skymap = c.skymap;
        indata->lat = c.lat;
        indata->lng = c.lng;
        indata->el1 = c.el1;
        indata->satn = c.satellites;
        EXPECT_EQ(report(), c.text);
    }
}

TEST_F(LocalDetails, OfAnAbsurdTimeHoldNumbersOnly)
{
    for (const double t : {1e300, -1e300}) {
        indata->mjd = t;
        const std::string text = report();
        EXPECT_TRUE(has(text, "Observer (Yaw, Pitch")) << text;
        EXPECT_FALSE(has(text, "nan") || has(text, "inf")) << text;
    }
}

TEST_F(LocalDetails, AtTheSubPointHaveNoAzimuth)
{
    indata->height = 0.0;
    for (int minute = 0; minute < 90; minute += 5) {
        indata->mjd = 58138.0 + minute * minuteDays;
        GetSatPos(indata->mjd, indata, satpos, 0, 0);
        indata->lat = satpos->lat[0];
        indata->lng = satpos->lng[0];
        const std::string text = report();
        EXPECT_TRUE(has(text, "Along-the-Surface-Distance:     0.0 km")) << text;
        EXPECT_TRUE(has(text, "\n\n\tObserver (Yaw, Pitch): ")) << text;
        // the satellite hangs over the place, the attitude frame over the geocentric direction
        EXPECT_NEAR(std::stod(text.substr(text.rfind("  "))), -90.0, 1.5);
    }
}

TEST_F(LocalDetails, WithAnInertialSurfaceCountTheSunFromNorth)
{
    const std::string local = report();
    for (const int mode : {2, -2}) {
        indata->flarmod = mode;
        const std::string text = report();
        EXPECT_EQ(upTo(text, "\n\n\tSun Az"), upTo(local, "\n\n\tSun Az"));
        const double azimuth = after(text, "\n\n\tSun Azimuth (from North): ");
        EXPECT_NEAR(azimuth, std::fmod(satpos->sunaz[0] * degPerRad + 360.0, 360.0), 0.006);
        EXPECT_FALSE(has(text, "Observer") || has(text, "Sun Elevation"));
    }
}

TEST_F(LocalDetails, WithYawSteeringTurnTheFrameToTheGroundTrack)
{
    indata->mjd = 58138.0 + 25.68 * minuteDays;  // at the equator, southward
    const std::string plain = report();
    indata->flaryst = 1;
    const std::string text = report();
    // 4.753 km/s east and 6.007 km/s south, of which the turning Earth takes 0.495 from the east: the track bends from
    // 141.65 to 144.67 degrees
    const double turned = after(text, "\n\n\tSun Azimuth (+V YSM): ") - after(plain, "+V): ");
    EXPECT_NEAR(turned, -3.02, 0.05);
    EXPECT_NEAR(after(text, "Azimuth): ") - after(plain, "Azimuth): "), turned, 0.1);
    EXPECT_EQ(after(text, "Sun Elevation: "), after(plain, "Sun Elevation: "));
}

/// Right ascension and declination, of date.
Vec3 placeAt(double t)
{
    GetSatPos(t, indata, satpos, 0, 0);
    return Vec3(1.0, DmsDegF(satpos->ra[0]) * 15.0 * radPerDeg, DmsDegF(satpos->dec[0]) * radPerDeg);
}

TEST_F(LocalDetails, OfTheSkyGiveThePointAndTheSatellite)
{
    const Vec3 now = placeAt(indata->mjd);
    const double az = satpos->az[0], el = satpos->el[0];
    const Vec3 then = polcar(placeAt(indata->mjd + 2 * secondDays));
    indata->skymap = 1;
    indata->yrepoch = 2000.0;
    indata->rlm = 1;
    indata->az1 = 123.44;
    indata->el1 = 15.04;
    indata->az2 = 7.3045;
    indata->el2 = -12.3456;
    const std::string text = report();
    EXPECT_EQ(upTo(text, "distance:"),
              "\n\nAzimuth (deg.):   123.4,    Elevation (deg):    15.0\n\n R.A.(HH.MM):    7.30,    Decl.(DD.MM):  "
              "-12.35\n\nISS (ZARYA)         \n\tAngular ");
    // haversine form, independent of the law of cosines
    const double h =
        std::pow(std::sin((el - 15.04) / 2 * radPerDeg), 2) +
        std::cos(el * radPerDeg) * std::cos(15.04 * radPerDeg) * std::pow(std::sin((az - 123.44) / 2 * radPerDeg), 2);
    EXPECT_NEAR(after(text, "distance:"), 2.0 * std::asin(std::sqrt(h)) * degPerRad, 0.006);
    // from north through west
    const Vec3 north = polcar(Vec3(1.0, now[1], now[2] + 90.0 * radPerDeg));
    const Vec3 west = polcar(Vec3(1.0, now[1] - 90.0 * radPerDeg, 0.0));
    const double course = std::atan2(dot(then, west), dot(then, north)) * degPerRad;
    EXPECT_NEAR(std::remainder(after(text, "\n\n\tSky Course:") - course, 360.0), 0.0, 0.006);
    EXPECT_EQ(indata->yrepoch, 2000.0);
    EXPECT_EQ(indata->rlm, 1);
}

}  // namespace
