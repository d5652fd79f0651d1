// Satellites on pictures: a place by skyfield and ERFA (tests/data/observing/sights.txt), and streaks named among others.

#include "imaging/identify.h"
#include "record/text.h"

#include <cmath>
#include <numbers>
#include <random>

#include <gtest/gtest.h>

namespace {

constexpr double secondsPerDay = 86400.0;
constexpr int width = 1200, height = 800;

/// 30 seconds of arc to a pixel, north up.
std::unique_ptr<PlateSolution> plateAt(const SkyPoint& centre)
{
    std::vector<PlateStar> stars;
    const double d = centre.dec;
    for (const auto& [x, y] : {std::pair{600.5, 400.5}, {600.5, 520.5}, {480.5, 400.5}})
        stars.push_back({{x, y}, {}});
    stars[0].place = centre;
    stars[1].place = {centre.ra, d + 1.0};
    stars[2].place = {
        centre.ra + std::atan2(std::tan(1.0 * std::numbers::pi / 180.0), std::cos(d * std::numbers::pi / 180.0)) *
                        180.0 / std::numbers::pi,
        0.0};
    stars[2].place.dec = std::atan(std::tan(d * std::numbers::pi / 180.0) *
                                   std::cos((stars[2].place.ra - centre.ra) * std::numbers::pi / 180.0)) *
                         180.0 / std::numbers::pi;
    return plateThrough(stars).plate;
}

std::unique_ptr<WinpData> record()
{
    auto in = std::make_unique<WinpData>();
    setDefaults(in.get());
    assignField(in->tlename, TEST_DATA "/elements/visual_2018.txt");
    return in;
}

TEST(Identify, DrawsASatelliteWhereItIs)
{
    const auto in = record();
    const auto plate = plateAt({192.1426108, 8.8212082});  // the ISS at 58140.275462963
    ExposedPicture picture{plate.get(),
                           width,
                           height,
                           58140.2754629630 - 2.0 / secondsPerDay,
                           4.0,
                           2000,
                           {-33.94, 18.51, 10},
                           {true, 0.206116, -37, 0, 0},
                           {}};
    const auto trails = satellitesOn(in.get(), picture, {});
    ASSERT_TRUE(trails);
    const auto iss = std::ranges::find(*trails, 25544, [](const PictureTrail& t) { return t.crossing.norad; });
    ASSERT_NE(iss, trails->end());
    double nearest = 1e9;
    for (std::size_t k = 0; k + 1 < iss->line.size(); ++k) {
        const PicturePoint &a = iss->line[k], &b = iss->line[k + 1];
        const double dx = b.x - a.x, dy = b.y - a.y;
        nearest = std::min(nearest, std::abs(dx * (400.5 - a.y) - dy * (600.5 - a.x)) / std::hypot(dx, dy));
    }
    EXPECT_LT(nearest, 0.1);
    EXPECT_NEAR((iss->crossing.entry + iss->crossing.exit) / 2.0, 58140.2754629630, 0.05 / secondsPerDay);

    // by skyfield from 2 s before to 2 s after
    EXPECT_NEAR(iss->crossing.rate, 0.30814, 1e-4);

    // flown 5 seconds late, and seen on a streak of the same exposure
    picture.streaks = {{iss->line.front(), iss->line.back(), 0}};
    picture.begin += 5.0 / secondsPerDay;
    const auto late = satellitesOn(in.get(), picture, {});
    ASSERT_TRUE(late && !late->empty() && late->front().match);
    EXPECT_EQ(late->front().crossing.norad, 25544);
    EXPECT_NEAR(late->front().match->ahead, -5.0, 0.05);
    EXPECT_LT(std::abs(late->front().match->across), 0.5);
}

}  // namespace
