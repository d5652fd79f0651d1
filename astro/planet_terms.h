// astro/planet_terms.h: truncated theories of the planets, Newcomb and Hill, Astron. Papers Amer. Ephemeris 4, 6, 7.
#pragma once

#include <array>

#include "astro/series.h"

// Summed in this order: another one changes the last digits.
// clang-format off
constexpr std::array mercuryByVenus{
    PerturbationTerm{ 1,  0, 0,  259.74, 84547.39, -78342.34,  0.01, 11683.22, 21203.79},
    PerturbationTerm{ 1,  0, 1,     2.3,     5.04,     -7.52,  0.02,   138.55,   -71.01},
    PerturbationTerm{ 1,  0, 2,    0.01,    -0.01,      0.01,  0.01,    -0.19,    -0.54},
    PerturbationTerm{ 2,  0, 0, -549.71, 10394.44,  -7955.45,     0,  2390.29,  4306.79},
    PerturbationTerm{ 2,  0, 1,   -4.77,     8.97,     -1.53,     0,    28.49,   -14.18},
    PerturbationTerm{ 2,  0, 2,       0,        0,         0,     0,    -0.04,    -0.11},
    PerturbationTerm{ 3,  0, 0, -234.04,  1748.74,  -1212.86,     0,   535.41,   984.33},
    PerturbationTerm{ 3,  0, 1,   -2.03,     3.48,     -0.35,     0,     6.56,    -2.91},
    PerturbationTerm{ 4,  0, 0,  -77.64,   332.63,   -219.23,     0,    124.4,   237.03},
    PerturbationTerm{ 4,  0, 1,    -0.7,      1.1,     -0.08,     0,     1.59,    -0.59},
    PerturbationTerm{ 5,  0, 0,  -23.59,    67.28,    -43.54,     0,    29.44,    58.77},
    PerturbationTerm{ 5,  0, 1,   -0.23,     0.32,     -0.02,     0,     0.39,    -0.11},
    PerturbationTerm{ 6,  0, 0,   -6.86,    14.06,     -9.18,     0,     7.03,    14.84},
    PerturbationTerm{ 6,  0, 1,   -0.07,     0.09,     -0.01,     0,      0.1,    -0.02},
    PerturbationTerm{ 7,  0, 0,   -1.94,     2.98,     -2.02,     0,     1.69,      3.8},
    PerturbationTerm{ 8,  0, 0,   -0.54,     0.63,     -0.46,     0,     0.41,     0.98},
    PerturbationTerm{ 9,  0, 0,   -0.15,     0.13,     -0.11,     0,      0.1,     0.25},
    PerturbationTerm{-1, -2, 0,   -0.17,    -0.06,     -0.05,  0.14,    -0.06,    -0.07},
    PerturbationTerm{ 0, -1, 0,    0.24,    -0.16,     -0.11, -0.16,     0.04,    -0.01},
    PerturbationTerm{ 0, -2, 0,   -0.68,    -0.25,     -0.26,  0.73,    -0.16,    -0.18},
    PerturbationTerm{ 0, -5, 0,    0.37,     0.08,      0.06, -0.28,     0.13,     0.12},
    PerturbationTerm{ 1, -1, 0,    0.58,    -0.41,      0.26,  0.36,     0.01,    -0.01},
    PerturbationTerm{ 1, -2, 0,   -3.51,    -1.23,      0.23, -0.63,    -0.05,    -0.06},
    PerturbationTerm{ 1, -3, 0,    0.08,     0.53,     -0.11,  0.04,     0.02,    -0.09},
    PerturbationTerm{ 1, -5, 0,    1.44,     0.31,       0.3, -1.39,     0.34,     0.29},
    PerturbationTerm{ 2, -1, 0,    0.15,    -0.11,      0.09,  0.12,     0.02,    -0.04},
    PerturbationTerm{ 2, -2, 0,   -1.99,    -0.68,      0.65, -1.91,     -0.2,     0.03},
    PerturbationTerm{ 2, -3, 0,   -0.34,    -1.28,      0.97, -0.26,     0.03,     0.03},
    PerturbationTerm{ 2, -4, 0,   -0.33,     0.35,     -0.13, -0.13,    -0.01,        0},
    PerturbationTerm{ 2, -5, 0,    7.19,     1.56,     -0.05,  0.12,     0.06,     0.05},
    PerturbationTerm{ 3, -2, 0,   -0.52,    -0.18,      0.13, -0.39,    -0.16,     0.03},
    PerturbationTerm{ 3, -3, 0,   -0.11,    -0.42,      0.36,  -0.1,    -0.05,    -0.05},
    PerturbationTerm{ 3, -4, 0,   -0.19,     0.22,     -0.23,  -0.2,    -0.01,     0.02},
    PerturbationTerm{ 3, -5, 0,    2.77,     0.49,     -0.45,  2.56,      0.4,    -0.12},
    PerturbationTerm{ 4, -5, 0,    0.67,     0.12,     -0.09,  0.47,     0.24,    -0.08},
    PerturbationTerm{ 5, -5, 0,    0.18,     0.03,     -0.02,  0.12,     0.09,    -0.03},
};
static_assert(mercuryByVenus.size() == 36);

