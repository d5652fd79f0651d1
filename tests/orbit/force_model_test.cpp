#include "orbit/force_model.h"

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/frames.h"
#include "astro/time_scales.h"
#include "flight_helper.h"
#include "orbit/gravity_data.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr double epoch = 58138.0;  // 2018 January 20

/// Gradient of the potential by central differences of the sixth order.
Vec3 gradient(const Vec3& r, int degree)
{
    constexpr long double h = 2000.0L;
    Vec3 a;
    for (unsigned i = 0; i < 3; ++i) {
        const auto at = [&](int k) {
            long double p[3] = {r[0], r[1], r[2]};
            p[i] += k * h;
            return gravityPotential(p[0], p[1], p[2], degree);
        };
        a[i] = double((45 * (at(1) - at(-1)) - 9 * (at(2) - at(-2)) + (at(3) - at(-3))) / (60 * h));
    }
    return a;
}

TEST(Gravity, IsTheGradientOfThePotential)
{
    for (int point = 0; point < 50; ++point) {
        // latitudes and longitudes all around, 200 km to 40000 km high
        const double height = 200e3 * std::pow(200.0, point / 49.0);
        const Vec3 r = polcar(Vec3(earthRadiusM + height, 2.399963 * point, std::asin(-0.99 + 1.98 * point / 49.0)));
        for (int degree = 2; degree <= 20; ++degree) {
            Vec3 a;
            HarmAcc(r, degree, a);
            const Vec3 expected = gradient(r, degree);
            EXPECT_LT(abs(a - expected), 1e-12 * abs(expected)) << point << ' ' << degree;
        }
    }
}

struct CoefficientCase
{
    int n, m;
    double C, S;
};

TEST(Gravity, TableHoldsThePrintedRows)
{
    constexpr CoefficientCase rows[] = {
        {2, 0, -0.0010826266752, 0.0},         {2, 1, -2.414e-10, 1.5431e-09},
        {2, 2, 1.574536e-06, -9.038681e-07},   {3, 0, 2.532435e-06, 0.0},
        {3, 1, 2.192799e-06, 2.680119e-07},    {3, 2, 3.09016e-07, -2.114024e-07},
        {3, 3, 1.005589e-07, 1.972013e-07},    {4, 0, 1.619331e-06, 0.0},
        {4, 1, -5.087253e-07, -4.494599e-07},  {4, 2, 7.841223e-08, 1.481555e-07},
        {4, 3, 5.921574e-08, -1.201129e-08},   {4, 4, -3.982396e-09, 6.525606e-09},
        {20, 20, 4.054696e-32, -1.237749e-31},
    };
    for (const CoefficientCase& c : rows) {
        const GravityTerm& found = gravityTerms[std::size_t(c.n * (c.n + 1) / 2 + c.m - 3)];
        EXPECT_EQ(found.C, c.C) << c.n << ' ' << c.m;
        EXPECT_EQ(found.S, c.S) << c.n << ' ' << c.m;
    }
}

TEST(ThirdBody, GuardsACloseApproach)
{
    const Vec3 moon(3.8e8, 0, 0);
    constexpr double apart = 0.00048828125;  // the Moon's distance resolves this power of two
    const Vec3 a = ThirdBody(4902801000000.0, moon + Vec3(apart, 0, 0), moon);
    EXPECT_NEAR(a[0], -4902801000000.0 * apart, 1e-3);
    EXPECT_TRUE(std::isfinite(abs(ThirdBody(1.0, moon, moon))));
}

/// Accelerations of one evaluation, Sun and Moon where the series put them.
class Forces : public testing::Test
{
protected:
    void SetUp() override
    {
        in = gravityRecord();
        in->cstm[0] = epoch;
        nmrksx = 0;
        UpSunMoon(0, in, 0, spos, mpos);
    }

