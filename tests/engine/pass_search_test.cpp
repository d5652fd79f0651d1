#include "engine/pass_search.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "astro/angles.h"
#include "engine/record_helper.h"
#include "record/keep.h"

namespace {

constexpr double firstDay = 58138.0;  // 2018-01-20

// The ends are found to 0.94 s by six bisections of half a minute; the reference frames differ by some 0.1 s.
constexpr double timeTolerance = 2.0 * secondDays;

int next(WinpData& in, double t0, double t1, Pass& pass)
{
    return nextpass(&in, 0, t0, t1, pass.tm, pass.a, pass.b);
}

int last(WinpData& in, double t0, double t1, Pass& pass)
{
    return lastpass(&in, 0, t0, t1, pass.tm, pass.a, pass.b);
}

/// A pass shorter than the search step may fall between two steps.
bool certain(const Pass& pass)
{
    return pass.tm[2] - pass.tm[0] > 61.0 * secondDays;
}

const Pass* partnerOf(const Pass& pass, const std::vector<Pass>& passes)
{
    for (const Pass& other : passes)
        if (pass.tm[0] <= other.tm[2] && other.tm[0] <= pass.tm[2])
            return &other;
    return nullptr;
}

/// @param backward  the pass has its later end in front
void expectPass(const Pass& pass, const Pass& reference, bool backward = false)
{
    for (int k = 0; k < 3; ++k) {
        SCOPED_TRACE(k);
        const int of = backward ? 2 - k : k;
        EXPECT_NEAR(pass.tm[k], reference.tm[of], timeTolerance);
        EXPECT_NEAR(pass.a[k], reference.a[of], 1.0);
        // degrees of azimuth mean little near the zenith
        const double azDifference = std::remainder(pass.b[k] - reference.b[of], 360.0);
        EXPECT_NEAR(azDifference * std::cos(radPerDeg * pass.a[k]), 0.0, 1.0);
    }
}

TEST(PassSearch, FindsThePassesOfAnotherProgramAndNoOthers)
{
    std::size_t compared = 0;
    for (const ReferenceList& list : referenceLists()) {
        SCOPED_TRACE(list.what);
        WinpData in = list.record;
        const double end = firstDay + in.dur;
        std::vector<Pass> found;
        Pass pass;
        for (double t = firstDay; t <= end && next(in, t, end, pass); t = timeAfterPass(in, 0, pass)) {
            SCOPED_TRACE(pass.tm[0]);
            const Pass* reference = partnerOf(pass, list.passes);
            ASSERT_TRUE(reference) << "only the search has this pass";
            expectPass(pass, *reference);
            found.push_back(pass);
        }
        compared += found.size();
        for (const Pass& reference : list.passes) {
            if (!certain(reference))
                continue;
            SCOPED_TRACE(reference.tm[0]);
            EXPECT_TRUE(partnerOf(reference, found)) << "is missing";
            if (reference.tm[0] == firstDay)
                continue;
            ASSERT_EQ(last(in, reference.tm[2] + 0.002, firstDay, pass), 1);
            expectPass(pass, reference, true);
        }
    }
    EXPECT_GT(compared, 250u);
}

TEST(PassSearch, StartsInsideAPassOrLeavesItFirst)
{
    ReferenceList list = stationOverVienna();
    WinpData& in = list.record;
    const Pass& reference = list.passes[3];
    Pass pass;
    const double t0 = reference.tm[0] + 0.001;
    ASSERT_EQ(next(in, t0, t0 + 0.1, pass), 1);
    EXPECT_EQ(pass.tm[0], t0);
    EXPECT_NEAR(pass.tm[1], reference.tm[1], timeTolerance);
    EXPECT_NEAR(pass.tm[2], reference.tm[2], timeTolerance);
    const double late = reference.tm[2] - 0.001;
    ASSERT_EQ(last(in, late, late - 0.1, pass), 1);
    EXPECT_EQ(pass.tm[0], late);
    EXPECT_NEAR(pass.tm[2], reference.tm[0], timeTolerance);

    in.pasjmp = 1;
    const double inside = reference.tm[1];
    ASSERT_EQ(next(in, inside, inside + 1.0, pass), 1);
    EXPECT_NEAR(pass.tm[0], list.passes[4].tm[0], timeTolerance);
    ASSERT_EQ(last(in, inside, inside - 1.0, pass), 1);
    EXPECT_NEAR(pass.tm[0], list.passes[2].tm[2], timeTolerance);
}

TEST(PassSearch, EndsOnTimesThatStepsDoNotMove)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double inf = std::numeric_limits<double>::infinity();
    WinpData in = stationOverVienna().record;
    in.satel = -90.0;
    Pass pass;
    for (const double t0 : {1e300, -1e300, -inf, inf, nan})
        for (in.pasjmp = 0; in.pasjmp < 2; ++in.pasjmp) {
            SCOPED_TRACE(t0);
            next(in, t0, inf, pass);
            last(in, t0, -inf, pass);
        }
    EXPECT_EQ(clampedSpan(nan), longestSpanDays);
    EXPECT_EQ(clampedSpan(inf), longestSpanDays);
    EXPECT_EQ(clampedSpan(-inf), -longestSpanDays);
    EXPECT_EQ(clampedSpan(3.1), 3.1);
}

struct ConditionCase
{
    const char* what;
    int visflg, moonflg;
    double el, osunel, sunel, moonel;
    bool counts;
};

