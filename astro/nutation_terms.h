// Rows of the IAU 1980 nutation series (Seidelmann, Celest. Mech. 27, 79, 1982; IERS Conventions 1996, chapter 5).

#pragma once

#include <array>
#include <cstdint>

/// A row whose amplitudes change with T, Julian centuries from J2000.
struct NutationTerm
{
    std::int8_t l, lp, f, d, om;      // multiples of the fundamental arguments
    double dpsi, dpsiT, deps, depsT;  // 0.0001 arcsec, and 0.0001 arcsec per Julian century
};

/// A row with constant amplitudes.
struct SteadyNutationTerm
{
    std::int8_t l, lp, f, d, om;  // multiples of the fundamental arguments
    double dpsi, deps;            // 0.0001 arcsec
};

// Both tables are summed in this order, this one first: another order changes the last digits.
// clang-format off
constexpr std::array nutationTerms{
    NutationTerm{ 0,  0,  0,  0, 1, -171996, -174.2, 92025,  8.9},
    NutationTerm{ 0,  0,  0,  0, 2,    2062,    0.2,  -895,  0.5},
    NutationTerm{ 0,  0,  2, -2, 2,  -13187,   -1.6,  5736, -3.1},
    NutationTerm{ 0,  1,  0,  0, 0,    1426,   -3.4,    54, -0.1},
    NutationTerm{ 0,  1,  2, -2, 2,    -517,    1.2,   224, -0.6},
    NutationTerm{ 0, -1,  2, -2, 2,     217,   -0.5,   -95,  0.3},
    NutationTerm{ 0,  0,  2, -2, 1,     129,    0.1,   -70,    0},
    NutationTerm{ 0,  2,  0,  0, 0,      17,   -0.1,     0,    0},
    NutationTerm{ 0,  2,  2, -2, 2,     -16,    0.1,     7,    0},
    NutationTerm{ 0,  0,  2,  0, 2,   -2274,   -0.2,   977, -0.5},
    NutationTerm{ 1,  0,  0,  0, 0,     712,    0.1,    -7,    0},
    NutationTerm{ 0,  0,  2,  0, 1,    -386,   -0.4,   200,    0},
    NutationTerm{ 1,  0,  2,  0, 2,    -301,      0,   129, -0.1},
    NutationTerm{ 1,  0,  0,  0, 1,      63,    0.1,   -33,    0},
    NutationTerm{-1,  0,  0,  0, 1,     -58,   -0.1,    32,    0},
};
static_assert(nutationTerms.size() == 15);

constexpr std::array steadyNutationTerms{
    SteadyNutationTerm{-2,  0,  2,  0, 1,   46, -24},
    SteadyNutationTerm{ 2,  0, -2,  0, 0,   11,   0},
    SteadyNutationTerm{-2,  0,  2,  0, 2,   -3,   1},
    SteadyNutationTerm{ 1, -1,  0, -1, 0,   -3,   0},
    SteadyNutationTerm{ 0, -2,  2, -2, 1,   -2,   1},
    SteadyNutationTerm{ 2,  0, -2,  0, 1,    1,   0},
    SteadyNutationTerm{ 2,  0,  0, -2, 0,   48,   1},
    SteadyNutationTerm{ 0,  0,  2, -2, 0,  -22,   0},
    SteadyNutationTerm{ 0,  1,  0,  0, 1,  -15,   9},
    SteadyNutationTerm{ 0, -1,  0,  0, 1,  -12,   6},
    SteadyNutationTerm{-2,  0,  0,  2, 1,   -6,   3},
    SteadyNutationTerm{ 0, -1,  2, -2, 1,   -5,   3},
    SteadyNutationTerm{ 2,  0,  0, -2, 1,    4,  -2},
    SteadyNutationTerm{ 0,  1,  2, -2, 1,    4,  -2},
    SteadyNutationTerm{ 1,  0,  0, -1, 0,   -4,   0},
    SteadyNutationTerm{ 2,  1,  0, -2, 0,    1,   0},
    SteadyNutationTerm{ 0,  0, -2,  2, 1,    1,   0},
    SteadyNutationTerm{ 0,  1, -2,  2, 0,   -1,   0},
    SteadyNutationTerm{ 0,  1,  0,  0, 2,    1,   0},
    SteadyNutationTerm{-1,  0,  0,  1, 1,    1,   0},
    SteadyNutationTerm{ 0,  1,  2, -2, 0,   -1,   0},
    SteadyNutationTerm{ 1,  0,  0, -2, 0, -158,  -1},
    SteadyNutationTerm{-1,  0,  2,  0, 2,  123, -53},
    SteadyNutationTerm{ 0,  0,  0,  2, 0,   63,  -2},
    SteadyNutationTerm{-1,  0,  2,  2, 2,  -59,  26},
    SteadyNutationTerm{ 1,  0,  2,  0, 1,  -51,  27},
    SteadyNutationTerm{ 0,  0,  2,  2, 2,  -38,  16},
    SteadyNutationTerm{ 2,  0,  0,  0, 0,   29,  -1},
    SteadyNutationTerm{ 1,  0,  2, -2, 2,   29, -12},
    SteadyNutationTerm{ 2,  0,  2,  0, 2,  -31,  13},
    SteadyNutationTerm{ 0,  0,  2,  0, 0,   26,  -1},
    SteadyNutationTerm{-1,  0,  2,  0, 1,   21, -10},
    SteadyNutationTerm{-1,  0,  0,  2, 1,   16,  -8},
    SteadyNutationTerm{ 1,  0,  0, -2, 1,  -13,   7},
    SteadyNutationTerm{-1,  0,  2,  2, 1,  -10,   5},
};
static_assert(steadyNutationTerms.size() == 35);
// clang-format on
