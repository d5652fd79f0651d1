#include "orbit/sgp4.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "astro/angles.h"
#include "orbit/deep_space.h"

elsetrec satrec;

namespace {

struct GravityConstants
{
    double tumin, radiusearthkm, xke, j2, j3, j4, j3oj2;
};

constexpr GravityConstants constants72{.tumin = 13.446839696959309,
                                       .radiusearthkm = 6378.135,
                                       .xke = 0.07436691613317342,
                                       .j2 = 0.001082616,
                                       .j3 = -2.53881e-6,
                                       .j4 = -1.65597e-6,
                                       .j3oj2 = -2.53881e-6 / 0.001082616};

constexpr GravityConstants constants84{.tumin = 13.446851082044981,
                                       .radiusearthkm = 6378.137,
                                       .xke = 0.07436685316871385,
                                       .j2 = 0.00108262998905,
                                       .j3 = -2.53215306e-6,
                                       .j4 = -1.61098761e-6,
                                       .j3oj2 = -2.53215306e-6 / 0.00108262998905};

constexpr double x2o3 = 2.0 / 3.0;

const GravityConstants& gravityConstants(gravconsttype whichconst)
{
    return whichconst == wgs72 ? constants72 : constants84;
}

double cubeOfOnePlus(double x)
{
    return std::pow(1.0 + x, 3.0);
}

double longPeriodY(const GravityConstants& g, double sini)
{
    return -0.5 * g.j3oj2 * sini;
}

double longPeriodL(const GravityConstants& g, double sini, double cosi)
{
    const double opc = 1.0 + cosi;
    const double divisor = std::abs(opc) > 1.5e-12 ? opc : 1.5e-12;  // an inclination of 180 degrees
    return -0.25 * g.j3oj2 * sini * (3.0 + 5.0 * cosi) / divisor;
}

/// What stage `initl` hands on.
struct EpochOrbit
{
    double eccsq, omeosq, rteosq;        // e^2, 1 - e^2 and its root
    double sinio, cosio, cosio2, con42;  // of the inclination
    double ao, po, posq, rp;             // axis, parameter, its square, perigee
};

/// The limits of the atmosphere, Earth radii, and (q0 - s)^4.
struct Atmosphere
{
    double sfour, qzms24;
};

/// What the drag coefficients share.
struct DragGeometry
{
    double tsi, eeta, coef, coef1, cc3, sfour;
};

EpochOrbit initl(const GravityConstants& g, double epoch, elsetrec& sat)
{
    EpochOrbit o;
    o.eccsq = sat.ecco * sat.ecco;
    o.omeosq = 1.0 - o.eccsq;
    o.rteosq = std::sqrt(o.omeosq);
    o.cosio = std::cos(sat.inclo);
    o.cosio2 = o.cosio * o.cosio;

    const double ak = std::pow(g.xke / sat.no, x2o3);
    const double d1 = 0.75 * g.j2 * (3.0 * o.cosio2 - 1.0) / (o.rteosq * o.omeosq);
    double del = d1 / (ak * ak);
    const double adel = ak * (1.0 - del * del - del * (1.0 / 3.0 + 134.0 * del * del / 81.0));
    del = d1 / (adel * adel);
    sat.no = sat.no / (1.0 + del);

    o.ao = std::pow(g.xke / sat.no, x2o3);
    o.sinio = std::sin(sat.inclo);
    o.po = o.ao * o.omeosq;
    o.con42 = 1.0 - 5.0 * o.cosio2;
    sat.con41 = -o.con42 - o.cosio2 - o.cosio2;
    o.posq = o.po * o.po;
    o.rp = o.ao * (1.0 - sat.ecco);
    sat.gsto = gstime(epoch + 2433281.5);
    return o;
}

Atmosphere atmosphere(const GravityConstants& g, double rp)
{
    const double perige = (rp - 1.0) * g.radiusearthkm;
    if (!(perige < 156.0))
        return {78.0 / g.radiusearthkm + 1.0, std::pow((120.0 - 78.0) / g.radiusearthkm, 4.0)};
    const double sfour = perige < 98.0 ? 20.0 : perige - 78.0;
    return {sfour / g.radiusearthkm + 1.0, std::pow((120.0 - sfour) / g.radiusearthkm, 4.0)};
}

DragGeometry dragCoefficients(const GravityConstants& g, const EpochOrbit& o, elsetrec& sat)
{
    const Atmosphere air = atmosphere(g, o.rp);
    const double ecco = sat.ecco;
    DragGeometry d;
    d.sfour = air.sfour;
    d.tsi = 1.0 / (o.ao - air.sfour);
    sat.eta = o.ao * ecco * d.tsi;
    const double etasq = sat.eta * sat.eta;
    d.eeta = ecco * sat.eta;
    const double psisq = std::abs(1.0 - etasq);
    d.coef = air.qzms24 * std::pow(d.tsi, 4.0);
    d.coef1 = d.coef / std::pow(psisq, 3.5);
    const double cc2 = d.coef1 * sat.no *
                       (o.ao * (1.0 + 1.5 * etasq + d.eeta * (4.0 + etasq)) +
                        0.375 * g.j2 * d.tsi / psisq * sat.con41 * (8.0 + 3.0 * etasq * (8.0 + etasq)));
    sat.cc1 = sat.bstar * cc2;
    d.cc3 = ecco > 1e-4 ? -2.0 * d.coef * d.tsi * g.j3oj2 * sat.no * o.sinio / ecco : 0.0;
    sat.x1mth2 = 1.0 - o.cosio2;
    sat.cc4 = 2.0 * sat.no * d.coef1 * o.ao * o.omeosq *
              (sat.eta * (2.0 + 0.5 * etasq) + ecco * (0.5 + 2.0 * etasq) -
               g.j2 * d.tsi / (o.ao * psisq) *
                   (-3.0 * sat.con41 * (1.0 - 2.0 * d.eeta + etasq * (1.5 - 0.5 * d.eeta)) +
                    0.75 * sat.x1mth2 * (2.0 * etasq - d.eeta * (1.0 + etasq)) * std::cos(2.0 * sat.argpo)));
    sat.cc5 = 2.0 * d.coef1 * o.ao * o.omeosq * (1.0 + 2.75 * (etasq + d.eeta) + d.eeta * etasq);
    return d;
}

/// Secular rates by the zonal harmonics; gives the first-order part of the node's.
double zonalRates(const GravityConstants& g, const EpochOrbit& o, elsetrec& sat)
{
    const double pinvsq = 1.0 / o.posq;
    const double cosio4 = o.cosio2 * o.cosio2;
    const double temp1 = 1.5 * g.j2 * pinvsq * sat.no;
    const double temp2 = 0.5 * temp1 * g.j2 * pinvsq;
    const double temp3 = -0.46875 * g.j4 * pinvsq * pinvsq * sat.no;
    sat.mdot = sat.no + 0.5 * temp1 * o.rteosq * sat.con41 +
               0.0625 * temp2 * o.rteosq * (13.0 - 78.0 * o.cosio2 + 137.0 * cosio4);
    sat.argpdot = -0.5 * temp1 * o.con42 + 0.0625 * temp2 * (7.0 - 114.0 * o.cosio2 + 395.0 * cosio4) +
                  temp3 * (3.0 - 36.0 * o.cosio2 + 49.0 * cosio4);
    const double xhdot1 = -temp1 * o.cosio;
    sat.nodedot = xhdot1 + (0.5 * temp2 * (4.0 - 19.0 * o.cosio2) + 2.0 * temp3 * (3.0 - 7.0 * o.cosio2)) * o.cosio;
    return xhdot1;
}

void angleCoefficients(const GravityConstants& g, const EpochOrbit& o, const DragGeometry& d, double xhdot1,
                       elsetrec& sat)
{
    sat.omgcof = sat.bstar * d.cc3 * std::cos(sat.argpo);
    sat.xmcof = sat.ecco > 1e-4 ? -x2o3 * d.coef * sat.bstar / d.eeta : 0.0;
    sat.nodecf = 3.5 * o.omeosq * xhdot1 * sat.cc1;
    sat.t2cof = 1.5 * sat.cc1;
    sat.xlcof = longPeriodL(g, o.sinio, o.cosio);
    sat.aycof = longPeriodY(g, o.sinio);
    sat.delmo = cubeOfOnePlus(sat.eta * std::cos(sat.mo));
    sat.sinmao = std::sin(sat.mo);
    sat.x7thm1 = 7.0 * o.cosio2 - 1.0;
}

void initDeep(const GravityConstants& g, const EpochOrbit& o, double epoch, elsetrec& sat)
{
    sat.method = 'd';
    sat.isimp = 1;
    initDeepSpace({.epoch = epoch,
                   .xke = g.xke,
                   .sinim = o.sinio,
                   .cosim = o.cosio,
                   .emsq = o.eccsq,
                   .rtemsq = o.rteosq,
                   .snodm = std::sin(sat.nodeo),
                   .cnodm = std::cos(sat.nodeo),
                   .sinomm = std::sin(sat.argpo),
                   .cosomm = std::cos(sat.argpo)},
                  sat);
}

/// The drag in higher powers of the time.
void fullDragTerms(const EpochOrbit& o, const DragGeometry& d, elsetrec& sat)
{
    const double cc1 = sat.cc1;
    const double cc1sq = cc1 * cc1;
    sat.d2 = 4.0 * o.ao * d.tsi * cc1sq;
    const double temp = sat.d2 * d.tsi * cc1 / 3.0;
    sat.d3 = (17.0 * o.ao + d.sfour) * temp;
    sat.d4 = 0.5 * temp * o.ao * d.tsi * (221.0 * o.ao + 31.0 * d.sfour) * cc1;
    sat.t3cof = sat.d2 + 2.0 * cc1sq;
    sat.t4cof = 0.25 * (3.0 * sat.d3 + cc1 * (12.0 * sat.d2 + 10.0 * cc1sq));
    sat.t5cof =
        0.2 * (3.0 * sat.d4 + 12.0 * cc1 * sat.d3 + 6.0 * sat.d2 * sat.d2 + 15.0 * cc1sq * (2.0 * sat.d2 + cc1sq));
}

/// Changes of axis, eccentricity and longitude by drag.
struct DragEffect
{
    double tempa, tempe, templ;
};

/// Secular effects of the zonal harmonics and of drag.
DragEffect secularAndDrag(const elsetrec& sat, Sgp4Elements& mean)
{
    const double t = sat.t;
    const double xmdf = sat.mo + sat.mdot * t;
    const double argpdf = sat.argpo + sat.argpdot * t;
    const double nodedf = sat.nodeo + sat.nodedot * t;
    const double t2 = t * t;
    mean = {.e = sat.ecco, .i = sat.inclo, .argp = argpdf, .node = nodedf + sat.nodecf * t2, .m = xmdf, .n = sat.no};
    DragEffect drag{.tempa = 1.0 - sat.cc1 * t, .tempe = sat.bstar * sat.cc4 * t, .templ = sat.t2cof * t2};
    if (sat.isimp == 1)
        return drag;

    const double delomg = sat.omgcof * t;
    const double delm = sat.xmcof * (cubeOfOnePlus(sat.eta * std::cos(xmdf)) - sat.delmo);
    const double temp = delomg + delm;
    mean.m = xmdf + temp;
    mean.argp = argpdf - temp;
    const double t3 = t2 * t;
    const double t4 = t3 * t;
    drag.tempa = drag.tempa - sat.d2 * t2 - sat.d3 * t3 - sat.d4 * t4;
    drag.tempe = drag.tempe + sat.bstar * sat.cc5 * (std::sin(mean.m) - sat.sinmao);
    drag.templ = drag.templ + sat.t3cof * t3 + t4 * (sat.t4cof + t * sat.t5cof);
    return drag;
}

/// Brings drag into mean motion and eccentricity, with the checks on them; gives the mean semi-major axis.
double shrinkOrbit(const GravityConstants& g, const DragEffect& drag, elsetrec& sat, Sgp4Elements& mean)
{
    if (mean.n <= 0.0)
        sat.error = 2;
    const double am = std::pow(g.xke / mean.n, x2o3) * drag.tempa * drag.tempa;
    mean.n = g.xke / std::pow(am, 1.5);
    mean.e = mean.e - drag.tempe;
    if (mean.e >= 1.0 || mean.e < -0.001 || am < 0.95)
        sat.error = 1;
    if (mean.e < 0.0)
        mean.e = 1e-6;  // only a negative one: a small positive eccentricity stays
    return am;
}

void reduceAngles(const elsetrec& sat, const DragEffect& drag, Sgp4Elements& mean)
{
    mean.m = mean.m + sat.no * drag.templ;
    double xlm = mean.m + mean.argp + mean.node;
    mean.node = std::fmod(mean.node, twoPi);
    mean.argp = std::fmod(mean.argp, twoPi);
    xlm = std::fmod(xlm, twoPi);
    mean.m = std::fmod(xlm - mean.argp - mean.node, twoPi);
}

/// Functions of the inclination behind the long-period and short-period terms.
struct InclinationTerms
{
    double sinip, cosip, aycof, xlcof, con41, x1mth2, x7thm1;
};

InclinationTerms epochInclination(const elsetrec& sat)
{
    return {std::sin(sat.inclo), std::cos(sat.inclo), sat.aycof, sat.xlcof, sat.con41, sat.x1mth2, sat.x7thm1};
}

InclinationTerms perturbedInclination(const GravityConstants& g, double xincp)
{
    const double sinip = std::sin(xincp);
    const double cosip = std::cos(xincp);
    const double cosisq = cosip * cosip;
    return {.sinip = sinip,
            .cosip = cosip,
            .aycof = longPeriodY(g, sinip),
            .xlcof = longPeriodL(g, sinip, cosip),
            .con41 = 3.0 * cosisq - 1.0,
            .x1mth2 = 1.0 - cosisq,
            .x7thm1 = 7.0 * cosisq - 1.0};
}

/// Lunar and solar periodics, with the checks on what comes out.
void perturb(elsetrec& sat, Sgp4Elements& el)
{
    dpper(sat, el);
    if (el.i < 0.0) {
        el.i = -el.i;
        el.node += std::numbers::pi;
        el.argp -= std::numbers::pi;
    }
    if (el.e < 0.0 || el.e > 1.0)
        sat.error = 3;
}

/// The elements with the long-period terms; `axnl` and `aynl` are e cos and e sin of the argument of perigee.
struct LongPeriod
{
    double axnl, aynl, u;
};

LongPeriod longPeriod(const InclinationTerms& inc, const Sgp4Elements& el, double am)
{
    const double axnl = el.e * std::cos(el.argp);
    const double temp = 1.0 / (am * (1.0 - el.e * el.e));
    const double aynl = el.e * std::sin(el.argp) + temp * inc.aycof;
    const double xl = el.m + el.argp + el.node + temp * inc.xlcof * axnl;
    return {axnl, aynl, std::fmod(xl - el.node, twoPi)};
}

struct SineCosine
{
    double sine, cosine;
};

/// Sine and cosine of eccentric anomaly plus argument of perigee, before the last correction.
SineCosine solveKepler(const LongPeriod& l)
{
    constexpr int keplerLimit = 10;
    double eo1 = l.u;
    SineCosine e{};
    double correction = 9999.9;
    for (int ktr = 0; std::abs(correction) >= 1e-12 && ktr < keplerLimit; ++ktr) {
        e = {std::sin(eo1), std::cos(eo1)};
        correction = (l.u - l.aynl * e.cosine + l.axnl * e.sine - eo1) / (1.0 - e.cosine * l.axnl - e.sine * l.aynl);
        eo1 += std::abs(correction) >= 0.95 ? std::copysign(0.95, correction) : correction;
    }
    return e;
}

/// Place in the orbit: radius, argument of latitude, plane; and the rates along and across the radius.
struct OrbitPoint
{
    double mrt, su, xnode, xinc, mvt, rvdot;
};

/// Adds the short-period terms. `pl` is the semi-latus rectum.
OrbitPoint shortPeriod(const GravityConstants& g, const InclinationTerms& inc, const Sgp4Elements& el,
                       const LongPeriod& l, const SineCosine& e, double am, double pl)
{
    const double ecose = l.axnl * e.cosine + l.aynl * e.sine;
    const double esine = l.axnl * e.sine - l.aynl * e.cosine;
    const double el2 = l.axnl * l.axnl + l.aynl * l.aynl;
    const double rl = am * (1.0 - ecose);
    const double rdotl = std::sqrt(am) * esine / rl;
    const double rvdotl = std::sqrt(pl) / rl;
    const double betal = std::sqrt(1.0 - el2);
    const double temp = esine / (1.0 + betal);
    const double sinu = am / rl * (e.sine - l.aynl - l.axnl * temp);
    const double cosu = am / rl * (e.cosine - l.axnl + l.aynl * temp);
    const double su = std::atan2(sinu, cosu);
    const double sin2u = (cosu + cosu) * sinu;
    const double cos2u = 1.0 - 2.0 * sinu * sinu;

    const double invpl = 1.0 / pl;
    const double temp1 = 0.5 * g.j2 * invpl;
    const double temp2 = temp1 * invpl;
    return {.mrt = rl * (1.0 - 1.5 * temp2 * betal * inc.con41) + 0.5 * temp1 * inc.x1mth2 * cos2u,
            .su = su - 0.25 * temp2 * inc.x7thm1 * sin2u,
            .xnode = el.node + 1.5 * temp2 * inc.cosip * sin2u,
            .xinc = el.i + 1.5 * temp2 * inc.cosip * inc.sinip * cos2u,
            .mvt = rdotl - el.n * temp1 * inc.x1mth2 * sin2u / g.xke,
            .rvdot = rvdotl + el.n * temp1 * (inc.x1mth2 * cos2u + 1.5 * inc.con41) / g.xke};
}

void storeState(const GravityConstants& g, const OrbitPoint& p, double r[3], double v[3])
{
    const double vkmpersec = g.radiusearthkm * g.xke / 60.0;
    const double sinsu = std::sin(p.su), cossu = std::cos(p.su);
    const double snod = std::sin(p.xnode), cnod = std::cos(p.xnode);
    const double sini = std::sin(p.xinc), cosi = std::cos(p.xinc);
    const double xmx = -snod * cosi;
    const double xmy = cnod * cosi;
    const double ux = xmx * sinsu + cnod * cossu;
    const double uy = xmy * sinsu + snod * cossu;
    const double uz = sini * sinsu;
    const double vx = xmx * cossu - cnod * sinsu;
    const double vy = xmy * cossu - snod * sinsu;
    const double vz = sini * cossu;
    r[0] = p.mrt * ux * g.radiusearthkm;
    r[1] = p.mrt * uy * g.radiusearthkm;
    r[2] = p.mrt * uz * g.radiusearthkm;
    v[0] = (p.mvt * ux + p.rvdot * vx) * vkmpersec;
    v[1] = (p.mvt * uy + p.rvdot * vy) * vkmpersec;
    v[2] = (p.mvt * uz + p.rvdot * vz) * vkmpersec;
}

bool allFinite(const double (&x)[3])
{
    return std::isfinite(x[0]) && std::isfinite(x[1]) && std::isfinite(x[2]);
}

/// Fills `satrec` from a slot; 0 when all is well.
int loadSlot(const WinpData& in, int k, gravconsttype whichconst)
{
    const double no = twoPi * in.n0[k] / 1440.0;
    return sgp4init(whichconst, in.sdp4, in.mjdep[k] - 33281.0, in.bstar[k], std::max(in.ecc[k], 1e-8),
                    in.aper[k] * radPerDeg, in.inc[k] * radPerDeg, in.m0[k] * radPerDeg, no == 0.0 ? 1.0 : no,
                    in.ra[k] * radPerDeg, satrec);
}

}  // namespace

