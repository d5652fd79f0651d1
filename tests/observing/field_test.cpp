// Crossings of a field against positions of the engine, instant by instant.

#include "astro/angles.h"
#include "engine/position.h"
#include "observing/field.h"
#include "orbit/orbit.h"
#include "record/files.h"
#include "record/text.h"
#include "scan/entries.h"

#include <cmath>
#include <map>
#include <memory>

#include <gtest/gtest.h>

namespace {

constexpr double secondsPerDay = 86400.0;

std::unique_ptr<WinpData> evening()
{
    auto in = std::make_unique<WinpData>();
    setDefaults(in.get());
    in->lat = 48.2;
    in->lng = 16.37;
    in->height = 200;
    in->yrepoch = 2000;
    assignField(in->tlename, TEST_DATA "/elements/visual_2018.txt");
    return in;
}

FieldQuery queryOf(const WinpData& in, const SkyField& field)
{
    FieldQuery query;
    query.field = field;
    query.from = 58138.0 + 17.0 / 24.0;
    query.to = query.from + 900.0 / secondsPerDay;
    query.site = siteOf(in);
    query.earth = earthOrientationOf(in);
    return query;
}

/// How far inside of a frame or a circle a place is, degrees; by the engine's azimuth and elevation, or right ascension
/// and declination of 2000.
double depthIn(const SkyField& f, const SatPosData& sp, int slot)
{
    const bool fixed = f.angles == SkyAngles::horizontal;
    const double longitude = (fixed ? sp.az[slot] : DmsDegF(sp.ra[slot]) * 15.0) - f.first;
    const double b = (fixed ? sp.el[slot] : DmsDegF(sp.dec[slot])) * radPerDeg, b0 = f.second * radPerDeg;
    const double l = longitude * radPerDeg;
    const double ahead = std::sin(b) * std::sin(b0) + std::cos(b) * std::cos(b0) * std::cos(l);
    if (f.width == 0.0)
        return f.radius - std::acos(std::clamp(ahead, -1.0, 1.0)) * degPerRad;
    if (ahead <= 0.0)
        return -90.0;
    const double x = std::cos(b) * std::sin(l) / ahead;
    const double y = (std::sin(b) * std::cos(b0) - std::cos(b) * std::sin(b0) * std::cos(l)) / ahead;
    const double a = f.angle * radPerDeg, across = x * std::cos(a) - y * std::sin(a);
    const double upward = x * std::sin(a) + y * std::cos(a);
    return std::min(f.width / 2.0 - std::atan(std::abs(across)) * degPerRad,
                    f.height / 2.0 - std::atan(std::abs(upward)) * degPerRad);
}

TEST(Field, HoldsWhatTheEngineSeesInIt)
{
    constexpr double marginDeg = 0.05;  // refers to light time, aberration and nutation
    const SkyField fields[] = {{SkyAngles::horizontal, 200, 50, 0, 15},
                               {SkyAngles::horizontal, 10, 85, 0, 1, 40, 10, 30},
                               {SkyAngles::equatorial, 30, 60, 2000, 1, 30, 20, 70}};
    for (const SkyField& field : fields) {
        SCOPED_TRACE(field.first);
        const auto in = evening();
        const FieldQuery query = queryOf(*in, field);
        const auto crossings = fieldCrossings(in.get(), query, {});
        ASSERT_TRUE(crossings);
        std::multimap<int, const FieldCrossing*> byNumber;
        for (const FieldCrossing& c : *crossings)
            byNumber.emplace(c.norad, &c);
        const FilePtr file(std::fopen(in->tlename, "r"));
        Entries entries(in.get(), file.get());
        int inside = 0;
        while (entries.next())
            for (double t = query.from; t <= query.to; t += 3.0 / secondsPerDay) {
                absolutePosition(t, in.get(), satpos, workSlot);
                const double depth = satpos->el[workSlot] < 0.0 ? -90.0 : depthIn(field, *satpos, workSlot);
                if (std::abs(depth) < marginDeg)
                    continue;
                const auto [first, last] = byNumber.equal_range(in->norad[workSlot]);
                const bool told = std::any_of(
                    first, last, [t](const auto& c) { return t >= c.second->entry && t <= c.second->exit; });
                ASSERT_EQ(told, depth > 0.0) << in->norad[workSlot] << ' ' << t << ' ' << depth;
                inside += told;
            }
        EXPECT_GT(inside, 5);
    }
}

TEST(Field, IsFreeBetweenSunlitSatellites)
{
    FieldQuery query;
    query.from = 100;
    query.to = 101;
    std::vector<FieldCrossing> all(4);
    const double times[][2] = {{100.2, 100.4}, {100.3, 100.35}, {100.6, 100.7}, {100.9, 101.0}};
    for (std::size_t i = 0; i < all.size(); ++i) {
        all[i].entry = times[i][0];
        all[i].exit = times[i][1];
        all[i].sunlit = i != 2;
    }
    const auto free = freeIntervals(query, all);
    ASSERT_EQ(free.size(), 2u);
    EXPECT_EQ(free[0].to, 100.2);
    EXPECT_EQ(free[1].from, 100.4);
    EXPECT_EQ(free[1].to, 100.9);
}

}  // namespace
