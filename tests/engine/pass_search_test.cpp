#include "engine/pass_search.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "app/record/winp_data.h"
#include "astro/angles.h"
#include "engine/aos_list.h"
#include "engine/pass_list_helper.h"
#include "engine/position.h"
#include "engine/record_helper.h"

namespace {

constexpr double secondDays = 1.0 / 86400.0;
constexpr double firstDay = 58138.0;  // 2018-01-20

// The ends are found to 0.94 s by six bisections of half a minute; the reference frames differ by some 0.1 s.
constexpr double timeTolerance = 2.0 * secondDays;

std::vector<Pass> allPasses(WinpData& in)
{
    std::vector<Pass> passes;
    const double end = firstDay + in.dur;
    Pass pass;
    for (double t = firstDay; t <= end; t = timeAfterPass(in, 0, pass)) {
        if (nextpass(&in, 0, t, end, pass.tm, pass.a, pass.b) == 0)
            break;
        passes.push_back(pass);
    }
    return passes;
}

bool samePass(const Pass& one, const Pass& other)
{
    return one.tm[0] <= other.tm[2] && other.tm[0] <= one.tm[2];
}

/// A pass shorter than the search step may fall between two steps.
bool certain(const Pass& pass)
{
    return pass.tm[2] - pass.tm[0] > 61.0 * secondDays;
}

const Pass* partnerOf(const Pass& pass, const std::vector<Pass>& passes)
{
    for (const Pass& other : passes)
        if (samePass(pass, other))
            return &other;
    return nullptr;
}

void expectInstant(double t, double az, double el, const Pass& reference, int k)
{
    SCOPED_TRACE(k);
    EXPECT_NEAR(t, reference.tm[k], timeTolerance);
    EXPECT_NEAR(el, reference.a[k], 1.0);
    // degrees of azimuth mean little near the zenith
    const double azDifference = std::remainder(az - reference.b[k], 360.0) * std::cos(radPerDeg * el);
    EXPECT_NEAR(azDifference, 0.0, 1.0);
}

TEST(PassSearch, FindsThePassesOfAnotherProgramAndNoOthers)
{
    int compared = 0;
    for (const ReferenceList& list : referenceLists()) {
        SCOPED_TRACE(list.what);
        WinpData in = recordOf(list);
        const std::vector<Pass> found = allPasses(in);
        for (const Pass& pass : found) {
            SCOPED_TRACE(pass.tm[0]);
            const Pass* reference = partnerOf(pass, list.passes);
            ASSERT_TRUE(reference) << "only the search has this pass";
            for (int k = 0; k < 3; ++k)
                expectInstant(pass.tm[k], pass.b[k], pass.a[k], *reference, k);
            ++compared;
        }
        for (const Pass& pass : list.passes)
            EXPECT_TRUE(!certain(pass) || partnerOf(pass, found)) << pass.tm[0] << " is missing";
    }
    EXPECT_GT(compared, 250);
}

TEST(PassSearch, GoesBackToTheSamePasses)
{
    for (const ReferenceList& list : referenceLists()) {
        SCOPED_TRACE(list.what);
        WinpData in = recordOf(list);
        for (const Pass& reference : list.passes) {
            if (!certain(reference) || reference.tm[0] == firstDay)
                continue;
            SCOPED_TRACE(reference.tm[0]);
            Pass pass;
            ASSERT_EQ(lastpass(&in, 0, reference.tm[2] + 0.002, firstDay, pass.tm, pass.a, pass.b), 1);
            expectInstant(pass.tm[0], pass.b[0], pass.a[0], reference, 2);
            expectInstant(pass.tm[1], pass.b[1], pass.a[1], reference, 1);
            expectInstant(pass.tm[2], pass.b[2], pass.a[2], reference, 0);
        }
    }
}

/// The station over Vienna, with its passes whatever the light.
struct StationOverVienna : testing::Test
{
    StationOverVienna()
    {
        for (const ReferenceList& candidate : referenceLists())
            if (candidate.norad == 25544 && !candidate.lit && list.passes.empty())
                list = candidate;
        in = recordOf(list);
    }

    int next(double t0, double t1) { return nextpass(&in, 0, t0, t1, pass.tm, pass.a, pass.b); }
    int last(double t0, double t1) { return lastpass(&in, 0, t0, t1, pass.tm, pass.a, pass.b); }

