#include "design/orbit_determination.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "app/record/text.h"
#include "app/record/wout_data.h"
#include "design/orbit_helper.h"
#include "engine/position.h"
#include "engine/scan/matching.h"
#include "orbit/mean_motion.h"

namespace {

constexpr double secondDays = 1.0 / 86400.0;

struct Look
{
    double az, el, ra, dec;
};

Look lookAt(WinpData* in, double t)
{
    GetSatPos(t, in, satpos, 0, 0);
    return {satpos->az[0], satpos->el[0], satpos->ra[0], satpos->dec[0]};
}

/// Looks at the satellite in slot 0, seconds apart, into the observation fields. @param packed  as R.A. and Dec.
void observe(WinpData* in, double t, double seconds, bool packed)
{
    const Look one = lookAt(in, t);
    const Look two = lookAt(in, t + seconds * secondDays);
    in->mjd = t;
    in->az1 = packed ? one.ra : one.az;
    in->el1 = packed ? one.dec : one.el;
    in->az2 = packed ? two.ra : two.az;
    in->el2 = packed ? two.dec : two.el;
    in->az1flg = in->az2flg = packed;
    in->deltm = seconds;
}

/// A near-circular satellite as it stands well up over Vienna, now and for the next two minutes.
struct Sighting
{
    int norad = 0;
    double time = 0;
};

std::vector<int> catalogue()
{
    std::vector<int> numbers;
    std::ifstream file(TEST_DATA "/elements/catalogue_2018.txt");
    for (std::string line; std::getline(file, line);)
        if (line.size() > 60 && line[0] == '1')
            numbers.push_back(std::stoi(line.substr(2, 5)));
    return numbers;
}

double timeInView(WinpData* in)
{
    for (double t = 58138.0; t < 58140.0; t += 60.0 * secondDays)
        if (lookAt(in, t).el > 30.0 && lookAt(in, t + 120.0 * secondDays).el > 30.0)
            return t;
    return 0;
}

/// Twenty satellites of eccentricities below 0.0015, spread over the catalogue.
std::vector<Sighting> sightings()
{
    std::vector<Sighting> seen;
    const std::vector<int> numbers = catalogue();
    for (std::size_t k = 0; k < numbers.size() && seen.size() < 20; k += 7) {
        WinpData* in = freshRecord();
        addSatellite(in, "catalogue_2018.txt", numbers[k]);
        if (in->satn == 0 || in->ecc[0] > 0.0015 || in->n0[0] < 11.0)
            continue;
        const double t = timeInView(in);
        if (t > 0.0)
            seen.push_back({numbers[k], t});
    }
    return seen;
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
    const std::vector<Sighting> seen = sightings();
    ASSERT_EQ(seen.size(), 20u);
    for (std::size_t k = 0; k < seen.size(); ++k) {
        const double seconds = 30.0 + 10.0 * static_cast<double>(k % 10);
        const bool packed = k % 2 == 1;
        SCOPED_TRACE(testing::Message() << seen[k].norad << " after " << seconds << " s, packed " << packed);
        WinpData* in = freshRecord();
        in->yrepoch = k % 4 == 1 ? 2000.0 : 0.0;
        addSatellite(in, "catalogue_2018.txt", seen[k].norad);
        observe(in, seen[k].time, seconds, packed);
        const double height = abs(stateAt(in, 0, in->mjd).r) - equatorKm;
        const double inclination = in->inc[0];
        OrbitDet(in);
        ASSERT_EQ(in->satn, 2);
        EXPECT_EQ(fieldText(in->fsname[1]), "New");
        EXPECT_NEAR(in->a[1] - equatorKm, height, 0.02 * height);
        EXPECT_NEAR(in->inc[1], inclination, 1.0);
        in->satn = 0;
        in->odm = true;
        EXPECT_TRUE(namedInMatches(in, seen[k].norad));
    }
}

/// A round orbit that was seen over Vienna, 40 s apart.
struct Seen : testing::Test
{
    Seen()
    {
        addSatellite(in, "catalogue_2018.txt", 12585);
        observe(in, timeInView(in), 40.0, false);
    }

    void expectUpperEnd(const char* what)
    {
        OrbitDet(in);
        EXPECT_NEAR(in->a[in->prs], 300078.14, 0.01) << what;
        EXPECT_EQ(fieldText(in->fsname[in->prs]), "New") << what;
        EXPECT_TRUE(elementsAreFinite(*in, in->prs)) << what;
    }

    WinpData* in = freshRecord();
};

TEST_F(Seen, AddsAPlainCircleAndShowsTheFirstPosition)
{
    in->az1flg = in->az2flg = 0;
    OrbitDet(in);
    EXPECT_EQ(in->prs, 1);
    EXPECT_EQ(in->mjdep[1], in->mjd);
    EXPECT_EQ(in->ecc[1] + in->m0[1] + in->ndot[1] + in->adot[1] + in->n6dot[1] + in->bstar[1], 0.0);
    EXPECT_EQ(in->aflg[1] + in->numflg[1], 0);
    EXPECT_EQ(in->Am[1], in->dAm);
    EXPECT_NEAR(in->n0[1], getn0(in->a[1], 0.0, in->inc[1]), 1e-12);
    GetSatPos(in->mjd, in, satpos, 1, 0);
    EXPECT_NEAR(satpos->az[1], in->az1, 0.02);
    EXPECT_NEAR(satpos->el[1], in->el1, 0.02);
    GetSatPos(in->mjd + 40.0 * secondDays, in, satpos, 1, 0);
    EXPECT_NEAR(satpos->az[1], in->az2, 0.05);
    EXPECT_NEAR(satpos->el[1], in->el2, 0.05);
}

TEST_F(Seen, WithoutASolutionEndsAtTheUpperLimit)
{
    in->deltm = 0.0;
    expectUpperEnd("no time between");
    in->deltm = -40.0;
    expectUpperEnd("negative time");
    in->deltm = 1.0;
    in->az2 = in->az1 + 180.0;
    expectUpperEnd("wide apart");
}

// Two lines of sight from the centre of the Earth: by Kepler's third law the angle is flown in dt at one radius alone.
TEST(PhiDiff, TurnsItsSignAtTheRadiusOfTheOrbit)
{
    for (const double radius : {7000.0, 26560.0, 42164.0}) {
        const double dt = 0.01;
        const double angle = 86400.0 * std::sqrt(gmKm3PerS2 / (radius * radius * radius)) * dt;
        Vec3 r1, r2, p1, p2, d1{1, 0, 0}, d2{std::cos(angle), std::sin(angle), 0};
        EXPECT_EQ(PhiDiff(0, 0, 0, 0, dt, r1, r2, p1, p2, d1, d2, 0.998 * radius), 1);
        EXPECT_EQ(PhiDiff(0, 0, 0, 0, dt, r1, r2, p1, p2, d1, d2, 1.002 * radius), -1);
        EXPECT_NEAR(abs(r2), 1.002 * radius, 1e-6);
        EXPECT_EQ(PhiDiff(0, 0, 0, 0, 0.0, r1, r2, p1, p2, d1, d1, radius), -1);
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
