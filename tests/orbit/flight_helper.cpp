#include "flight_helper.h"

#include "astro/calendar.h"
#include "astro/frames.h"
#include "astro/two_body.h"
#include "orbit/force_model.h"
#include "orbit/gravity_data.h"
#include "orbit/num_prop.h"

#include <cmath>

WinpData* freshRecord()
{
    setDefaults(indata);
    indata->numflg[0] = 1;
    indata->satn = 1;
    return indata;
}

WinpData* gravityRecord()
{
    WinpData* in = freshRecord();
    in->sunf = false;
    in->moonf = false;
    in->Am[0] = 0;
    return in;
}

State stateOf(double a, double e, double inc, double ran, double aper, double m0)
{
    State s;
    kepler(gmM3PerS2, 0, 0, m0, a, e, ran, aper, inc, s.r, s.v);
    return s;
}

void setState(WinpData* in, double time, const State& state)
{
    in->mjdep[0] = in->cstm[0] = time;
    in->csr0[0] = state.r[0];
    in->csr1[0] = state.r[1];
    in->csr2[0] = state.r[2];
    in->csv0[0] = state.v[0];
    in->csv1[0] = state.v[1];
    in->csv2[0] = state.v[2];
    currentToEpochState(in, 0);
}

State currentState(const WinpData& in)
{
    return {Vec3(in.csr0[0], in.csr1[0], in.csr2[0]), Vec3(in.csv0[0], in.csv1[0], in.csv2[0])};
}

State flyTo(WinpData* in, double t)
{
    Vec3 sun, moon;
    UpSunMoon((t - in->cstm[0]) * 86400.0, in, 0, sun, moon);
    double eqeq;
    const Mat3 N = nutmat(julcent(t), eqeq, in->IERSflg);
    State s;
    NumProp(t, in, 0, mxvct(N, sun) / earthRadiusM, mxvct(N, moon) / earthRadiusM, s.r, s.v);
    return {1000.0 * s.r, 1000.0 * s.v};
}

long double gravityPotential(long double x, long double y, long double z, int degree)
{
    constexpr long double gm = 9.798285471812783L * earthRadiusM * earthRadiusM;
    const long double r = std::sqrt(x * x + y * y + z * z);
    const long double s = z / r;
    const long double c = std::sqrt(x * x + y * y) / r;
    const long double lambda = std::atan2(y, x);
    long double sum = 1.0L;
    long double sectorial = 1.0L;  // P(m, m)
    for (int m = 0; m <= degree; ++m) {
        if (m > 0)
            sectorial *= (2 * m - 1) * c;
        const long double cosine = std::cos(m * lambda);
        const long double sine = std::sin(m * lambda);
        long double before = 0;
        long double P = sectorial;
        long double power = std::pow(earthRadiusM / r, static_cast<long double>(m));
        for (int n = m; n <= degree; ++n) {
            if (n >= 2) {
                const GravityTerm& g = gravityTerms[std::size_t(n * (n + 1) / 2 + m - 3)];
                sum += power * P * (g.C * cosine + g.S * sine);
            }
            const long double next = ((2 * n + 1) * s * P - (n + m) * before) / (n - m + 1);
            before = P;
            P = next;
            power *= earthRadiusM / r;
        }
    }
    return gm / r * sum;
}
