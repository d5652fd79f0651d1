// orbit/sgp4_stages.h: the stages of SGP4 at one instant or at several, for sgp4.cpp and for the series.
//
// `T` is double or `Lanes`. All of it is unnamed: a file that is compiled for other processors has a copy of its own.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>

#include "orbit/deep_space.h"
#include "orbit/lane_functions.h"
#include "orbit/lanes.h"
#include "orbit/sgp4.h"
#include "orbit/turn.h"

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

inline const GravityConstants& gravityConstants(gravconsttype whichconst)
{
    return whichconst == wgs72 ? constants72 : constants84;
}

template <class T>
T cubeOfOnePlus(T x)
{
    return cube(1.0 + x);
}

template <class T>
T longPeriodY(const GravityConstants& g, T sini)
{
    return -0.5 * g.j3oj2 * sini;
}

template <class T>
T longPeriodL(const GravityConstants& g, T sini, T cosi)
{
    const T opc = 1.0 + cosi;
    const T divisor = select(1.5e-12 < magnitude(opc), opc, 1.5e-12);  // an inclination of 180 degrees
    return -0.25 * g.j3oj2 * sini * (3.0 + 5.0 * cosi) / divisor;
}

/// Changes of axis, eccentricity and longitude by drag.
template <class T>
struct DragEffect
{
    T tempa, tempe, templ;
};

/// Secular effects of the zonal harmonics and of drag, `t` minutes from epoch.
template <class T>
DragEffect<T> secularAndDrag(const elsetrec& sat, T t, ElementsOf<T>& mean)
{
    const T xmdf = sat.mo + sat.mdot * t;
    const T argpdf = sat.argpo + sat.argpdot * t;
    const T nodedf = sat.nodeo + sat.nodedot * t;
    const T t2 = t * t;
    mean = {.e = sat.ecco, .i = sat.inclo, .argp = argpdf, .node = nodedf + sat.nodecf * t2, .m = xmdf, .n = sat.no};
    DragEffect<T> drag{.tempa = 1.0 - sat.cc1 * t, .tempe = sat.bstar * sat.cc4 * t, .templ = sat.t2cof * t2};
    if (sat.isimp == 1)
        return drag;

    const T delomg = sat.omgcof * t;
    const T delm = sat.xmcof * (cubeOfOnePlus(sat.eta * cosine(xmdf)) - sat.delmo);
    const T temp = delomg + delm;
    mean.m = xmdf + temp;
    mean.argp = argpdf - temp;
    const T t3 = t2 * t;
    const T t4 = t3 * t;
    drag.tempa = drag.tempa - sat.d2 * t2 - sat.d3 * t3 - sat.d4 * t4;
    drag.tempe = drag.tempe + sat.bstar * sat.cc5 * (sine(mean.m) - sat.sinmao);
    drag.templ = drag.templ + sat.t3cof * t3 + t4 * (sat.t4cof + t * sat.t5cof);
    return drag;
}

constexpr double nothingYet = std::numeric_limits<double>::quiet_NaN();

/// What follows from the elements alone, of the set that was propagated last. Each result stands beside the figures it
/// was worked out from, so that a record which its owner changes never meets an old one.
struct LastElements
{
    double xke = nothingYet, n = nothingYet, axis = 0;
    double inclo = nothingYet;
    SineCosine inclination{};
};

inline constinit thread_local LastElements lastElements;

inline double meanAxis(double xke, double n)
{
    LastElements& last = lastElements;
    if (last.n != n || last.xke != xke) {
        last.xke = xke;
        last.n = n;
        last.axis = std::pow(xke / n, x2o3);
    }
    return last.axis;
}

inline const SineCosine& epochInclination(double inclo)
{
    LastElements& last = lastElements;
    if (last.inclo != inclo) {
        last.inclo = inclo;
        last.inclination = sineCosine(inclo);
    }
    return last.inclination;
}

/// Brings drag into mean motion and eccentricity, with the checks on them; gives the mean semi-major axis.
template <class T>
T shrinkOrbit(const GravityConstants& g, const DragEffect<T>& drag, ElementsOf<T>& mean, CodeOf<T>& error,
              ModelForm form)
{
    raise(error, mean.n <= 0.0, 2);
    const T am = meanAxis(g.xke, mean.n) * drag.tempa * drag.tempa;
    mean.n = g.xke / threeHalves(am);
    mean.e = mean.e - drag.tempe;
    raise(error, mean.e >= 1.0, 1);
    raise(error, mean.e < -0.001, 1);
    raise(error, am < 0.95, 1);
    // in the early form only a negative one: a small positive eccentricity stays
    mean.e = select(mean.e < (form == ModelForm::early ? 0.0 : 1e-6), 1e-6, mean.e);
    return am;
}

