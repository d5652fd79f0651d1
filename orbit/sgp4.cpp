#include "orbit/sgp4.h"

#include <algorithm>
#include <cmath>

#include "astro/angles.h"
#include "orbit/deep_space.h"
#include "orbit/sgp4_stages.h"

constinit thread_local elsetrec satrec{};

namespace {

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
                    in.ra[k] * radPerDeg, satrec, modelForm(in.models));
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
             double xinclo, double xmo, double xno, double xnodeo, elsetrec& sat, ModelForm form)
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
            sgp4(whichconst, sat, 0.0, r, v, form);
        }
    }
    sat.init = 'n';
    return sat.error;
}

int sgp4(gravconsttype whichconst, elsetrec& sat, double tsince, double r[3], double v[3], ModelForm form)
{
    sat.t = tsince;
    sat.error = propagate(gravityConstants(whichconst), sat, tsince, r, v, form);
    return sat.error;
}

namespace {

constexpr double minutesPerDay = 1440.0;

/// Makes `satrec` that of a slot; gives the constants it goes with.
gravconsttype prepareSlot(WinpData* in, int k)
{
    const gravconsttype whichconst = in->wgs == 0 ? wgs72 : wgs84;
    if (in->sgpsat != k)
        in->sgpsat = loadSlot(*in, k, whichconst) == 0 ? k : noSlot;
    return whichconst;
}

void give(const Sgp4State& s, Vec3& r, Vec3& v)
{
    if (s.error != 0 || !allFinite(s.r) || !allFinite(s.v)) {
        r.assign(100.0, 0.0, 0.0);
        v.assign(0.0, 10.0, 0.0);
        return;
    }
    r.assign(s.r[0], s.r[1], s.r[2]);
    v.assign(s.v[0], s.v[1], s.v[2]);
}

}  // namespace

Mat3 analyticTurn(const Mat3& nutation, double eqeq, const Corrections& corrections)
{
    constexpr double eqeqSecondsPerRad = 13750.9870831;
    const Mat3 turn = zrot(-eqeq / eqeqSecondsPerRad);
    return corrections.nutationOnce ? mxtrn(nutation) * turn : turn;
}

void Sgp4(WinpData* in, double t, int k, Vec3& r, Vec3& v)
{
    const gravconsttype whichconst = prepareSlot(in, k);
    Sgp4State state{};
    state.error = sgp4(whichconst, satrec, t * minutesPerDay, state.r, state.v, modelForm(in->models));
    give(state, r, v);
}

void Sgp4Ahead::workOut(WinpData* in, int k, const std::array<double, instants>& days)
{
    const gravconsttype whichconst = prepareSlot(in, k);
    std::array<double, instants> minutes{};
    std::transform(days.begin(), days.end(), minutes.begin(), [](double t) { return t * minutesPerDay; });
    states = {};
    sgp4Series(whichconst, satrec, minutes, states, modelForm(in->models));
    times = days;
    filled = true;
}

std::size_t Sgp4Ahead::indexOf(double t) const
{
    if (!filled)
        return instants;
    return static_cast<std::size_t>(std::find(times.begin(), times.end(), t) - times.begin());
}

bool Sgp4Ahead::find(double t, Vec3& r, Vec3& v) const
{
    const std::size_t i = indexOf(t);
    if (i == instants)
        return false;
    give(states[i], r, v);
    return true;
}