constexpr std::array mercuryByEarth{
    PerturbationTerm{0, -4, 0, -0.11, -0.07, -0.08,  0.11, -0.02, -0.04},
    PerturbationTerm{1, -1, 0,   0.1,  -0.2,  0.15,  0.07,     0,     0},
    PerturbationTerm{1, -2, 0, -0.35,  0.28, -0.13, -0.17, -0.01,     0},
    PerturbationTerm{1, -4, 0, -0.67, -0.45,     0,  0.01, -0.01, -0.01},
    PerturbationTerm{2, -2, 0,  -0.2,  0.16, -0.16,  -0.2, -0.01,  0.02},
    PerturbationTerm{2, -3, 0,  0.13, -0.02,  0.02,  0.14,  0.01,     0},
    PerturbationTerm{2, -4, 0, -0.33, -0.18,  0.17, -0.31, -0.04,     0},
};
static_assert(mercuryByEarth.size() == 7);

constexpr std::array mercuryByJupiter{
    PerturbationTerm{-1, -1, 0, -0.08,  0.16,  0.15,  0.08, -0.04,  0.01},
    PerturbationTerm{-1, -2, 0,   0.1, -0.06, -0.07, -0.12,  0.07, -0.01},
    PerturbationTerm{ 0, -1, 0, -0.31,  0.48, -0.02,  0.13, -0.03, -0.02},
    PerturbationTerm{ 0, -2, 0,  0.42, -0.26, -0.38,  -0.5,   0.2, -0.03},
    PerturbationTerm{ 1, -1, 0,  -0.7,  0.01, -0.02, -0.63,     0,  0.03},
    PerturbationTerm{ 1, -2, 0,  2.61, -1.97,  1.74,  2.32,  0.01,  0.01},
    PerturbationTerm{ 1, -3, 0,  0.32, -0.15,  0.13,  0.28,     0,     0},
    PerturbationTerm{ 2, -1, 0, -0.18,  0.01,     0, -0.13, -0.03,  0.03},
    PerturbationTerm{ 2, -2, 0,  0.75, -0.56,  0.45,   0.6,  0.08, -0.17},
    PerturbationTerm{ 3, -2, 0,   0.2, -0.15,   0.1,  0.14,  0.04, -0.08},
};
static_assert(mercuryByJupiter.size() == 10);

constexpr std::array mercuryBySaturn{
    PerturbationTerm{1, -2, 0, -0.19, 0.33, 0, 0, 0, 0},
};
static_assert(mercuryBySaturn.size() == 1);

constexpr std::array venusByMercury{
    PerturbationTerm{1, -1, 0,     0,     0,  0.06, -0.09,  0.01,     0},
    PerturbationTerm{2, -1, 0,  0.25, -0.09, -0.09, -0.27,     0,     0},
    PerturbationTerm{4, -2, 0, -0.07, -0.08, -0.14,  0.14, -0.01, -0.01},
    PerturbationTerm{5, -2, 0, -0.35,  0.08,  0.02,  0.09,     0,     0},
};
static_assert(venusByMercury.size() == 4);

constexpr std::array venusByEarth{
    PerturbationTerm{1,  0, 0,    2.37, 2793.23, -4899.07,   0.11, 9995.27, 7027.22},
    PerturbationTerm{1,  0, 1,     0.1,  -19.65,     34.4,   0.22,   64.95,   -86.1},
    PerturbationTerm{1,  0, 2,    0.06,    0.04,    -0.07,   0.11,   -0.55,   -0.07},
    PerturbationTerm{2,  0, 0, -170.42,   73.13,   -16.59,      0,   67.71,   47.56},
    PerturbationTerm{2,  0, 1,    0.93,    2.91,     0.23,      0,   -0.03,   -0.92},
    PerturbationTerm{3,  0, 0,   -2.31,     0.9,    -0.08,      0,    0.04,    2.09},
    PerturbationTerm{1, -1, 0,   -2.38,   -4.27,     3.27,  -1.82,       0,       0},
    PerturbationTerm{1, -2, 0,    0.09,       0,    -0.08,   0.05,   -0.02,   -0.25},
    PerturbationTerm{2, -2, 0,   -9.57,   -5.93,     8.57, -13.83,   -0.01,   -0.01},
    PerturbationTerm{2, -3, 0,   -2.47,    -2.4,     0.83,  -0.95,    0.16,    0.24},
    PerturbationTerm{3, -2, 0,   -0.09,   -0.05,     0.08,  -0.13,   -0.28,    0.12},
    PerturbationTerm{3, -3, 0,    7.12,    0.32,    -0.62,  13.76,   -0.07,    0.01},
    PerturbationTerm{3, -4, 0,   -0.65,   -0.17,     0.18,  -0.73,     0.1,    0.05},
    PerturbationTerm{3, -5, 0,   -1.08,   -0.95,    -0.17,   0.22,   -0.03,   -0.03},
    PerturbationTerm{4, -3, 0,    0.06,       0,    -0.01,   0.08,    0.14,   -0.18},
    PerturbationTerm{4, -4, 0,    0.93,   -0.46,     1.06,   2.13,   -0.01,    0.01},
    PerturbationTerm{4, -5, 0,   -1.53,    0.38,    -0.64,  -2.54,    0.27,       0},
    PerturbationTerm{4, -6, 0,   -0.17,   -0.05,     0.03,  -0.11,    0.02,       0},
    PerturbationTerm{5, -5, 0,    0.18,   -0.28,     0.71,   0.47,   -0.02,    0.04},
    PerturbationTerm{5, -6, 0,    0.15,   -0.14,      0.3,   0.31,   -0.04,    0.03},
    PerturbationTerm{5, -7, 0,   -0.08,    0.02,    -0.03,  -0.11,    0.01,       0},
    PerturbationTerm{5, -8, 0,   -0.23,       0,     0.01,  -0.04,       0,       0},
    PerturbationTerm{6, -6, 0,    0.01,   -0.14,     0.39,   0.04,       0,   -0.01},
    PerturbationTerm{6, -7, 0,    0.02,   -0.05,     0.12,   0.04,   -0.01,    0.01},
    PerturbationTerm{6, -8, 0,     0.1,    -0.1,     0.19,   0.19,   -0.02,    0.02},
    PerturbationTerm{7, -7, 0,   -0.03,   -0.06,     0.18,  -0.08,       0,       0},
    PerturbationTerm{8, -8, 0,   -0.03,   -0.02,     0.06,  -0.08,       0,       0},
};
static_assert(venusByEarth.size() == 27);

