#include "orbit/attitude.h"

#include "astro/angles.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

void expectNear(const Vec3& found, const Vec3& expected, double tolerance)
{
    EXPECT_NEAR(abs(found - expected), 0.0, tolerance) << found[0] << ' ' << found[1] << ' ' << found[2] << " for "
                                                       << expected[0] << ' ' << expected[1] << ' ' << expected[2];
}

/// The body's x, y and z axes in the frame of r and v.
Vec3 axis(const Mat3& m, int i)
{
    return {m.m[i][0], m.m[i][1], m.m[i][2]};
}

struct PlaceCase
{
    const char* what;
    Vec3 r, v;
};

const PlaceCase places[] = {
    {"equator, eastward", Vec3(7000, 0, 0), Vec3(0, 7.5, 0)},
    {"over the pole", Vec3(0, 0, 7000), Vec3(-7.5, 0, 0)},
    {"retrograde", Vec3(0, 7000, 0), Vec3(7.5, 0, 0)},
    {"rising on an ellipse", Vec3(-3000, 5000, 4000), Vec3(-6, -4, 3)},
    {"sinking on an ellipse", Vec3(1e7, -2e7, 3e6), Vec3(-1, 1.5, 2)},
};

TEST(Attitude, AxesFollowVelocityAndOrbitNormal)
{
    for (const PlaceCase& c : places) {
        SCOPED_TRACE(c.what);
        const Vec3 x = vnorm(c.v);
        const Vec3 h = vnorm(c.r * c.v);
        const Mat3 plain = GetRVMat(c.r, c.v, 0, 0, 0);
        expectNear(axis(plain, 0), x, 1e-14);
        expectNear(axis(plain, 1), h * x, 1e-14);
        expectNear(axis(plain, 2), h, 1e-14);

        const Mat3 local = GetRVMat(c.r, c.v, 0, 0, 1);
        expectNear(axis(local, 0), x, 1e-14);
        expectNear(axis(local, 1), h, 1e-14);
        expectNear(axis(local, 2), x * h, 1e-14);
        EXPECT_GT(dot(axis(local, 2), c.r), 0);
    }
}

TEST(Attitude, YawTurnsRightAndPitchTurnsUp)
{
    for (const PlaceCase& c : places) {
        SCOPED_TRACE(c.what);
        const Mat3 local = GetRVMat(c.r, c.v, 0, 0, 1);
        const Vec3 forward = axis(local, 0), left = axis(local, 1), up = axis(local, 2);
        expectNear(axis(GetRVMat(c.r, c.v, 90, 0, 1), 0), -1.0 * left, 1e-14);
        expectNear(axis(GetRVMat(c.r, c.v, 0, 90, 1), 0), up, 1e-14);
        expectNear(axis(GetRVMat(c.r, c.v, 180, 0, 1), 0), -1.0 * forward, 1e-14);
        const double yaw = 30 * radPerDeg, pitch = 20 * radPerDeg;
        expectNear(axis(GetRVMat(c.r, c.v, 30, 20, 1), 0),
                   std::cos(pitch) * (std::cos(yaw) * forward - std::sin(yaw) * left) + std::sin(pitch) * up, 1e-14);
    }
}

TEST(Attitude, ParallelDirectionsTakeAFixedPole)
{
    const struct
    {
        Vec3 direction, pole;
    } cases[] = {{Vec3(1, 0, 0), Vec3(0, 0, 1)}, {Vec3(0, 0, 1), Vec3(-1, 0, 0)}, {Vec3(0, 1, 0), Vec3(0, 0, -1)}};
    for (const auto& c : cases) {
        const Mat3 m = GetRVMat(7.0 * c.direction, 2.0 * c.direction, 0, 0, 0);
        expectNear(axis(m, 0), c.direction, 1e-14);
        expectNear(axis(m, 2), c.pole, 1e-14);
    }
}

TEST(Attitude, DegenerateDirectionsStayOrthonormal)
{
    const PlaceCase cases[] = {
        {"v along r", Vec3(3, 4, 5), Vec3(6, 8, 10)},   {"v against r", Vec3(1, 0, 0), Vec3(-2, 0, 0)},
        {"both along y", Vec3(0, 1, 0), Vec3(0, 1, 0)}, {"both along z", Vec3(0, 0, 1), Vec3(0, 0, -1)},
        {"no v", Vec3(1, 2, 3), Vec3(0, 0, 0)},         {"no r", Vec3(0, 0, 0), Vec3(1, 2, 3)},
        {"nothing", Vec3(0, 0, 0), Vec3(0, 0, 0)},
    };
    for (const PlaceCase& c : cases)
        for (const int mode : {0, 1, 2}) {
            SCOPED_TRACE(c.what);
            const Mat3 m = GetRVMat(c.r, c.v, 10, 20, mode);
            const Mat3 one = m * mxtrn(m);
            for (int i = 0; i < 3; ++i)
                for (int j = 0; j < 3; ++j)
                    EXPECT_NEAR(one.m[i][j], i == j ? 1.0 : 0.0, 1e-14);
        }
}

}  // namespace
