#include "scan/brightest.h"

#include "engine/prediction.h"
#include "scan/scan_helper.h"
#include "scan/workers.h"

#include <QDir>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace {

BrightnessBook fiveMetres()
{
    BrightnessBook book;
    book.lengthM = 5;
    return book;
}

/// Every pass against a walk in steps of two seconds with the functions of values, whose magnitudes are those of one
/// length, and the counts against all passes of the file.
TEST(Brightest, IsTheLeastMagnitudeOfAWalk)
{
    const ScratchDir scratch;
    WinpData in = scanRecord("visual_2018.txt");
    in.satel = 10;
    in.sunel = -6;
    in.atmx = true;
    const double from = 58138.6, to = 58138.8;
    const auto all = brightestPasses(&in, fiveMetres(), {from, to, 99, false});
    ASSERT_TRUE(all);
    EXPECT_GT(all->passes.size(), 50u);
    EXPECT_EQ(all->fainter + all->hidden + all->unknown, 0);
    Models sphere;
    sphere.sphereDiameter = 5;
    int compared = 0;
    for (const BrightPass& pass : all->passes) {
        if (++compared % 5 != 0)
            continue;
        ASSERT_TRUE(readEntry(&in, pass.entry));
        EXPECT_EQ(in.norad[workSlot], pass.norad);
        Predictor predictor(orbitOf(in, workSlot), siteOf(in), {}, sphere);
        double least = 99, at = 0;
        for (double t = pass.pass.tm[0]; t <= pass.pass.tm[2]; t += 2.0 / 86400) {
            const Position p = predictor.position(t);
            const double m = *p.magnitude - 2.5 * std::log10(std::max(sunlitShare(p.sunElevation), 1e-6));
            if (m < least)
                least = m, at = t;
        }
        // the instant is one of sixty-four; the magnitude is flat around its least
        EXPECT_NEAR(pass.best.magnitude, least, 0.03) << pass.name << ' ' << at - pass.best.mjd;
        EXPECT_GE(pass.best.magnitude, least - 0.01) << pass.name;
    }

    const auto bright = brightestPasses(&in, fiveMetres(), {from, to, 3.5, true});
    const auto count = [&](double limit) {
        return std::count_if(all->passes.begin(), all->passes.end(),
                             [&](const BrightPass& pass) { return pass.best.magnitude <= limit; });
    };
    EXPECT_EQ(bright->passes.size() + static_cast<std::size_t>(bright->hidden), count(3.5));
    EXPECT_EQ(bright->fainter, static_cast<long>(all->passes.size()) - count(3.5));
    EXPECT_GT(bright->hidden, 0);  // the interval begins in twilight
    // a family knows Seasat, which passes once
    EXPECT_EQ(brightestPasses(&in, {}, {from, to, 3.5, true})->unknown, static_cast<long>(all->passes.size()) - 1);
    EXPECT_FALSE(readEntry(&in, 100000));
    setScanWorkers(1);
    const auto alone = brightestPasses(&in, fiveMetres(), {from, to, 3.5, true});
    setScanWorkers(0);
    ASSERT_EQ(alone->passes.size(), bright->passes.size());
    for (std::size_t i = 0; i < alone->passes.size(); ++i)
        EXPECT_EQ(alone->passes[i].best.magnitude, bright->passes[i].best.magnitude);
}

TEST(Brightest, PassesOfOneLaunchAreOneGroup)
{
    constexpr double minute = 1.0 / 1440;
    const auto pass = [&](const char* designator, double minutes) {
        BrightPass p;
        p.designator = designator;
        p.pass.tm[1] = 58138 + minutes * minute;
        return p;
    };
    const std::vector<BrightPass> passes{
        pass("2020-055A", 8),  pass("2020-055B", 0), pass("2020-056A", 4), pass("2020-055C", 16),
        pass("2020-055D", 30), pass("", 4),          pass("", 5)};
    const std::vector<std::vector<std::size_t>> expected{{0, 1, 3}, {2}, {4}, {5}, {6}};
    EXPECT_EQ(launchGroups(passes), expected);
}

}  // namespace