constexpr std::array venusByMars{
    PerturbationTerm{1, -3, 0, -0.65, 1.02, -0.04, -0.02, -0.02,    0},
    PerturbationTerm{2, -2, 0, -0.05, 0.04, -0.09,  -0.1,     0,    0},
    PerturbationTerm{2, -3, 0,  -0.5, 0.45, -0.79, -0.89,  0.01, 0.03},
};
static_assert(venusByMars.size() == 3);

constexpr std::array venusByJupiter{
    PerturbationTerm{0, -1, 0, -0.05,  1.56,  0.16,  0.04, -0.08, -0.04},
    PerturbationTerm{1, -1, 0, -2.62,   1.4, -2.35,  -4.4,  0.02,  0.03},
    PerturbationTerm{1, -2, 0, -0.47, -0.08,  0.12, -0.76,  0.04, -0.18},
    PerturbationTerm{2, -2, 0, -0.73, -0.51,  1.27, -1.82, -0.01,  0.01},
    PerturbationTerm{2, -3, 0, -0.14,  -0.1,  0.25, -0.34,     0,     0},
    PerturbationTerm{3, -3, 0, -0.01,  0.04, -0.11, -0.02,     0,     0},
};
static_assert(venusByJupiter.size() == 6);

constexpr std::array venusBySaturn{
    PerturbationTerm{0, -1, 0,     0,  0.21,    0,    0,    0, -0.01},
    PerturbationTerm{1, -1, 0, -0.11, -0.14, 0.24, -0.2, 0.01,     0},
};
static_assert(venusBySaturn.size() == 2);

constexpr std::array marsByVenus{
    PerturbationTerm{0, -1, 0, -0.01, -0.03,   0.1, -0.04,     0,     0},
    PerturbationTerm{1, -1, 0,  0.05,   0.1, -2.08,  0.75,     0,     0},
    PerturbationTerm{2, -1, 0, -0.25, -0.57, -2.58,  1.18,  0.05, -0.04},
    PerturbationTerm{2, -2, 0,  0.02,  0.02,  0.13, -0.14,     0,     0},
    PerturbationTerm{3, -1, 0,  3.41,  5.38,  1.87, -1.15,  0.01, -0.01},
    PerturbationTerm{3, -2, 0,  0.02,  0.02,  0.11, -0.13,     0,     0},
    PerturbationTerm{4, -1, 0,  0.32,  0.49, -1.88,  1.21, -0.07,  0.07},
    PerturbationTerm{4, -2, 0,  0.03,  0.03,  0.12, -0.14,     0,     0},
    PerturbationTerm{5, -1, 0,  0.04,  0.06, -0.17,  0.11, -0.01,  0.01},
    PerturbationTerm{5, -2, 0,  0.11,  0.09,  0.35, -0.43, -0.01,  0.01},
    PerturbationTerm{6, -2, 0, -0.36, -0.28,  -0.2,  0.25,     0,     0},
    PerturbationTerm{7, -2, 0, -0.03, -0.03,  0.11, -0.13,     0, -0.01},
};
static_assert(marsByVenus.size() == 12);

