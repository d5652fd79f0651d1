#include "astro/sun_moon.h"

#include "astro/angles.h"
#include "astro/moon_terms.h"
#include "astro/sun_terms.h"

#include <cmath>

namespace {

constexpr double radPerArcsec = 4.8481368111e-6;  // not quite 1 / arcsecPerRad

}  // namespace

Vec3 Sun200::position(double t)
{
    T = t;
    DL = DR = DB = 0.0;
    meanArguments();
    fillMultiples(C3 + zero3, S3 + zero3, -1, 7, M3);
    pertven();
    pertmar();
    pertjup();
    pertsat();
    pertmoo();
    longPeriodTerms();
    return state();
}

void Sun200::meanArguments()
{
    M2 = turnsToRad(0.1387306 + 162.5485917 * T);
    M3 = turnsToRad(0.9931266 + 99.9973604 * T);
    M4 = turnsToRad(0.054325 + 53.1666028 * T);
    M5 = turnsToRad(0.055175 + 8.4293972 * T);
    M6 = turnsToRad(0.88165 + 3.3938722 * T);
    D = turnsToRad(0.8274 + 1236.8531 * T);
    A = turnsToRad(0.3749 + 1325.5524 * T);
    U = turnsToRad(0.2591 + 1342.2278 * T);
}

void Sun200::term(const PerturbationTerm& row)
{
    if (row.it == 0) {
        addthe(C3[zero3 + row.i1], S3[zero3 + row.i1], C[zero + row.i], S[zero + row.i], u, v);
    } else {
        u *= T;
        v *= T;
    }
    DL += row.dlc * u + row.dls * v;
    DR += row.drc * u + row.drs * v;
    DB += row.dbc * u + row.dbs * v;
}

template <class Table>
void Sun200::perturb(const Table& table, double anomaly, int lowest)
{
    fillMultiples(C + zero, S + zero, lowest, 0, anomaly);
    for (const PerturbationTerm& row : table)
        term(row);
}

void Sun200::pertven()
{
    perturb(sunByVenus, M2, -6);
}

void Sun200::pertmar()
{
    perturb(sunByMars, M4, -8);
}

void Sun200::pertjup()
{
    perturb(sunByJupiter, M5, -4);
}

void Sun200::pertsat()
{
    perturb(sunBySaturn, M6, -2);
}

void Sun200::pertmoo()
{
    DL += 6.45 * std::sin(D) - 0.42 * std::sin(D - A) + 0.18 * std::sin(D + A) + 0.17 * std::sin(D - M3) -
          0.06 * std::sin(D + M3);
    DR += 30.76 * std::cos(D) - 3.06 * std::cos(D - A) + 0.85 * std::cos(D + A) - 0.58 * std::cos(D + M3) +
          0.57 * std::cos(D - M3);
    DB += 0.576 * std::sin(U);
}

void Sun200::longPeriodTerms()
{
    DL += 6.4 * std::sin(twoPi * (0.6983 + 0.0561 * T)) + 1.87 * std::sin(twoPi * (0.5764 + 0.4174 * T)) +
          0.27 * std::sin(twoPi * (0.4189 + 0.3306 * T)) + 0.2 * std::sin(twoPi * (0.3581 + 2.4814 * T));
}

Vec3 Sun200::state() const
{
    const double l = turnsToRad(0.7859453 + M3 / twoPi + ((6191.2 + 1.1 * T) * T + DL) / arcsecPerTurn);
    const double R = 1.0001398 - 7e-7 * T + 1e-6 * DR;
    const double b = radPerArcsec * DB;
    return {R * std::cos(l) * std::cos(b), R * std::sin(l) * std::cos(b), R * std::sin(b)};
}

Vec3 Moon200::position(double t)
{
    minit(t);
    solar1();
    solar2();
    solar3();
    solarn();
    planetary(t);
    S = F + DS / arcsecPerRad;
    double longitude = turnsToRad((L0 + DLAM / arcsecPerRad) / twoPi);
    if (longitude < 0)
        longitude += twoPi;
    const double latitude =
        ((18519.7 + GAM1C) * (1.000002708 + 139.978 * DGAM) * std::sin(S) - 6.24 * std::sin(3.0 * S) + N) *
        radPerArcsec;
    SINPI *= 0.999953253;
    return polcar(Vec3(arcsecPerRad / SINPI, longitude, latitude));
}

double Moon200::sinus(double revolutions)
{
    return std::sin(turnsToRad(revolutions));
}

void Moon200::long_periodic(double t)
{
    const double S1 = sinus(0.19833 + 0.05611 * t);
    const double S2 = sinus(0.27869 + 0.04508 * t);
    const double S3 = sinus(0.16827 - 0.36903 * t);
    const double S4 = sinus(0.34734 - 5.37261 * t);
    const double S5 = sinus(0.10498 - 5.37899 * t);
    const double S6 = sinus(0.42681 - 0.41855 * t);
    const double S7 = sinus(0.14943 - 5.37511 * t);
    DL0 = 0.84 * S1 + 0.31 * S2 + 14.27 * S3 + 7.26 * S4 + 0.28 * S5 + 0.24 * S6;
    DL = 2.94 * S1 + 0.31 * S2 + 14.27 * S3 + 9.34 * S4 + 1.12 * S5 + 0.83 * S6;
    DLS = -6.4 * S1 - 1.89 * S6;
    DF = 0.21 * S1 + 0.31 * S2 + 14.27 * S3 - 88.7 * S4 - 15.3 * S5 + 0.24 * S6 - 1.86 * S7;
    DD = DL0 - DLS;
    DGAM = -3.332e-6 * sinus(0.59734 - 5.37261 * t) - 5.39e-7 * sinus(0.35498 - 5.37899 * t) -
           6.4e-8 * sinus(0.39943 - 5.37511 * t);
}

