#include "orbit/deep_space.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

#include "astro/angles.h"
#include "orbit/resonance_table.h"
#include "orbit/turn.h"

namespace {

constexpr double rptim = 0.0043752690880113;  // rotation of the Earth, radians per minute
constexpr double stepMin = 720.0;
constexpr double step2 = 259200.0;  // stepMin^2 / 2

/// A perturbing body: its mean motion in radians per minute, the eccentricity of its orbit, the strength of its pull.
struct Body
{
    double zn, ze, cc;
};

constexpr Body sun{1.19459e-5, 0.01675, 2.9864797e-6};
constexpr Body moon{0.00015835218, 0.0549, 4.7968065e-7};

/// The orbit of a body seen from that of the satellite: perigee, inclination, difference of the nodes.
struct BodyOrbit
{
    double zcosg, zsing, zcosi, zsini, zcosh, zsinh;
};

/// The products of the geometry of satellite and body on which all its coefficients rest.
struct BodyTerms
{
    double s1, s2, s3, s4, s5, s6, s7;
    double z1, z2, z3, z11, z12, z13, z21, z22, z23, z31, z32, z33;
};

/// Secular rates by one body.
struct BodyRates
{
    double e, i, l, gh, h;
};

/// Coefficients of the periodics by one body.
struct BodyPeriodics
{
    double e2, e3, i2, i3, l2, l3, l4, gh2, gh3, gh4, h2, h3;
};

/// The periodics by one body at one instant.
struct BodyEffect
{
    double e, i, l, gh, h;
};

BodyOrbit sunOrbit(const DeepSpaceEpoch& at)
{
    return {.zcosg = 0.1945905,
            .zsing = -0.98088458,
            .zcosi = 0.91744867,
            .zsini = 0.39785416,
            .zcosh = at.cnodm,
            .zsinh = at.snodm};
}

/// `gam` is the mean longitude of the lunar perigee.
BodyOrbit moonOrbit(const DeepSpaceEpoch& at, double day, double gam)
{
    const double xnodce = std::fmod(4.523602 - 0.00092422029 * day, twoPi);
    const double stem = std::sin(xnodce);
    const double ctem = std::cos(xnodce);
    const double zcosil = 0.91375164 - 0.03568096 * ctem;
    const double zsinil = std::max(std::sqrt(1.0 - zcosil * zcosil), 1e-40);
    const double zsinhl = 0.089683511 * stem / zsinil;
    const double zcoshl = std::sqrt(1.0 - zsinhl * zsinhl);
    const double zx =
        std::atan2(0.39785416 * stem / zsinil, zcoshl * ctem + 0.91744867 * zsinhl * stem) + gam - xnodce;
    return {.zcosg = std::cos(zx),
            .zsing = std::sin(zx),
            .zcosi = zcosil,
            .zsini = zsinil,
            .zcosh = zcoshl * at.cnodm + zsinhl * at.snodm,
            .zsinh = at.snodm * zcoshl - at.cnodm * zsinhl};
}

/// One round of the loop of `dscom`.
BodyTerms bodyTerms(const DeepSpaceEpoch& at, const elsetrec& sat, const BodyOrbit& b, double cc)
{
    const double a1 = b.zcosg * b.zcosh + b.zsing * b.zcosi * b.zsinh;
    const double a3 = -b.zsing * b.zcosh + b.zcosg * b.zcosi * b.zsinh;
    const double a7 = -b.zcosg * b.zsinh + b.zsing * b.zcosi * b.zcosh;
    const double a8 = b.zsing * b.zsini;
    const double a9 = b.zsing * b.zsinh + b.zcosg * b.zcosi * b.zcosh;
    const double a10 = b.zcosg * b.zsini;
    const double a2 = at.cosim * a7 + at.sinim * a8;
    const double a4 = at.cosim * a9 + at.sinim * a10;
    const double a5 = -at.sinim * a7 + at.cosim * a8;
    const double a6 = -at.sinim * a9 + at.cosim * a10;

    const double x1 = a1 * at.cosomm + a2 * at.sinomm;
    const double x2 = a3 * at.cosomm + a4 * at.sinomm;
    const double x3 = -a1 * at.sinomm + a2 * at.cosomm;
    const double x4 = -a3 * at.sinomm + a4 * at.cosomm;
    const double x5 = a5 * at.sinomm;
    const double x6 = a6 * at.sinomm;
    const double x7 = a5 * at.cosomm;
    const double x8 = a6 * at.cosomm;

    const double emsq = at.emsq;
    const double betasq = 1.0 - emsq;
    BodyTerms t;
    t.z31 = 12.0 * x1 * x1 - 3.0 * x3 * x3;
    t.z32 = 24.0 * x1 * x2 - 6.0 * x3 * x4;
    t.z33 = 12.0 * x2 * x2 - 3.0 * x4 * x4;
    t.z1 = 3.0 * (a1 * a1 + a2 * a2) + t.z31 * emsq;
    t.z2 = 6.0 * (a1 * a3 + a2 * a4) + t.z32 * emsq;
    t.z3 = 3.0 * (a3 * a3 + a4 * a4) + t.z33 * emsq;
    t.z11 = -6.0 * a1 * a5 + emsq * (-24.0 * x1 * x7 - 6.0 * x3 * x5);
    t.z12 = -6.0 * (a1 * a6 + a3 * a5) + emsq * (-24.0 * (x2 * x7 + x1 * x8) - 6.0 * (x3 * x6 + x4 * x5));
    t.z13 = -6.0 * a3 * a6 + emsq * (-24.0 * x2 * x8 - 6.0 * x4 * x6);
    t.z21 = 6.0 * a2 * a5 + emsq * (24.0 * x1 * x5 - 6.0 * x3 * x7);
    t.z22 = 6.0 * (a4 * a5 + a2 * a6) + emsq * (24.0 * (x2 * x5 + x1 * x6) - 6.0 * (x4 * x7 + x3 * x8));
    t.z23 = 6.0 * a4 * a6 + emsq * (24.0 * x2 * x6 - 6.0 * x4 * x8);
    t.z1 = t.z1 + t.z1 + betasq * t.z31;
    t.z2 = t.z2 + t.z2 + betasq * t.z32;
    t.z3 = t.z3 + t.z3 + betasq * t.z33;
    t.s3 = cc * (1.0 / sat.no);
    t.s2 = -0.5 * t.s3 / at.rtemsq;
    t.s4 = t.s3 * at.rtemsq;
    t.s1 = -15.0 * sat.ecco * t.s4;
    t.s5 = x1 * x3 + x2 * x4;
    t.s6 = x2 * x3 + x1 * x4;
    t.s7 = x2 * x4 - x1 * x3;
    return t;
}

BodyPeriodics bodyPeriodics(const BodyTerms& t, double emsq, double ze)
{
    return {.e2 = 2.0 * t.s1 * t.s6,
            .e3 = 2.0 * t.s1 * t.s7,
            .i2 = 2.0 * t.s2 * t.z12,
            .i3 = 2.0 * t.s2 * (t.z13 - t.z11),
            .l2 = -2.0 * t.s3 * t.z2,
            .l3 = -2.0 * t.s3 * (t.z3 - t.z1),
            .l4 = -2.0 * t.s3 * (-21.0 - 9.0 * emsq) * ze,
            .gh2 = 2.0 * t.s4 * t.z32,
            .gh3 = 2.0 * t.s4 * (t.z33 - t.z31),
            .gh4 = -18.0 * t.s4 * ze,
            .h2 = -2.0 * t.s2 * t.z22,
            .h3 = -2.0 * t.s2 * (t.z23 - t.z21)};
}

void storeSolar(const BodyPeriodics& p, elsetrec& sat)
{
    sat.se2 = p.e2;
    sat.se3 = p.e3;
    sat.si2 = p.i2;
    sat.si3 = p.i3;
    sat.sl2 = p.l2;
    sat.sl3 = p.l3;
    sat.sl4 = p.l4;
    sat.sgh2 = p.gh2;
    sat.sgh3 = p.gh3;
    sat.sgh4 = p.gh4;
    sat.sh2 = p.h2;
    sat.sh3 = p.h3;
}

void storeLunar(const BodyPeriodics& p, elsetrec& sat)
{
    sat.ee2 = p.e2;
    sat.e3 = p.e3;
    sat.xi2 = p.i2;
    sat.xi3 = p.i3;
    sat.xl2 = p.l2;
    sat.xl3 = p.l3;
    sat.xl4 = p.l4;
    sat.xgh2 = p.gh2;
    sat.xgh3 = p.gh3;
    sat.xgh4 = p.gh4;
    sat.xh2 = p.h2;
    sat.xh3 = p.h3;
}

BodyRates bodyRates(const BodyTerms& t, const elsetrec& sat, double emsq, double zn)
{
    const bool nearEquator = sat.inclo < 0.052359877 || sat.inclo > std::numbers::pi - 0.052359877;
    return {.e = t.s1 * zn * t.s5,
            .i = t.s2 * zn * (t.z11 + t.z13),
            .l = -zn * t.s3 * (t.z1 + t.z3 - 14.0 - 6.0 * emsq),
            .gh = t.s4 * zn * (t.z31 + t.z33 - 6.0),
            .h = nearEquator ? 0.0 : -zn * t.s2 * (t.z21 + t.z23)};
}

void secularRates(const DeepSpaceEpoch& at, const BodyRates& s, const BodyRates& l, elsetrec& sat)
{
    const bool tilted = at.sinim != 0.0;
    const double shs = tilted ? s.h / at.sinim : s.h;
    const double sgs = s.gh - at.cosim * shs;
    sat.dedt = s.e + l.e;
    sat.didt = s.i + l.i;
    sat.dmdt = s.l + l.l;
    sat.domdt = sgs + l.gh;
    sat.dnodt = shs;
    if (tilted) {
        sat.domdt = sat.domdt - at.cosim / at.sinim * l.h;
        sat.dnodt = sat.dnodt + l.h / at.sinim;
    }
}

int resonanceClass(const elsetrec& sat)
{
    if (sat.no > 0.0034906585 && sat.no < 0.0052359877)
        return 1;
    if (sat.no >= 0.00826 && sat.no <= 0.00924 && sat.ecco >= 0.5)
        return 2;
    return 0;
}

/// The inclination functions of the half-day resonance, each with the function of the eccentricity that goes with it.
struct HalfDayFunctions
{
    double f220, f221, f321, f322, f441, f442, f522, f523, f542, f543;
    double g201, g211, g310, g322, g410, g422, g520, g533, g521, g532;
};

void inclinationFunctions(double sinim, double cosim, HalfDayFunctions& f)
{
    const double cosisq = cosim * cosim;
    const double sini2 = sinim * sinim;
    f.f220 = 0.75 * (1.0 + 2.0 * cosim + cosisq);
    f.f221 = 1.5 * sini2;
    f.f321 = 1.875 * sinim * (1.0 - 2.0 * cosim - 3.0 * cosisq);
    f.f322 = -1.875 * sinim * (1.0 + 2.0 * cosim - 3.0 * cosisq);
    f.f441 = 35.0 * sini2 * f.f220;
    f.f442 = 39.375 * sini2 * sini2;
    f.f522 = 9.84375 * sinim *
             (sini2 * (1.0 - 2.0 * cosim - 5.0 * cosisq) + 0.33333333 * (-2.0 + 4.0 * cosim + 6.0 * cosisq));
    f.f523 = sinim * (4.92187512 * sini2 * (-2.0 - 4.0 * cosim + 10.0 * cosisq) +
                      6.56250012 * (1.0 + 2.0 * cosim - 3.0 * cosisq));
    f.f542 = 29.53125 * sinim * (2.0 - 8.0 * cosim + cosisq * (-12.0 + 8.0 * cosim + 10.0 * cosisq));
    f.f543 = 29.53125 * sinim * (-2.0 - 8.0 * cosim + cosisq * (12.0 + 8.0 * cosim - 10.0 * cosisq));
}

void eccentricityFunctions(double em, double emsq, HalfDayFunctions& f)
{
    const double eoc = em * emsq;
    const auto cubic = [=](const EccentricityCubic& g) { return g.c0 + g.c1 * em + g.c2 * emsq + g.c3 * eoc; };
    const bool low = em <= 0.65;
    f.g201 = -0.306 - (em - 0.64) * 0.44;
    f.g211 = cubic(low ? g211Low : g211High);
    f.g310 = cubic(low ? g310Low : g310High);
    f.g322 = cubic(low ? g322Low : g322High);
    f.g410 = cubic(low ? g410Low : g410High);
    f.g422 = cubic(low ? g422Low : g422High);
    f.g520 = cubic(low ? g520Low : em <= 0.715 ? g520Middle : g520High);
    const bool below07 = em < 0.7;
    f.g533 = cubic(below07 ? g533Low : g533High);
    f.g521 = cubic(below07 ? g521Low : g521High);
    f.g532 = cubic(below07 ? g532Low : g532High);
}

void initHalfDay(const DeepSpaceEpoch& at, elsetrec& sat)
{
    constexpr double root22 = 1.7891679e-6, root32 = 3.7393792e-7, root44 = 7.3636953e-9;
    constexpr double root52 = 1.1428639e-7, root54 = 2.1765803e-9;
    HalfDayFunctions f;
    inclinationFunctions(at.sinim, at.cosim, f);
    eccentricityFunctions(sat.ecco, at.emsq, f);

    const double aonv = std::pow(sat.no / at.xke, 2.0 / 3.0);
    double temp1 = 3.0 * (sat.no * sat.no) * (aonv * aonv);
    double temp = temp1 * root22;
    sat.d2201 = temp * f.f220 * f.g201;
    sat.d2211 = temp * f.f221 * f.g211;
    temp1 = temp1 * aonv;
    temp = temp1 * root32;
    sat.d3210 = temp * f.f321 * f.g310;
    sat.d3222 = temp * f.f322 * f.g322;
    temp1 = temp1 * aonv;
    temp = 2.0 * temp1 * root44;
    sat.d4410 = temp * f.f441 * f.g410;
    sat.d4422 = temp * f.f442 * f.g422;
    temp1 = temp1 * aonv;
    temp = temp1 * root52;
    sat.d5220 = temp * f.f522 * f.g520;
    sat.d5232 = temp * f.f523 * f.g532;
    temp = 2.0 * temp1 * root54;
    sat.d5421 = temp * f.f542 * f.g521;
    sat.d5433 = temp * f.f543 * f.g533;

    const double theta = std::fmod(sat.gsto, twoPi);
    sat.xlamo = std::fmod(sat.mo + sat.nodeo + sat.nodeo - theta - theta, twoPi);
    sat.xfact = sat.mdot + sat.dmdt + 2.0 * (sat.nodedot + sat.dnodt - rptim) - sat.no;
}

void initOneDay(const DeepSpaceEpoch& at, elsetrec& sat)
{
    constexpr double q22 = 1.7891679e-6, q31 = 2.1460748e-6, q33 = 2.2123015e-7;
    const double emsq = at.emsq;
    const double opc = 1.0 + at.cosim;
    const double g200 = 1.0 + emsq * (-2.5 + 0.8125 * emsq);
    const double g310 = 1.0 + 2.0 * emsq;
    const double g300 = 1.0 + emsq * (-6.0 + 6.60937 * emsq);
    const double f220 = 0.75 * opc * opc;
    const double f311 = 0.9375 * at.sinim * at.sinim * (1.0 + 3.0 * at.cosim) - 0.75 * opc;
    const double f330 = 1.875 * opc * opc * opc;

    const double aonv = std::pow(sat.no / at.xke, 2.0 / 3.0);
    const double common = 3.0 * sat.no * sat.no * aonv * aonv;
    sat.del2 = 2.0 * common * f220 * g200 * q22;
    sat.del3 = 3.0 * common * f330 * g300 * q33 * aonv;
    sat.del1 = common * f311 * g310 * q31 * aonv;

    const double theta = std::fmod(sat.gsto, twoPi);
    sat.xlamo = std::fmod(sat.mo + sat.nodeo + sat.argpo - theta, twoPi);
    sat.xfact = sat.mdot + (sat.argpdot + sat.nodedot) - rptim + sat.dmdt + sat.domdt + sat.dnodt - sat.no;
}

/// Rates of the resonance integrator.
struct ResonanceRates
{
    double xndt, xnddt, xldot;
};

ResonanceRates oneDayRates(const elsetrec& sat)
{
    const double x1 = sat.xli - 0.13130908;
    const double x2 = 2.0 * (sat.xli - 2.8843198);
    const double x3 = 3.0 * (sat.xli - 0.37448087);
    const double xldot = sat.xni + sat.xfact;
    const double xndt = sat.del1 * std::sin(x1) + sat.del2 * std::sin(x2) + sat.del3 * std::sin(x3);
    const double xnddt = sat.del1 * std::cos(x1) + 2.0 * sat.del2 * std::cos(x2) + 3.0 * sat.del3 * std::cos(x3);
    return {xndt, xnddt * xldot, xldot};
}

/// A term of the half-day resonance, and its derivative by the angle.
struct HalfDayTerm
{
    HalfDayTerm(double d, double angle) : s(d * std::sin(angle)), c(d * std::cos(angle)) {}

