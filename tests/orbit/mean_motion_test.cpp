#include "orbit/mean_motion.h"

#include <limits>

#include <gtest/gtest.h>

namespace {

struct AxisCase
{
    const char* what;
    int sgp;
    double n0, ecc, inc, axisKm;
};

// The formulas worked out with 30 digits.
constexpr AxisCase axisCases[] = {
    {"station, plain mean motion", 0, 15.54, 0.0003, 51.64, 6783.7026950793795},
    {"station, mean motion of SGP4", 1, 15.54, 0.0003, 51.64, 6782.9457693503665},
    {"geostationary", 0, 1.00270065, 0.0, 0.001, 42166.25886872633},
    {"Molniya", 1, 2.00618, 0.7318, 63.4, 26556.068636579039},
    {"retrograde", 1, 14.34216, 0.0002, 98.5, 7157.2469757026377},
    {"no motion counts as 0.0001 rev/day", 0, 0.0, 0.0, 0.0, 19606579.904018322},
    {"negative motion too", 0, -3.0, 0.0, 0.0, 19606579.904018322},
};

TEST(MeanMotion, GivesTheSemiMajorAxisAndComesFromIt)
{
    for (const AxisCase& c : axisCases)
        EXPECT_NEAR(getsax(c.sgp, c.n0, c.ecc, c.inc), c.axisKm, 1e-13 * c.axisKm) << c.what;
    EXPECT_NEAR(getn0(6794.0, 0.0003, 51.64), 15.504678164955304, 1e-12);
    EXPECT_NEAR(getn0(-26560.0, 0.7318, 63.4), 2.0055572129379471, 1e-13);  // the sign does not matter
}

TEST(MeanMotion, HoldsItsLimits)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    for (const double ecc : {1.0, -1.5, nan})
        EXPECT_EQ(getn0(7000.0, ecc, 0.0), 0.15915494309189535);
    EXPECT_EQ(getn0(0.0, 0.0, 0.0), 1000.0);
    EXPECT_EQ(getn0(nan, 0.0, 0.0), 1000.0);
    EXPECT_EQ(getsax(1, 15.0, 1.5, 0.0), 0.001);
    for (const double n0 : {1e30, 1e300, nan})
        EXPECT_EQ(getsax(1, n0, 0.0, 0.0), 0.001) << n0;
}

}  // namespace