template <class T>
void reduceAngles(const elsetrec& sat, const DragEffect<T>& drag, ElementsOf<T>& mean)
{
    mean.m = mean.m + sat.no * drag.templ;
    T xlm = mean.m + mean.argp + mean.node;
    mean.node = withinTurn(mean.node);
    mean.argp = withinTurn(mean.argp);
    xlm = withinTurn(xlm);
    mean.m = withinTurn(xlm - mean.argp - mean.node);
}

/// Functions of the inclination in the long-period and short-period terms.
template <class T>
struct InclinationTerms
{
    T sinip, cosip, aycof, xlcof, con41, x1mth2, x7thm1;
};

template <class T>
InclinationTerms<T> unperturbedInclination(const elsetrec& sat)
{
    const auto& [sinip, cosip] = epochInclination(sat.inclo);
    return {sinip, cosip, sat.aycof, sat.xlcof, sat.con41, sat.x1mth2, sat.x7thm1};
}

template <class T>
InclinationTerms<T> perturbedInclination(const GravityConstants& g, const SineCosineOf<T>& inc)
{
    const auto& [sinip, cosip] = inc;
    const T cosisq = cosip * cosip;
    return {.sinip = sinip,
            .cosip = cosip,
            .aycof = longPeriodY(g, sinip),
            .xlcof = longPeriodL(g, sinip, cosip),
            .con41 = 3.0 * cosisq - 1.0,
            .x1mth2 = 1.0 - cosisq,
            .x7thm1 = 7.0 * cosisq - 1.0};
}

/// Secular and resonance effects of Sun and Moon.
inline void addDeepSecular(elsetrec& sat, double t, Sgp4Elements& el, ModelForm form)
{
    sat.t = t;
    dspace(sat, el, form);
}

/// Lunar and solar periodics, with the checks on what comes out; gives sine and cosine of the inclination.
inline SineCosine perturb(elsetrec& sat, double t, Sgp4Elements& el, std::int32_t& error)
{
    sat.t = t;
    SineCosine inc = dpper(sat, el);
    if (el.i < 0.0) {
        el.i = -el.i;
        inc.sine = -inc.sine;
        el.node += std::numbers::pi;
        el.argp -= std::numbers::pi;
    }
    if (el.e < 0.0 || el.e > 1.0)
        error = 3;
    return inc;
}

/// The elements with the long-period terms; `axnl` and `aynl` are e cos and e sin of the argument of perigee.
template <class T>
struct LongPeriod
{
    T axnl, aynl, u;
};

template <class T>
LongPeriod<T> longPeriod(const InclinationTerms<T>& inc, const ElementsOf<T>& el, T am)
{
    const SineCosineOf<T> argp = sineCosine(el.argp);
    const T axnl = el.e * argp.cosine;
    const T temp = 1.0 / (am * (1.0 - el.e * el.e));
    const T aynl = el.e * argp.sine + temp * inc.aycof;
    const T xl = el.m + el.argp + el.node + temp * inc.xlcof * axnl;
    return {axnl, aynl, withinTurn(xl - el.node)};
}

/// Sine and cosine of eccentric anomaly plus argument of perigee, before the last correction.
template <class T>
SineCosineOf<T> solveKepler(const LongPeriod<T>& l)
{
    constexpr int keplerLimit = 10;
    T eo1 = l.u;
    SineCosineOf<T> e{};
    MaskOf<T> open = KindOf<T>::yes;
    for (int ktr = 0; any(open) && ktr < keplerLimit; ++ktr) {
        const SineCosineOf<T> next = sineCosine(eo1, open);
        e = {select(open, next.sine, e.sine), select(open, next.cosine, e.cosine)};
        const T correction =
            (l.u - l.aynl * e.cosine + l.axnl * e.sine - eo1) / (1.0 - e.cosine * l.axnl - e.sine * l.aynl);
        eo1 = eo1 + select(magnitude(correction) >= 0.95, withSign(T(0.95), correction), correction);
        open = open & (magnitude(correction) >= 1e-12);
    }
    return e;
}

/// Place in the orbit: radius, argument of latitude, plane; and the rates along and across the radius.
template <class T>
struct OrbitPoint
{
    T mrt, su, xnode, xinc, mvt, rvdot;
};

