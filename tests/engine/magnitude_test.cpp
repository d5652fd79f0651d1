#include "engine/magnitude.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "astro/angles.h"
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

struct DiskCase
{
    const char* what;
    double moon, distance;  // in radii of the Sun
    int type;
    double share;  // that the Moon leaves of the disk, summed up in a million strips
};

constexpr DiskCase diskCases[] = {
    {"none", 1.05, 2.1, 0, 0.0},
    {"a touch", 1.02, 1.9, 1, 0.9824293},
    {"half", 1.02, 0.9, 1, 0.5388839},
    {"deep", 1.02, 0.1, 1, 0.0453642},
    {"a small Moon on the limb", 0.4, 1.0, 1, 0.9268181},
    {"a small Moon almost inside", 0.4, 0.65, 1, 0.8452235},
    {"total", 1.05, 0.02, 2, 0.0},
    {"annular", 0.9, 0.05, 3, 0.1900000},
    {"annular in the middle", 0.9, 0.0, 3, 0.1900000},
};

TEST(SolarEclipse, LeavesTheLightOfTheUncoveredDisk)
{
    for (const DiskCase& c : diskCases) {
        SCOPED_TRACE(c.what);
        const SolarEclipse eclipse = eclipseOf(c.moon, c.distance);
        EXPECT_EQ(eclipse.type, c.type);
        // d goes through an arc cosine near 1, which keeps 1e-8 rad of 5e-3
        EXPECT_NEAR(eclipse.distanceDeg, c.distance * sunRadius * degPerRad, 1e-6);
        const double magnitudes[] = {0.0, (1 + c.moon - c.distance) / 2, (1 + c.moon - c.distance) / 2, c.moon};
        EXPECT_NEAR(eclipse.magnitude, magnitudes[c.type], 1e-5);
        EXPECT_NEAR(eclipse.remaining, c.share, c.type % 2 ? 1e-5 : 0.0);
        if (c.type % 2)
            EXPECT_NEAR(eclipse.increment, -2.5 * std::log10(c.share), 1e-5 / c.share + 1e-5);
        else
            EXPECT_EQ(eclipse.increment, c.type == 2 ? 20.0 : 0.0);
    }
}

TEST(SolarEclipse, OfFebruary2018WasPartialInTheSouth)
{
    // 2018 February 15: a partial eclipse over Antarctica, greatest at 20:51 UTC with magnitude 0.60 (NASA)
    WinpData in = recordWith({733});
    in.eclflg = true;
    int eclipsed = 0;
    double greatest = 0;
    for (double t = 58164.786; t < 58164.953; t += minuteDays) {
        positionAt(t, in);
        eclipsed += in.ecltyp == 1 && in.smang < 0.54 && in.eclpow > 0.3;
        EXPECT_EQ(in.ecltyp > 0, in.eclmag > 0);
        greatest = std::max(greatest, in.eclmag);
    }
    EXPECT_GT(eclipsed, 10);
    EXPECT_NEAR(greatest, 0.48, 0.27);  // a satellite of 800 km stands somewhat nearer to the axis of the shadow
    // another slot's call leaves the prime's values
    in.prs = 1;
    in.ecltyp = 7;
    positionAt(58164.86, in);
    EXPECT_EQ(in.ecltyp, 7);
}

const Vec3 sunAt(sunDistance, 0, 0);

TEST(Magnitude, FullyLitAtItsOwnLengthIsTheSunPlusTheOffset)
{
    struct SphereCase
    {
        double rangeKm, increment, lengthM, magnitude;
    };
    const LightSource sun = sunAsSource(sunAt);
    // satellite on the x axis beyond the observer, the Sun behind the observer on the other side
    for (const SphereCase& c :
         {SphereCase{1000, 0, 1e6, -26.0}, SphereCase{10000, 0, 1e6, -21.0}, SphereCase{1000, 0, 1e7, -31.0},
          SphereCase{1000, 1.8, 1e6, -24.2}, SphereCase{0, 0, 1e6, 0.0}})
        EXPECT_NEAR(sphereMagnitude(sun, Vec3(6378, 0, 0), Vec3(5378, 0, 0), c.rangeKm, c.increment, c.lengthM),
                    c.magnitude, 1e-9);
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

TEST(Magnitude, LosesToTheAirBelow33Degrees)
{
    // Schaefer's 0.2 magnitudes per air mass less those of the zenith, by the simple secant above 10 degrees
    for (const double el : {10.0, 15.0, 20.0, 32.9})
        EXPECT_NEAR(extinction(el), 0.21 * (1 / std::sin(el * radPerDeg) - 1), 0.25) << el;

    WinpData in = recordWith({694}, {-33.9, 151.2, 50});
    in.chlen = 5.0;
    int low = 0;
    for (int minute = -15; minute < 15; ++minute) {
        const double t = 58138.15139 + minute * minuteDays;  // a pass up to 69 degrees, by day
        in.atmx = false;
        const double clear = positionAt(t, in).mag;
        in.atmx = true;
        const SatPosData sp = positionAt(t, in);
        const bool isLow = sp.el[0] > 0.01 && sp.el[0] < 33.0;
        low += isLow;
        EXPECT_NEAR(sp.mag - clear, isLow ? extinction(sp.el[0]) : 0.0, 1e-12) << sp.el[0];
    }
    EXPECT_GT(low, 5);
}

}  // namespace
