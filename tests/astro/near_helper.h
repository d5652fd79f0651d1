// Vectors and matrices compared.
#pragma once

#include "astro/mat3.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

/// The largest difference of two elements.
inline double distance(const Mat3& a, const Mat3& b)
{
    double most = 0;
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            most = std::max(most, std::abs(a.m[i][j] - b.m[i][j]));
    return most;
}

inline void expectNear(const Vec3& found, const Vec3& expected, double tolerance)
{
    EXPECT_NEAR(abs(found - expected), 0, tolerance) << found[0] << ' ' << found[1] << ' ' << found[2] << " for "
                                                     << expected[0] << ' ' << expected[1] << ' ' << expected[2];
}