/// Adds the short-period terms. `pl` is the semi-latus rectum.
template <class T>
OrbitPoint<T> shortPeriod(const GravityConstants& g, const InclinationTerms<T>& inc, const ElementsOf<T>& el,
                          const LongPeriod<T>& l, const SineCosineOf<T>& e, T am, T pl)
{
    const T ecose = l.axnl * e.cosine + l.aynl * e.sine;
    const T esine = l.axnl * e.sine - l.aynl * e.cosine;
    const T el2 = l.axnl * l.axnl + l.aynl * l.aynl;
    const T rl = am * (1.0 - ecose);
    const T rdotl = squareRoot(am) * esine / rl;
    const T rvdotl = squareRoot(pl) / rl;
    const T betal = squareRoot(1.0 - el2);
    const T temp = esine / (1.0 + betal);
    const T sinu = am / rl * (e.sine - l.aynl - l.axnl * temp);
    const T cosu = am / rl * (e.cosine - l.axnl + l.aynl * temp);
    const T su = arcTangent(sinu, cosu);
    const T sin2u = (cosu + cosu) * sinu;
    const T cos2u = 1.0 - 2.0 * sinu * sinu;

    const T invpl = 1.0 / pl;
    const T temp1 = 0.5 * g.j2 * invpl;
    const T temp2 = temp1 * invpl;
    return {.mrt = rl * (1.0 - 1.5 * temp2 * betal * inc.con41) + 0.5 * temp1 * inc.x1mth2 * cos2u,
            .su = su - 0.25 * temp2 * inc.x7thm1 * sin2u,
            .xnode = el.node + 1.5 * temp2 * inc.cosip * sin2u,
            .xinc = el.i + 1.5 * temp2 * inc.cosip * inc.sinip * cos2u,
            .mvt = rdotl - el.n * temp1 * inc.x1mth2 * sin2u / g.xke,
            .rvdot = rvdotl + el.n * temp1 * (inc.x1mth2 * cos2u + 1.5 * inc.con41) / g.xke};
}

template <class T>
void storeState(const GravityConstants& g, const OrbitPoint<T>& p, T r[3], T v[3])
{
    const double vkmpersec = g.radiusearthkm * g.xke / 60.0;
    const auto [sinsu, cossu] = sineCosine(p.su);
    const auto [snod, cnod] = sineCosine(p.xnode);
    const auto [sini, cosi] = sineCosine(p.xinc);
    const T xmx = -snod * cosi;
    const T xmy = cnod * cosi;
    const T ux = xmx * sinsu + cnod * cossu;
    const T uy = xmy * sinsu + snod * cossu;
    const T uz = sini * sinsu;
    const T vx = xmx * cossu - cnod * sinsu;
    const T vy = xmy * cossu - snod * sinsu;
    const T vz = sini * cossu;
    r[0] = p.mrt * ux * g.radiusearthkm;
    r[1] = p.mrt * uy * g.radiusearthkm;
    r[2] = p.mrt * uz * g.radiusearthkm;
    v[0] = (p.mvt * ux + p.rvdot * vx) * vkmpersec;
    v[1] = (p.mvt * uy + p.rvdot * vy) * vkmpersec;
    v[2] = (p.mvt * uz + p.rvdot * vz) * vkmpersec;
}

/// The whole model at one instant or at several. Where the semi-latus rectum is negative, `r` and `v` have no meaning,
/// or are as they were.
template <class T>
CodeOf<T> propagate(const GravityConstants& g, elsetrec& sat, T t, T r[3], T v[3], ModelForm form)
{
    const bool deep = sat.method == 'd';
    CodeOf<T> error{};
    ElementsOf<T> el;
    const DragEffect<T> drag = secularAndDrag(sat, t, el);
    if (deep)
        addDeepSecular(sat, t, el, form);
    const T am = shrinkOrbit(g, drag, el, error, form);
    reduceAngles(sat, drag, el);
    const InclinationTerms<T> inc =
        deep ? perturbedInclination<T>(g, perturb(sat, t, el, error)) : unperturbedInclination<T>(sat);
    const LongPeriod<T> l = longPeriod(inc, el, am);
    const SineCosineOf<T> e = solveKepler(l);
    const T pl = am * (1.0 - l.axnl * l.axnl - l.aynl * l.aynl);
    raise(error, pl < 0.0, 6);
    if (all(pl < 0.0))
        return error;
    const OrbitPoint<T> point = shortPeriod(g, inc, el, l, e, am, pl);
    storeState(g, point, r, v);
    raise(error, point.mrt < 1.0, 6);
    return error;
}

}  // namespace
