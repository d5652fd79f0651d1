// astro/planets.h: heliocentric places of the five bright planets from analytic series.
#pragma once

#include <array>

#include "astro/series.h"
#include "astro/vec3.h"

/// Truncated theories of Mercury, Venus, Mars, Jupiter and Saturn.
///
/// Each gives Cartesian astronomical units in the ecliptic and mean equinox of date; T is Julian centuries of TT from
/// J2000, every T is taken. One object may serve all five in turn and carries nothing from one call to the next. Over
/// 1950 to 2050 Mercury holds 2.5, Venus and Mars 1.7, Jupiter 3 and Saturn 5.2 arc seconds. The arrangement is that
/// of Montenbruck and Pfleger, Astronomy on the Personal Computer.
class Plan200
{
public:
    /// T as above.
    Vec3 Mercury(double t);
    Vec3 Venus(double t);
    Vec3 Mars(double t);
    Vec3 Jupiter(double t);
    Vec3 Saturn(double t);

private:
    /// Sets T and clears the sums of the terms.
    void begin(double t);
    /// Fills C1 and S1 between two multiples of the planet's own anomaly, radians.
    void ownMultiples(double anomaly, int lowest, int highest);
    /// Adds the terms of a perturbing planet with this anomaly, radians.
    template <std::size_t N>
    void perturb(const std::array<PerturbationTerm, N>& table, double anomaly);
    /// Adds one term to DL, DR and DB.
    void term(const PerturbationTerm& row);
    /// The place from L, B and R.
    Vec3 posvel();

    static constexpr int zero1 = 2;  // entry of multiple 0 in C1, S1
    static constexpr int zero = 10;  // entry of multiple 0 in C, S
    double C1[19]{}, S1[19]{};       // multiples of the planet's own mean anomaly, at most -2 to 16
    double C[12]{}, S[12]{};         // multiples of that of the perturbing planet, at most -10 to 1
    double M1 = 0, M2 = 0, M3 = 0, M4 = 0, M5 = 0, M6 = 0, M7 = 0, M8 = 0;
    double U = 0, V = 0;  // cosine and sine of the current term
    double T = 0;
    double DL = 0, DR = 0, DB = 0;
    double L = 0, B = 0, R = 0;  // heliocentric longitude, latitude, distance
    Vec3 place;
};
