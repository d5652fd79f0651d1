// astro/mat3.h: 3 x 3 matrices and the rotations of a frame.

#pragma once

#include "astro/vec3.h"

/// Row by row.
struct Mat3
{
    double m[3][3];

    /// All nine elements c.
    constexpr explicit Mat3(double c = 0) : m{{c, c, c}, {c, c, c}, {c, c, c}} {}

    /// The matrix row by row.
    constexpr Mat3(double m11, double m12, double m13, double m21, double m22, double m23, double m31, double m32,
                   double m33)
        : m{{m11, m12, m13}, {m21, m22, m23}, {m31, m32, m33}}
    {}

    constexpr void assign(double m11, double m12, double m13, double m21, double m22, double m23, double m31,
                          double m32, double m33)
    {
        *this = Mat3(m11, m12, m13, m21, m22, m23, m31, m32, m33);
    }

    /// Row i and column j count from 1; outside 1 to 3 nothing is stored.
    constexpr void PutMij(double value, int i, int j)
    {
        if (i >= 1 && i <= 3 && j >= 1 && j <= 3)
            m[i - 1][j - 1] = value;
    }

    /// b times this matrix: b stands on the LEFT, so that rotations are appended in the order they are carried out.
    constexpr Mat3& operator*=(const Mat3& b);
};

constexpr Mat3 mxcon(double c)
{
    return Mat3(c);
}

constexpr Mat3 mxidn()
{
    return {1, 0, 0, 0, 1, 0, 0, 0, 1};
}

constexpr Mat3 mxtrn(const Mat3& a)
{
    return {a.m[0][0], a.m[1][0], a.m[2][0], a.m[0][1], a.m[1][1], a.m[2][1], a.m[0][2], a.m[1][2], a.m[2][2]};
}

/// The ordinary product; the first rotation to be carried out stands on the right.
constexpr Mat3 operator*(const Mat3& a, const Mat3& b)
{
    Mat3 c;
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            c.m[i][j] = a.m[i][0] * b.m[0][j] + a.m[i][1] * b.m[1][j] + a.m[i][2] * b.m[2][j];
    return c;
}

constexpr Mat3& Mat3::operator*=(const Mat3& b)
{
    return *this = b * *this;
}

/// m times the column vector v.
constexpr Vec3 mxvct(const Mat3& a, const Vec3& v)
{
    return {a.m[0][0] * v.e[0] + a.m[0][1] * v.e[1] + a.m[0][2] * v.e[2],
            a.m[1][0] * v.e[0] + a.m[1][1] * v.e[1] + a.m[1][2] * v.e[2],
            a.m[2][0] * v.e[0] + a.m[2][1] * v.e[1] + a.m[2][2] * v.e[2]};
}

/// Rotations of the frame, not of the vector: the matrix takes a fixed vector into a frame that is turned by +a
/// radians about the axis.
Mat3 xrot(double a);
/// About y.
Mat3 yrot(double a);
/// About z.
Mat3 zrot(double a);