constexpr std::array marsByEarth{
    PerturbationTerm{ 1,  0, 0, -5.32, 38481.97, -141856.04,    0.4, -6321.67, 1876.89},
    PerturbationTerm{ 1,  0, 1, -1.12,    37.98,    -138.67,  -2.93,    37.28,  117.48},
    PerturbationTerm{ 1,  0, 2, -0.32,    -0.03,       0.12,  -1.19,     1.04,    -0.4},
    PerturbationTerm{ 2,  0, 0, 28.28,   2285.8,   -6608.37,      0,  -589.35,  174.81},
    PerturbationTerm{ 2,  0, 1,  1.64,     3.37,     -12.93,      0,     2.89,    11.1},
    PerturbationTerm{ 2,  0, 2,     0,        0,          0,      0,      0.1,   -0.03},
    PerturbationTerm{ 3,  0, 0,  5.31,   189.29,    -461.81,      0,   -61.98,   18.53},
    PerturbationTerm{ 3,  0, 1,  0.31,     0.35,      -1.36,      0,     0.25,    1.19},
    PerturbationTerm{ 4,  0, 0,  0.81,    17.96,     -38.26,      0,    -6.88,    2.08},
    PerturbationTerm{ 4,  0, 1,  0.05,     0.04,      -0.15,      0,     0.02,    0.14},
    PerturbationTerm{ 5,  0, 0,  0.11,     1.83,      -3.48,      0,    -0.79,    0.24},
    PerturbationTerm{ 6,  0, 0,  0.02,      0.2,      -0.34,      0,    -0.09,    0.03},
    PerturbationTerm{-1, -1, 0,  0.09,     0.06,       0.14,  -0.22,     0.02,   -0.02},
    PerturbationTerm{ 0, -1, 0,  0.72,     0.49,       1.55,  -2.31,     0.12,    -0.1},
    PerturbationTerm{ 1, -1, 0,     7,     4.92,      13.93, -20.48,     0.08,   -0.13},
    PerturbationTerm{ 2, -1, 0, 13.08,     4.89,      -4.53,  10.01,    -0.05,    0.13},
    PerturbationTerm{ 2, -2, 0,  0.14,     0.05,      -0.48,  -2.66,     0.01,    0.14},
    PerturbationTerm{ 3, -1, 0,  1.38,     0.56,         -2,   4.85,    -0.01,    0.19},
    PerturbationTerm{ 3, -2, 0, -6.85,     2.68,       8.38,  21.42,        0,    0.03},
    PerturbationTerm{ 3, -3, 0, -0.08,      0.2,        1.2,   0.46,        0,       0},
    PerturbationTerm{ 4, -1, 0,  0.16,     0.07,      -0.19,   0.47,    -0.01,    0.05},
    PerturbationTerm{ 4, -2, 0, -4.41,     2.14,      -3.33,  -7.21,    -0.07,   -0.09},
    PerturbationTerm{ 4, -3, 0, -0.12,     0.33,       2.22,   0.72,    -0.03,   -0.02},
    PerturbationTerm{ 4, -4, 0, -0.04,    -0.06,      -0.36,   0.23,        0,       0},
    PerturbationTerm{ 5, -2, 0, -0.44,     0.21,       -0.7,  -1.46,    -0.06,   -0.07},
    PerturbationTerm{ 5, -3, 0,  0.48,     -2.6,      -7.25,  -1.37,        0,       0},
    PerturbationTerm{ 5, -4, 0, -0.09,    -0.12,      -0.66,    0.5,        0,       0},
    PerturbationTerm{ 5, -5, 0,  0.03,        0,       0.01,  -0.17,        0,       0},
    PerturbationTerm{ 6, -2, 0, -0.05,     0.03,      -0.07,  -0.15,    -0.01,   -0.01},
    PerturbationTerm{ 6, -3, 0,   0.1,    -0.96,       2.36,    0.3,     0.04,       0},
    PerturbationTerm{ 6, -4, 0, -0.17,     -0.2,      -1.09,   0.94,     0.02,   -0.02},
    PerturbationTerm{ 6, -5, 0,  0.05,        0,          0,   -0.3,        0,       0},
    PerturbationTerm{ 7, -3, 0,  0.01,     -0.1,       0.32,   0.04,     0.02,       0},
    PerturbationTerm{ 7, -4, 0,  0.86,     0.77,       1.86,  -2.01,     0.01,   -0.01},
    PerturbationTerm{ 7, -5, 0,  0.09,    -0.01,      -0.05,  -0.44,        0,       0},
    PerturbationTerm{ 7, -6, 0, -0.01,     0.02,        0.1,   0.08,        0,       0},
    PerturbationTerm{ 8, -4, 0,   0.2,     0.16,      -0.53,   0.64,    -0.01,    0.02},
    PerturbationTerm{ 8, -5, 0,  0.17,    -0.03,      -0.14,  -0.84,        0,    0.01},
    PerturbationTerm{ 8, -6, 0, -0.02,     0.03,       0.16,   0.09,        0,       0},
    PerturbationTerm{ 9, -5, 0, -0.55,     0.15,        0.3,    1.1,        0,       0},
    PerturbationTerm{ 9, -6, 0, -0.02,     0.04,        0.2,    0.1,        0,       0},
    PerturbationTerm{10, -5, 0, -0.09,     0.03,       -0.1,  -0.33,        0,   -0.01},
    PerturbationTerm{10, -6, 0, -0.05,     0.11,       0.48,   0.21,    -0.01,       0},
    PerturbationTerm{11, -6, 0,   0.1,    -0.35,      -0.52,  -0.15,        0,       0},
    PerturbationTerm{11, -7, 0, -0.01,    -0.02,       -0.1,   0.07,        0,       0},
    PerturbationTerm{12, -6, 0,  0.01,    -0.04,       0.18,   0.04,     0.01,       0},
    PerturbationTerm{12, -7, 0, -0.05,    -0.07,      -0.29,    0.2,     0.01,       0},
    PerturbationTerm{13, -7, 0,  0.23,     0.27,       0.25,  -0.21,        0,       0},
    PerturbationTerm{14, -7, 0,  0.02,     0.03,       -0.1,   0.09,        0,       0},
    PerturbationTerm{14, -8, 0,  0.05,     0.01,       0.03,  -0.23,        0,    0.03},
    PerturbationTerm{15, -8, 0, -1.53,     0.27,       0.06,   0.42,        0,       0},
    PerturbationTerm{16, -8, 0, -0.14,     0.02,       -0.1,  -0.55,    -0.01,   -0.02},
    PerturbationTerm{16, -9, 0,  0.03,    -0.06,      -0.25,  -0.11,        0,       0},
};
static_assert(marsByEarth.size() == 53);

