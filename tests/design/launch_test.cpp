#include "design/launch.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "astro/angles.h"
#include "astro/calendar.h"
#include "design/launch_sites_data.h"
#include "design/orbit_helper.h"

namespace {

double turn(double degrees)
{
    return std::remainder(degrees, 360.0);
}

WinpData* recordForLaunch(double a, double ecc, double inc, double n0, const LaunchSite& site, int south)
{
    WinpData* in = freshRecord();
    in->satn = 1;
    in->aflg[0] = 0;
    in->a[0] = a;
    in->ecc[0] = ecc;
    in->inc[0] = inc;
    in->n0[0] = n0;
    in->lslat = site.latitude;
    in->lslng = site.longitude;
    in->lsouth = south;
    return in;
}

/// The geocentric angle between the launch site and the ground track from liftoff to cutoff, degrees.
double distanceOfTrack(WinpData* in)
{
    const Vec3 site = polcar({1.0, radPerDeg * in->lslng, radPerDeg * in->lslat});
    double nearest = 180.0;
    for (double seconds = 0.0; seconds <= 60.0 * in->tmeco; seconds += 2.0) {
        GetSatPos(in->mjd + seconds / 86400.0, in, satpos, 0, 0);
        const Vec3 below = polcar({1.0, radPerDeg * satpos->lng[0], radPerDeg * satpos->lat[0]});
        nearest = std::min(nearest, degPerRad * std::acos(std::min(dot(site, below), 1.0)));
    }
    return nearest;
}

// sin azimuth = cos inclination / cos latitude, the latitude geocentric.
TEST(Launch, PassesOverEverySiteInTheRightDirection)
{
    for (const LaunchSite& site : launchSites) {
        const double geocentric = std::atan(std::tan(radPerDeg * site.latitude) / 1.00674);
        for (const double inc : {std::abs(site.latitude) + 2.0, 80.0, 98.7}) {
            const double northerly = degPerRad * std::asin(std::cos(radPerDeg * inc) / std::cos(geocentric));
            for (const int choice : {0, 1, 2, 3}) {
                const int south = choice % 2, sgp4 = choice / 2;
                SCOPED_TRACE(testing::Message() << site.name << ' ' << inc << " south " << south << sgp4);
                WinpData* in = recordForLaunch(6678.0, 0.001, inc, 15.9, site, south);
                in->aflg[0] = sgp4;
                LaunchOrb(in);
                EXPECT_LT(distanceOfTrack(in), 0.5);
                EXPECT_NEAR(turn(in->lazim - (south ? 180.0 - northerly : northerly)), 0.0, 0.1);
                EXPECT_EQ(in->mjdep[0], in->mjd);
            }
        }
    }
}

// The perigee of an ascent in no time is the argument of latitude at the site, by Napier's rules
// asin(sin latitude / sin inclination) with the geocentric latitude.
TEST(Launch, KeepsToTheEdges)
{
    const struct
    {
        const char* what;
        double lat, inc;
        int south;
        double azimuth, perigee;  // degrees
    } cases[] = {
        {"equatorial orbit", 28.5, 0.0, 0, 90.0, 90.0},
        {"inclination below the latitude", 45.92, 28.5, 0, 90.0, 90.0},
        {"inclination below the latitude, southward", 45.92, 28.5, 1, 90.0, 90.0},
        {"from the equator", 0.0, 60.0, 0, 30.0, 0.0},
        {"from the equator, southward", 0.0, 60.0, 1, 150.0, 180.0},
        {"from the equator over the poles", 0.0, 90.0, 0, 0.0, 0.0},
        {"near a pole the latitude stays geodetic", 85.0, 90.0, 0, 0.0, 85.0},
        {"below 80 degrees it does not", 79.0, 90.0, 0, 0.0, 78.9281},
        {"from the south", -31.12, 90.0, 0, 0.0, 329.0501},
        {"retrograde", 0.0, 120.0, 0, -30.0, 0.0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        WinpData* in = recordForLaunch(6678.0, 0.0, c.inc, 15.9, {"", c.lat, 0.0}, c.south);
        in->tmeco = 0.0;
        LaunchOrb(in);
        EXPECT_NEAR(turn(in->lazim - c.azimuth), 0.0, 1e-4);
        EXPECT_NEAR(turn(in->aper[0] - c.perigee), 0.0, 1e-3);
    }
}

double angleOfPlanes(WinpData* in, double t)
{
    const State target = stateAt(in, 0, t);
    const State chaser = stateAt(in, 1, t);
    return degPerRad * std::acos(std::min(dot(vnorm(target.r * target.v), vnorm(chaser.r * chaser.v)), 1.0));
}

struct Rendezvous
{
    LaunchSite site;
    int south;
    double cutoff, days, start;
    double a, ecc, inc, ra, n0, epoch;        // of the target
    double a1, ecc1, n1;                      // of the chaser
    double time1, ra1, time2, ra2, m0, aper;  // after one pass and after two
    double azimuth;
};

// Worked by hand from the steps of the method, with the sidereal time of the IAU 1982 expression.
// clang-format off
constexpr Rendezvous rendezvous[] = {
    {{"to the station from Baikonur", 45.92, 63.3423}, 0, 8.8, 1.3, 58140.25,
     6780.0, 0.0005, 51.64, 100.0, 15.54, 58138.0, 6600.0, 0.002, 16.18,
     58139.883005, 89.1256, 58139.888078, 90.9567, 324.4040, 82.0267, 62.7508},
    {{"to the telescope from Florida, southward", 28.6272, -80.6208}, 1, 34.0, 2.5, 58139.8,
     6917.0, 0.0003, 28.63, 250.0, 15.09, 58137.5, 6700.0, 0.01, 15.83,
     58139.803104, 234.2635, 58139.803048, 234.2431, 312.5100, 157.4324, 93.2002},
    {{"on an ellipse, without drift, from Vandenberg", 34.7523, -120.6155}, 0, 10.0, 0.0, 58138.1,
     7080.0, 0.0001, 98.2, 30.0, 14.57, 58138.9, 8700.0, 0.2, 10.7,
     58138.065578, 29.2112, 58138.065484, 29.1773, 333.2500, 53.2357, -9.9749},
};
// clang-format on

TEST(Launch, MeetsThePlaneOfATargetAtTheTimeWorkedByHand)
{
    for (const Rendezvous& c : rendezvous) {
        SCOPED_TRACE(c.site.name);
        WinpData* in = recordForLaunch(c.a, c.ecc, c.inc, c.n0, c.site, c.south);
        in->ra[0] = c.ra;
        in->mjdep[0] = c.epoch;
        chasePrime(in);
        in->a[1] = c.a1;
        in->ecc[1] = c.ecc1;
        in->n0[1] = c.n1;
        in->tmeco = c.cutoff;
        in->rztime = c.days;
        in->mjd = c.start;
        LaunchOrb(in);
        EXPECT_NEAR(in->mjd, c.time1, 1e-6);
        EXPECT_NEAR(in->ra[1], c.ra1, 1e-4);
        LaunchOrb(in);
        EXPECT_NEAR(in->mjd, c.time2, 1e-6);
        EXPECT_EQ(in->mjdep[1], in->mjd);
        EXPECT_NEAR(in->ra[1], c.ra2, 1e-4);
        EXPECT_NEAR(in->m0[1], c.m0, 1e-4);
        EXPECT_NEAR(in->aper[1], c.aper, 1e-4);
        EXPECT_NEAR(in->lazim, c.azimuth, 1e-4);
        EXPECT_EQ(in->ra[0], c.ra);
        // the shift for the drift suits a station some 180 km above the chaser and the default time
        EXPECT_LT(angleOfPlanes(in, in->mjd + in->rztime), c.days == 1.3 ? 0.3 : 10.0);
        in->models.rendezvousDrift = true;
        for (int pass = 0; pass < 3; ++pass)
            LaunchOrb(in);
        EXPECT_LT(angleOfPlanes(in, in->mjd + in->rztime), 0.001);
    }
}

TEST(Launch, DateFieldsShowCivilTime)
{
    WinpData* in = freshRecord();
    in->tzone = 5.5;
    setStartDate(in, mjd(31, 12, 2017, 20.0 + 14.0 / 60.0 + 59.7 / 3600.0));
    EXPECT_EQ((std::vector{in->year, in->month, in->day, in->hour, in->minute, in->second}),
              (std::vector{2018, 1, 1, 1, 44, 59}));
}

}  // namespace
