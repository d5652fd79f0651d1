#include "design/editor_rules.h"

#include <cmath>

#include <gtest/gtest.h>

#include "astro/calendar.h"
#include "orbit/mean_motion.h"

namespace {

using editor::Edits;
using editor::Orbit;
using editor::Setting;

constexpr double incDeg = 51.6;

/// What stands in the fields of an orbit like that of a space station.
Orbit station()
{
    Orbit orbit;
    orbit.n0 = 15.5;
    orbit.a = 7000.0;  // on purpose not the axis of this mean motion
    orbit.ecc = 0.01;
    orbit.ndot = 0.0003;
    orbit.adot = -0.5;
    orbit.perigee = 400.0;
    orbit.apogee = 800.0;
    return orbit;
}

constexpr Setting byMotion{incDeg, false, false};
constexpr Setting byMotionSgp4{incDeg, false, true};
constexpr Setting byHeights{incDeg, true, false};

TEST(EditorRules, TheFormEditedLastIsTheMaster)
{
    const struct
    {
        const char* what;
        Edits edits;
        Setting setting;
        double typedN0, typedA, n0, a;
    } cases[] = {
        {"mean motion", {1, 0, 0}, byMotion, 15.5, 7000, 15.5, getsax(0, 15.5, 0.01, incDeg)},
        {"mean motion of an SGP4 set", {1, 0, 0}, byMotionSgp4, 15.5, 7000, 15.5, getsax(1, 15.5, 0.01, incDeg)},
        {"model switched", {3, 0, 0}, byMotionSgp4, 15.5, 7000, 15.5, getsax(1, 15.5, 0.01, incDeg)},
        {"axis", {2, 0, 0}, byMotion, 15.5, 7000, getn0(7000, 0.01, incDeg), 7000},
        {"mean motion too small", {1, 0, 0}, byMotion, 0.00009, 7000, getn0(7000, 0.01, incDeg), 7000},
        {"mean motion negative", {1, 0, 0}, byMotion, -3, 7000, getn0(7000, 0.01, incDeg), 7000},
        {"axis negative on an ellipse", {0, 0, 0}, byMotion, 15.5, -1, 15.5, getsax(0, 15.5, 0.01, incDeg)},
        {"neither", {0, 0, 3}, byMotion, 3, 9, 15.5, 7000},
        {"an axis so large that nothing moves", {2, 0, 0}, byMotion, 15.5, 1e300, 0.01, 1e300},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Orbit typed = station();
        typed.n0 = c.typedN0;
        typed.a = c.typedA;
        const Orbit orbit = refreshed(station(), typed, c.edits, c.setting);
        EXPECT_EQ(orbit.n0, c.n0);
        EXPECT_EQ(orbit.a, c.a);
    }
}

TEST(EditorRules, HeightsFollowAxisAndEccentricity)
{
    const Orbit orbit = refreshed(station(), station(), {2, 0, 0}, byMotion);
    EXPECT_NEAR(orbit.perigee, 0.99 * 7000 - 6378.14, 1e-9);
    EXPECT_NEAR(orbit.apogee, 1.01 * 7000 - 6378.14, 1e-9);
}

TEST(EditorRules, AxisAndEccentricityFollowTheHeights)
{
    for (const bool swapped : {false, true}) {
        SCOPED_TRACE(swapped);
        Orbit typed = station();
        if (swapped)
            std::swap(typed.perigee, typed.apogee);
        const Orbit orbit = refreshed(station(), typed, {0, 0, 1}, byHeights);
        EXPECT_NEAR(orbit.a, 6978.14, 1e-9);
        EXPECT_NEAR(orbit.ecc, 200.0 / 6978.14, 1e-12);
        EXPECT_EQ(orbit.n0, getn0(orbit.a, orbit.ecc, incDeg));
    }
}

TEST(EditorRules, HeightsThatNameNoEllipseAreHeld)
{
    const struct
    {
        double perigee, apogee;
    } cases[] = {{-6378.14, 6378.14}, {-1e5, 1e5}, {-1e300, 1e300}, {1.7e308, 1.7e308}, {-7000, -7000}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.perigee);
        Orbit typed = station();
        typed.perigee = c.perigee;
        typed.apogee = c.apogee;
        const Orbit orbit = refreshed(station(), typed, {0, 0, 2}, byHeights);
        EXPECT_GE(orbit.a, 1.0);
        EXPECT_LE(orbit.ecc, 0.9999999);
        for (const double x : {orbit.a, orbit.ecc, orbit.n0, orbit.adot, orbit.ndot})
            EXPECT_TRUE(std::isfinite(x));
    }
}