constexpr std::array marsByJupiter{
    PerturbationTerm{-2, -1, 0,   0.05,   0.03,  0.08,  -0.14,  0.01, -0.01},
    PerturbationTerm{-1, -1, 0,   0.39,   0.27,  0.92,   -1.5, -0.03, -0.06},
    PerturbationTerm{-1, -2, 0,  -0.16,   0.03,  0.13,   0.67, -0.01,  0.06},
    PerturbationTerm{-1, -3, 0,  -0.02,   0.01,  0.05,   0.09,     0,  0.01},
    PerturbationTerm{ 0, -1, 0,   3.56,   1.13, -5.41,  -7.18, -0.25, -0.24},
    PerturbationTerm{ 0, -2, 0,  -1.44,   0.25,  1.24,   7.96,  0.02,  0.31},
    PerturbationTerm{ 0, -3, 0,  -0.21,   0.11,  0.55,   1.04,  0.01,  0.05},
    PerturbationTerm{ 0, -4, 0,  -0.02,   0.02,  0.11,   0.11,     0,  0.01},
    PerturbationTerm{ 1, -1, 0,  16.67, -19.15,    61,  53.36, -0.06, -0.07},
    PerturbationTerm{ 1, -2, 0, -21.64,   3.18, -7.77, -54.64, -0.31,   0.5},
    PerturbationTerm{ 1, -3, 0,  -2.82,   1.45, -2.53,  -5.73,  0.01,  0.07},
    PerturbationTerm{ 1, -4, 0,  -0.31,   0.28, -0.34,  -0.51,     0,     0},
    PerturbationTerm{ 2, -1, 0,   2.15,  -2.29,  7.04,   6.94,  0.33,  0.19},
    PerturbationTerm{ 2, -2, 0, -15.69,   3.31, -15.7, -73.17, -0.17, -0.25},
    PerturbationTerm{ 2, -3, 0,  -1.73,   1.95, -9.19,   -7.2,  0.02, -0.03},
    PerturbationTerm{ 2, -4, 0,  -0.01,   0.33, -1.42,   0.08,  0.01, -0.01},
    PerturbationTerm{ 2, -5, 0,   0.03,   0.03, -0.13,   0.12,     0,     0},
    PerturbationTerm{ 3, -1, 0,   0.26,  -0.28,  0.73,   0.71,  0.08,  0.04},
    PerturbationTerm{ 3, -2, 0,  -2.06,   0.46, -1.61,  -6.72, -0.13, -0.25},
    PerturbationTerm{ 3, -3, 0,  -1.28,  -0.27,  2.21,   -6.9, -0.04, -0.02},
    PerturbationTerm{ 3, -4, 0,  -0.22,   0.08, -0.44,  -1.25,     0,  0.01},
    PerturbationTerm{ 3, -5, 0,  -0.02,   0.03, -0.15,  -0.08,     0,     0},
    PerturbationTerm{ 4, -1, 0,   0.03,  -0.03,  0.08,   0.08,  0.01,  0.01},
    PerturbationTerm{ 4, -2, 0,  -0.26,   0.06, -0.17,   -0.7, -0.03, -0.05},
    PerturbationTerm{ 4, -3, 0,   -0.2,  -0.05,  0.22,  -0.79, -0.01, -0.02},
    PerturbationTerm{ 4, -4, 0,  -0.11,  -0.14,  0.93,   -0.6,     0,     0},
    PerturbationTerm{ 4, -5, 0,  -0.04,  -0.02,  0.09,  -0.23,     0,     0},
    PerturbationTerm{ 5, -4, 0,  -0.02,  -0.03,  0.13,  -0.09,     0,     0},
    PerturbationTerm{ 5, -5, 0,      0,  -0.03,  0.21,   0.01,     0,     0},
};
static_assert(marsByJupiter.size() == 29);

constexpr std::array marsBySaturn{
    PerturbationTerm{-1, -1, 0, 0.03,  0.13,  0.48, -0.13,  0.02,     0},
    PerturbationTerm{ 0, -1, 0, 0.27,  0.84,   0.4, -0.43,  0.01, -0.01},
    PerturbationTerm{ 0, -2, 0, 0.12, -0.04, -0.33, -0.55, -0.01, -0.02},
    PerturbationTerm{ 0, -3, 0, 0.02, -0.01, -0.07, -0.08,     0,     0},
    PerturbationTerm{ 1, -1, 0, 1.12,  0.76, -2.66,  3.91, -0.01,  0.01},
    PerturbationTerm{ 1, -2, 0, 1.49, -0.95,  3.07,  4.83,  0.04, -0.05},
    PerturbationTerm{ 1, -3, 0, 0.21, -0.18,  0.55,  0.64,     0,     0},
    PerturbationTerm{ 2, -1, 0, 0.12,   0.1, -0.29,  0.34, -0.01,  0.02},
    PerturbationTerm{ 2, -2, 0, 0.51, -0.36,  1.61,  2.25,  0.03,  0.01},
    PerturbationTerm{ 2, -3, 0,  0.1,  -0.1,   0.5,  0.43,     0,     0},
    PerturbationTerm{ 2, -4, 0, 0.01, -0.02,  0.11,  0.05,     0,     0},
    PerturbationTerm{ 3, -2, 0, 0.07, -0.05,  0.16,  0.22,  0.01,  0.01},
};
static_assert(marsBySaturn.size() == 12);

