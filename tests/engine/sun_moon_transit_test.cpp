#include "engine/sun_moon_transit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <string>

#include "engine/position.h"
#include "engine/record_helper.h"

namespace {

constexpr double secondDays = 1.0 / 86400.0;
constexpr double degree = std::numbers::pi / 180;

/// The ISS before the Sun, with the observer a little off its central line.
WinpData transitRecord(double t)
{
    WinpData in = recordAt({-40, 20, 0});
    EXPECT_TRUE(loadElements(in, 0, "visual_2018.txt", 25544));
    in.satn = 1;
    in.refrc = false;
    in.occflg = 1;
    in.iridflg = 1;
    SatPosData sp;
    GetSatPos(t, &in, &sp, 0, 0);
    EXPECT_LT(sp.occlat[0], 99.0);
    in.lat = sp.occlat[0];
    in.lng = sp.occlng[0];
    return in;
}

double separation(WinpData& in, double t)
{
    SatPosData sp;
    GetSatPos(t, &in, &sp, 0, 0);
    const Vec3 a = polcar(Vec3(1, sp.az[0] * degree, sp.el[0] * degree));
    const Vec3 b = polcar(Vec3(1, sp.osunaz, sp.osunel * degree));
    return std::atan2(abs(a * b), dot(a, b)) / degree;
}

/// How far the observer may go from the line, in a direction, until the satellite only touches the Sun's limb.
double walkToTheLimb(const WinpData& start, double t, double north, double east)
{
    double inside = 0;
    double outside = 100;
    for (int round = 0; round < 20; ++round) {
        const double km = (inside + outside) / 2;
        WinpData in = start;
        in.lat += km * north / 6371 / degree;
        in.lng += km * east / 6371 / degree / std::cos(start.lat * degree);
        double least = 90;
        for (double dt = -4; dt <= 4; dt += 0.02)
            least = std::min(least, separation(in, t + dt * secondDays));
        (least < std::atan(0.00462516) / degree ? inside : outside) = km;
    }
    return inside;
}

class Transit : public testing::TestWithParam<double>
{};

TEST_P(Transit, WidthAndDurationAreThoseOfAWalkAcross)
{
    const double t = GetParam();
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

    SatPosData sp;
    GetSatPos(t + secondDays, &in, &sp, 0, 0);
    const double east = (sp.occlng[0] - in.lng) * std::cos(in.lat * degree);
    const double north = sp.occlat[0] - in.lat;
    const double length = std::sqrt(east * east + north * north);
    const double walk = walkToTheLimb(in, t, -east / length, north / length);
    // printed to 0.1; the estimate is of the first order
    EXPECT_NEAR(width, walk, 0.05 + 0.02 * walk);

    // the apparent motion of the satellite in a second, of 0.53 degrees
    GetSatPos(t, &in, &sp, 0, 0);
    const Vec3 first = polcar(Vec3(1, sp.az[0] * degree, sp.el[0] * degree));
    const double up = sp.el[0];
    const double az = sp.az[0];
    GetSatPos(t + secondDays, &in, &sp, 0, 0);
    const Vec3 second = polcar(Vec3(1, sp.az[0] * degree, sp.el[0] * degree));
    EXPECT_NEAR(duration, 0.53 / (std::asin(abs(first * second)) / degree), 0.051);
    const double right = std::remainder(sp.az[0] - az, 360.0) * std::cos(up * degree);
    EXPECT_NEAR(std::remainder(angle - std::atan2(right, sp.el[0] - up) / degree, 360.0), 0.0, 1.5);
}

// high and low above the horizon, coming and going
INSTANTIATE_TEST_SUITE_P(Moments, Transit,
                         testing::Values(58139.4 + 55.0 / 1440, 58139.4 + 63.0 / 1440, 58139.4 + 70.0 / 1440,
                                         58139.4 + 82.0 / 1440));

TEST(TransitWidth, DecidesWhetherTheZoneReachesTheObserver)
{
    const double t = 58139.4 + 70.0 / 1440;
    WinpData in = transitRecord(t);
    in.lat += 0.1;
    const Site before{in.lat, in.lng, in.height};
    int r = 1;
    char text[64];
    SunMoonTr(&in, t, 0, 1.0, 1, r, text);
    EXPECT_EQ(r, 1);
    SunMoonTr(&in, t, 0, 49.0, 1, r, text);
    EXPECT_EQ(r, 2);
    EXPECT_EQ(in.lat, before.lat);
    EXPECT_EQ(in.lng, before.lng);
}

TEST(TransitWidth, SaysNothingOfACrossingOfMinutes)
{
    // a geosynchronous orbit in the ecliptic passes before the Sun every day, at 0.004 degrees a second
    WinpData in = recordAt({40, -105, 0});
    in.satn = 1;
    in.occflg = 1;
    in.aflg[0] = 0;
    in.mjdep[0] = 58138.0;
    in.a[0] = 42164.0;
    in.n0[0] = 1.0027;
    in.inc[0] = 23.44;
    int seen = 0;
    for (int minute = 0; minute < 1440; minute += 5) {
        const double t = 58138.0 + minute / 1440.0;
        SatPosData sp;
        GetSatPos(t, &in, &sp, 0, 0);
        if (!(sp.occlat[0] < 99.0))
            continue;
        ++seen;
        int r = 0;
        char text[64] = "";
        SunMoonTr(&in, t, 0, 49.0, 1, r, text);
        EXPECT_STREQ(text, " ");
        EXPECT_EQ(r, 1);
    }
    EXPECT_GT(seen, 3);
}

}  // namespace