    Vec3 acceleration(const Vec3& r, const Vec3& v) const
    {
        const double y[6] = {r[0], r[1], r[2], v[0], v[1], v[2]};
        double dy[6];
        RKFun(0, y, dy);
        EXPECT_EQ(dy[0], v[0]);
        EXPECT_EQ(dy[1], v[1]);
        EXPECT_EQ(dy[2], v[2]);
        return {dy[3], dy[4], dy[5]};
    }

    /// Mean equator of date to Earth-fixed.
    Mat3 toEarth() const
    {
        double eqeq;
        const Mat3 N = nutmat(julcent(epoch), eqeq, in->IERSflg);
        return zrot(lsidtim(epoch, 0, eqeq) * radPerHour) * N;
    }

    WinpData* in = nullptr;
    const Vec3 geo = Vec3(42164e3, 0, 0), geoSpeed = Vec3(0, 3075, 0);
    const Vec3 low = Vec3(0, 5000e3, 4800e3), lowSpeed = Vec3(-7500, 0, 0);
};

TEST_F(Forces, DegreeOfTheFieldGoesByDistance)
{
    const struct
    {
        double R;
        int degree;
    } cases[] = {{7378136.9, 20}, {7378137.0, 15}, {9999999.9, 15}, {1e7, 10}, {16378136.9, 10}, {16378137.0, 6}};
    for (const auto& c : cases) {
        const Vec3 r(c.R, 0, 0);
        Vec3 fixed;
        HarmAcc(mxvct(toEarth(), r), c.degree, fixed);
        EXPECT_EQ(abs(acceleration(r, lowSpeed) - mxvct(mxtrn(toEarth()), fixed)), 0) << c.R;
    }
}

// A direct evaluation in long double, and for the size the tides of a textbook: Sun 2 GM r / d^3 along the line.
TEST_F(Forces, SunAndMoonPullAsTheyShould)
{
    const Vec3 alone = acceleration(geo, geoSpeed);
    const struct
    {
        const char* what;
        bool& on;
        Vec3 body;
        long double gm;
        double distance, room;  // m
    } cases[] = {{"Sun", in->sunf, spos, 1.32712440018e20L, 1.496e11, 0.03e11},
                 {"Moon", in->moonf, mpos, 4.902801e12L, 3.85e8, 0.25e8}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_NEAR(abs(c.body), c.distance, c.room);
        c.on = true;
        const Vec3 pull = acceleration(geo, geoSpeed) - alone;
        c.on = false;
        long double d2 = 0, s2 = 0;
        for (unsigned i = 0; i < 3; ++i) {
            d2 += ((long double)c.body[i] - geo[i]) * ((long double)c.body[i] - geo[i]);
            s2 += (long double)c.body[i] * c.body[i];
        }
        for (unsigned i = 0; i < 3; ++i) {
            const double expected =
                double(c.gm * ((c.body[i] - geo[i]) / (d2 * std::sqrt(d2)) - c.body[i] / (s2 * std::sqrt(s2))));
            EXPECT_NEAR(pull[i], expected, 1e-3 * abs(pull)) << i;
        }
    }
}

TEST_F(Forces, RadiationPressurePushesInSunlightOnly)
{
    in->Cr[0] = 1.5;
    in->Am[0] = 0.02;
    in->Cd[0] = 0;
    const Vec3 u = vnorm(spos);
    const Vec3 side = vnorm(u * Vec3(0, 0, 1));
    const double radius = 4.2e7;
    const struct
    {
        const char* what;
        Vec3 r;
        bool lit;
    } cases[] = {{"towards the Sun", radius * u, true},
                 {"behind the Earth", -radius * u, false},
                 {"behind, at the rim inside", -radius * u + 6378100.0 * side, false},
                 {"behind, at the rim outside", -radius * u + 6378200.0 * side, true},
                 {"at a right angle, before the plane", 7e6 * side + 1.0 * u, true}};
    for (const auto& c : cases) {
        in->Am[0] = 0;
        const Vec3 dark = acceleration(c.r, lowSpeed);
        in->Am[0] = 0.02;
        const Vec3 push = acceleration(c.r, lowSpeed) - dark;
        // at 1 au 4.56e-6 N/m^2; in January the Sun is 1.6 per cent nearer
        const double size = c.lit ? 4.56e-6 * 1.5 * 0.02 * std::pow(149597870691.0 / abs(spos - c.r), 2) : 0.0;
        EXPECT_NEAR(abs(push + size * u), 0, 4e-4 * 1.4e-7) << c.what;
    }
}