// With at least 10 degrees for the satellite and the Sun below -6.
constexpr ConditionCase conditionCases[] = {
    {"plain", 0, 0, 30.0, -10.0, -1.0, -1.0, true},
    {"exactly at the least elevation", 0, 0, 10.0, -10.0, -1.0, -1.0, true},
    {"below it", 0, 0, 9.99, -10.0, -1.0, -1.0, false},
    {"Sun exactly at its limit", 0, 0, 30.0, -6.0, -1.0, -1.0, false},
    {"lit, wanted lit", 1, 0, 30.0, -10.0, 0.0, -1.0, true},
    {"dark, wanted lit", 1, 0, 30.0, -10.0, -0.01, -1.0, false},
    {"Moon without visible passes", 0, 1, 30.0, -10.0, 5.0, -1.0, true},
    {"moonlit only", 1, 1, 30.0, -10.0, -0.01, 0.0, true},
    {"moonlit and sunlit", 1, 1, 30.0, -10.0, 0.0, 20.0, false},
    {"no light at all", 1, 1, 30.0, -10.0, -5.0, -0.01, false},
};

TEST(VisibilityConditions, HoldInTheirOrder)
{
    for (const ConditionCase& c : conditionCases) {
        SCOPED_TRACE(c.what);
        WinpData in;
        in.satel = 10.0;
        in.sunel = -6.0;
        in.visflg = c.visflg;
        in.moonflg = c.moonflg;
        SatPosData sp;
        sp.el[3] = c.el;
        sp.osunel = c.osunel;
        sp.sunel[3] = c.sunel;
        sp.moonel[3] = c.moonel;
        EXPECT_EQ(cksatok(&in, &sp, 3) != 0, c.counts);
    }
}

// Two satellites over the equator. The horizon angle of 1000 km is arccos(6378.137 / 7378.137) = 30.18 degrees, that of
// 500 km is 21.98 degrees. Difference of longitude, other height, visflg, sunel1, sunel2, whether it counts.
constexpr double relativeCases[][6] = {
    {20.0, 500.0, 0, -5.0, -5.0, 1},                                     // near
    {52.15, 500.0, 0, -5.0, -5.0, 1}, {52.17, 500.0, 0, -5.0, -5.0, 0},  // just behind the limb
    {30.17, -1.0, 0, -5.0, -5.0, 1},                                     // on the ground
    {30.19, 0.0, 0, -5.0, -5.0, 0},   {20.0, 500.0, 1, 0.0, 0.0, 1},     // lit
    {20.0, 500.0, 1, -0.1, 5.0, 0},   {20.0, 500.0, 1, 5.0, -0.1, 0},
};

TEST(VisibilityConditions, LookOverTheLimbInRelativeMode)
{
    for (const auto& [lngDifference, otherHeight, visflg, sunel1, sunel2, counts] : relativeCases) {
        WinpData in;
        in.rlm = 1;
        in.satn = 2;
        in.satel = 90.0;  // plays no part
        in.sunel = -90.0;
        in.visflg = visflg != 0;
        SatPosData sp;
        sp.hgt[0] = 1000.0;
        sp.lng[0] = 170.0;
        sp.dec[0] = 170.0 + lngDifference - 360.0;
        sp.sunel[0] = otherHeight;
        sp.sunel1 = sunel1;
        sp.sunel2 = sunel2;
        EXPECT_EQ(cksatok(&in, &sp, 0), static_cast<int>(counts)) << lngDifference << ' ' << sunel1;
    }
}

/// Whether the straight line between two satellites stays clear of the sphere that stands for the Earth. Heights and
/// latitudes are those of the ellipsoid, as if they were spherical.
bool clear(double t, WinpData& in)
{
    const Keep plain(in.rlm, 0);
    Vec3 place[2];
    for (int k = 0; k < 2; ++k) {
        const SatPosData sp = positionAt(t, in, k);
        place[k] = (6378.137 + sp.hgt[k]) * direction(sp.lng[k], sp.lat[k]);
    }
    const Vec3 line = place[1] - place[0];
    const double k = -dot(place[0], line) / dot(line, line);
    return k < 0.0 || k > 1.0 || abs(place[0] + k * line) > 6378.137;
}

TEST(RelativePasses, LastAsLongAsTheLineOfSightIsClear)
{
    WinpData in = recordWith({25544, 27386});
    in.rlm = 1;
    in.visflg = 0;
    double t = firstDay;
    Pass pass;
    for (int k = 0; k < 8; ++k) {
        ASSERT_EQ(next(in, t, t + 1.0, pass), 1);
        SCOPED_TRACE(pass.tm[0]);
        EXPECT_TRUE(clear(0.5 * (pass.tm[0] + pass.tm[2]), in));
        EXPECT_TRUE(clear(pass.tm[0] + secondDays, in));
        EXPECT_TRUE(pass.tm[0] == firstDay || !clear(pass.tm[0] - secondDays, in));
        EXPECT_TRUE(clear(pass.tm[2] - secondDays, in));
        EXPECT_FALSE(clear(pass.tm[2] + secondDays, in));
        const SatPosData end = positionAt(pass.tm[2], in);
        EXPECT_EQ(pass.a[2], end.lat[0]) << "latitude of the prime satellite";
        EXPECT_EQ(pass.b[2], end.lng[0]);
        t = timeAfterPass(in, 0, pass);
    }
}

}  // namespace
