// astro/sun_moon.h: geocentric places of the Sun and the Moon from analytic series.
//
// T is Julian centuries of TT from J2000, the frame the ecliptic and mean equinox of date; `eclequ` turns a result to
// the equator. Geometric places: no light time, no aberration. Every T is taken, and far outside 1900 to 2100 the
// polynomials just go on. An object carries nothing from one call to the next.
#pragma once

#include "astro/series.h"
#include "astro/vec3.h"

/// The Sun after Newcomb with the perturbations by Venus, Mars, Jupiter, Saturn and the Moon.
///
/// Truncated at some 0.01 arc seconds; within 2.2 over 1950 to 2050, 0.8 on average. Newcomb, Astron. Papers Amer.
/// Ephemeris 6 (1895); the arrangement after Montenbruck and Pfleger, Astronomy on the Personal Computer.
class Sun200
{
public:
    /// Cartesian, astronomical units.
    Vec3 position(double t);

private:
    /// Adds one term to DL, DR and DB.
    void term(const PerturbationTerm& row);
    /// Adds the terms of a planet with this anomaly, radians, from its multiple `lowest` on.
    template <class Table>
    void perturb(const Table& table, double anomaly, int lowest);
    /// Sets the arguments for T.
    void meanArguments();
    /// Adds the perturbations by Venus.
    void pertven();
    /// Adds those by Mars.
    void pertmar();
    /// Adds those by Jupiter.
    void pertjup();
    /// Adds those by Saturn.
    void pertsat();
    /// Adds those by the Moon.
    void pertmoo();
    /// Adds the terms of long periods to the longitude.
    void longPeriodTerms();
    /// The place from longitude, latitude and distance.
    Vec3 state() const;

    static constexpr int zero3 = 1;                 // entry of multiple 0 in C3, S3
    static constexpr int zero = 8;                  // entry of multiple 0 in C, S
    double C3[9]{}, S3[9]{};                        // multiples -1 to 7 of M3
    double C[9]{}, S[9]{};                          // multiples -8 to 0 of the anomaly of the perturbing planet
    double M2 = 0, M3 = 0, M4 = 0, M5 = 0, M6 = 0;  // mean anomalies of Venus, Earth, Mars, Jupiter, Saturn
    double D = 0, A = 0, U = 0;                     // elongation, mean anomaly and argument of latitude of the Moon
    double T = 0;
    double u = 0, v = 0;  // cosine and sine of the current term
    double DL = 0, DR = 0, DB = 0;
};

/// The Moon after Brown with the perturbations by the Sun and the planets.
///
/// Truncated at some 0.2 arc seconds in longitude; within 4.2 over 1950 to 2050, 1.1 on average. Brown, Tables of the
/// Motion of the Moon (1919); the arrangement after Montenbruck and Pfleger, Astronomy on the Personal Computer.
class Moon200
{
public:
    /// Cartesian, equatorial Earth radii. The parallax is the older 3422.54 arc seconds: some 10 km too near.
    Vec3 position(double t);

private:
    /// Sine of so many turns.
    static double sinus(double revolutions);
    /// The long-period corrections of the mean arguments.
    void long_periodic(double t);
    /// All that the terms need at T.
    void minit(double t);
    /// The mean arguments with their corrections.
    void meanElements(double t);
    /// Cosines and sines of the multiples of the arguments.
    void fillTables(double t);
    /// Cosine and sine of p L + q LS + r F + s D.
    void term(int p, int q, int r, int s, double& x, double& y) const;
    /// Adds a term by the Sun to longitude, argument of latitude, GAM1C and parallax.
    void addsol(double cl, double cs, double cg, double cp, int p, int q, int r, int s);
    /// The solar terms, first part of the table.
    void solar1();
    /// The second part.
    void solar2();
    /// The third part.
    void solar3();
    /// Adds a term to N.
    void addn(double c, int p, int q, int r, int s);
    /// The terms of N.
    void solarn();
    /// Adds the terms of the planets to the longitude.
    void planetary(double t);

    static constexpr int zero = 6;                      // entry of multiple 0 in CO, SI
    double DGAM = 0;                                    // long-period term of the node, a factor on the inclination
    double DLAM = 0;                                    // longitude perturbation, arc seconds
    double N = 0;                                       // planetary-node term of the latitude, arc seconds
    double GAM1C = 0;                                   // latitude-inclination term
    double SINPI = 0;                                   // sine of the parallax, arc seconds
    double L0 = 0, L = 0, LS = 0, F = 0, D = 0, S = 0;  // mean arguments, radians; S the perturbed F
    double DL0 = 0, DL = 0, DLS = 0, DF = 0, DD = 0, DS = 0;  // long-period corrections, arc seconds; DS that of F
    double CO[13][5]{}, SI[13][5]{};                          // multiples -6 to 6 of: 1 L, 2 LS, 3 F, 4 D
};
