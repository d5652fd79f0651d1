// astro/sun_terms.h: the truncated theory of the Sun, Newcomb, Astron. Papers Amer. Ephemeris 6 (1895).
#pragma once

#include <array>

#include "astro/series.h"

// Summed in this order: another one changes the last digits.
// clang-format off
constexpr std::array sunByVenus{
    PerturbationTerm{1,  0, 0, -0.22, 6892.76, -16707.37, -0.54,     0,     0},
    PerturbationTerm{1,  0, 1, -0.06,  -17.35,     42.04, -0.15,     0,     0},
    PerturbationTerm{1,  0, 2, -0.01,   -0.05,      0.13, -0.02,     0,     0},
    PerturbationTerm{2,  0, 0,     0,   71.98,   -139.57,     0,     0,     0},
    PerturbationTerm{2,  0, 1,     0,   -0.36,       0.7,     0,     0,     0},
    PerturbationTerm{3,  0, 0,     0,    1.04,     -1.75,     0,     0,     0},
    PerturbationTerm{0, -1, 0,  0.03,   -0.07,     -0.16, -0.07,  0.02, -0.02},
    PerturbationTerm{1, -1, 0,  2.35,   -4.23,     -4.75, -2.64,     0,     0},
    PerturbationTerm{1, -2, 0,  -0.1,    0.06,      0.12,   0.2,  0.02,     0},
    PerturbationTerm{2, -1, 0, -0.06,   -0.03,       0.2, -0.01,  0.01, -0.09},
    PerturbationTerm{2, -2, 0,  -4.7,     2.9,      8.28, 13.42,  0.01, -0.01},
    PerturbationTerm{3, -2, 0,   1.8,   -1.74,     -1.44, -1.57,  0.04, -0.06},
    PerturbationTerm{3, -3, 0, -0.67,    0.03,      0.11,  2.43,  0.01,     0},
    PerturbationTerm{4, -2, 0,  0.03,   -0.03,       0.1,  0.09,  0.01, -0.01},
    PerturbationTerm{4, -3, 0,  1.51,    -0.4,     -0.88, -3.36,  0.18,  -0.1},
    PerturbationTerm{4, -4, 0, -0.19,   -0.09,     -0.38,  0.77,     0,     0},
    PerturbationTerm{5, -3, 0,  0.76,   -0.68,       0.3,  0.37,  0.01,     0},
    PerturbationTerm{5, -4, 0, -0.14,   -0.04,     -0.11,  0.43, -0.03,     0},
    PerturbationTerm{5, -5, 0, -0.05,   -0.07,     -0.31,  0.21,     0,     0},
    PerturbationTerm{6, -4, 0,  0.15,   -0.04,     -0.06, -0.21,  0.01,     0},
    PerturbationTerm{6, -5, 0, -0.03,   -0.03,     -0.09,  0.09, -0.01,     0},
    PerturbationTerm{6, -6, 0,     0,   -0.04,     -0.18,  0.02,     0,     0},
    PerturbationTerm{7, -5, 0, -0.12,   -0.03,     -0.08,  0.31, -0.02, -0.01},
};
static_assert(sunByVenus.size() == 23);

constexpr std::array sunByMars{
    PerturbationTerm{1, -1, 0, -0.22,  0.17, -0.21, -0.27,    0,    0},
    PerturbationTerm{1, -2, 0, -1.66,  0.62,  0.16,  0.28,    0,    0},
    PerturbationTerm{2, -2, 0,  1.96,  0.57, -1.32,  4.55,    0, 0.01},
    PerturbationTerm{2, -3, 0,   0.4,  0.15, -0.17,  0.46,    0,    0},
    PerturbationTerm{2, -4, 0,  0.53,  0.26,  0.09, -0.22,    0,    0},
    PerturbationTerm{3, -3, 0,  0.05,  0.12, -0.35,  0.15,    0,    0},
    PerturbationTerm{3, -4, 0, -0.13, -0.48,  1.06, -0.29, 0.01,    0},
    PerturbationTerm{3, -5, 0, -0.04,  -0.2,   0.2, -0.04,    0,    0},
    PerturbationTerm{4, -4, 0,     0, -0.03,   0.1,  0.04,    0,    0},
    PerturbationTerm{4, -5, 0,  0.05, -0.07,   0.2,  0.14,    0,    0},
    PerturbationTerm{4, -6, 0,  -0.1,  0.11, -0.23, -0.22,    0,    0},
    PerturbationTerm{5, -7, 0, -0.05,     0,  0.01, -0.14,    0,    0},
    PerturbationTerm{5, -8, 0,  0.05,  0.01, -0.02,   0.1,    0,    0},
};
static_assert(sunByMars.size() == 13);

constexpr std::array sunByJupiter{
    PerturbationTerm{-1, -1, 0,  0.01,  0.07,  0.18,  -0.02,    0, -0.02},
    PerturbationTerm{ 0, -1, 0, -0.31,  2.58,  0.52,   0.34, 0.02,     0},
    PerturbationTerm{ 1, -1, 0, -7.21, -0.06,  0.13, -16.27,    0, -0.02},
    PerturbationTerm{ 1, -2, 0, -0.54, -1.52,  3.09,  -1.12, 0.01, -0.17},
    PerturbationTerm{ 1, -3, 0, -0.03, -0.21,  0.38,  -0.06,    0, -0.02},
    PerturbationTerm{ 2, -1, 0, -0.16,  0.05, -0.18,  -0.31, 0.01,     0},
    PerturbationTerm{ 2, -2, 0,  0.14, -2.73,  9.23,   0.48,    0,     0},
    PerturbationTerm{ 2, -3, 0,  0.07, -0.55,  1.83,   0.25, 0.01,     0},
    PerturbationTerm{ 2, -4, 0,  0.02, -0.08,  0.25,   0.06,    0,     0},
    PerturbationTerm{ 3, -2, 0,  0.01, -0.07,  0.16,   0.04,    0,     0},
    PerturbationTerm{ 3, -3, 0, -0.16, -0.03,  0.08,  -0.64,    0,     0},
    PerturbationTerm{ 3, -4, 0, -0.04, -0.01,  0.03,  -0.17,    0,     0},
};
static_assert(sunByJupiter.size() == 12);

constexpr std::array sunBySaturn{
    PerturbationTerm{0, -1, 0,     0,  0.32,  0.01,     0, 0,     0},
    PerturbationTerm{1, -1, 0, -0.08, -0.41,  0.97, -0.18, 0, -0.01},
    PerturbationTerm{1, -2, 0,  0.04,   0.1, -0.23,   0.1, 0,     0},
    PerturbationTerm{2, -2, 0,  0.04,   0.1, -0.35,  0.13, 0,     0},
};
static_assert(sunBySaturn.size() == 4);
// clang-format on
