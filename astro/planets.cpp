#include "astro/planets.h"

#include "astro/angles.h"
#include "astro/planet_terms.h"

#include <algorithm>
#include <cmath>

Vec3 Plan200::Mercury(double t)
{
    begin(t);
    M1 = turnsToRad(0.4855407 + 415.2014314 * T);
    M2 = turnsToRad(0.1394222 + 162.5490444 * T);
    M3 = turnsToRad(0.9937861 + 99.9978139 * T);
    M5 = turnsToRad(0.0558417 + 8.4298417 * T);
    M6 = turnsToRad(0.8823333 + 3.3943333 * T);
    ownMultiples(M1, -1, 9);
    perturb(mercuryByVenus, M2);
    perturb(mercuryByEarth, M3);
    perturb(mercuryByJupiter, M5);
    perturb(mercuryBySaturn, M6);
    DL += 2.8 + 3.2 * T;
    L = turnsToRad(0.2151379 + M1 / twoPi + ((5601.7 + 1.1 * T) * T + DL) / arcsecPerTurn);
    B = ((0.04 * T - 30.18) * T - 2522.15 + DB) / arcsecPerRad;
    R = 0.3952829 + 1.6e-6 * T + 1e-6 * DR;
    return posvel();
}

Vec3 Plan200::Venus(double t)
{
    begin(t);
    M1 = turnsToRad(0.4861431 + 415.2018375 * T);
    M2 = turnsToRad(0.1400197 + 162.5494552 * T);
    M3 = turnsToRad(0.9944153 + 99.9982208 * T);
    M4 = turnsToRad(0.0556297 + 53.1674631 * T);
    M5 = turnsToRad(0.0567028 + 8.4305083 * T);
    M6 = turnsToRad(0.8830539 + 3.3947206 * T);
    ownMultiples(M2, 0, 8);
    perturb(venusByMercury, M1);
    perturb(venusByEarth, M3);
    perturb(venusByMars, M4);
    perturb(venusByJupiter, M5);
    perturb(venusBySaturn, M6);
    DL += 2.74 * std::sin(twoPi * (0.0764 + 0.4174 * T)) + 0.27 * std::sin(twoPi * (0.9201 + 0.3307 * T)) + 1.9 +
          1.8 * T;
    L = turnsToRad(0.3654783 + M2 / twoPi + ((5071.2 + 1.1 * T) * T + DL) / arcsecPerTurn);
    B = ((0.01 * T + 0.04) * T - 67.7 + DB) / arcsecPerRad;
    R = 0.7233482 - 2e-7 * T + 1e-6 * DR;
    return posvel();
}

Vec3 Plan200::Mars(double t)
{
    begin(t);
    M2 = turnsToRad(0.1382208 + 162.5482542 * T);
    M3 = turnsToRad(0.9926208 + 99.9970236 * T);
    M4 = turnsToRad(0.0538553 + 53.1662736 * T);
    M5 = turnsToRad(0.0548944 + 8.4290611 * T);
    M6 = turnsToRad(0.8811167 + 3.393525 * T);
    ownMultiples(M4, -2, 16);
    perturb(marsByVenus, M2);
    perturb(marsByEarth, M3);
    perturb(marsByJupiter, M5);
    perturb(marsBySaturn, M6);
    DL += 52.49 * std::sin(twoPi * (0.1868 + 0.0549 * T)) + 0.61 * std::sin(twoPi * (0.922 + 0.3307 * T)) +
          0.32 * std::sin(twoPi * (0.4731 + 2.1485 * T)) + 0.28 * std::sin(twoPi * (0.9467 + 1.1133 * T)) + 0.87 * T +
          0.14 - 0.11 * T * T;
    L = turnsToRad(0.9334591 + M4 / twoPi + ((6615.5 + 1.1 * T) * T + DL) / arcsecPerTurn);
    B = ((-2.92 - 0.1 * T) * T + 596.32 + DB) / arcsecPerRad;
    R = 1.5303352 + 1.31e-5 * T + 1e-6 * DR;
    return posvel();
}

