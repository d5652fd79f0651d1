#include "design/launch.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/mat3.h"
#include "design/launch_sites_data.h"
#include "design/orbit_helper.h"
#include "engine/position.h"

namespace {

double turn(double degrees)
{
    return std::remainder(degrees, 360.0);
}

WinpData* recordForLaunch(double a, double ecc, double inc, double n0)
{
    WinpData* in = freshRecord();
    in->satn = 1;
    in->aflg[0] = 0;
    in->a[0] = a;
    in->ecc[0] = ecc;
    in->inc[0] = inc;
    in->n0[0] = n0;
    return in;
}

/// The geocentric angle between a site and the ground track from liftoff to cutoff, degrees.
double distanceOfTrack(WinpData* in, double lat, double lng)
{
    const Vec3 site = polcar({1.0, radPerDeg * lng, radPerDeg * lat});
    double nearest = 180.0;
    for (double seconds = 0.0; seconds <= 60.0 * in->tmeco; seconds += 2.0) {
        GetSatPos(in->mjd + seconds / 86400.0, in, satpos, 0, 0);
        const Vec3 below = polcar({1.0, radPerDeg * satpos->lng[0], radPerDeg * satpos->lat[0]});
        nearest = std::min(nearest, degPerRad * std::acos(std::min(dot(site, below), 1.0)));
    }
    return nearest;
}

/// sin azimuth = cos inclination / cos latitude, the latitude geocentric.
double azimuthOf(double inc, double latitude, bool south)
{
    const double geocentric = std::atan(std::tan(radPerDeg * latitude) / 1.00674);
    const double northerly = degPerRad * std::asin(std::cos(radPerDeg * inc) / std::cos(geocentric));
    return south ? 180.0 - northerly : northerly;
}

TEST(Launch, PassesOverEverySiteInTheRightDirection)
{
    for (const LaunchSite& site : launchSites) {
        const double low = std::abs(site.latitude) + 2.0;
        for (const double inc : {low, 80.0, 98.7}) {
            for (const int south : {0, 1}) {
                for (const int sgp4 : {0, 1}) {
                    SCOPED_TRACE(testing::Message() << site.name << ' ' << inc << " south " << south << sgp4);
                    WinpData* in = recordForLaunch(6678.0, 0.001, inc, 15.9);
                    in->aflg[0] = sgp4;
                    in->lslat = site.latitude;
                    in->lslng = site.longitude;
                    in->lsouth = south;
                    LaunchOrb(in);
                    EXPECT_LT(distanceOfTrack(in, site.latitude, site.longitude), 0.5);
                    EXPECT_NEAR(turn(in->lazim - azimuthOf(inc, site.latitude, south)), 0.0, 0.1);
                    EXPECT_EQ(in->mjdep[0], in->mjd);
                }
            }
        }
    }
}

struct EdgeCase
{
    const char* what;
    double lat, inc;
    int south;
    double azimuth, perigee;  // degrees; the perigee of an ascent in no time: the argument of latitude at the site
};

// The latitude argument is asin(sin latitude / sin inclination) by Napier's rules, with the geocentric latitude.
constexpr EdgeCase edgeCases[] = {
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

TEST(Launch, KeepsToTheEdges)
{
    for (const EdgeCase& c : edgeCases) {
        SCOPED_TRACE(c.what);
        WinpData* in = recordForLaunch(6678.0, 0.0, c.inc, 15.9);
        in->lslat = c.lat;
        in->lsouth = c.south;
        in->tmeco = 0.0;
        LaunchOrb(in);
        EXPECT_NEAR(turn(in->lazim - c.azimuth), 0.0, 1e-4);
        EXPECT_NEAR(turn(in->aper[0] - c.perigee), 0.0, 1e-3);
    }
}

struct Target
{
    double a, ecc, inc, ra, n0, epoch;
};

struct RendezvousCase
{
    const char* what;
    double lat, lng;
    int south;
    double cutoff, days, start;
    Target target;
    double a, ecc, n0;                        // of the chaser
    double time1, ra1, time2, ra2, m0, aper;  // after one pass and after two
    double azimuth;
};

// Worked by hand from the steps of the method, with the sidereal time of the IAU 1982 expression.
// clang-format off
constexpr RendezvousCase rendezvousCases[] = {
    {"station from Baikonur", 45.92, 63.3423, 0, 8.8, 1.3, 58140.25,
     {6780.0, 0.0005, 51.64, 100.0, 15.54, 58138.0}, 6600.0, 0.002, 16.18,
     58139.883005, 89.1256, 58139.888078, 90.9567, 324.4040, 82.0267, 62.7508},
    {"telescope from Florida, southward", 28.6272, -80.6208, 1, 34.0, 2.5, 58139.8,
     {6917.0, 0.0003, 28.63, 250.0, 15.09, 58137.5}, 6700.0, 0.01, 15.83,
     58139.803104, 234.2635, 58139.803048, 234.2431, 312.5100, 157.4324, 93.2002},
    {"without drift from Vandenberg", 34.7523, -120.6155, 0, 10.0, 0.0, 58138.1,
     {7080.0, 0.0001, 98.2, 30.0, 14.57, 58138.9}, 6900.0, 0.001, 15.14,
     58138.065578, 29.2112, 58138.065484, 29.1773, 322.1500, 52.0472, -9.9749},
};
// clang-format on

WinpData* recordForRendezvous(const RendezvousCase& c)
{
    WinpData* in = recordForLaunch(c.target.a, c.target.ecc, c.target.inc, c.target.n0);
    in->ra[0] = c.target.ra;
    in->mjdep[0] = c.target.epoch;
    chasePrime(in);
    in->a[1] = c.a;
    in->ecc[1] = c.ecc;
    in->n0[1] = c.n0;
    in->lslat = c.lat;
    in->lslng = c.lng;
    in->lsouth = c.south;
    in->tmeco = c.cutoff;
    in->rztime = c.days;
    in->mjd = c.start;
    return in;
}

TEST(Rendezvous, LaunchTimeAndOrbitAreThoseWorkedByHand)
{
    for (const RendezvousCase& c : rendezvousCases) {
        SCOPED_TRACE(c.what);
        WinpData* in = recordForRendezvous(c);
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
        EXPECT_EQ(in->ra[0], c.target.ra);
    }
}

double angleOfPlanes(WinpData* in, double t)
{
    const State target = stateAt(in, 0, t);
    const State chaser = stateAt(in, 1, t);
    return degPerRad * std::acos(dot(vnorm(target.r * target.v), vnorm(chaser.r * chaser.v)));
}

// The shift for the drift of the planes suits a station some 180 km above the chaser and the default time.
TEST(Rendezvous, PlanesMeetAtTheTimeOfCloseApproach)
{
    WinpData* in = recordForRendezvous(rendezvousCases[0]);
    LaunchOrb(in);
    LaunchOrb(in);
    EXPECT_LT(angleOfPlanes(in, in->mjd + in->rztime), 0.3);
}

TEST(Launch, DateFieldsShowCivilTime)
{
    WinpData* in = freshRecord();
    in->tzone = 5.5;
    setStartDate(in, mjd(31, 12, 2017, 20.0 + 14.0 / 60.0 + 59.7 / 3600.0));
    const int shown[] = {in->year, in->month, in->day, in->hour, in->minute, in->second};
    const int wanted[] = {2018, 1, 1, 1, 44, 59};
    for (int k = 0; k < 6; ++k)
        EXPECT_EQ(shown[k], wanted[k]) << k;
}

}  // namespace