    double s, c;
};

ResonanceRates halfDayRates(const elsetrec& sat)
{
    constexpr double g22 = 5.7686396, g32 = 0.95240898, g44 = 1.8014998, g52 = 1.050833, g54 = 4.4108898;
    const double xomi = sat.argpo + sat.argpdot * sat.atime;
    const double x2omi = xomi + xomi;
    const double xli = sat.xli;
    const double x2li = xli + xli;
    const HalfDayTerm t2201(sat.d2201, x2omi + xli - g22), t2211(sat.d2211, xli - g22);
    const HalfDayTerm t3210(sat.d3210, xomi + xli - g32), t3222(sat.d3222, -xomi + xli - g32);
    const HalfDayTerm t4410(sat.d4410, x2omi + x2li - g44), t4422(sat.d4422, x2li - g44);
    const HalfDayTerm t5220(sat.d5220, xomi + xli - g52), t5232(sat.d5232, -xomi + xli - g52);
    const HalfDayTerm t5421(sat.d5421, xomi + x2li - g54), t5433(sat.d5433, -xomi + x2li - g54);

    const double xldot = sat.xni + sat.xfact;
    const double xndt =
        t2201.s + t2211.s + t3210.s + t3222.s + t4410.s + t4422.s + t5220.s + t5232.s + t5421.s + t5433.s;
    const double xnddt =
        t2201.c + t2211.c + t3210.c + t3222.c + t5220.c + t5232.c + 2.0 * (t4410.c + t4422.c + t5421.c + t5433.c);
    return {xndt, xnddt * xldot, xldot};
}

ResonanceRates resonanceRates(const elsetrec& sat)
{
    return sat.irez == 1 ? oneDayRates(sat) : halfDayRates(sat);
}

/// Everything that the resonance integration depends on besides the time.
struct ResonanceProblem
{
    explicit ResonanceProblem(const elsetrec& s)
        : irez(double(s.irez)),
          no(s.no),
          xlamo(s.xlamo),
          xfact(s.xfact),
          argpo(s.argpo),
          argpdot(s.argpdot),
          oneDay{s.del1, s.del2, s.del3},
          halfDay{s.d2201, s.d2211, s.d3210, s.d3222, s.d4410, s.d4422, s.d5220, s.d5232, s.d5421, s.d5433}
    {}
    constexpr ResonanceProblem() = default;

