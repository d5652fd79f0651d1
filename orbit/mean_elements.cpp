#include "orbit/mean_elements.h"

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/frames.h"
#include "orbit/conversions.h"
#include "orbit/sgp4.h"

#include <Eigen/Dense>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace {

using Six = Eigen::Matrix<double, 6, 1>;

constexpr double epoch1950 = 33281.0;
constexpr int rounds = 1000;  // near the equator Moon and Sun bend the way: more than a hundred
constexpr int halvings = 12;
constexpr double closeMetres = 1e-3;
constexpr double closeMetresPerS = 1e-6;

/// Elements without a singularity for circles and for the equator: mean motion (rev/day), eccentricity towards the
/// longitude of perigee, sine of half the inclination towards the node, mean longitude (radians).
Six roundOf(const Elements& e)
{
    const double node = e.ra * radPerDeg;
    const double perigee = e.aper * radPerDeg + node;
    const double s = std::sin(0.5 * e.inc * radPerDeg);
    Six q;
    q << e.n0, e.ecc * std::cos(perigee), e.ecc * std::sin(perigee), s * std::cos(node), s * std::sin(node),
        e.m0 * radPerDeg + perigee;
    return q;
}

double degreesOf(double angle)
{
    const double rest = std::fmod(angle, twoPi);
    return (rest < 0.0 ? rest + twoPi : rest) * degPerRad;
}

Elements fromRound(const Six& q, Elements e)
{
    const double perigee = std::atan2(q[2], q[1]);
    const double node = std::atan2(q[4], q[3]);
    e.n0 = q[0];
    e.ecc = std::hypot(q[1], q[2]);
    e.inc = 2.0 * std::asin(std::min(std::hypot(q[3], q[4]), 1.0)) * degPerRad;
    e.ra = degreesOf(node);
    e.aper = degreesOf(perigee - node);
    e.m0 = degreesOf(q[5] - perigee);
    return e;
}

/// What the model gives at the epoch, metres and metres per second; nothing where it has an error.
std::optional<Six> stateAtEpoch(const Elements& e, const AnalyticModel& model)
{
    if (!(e.n0 > 0.0) || !(e.ecc < 1.0))
        return std::nullopt;
    const gravconsttype constants = model.wgs84 ? wgs84 : wgs72;
    const ModelForm form = modelForm(model.corrections);
    elsetrec sat{};
    double r[3] = {}, v[3] = {};
    sgp4init(constants, model.deepSpace, e.epoch - epoch1950, e.bstar, std::max(e.ecc, 1e-8), e.aper * radPerDeg,
             e.inc * radPerDeg, e.m0 * radPerDeg, e.n0 * twoPi / 1440.0, e.ra * radPerDeg, sat, form);
    if (sgp4(constants, sat, 0.0, r, v, form) != 0)
        return std::nullopt;
    Six state;
    state << r[0], r[1], r[2], v[0], v[1], v[2];
    state *= 1000.0;
    return state.allFinite() ? std::optional(state) : std::nullopt;
}

/// The search for elements whose state is the wanted one.
class Inversion
{
public:
    Inversion(const StateVector& wanted, const AnalyticModel& from, const Elements& start)
        : model(from), q(roundOf(start)), nearest(q), others(start)
    {
        target << wanted.r[0], wanted.r[1], wanted.r[2], wanted.v[0], wanted.v[1], wanted.v[2];
        const double place = abs(wanted.r), speed = abs(wanted.v);
        scale << place, place, place, speed, speed, speed;
    }

    /// The nearest that was found; nothing if the model fails at every start.
    ///
    /// Near the equator Moon and Sun turn the plane by more than its inclination: the way from one side may not lead to
    /// the other, so the start is turned round until one leads there.
    std::optional<Elements> solve()
    {
        const Six first = q;
        for (const auto& [cosine, sine] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
            q = first;
            q[3] = cosine * first[3] - sine * first[4];
            q[4] = sine * first[3] + cosine * first[4];
            if (approach())
                break;
        }
        return leastSize < unreached ? std::optional(fromRound(nearest, others)) : std::nullopt;
    }

private:
    /// From `q` on; whether it has led to the state.
    bool approach()
    {
        std::optional<Six> off = offAt(q);
        for (int round = 0; off && round < rounds && !close(*off); ++round) {
            keep(*off);
            off = improve(*off);
        }
        if (off)
            keep(*off);
        return off && close(*off);
    }

    void keep(const Six& off)
    {
        if (sizeOf(off) >= leastSize)
            return;
        leastSize = sizeOf(off);
        nearest = q;
    }

    std::optional<Six> offAt(const Six& at) const
    {
        const auto state = stateAtEpoch(fromRound(at, others), model);
        return state ? std::optional<Six>(*state - target) : std::nullopt;
    }

    static bool close(const Six& off)
    {
        return off.head<3>().norm() < closeMetres && off.tail<3>().norm() < closeMetresPerS;
    }

    double sizeOf(const Six& off) const { return off.cwiseQuotient(scale).norm(); }

    std::optional<Eigen::Matrix<double, 6, 6>> slopes() const
    {
        Eigen::Matrix<double, 6, 6> m;
        for (int k = 0; k < 6; ++k) {
            Six step = Six::Zero();
            step[k] = 1e-6 * (k == 0 ? q[0] : 1.0);
            const auto above = offAt(q + step), below = offAt(q - step);
            if (!above || !below)
                return std::nullopt;
            m.col(k) = (*above - *below) / (2.0 * step[k]);
        }
        return m;
    }

    /// One step of Newton's, halved until it leads nearer; gives what is left.
    std::optional<Six> improve(const Six& off)
    {
        const auto m = slopes();
        if (!m)
            return std::nullopt;
        const Eigen::Matrix<double, 6, 6> scaled = scale.cwiseInverse().asDiagonal() * *m;
        Six step = scaled.colPivHouseholderQr().solve(off.cwiseQuotient(scale));
        for (int k = 0; k < halvings; ++k, step *= 0.5) {
            const auto left = offAt(q - step);
            if (!left || !(sizeOf(*left) < sizeOf(off)))
                continue;
            q -= step;
            return left;
        }
        return std::nullopt;
    }

    const AnalyticModel& model;
    Six q, target, scale, nearest;
    static constexpr double unreached = std::numeric_limits<double>::max();
    double leastSize = unreached;
    const Elements others;
};

/// In the frame in which SGP4 works.
StateVector turnedBack(const StateVector& state, const AnalyticModel& model)
{
    double eqeq = 0;
    const double T = julcent(state.mjd + ttMinusUt(model.earth, state.mjd) / 86400.0);
    const Mat3 nutation = nutmat(T, eqeq, model.earth.iers);
    const Mat3 back = mxtrn(analyticTurn(nutation, eqeq, model.corrections));
    return {state.mjd, mxvct(back, state.r), mxvct(back, state.v)};
}

}  // namespace

AnalyticModel analyticModelOf(const WinpData& in)
{
    return {in.wgs != 0, in.sdp4, earthOrientationOf(in), in.models};
}

void putMeanElements(const StateVector& state, const AnalyticModel& model, Elements& e)
{
    rv2el(state.r, state.v, e.inc, e.ra, e.ecc, e.aper, e.m0, e.n0);
    if (!model.corrections.exactInversion)
        return;
    Elements start = e;
    start.epoch = state.mjd;
    if (const auto found = Inversion(turnedBack(state, model), model, start).solve())
        e = fromRound(roundOf(*found), e);
}
