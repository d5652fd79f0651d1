#include "astro/two_body.h"

#include "astro/near_helper.h"

#include <limits>
#include <numbers>

namespace {

constexpr double pi = std::numbers::pi;
constexpr double earthKm3PerS2 = 398600.4415;

struct AnomalyCase
{
    double mean, e, anomaly;
};

// Roots found to 25 digits with mpmath; the first two are also Meeus, Astronomical Algorithms (2nd ed.), chapter 30.
constexpr AnomalyCase anomalyCases[] = {
    {0.0872664625997165, 0.1, 0.096945871075967118},
    {0.2, 0.99, 1.0669973652815632},
    {6.0, 0.79, 5.3792383049392135},
    {3.3, 0.8, 3.2296472888129806},
    {0.01, 0.99, 0.3422703164917751},
    {5.9, 0.95, 4.9851107115291604},
    {0.001, 0.0, 0.001},
    {-0.001, 0.0, 2 * pi - 0.001},
    {0.2 - 6 * pi, 0.99, 1.0669973652815632},
    {0.5, 1.2, 1.0972230342073725},
    {-40, 1.05, -4.4386051357014585},
    {3000, 2.5, 7.7858160991795059},
    {0.0001, 1.01, 0.0099832510239437253},
    {2, 30, 0.068909087946590773},
};

TEST(TwoBody, EccentricAndHyperbolicAnomaly)
{
    for (const AnomalyCase& c : anomalyCases) {
        const double found = c.e < 1 ? eccanom(c.mean, c.e) : hypanom(c.mean, c.e);
        // f ends below 1e-11 (hyperbola: of the size of its terms), and its slope is 0.01 at least here
        EXPECT_NEAR(found, c.anomaly, c.e < 1 ? 1e-10 : 1e-9) << c.mean << ' ' << c.e;
    }
}

TEST(TwoBody, StumpffFunctions)
{
    // (sin s)/s, (1 - cos s)/s^2, (s - sin s)/s^3 with mpmath
    const struct
    {
        double E2, c1, c2, c3, tolerance;
    } cases[] = {
        {0, 1, 0.5, 1.0 / 6, 1e-15},
        {2.25, 0.66499665773603629, 0.4130056881476876, 0.14889037433953943, 1e-12},
        {-3, 1.580586563566668, 0.63819248005864272, 0.19352885452222267, 1e-12},
        {100, -0.054402111088936981, 0.018390715290764525, 0.01054402111088937, 1e-11},  // terms up to 282 cancel
    };
    for (const auto& c : cases) {
        double c1 = 0, c2 = 0, c3 = 0;
        stumpff(c.E2, c1, c2, c3);
        expectNear({c1, c2, c3}, {c.c1, c.c2, c.c3}, c.tolerance);
    }
}

struct CometCase
{
    double q, e, days, nuDeg, r;
};

// Meeus, Astronomical Algorithms (2nd ed.), table 35.A: astronomical units, Gaussian constant 0.01720209895.
constexpr CometCase cometCases[] = {
    {0.921326, 1.0, 138.4783, 102.74426, 2.364192},   {0.1, 0.987, 254.9, 164.50029, 4.063777},
    {0.123456, 0.99997, -30.47, 221.91190, 0.965053}, {3.363943, 1.05731, 1237.1, 109.40598, 10.668551},
    {0.5871018, 0.9672746, 20, 52.85331, 0.729116},   {0.5871018, 0.9672746, 0, 0, 0.5871018},
};

TEST(TwoBody, AllSolversAgreeWithPublishedComets)
{
    constexpr double gmSun = 0.01720209895 * 0.01720209895;
    for (const CometCase& c : cometCases) {
        Vec3 near, r, v;
        parab(gmSun, 0, c.days, c.q, c.e, near, v);
        if (c.e < 1)
            ellip(gmSun, 0, c.days, c.q / (1 - c.e), c.e, 0, r, v);
        else if (c.e > 1)
            hyperb(gmSun, 0, c.days, c.q / (1 - c.e), c.e, r, v);  // a negative: its sign is of no account
        else
            r = near;
        for (const Vec3& place : {near, r}) {
            EXPECT_NEAR(carpol(place)[1] * 180 / pi, c.nuDeg, 5.1e-6);
            EXPECT_NEAR(abs(place), c.r, 5.1e-7);
        }
    }
}

struct Elements
{
    double t0 = 0, m0 = 0, a = 0, e = 0, ran = 0, aper = 0, inc = 0;
    const char* what = "";
};

Elements osculating(double GM, double t, const Vec3& r, const Vec3& v)
{
    Elements o;
    oscelm(GM, t, r, v, o.t0, o.m0, o.a, o.e, o.ran, o.aper, o.inc);
    return o;
}

// Kilometres and seconds; `a` is the perigee distance where m0 is negative or e is 1.
constexpr Elements orbits[] = {
    {0, 12, 6900, 0.01, 250, 300, 98, "low"},
    {100, 200, 24500, 0.73, 20, 178, 7, "transfer"},
    {0, 350, 26560, 0.74, 310, 270, 63.4, "Molniya"},
    {0, 80, 8000, 0.1, 100, 40, 170, "retrograde"},
    {900, 0, 6700, 1.0, 33, 44, 55, "parabola"},
    {900, 0, 20000, 1.4, 200, 100, 30, "hyperbola"},
    {900, -1, 6700, 0.97, 70, 80, 65, "near-parabolic"},
};

TEST(TwoBody, ElementsOfAStateGiveTheStateAgain)
{
    constexpr double now = 1500;
    for (const Elements& o : orbits) {
        SCOPED_TRACE(o.what);
        for (const double sign : {1.0, -1.0}) {
            // parabolic elements of anything else but a near-parabola mean nothing to `kepler`
            if (sign < 0 && std::abs(o.e - 1) > 0.05)
                continue;
            Vec3 r, v, r2, v2;
            kepler(earthKm3PerS2, o.t0, now, o.m0, o.a, o.e, o.ran, o.aper, o.inc, r, v);
            const Elements found = osculating(sign * earthKm3PerS2, now, r, v);
            EXPECT_NEAR(found.e, o.e, 1e-12);
            EXPECT_NEAR(found.inc, o.inc, 1e-11);
            EXPECT_NEAR(found.ran, o.ran, 1e-11);
            EXPECT_NEAR(found.aper, o.aper, 1e-8);
            if (sign < 0) {
                EXPECT_EQ(found.m0, -1);
                EXPECT_NEAR(found.a, o.a, 1e-6);
            }
            if (o.e > 1) {
                EXPECT_EQ(found.m0, 0);
                EXPECT_NEAR(found.a, -o.a, 1e-7);
                EXPECT_NEAR(found.t0, o.t0, 6e-8);  // 1.3e-11 of the anomaly times sqrt(|a|^3 / GM)
            }
            const double reference = found.m0 > 0 ? now : found.t0;
            kepler(earthKm3PerS2, reference, now, found.m0, found.a, found.e, found.ran, found.aper, found.inc, r2,
                   v2);
            expectNear(r2, r, 1e-5);
            expectNear(v2, v, 1e-8);
        }
    }
}

TEST(TwoBody, OsculatingElementsOfAPublishedState)
{
    // Vallado, Fundamentals of Astrodynamics and Applications, example 2-5, with the digits that follow from its state
    // by the eccentricity vector (mpmath); time since perigee by Kepler's equation
    const Elements o = osculating(398600.4418, 5000, {6524.834, 6862.875, 6448.296}, {4.901327, 5.533756, -1.976341});
    EXPECT_NEAR(o.a, 36127.33761967867, 1e-7);
    EXPECT_NEAR(o.e, 0.8328533984875214, 1e-12);
    EXPECT_NEAR(o.inc, 87.86912617702645, 1e-11);
    EXPECT_NEAR(o.ran, 360 - 132.10173964272630, 1e-11);
    EXPECT_NEAR(o.aper, 53.38493061845977, 1e-10);
    EXPECT_NEAR(o.m0, 7.604741766406415, 1e-10);
    EXPECT_NEAR(o.t0, 5000 - 1443.600047299687, 1e-6);
}

TEST(TwoBody, OsculatingElementsOfACircleInTheEquator)
{
    const Elements o = osculating(1.0, 0, {-1, 0, 0}, {0, -1, 0});
    EXPECT_EQ(o.inc, 0);
    EXPECT_EQ(o.e, 0);
    EXPECT_EQ(o.a, 1);
    EXPECT_NEAR(o.aper, 180, 1e-12);
}

TEST(TwoBody, EveryNumberComesToAnEnd)
{
    const double inf = std::numeric_limits<double>::infinity();
    const double numbers[] = {0, -1, 1e-300, 1e300, -1e300, inf, -inf, std::nan("")};
    Vec3 r, v;
    for (const double x : numbers) {
        double c1 = 0, c2 = 0, c3 = 0;
        stumpff(x, c1, c2, c3);
        for (const double y : numbers) {
            eccanom(x, y);
            hypanom(x, y);
            osculating(x, y, {x, y, 0}, {y, x, 1});
            for (const double z : numbers)
                kepler(x, 0, y, z, y, std::abs(z), x, y, z, r, v);
        }
    }
    r = v = Vec3(1, 1, 1);
    parab(1, 0, 1, 1, 0, r, v);  // no near-parabolic solution for a circle
    expectNear(r, {0, 0, 0}, 0);
    expectNear(v, {0, 0, 0}, 0);
}

}  // namespace
