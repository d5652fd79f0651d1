#include "engine/element_age.h"

#include <gtest/gtest.h>

#include <cmath>

#include "record/winp_data.h"

TEST(ElementAge, GrowsWithDragAndAtLeastPlainly)
{
    // a station of 15.5 revolutions a day and 0.0001 rev/day^2: 5 days are 86400 * 0.1 * 0.0001 * 25 / 15.501 s
    EXPECT_NEAR(errorAlongTrack(5.0, 1e-4, 15.5, 0.01, 0.1), 21.6 / 15.501, 1e-12);
    EXPECT_NEAR(errorAlongTrack(-5.0, 1e-4, 15.5, 0.01, 0.2), 43.2 / 15.499, 1e-12);
    EXPECT_NEAR(errorAlongTrack(5.0, -1e-4, 15.5, 0.01, 0.1), 21.6 / 15.499, 1e-12);  // a rising orbit is no surer
    EXPECT_DOUBLE_EQ(errorAlongTrack(-4.0, 1e-6, 14.0, 0.01, 0.1), 0.4);
    EXPECT_DOUBLE_EQ(errorAlongTrack(4.0, 0.0, 14.0, 0.01, 0.1), 0.4);
    EXPECT_DOUBLE_EQ(errorAlongTrack(10.0, 1e-2, 2.0, 0.01, 0.1), 2.0);  // deep
    EXPECT_DOUBLE_EQ(errorAlongTrack(10.0, 1e-2, 1.0, 0.01, 0.1), 8.0);
    EXPECT_DOUBLE_EQ(errorAlongTrack(10.0, 1e-2, 2.0, 0.7, 0.1), 70.0);
    EXPECT_TRUE(std::isinf(errorAlongTrack(-1000.0, 1e-2, 15.5, 0.01, 0.1)));
}

TEST(ElementAge, BecomesDoubtfulAndStaleAtItsLimits)
{
    EXPECT_EQ(freshnessOf({6.9, 4.9}), Freshness::fresh);
    EXPECT_EQ(freshnessOf({7.0, 0.1}), Freshness::doubtful);
    EXPECT_EQ(freshnessOf({0.1, 5.0}), Freshness::doubtful);
    EXPECT_EQ(freshnessOf({29.9, 29.9}), Freshness::doubtful);
    EXPECT_EQ(freshnessOf({30.0, 0.1}), Freshness::stale);
    EXPECT_EQ(freshnessOf({0.1, 30.0}), Freshness::stale);
    EXPECT_EQ(freshnessOf({1.0, std::nan("")}), Freshness::stale);
    WinpData in;
    in.mjdep[2] = 58100.0;
    in.n0[2] = 14.0;
    const ElementAge age = elementAge(in, 2, 58097.0, 0.1);
    EXPECT_DOUBLE_EQ(age.days, 3.0);
    EXPECT_NEAR(age.seconds, 0.3, 1e-12);
}
