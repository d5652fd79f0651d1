// Places and distances from the Sun below are Skyfield's, for the same elements.

#include "mounts/follow_plan.h"

#include <gtest/gtest.h>

#include <cmath>

#include "mounts/seasat_helper.h"

namespace {

constexpr double evening = 58138.0 + 17.0 / 24.0;    // 2018-01-20 17:00 UTC
constexpr double morning = 58139.0 + 6.7 / 24.0;     // 2018-01-21 06:42 UTC
constexpr double forenoon = 58138.0 + 7.305 / 24.0;  // 2018-01-20 07:18:18 UTC
constexpr double second = 1.0 / 86400.0;

using Kind = FollowStep::Kind;

FollowPlan planWith(double leastElevation, double leastSunDistance)
{
    return {seasat(), vienna, {}, {leastElevation, leastSunDistance}};
}

TEST(FollowPlan, PointsWhereTheSatelliteIs)
{
    struct Row
    {
        double seconds, azimuth, ra, dec, ra2000, dec2000, nextRa, nextDec;
    };
    constexpr Row rows[] = {{-120, 218.3775, 23.52418, -15.9652, 23.50874, -16.0639, 23.51384, -15.8144},
                            {0, 250.4573, 22.05639, 4.9286, 22.04142, 4.8410, 22.04240, 5.1119},
                            {240, 305.2301, 18.77919, 30.7779, 18.76780, 30.7561, 18.76842, 30.8046}};
    FollowPlan plan = planWith(10, 0);
    for (const Row& row : rows) {
        const Aim aim = plan.aimAt(evening + row.seconds * second);
        EXPECT_NEAR(aim.azimuth, row.azimuth, 0.01) << row.seconds;
        EXPECT_NEAR(aim.ra, row.ra, 0.001) << row.seconds;
        EXPECT_NEAR(aim.dec, row.dec, 0.01) << row.seconds;
        EXPECT_NEAR(aim.ra2000, row.ra2000, 0.001) << row.seconds;
        EXPECT_NEAR(aim.dec2000, row.dec2000, 0.01) << row.seconds;
        EXPECT_NEAR(aim.raRate, (row.nextRa - row.ra) * 54000.0, 1.5) << row.seconds;
        EXPECT_NEAR(aim.decRate, (row.nextDec - row.dec) * 3600.0, 1.5) << row.seconds;
    }
    EXPECT_NEAR(plan.aimAt(evening).elevation, 22.9904 + 0.038, 0.01) << "raised by refraction";
    const Aim later = ahead(plan.aimAt(evening), 3.0);
    EXPECT_NEAR(later.dec, plan.aimAt(evening + 3 * second).dec, 0.01);
    EXPECT_NEAR(later.ra, plan.aimAt(evening + 3 * second).ra, 0.001);
}

TEST(FollowPlan, GoesToThePassAheadOfItAndStaysAboveTheLimit)
{
    FollowPlan plan = planWith(10, 0);
    const double begin = 58138.0 + (16 * 3600 + 56 * 60 + 17) * second;
    const double end = 58138.0 + (17 * 3600 + 4 * 60 + 4) * second;
    EXPECT_EQ(plan.at(begin - 400 * second).kind, Kind::wait);
    const FollowStep step = plan.at(begin - 200 * second);
    EXPECT_EQ(step.kind, Kind::slew);
    EXPECT_NEAR(step.start, begin, 1.5 * second);
    EXPECT_NEAR(step.aim.azimuth, 201.2, 0.2);
    EXPECT_EQ(plan.at(begin + 2 * second).kind, Kind::follow);
    EXPECT_EQ(plan.at(end - 3 * second).kind, Kind::follow);
    EXPECT_EQ(plan.at(end + 3 * second).kind, Kind::wait);
    EXPECT_EQ(planWith(89.9, 0).at(end).kind, Kind::noPass);
}

TEST(FollowPlan, KeepsAwayFromTheSun)
{
    FollowPlan any = planWith(10, 0);
    EXPECT_NEAR(any.sunDistance(any.aimAt(morning)), 93.39, 0.1);
    FollowPlan plan = planWith(10, 93.0);
    EXPECT_EQ(plan.at(morning + 10 * second).kind, Kind::follow);
    EXPECT_EQ(plan.at(morning + 35 * second).kind, Kind::sunNear);
    EXPECT_EQ(any.at(morning + 35 * second).kind, Kind::follow);

    // a pass that comes out of the neighbourhood of the Sun begins where it is far enough away
    FollowPlan late = planWith(9, 110.3);
    const FollowStep step = late.at(forenoon - 120 * second);
    ASSERT_EQ(step.kind, Kind::slew);
    EXPECT_NEAR((step.start - 58138.0) * 86400.0, 7 * 3600 + 18 * 60 + 25, 3.0);
}

}  // namespace
