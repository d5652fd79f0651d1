#include "engine/sun_moon_transit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

#include "astro/angles.h"
#include "engine/record_helper.h"

namespace {

/// A satellite before the Sun, with the observer on its central line.
WinpData transitRecord(double t, int norad = 25544)
{
    WinpData in = recordWith({norad}, {-40, 20, 0});
    in.occflg = 1;
    in.iridflg = event::transit;
    in.maxdst = 100.0;
    const SatPosData sp = positionAt(t, in);
    EXPECT_LT(sp.occlat[0], anglesOnly);
    in.lat = sp.occlat[0];
    in.lng = sp.occlng[0];
    return in;
}

/// The way of the ground point in a second, degrees to the east and north.
Vec3 groundMotion(WinpData& in, double t)
{
    const SatPosData sp = positionAt(t + secondDays, in);
    return {(sp.occlng[0] - in.lng) * std::cos(in.lat * radPerDeg), sp.occlat[0] - in.lat, 0};
}

/// Whether the satellite comes before the disk within four seconds of t.
bool touchesTheSun(WinpData in, double t)
{
    double least = 90;
    for (double dt = -4; dt <= 4; dt += 0.02) {
        const SatPosData sp = positionAt(t + dt * secondDays, in);
        const Vec3 sun = direction(sp.osunaz * degPerRad, sp.osunel);
        least = std::min(least, angleBetween(direction(sp.az[0], sp.el[0]), sun));
    }
    return least < std::atan(0.00462516) * degPerRad;
}

/// How far the observer may go from the line, across it, until the satellite only touches the Sun's limb.
double walkToTheLimb(WinpData& in, double t)
{
    const Vec3 along = vnorm(groundMotion(in, t));
    double inside = 0;
    double outside = 100;
    for (int round = 0; round < 16; ++round) {
        const double km = (inside + outside) / 2;
        WinpData there = in;
        there.lat -= km * along[0] / 6371 * degPerRad;
        there.lng += km * along[1] / 6371 * degPerRad / std::cos(in.lat * radPerDeg);
        (touchesTheSun(there, t) ? inside : outside) = km;
    }
    return inside;
}

TEST(Transit, WidthAndDurationAreThoseOfAWalkAcross)
{
    // high and low above the horizon, coming and going
    for (const double minute : {55.0, 63.0, 70.0, 82.0}) {
        SCOPED_TRACE(minute);
        const double t = 58139.4 + minute * minuteDays;
        WinpData in = transitRecord(t);
        int r = 5;
        char text[64];
        SunMoonTr(&in, t, 0, 0.0, 0, r, text);
        EXPECT_EQ(r, 5);
        double width = 0;
        double duration = 0;
        double angle = 0;
        ASSERT_EQ(std::sscanf(text, " %lf km %lf sec %lf", &width, &duration, &angle), 3) << text;
        EXPECT_EQ(std::string(text).size(), 24u);
        // printed to 0.1; the estimate is of the first order
        const double walk = walkToTheLimb(in, t);
        EXPECT_NEAR(width, walk, 0.05 + 0.02 * walk);
        // the apparent motion of the satellite in a second, of 0.53 degrees
        const SatPosData now = positionAt(t, in);
        const SatPosData then = positionAt(t + secondDays, in);
        const double motion = angleBetween(direction(now.az[0], now.el[0]), direction(then.az[0], then.el[0]));
        EXPECT_NEAR(duration, 0.53 / motion, 0.051);
        const double right = std::remainder(then.az[0] - now.az[0], 360.0) * std::cos(now.el[0] * radPerDeg);
        const double course = std::atan2(right, then.el[0] - now.el[0]) * degPerRad;
        EXPECT_NEAR(std::remainder(angle - course, 360.0), 0.0, 1.5);
    }
}

TEST(Transit, ZoneReachesTheObserverOrNot)
{
    const double t = 58139.4 + 70.0 * minuteDays;
    WinpData in = transitRecord(t);
    const double lat = in.lat += 0.1;
    const double lng = in.lng;
    char text[64];
    for (const double km : {1.0, 49.0}) {
        int r = 0;
        SunMoonTr(&in, t, 0, km, 1, r, text);
        EXPECT_EQ(r, km < 2.0 ? 1 : 2);
    }
    EXPECT_EQ(in.lat, lat);
    EXPECT_EQ(in.lng, lng);

    constexpr double grazing = 58139.4 + 53.7385 * minuteDays;
    in = transitRecord(grazing);
    int unchanged = 7;
    SunMoonTr(&in, grazing, 0, 1.0, 0, unchanged, text);
    EXPECT_EQ(std::string(text).substr(0, 10), "   >0.0 km") << "50 km or more";

    // a geosynchronous orbit in the ecliptic passes before the Sun every day, at 0.004 degrees a second
    in = recordAt({40, -105, 0});
    in.occflg = 1;
    in.aflg[0] = 0;
    in.mjdep[0] = 58138.0;
    in.a[0] = 42164.0;
    in.n0[0] = 1.0027;
    in.inc[0] = 23.44;
    int r = 0;
    SunMoonTr(&in, 58138.0 + 1200.0 * minuteDays, 0, 49.0, 1, r, text);
    EXPECT_STREQ(text, " ") << "a crossing of minutes";
    EXPECT_LT(satpos->occlat[0], anglesOnly);
    EXPECT_EQ(r, 1);
}

TEST(Transit, SaysNothingOfCrossingsTooShortOrTooLong)
{
    int told[2] = {};
    for (const double e : {0.0, 0.7}) {
        WinpData in = recordAt({0.0, 20.0, 0.0});
        in.occflg = 1;
        in.aflg[0] = 0;
        in.mjdep[0] = 58138.0;
        in.a[0] = 6400.0 / (1.0 - e);
        in.ecc[0] = e;
        in.n0[0] = 17.0 * std::pow(1.0 - e, 1.5);
        for (int k = 0; k < 4000; ++k) {
            const double t = 58138.0 + k * 10.0 * secondDays;
            WinpData below = in;
            if (const SatPosData sp = positionAt(t, below); sp.occlat[0] < anglesOnly) {
                below.lat = sp.occlat[0];
                below.lng = sp.occlng[0];
            }
            const SatPosData now = positionAt(t, below);
            const SatPosData then = positionAt(t + secondDays, below);
            const double motion = angleBetween(direction(now.az[0], now.el[0]), direction(then.az[0], then.el[0]));
            const double seconds = 0.53 / motion;
            if (std::abs(seconds - 30.0) < 0.01 || std::abs(seconds - 0.05) < 1e-5)
                continue;
            int r = 0;
            char text[64];
            in.sgpsat = noSlot;
            SunMoonTr(&in, t, 0, 0.0, 0, r, text);
            const bool sensible = seconds > 0.05 && seconds < 30.0;
            ASSERT_EQ(std::string(text) != " ", sensible) << seconds;
            ++told[sensible];
        }
    }
    EXPECT_GT(told[0], 10);
    EXPECT_GT(told[1], 10);
}

constexpr double stationMiddle = 58139.4 + 75.4 * minuteDays;

TEST(TransitSearch, KnowsTheDistanceOfTheCentralLine)
{
    struct LineCase
    {
        const char* what;
        int norad;
        double t;
    };
    for (const LineCase& c : {LineCase{"in the plane", 25544, stationMiddle},
                              LineCase{"near the pole, from three distances", 733, 58138.053472}}) {
        SCOPED_TRACE(c.what);
        // away from the line along the meridian; the line runs at some angle to it, found from two of its points
        WinpData in = transitRecord(c.t, c.norad);
        const double lat = in.lat;
        const Vec3 along = vnorm(groundMotion(in, c.t));
        for (const double km : {1.0, 3.0, 8.0, 30.0, 60.0}) {
            SCOPED_TRACE(km);
            in.lat = lat + km / 6371.0 * degPerRad;
            // the middle falls between two of the tenths of a second that are looked at
            EventSearch search(c.t - 132.05 * secondDays, c.t + 2.7 * minuteDays);
            ASSERT_EQ(search.in(in), 1);
            // the line is curved: over 60 km it leaves its tangent by a few hundred metres. Beyond 10 km the nearest of
            // points 0.7 km apart is taken.
            EXPECT_NEAR(search.b[2], km * std::abs(along[0]), 0.02 + (km < 10 ? 0.003 : 0.012) * km);
            EXPECT_LT(std::abs(search.tm[1] - c.t), (1.0 + km / 6.0) * secondDays);
        }
    }
}

TEST(TransitSearch, RefusesWhatIsTooFarOrNotThere)
{
    WinpData in = transitRecord(stationMiddle);
    const auto resultWith = [&](double maxdst, int flag, double later = 0) {
        in.maxdst = maxdst;
        return EventSearch(stationMiddle + later - 2.2 * minuteDays, stationMiddle + later + 2.7 * minuteDays)
            .in(in, flag);
    };
    in.lat += 0.5;
    EXPECT_EQ(resultWith(20.0, 1), 2);
    EXPECT_EQ(resultWith(100.0, 1), 1);
    EXPECT_EQ(resultWith(100.0, 0), 2);  // no ground point in the pass
    EXPECT_EQ(resultWith(100.0, 1, 47 * minuteDays), 2) << "on the night side";
}

}  // namespace