void getgravconst(gravconsttype whichconst, double& tumin, double& radiusearthkm, double& xke, double& j2, double& j3,
                  double& j4, double& j3oj2)
{
    const GravityConstants& g = gravityConstants(whichconst);
    tumin = g.tumin;
    radiusearthkm = g.radiusearthkm;
    xke = g.xke;
    j2 = g.j2;
    j3 = g.j3;
    j4 = g.j4;
    j3oj2 = g.j3oj2;
}

double gstime(double jdut1)
{
    const double tut1 = (jdut1 - 2451545.0) / 36525.0;
    const double seconds =
        -6.2e-6 * tut1 * tut1 * tut1 + 0.093104 * tut1 * tut1 + 3164400184.812866 * tut1 + 67310.54841;
    const double angle = std::fmod(seconds * radPerDeg / 240.0, twoPi);
    return angle < 0.0 ? angle + twoPi : angle;
}

int sgp4init(gravconsttype whichconst, bool deepspace, double epoch, double xbstar, double xecco, double xargpo,
             double xinclo, double xmo, double xno, double xnodeo, elsetrec& sat)
{
    const GravityConstants& g = gravityConstants(whichconst);
    sat = elsetrec{};
    sat.bstar = xbstar;
    sat.ecco = xecco;
    sat.argpo = xargpo;
    sat.inclo = xinclo;
    sat.mo = xmo;
    sat.no = xno;
    sat.nodeo = xnodeo;
    sat.init = 'y';
    sat.method = 'n';

    const EpochOrbit o = initl(g, epoch, sat);
    sat.error = o.rp < 1.0 ? 5 : 0;
    if (!(o.omeosq < 0.0 && sat.no < 0.0)) {
        sat.isimp = o.rp < 220.0 / g.radiusearthkm + 1.0 ? 1 : 0;
        const DragGeometry drag = dragCoefficients(g, o, sat);
        const double xhdot1 = zonalRates(g, o, sat);
        angleCoefficients(g, o, drag, xhdot1, sat);
        if (twoPi / sat.no >= 225.0 && deepspace)
            initDeep(g, o, epoch, sat);
        if (sat.isimp != 1)
            fullDragTerms(o, drag, sat);
        if (sat.error == 0 && sat.method == 'd') {
            double r[3], v[3];
            sgp4(whichconst, sat, 0.0, r, v);
        }
    }
    sat.init = 'n';
    return sat.error;
}

