#include "design/visibility_rules.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

TEST(VisibilityRules, AVariantIsPackedAndTakenApart)
{
    for (const auto& [code, known, local] :
         {std::tuple{1, true, true}, {2, true, false}, {-1, false, true}, {-2, false, false}}) {
        EXPECT_EQ(flareMode({known, local}), code);
        EXPECT_EQ(flareVariant(code).knownSurface, known);
        EXPECT_EQ(flareVariant(code).localAttitude, local);
    }
}

TEST(VisibilityRules, ACylinderNeedsFlaresOfAnUnknownSurface)
{
    EXPECT_TRUE(anglesAreCylinder(true, 1, -1));
    for (const auto& [cylinder, flares, variant] :
         {std::tuple{false, 1, -1}, {true, 0, -1}, {true, 1, 1}, {true, 1, 2}, {false, 0, 1}})
        EXPECT_FALSE(anglesAreCylinder(cylinder, flares, variant)) << cylinder << flares << variant;
}

}  // namespace