constexpr std::array jupiterBySaturn{
    PerturbationTerm{-1,  -1, 0,   -0.2,     1.4,        2,    0.6,     0.1,  -0.2},
    PerturbationTerm{ 0,  -1, 0,    9.4,     8.9,      3.9,   -8.3,    -0.4,  -1.4},
    PerturbationTerm{ 0,  -2, 0,    5.6,      -3,     -5.4,   -5.7,      -2,     0},
    PerturbationTerm{ 0,  -3, 0,     -4,    -0.1,        0,    5.5,       0,     0},
    PerturbationTerm{ 0,  -5, 0,    3.3,    -1.6,     -1.6,   -3.1,    -0.5,  -1.2},
    PerturbationTerm{ 1,   0, 0, -113.1, 19998.6, -25208.2, -142.2, -4670.7, 288.9},
    PerturbationTerm{ 1,   0, 1,  -76.1,    66.9,    -84.2,  -95.8,    21.6,  29.4},
    PerturbationTerm{ 1,   0, 2,   -0.5,    -0.3,      0.4,   -0.7,     0.1,  -0.1},
    PerturbationTerm{ 1,  -1, 0,   78.8,   -14.5,     11.5,   64.4,    -0.2,   0.2},
    PerturbationTerm{ 1,  -2, 0,     -2,  -132.4,     28.8,    4.3,    -1.7,   0.4},
    PerturbationTerm{ 1,  -2, 1,   -1.1,    -0.7,      0.2,   -0.3,       0,     0},
    PerturbationTerm{ 1,  -3, 0,   -7.5,    -6.8,     -0.4,   -1.1,     0.6,  -0.9},
    PerturbationTerm{ 1,  -4, 0,    0.7,     0.7,      0.6,   -1.1,       0,  -0.2},
    PerturbationTerm{ 1,  -5, 0,   51.5,     -26,    -32.5,  -64.4,    -4.9, -12.4},
    PerturbationTerm{ 1,  -5, 1,   -1.2,    -2.2,     -2.7,    1.5,    -0.4,   0.3},
    PerturbationTerm{ 2,   0, 0,   -3.4,     632,   -610.6,   -6.5,  -226.8,  12.7},
    PerturbationTerm{ 2,   0, 1,   -4.2,     3.8,     -4.1,   -4.5,     0.2,   0.6},
    PerturbationTerm{ 2,  -1, 0,    5.3,    -0.7,      0.7,    6.1,     0.2,   1.1},
    PerturbationTerm{ 2,  -2, 0,  -76.4,  -185.1,    260.2,   -108,     1.6,     0},
    PerturbationTerm{ 2,  -3, 0,   66.7,    47.8,    -51.4,   69.8,     0.9,   0.3},
    PerturbationTerm{ 2,  -3, 1,    0.6,      -1,        1,    0.6,       0,     0},
    PerturbationTerm{ 2,  -4, 0,     17,     1.4,     -1.8,    9.6,       0,  -0.1},
    PerturbationTerm{ 2,  -5, 0, 1066.2,  -518.3,     -1.3,  -23.9,     1.8,  -0.3},
    PerturbationTerm{ 2,  -5, 1,  -25.4,   -40.3,     -0.9,    0.3,       0,     0},
    PerturbationTerm{ 2,  -5, 2,   -0.7,     0.5,        0,      0,       0,     0},
    PerturbationTerm{ 3,   0, 0,   -0.1,      28,    -22.1,   -0.2,   -12.5,   0.7},
    PerturbationTerm{ 3,  -2, 0,     -5,   -11.5,     11.7,   -5.4,     2.1,    -1},
    PerturbationTerm{ 3,  -3, 0,   16.9,    -6.4,     13.4,   26.9,    -0.5,   0.8},
    PerturbationTerm{ 3,  -4, 0,    7.2,   -13.3,     20.9,   10.5,     0.1,  -0.1},
    PerturbationTerm{ 3,  -5, 0,   68.5,   134.3,   -166.9,   86.5,     7.1,  15.2},
    PerturbationTerm{ 3,  -5, 1,    3.5,    -2.7,      3.4,    4.3,     0.5,  -0.4},
    PerturbationTerm{ 3,  -6, 0,    0.6,       1,     -0.9,    0.5,       0,     0},
    PerturbationTerm{ 3,  -7, 0,   -1.1,     1.7,     -0.4,   -0.2,       0,     0},
    PerturbationTerm{ 4,   0, 0,      0,     1.4,       -1,      0,    -0.6,     0},
    PerturbationTerm{ 4,  -2, 0,   -0.3,    -0.7,      0.4,   -0.2,     0.2,  -0.1},
    PerturbationTerm{ 4,  -3, 0,    1.1,    -0.6,      0.9,    1.2,     0.1,   0.2},
    PerturbationTerm{ 4,  -4, 0,    3.2,     1.7,     -4.1,    5.8,     0.2,   0.1},
    PerturbationTerm{ 4,  -5, 0,    6.7,     8.7,     -9.3,    8.7,    -1.1,   1.6},
    PerturbationTerm{ 4,  -6, 0,    1.5,    -0.3,      0.6,    2.4,       0,     0},
    PerturbationTerm{ 4,  -7, 0,   -1.9,     2.3,     -3.2,   -2.7,       0,  -0.1},
    PerturbationTerm{ 4,  -8, 0,    0.4,    -1.8,      1.9,    0.5,       0,     0},
    PerturbationTerm{ 4,  -9, 0,   -0.2,    -0.5,      0.3,   -0.1,       0,     0},
    PerturbationTerm{ 4, -10, 0,   -8.6,    -6.8,     -0.4,    0.1,       0,     0},
    PerturbationTerm{ 4, -10, 1,   -0.5,     0.6,        0,      0,       0,     0},
    PerturbationTerm{ 5,  -5, 0,   -0.1,     1.5,     -2.5,   -0.8,    -0.1,   0.1},
    PerturbationTerm{ 5,  -6, 0,    0.1,     0.8,     -1.6,    0.1,       0,     0},
    PerturbationTerm{ 5,  -9, 0,   -0.5,    -0.1,      0.1,   -0.8,       0,     0},
    PerturbationTerm{ 5, -10, 0,    2.5,    -2.2,      2.8,    3.1,     0.1,  -0.2},
};
static_assert(jupiterBySaturn.size() == 48);