TEST(EditorRules, AHyperbolaTradesAxisAgainstPerigeeDistance)
{
    const struct
    {
        const char* what;
        int n0c;
        double ecc, typedQ, typedA, q, a;
    } cases[] = {
        {"perigee distance", 1, 1.5, 7000, -1, 7000, -14000},
        {"axis", 2, 1.5, 7000, -20000, 10000, -20000},
        {"perigee distance too small", 1, 1.5, 0, -20000, 10000, -20000},
        {"parabola", 1, 1.0, 7000, -1, 7000, 0},
        {"parabola by its axis", 2, 1.0, 7000, 5, 0.01, 5},
        {"unedited", 0, 1.5, 1, 2, 15.5, 7000},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Orbit typed = station();
        typed.ecc = c.ecc;
        typed.n0 = c.typedQ;
        typed.a = c.typedA;
        const Orbit orbit = refreshed(station(), typed, {c.n0c, 1, 0}, byMotion);
        EXPECT_NEAR(orbit.n0, c.q, 1e-9);
        EXPECT_NEAR(orbit.a, c.a, 1e-9);
        EXPECT_EQ(orbit.perigee, 0.0);
        EXPECT_EQ(orbit.apogee, 0.0);
        EXPECT_EQ(orbit.ndot, 0.0003);  // left alone
        EXPECT_EQ(orbit.adot, -0.5);
    }
}

// n varies as a^-1.5, and the field of the element set holds half the rate of n.
TEST(EditorRules, TheRatesOfMeanMotionAndAxisFollowEachOther)
{
    Orbit typed = station();
    typed.n0 = 15.0;
    Orbit before = station();
    before.n0 = 15.0;
    EXPECT_NEAR(refreshed(before, typed, {0, 1, 0}, byMotion).adot, -4.0 / 3.0 * 7000 * 0.0003 / 15, 1e-15);
    EXPECT_NEAR(refreshed(before, typed, {0, 2, 0}, byMotion).ndot, 0.75 * 15 * 0.5 / 7000, 1e-15);
    EXPECT_NEAR(refreshed(before, typed, {0, 0, 3}, byMotion).adot, -4.0 / 3.0 * 7000 * 0.0003 / 15, 1e-15);
    EXPECT_EQ(refreshed(before, typed, {0, 0, 0}, byMotion).adot, -0.5);

    Orbit negative = typed;  // an axis that cannot be makes the mean motion the master, and the rates follow it
    negative.a = -1.0;
    const Orbit orbit = refreshed(before, negative, {0, 0, 0}, byMotion);
    EXPECT_NEAR(orbit.adot, -4.0 / 3.0 * orbit.a * 0.0003 / 15, 1e-15);

    typed.adot = 1e300;
    typed.ndot = 1e300;
    EXPECT_TRUE(std::isfinite(refreshed(before, typed, {0, 1, 0}, byMotion).adot));
    EXPECT_TRUE(std::isfinite(refreshed(before, typed, {0, 2, 0}, byMotion).ndot));
}

TEST(EditorRules, TheStoredMeanMotionStaysInItsRange)
{
    EXPECT_EQ(editor::storedMeanMotion(0.0, 0.1), 0.001);
    EXPECT_EQ(editor::storedMeanMotion(-5.0, 1.5), 0.001);
    EXPECT_EQ(editor::storedMeanMotion(1000.0, 0.1), 100.0);
    EXPECT_EQ(editor::storedMeanMotion(7000.0, 1.5), 7000.0);
}

TEST(EditorRules, AMomentKeepsItsWholeSecond)
{
    const struct
    {
        const char* what;
        double mjd;
        int hour, minute, second;
    } cases[] = {
        {"midnight", 58119.0, 0, 0, 0},
        {"a whole second short by rounding", 58119.0 + 45296.0 / 86400.0 - 1e-11, 12, 34, 56},
        {"a fraction is cut off", 58119.0 + 45296.9 / 86400.0, 12, 34, 56},
        {"the second that is nearly over", 58119.0 + 45299.9995 / 86400.0, 12, 35, 0},
        {"the hour that is nearly over", 58119.0 + 46799.9995 / 86400.0, 13, 0, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const editor::Moment m = editor::moment(c.mjd);
        EXPECT_EQ(m.year, 2018);
        EXPECT_EQ(m.month, 1);
        EXPECT_EQ(m.day, 1);
        EXPECT_EQ(m.hour, c.hour);
        EXPECT_EQ(m.minute, c.minute);
        EXPECT_EQ(m.second, c.second);
    }
    EXPECT_NEAR(editor::mjdOf(editor::Moment{2018, 1, 1, 14, 30, 0}, 2.0), 58119.0 + 12.5 / 24.0, 1e-9);
}

}  // namespace
