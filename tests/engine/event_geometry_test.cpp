#include "engine/event_geometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "astro/angles.h"
#include "astro/frames.h"
#include "astro/time_scales.h"
#include "engine/mirror_helper.h"
#include "engine/position.h"
#include "engine/position_stages.h"
#include "engine/record_helper.h"
#include "orbit/attitude.h"

namespace {

constexpr double t0 = 58139.4;  // sunlit half of an orbit of the ISS, the Moon well up elsewhere
constexpr double degree = std::numbers::pi / 180;

WinpData stationRecord()
{
    WinpData in = recordAt(vienna);
    EXPECT_TRUE(loadElements(in, 0, "visual_2018.txt", 25544));
    in.satn = 1;
    in.refrc = false;
    return in;
}

/// A time after t0 at which the event has a ground point.
double timeOfPoint(WinpData& in, SatPosData& sp)
{
    for (int minute = 0; minute < 200; ++minute) {
        const double t = t0 + minute / 1440.0;
        GetSatPos(t, &in, &sp, 0, 0);
        if (sp.occlat[0] < 99.0)
            return t;
    }
    ADD_FAILURE() << "no ground point in two orbits";
    return t0;
}

double separation(double az1, double el1, double az2, double el2)
{
    const Vec3 a = polcar(Vec3(1, az1, el1));
    const Vec3 b = polcar(Vec3(1, az2, el2));
    return std::atan2(abs(a * b), dot(a, b)) / degree;
}

/// The ellipsoid of the ground points is 90 m flatter than that of an observer's place.
double separationLimit(const SatPosData& sp)
{
    return 0.09 / sp.dst[0] / degree;
}

TEST(GroundPoint, OfATransitSeesTheSatelliteBeforeTheBody)
{
    for (const int body : {1, 2}) {
        WinpData in = stationRecord();
        in.occflg = body;
        SatPosData sp;
        const double t = timeOfPoint(in, sp);
        in.lat = sp.occlat[0];
        in.lng = sp.occlng[0];
        GetSatPos(t, &in, &sp, 0, 0);
        EXPECT_NEAR(sp.occlat[0], in.lat, 1e-12);
        const double az = body == 1 ? sp.osunaz : sp.omoonaz;
        const double el = body == 1 ? sp.osunel * degree : sp.omoonel;
        EXPECT_LT(separation(sp.az[0] * degree, sp.el[0] * degree, az, el), separationLimit(sp));
        if (body == 2) {
            EXPECT_GT(sp.moonrad, 0.24);  // 14.7 to 16.8 arc minutes, less at the horizon
            EXPECT_LT(sp.moonrad, 0.285);
        }
    }
}

TEST(GroundPoint, OfAnOccultationSeesTheSatelliteAtThePlace)
{
    for (const double epoch : {0.0, 2000.0}) {
        SCOPED_TRACE(epoch);
        WinpData in = stationRecord();
        in.occflg = 3;
        in.occra = 4.3555;
        in.occdec = 16.3033;  // Aldebaran
        in.yrepoch = epoch;
        SatPosData sp;
        const double t = timeOfPoint(in, sp);
        in.lat = sp.occlat[0];
        in.lng = sp.occlng[0];
        GetSatPos(t, &in, &sp, 0, 0);
        const double away = separation(DmsDegF(sp.ra[0]) * 15 * degree, DmsDegF(sp.dec[0]) * degree,
                                       DmsDegF(4.3555) * 15 * degree, DmsDegF(16.3033) * degree);
        EXPECT_LT(away, separationLimit(sp));
    }
}

/// Straight rays against the ellipsoid, by halving: the first height of 0 along a ray from r. Earth radii.
bool meetsEllipsoid(const Vec3& r, const Vec3& direction, double polar, Vec3& point)
{
    const auto outside = [&](double s) {
        const Vec3 p = r + s * direction;
        return p[0] * p[0] + p[1] * p[1] + p[2] * p[2] / (polar * polar) > 1.0;
    };
    double nearest = 0;
    for (double s = 0; s < 20; s += 0.001) {
        if (outside(s))
            continue;
        double in = s;
        nearest = s - 0.001;
        for (int round = 0; round < 60; ++round) {
            const double middle = (nearest + in) / 2;
            (outside(middle) ? nearest : in) = middle;
        }
        point = r + in * direction;
        return true;
    }
    return false;
}

TEST(GroundPoint, IsWhereAStraightRayMeetsTheEllipsoid)
{
    WinpData in = recordAt({48.25, 16.5, 0});
    struct RayCase
    {
        const char* what;
        Vec3 r, direction;
    };
    const RayCase cases[] = {
        {"straight down in the north", {0.7, 0.2, 0.9}, {-0.6, -0.2, -0.8}},
        {"slanting", {1.2, 0.3, -0.4}, {-0.9, 0.1, 0.2}},
        {"from far out", {-5.0, 3.0, 1.0}, {0.84, -0.5, -0.12}},
        {"beside the Earth", {1.1, 0.0, 0.0}, {0.0, 1.0, 0.2}},
        {"away from the Earth", {1.1, 0.0, 0.0}, {1.0, 0.0, 0.0}},
    };
    for (const RayCase& c : cases) {
        SCOPED_TRACE(c.what);
        const Vec3 direction = vnorm(c.direction);
        SatPosData sp;
        Vec3 r = c.r;
        Vec3 d = direction * -1.0;  // a ray comes from the target
        in.occflg = 3;
        GetOccTrans(t0, &in, &sp, 1, 0.0, r, d);
        Vec3 expected;
        if (!meetsEllipsoid(c.r, direction, 0.996633, expected)) {
            EXPECT_EQ(sp.occlat[1], 100.0);
            EXPECT_EQ(sp.occlng[1], 0.0);
            continue;
        }
        EXPECT_LT(abs(r - (expected - c.r)), 1e-9);
        const double rho = std::sqrt(expected[0] * expected[0] + expected[1] * expected[1]);
        EXPECT_NEAR(sp.occlat[1], std::atan(expected[2] / rho / 0.993305615) / degree, 1e-7);
        const double lng = std::atan2(expected[1], expected[0]) / degree - lsidtim(t0, 0, 0) * 15.0;
        EXPECT_NEAR(std::remainder(sp.occlng[1] - lng, 360.0), 0.0, 1e-7);
        EXPECT_EQ(sp.mag, 0.0);  // the slot is not the prime's
    }
}

TEST(GroundPoint, OfAGrazingRayIsBroughtCloserByRefraction)
{
    // A ray that would touch down at an elevation of 2 degrees: bent, it does so where it still is at the height
    // 8.404 km / e^2.0137, that is 2.08 km.
    WinpData in = recordAt({0, 0, 0});
    in.occflg = 3;
    in.refrc = false;
    const double slope = std::cos(2.0 * degree);
    const Vec3 down(-std::sqrt(1 - slope * slope), slope, 0);
    const Vec3 touch(1, 0, 0);
    const Vec3 start = touch - 0.3 * down;
    const auto lngOfRay = [&] {
        SatPosData sp;
        Vec3 r = start;
        Vec3 d = down * -1.0;
        GetOccTrans(t0, &in, &sp, 0, 0.0, r, d);
        return sp.occlng[0];
    };
    const double straight = lngOfRay();
    in.refrc = true;
    const double bent = lngOfRay();
    const double height = 8.40429926257 * std::pow(2.0, -2.01365949653);
    EXPECT_NEAR(height, 2.08, 0.005);
    const double kmBefore = std::remainder(straight - bent, 360.0) * degree * 6378.137;
    // the ray as seen back from its straight touching point: it rises by its slope and by the curve of the ground
    EXPECT_NEAR(kmBefore * std::tan(2.0 * degree) + kmBefore * kmBefore / (2 * 6378.137), height, 0.01);

    // steeper than 15 degrees nothing changes
    Vec3 r(1.2, 0.0, 0.0);
    Vec3 d(0.5, 0.5, 0.0);
    SatPosData sp;
    GetOccTrans(t0, &in, &sp, 0, 0.0, r, d);
    const double steep = sp.occlng[0];
    in.refrc = false;
    r.assign(1.2, 0.0, 0.0);
    d.assign(0.5, 0.5, 0.0);
    GetOccTrans(t0, &in, &sp, 0, 0.0, r, d);
    EXPECT_EQ(sp.occlng[0], steep);
}

TEST(VisibilityCircle, LiesAtTheHorizonAngleAroundTheSatellite)
{
    struct CircleCase
    {
        double latc, lng, height;
    };
    for (const CircleCase& c : {CircleCase{0.7, 20, 400}, CircleCase{-1.2, -170, 36000}, CircleCase{0, 179, 20000},
                                CircleCase{1.57, 0, 800}, CircleCase{0.3, 40, 0}, CircleCase{0.3, 40, -50}}) {
        SCOPED_TRACE(c.height);
        SatPosData sp;
        sp.lng[4] = c.lng;
        sp.hgt[4] = c.height;
        GetSatVis(&sp, c.latc, 4);
        EXPECT_EQ(sp.nvis, 64);
        const Vec3 centre = polcar(Vec3(1, c.lng * degree, c.latc));
        const double angle = c.height > 0 ? std::acos(6378.137 / (6378.137 + c.height)) : 0.0;
        for (int k = 0; k < 64; ++k) {
            const Vec3 point = polcar(Vec3(1, sp.vlng[4][k], sp.vlat[4][k]));
            // an arc cosine near 1 keeps half the digits
            EXPECT_NEAR(std::atan2(abs(point * centre), dot(point, centre)), angle, 1e-7) << k;
        }
        // the first half runs to the east of the satellite
        if (c.height > 0 && std::abs(c.latc) < 1.0) {
            EXPECT_GT(std::sin(sp.vlng[4][16] - c.lng * degree), 0.0);
            EXPECT_LT(std::sin(sp.vlng[4][48] - c.lng * degree), 0.0);
        }
    }
}

TEST(Directions, DistanceAndPositionAngleAgreeWithErfa)
{
    struct PairCase
    {
        double a1, d1, a2, d2, cosine, angle;
    };
    // eraSeps and eraPas; Arcturus and Spica first
    constexpr PairCase cases[] = {
        {213.9154, 19.1825, 201.2983, -11.1614, 0.8406325, 203.308431},
        {10, 20, 10.5, 20.4, 0.9999421, 49.468628},
        {350, -60, 15, -45, 0.9328006, 56.016221},
        {30, 45, 200, -20, -0.8962131, 21.581540},
    };
    for (const PairCase& c : cases) {
        double cosine = 0;
        double angle = 0;
        ADisDir(c.a1 * degree, c.d1 * degree, c.a2 * degree, c.d2 * degree, cosine, angle);
        EXPECT_NEAR(cosine, c.cosine, 1e-7);
        EXPECT_NEAR(angle, c.angle, 2e-6);
    }
    double cosine = 0;
    double angle = 77;
    ADisDir(1, 0.5, 1, 0.5, cosine, angle);
    EXPECT_LT(angle, 1.001);  // 0, or the quotient of two vanishing numbers: no direction in either case
    ADisDir(1, std::numbers::pi / 2, 2, 0.5, cosine, angle);
    EXPECT_TRUE(std::isfinite(angle));
}

/// A circular orbit of inclination i at argument of latitude u; km and km/s.
void circular(double inc, double u, Vec3& r, Vec3& v)
{
    const Mat3 turn = xrot(-inc * degree);
    r = mxvct(turn, Vec3(7158 * std::cos(u * degree), 7158 * std::sin(u * degree), 0));
    v = mxvct(turn, Vec3(-7.462 * std::sin(u * degree), 7.462 * std::cos(u * degree), 0));
}

Vec3 axis(const Mat3& M, int row)
{
    return Vec3(M.m[row][0], M.m[row][1], M.m[row][2]);
}

TEST(YawSteering, FollowsTheGroundTrackAndTheVertical)
{
    WinpData in = recordAt(vienna);
    in.prs = 0;
    in.inc[0] = 86.4;
    in.n0[0] = 14.342;
    for (const double u : {10.0, 45.0, 80.0, 100.0, 160.0, 200.0, 250.0, 300.0, 350.0}) {
        SCOPED_TRACE(u);
        Vec3 r;
        Vec3 v;
        circular(86.4, u, r, v);
        const Mat3 M = GetYSMat(&in, r, v, 0.0, 0.0);
        // along the velocity over the turning ground; one revolution a day instead of a sidereal one and the tilt of
        // the vertical leave some hundredths of a degree, more where the track turns quickly at the highest latitude
        const Vec3 ground = v - Vec3(0, 0, 7.2921159e-5) * r;
        const double away = std::acos(dot(axis(M, 0), vnorm(ground))) / degree;
        EXPECT_LT(away, 0.25);
        const Vec3 inertial = vnorm(v);
        const Vec3 horizontal = vnorm(r);
        const double steering = std::asin(dot(axis(M, 0) * inertial, horizontal)) / degree;
        const double expected = std::asin(dot(vnorm(ground) * inertial, horizontal)) / degree;
        EXPECT_NEAR(steering, expected, 0.03);

        const double latc = std::asin(r[2] / abs(r));
        const double latd = std::atan(std::tan(latc) * 1.00674);
        const double lng = std::atan2(r[1], r[0]);
        const double tilt = std::acos(std::min(1.0, dot(axis(M, 2), polcar(Vec3(1, lng, latd))))) / degree;
        EXPECT_LT(tilt, 0.02);  // the two formulas of the vertical differ by 0.0034 squared
    }
}

}  // namespace
