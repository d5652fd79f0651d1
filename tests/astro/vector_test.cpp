#include "astro/near_helper.h"

#include <numbers>

namespace {

constexpr double pi = std::numbers::pi;

TEST(Vec3, AnIndexAboveTwoAddressesTheFirstElement)
{
    Vec3 v(1, 2, 3);
    v[7] = 5;
    EXPECT_EQ(v[0], 5);
    EXPECT_EQ(v[3], 5);
    EXPECT_EQ(v[2], 3);
}

TEST(Vec3, DivisorsBelowTheGuardGiveZero)
{
    const Vec3 v(1, 2, 3);
    for (const double divisor : {0.0, 9e-101, -2.0}) {
        expectNear(v / divisor, {0, 0, 0}, 0);
        Vec3 w = v;
        w /= divisor;
        expectNear(w, {0, 0, 0}, 0);
    }
    expectNear(v / 1e-100, {1e100, 2e100, 3e100}, 1e85);
    expectNear(vnorm({0, 0, 0}), {0, 0, 0}, 0);
    expectNear(vnorm({0, -5, 0}), {0, -1, 0}, 1e-16);
}

struct PolarCase
{
    Vec3 cartesian, polar;
};

const PolarCase polarCases[] = {
    {{0, 0, 0}, {0, 0, 0}},      {{-1, 0, 0}, {1, pi, 0}},      {{0, -1, 0}, {1, 1.5 * pi, 0}},
    {{0, 0, 1}, {1, 0, pi / 2}}, {{0, 0, -2}, {2, 0, -pi / 2}}, {{1, 1, -std::numbers::sqrt2}, {2, pi / 4, -pi / 4}},
};

TEST(Vec3, CartesianAndPolar)
{
    for (const PolarCase& c : polarCases) {
        expectNear(carpol(c.cartesian), c.polar, 1e-15);
        expectNear(polcar(c.polar), c.cartesian, 4e-16);
    }
}

TEST(Vec3, Atan20StaysAboveMinusPi)
{
    EXPECT_EQ(atan20(0.0, 0.0), 0.0);
    EXPECT_EQ(atan20(-0.0, -0.0), 0.0);
    EXPECT_EQ(atan20(0.0, -0.0), 0.0);
    EXPECT_EQ(atan20(-0.0, -1.0), pi);
    EXPECT_EQ(atan20(-1.0, 0.0), -pi / 2);
}

TEST(Mat3, RotationsTurnTheFrame)
{
    const double a = 0.3, c = std::cos(a), s = std::sin(a);
    const Vec3 x(1, 0, 0), y(0, 1, 0), z(0, 0, 1);
    expectNear(mxvct(zrot(a), x), {c, -s, 0}, 0);
    expectNear(mxvct(zrot(a), y), {s, c, 0}, 0);
    expectNear(mxvct(xrot(a), y), {0, c, -s}, 0);
    expectNear(mxvct(xrot(a), z), {0, s, c}, 0);
    expectNear(mxvct(yrot(a), z), {-s, 0, c}, 0);
    expectNear(mxvct(yrot(a), x), {c, 0, s}, 0);
}

TEST(Mat3, PutMijCountsFromOneAndStoresNothingOutside)
{
    Mat3 A = mxcon(2);
    for (const int wrong : {0, 4, -1}) {
        A.PutMij(9, wrong, 1);
        A.PutMij(9, 1, wrong);
    }
    A.PutMij(7, 1, 3);
    EXPECT_EQ(distance(A, {2, 2, 7, 2, 2, 2, 2, 2, 2}), 0);
    EXPECT_EQ(distance(mxtrn(A), {2, 2, 2, 2, 2, 2, 7, 2, 2}), 0);
}

TEST(Mat3, ProductsInPlaceMultiplyFromTheLeft)
{
    Mat3 A(1, 2, 3, 4, 5, 6, 7, 8, 10);
    const Mat3 B(0, 1, 0, 0, 0, 2, 3, 0, 0);
    EXPECT_EQ(distance(B * A, {4, 5, 6, 14, 16, 20, 3, 6, 9}), 0);
    EXPECT_EQ(distance(A * B, {9, 1, 4, 18, 4, 10, 30, 7, 16}), 0);
    A *= B;
    EXPECT_EQ(distance(A, {4, 5, 6, 14, 16, 20, 3, 6, 9}), 0);
}

}  // namespace
