#include "orbit/force_model.h"

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/frames.h"
#include "astro/near_helper.h"
#include "astro/sun_moon.h"
#include "astro/time_scales.h"
#include "flight_helper.h"
#include "orbit/gravity_data.h"

namespace {

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
    Vec3 a;
    for (int point = 0; point < 50; ++point) {
        // latitudes and longitudes all around, 200 km to 40000 km high
        const double height = 200e3 * std::pow(200.0, point / 49.0);
        const Vec3 r = polcar(Vec3(earthRadiusM + height, 2.399963 * point, std::asin(-0.99 + 1.98 * point / 49.0)));
        for (int degree = 2; degree <= 20; ++degree) {
            HarmAcc(r, degree, a);
            const Vec3 expected = gradient(r, degree);
            EXPECT_LT(abs(a - expected), 1e-12 * abs(expected)) << point << ' ' << degree;
        }
    }
    HarmAcc({0, 0, 0}, 1000, a);
    EXPECT_TRUE(std::isfinite(abs(a)));
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
class ForceModel : public testing::Test
{
protected:
    void SetUp() override
    {
        in = gravityRecord();
        in->cstm[0] = epoch;
        nmrksx = 0;
        UpSunMoon(0, in, 0, spos, mpos);
    }

    static Vec3 acceleration(const Vec3& r, const Vec3& v)
    {
        const double y[6] = {r[0], r[1], r[2], v[0], v[1], v[2]};
        double dy[6];
        RKFun(0, y, dy);
        expectNear({dy[0], dy[1], dy[2]}, v, 0);
        return {dy[3], dy[4], dy[5]};
    }

    /// What setting a field adds to the acceleration.
    template <class T>
    static Vec3 effect(T& field, T value, const Vec3& r, const Vec3& v)
    {
        const Vec3 without = acceleration(r, v);
        field = value;
        return acceleration(r, v) - without;
    }

    /// Mean equator of date to Earth-fixed.
    Mat3 toEarth(double ut1Seconds = 0) const
    {
        double eqeq;
        const Mat3 N = nutmat(julcent(epoch), eqeq, in->IERSflg);
        return zrot(lsidtim(epoch + ut1Seconds / 86400.0, 0, eqeq) * radPerHour) * N;
    }

    WinpData* in = nullptr;
    const Vec3 lowSpeed = Vec3(-7500, 0, 0);
};

TEST_F(ForceModel, DegreeOfTheFieldGoesByDistanceAndPolarMotionTurnsIt)
{
    const auto expectField = [](const Vec3& r, int degree, const Mat3& E) {
        Vec3 fixed;
        HarmAcc(mxvct(E, r), degree, fixed);
        expectNear(acceleration(r, {-7500, 0, 0}), mxvct(mxtrn(E), fixed), 1e-15);
    };
    for (const auto& [R, degree] :
         {std::pair{7378136.9, 20}, {7378137.0, 15}, {9999999.9, 15}, {1e7, 10}, {16378136.9, 10}, {16378137.0, 6}})
        expectField({R, 0, 0}, degree, toEarth());
    in->IERSflg = true;
    in->Ut1Utc = 0.5;
    in->IERSxp = 0.5;
    in->IERSyp = -0.3;
    expectField({0, 5000e3, 4800e3}, 20, PoleMx(0.5, -0.3) * toEarth(0.5));
}

// The constant of aberration, 20.4955 arc seconds: the Sun is that much behind for an Earth on a circle.
TEST_F(ForceModel, OnlyTheSunIsDisplacedByAberration)
{
    const double T = julcent(epoch + DefTdUt(2018) / 86400.0), arcsec = radPerDeg / 3600;
    const Vec3 sun = vnorm(eclequ(T, Sun200().position(T))), moon = vnorm(eclequ(T, Moon200().position(T)));
    const Vec3 turned = sun * vnorm(spos);
    EXPECT_NEAR(abs(turned), 20.4955 * arcsec, 0.02 * arcsec);
    EXPECT_LT(turned[2], 0);
    EXPECT_NEAR(abs(moon - vnorm(mpos)), 0, 1e-12);
}

// A direct evaluation, and for the size the tides of a textbook: 2 GM r / d^3 along the line.
TEST_F(ForceModel, SunAndMoonPullAsTheyShould)
{
    const Vec3 geo(42164e3, 0, 0);
    const struct
    {
        bool& on;
        Vec3 body;
        double gm, distance, room;  // m
    } cases[] = {{in->sunf, spos, 1.32712440018e20, 1.496e11, 0.03e11},
                 {in->moonf, mpos, 4.902801e12, 3.85e8, 0.25e8}};
    for (const auto& c : cases) {
        const double d = abs(c.body - geo), s = abs(c.body);
        EXPECT_NEAR(s, c.distance, c.room);
        const Vec3 pull = effect(c.on, true, geo, {0, 3075, 0});
        c.on = false;
        expectNear(pull, c.gm * ((c.body - geo) / (d * d * d) - c.body / (s * s * s)), 1e-3 * abs(pull));
        EXPECT_LT(abs(pull), 2.2 * c.gm * abs(geo) / (s * s * s));
    }
}

TEST_F(ForceModel, RadiationPressurePushesInSunlightOnly)
{
    in->Cr[0] = 1.5;
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
        const Vec3 push = effect(in->Am[0], 0.02, c.r, lowSpeed);
        // at 1 au 4.56e-6 N/m^2; in January the Sun is 1.6 per cent nearer
        const double size = c.lit ? 4.56e-6 * 1.5 * 0.02 * std::pow(149597870691.0 / abs(spos - c.r), 2) : 0.0;
        EXPECT_NEAR(abs(push + size * u), 0, 4e-4 * 1.4e-7) << c.what;
    }
}

