#include "engine/event_geometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "astro/angles.h"
#include "astro/mat3.h"
#include "astro/time_scales.h"
#include "engine/record_helper.h"

namespace {

constexpr double t0 = 58139.4;  // sunlit half of an orbit of the ISS, the Moon well up elsewhere

/// A time after t0 at which the event has a ground point.
double timeOfPoint(WinpData& in)
{
    for (double t = t0; t < t0 + 200 * minuteDays; t += minuteDays)
        if (positionAt(t, in).occlat[0] < anglesOnly)
            return t;
    ADD_FAILURE() << "no ground point in two orbits";
    return t0;
}

struct TargetCase
{
    const char* what;
    int occflg;
    double epoch;
};

TEST(GroundPoint, SeesTheSatelliteBeforeTheTarget)
{
    for (const TargetCase& c : {TargetCase{"Sun", 1, 0}, TargetCase{"Moon", 2, 0}, TargetCase{"star of date", 3, 0},
                                TargetCase{"star of 2000", 3, 2000}}) {
        SCOPED_TRACE(c.what);
        WinpData in = recordWith({25544});
        in.occflg = c.occflg;
        in.occra = 4.3555;
        in.occdec = 16.3033;  // Aldebaran
        in.yrepoch = c.epoch;
        const double t = timeOfPoint(in);
        const SatPosData before = positionAt(t, in);
        in.lat = before.occlat[0];
        in.lng = before.occlng[0];
        const SatPosData sp = positionAt(t, in);
        EXPECT_NEAR(sp.occlat[0], in.lat, 1e-12);
        // the ellipsoid of the ground points is 90 m flatter than that of an observer's place
        const double limit = 0.09 / sp.dst[0] * degPerRad;
        Vec3 satellite = direction(sp.az[0], sp.el[0]);
        Vec3 target = direction(sp.osunaz * degPerRad, sp.osunel);
        if (c.occflg == 2) {
            target = polcar(Vec3(1, sp.omoonaz, sp.omoonel));
            EXPECT_NEAR(sp.moonrad, 0.262, 0.022);  // 14.7 to 16.8 arc minutes, less at the horizon
        }
        if (c.occflg == 3) {
            satellite = direction(DmsDegF(sp.ra[0]) * 15, DmsDegF(sp.dec[0]));
            target = direction(DmsDegF(4.3555) * 15, DmsDegF(16.3033));
        }
        EXPECT_LT(angleBetween(satellite, target), limit);
    }
}

/// The engine's point of a ray, for a slot that is not the prime's.
SatPosData pointOf(WinpData& in, Vec3& r, const Vec3& along)
{
    SatPosData sp;
    Vec3 d = along * -1.0;  // a ray comes from the target
    in.occflg = 3;
    GetOccTrans(t0, &in, &sp, 1, 0.0, r, d);
    return sp;
}

TEST(GroundPoint, IsWhereAStraightRayMeetsTheEllipsoid)
{
    struct RayCase
    {
        const char* what;
        Vec3 r, along;
        bool hit;
    };
    const RayCase cases[] = {
        {"straight down in the north", {0.7, 0.2, 0.9}, {-0.6, -0.2, -0.8}, true},
        {"slanting", {1.2, 0.3, -0.4}, {-0.9, 0.1, 0.2}, true},
        {"from far out", {-5.0, 3.0, 1.0}, {0.84, -0.5, -0.12}, true},
        {"beside the Earth", {1.1, 0.0, 0.0}, {0.0, 1.0, 0.2}, false},
        {"away from the Earth", {1.1, 0.0, 0.0}, {1.0, 0.0, 0.0}, false},
    };
    WinpData in = recordAt({48.25, 16.5, 0});
    for (const RayCase& c : cases) {
        SCOPED_TRACE(c.what);
        Vec3 way = c.r;
        const SatPosData sp = pointOf(in, way, vnorm(c.along));
        if (!c.hit) {
            EXPECT_EQ(sp.occlat[1], noGroundPoint);
            EXPECT_EQ(sp.occlng[1], 0.0);
            continue;
        }
        EXPECT_LT(angleBetween(way, c.along), 1e-9);
        const Vec3 point = c.r + way;
        const double rho2 = point[0] * point[0] + point[1] * point[1];
        EXPECT_NEAR(rho2 + std::pow(point[2] / 0.996633, 2), 1.0, 1e-12);
        EXPECT_LT(dot(way, point), 0.0) << "the nearer of the two points";
        EXPECT_NEAR(sp.occlat[1], std::atan(point[2] / std::sqrt(rho2) / 0.993305615) * degPerRad, 1e-7);
        const double lng = std::atan2(point[1], point[0]) * degPerRad - lsidtim(t0, 0, 0) * 15.0;
        EXPECT_NEAR(std::remainder(sp.occlng[1] - lng, 360.0), 0.0, 1e-7);
        EXPECT_EQ(sp.mag, 0.0);  // the slot is not the prime's
    }
}

TEST(GroundPoint, OfAGrazingRayIsBroughtCloserByRefraction)
{
    WinpData in = recordAt({0, 0, 0});
    const auto bending = [&](double elevation) {
        const double slope = std::cos(elevation * radPerDeg);
        const Vec3 down(-std::sqrt(1 - slope * slope), slope, 0);
        const auto lngWith = [&](bool refraction) {
            in.refrc = refraction;
            Vec3 r = Vec3(1, 0, 0) - 0.3 * down;
            return pointOf(in, r, down).occlng[1];
        };
        return std::remainder(lngWith(false) - lngWith(true), 360.0) * radPerDeg * 6378.137;
    };
    // A ray that would touch down at an elevation of 2 degrees: bent, it does so where it still is at the height
    // 8.404 km / e^2.0137, that is 2.08 km.
    const double height = 8.40429926257 * std::pow(2.0, -2.01365949653);
    EXPECT_NEAR(height, 2.08, 0.005);
    const double km = bending(2.0);
    // the ray as seen back from its straight touching point: it rises by its slope and by the curve of the ground
    EXPECT_NEAR(km * std::tan(2.0 * radPerDeg) + km * km / (2 * 6378.137), height, 0.01);
    EXPECT_GT(bending(15.0), 0.0);  // a sine of 0.26 is one of 15.07 degrees
    EXPECT_EQ(bending(15.1), 0.0);
}

TEST(VisibilityCircle, LiesAtTheHorizonAngleAroundTheSatellite)
{
    constexpr double places[][3] = {{0.7, 20, 400}, {-1.2, -170, 36000}, {0, 179, 20000},
                                    {1.57, 0, 800}, {0.3, 40, 0},        {0.3, 40, -50}};
    for (const auto& [latc, lng, height] : places) {
        SCOPED_TRACE(height);
        SatPosData sp;
        sp.lng[4] = lng;
        sp.hgt[4] = height;
        GetSatVis(&sp, latc, 4);
        EXPECT_EQ(sp.nvis, 64);
        const Vec3 centre = direction(lng, latc * degPerRad);
        const double angle = height > 0 ? std::acos(6378.137 / (6378.137 + height)) : 0.0;
        for (int k = 0; k < 64; ++k) {
            const Vec3 point = polcar(Vec3(1, sp.vlng[4][k], sp.vlat[4][k]));
            // an arc cosine near 1 keeps half the digits
            EXPECT_NEAR(angleBetween(point, centre) * radPerDeg, angle, 1e-7) << k;
        }
        // the first half runs to the east of the satellite
        if (height > 0 && std::abs(latc) < 1.0) {
            EXPECT_GT(std::sin(sp.vlng[4][16] - lng * radPerDeg), 0.0);
            EXPECT_LT(std::sin(sp.vlng[4][48] - lng * radPerDeg), 0.0);
        }
    }
}

TEST(Directions, DistanceAndPositionAngleAgreeWithErfa)
{
    // two points, then eraSeps (its cosine) and eraPas; Arcturus and Spica first
    constexpr double cases[][6] = {
        {213.9154, 19.1825, 201.2983, -11.1614, 0.8406325, 203.308431},
        {10, 20, 10.5, 20.4, 0.9999421, 49.468628},
        {350, -60, 15, -45, 0.9328006, 56.016221},
        {30, 45, 200, -20, -0.8962131, 21.581540},
    };
    double cosine = 0;
    double angle = 0;
    for (const auto& c : cases) {
        ADisDir(c[0] * radPerDeg, c[1] * radPerDeg, c[2] * radPerDeg, c[3] * radPerDeg, cosine, angle);
        EXPECT_NEAR(cosine, c[4], 1e-7);
        EXPECT_NEAR(angle, c[5], 2e-6);
    }
    angle = 77;
    ADisDir(1, 0.5, 1, 0.5, cosine, angle);
    EXPECT_LT(angle, 1.001);  // 0, or the quotient of two vanishing numbers: no direction in either case
    ADisDir(1, std::numbers::pi / 2, 2, 0.5, cosine, angle);
    EXPECT_TRUE(std::isfinite(angle));
}

Vec3 axis(const Mat3& M, int row)
{
    return Vec3(M.m[row][0], M.m[row][1], M.m[row][2]);
}

TEST(YawSteering, FollowsTheGroundTrackAndTheVertical)
{
    WinpData in = recordAt(vienna);
    in.inc[0] = 86.4;
    in.n0[0] = 14.342;
    const Mat3 plane = xrot(-in.inc[0] * radPerDeg);
    for (const double u : {10.0, 45.0, 80.0, 100.0, 160.0, 200.0, 250.0, 300.0, 350.0}) {
        SCOPED_TRACE(u);
        const Vec3 r = mxvct(plane, 7158.0 * direction(u, 0));
        const Vec3 v = mxvct(plane, 7.462 * direction(u + 90.0, 0));
        const Mat3 M = GetYSMat(&in, r, v, 0.0, 0.0);
        // along the velocity over the turning ground; one revolution a day instead of a sidereal one and the tilt of
        // the vertical leave some hundredths of a degree, more where the track turns quickly at the highest latitude
        const Vec3 ground = vnorm(v - Vec3(0, 0, 7.2921159e-5) * r);
        EXPECT_LT(angleBetween(axis(M, 0), ground), 0.25);
        const double steering = std::asin(dot(axis(M, 0) * vnorm(v), vnorm(r))) * degPerRad;
        EXPECT_NEAR(steering, std::asin(dot(ground * vnorm(v), vnorm(r))) * degPerRad, 0.03);
        const double latd = std::atan(std::tan(std::asin(r[2] / abs(r))) * 1.00674);
        // the two formulas of the vertical differ by 0.0034 squared
        EXPECT_LT(angleBetween(axis(M, 2), polcar(Vec3(1, std::atan2(r[1], r[0]), latd))), 0.02);
        // the normal of a surface: to the right by the yaw, then up by the pitch
        const Vec3 level = std::cos(0.5) * axis(M, 0) - std::sin(0.5) * axis(M, 1);
        const Vec3 normal = std::cos(0.3) * level + std::sin(0.3) * axis(M, 2);
        EXPECT_LT(angleBetween(axis(GetYSMat(&in, r, v, 0.5 * degPerRad, 0.3 * degPerRad), 0), normal), 1e-5);
    }
}

}  // namespace
