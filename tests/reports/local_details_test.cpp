// The report behind a pick on a map.

#include "reports/local_details.h"

#include "engine/position.h"
#include "reports/report_helper.h"
#include "scratch_dir.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>

namespace {

constexpr int station = 25544;
constexpr int telescope = 20580;
constexpr double radians = std::numbers::pi / 180.0;

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

class LocalDetails : public testing::Test
{
protected:
    LocalDetails()
    {
        *indata = WinpData{};
        observeFromVienna(indata);
        addSatellite(indata, station);
        indata->mjd = 58138.0695;
    }
};

TEST_F(LocalDetails, OfOneSatelliteAreThoseOfAnIndependentComputation)
{
    EXPECT_EQ(report(), expectedText("local_details.txt"));
}

TEST_F(LocalDetails, OfSeveralSatellitesEndBehindTheirLines)
{
    addSatellite(indata, telescope);
    indata->rlm = 1;
    const std::string text = report();
    const std::string alone = expectedText("local_details.txt");
    const std::string first = alone.substr(0, alone.find("\n\n\tAlong"));
    EXPECT_EQ(text.substr(0, first.size()), first);
    EXPECT_TRUE(has(text, "\n\nHST                 \n\tAzim:"));
    EXPECT_FALSE(has(text, "State Vector"));
    EXPECT_EQ(indata->prs, 0);
    EXPECT_EQ(indata->rlm, 1);
}

struct Refusal
{
    const char* what;
    double lat, lng;
    int satellites;
    const char* text;
};

constexpr Refusal refusals[] = {
    {"beyond a hemisphere", -100.0, 0.0, 1, "\n\n   *** Cursor outside Map ***"},
    {"right of the world", 0.0, 180.5, 1, "\n\n   *** Cursor outside Map ***"},
    {"nothing selected", 10.0, 20.0, 0, "*** No satellite has been selected ***"},
};

TEST_F(LocalDetails, SayWhyThereAreNone)
{
    for (const Refusal& c : refusals) {
        SCOPED_TRACE(c.what);
        indata->lat = c.lat;
        indata->lng = c.lng;
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
    for (int minute = 0; minute < 90; ++minute) {
        indata->mjd = 58138.0 + minute / 1440.0;
        GetSatPos(indata->mjd, indata, satpos, 0, 0);
        indata->lat = satpos->lat[0];
        indata->lng = satpos->lng[0];
        indata->height = 0.0;
        const std::string text = report();
        EXPECT_TRUE(has(text, "Along-the-Surface-Distance:     0.0 km")) << text;
        // the satellite hangs over the place, the attitude frame over the geocentric direction
        EXPECT_NEAR(after(text, "Observer (Yaw, Pitch): ") * 0 + std::stod(text.substr(text.rfind("  "))), -90.0,
                    1.5);
    }
}

TEST_F(LocalDetails, WithAnInertialSurfaceCountTheSunFromNorth)
{
    const std::string local = report();
    for (int mode : {2, -2}) {
        indata->flarmod = mode;
        const std::string text = report();
        EXPECT_EQ(text.substr(0, text.find("\n\n\tSun Az")), local.substr(0, local.find("\n\n\tSun Az")));
        const double azimuth = after(text, "\n\n\tSun Azimuth (from North): ");
        EXPECT_NEAR(azimuth, std::fmod(satpos->sunaz[0] / radians + 360.0, 360.0), 0.006);
        EXPECT_FALSE(has(text, "Observer"));
        EXPECT_FALSE(has(text, "Sun Elevation"));
    }
}

TEST_F(LocalDetails, WithYawSteeringTurnTheFrameToTheGroundTrack)
{
    indata->mjd = 58138.0 + 25.68 / 1440.0;  // at the equator, southward
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

/// The prime satellite as the clicked point.
void pointAtSatellite()
{
    indata->skymap = 1;
    GetSatPos(indata->mjd, indata, satpos, 0, 0);
    indata->az1 = satpos->az[0];
    indata->el1 = satpos->el[0];
}

TEST_F(LocalDetails, OfTheSkyGiveThePointAndTheSatellite)
{
    pointAtSatellite();
    indata->yrepoch = 2000.0;
    indata->rlm = 1;
    indata->az1 = 123.44;
    indata->el1 -= 10.0;
    indata->az2 = 7.3045;
    indata->el2 = -12.3456;
    const double az = satpos->az[0], el = satpos->el[0];
    const std::string text = report();
    char head[200];
    std::snprintf(
        head, sizeof head,
        "\n\nAzimuth (deg.):   123.4,    Elevation (deg):  %6.1f\n\n R.A.(HH.MM):    7.30,    Decl.(DD.MM):  "
        "-12.35\n\nISS (ZARYA)         \n\tAngular distance:",
        indata->el1);
    EXPECT_EQ(text.substr(0, std::string(head).size()), head);
    // haversine form, independent of the law of cosines
    const double h = std::pow(std::sin(5.0 * radians), 2) + std::cos(el * radians) * std::cos((el - 10.0) * radians) *
                                                                std::pow(std::sin((az - 123.44) / 2 * radians), 2);
    EXPECT_NEAR(after(text, "distance:"), 2.0 * std::asin(std::sqrt(h)) / radians, 0.006);
    EXPECT_EQ(indata->yrepoch, 2000.0);
    EXPECT_EQ(indata->rlm, 1);
}

}  // namespace
