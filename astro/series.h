// astro/series.h: what the series of the Sun, the Moon and the planets have in common.
#pragma once

#include "astro/angles.h"
#include "astro/calendar.h"

#include <cstdint>

constexpr double arcsecPerRad = 206264.81;  // as rounded in the theories
constexpr double arcsecPerTurn = 1296000.0;

/// The angle of so many revolutions, in radians within one turn; its sign is theirs.
inline double turnsToRad(double revolutions)
{
    return twoPi * frac(revolutions);
}

/// A periodic term of two mean anomalies: multiple i1 of the body's own one, multiple i of that of the perturbing
/// planet.
struct PerturbationTerm
{
    std::int8_t i1, i;
    std::int8_t it;   // 0, or the power of T: such a row takes the angle of the row before it
    double dlc, dls;  // longitude, arc seconds: cosine, sine
    double drc, drs;  // distance, millionths of an astronomical unit; Jupiter, Saturn: hundred-thousandths
    double dbc, dbs;  // latitude, arc seconds
};

/// The addition theorems: (c, s) of the sum of two angles. The result may lie in one of the arguments.
constexpr void addthe(double c1, double s1, double c2, double s2, double& c, double& s)
{
    const double cosine = c1 * c2 - s1 * s2;
    s = s1 * c2 + c1 * s2;
    c = cosine;
}

/// Cosines and sines of the multiples `lowest` (0 or below) to `highest` (0 or above) of an angle, by the addition
/// theorems. `c` and `s` point at the entries of multiple 0.
void fillMultiples(double* c, double* s, int lowest, int highest, double angle);