TEST_F(Forces, DragActsAgainstTheTurningAir)
{
    in->Am[0] = 0.01;
    in->Cr[0] = 0;
    const Vec3 r(0, earthRadiusM + 300e3, 0);
    const Vec3 v(-6000, 0, 4500);
    in->Cd[0] = 0;
    const Vec3 without = acceleration(r, v);
    in->Cd[0] = 2.2;
    const Vec3 drag = acceleration(r, v) - without;
    double height;
    const double rho = Jacc71(epoch, r, spos, in->F107[0], in->FB107[0], in->Kp[0], height);
    const Vec3 w = v - Vec3(0, 0, 7.292115e-5) * r;
    // the mean and the true equator are apart by some 1e-4
    EXPECT_NEAR(abs(drag + 0.5 * 2.2 * 0.01 * rho * abs(w) * w), 0, 2e-4 * abs(drag));
    EXPECT_GT(abs(drag), 1e-6);

    in->lift = 5.0;
    EXPECT_EQ(abs(acceleration(r, v) - without - drag), 0) << "no lift above 90 km";
}

TEST_F(Forces, ThrustFollowsItsAnglesAndTheSunshine)
{
    const Vec3 u = vnorm(spos);
    const Vec3 bright = 4.2e7 * u, dark = -4.2e7 * u;
    const Vec3 v(1000, 2000, 2000);
    in->deltv[0] = 1e-3;
    const auto thrust = [&](const Vec3& r, bool on) {
        in->ionf[0] = false;
        const Vec3 off = acceleration(r, v);
        in->ionf[0] = on;
        return acceleration(r, v) - off;
    };
    EXPECT_EQ(abs(thrust(bright, false)), 0);
    for (const bool sunOnly : {false, true}) {
        in->suns[0] = sunOnly;
        EXPECT_NEAR(abs(thrust(bright, true) - 1e-3 * vnorm(v)), 0, 1e-15);
        EXPECT_NEAR(abs(thrust(dark, true)), sunOnly ? 0 : 1e-3, 1e-15);
    }
    in->yaw[0] = 90;
    EXPECT_NEAR(abs(thrust(bright, true) + 1e-3 * vnorm(bright * v)), 0, 1e-15);
    in->yaw[0] = 180;
    EXPECT_NEAR(abs(thrust(bright, true) + 1e-3 * vnorm(v)), 0, 1e-15);
    in->yaw[0] = 0;
    in->pitch[0] = 90;
    const Vec3 up = thrust(bright, true);
    EXPECT_NEAR(dot(up, v), 0, 1e-12);
    EXPECT_GT(dot(up, bright), 0);
}

TEST_F(Forces, PolarMotionAndUt1TurnTheField)
{
    const Vec3 before = acceleration(low, lowSpeed);
    in->IERSxp = 0.5;
    in->IERSyp = -0.3;
    const Vec3 polar = acceleration(low, lowSpeed);
    Vec3 fixed;
    HarmAcc(mxvct(PoleMx(0.5, -0.3) * toEarth(), low), 20, fixed);
    EXPECT_NEAR(abs(polar - mxvct(mxtrn(PoleMx(0.5, -0.3) * toEarth()), fixed)), 0, 1e-15);
    EXPECT_GT(abs(polar - before), 0);
    in->IERSxp = in->IERSyp = 0;
    in->IERSflg = true;
    in->Ut1Utc = 0.5;
    const Vec3 later = acceleration(low, lowSpeed);
    EXPECT_GT(abs(later - before), 1e-10);
    EXPECT_LT(abs(later - before), 1e-5);
}

}  // namespace