TEST_F(ForceModel, DragActsAgainstTheTurningAirAndLiftStandsUpOnItLowDown)
{
    in->Am[0] = 0.01;
    in->Cr[0] = 0;
    for (const double heightKm : {300.0, 90.01, 89.99}) {
        const Vec3 r(0, earthRadiusM + 1000 * heightKm, 0), v(-6000, 100, 4500);
        in->Cd[0] = in->lift = 0;
        const Vec3 drag = effect(in->Cd[0], 2.2, r, v);
        double height;
        const double rho = Jacc71(epoch, r, spos, in->F107[0], in->FB107[0], in->Kp[0], height);
        const Vec3 w = v - Vec3(0, 0, 7.292115e-5) * r;
        // the mean and the true equator are apart by some 1e-4
        expectNear(drag, -0.5 * 2.2 * 0.01 * rho * abs(w) * w, 2e-4 * abs(drag));
        EXPECT_GT(abs(drag), 1e-6);

        const Vec3 lift = effect(in->lift, 0.3, r, v);
        EXPECT_NEAR(abs(lift), heightKm < 90 ? 0.3 * abs(drag) : 0, 1e-9 * abs(drag));
        EXPECT_NEAR(dot(lift, drag), 0, 1e-9 * dot(drag, drag));
        EXPECT_GE(dot(lift, r), 0);
    }
}

TEST_F(ForceModel, ThrustFollowsItsAnglesAndTheSunshine)
{
    const Vec3 u = vnorm(spos);
    const Vec3 bright = 4.2e7 * u, dark = -4.2e7 * u;
    const Vec3 v(1000, 2000, 2000);
    in->deltv[0] = 1e-3;
    const auto thrust = [&](const Vec3& r) {
        in->ionf[0] = false;
        return effect(in->ionf[0], true, r, v);
    };
    for (const bool sunOnly : {false, true}) {
        in->suns[0] = sunOnly;
        expectNear(thrust(bright), 1e-3 * vnorm(v), 1e-15);
        EXPECT_NEAR(abs(thrust(dark)), sunOnly ? 0 : 1e-3, 1e-15);
    }
    in->yaw[0] = 90;
    expectNear(thrust(bright), -1e-3 * vnorm(bright * v), 1e-15);
    in->yaw[0] = 180;
    expectNear(thrust(bright), -1e-3 * vnorm(v), 1e-15);
    in->yaw[0] = 0;
    in->pitch[0] = 90;
    expectNear(thrust(bright), 1e-3 * vnorm(v * (bright * v)), 1e-15);
}

TEST_F(ForceModel, LandedSatelliteTurnsWithTheEarth)
{
    const double y[6] = {4e6, 3e6, 2e6, 100, 200, 300};
    double dy[6];
    RKFun(0, y, dy);
    EXPECT_NEAR(dy[0], -7.292115e-5 * 3e6, 0.1);  // nutation tilts the axis by some 1e-4
    EXPECT_NEAR(dy[1], 7.292115e-5 * 4e6, 0.1);
    for (int i = 2; i < 6; ++i)
        EXPECT_EQ(dy[i], 0) << i;
}

}  // namespace