Vec3 Plan200::Jupiter(double t)
{
    begin(t);
    M5 = turnsToRad(0.0565314 + 8.4302963 * T);
    M6 = turnsToRad(0.8829867 + 3.3947688 * T);
    M7 = turnsToRad(0.3969537 + 1.1902586 * T);
    ownMultiples(M5, -1, 5);
    perturb(jupiterBySaturn, M6);
    perturb(jupiterByUranus, M7);
    const double x = 2.0 * M5 - 6.0 * M6 + 3.0 * M7;
    const double c = std::cos(x);
    const double s = std::sin(x);
    const double cs = std::cos(x + M5);
    const double ss = std::sin(x + M5);
    DL += -0.8 * c + 8.5 * s + 0.4 * cs + 0.5 * ss;
    DR += -0.1 * c - 0.7 * cs + 0.5 * ss;
    DB -= 0.1 * cs;
    L = turnsToRad(0.038891 + M5 / twoPi + ((5025.2 + 0.8 * T) * T + DL) / arcsecPerTurn);
    B = (227.3 - 0.3 * T + DB) / arcsecPerRad;
    R = 5.208873 + 4.1e-5 * T + 1e-5 * DR;
    return posvel();
}

Vec3 Plan200::Saturn(double t)
{
    begin(t);
    M5 = turnsToRad(0.0565314 + 8.4302963 * T);
    M6 = turnsToRad(0.8829867 + 3.3947688 * T);
    M7 = turnsToRad(0.3969537 + 1.1902586 * T);
    M8 = turnsToRad(0.7208473 + 0.6068623 * T);
    ownMultiples(M6, 0, 11);
    perturb(saturnByJupiter, M5);
    perturb(saturnByUranus, M7);
    perturb(saturnByNeptune, M8);
    const double x = -2.0 * M5 + 5.0 * M6 - 3.0 * M7;
    const double c = std::cos(x);
    const double s = std::sin(x);
    const double c1 = std::cos(x + M6);
    const double s1 = std::sin(x + M6);
    const double c2 = std::cos(x + 2.0 * M6);
    const double s2 = std::sin(x + 2.0 * M6);
    DL += -0.8 * c - 0.1 * s + (2.4 - 0.7 * T) * c1 + (27.8 - 0.4 * T) * s1 + 0.1 * c2 + 1.6 * s2;
    DR += -0.2 * c + 1.8 * s + 2.1 * c1 - 0.2 * s1 - 3.6 * c2 + 0.3 * s2;
    DB += 0.3 * c + 0.5 * s - 0.2 * c2 + 0.6 * s2;
    L = turnsToRad(0.2561136 + M6 / twoPi + ((5018.6 + 1.9 * T) * T + DL) / arcsecPerTurn);
    B = (175.1 - 10.2 * T + DB) / arcsecPerRad;
    R = 9.557584 - 1.86e-4 * T + 1e-5 * DR;
    return posvel();
}

void Plan200::begin(double t)
{
    T = t;
    DL = DR = DB = 0.0;
}

void Plan200::ownMultiples(double anomaly, int lowest, int highest)
{
    fillMultiples(C1 + zero1, S1 + zero1, lowest, highest, anomaly);
}

template <std::size_t N>
void Plan200::perturb(const std::array<PerturbationTerm, N>& table, double anomaly)
{
    const auto [least, most] =
        std::minmax_element(table.begin(), table.end(), [](const auto& a, const auto& b) { return a.i < b.i; });
    fillMultiples(C + zero, S + zero, std::min<int>(least->i, 0), std::max<int>(most->i, 0), anomaly);
    for (const PerturbationTerm& row : table)
        term(row);
}

void Plan200::term(const PerturbationTerm& row)
{
    if (row.it == 0) {
        addthe(C1[zero1 + row.i1], S1[zero1 + row.i1], C[zero + row.i], S[zero + row.i], U, V);
    } else {
        U *= T;
        V *= T;
    }
    DL += row.dlc * U + row.dls * V;
    DR += row.drc * U + row.drs * V;
    DB += row.dbc * U + row.dbs * V;
}

Vec3 Plan200::posvel()
{
    place.assign(R * std::cos(L) * std::cos(B), R * std::sin(L) * std::cos(B), R * std::sin(B));
    return place;
}
