#include "design/orbit_determination.h"

#include <cstdio>
#include <string>

#include <gtest/gtest.h>

#include "astro/angles.h"
#include "design/orbit_helper.h"
#include "record/wout_data.h"
#include "scan/matching.h"

namespace {

constexpr double secondDays = 1.0 / 86400.0;

/// A satellite whose eccentricity is below 0.0015, at a time from which on it stands above 30 degrees over Vienna for
/// two minutes.
struct Sighting
{
    int norad;
    double mjd;
};

constexpr Sighting sightings[] = {
    {4327, 58138.4063},  {12585, 58138.1625}, {14699, 58138.4056}, {16182, 58138.4528}, {16969, 58138.2535},
    {21422, 58138.1993}, {22566, 58138.6021}, {22826, 58138.1035}, {24836, 58138.3285}, {24870, 58138.4097},
    {24904, 58138.0597}, {24945, 58138.2090}, {24967, 58138.2563}, {25043, 58138.4194}, {25169, 58138.3299},
    {25272, 58138.1681}, {25287, 58138.0049}, {25338, 58138.2201}, {25407, 58138.4924}, {25527, 58138.3736},
};

/// Looks at the satellite, seconds apart, into the observation fields. @param packed  as R.A. and Dec.
WinpData* seen(const Sighting& sighting, double seconds, bool packed, double yrepoch = 0.0)
{
    WinpData* in = freshRecord();
    in->yrepoch = yrepoch;
    addSatellite(in, "catalogue_2018.txt", sighting.norad);
    in->mjd = sighting.mjd;
    in->deltm = seconds;
    in->az1flg = in->az2flg = packed;
    const auto look = [&](double t, double& first, double& second) {
        GetSatPos(t, in, satpos, 0, 0);
        first = packed ? satpos->ra[0] : satpos->az[0];
        second = packed ? satpos->dec[0] : satpos->el[0];
    };
    look(in->mjd, in->az1, in->el1);
    look(in->mjd + seconds * secondDays, in->az2, in->el2);
    return in;
}

/// The angle in the sky between the two satellites, radians.
double apart(WinpData* in, double t)
{
    Vec3 direction[2];
    for (const int k : {0, 1}) {
        GetSatPos(t, in, satpos, k, 0);
        direction[k] = polcar({1.0, radPerDeg * satpos->az[k], radPerDeg * satpos->el[k]});
    }
    return abs(direction[0] - direction[1]);
}

bool namedInMatches(WinpData* in, int norad)
{
    WoutData out;
    EXPECT_EQ(SatMatch(in, &out), 0);
    for (int k = 0; k < out.nlines; ++k) {
        int found = 0;
        if (std::sscanf(std::string(lineText(out, k)).c_str(), " NORAD#:%6d", &found) == 1 && found == norad)
            return true;
    }
    return false;
}

TEST(OrbitDetermination, FindsHeightAndInclinationOfRoundOrbits)
{
    int k = 0;
    for (const Sighting& sighting : sightings) {
        const double seconds = 30.0 + 10.0 * (k % 10);
        SCOPED_TRACE(testing::Message() << sighting.norad << " after " << seconds << " s");
        WinpData* in = seen(sighting, seconds, k % 2 == 1, k % 4 == 1 ? 2000.0 : 0.0);
        ++k;
        const double height = abs(stateAt(in, 0, in->mjd).r) - equatorKm;
        OrbitDet(in);
        ASSERT_EQ(in->satn, 2);
        EXPECT_EQ(fieldText(in->fsname[1]), "New");
        EXPECT_NEAR(in->a[1] - equatorKm, height, 0.02 * height);
        EXPECT_NEAR(in->inc[1], in->inc[0], 1.0);
        EXPECT_EQ(in->ecc[1] + in->m0[1] + in->ndot[1] + in->adot[1] + in->n6dot[1] + in->bstar[1], 0.0);
        EXPECT_EQ(in->aflg[1] + in->numflg[1], 0);
        EXPECT_EQ(in->Am[1], in->dAm);
        EXPECT_NEAR(in->n0[1], getn0(in->a[1], 0.0, in->inc[1]), 1e-12);
        EXPECT_EQ(in->mjdep[1], in->mjd);
        EXPECT_LT(apart(in, in->mjd), 3e-4);
        EXPECT_LT(apart(in, in->mjd + seconds * secondDays), 2e-3);  // in two minutes on a simpler orbit
        in->satn = 0;
        in->odm = true;
        EXPECT_TRUE(namedInMatches(in, sighting.norad));
    }
}

TEST(OrbitDetermination, WithoutASolutionEndsAtTheUpperLimit)
{
    WinpData* in = seen(sightings[1], 40.0, false);
    for (const double seconds : {0.0, -40.0, 1.0}) {
        SCOPED_TRACE(seconds);
        in->deltm = seconds;
        if (seconds == 1.0)
            in->az2 = in->az1 + 180.0;  // wide apart
        OrbitDet(in);
        EXPECT_NEAR(in->a[in->prs], 300078.14, 0.01);
        EXPECT_EQ(fieldText(in->fsname[in->prs]), "New");
        EXPECT_TRUE(elementsAreFinite(*in, in->prs));
    }
}

TEST(PhiDiff, TakesTheNearestPointOfALineThatStaysOutside)
{
    Vec3 r1, r2, p{9000, -4000, 0}, d{0, 1, 0};
    const double b = 4000.0, c = b * b - dot(p, p);
    PhiDiff(c, c, b, b, 0.01, r1, r2, p, p, d, d, 7000.0);
    EXPECT_EQ(abs(r1 - Vec3(9000, 0, 0)), 0.0);
    PhiDiff(c, c, b, b, 0.01, r1, r2, p, p, d, d, 15000.0);
    EXPECT_NEAR(abs(r1 - Vec3(9000, 12000, 0)), 0.0, 1e-9);
}

}  // namespace