    bool operator==(const ResonanceProblem&) const = default;

    double irez = 0, no = 0, xlamo = 0, xfact = 0, argpo = 0, argpdot = 0;
    std::array<double, 3> oneDay{};
    std::array<double, 10> halfDay{};
};

/// How far the last resonance integration went. Every one starts from epoch and takes the same steps, so that a later
/// time of the same problem is reached from here too, with the same figures.
struct LastResonance
{
    ResonanceProblem problem;  // of no orbit, while its irez is 0
    double atime = 0, xli = 0, xni = 0;
    ResonanceRates rate{};
};

constinit thread_local LastResonance lastResonance;

/// Whether `t` lies beyond the end of the last integration, seen from epoch.
bool liesBeyond(double t, double atime)
{
    return atime == 0.0 || (atime > 0.0 ? t >= atime : t <= atime);
}

/// The steps of the resonance integration from epoch to less than a step from `sat.t`; gives the rates there.
ResonanceRates stepResonance(elsetrec& sat)
{
    LastResonance& last = lastResonance;
    const ResonanceProblem problem(sat);
    const double t = sat.t;
    if (last.problem != problem || !liesBeyond(t, last.atime)) {
        sat.xni = sat.no;
        sat.xli = sat.xlamo;
        last = {problem, 0.0, sat.xli, sat.xni, resonanceRates(sat)};
    }
    sat.atime = last.atime;
    sat.xli = last.xli;
    sat.xni = last.xni;
    ResonanceRates rate = last.rate;
    if (!(std::abs(t - sat.atime) >= stepMin))
        return rate;
    const double delt = t > 0.0 ? stepMin : -stepMin;
    while (std::abs(t - sat.atime) >= stepMin) {
        sat.xli += rate.xldot * delt + rate.xndt * step2;
        sat.xni += rate.xndt * delt + rate.xnddt * step2;
        sat.atime += delt;
        rate = resonanceRates(sat);
    }
    last = {problem, sat.atime, sat.xli, sat.xni, rate};
    return rate;
}

/// The resonance integration from epoch to `sat.t`; gives mean motion and mean anomaly.
void integrateResonance(elsetrec& sat, Sgp4Elements& mean)
{
    const double t = sat.t;
    const double theta = withinTurn(sat.gsto + t * rptim);
    const ResonanceRates rate = stepResonance(sat);
    const double ft = t - sat.atime;
    const double n = sat.xni + rate.xndt * ft + rate.xnddt * ft * ft / 2.0;
    const double xl = sat.xli + rate.xldot * ft + rate.xndt * ft * ft / 2.0;
    mean.m = sat.irez == 1 ? xl - mean.node - mean.argp + theta : xl - 2.0 * mean.node + 2.0 * theta;
    mean.n = sat.no + (n - sat.no);
}

BodyEffect bodyEffect(const BodyPeriodics& p, double zm, double ze)
{
    const double zf = zm + 2.0 * ze * std::sin(zm);
    const double sinzf = std::sin(zf);
    const double f2 = 0.5 * sinzf * sinzf - 0.25;
    const double f3 = -0.5 * sinzf * std::cos(zf);
    return {.e = p.e2 * f2 + p.e3 * f3,
            .i = p.i2 * f2 + p.i3 * f3,
            .l = p.l2 * f2 + p.l3 * f3 + p.l4 * sinzf,
            .gh = p.gh2 * f2 + p.gh3 * f3 + p.gh4 * sinzf,
            .h = p.h2 * f2 + p.h3 * f3};
}

BodyEffect solarEffect(const elsetrec& s)
{
    const BodyPeriodics p{s.se2, s.se3, s.si2, s.si3, s.sl2, s.sl3, s.sl4, s.sgh2, s.sgh3, s.sgh4, s.sh2, s.sh3};
    return bodyEffect(p, s.zmos + sun.zn * s.t, sun.ze);
}

BodyEffect lunarEffect(const elsetrec& s)
{
    const BodyPeriodics p{s.ee2, s.e3, s.xi2, s.xi3, s.xl2, s.xl3, s.xl4, s.xgh2, s.xgh3, s.xgh4, s.xh2, s.xh3};
    return bodyEffect(p, s.zmol + moon.zn * s.t, moon.ze);
}

void addDirectly(const BodyEffect& p, double sinip, double cosip, Sgp4Elements& el)
{
    const double ph = std::abs(sinip) > 1e-40 ? p.h / sinip : p.h;
    el.argp += p.gh - cosip * ph;
    el.node += ph;
    el.m += p.l;
}

/// Lyddane's modification for small inclinations.
void addByLyddane(const BodyEffect& p, double sinip, double cosip, Sgp4Elements& el)
{
    const double sinop = std::sin(el.node);
    const double cosop = std::cos(el.node);
    const double alfdp = sinip * sinop + p.h * cosop + p.i * cosip * sinop;
    const double betdp = sinip * cosop - p.h * sinop + p.i * cosip * cosop;
    const double xnoh = withinTurn(el.node);
    const double xls = el.m + el.argp + cosip * xnoh + p.l + p.gh - p.i * xnoh * sinip;
    el.node = std::atan2(alfdp, betdp);
    if (std::abs(xnoh - el.node) > std::numbers::pi)
        el.node += el.node < xnoh ? twoPi : -twoPi;
    el.m += p.l;
    el.argp = xls - el.m - cosip * el.node;
}

}  // namespace

