#include "engine/magnitude.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "engine/position.h"
#include "engine/record_helper.h"

namespace {

constexpr double sunDistance = 23454.79106062;
constexpr double sunRadius = 109.123 / sunDistance;  // radians

/// The Sun on the x axis and a Moon of a given size beside it, as seen from the Earth's centre.
SolarEclipse eclipseOf(double moonSize, double distance)
{
    const double moonDistance = 0.272493 / (moonSize * sunRadius);
    const double d = distance * sunRadius;
    const Vec3 moon(moonDistance * std::cos(d), moonDistance * std::sin(d), 0);
    return solarEclipse(Vec3(sunDistance, 0, 0), moon, Vec3(0, 0, 0));
}

/// The share of a disk of radius 1 that a disk of radius m at distance d leaves, by strips.
double shareLeft(double m, double d)
{
    constexpr int strips = 200000;
    double area = 0;
    for (int i = 0; i < strips; ++i) {
        const double y = -1 + (i + 0.5) * 2 / strips;
        const double half = std::sqrt(1 - y * y);
        if (std::abs(y) >= m) {
            area += 2 * half;
            continue;
        }
        const double other = std::sqrt(m * m - y * y);
        const double covered = std::min(half, d + other) - std::max(-half, d - other);
        area += 2 * half - std::max(0.0, covered);
    }
    return area * 2 / strips / std::numbers::pi;
}

TEST(SolarEclipse, LeavesTheLightThatTheStripsLeave)
{
    struct DiskCase
    {
        const char* what;
        double moon, distance;  // in radii of the Sun
        int type;
    };
    for (const DiskCase& c :
         {DiskCase{"a touch", 1.02, 1.9, 1}, DiskCase{"half", 1.02, 0.9, 1}, DiskCase{"deep", 1.02, 0.1, 1},
          DiskCase{"a small Moon on the limb", 0.4, 1.0, 1}, DiskCase{"a small Moon almost inside", 0.4, 0.65, 1},
          DiskCase{"annular", 0.9, 0.05, 3}, DiskCase{"annular in the middle", 0.9, 0.0, 3}}) {
        SCOPED_TRACE(c.what);
        const SolarEclipse eclipse = eclipseOf(c.moon, c.distance);
        EXPECT_EQ(eclipse.type, c.type);
        // 200000 strips leave some 1e-8; d goes through an arc cosine near 1, which keeps 1e-8 rad of 5e-3
        const double share = shareLeft(c.moon, c.distance);
        EXPECT_NEAR(eclipse.remaining, share, 1e-5);
        EXPECT_NEAR(eclipse.increment, -2.5 * std::log10(share), 1e-5 / share + 1e-5);
        EXPECT_NEAR(eclipse.distanceDeg, c.distance * sunRadius * 180 / std::numbers::pi, 1e-6);
        const double covered = c.type == 3 ? c.moon : (1 + c.moon - c.distance) / 2;
        EXPECT_NEAR(eclipse.magnitude, covered, 1e-5);
    }
}

TEST(SolarEclipse, TotalTakesAllLightAndNoneNothing)
{
    const SolarEclipse total = eclipseOf(1.05, 0.02);
    EXPECT_EQ(total.type, 2);
    EXPECT_EQ(total.remaining, 0.0);
    EXPECT_EQ(total.increment, 20.0);
    EXPECT_NEAR(total.magnitude, (1 + 1.05 - 0.02) / 2, 1e-5);

    const SolarEclipse none = eclipseOf(1.05, 2.1);
    EXPECT_EQ(none.type, 0);
    EXPECT_EQ(none.magnitude, 0.0);
    EXPECT_EQ(none.remaining, 0.0);
    EXPECT_EQ(none.increment, 0.0);
}

TEST(SolarEclipse, OfFebruary2018WasPartialInTheSouth)
{
    // 2018 February 15: a partial eclipse over Antarctica, greatest at 20:51 UTC with magnitude 0.60 (NASA)
    WinpData in = recordAt(vienna);
    ASSERT_TRUE(loadElements(in, 0, "visual_2018.txt", 733));
    in.satn = 1;
    in.eclflg = true;
    SatPosData sp;
    int eclipsed = 0;
    double greatest = 0;
    for (int minute = 0; minute < 240; ++minute) {
        GetSatPos(58164.786 + minute / 1440.0, &in, &sp, 0, 0);
        if (in.ecltyp == 0)
            continue;
        ++eclipsed;
        greatest = std::max(greatest, in.eclmag);
        EXPECT_EQ(in.ecltyp, 1);
        EXPECT_LT(in.smang, 0.54);
        EXPECT_GT(in.eclpow, 0.3);
    }
    EXPECT_GT(eclipsed, 10);
    EXPECT_GT(greatest, 0.2);
    EXPECT_LT(greatest, 0.75);  // a satellite of 800 km stands somewhat nearer to the axis of the shadow

    // another slot's call leaves the prime's values
    in.prs = 1;
    in.ecltyp = 7;
    GetSatPos(58164.86, &in, &sp, 0, 0);
    EXPECT_EQ(in.ecltyp, 7);
}

const Vec3 sunAt(sunDistance, 0, 0);

TEST(Magnitude, FullyLitAtItsOwnLengthIsTheSunPlusTheOffset)
{
    const LightSource sun = sunAsSource(sunAt);
    // satellite on the x axis beyond the observer, the Sun behind the observer on the other side
    const Vec3 observer(6378, 0, 0);
    const Vec3 satellite(5378, 0, 0);
    EXPECT_NEAR(sphereMagnitude(sun, observer, satellite, 1000, 0, 1e6), -26.0, 1e-9);
    EXPECT_NEAR(sphereMagnitude(sun, observer, satellite, 10000, 0, 1e6), -21.0, 1e-9);
    EXPECT_NEAR(sphereMagnitude(sun, observer, satellite, 1000, 0, 1e7), -31.0, 1e-9);
    EXPECT_NEAR(sphereMagnitude(sun, observer, satellite, 1000, 1.8, 1e6), -24.2, 1e-9);
    EXPECT_EQ(sphereMagnitude(sun, observer, satellite, 0, 0, 1e6), 0.0);
    // half lit: two and a half magnitudes of one half. The Sun is 1000 km off the x axis in 150 million.
    EXPECT_NEAR(sphereMagnitude(sun, Vec3(0, 1000, 0), Vec3(0, 0, 0), 1000, 0, 1e6), -26.0 + 0.752575, 1e-6);
}

TEST(Magnitude, MoonlightFollowsDistanceAndPhase)
{
    // the mean opposition magnitude of the Moon is -12.74 (Allen); at half phase it is 2.7 magnitudes fainter (Allen:
    // 10.2), and the exponential law makes it 2.4
    const Vec3 moon(-60.27, 0, 0);
    const LightSource full = moonAsSource(sunAt, moon, Vec3(0, 0, 0));
    EXPECT_TRUE(full.moonlight);
    EXPECT_NEAR(full.magnitude, -12.74, 0.03);
    const LightSource half = moonAsSource(sunAt, Vec3(0, 60.27, 0), Vec3(0, 0, 0));
    EXPECT_NEAR(half.magnitude - full.magnitude, 90.0 / 41.0041888 * 1.0857, 0.01);
    // ten times nearer is 5 magnitudes brighter
    const LightSource near = moonAsSource(sunAt, moon, Vec3(0.9 * -60.27 * 6378.137, 0, 0));
    EXPECT_NEAR(near.magnitude, full.magnitude - 5.0, 1e-6);
}

class SatelliteMagnitude : public testing::Test
{
protected:
    SatelliteMagnitude() : in(recordAt({-33.9, 151.2, 50}))
    {
        EXPECT_TRUE(loadElements(in, 0, "visual_2018.txt", 694));
        in.satn = 1;
        in.atmx = false;
    }

    double at(double t)
    {
        GetSatPos(t, &in, &sp, 0, 0);
        return sp.mag;
    }

    static constexpr double high = 58138.15139;  // elevation 69 degrees, range 1364 km, by day
    WinpData in;
    SatPosData sp;
};

TEST_F(SatelliteMagnitude, LosesToTheAirBelow33Degrees)
{
    in.chlen = 5.0;
    int low = 0;
    for (int minute = -15; minute < 15; ++minute) {
        const double t = high + minute / 1440.0;
        in.atmx = false;
        const double clear = at(t);
        in.atmx = true;
        const double loss = at(t) - clear;
        const double el = sp.el[0];
        if (el > 33.0 || el < 0.01) {
            EXPECT_EQ(loss, 0.0) << el;
            continue;
        }
        ++low;
        // Schaefer's 0.2 magnitudes per air mass less those of the zenith, by the simple secant above 10 degrees
        if (el > 10.0)
            EXPECT_NEAR(loss, 0.21 * (1 / std::sin(el * std::numbers::pi / 180) - 1), 0.25) << el;
        else
            EXPECT_GT(loss, 1.0);
    }
    EXPECT_GT(low, 5);
}

}  // namespace
