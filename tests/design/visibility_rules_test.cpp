#include "design/visibility_rules.h"

#include <gtest/gtest.h>

namespace {

TEST(VisibilityRules, PackKnownSurfaceAndLocalAttitude)
{
    const struct
    {
        bool known, local;
        int flarmod;
    } cases[] = {{true, true, 1}, {true, false, 2}, {false, true, -1}, {false, false, -2}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.flarmod);
        EXPECT_EQ(flareMode({c.known, c.local}), c.flarmod);
        EXPECT_EQ(flareVariant(c.flarmod).knownSurface, c.known);
        EXPECT_EQ(flareVariant(c.flarmod).localAttitude, c.local);
    }
}

TEST(VisibilityRules, TheAnglesAreACylinderOnlyWithFlaresOfAnUnknownSurface)
{
    EXPECT_TRUE(anglesAreCylinder(true, 1, -1));
    EXPECT_TRUE(anglesAreCylinder(true, 1, -2));
    EXPECT_FALSE(anglesAreCylinder(true, 1, 1));
    EXPECT_FALSE(anglesAreCylinder(true, 0, -1));
    EXPECT_FALSE(anglesAreCylinder(false, 1, -1));
}

}  // namespace
