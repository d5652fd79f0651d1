#include "orbit/attitude.h"

#include "astro/angles.h"
#include "astro/near_helper.h"

namespace {

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
    {"equator, eastward", {7000, 0, 0}, {0, 7.5, 0}},
    {"over the pole", {0, 0, 7000}, {-7.5, 0, 0}},
    {"retrograde", {0, 7000, 0}, {7.5, 0, 0}},
    {"rising on an ellipse", {-3000, 5000, 4000}, {-6, -4, 3}},
    {"sinking on an ellipse", {1e7, -2e7, 3e6}, {-1, 1.5, 2}},
};

TEST(Attitude, AxesFollowVelocityAndOrbitNormalThenYawRightAndPitchUp)
{
    for (const auto& [what, r, v] : places) {
        SCOPED_TRACE(what);
        const Vec3 x = vnorm(v), h = vnorm(r * v), up = x * h;
        const Mat3 plain = GetRVMat(r, v, 0, 0, 0);
        expectNear(axis(plain, 0), x, 1e-14);
        expectNear(axis(plain, 1), h * x, 1e-14);
        expectNear(axis(plain, 2), h, 1e-14);

        const Mat3 local = GetRVMat(r, v, 0, 0, 1);
        expectNear(axis(local, 0), x, 1e-14);
        expectNear(axis(local, 1), h, 1e-14);
        expectNear(axis(local, 2), up, 1e-14);
        EXPECT_GT(dot(up, r), 0);

        const double yaw = 30 * radPerDeg, pitch = 20 * radPerDeg;
        expectNear(axis(GetRVMat(r, v, 90, 0, 1), 0), -1.0 * h, 1e-14);
        expectNear(axis(GetRVMat(r, v, 0, 90, 1), 0), up, 1e-14);
        expectNear(axis(GetRVMat(r, v, 30, 20, 1), 0),
                   std::cos(pitch) * (std::cos(yaw) * x - std::sin(yaw) * h) + std::sin(pitch) * up, 1e-14);

        // mode 2 turns about y by the angle of r and v beyond a right angle
        const double g = std::acos(dot(vnorm(r), x)) - std::acos(0.0);
        const Mat3 turned = GetRVMat(r, v, 0, 0, 2);
        expectNear(axis(turned, 0), std::cos(g) * x - std::sin(g) * up, 1e-14);
        expectNear(axis(turned, 1), h, 1e-14);
    }
}

TEST(Attitude, ParallelDirectionsTakeAFixedPole)
{
    const std::pair<Vec3, Vec3> cases[] = {{{1, 0, 0}, {0, 0, 1}}, {{0, 0, 1}, {-1, 0, 0}}, {{0, 1, 0}, {0, 0, -1}}};
    for (const auto& [direction, pole] : cases) {
        const Mat3 m = GetRVMat(7.0 * direction, 2.0 * direction, 0, 0, 0);
        expectNear(axis(m, 0), direction, 1e-14);
        expectNear(axis(m, 2), pole, 1e-14);
    }
}

TEST(Attitude, DegenerateDirectionsStayOrthonormal)
{
    const PlaceCase cases[] = {
        {"v along r", {3, 4, 5}, {6, 8, 10}}, {"v against r", {1, 0, 0}, {-2, 0, 0}},
        {"along y", {0, 1, 0}, {0, 1, 0}},    {"along z", {0, 0, 1}, {0, 0, -1}},
        {"no v", {1, 2, 3}, {0, 0, 0}},       {"no r", {0, 0, 0}, {1, 2, 3}},
        {"nothing", {0, 0, 0}, {0, 0, 0}},
    };
    for (const PlaceCase& c : cases)
        for (const int mode : {0, 1, 2}) {
            const Mat3 m = GetRVMat(c.r, c.v, 10, 20, mode);
            EXPECT_LT(distance(m * mxtrn(m), mxidn()), 1e-14) << c.what << ", mode " << mode;
        }
}

}  // namespace