constexpr std::array jupiterByUranus{
    PerturbationTerm{1, -1, 0, 0.4, 0.9,    0,   0, 0, 0},
    PerturbationTerm{1, -2, 0, 0.4, 0.4, -0.4, 0.3, 0, 0},
};
static_assert(jupiterByUranus.size() == 2);

constexpr std::array saturnByJupiter{
    PerturbationTerm{ 0, -1, 0,      12,    -1.4,    -13.9,    6.4,     1.2,   -1.8},
    PerturbationTerm{ 0, -2, 0,       0,    -0.2,     -0.9,      1,       0,   -0.1},
    PerturbationTerm{ 1,  1, 0,     0.9,     0.4,     -1.8,    1.9,     0.2,    0.2},
    PerturbationTerm{ 1,  0, 0,  -348.3, 22907.7, -52915.5, -752.2, -3266.5, 8314.4},
    PerturbationTerm{ 1,  0, 1,  -225.2,  -146.2,    337.7, -521.3,    79.6,   17.4},
    PerturbationTerm{ 1,  0, 2,     1.3,    -1.4,      3.2,    2.9,     0.1,   -0.4},
    PerturbationTerm{ 1, -1, 0,      -1,   -30.7,    108.6,   -815,    -3.6,   -9.3},
    PerturbationTerm{ 1, -2, 0,      -2,    -2.7,     -2.1,  -11.9,    -0.1,   -0.4},
    PerturbationTerm{ 2,  1, 0,     0.1,     0.2,       -1,    0.3,       0,      0},
    PerturbationTerm{ 2,  0, 0,    44.2,     724,  -1464.3,  -34.7,  -188.7,  459.1},
    PerturbationTerm{ 2,  0, 1,     -17,   -11.3,     18.9,  -28.6,       1,   -3.7},
    PerturbationTerm{ 2, -1, 0,    -3.5,  -426.6,   -546.5,  -26.5,    -1.6,   -2.7},
    PerturbationTerm{ 2, -1, 1,     3.5,    -2.2,     -2.6,   -4.3,       0,      0},
    PerturbationTerm{ 2, -2, 0,    10.5,   -30.9,   -130.5,  -52.3,    -1.9,    0.2},
    PerturbationTerm{ 2, -3, 0,    -0.2,    -0.4,     -1.2,   -0.1,    -0.1,      0},
    PerturbationTerm{ 3,  0, 0,     6.5,    30.5,    -61.1,    0.4,   -11.6,   28.1},
    PerturbationTerm{ 3,  0, 1,    -1.2,    -0.7,      1.1,   -1.8,    -0.2,   -0.6},
    PerturbationTerm{ 3, -1, 0,      29,   -40.2,     98.2,   45.3,     3.2,   -9.4},
    PerturbationTerm{ 3, -1, 1,     0.6,     0.6,       -1,    1.3,       0,      0},
    PerturbationTerm{ 3, -2, 0,     -27,   -21.1,    -68.5,    8.1,   -19.8,    5.4},
    PerturbationTerm{ 3, -2, 1,     0.9,    -0.5,     -0.4,     -2,    -0.1,   -0.8},
    PerturbationTerm{ 3, -3, 0,    -5.4,    -4.1,    -19.1,   26.2,    -0.1,   -0.1},
    PerturbationTerm{ 4,  0, 0,     0.6,     1.4,       -3,   -0.2,    -0.6,    1.6},
    PerturbationTerm{ 4, -1, 0,     1.5,    -2.5,     12.4,    4.7,       1,   -1.1},
    PerturbationTerm{ 4, -2, 0,  -821.9,    -9.6,      -26, 1873.6,   -70.5,   -4.4},
    PerturbationTerm{ 4, -2, 1,     4.1,   -21.9,    -50.3,   -9.9,     0.7,     -3},
    PerturbationTerm{ 4, -3, 0,      -2,    -4.7,    -19.3,    8.2,    -0.1,   -0.3},
    PerturbationTerm{ 4, -4, 0,    -1.5,     1.3,      6.5,    7.3,       0,      0},
    PerturbationTerm{ 5, -2, 0, -2627.6, -1277.3,    117.4, -344.1,   -13.8,   -4.3},
    PerturbationTerm{ 5, -2, 1,      63,   -98.6,     12.7,    6.7,     0.1,   -0.2},
    PerturbationTerm{ 5, -2, 2,     1.7,     1.2,     -0.2,    0.3,       0,      0},
    PerturbationTerm{ 5, -3, 0,     0.4,    -3.6,    -11.3,   -1.6,       0,   -0.3},
    PerturbationTerm{ 5, -4, 0,    -1.4,     0.3,      1.5,    6.3,    -0.1,      0},
    PerturbationTerm{ 5, -5, 0,     0.3,     0.6,        3,   -1.7,       0,      0},
    PerturbationTerm{ 6, -2, 0,  -146.7,   -73.7,    166.4, -334.3,   -43.6,  -46.7},
    PerturbationTerm{ 6, -2, 1,     5.2,    -6.8,     15.1,   11.4,     1.7,     -1},
    PerturbationTerm{ 6, -3, 0,     1.5,    -2.9,     -2.2,   -1.3,     0.1,   -0.1},
    PerturbationTerm{ 6, -4, 0,    -0.7,    -0.2,     -0.7,    2.8,       0,      0},
    PerturbationTerm{ 6, -5, 0,       0,     0.5,      2.5,   -0.1,       0,      0},
    PerturbationTerm{ 6, -6, 0,     0.3,    -0.1,     -0.3,   -1.2,       0,      0},
    PerturbationTerm{ 7, -2, 0,    -9.6,    -3.9,      9.6,  -18.6,    -4.7,   -5.3},
    PerturbationTerm{ 7, -2, 1,     0.4,    -0.5,        1,    0.9,     0.3,   -0.1},
    PerturbationTerm{ 7, -3, 0,       3,     5.3,      7.5,   -3.5,       0,      0},
    PerturbationTerm{ 7, -4, 0,     0.2,     0.4,      1.6,   -1.3,       0,      0},
    PerturbationTerm{ 7, -5, 0,    -0.1,     0.2,        1,    0.5,       0,      0},
    PerturbationTerm{ 7, -6, 0,     0.2,       0,      0.2,     -1,       0,      0},
    PerturbationTerm{ 8, -2, 0,    -0.7,    -0.2,      0.6,   -1.2,    -0.4,   -0.4},
    PerturbationTerm{ 8, -3, 0,     0.5,       1,       -2,    1.5,     0.1,    0.2},
    PerturbationTerm{ 8, -4, 0,     0.4,     1.3,      3.6,   -0.9,       0,   -0.1},
    PerturbationTerm{ 9, -4, 0,       4,    -8.7,    -19.9,   -9.9,     0.2,   -0.4},
    PerturbationTerm{ 9, -4, 1,     0.5,     0.3,      0.8,   -1.8,       0,      0},
    PerturbationTerm{10, -4, 0,    21.3,   -16.8,      3.3,    3.3,     0.2,   -0.2},
    PerturbationTerm{10, -4, 1,       1,     1.7,     -0.4,    0.4,       0,      0},
    PerturbationTerm{11, -4, 0,     1.6,    -1.3,        3,    3.7,     0.8,   -0.2},
};
static_assert(saturnByJupiter.size() == 54);

