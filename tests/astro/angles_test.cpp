#include "astro/angles.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

struct PackedCase
{
    const char* what;
    double degrees, packed;
};

constexpr PackedCase packedCases[] = {
    {"48 degrees 28 minutes 45 seconds", 48.0 + 28.0 / 60 + 45.0 / 3600, 48.2845},
    {"sign without degrees", -0.5, -0.30},
    {"sign without minutes", -45.0 / 3600, -0.0045},
    {"59.4 seconds stay", 10.0 + 59.4 / 3600, 10.00594},
    {"nothing", 0.0, 0.0},
};

TEST(Angles, PackAndUnpack)
{
    for (const PackedCase& c : packedCases) {
        SCOPED_TRACE(c.what);
        EXPECT_NEAR(DegFDms(c.degrees), c.packed, 1e-12);
        EXPECT_NEAR(DmsDegF(c.packed), c.degrees,
                    1e-11);  // a unit of the last place of 48 is 0.7e-14, times 10000 / 3600
    }
}

TEST(Angles, SecondsCarryFromFiftyNinePointFive)
{
    EXPECT_NEAR(DegFDms(12.0 + 59.6 / 3600), 12.01, 1e-12);
    EXPECT_NEAR(DegFDms(12.0 + 59.0 / 60 + 59.6 / 3600), 13.0, 1e-12);
    EXPECT_NEAR(DegFDms(-12.0 - 59.0 / 60 - 59.6 / 3600), -13.0, 1e-12);
}

TEST(Angles, APackedNumberJustBelowADigitBoundaryKeepsItsMinute)
{
    // every minute of a circle: half of the doubles nearest to these figures lie below them
    for (int d = 0; d < 360; ++d)
        for (int m = 0; m < 60; ++m) {
            const double packed = (100 * d + m) / 100.0;
            ASSERT_NEAR(DmsDegF(packed), d + m / 60.0, 1e-8) << packed;
            ASSERT_NEAR(DmsDegF(-packed), -d - m / 60.0, 1e-8) << packed;
        }
    const double twoUnitsBelow = std::nextafter(std::nextafter(1.18, 0.0), 0.0);
    EXPECT_NEAR(DmsDegF(twoUnitsBelow), 1 + 18.0 / 60, 1e-8);
}

TEST(Angles, TakeEveryNumber)
{
    EXPECT_TRUE(std::isnan(DegFDms(std::nan(""))));
    EXPECT_TRUE(std::isnan(DmsDegF(std::nan(""))));
    EXPECT_GT(DegFDms(1e300), 2e9);
    EXPECT_LT(DmsDegF(-1e300), -2e9);
}

}  // namespace