int sgp4(gravconsttype whichconst, elsetrec& sat, double tsince, double r[3], double v[3])
{
    const GravityConstants& g = gravityConstants(whichconst);
    const bool deep = sat.method == 'd';
    sat.error = 0;
    sat.t = tsince;
    Sgp4Elements el;
    const DragEffect drag = secularAndDrag(sat, el);
    if (deep)
        dspace(sat, el);
    const double am = shrinkOrbit(g, drag, sat, el);
    reduceAngles(sat, drag, el);
    if (deep)
        perturb(sat, el);
    const InclinationTerms inc = deep ? perturbedInclination(g, el.i) : epochInclination(sat);
    const LongPeriod l = longPeriod(inc, el, am);
    const SineCosine e = solveKepler(l);
    const double pl = am * (1.0 - l.axnl * l.axnl - l.aynl * l.aynl);
    if (pl < 0.0) {
        sat.error = 6;
        return sat.error;
    }
    const OrbitPoint point = shortPeriod(g, inc, el, l, e, am, pl);
    storeState(g, point, r, v);
    if (point.mrt < 1.0)
        sat.error = 6;
    return sat.error;
}

void Sgp4(WinpData* in, double t, int k, Vec3& r, Vec3& v)
{
    const gravconsttype whichconst = in->wgs == 0 ? wgs72 : wgs84;
    if (in->sgpsat != k)
        in->sgpsat = loadSlot(*in, k, whichconst) == 0 ? k : noSlot;
    double rkm[3] = {}, vkm[3] = {};
    const int error = sgp4(whichconst, satrec, t * 1440.0, rkm, vkm);
    if (error != 0 || !allFinite(rkm) || !allFinite(vkm)) {
        r.assign(100.0, 0.0, 0.0);
        v.assign(0.0, 10.0, 0.0);
        return;
    }
    r.assign(rkm[0], rkm[1], rkm[2]);
    v.assign(vkm[0], vkm[1], vkm[2]);
}