void Moon200::minit(double t)
{
    DLAM = DS = GAM1C = 0.0;
    SINPI = 3422.7;
    long_periodic(t);
    meanElements(t);
    fillTables(t);
}

void Moon200::meanElements(double t)
{
    const double t2 = t * t;
    L0 = turnsToRad(0.60643382 + 1336.85522467 * t - 3.13e-6 * t2) + DL0 / arcsecPerRad;
    L = turnsToRad(0.37489701 + 1325.55240982 * t + 2.565e-5 * t2) + DL / arcsecPerRad;
    LS = turnsToRad(0.99312619 + 99.99735956 * t - 4.4e-7 * t2) + DLS / arcsecPerRad;
    F = turnsToRad(0.25909118 + 1342.2278298 * t - 8.92e-6 * t2) + DF / arcsecPerRad;
    D = turnsToRad(0.82736186 + 1236.85308708 * t - 3.97e-6 * t2) + DD / arcsecPerRad;
}

void Moon200::fillTables(double t)
{
    const struct
    {
        double argument;
        int limit;
        double factor;
    } columns[4] = {{L, 4, 1.000002208},
                    {LS, 3, 0.997504612 - 0.002495388 * t},
                    {F, 4, 1.000002708 + 139.978 * DGAM},
                    {D, 6, 1.0}};
    for (int i = 1; i <= 4; ++i) {
        const auto& column = columns[i - 1];
        CO[zero][i] = 1.0;
        SI[zero][i] = 0.0;
        CO[zero + 1][i] = std::cos(column.argument) * column.factor;
        SI[zero + 1][i] = std::sin(column.argument) * column.factor;
        for (int k = 2; k <= column.limit; ++k)
            addthe(CO[zero + k - 1][i], SI[zero + k - 1][i], CO[zero + 1][i], SI[zero + 1][i], CO[zero + k][i],
                   SI[zero + k][i]);
        for (int k = 1; k <= column.limit; ++k) {
            CO[zero - k][i] = CO[zero + k][i];
            SI[zero - k][i] = -SI[zero + k][i];
        }
    }
}

void Moon200::term(int p, int q, int r, int s, double& x, double& y) const
{
    x = 1.0;
    y = 0.0;
    if (p != 0)
        addthe(x, y, CO[zero + p][1], SI[zero + p][1], x, y);
    if (q != 0)
        addthe(x, y, CO[zero + q][2], SI[zero + q][2], x, y);
    if (r != 0)
        addthe(x, y, CO[zero + r][3], SI[zero + r][3], x, y);
    if (s != 0)
        addthe(x, y, CO[zero + s][4], SI[zero + s][4], x, y);
}

void Moon200::addsol(double cl, double cs, double cg, double cp, int p, int q, int r, int s)
{
    double x, y;
    term(p, q, r, s, x, y);
    DLAM += cl * y;
    DS += cs * y;
    GAM1C += cg * x;
    SINPI += cp * x;
}

void Moon200::solar1()
{
    for (const MoonTerm& row : moonSolar1)
        addsol(row.cl, row.cs, row.cg, row.cp, row.p, row.q, row.r, row.s);
}

void Moon200::solar2()
{
    for (const MoonTerm& row : moonSolar2)
        addsol(row.cl, row.cs, row.cg, row.cp, row.p, row.q, row.r, row.s);
}

void Moon200::solar3()
{
    for (const MoonTerm& row : moonSolar3)
        addsol(row.cl, row.cs, row.cg, row.cp, row.p, row.q, row.r, row.s);
}

void Moon200::addn(double c, int p, int q, int r, int s)
{
    double x, y;
    term(p, q, r, s, x, y);
    N += c * y;
}

void Moon200::solarn()
{
    N = 0.0;
    addn(-526.069, 0, 0, 1, -2);
    addn(-3.352, 0, 0, 1, -4);
    addn(44.297, 1, 0, 1, -2);
    addn(-6.0, 1, 0, 1, -4);
    addn(20.599, -1, 0, 1, 0);
    addn(-30.598, -1, 0, 1, -2);
    addn(-24.649, -2, 0, 1, 0);
    addn(-2.0, -2, 0, 1, -2);
    addn(-22.571, 0, 1, 1, -2);
    addn(10.985, 0, -1, 1, -2);
}

void Moon200::planetary(double t)
{
    DLAM += 0.82 * sinus(0.7736 - 62.5512 * t) + 0.31 * sinus(0.0466 - 125.1025 * t) +
            0.35 * sinus(0.5785 - 25.1042 * t) + 0.66 * sinus(0.4591 + 1335.8075 * t) +
            0.64 * sinus(0.313 - 91.568 * t) + 1.14 * sinus(0.148 + 1331.2898 * t) +
            0.21 * sinus(0.5918 + 1056.5859 * t) + 0.44 * sinus(0.5784 + 1322.8595 * t) +
            0.24 * sinus(0.2275 - 5.7374 * t) + 0.28 * sinus(0.2965 + 2.6929 * t) + 0.33 * sinus(0.3132 + 6.3368 * t);
}