    ReferenceList list;
    WinpData in;
    Pass pass;
};

TEST_F(StationOverVienna, PassUnderWayStartsWhereTheSearchStarts)
{
    const Pass& reference = list.passes[3];
    const double t0 = reference.tm[0] + 0.001;
    ASSERT_EQ(next(t0, t0 + 0.1), 1);
    EXPECT_EQ(pass.tm[0], t0);
    EXPECT_NEAR(pass.tm[1], reference.tm[1], timeTolerance);
    EXPECT_NEAR(pass.tm[2], reference.tm[2], timeTolerance);

    const double late = reference.tm[2] - 0.001;
    ASSERT_EQ(last(late, late - 0.1), 1);
    EXPECT_EQ(pass.tm[0], late);
    EXPECT_NEAR(pass.tm[2], reference.tm[0], timeTolerance);
}

TEST_F(StationOverVienna, JumpLeavesThePassItStartsIn)
{
    in.pasjmp = 1;
    const double inside = list.passes[3].tm[1];
    ASSERT_EQ(next(inside, inside + 1.0), 1);
    EXPECT_NEAR(pass.tm[0], list.passes[4].tm[0], timeTolerance);
    ASSERT_EQ(last(inside, inside - 1.0), 1);
    EXPECT_NEAR(pass.tm[0], list.passes[2].tm[2], timeTolerance);
}

TEST_F(StationOverVienna, EndsOnTimesThatStepsDoNotMove)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double inf = std::numeric_limits<double>::infinity();
    in.satel = -90.0;
    for (double t0 : {1e300, -1e300, -inf, inf, nan}) {
        SCOPED_TRACE(t0);
        next(t0, inf);
        last(t0, -inf);
        in.pasjmp = 1;
        next(t0, inf);
        last(t0, -inf);
        in.pasjmp = 0;
    }
    EXPECT_EQ(heldSpan(nan), longestSpanDays);
    EXPECT_EQ(heldSpan(inf), longestSpanDays);
    EXPECT_EQ(heldSpan(-inf), -longestSpanDays);
    EXPECT_EQ(heldSpan(3.1), 3.1);
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

struct RelativeCase
{
    const char* what;
    double height, lngDifference, otherHeight;
    int visflg;
    double sunel1, sunel2;
    bool counts;
};

// Two satellites over the equator. The horizon angle of 1000 km is arccos(6378.137 / 7378.137) = 30.18 degrees, that of
// 500 km is 21.98 degrees.
constexpr RelativeCase relativeCases[] = {
    {"near", 1000.0, 20.0, 500.0, 0, -5.0, -5.0, true},
    {"just over the limb", 1000.0, 52.15, 500.0, 0, -5.0, -5.0, true},
    {"just behind the limb", 1000.0, 52.17, 500.0, 0, -5.0, -5.0, false},
    {"on the ground, in view", 1000.0, 30.17, -1.0, 0, -5.0, -5.0, true},
    {"on the ground, out of view", 1000.0, 30.19, 0.0, 0, -5.0, -5.0, false},
    {"both lit", 1000.0, 20.0, 500.0, 1, 0.0, 0.0, true},
    {"prime dark", 1000.0, 20.0, 500.0, 1, -0.1, 5.0, false},
    {"second dark", 1000.0, 20.0, 500.0, 1, 5.0, -0.1, false},
};

TEST(VisibilityConditions, LookOverTheLimbInRelativeMode)
{
    for (const RelativeCase& c : relativeCases) {
        SCOPED_TRACE(c.what);
        WinpData in;
        in.rlm = 1;
        in.satn = 2;
        in.satel = 90.0;  // plays no part
        in.sunel = -90.0;
        in.visflg = c.visflg;
        SatPosData sp;
        sp.hgt[0] = c.height;
        sp.lng[0] = 170.0;
        sp.dec[0] = 170.0 + c.lngDifference - 360.0;
        sp.sunel[0] = c.otherHeight;
        sp.sunel1 = c.sunel1;
        sp.sunel2 = c.sunel2;
        EXPECT_EQ(cksatok(&in, &sp, 0) != 0, c.counts);
    }
}

/// Whether the straight line between two satellites stays clear of the sphere that stands for the Earth. Heights and
/// latitudes are those of the ellipsoid, as if they were spherical.
struct Sight
{
    explicit Sight(double t)
    {
        WinpData in = recordAt(vienna);
        in.satn = 2;
        loadElements(in, 0, "visual_2018.txt", 25544);
        loadElements(in, 1, "visual_2018.txt", 27386);
        SatPosData sp;
        for (int k = 0; k < 2; ++k) {
            GetSatPos(t, &in, &sp, k, 0);
            place[k] = polcar(Vec3(6378.137 + sp.hgt[k], radPerDeg * sp.lng[k], radPerDeg * sp.lat[k]));
        }
    }

    bool clear() const
    {
        const Vec3 line = place[1] - place[0];
        const double k = -dot(place[0], line) / dot(line, line);
        return k < 0.0 || k > 1.0 || abs(place[0] + k * line) > 6378.137;
    }

    Vec3 place[2];
};

TEST(RelativePasses, LastAsLongAsTheLineOfSightIsClear)
{
    WinpData in = recordAt(vienna);
    in.satn = 2;
    in.rlm = 1;
    in.visflg = 0;
    loadElements(in, 0, "visual_2018.txt", 25544);
    loadElements(in, 1, "visual_2018.txt", 27386);
    double t = firstDay;
    Pass pass;
    for (int k = 0; k < 8; ++k) {
        ASSERT_EQ(nextpass(&in, 0, t, t + 1.0, pass.tm, pass.a, pass.b), 1);
        SCOPED_TRACE(pass.tm[0]);
        EXPECT_TRUE(Sight(0.5 * (pass.tm[0] + pass.tm[2])).clear());
        EXPECT_TRUE(Sight(pass.tm[0] + secondDays).clear());
        EXPECT_TRUE(pass.tm[0] == firstDay || !Sight(pass.tm[0] - secondDays).clear());
        EXPECT_TRUE(Sight(pass.tm[2] - secondDays).clear());
        EXPECT_FALSE(Sight(pass.tm[2] + secondDays).clear());
        const Sight end(pass.tm[2]);
        const Vec3 polar = carpol(end.place[0]);
        EXPECT_NEAR(pass.a[2], degPerRad * polar[2], 1e-9) << "latitude of the prime satellite";
        EXPECT_NEAR(std::remainder(pass.b[2] - degPerRad * polar[1], 360.0), 0.0, 1e-9);
        t = timeAfterPass(in, 0, pass);
    }
}

}  // namespace