void initDeepSpace(const DeepSpaceEpoch& at, elsetrec& sat)
{
    const double day = at.epoch + 18261.5;
    const double gam = 5.8351514 + 0.001944368 * day;
    const BodyTerms solar = bodyTerms(at, sat, sunOrbit(at), sun.cc);
    const BodyTerms lunar = bodyTerms(at, sat, moonOrbit(at, day, gam), moon.cc);
    sat.zmol = std::fmod(4.7199672 + 0.2299715 * day - gam, twoPi);
    sat.zmos = std::fmod(6.2565837 + 0.017201977 * day, twoPi);
    storeSolar(bodyPeriodics(solar, at.emsq, sun.ze), sat);
    storeLunar(bodyPeriodics(lunar, at.emsq, moon.ze), sat);
    secularRates(at, bodyRates(solar, sat, at.emsq, sun.zn), bodyRates(lunar, sat, at.emsq, moon.zn), sat);

    sat.irez = resonanceClass(sat);
    if (sat.irez == 2)
        initHalfDay(at, sat);
    if (sat.irez == 1)
        initOneDay(at, sat);
    sat.xli = sat.xlamo;
    sat.atime = 0.0;
    sat.xni = sat.no;
}

void dspace(elsetrec& sat, Sgp4Elements& mean, ModelForm form)
{
    const double t = sat.t;
    mean.e += sat.dedt * t;
    mean.i += sat.didt * t;
    mean.argp += sat.domdt * t;
    mean.node += sat.dnodt * t;
    mean.m += sat.dmdt * t;
    if (mean.i < 0.0 && form == ModelForm::early) {
        mean.i = -mean.i;
        mean.argp -= std::numbers::pi;
        mean.node += std::numbers::pi;
    }
    sat.atime = 0.0;
    if (sat.irez == 0)
        return;
    if (std::abs(t) < resonanceLimitMin)
        integrateResonance(sat, mean);
    else
        mean.n = mean.m = std::numeric_limits<double>::quiet_NaN();
}

SineCosine dpper(const elsetrec& sat, Sgp4Elements& el)
{
    const BodyEffect solar = solarEffect(sat);
    const BodyEffect lunar = lunarEffect(sat);
    const BodyEffect p{.e = solar.e + lunar.e - sat.peo,
                       .i = solar.i + lunar.i - sat.pinco,
                       .l = solar.l + lunar.l - sat.plo,
                       .gh = solar.gh + lunar.gh - sat.pgho,
                       .h = solar.h + lunar.h - sat.pho};
    el.i += p.i;
    el.e += p.e;
    const SineCosine inc{std::sin(el.i), std::cos(el.i)};
    if (el.i >= 0.2)
        addDirectly(p, inc.sine, inc.cosine, el);
    else
        addByLyddane(p, inc.sine, inc.cosine, el);
    return inc;
}