constexpr std::array saturnByUranus{
    PerturbationTerm{0, -1, 0,     1,   0.7,   0.4,  -1.5,  0.1,    0},
    PerturbationTerm{0, -2, 0,     0,  -0.4,  -1.1,   0.1, -0.1, -0.1},
    PerturbationTerm{0, -3, 0,  -0.9,  -1.2,  -2.7,   2.1, -0.5, -0.3},
    PerturbationTerm{1, -1, 0,   7.8,  -1.5,   2.3,  12.7,    0,    0},
    PerturbationTerm{1, -2, 0,  -1.1,  -8.1,   5.2,  -0.3, -0.3, -0.3},
    PerturbationTerm{1, -3, 0, -16.4,   -21,  -2.1,     0,  0.4,    0},
    PerturbationTerm{2, -1, 0,   0.6,  -0.1,   0.1,   1.2,  0.1,    0},
    PerturbationTerm{2, -2, 0,  -4.9, -11.7,  31.5, -13.3,    0, -0.2},
    PerturbationTerm{2, -3, 0,  19.1,    10, -22.1,  42.1,  0.1, -1.1},
    PerturbationTerm{2, -4, 0,   0.9,  -0.1,   0.1,   1.4,    0,    0},
    PerturbationTerm{3, -2, 0,  -0.4,  -0.9,   1.7,  -0.8,    0, -0.3},
    PerturbationTerm{3, -3, 0,   2.3,     0,     1,   5.7,  0.3,  0.3},
    PerturbationTerm{3, -4, 0,   0.3,  -0.7,     2,   0.7,    0,    0},
    PerturbationTerm{3, -5, 0,  -0.1,  -0.4,   1.1,  -0.3,    0,    0},
};
static_assert(saturnByUranus.size() == 14);

constexpr std::array saturnByNeptune{
    PerturbationTerm{1, -1, 0, -1.3, -1.2, 2.3, -2.5, 0, 0},
    PerturbationTerm{1, -2, 0,    1, -0.1, 0.1,  1.4, 0, 0},
    PerturbationTerm{2, -2, 0,  1.1, -0.1, 0.2,  3.3, 0, 0},
};
static_assert(saturnByNeptune.size() == 3);
// clang-format on
