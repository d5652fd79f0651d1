#include "engine/horizon_line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <random>

#include "engine/prediction.h"
#include "engine/record_helper.h"

namespace {

/// Below `limit`, in tenths.
double tenths(std::mt19937& dice, int limit)
{
    return static_cast<double>(dice() % (10u * limit)) / 10.0;
}

/// Houses and trees: level pieces with walls between them, and slopes.
HorizonLine randomLine(std::mt19937& dice)
{
    std::vector<HorizonLine::Point> points;
    for (double azimuth = 10.0; azimuth < 360.0; azimuth += 1.0 + tenths(dice, 40)) {
        const double elevation = tenths(dice, 70) - 5.0;
        points.push_back({azimuth, elevation});
        if (dice() % 2)
            points.push_back({azimuth, elevation / 2.0});
    }
    return HorizonLine(points);
}

/// Passes above the lowest of the line, cut by it in steps of a tenth of a second.
std::vector<Pass> cutBySteps(Predictor predictor, const HorizonLine& line, const std::vector<Pass>& whole)
{
    std::vector<Pass> parts;
    for (const Pass& pass : whole) {
        bool inside = false;
        for (double t = pass.tm[0]; t <= pass.tm[2]; t += 0.1 * secondDays) {
            const Position p = predictor.position(t);
            const bool above = p.elevation >= line.at(p.azimuth);
            if (above && !inside)
                parts.push_back({{t, t, t}, {0.0, -90.0, 0.0}, {}});
            inside = above;
            if (!above)
                continue;
            parts.back().tm[2] = t;
            parts.back().a[1] = std::max(parts.back().a[1], p.elevation);
        }
    }
    return parts;
}

/// The passes of a day from the end of each one on, or its intervals.
std::vector<Pass> passesOfDay(Predictor predictor, bool thorough)
{
    double from = 58138.0;
    if (thorough)
        return predictor.intervals(from, from + 1.0);
    std::vector<Pass> passes;
    while (const std::optional<Pass> pass = predictor.nextPass(from, 58139.0)) {
        passes.push_back(*pass);
        from = pass->tm[2];
    }
    return passes;
}

/// Looks for each part in the other list; parts shorter than the walk's step may be missing there.
std::size_t compareParts(const std::vector<Pass>& parts, const std::vector<Pass>& byWalk, double seconds)
{
    std::size_t k = 0;
    for (const Pass& part : parts) {
        if (k == byWalk.size() || (part.tm[2] - part.tm[0] < 0.2 * secondDays && part.tm[2] < byWalk[k].tm[0]))
            continue;
        EXPECT_NEAR(part.tm[0], byWalk[k].tm[0], seconds * secondDays);
        EXPECT_NEAR(part.tm[2], byWalk[k].tm[2], seconds * secondDays);
        EXPECT_NEAR(part.a[1], byWalk[k].a[1], 0.1);
        ++k;
    }
    EXPECT_EQ(k, byWalk.size());
    return k;
}

}  // namespace

TEST(HorizonLine, JoinsPointsAroundTheCircle)
{
    const HorizonLine line({{350.0, 20.0}, {90.0, 5.0}, {90.0, 30.0}, {450.0 + 90.0, 10.0}, {-30.0, 40.0}});
    EXPECT_NEAR(line.at(60.0), 20.0 - 15.0 * 70.0 / 100.0, 1e-12);
    EXPECT_EQ(line.at(90.0), 30.0);
    EXPECT_NEAR(line.at(135.0), 20.0, 1e-12);
    EXPECT_NEAR(line.at(340.0), 30.0, 1e-12);
    EXPECT_EQ(line.at(0.0), line.at(720.0));
    EXPECT_NEAR(line.at(-1e-9), line.at(0.0), 1e-6);
    EXPECT_EQ(line.lowest(), 5.0);
    EXPECT_EQ(line.highest(), 40.0);
    // a wall keeps its sides, whichever way round the points go
    const HorizonLine west({{180.0, 10.0}, {90.0, 30.0}, {90.0, 5.0}, {0.0, 5.0}});
    EXPECT_NEAR(west.at(89.0), 5.0, 1e-12);
    EXPECT_GT(west.at(91.0), 29.0);
    EXPECT_EQ(HorizonLine({{123.0, 7.0}}).at(300.0), 7.0);
}

TEST(HorizonLine, KnowsHowFarADirectionIsFromIt)
{
    std::mt19937 dice(3);
    for (int trial = 0; trial < 200; ++trial) {
        const HorizonLine line = randomLine(dice);
        const double az = tenths(dice, 360), el = tenths(dice, 100) - 10.0;
        const auto [above, away] = line.stand(az, el);
        EXPECT_EQ(above, el >= line.at(az));
        for (double other = 0.0; other < 360.0; other += 0.5)
            EXPECT_GE(angleBetween(direction(az, el), direction(other, line.at(other))), away) << az << ' ' << el;
    }
}

TEST(HorizonLine, CutsPassesWhereAWalkDoes)
{
    std::mt19937 dice(11);
    std::size_t compared = 0;
    for (const int norad : {25544, 27386, 25732}) {
        WinpData in = recordWith({norad}, {48.2, 16.4, 180.0});
        const Orbit orbit = orbitOf(in, 0);
        const Site site = siteOf(in);
        for (int trial = 0; trial < 6; ++trial) {
            const auto line = std::make_shared<HorizonLine>(randomLine(dice));
            const bool thorough = trial % 2;
            const std::vector<Pass> byWalk = cutBySteps(
                Predictor(orbit, site), *line,
                passesOfDay(Predictor(orbit, site, {std::max(5.0, line->lowest()), 91.0, false, nullptr}), thorough));
            const std::vector<Pass> parts = passesOfDay(Predictor(orbit, site, {5.0, 91.0, false, line}), thorough);
            compared += compareParts(parts, byWalk, thorough ? 0.12 : 1.0);
        }
    }
    EXPECT_GT(compared, 100u);
}
