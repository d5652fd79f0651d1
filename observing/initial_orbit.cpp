#include "observing/initial_orbit.h"

#include "astro/earth.h"
#include "orbit/conversions.h"
#include "record/progress.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <optional>

namespace {

constexpr double gmKm3PerS2 = 398600.5;
constexpr double secondsPerDay = 86400.0;
constexpr double lowestKm = 6450.0, highestKm = 500000.0;
constexpr std::size_t mostTriples = 40;

/// The radii at which a function changes its sign.
std::vector<double> rootsAt(const std::function<double(double)>& function)
{
    constexpr int steps = 600;
    const double factor = std::pow(highestKm / lowestKm, 1.0 / steps);
    std::vector<double> roots;
    double low = lowestKm, atLow = function(low);
    for (int i = 0; i < steps; ++i) {
        const double high = low * factor, atHigh = function(high);
        if (atLow * atHigh < 0.0) {
            double a = low, b = high;
            for (int halving = 0; halving < 50; ++halving)
                (function(a) * function(0.5 * (a + b)) <= 0.0 ? b : a) = 0.5 * (a + b);
            roots.push_back(0.5 * (a + b));
        }
        low = high;
        atLow = atHigh;
    }
    return roots;
}

/// The quantities of Gauss' method, as Curtis names them (Orbital Mechanics for Engineering Students, section 5.10).
struct Gauss
{
    double tau1, tau3, tau, D0, A, B, E, R2;
    double D[3][3];

    explicit Gauss(const DirectionTriple& t)
        : tau1(t.seconds[0] - t.seconds[1]), tau3(t.seconds[2] - t.seconds[1]), tau(tau3 - tau1)
    {
        const Vec3 *L = t.direction, *R = t.observer;
        const Vec3 p[3] = {L[1] * L[2], L[0] * L[2], L[0] * L[1]};
        D0 = dot(L[0], p[0]);
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j)
                D[i][j] = dot(R[i], p[j]);
        A = (-D[0][1] * tau3 / tau + D[1][1] + D[2][1] * tau1 / tau) / D0;
        B = (D[0][1] * (tau3 * tau3 - tau * tau) * tau3 / tau + D[2][1] * (tau * tau - tau1 * tau1) * tau1 / tau) /
            (6.0 * D0);
        E = dot(R[1], L[1]);
        R2 = dot(R[1], R[1]);
    }

    double polynomial(double x) const
    {
        const double a = -(A * A + 2.0 * A * E + R2), b = -2.0 * gmKm3PerS2 * B * (A + E);
        const double x3 = x * x * x;
        return (x * x + a) * x3 * x3 + b * x3 - gmKm3PerS2 * gmKm3PerS2 * B * B;
    }

    /// Distances from the observers, km.
    std::array<double, 3> rangesAt(double r2) const
    {
        const double cube = 6.0 * r2 * r2 * r2, gm = gmKm3PerS2;
        const double first = ((D[2][0] * tau1 / tau3 + D[1][0] * tau / tau3) * cube +
                              gm * D[2][0] * (tau * tau - tau1 * tau1) * tau1 / tau3) /
                             (cube + gm * (tau * tau - tau3 * tau3));
        const double third = ((D[0][2] * tau3 / tau1 - D[1][2] * tau / tau1) * cube +
                              gm * D[0][2] * (tau * tau - tau3 * tau3) * tau3 / tau1) /
                             (cube + gm * (tau * tau - tau1 * tau1));
        return {(first - D[0][0]) / D0, A + 6.0 * gm * B / cube, (third - D[2][2]) / D0};
    }
};

PlaceAndVelocity gaussState(const DirectionTriple& triple, const Gauss& gauss, double r2)
{
    const auto ranges = gauss.rangesAt(r2);
    Vec3 r[3];
    for (std::size_t i = 0; i < 3; ++i)
        r[i] = triple.observer[i] + ranges[i] * triple.direction[i];
    const double u = gmKm3PerS2 / (r2 * r2 * r2), t1 = gauss.tau1, t3 = gauss.tau3;
    const double f1 = 1.0 - 0.5 * u * t1 * t1, f3 = 1.0 - 0.5 * u * t3 * t3;
    const double g1 = t1 - u * t1 * t1 * t1 / 6.0, g3 = t3 - u * t3 * t3 * t3 / 6.0;
    return {r[1], (1.0 / (f1 * g3 - f3 * g1)) * (f1 * r[2] - f3 * r[0])};
}

/// Where a line of sight leaves a sphere around the Earth.
Vec3 onSphere(const Vec3& observer, const Vec3& direction, double radius)
{
    const double along = dot(observer, direction);
    const double root = along * along + radius * radius - dot(observer, observer);
    return observer + (std::sqrt(std::max(root, 0.0)) - along) * direction;
}

/// How much further a satellite on the circle flies between the first and the last direction than these are apart.
double aheadOnCircle(const DirectionTriple& t, double radius)
{
    const Vec3 a = onSphere(t.observer[0], t.direction[0], radius),
               b = onSphere(t.observer[2], t.direction[2], radius);
    const double flown = std::sqrt(gmKm3PerS2 / radius) / radius * (t.seconds[2] - t.seconds[0]);
    return flown - std::atan2(abs(a * b), dot(a, b));
}

/// The used observations in the order of their times, with what they say in the inertial frame.
struct Arc
{
    std::vector<SitedObservation> seen;
    std::vector<Vec3> observers, directions;

    Arc(const FitRequest& request, std::span<const SitedObservation> observations)
    {
        std::ranges::copy_if(observations, std::back_inserter(seen), &SitedObservation::used);
        std::ranges::sort(seen, {}, [](const SitedObservation& o) { return o.observation.mjd; });
        for (const SitedObservation& o : seen) {
            const Sight sight(request.earth, o, o.observation.mjd, request.againstStars);
            observers.push_back(sight.observer());
            directions.push_back(sight.inward(observedAs(o.observation)));
        }
    }

    double timeOf(std::size_t i) const { return seen[i].observation.mjd; }
};

using Indices = std::array<std::size_t, 3>;

/// Triples whose ends are up to half a day apart, with the third one as near to the middle as can be; and pairs of one
/// pass, which have the second one twice.
std::vector<Indices> triplesOf(const Arc& arc)
{
    constexpr double longestDays = 0.5, shortestDays = 20.0 / secondsPerDay, passDays = 1200.0 / secondsPerDay;
    std::vector<Indices> triples;
    for (std::size_t i = 0; i + 1 < arc.seen.size(); ++i)
        for (std::size_t k = i + 1; k < arc.seen.size(); ++k) {
            const double span = arc.timeOf(k) - arc.timeOf(i), middle = arc.timeOf(i) + 0.5 * span;
            if (span < shortestDays || span > longestDays)
                continue;
            if (k == i + 1 && span < passDays)
                triples.push_back({i, k, k});
            std::size_t best = i + 1;
            for (std::size_t j = i + 1; j < k; ++j)
                if (std::abs(arc.timeOf(j) - middle) < std::abs(arc.timeOf(best) - middle))
                    best = j;
            if (arc.timeOf(best) > arc.timeOf(i) && arc.timeOf(best) < arc.timeOf(k))
                triples.push_back({i, best, k});
        }
    return triples;
}

/// Those that arcs of some minutes suit best come first: low satellites are the most.
void putInOrder(std::vector<Indices>& triples, const Arc& arc)
{
    constexpr double usualDays = 240.0 / secondsPerDay;
    const auto offUsual = [&](const Indices& t) {
        return std::abs(std::log((arc.timeOf(t[2]) - arc.timeOf(t[0])) / usualDays));
    };
    std::ranges::sort(triples, {}, offUsual);
    if (triples.size() > mostTriples) {  // half of them near the usual length, half spread over the others
        const std::size_t half = mostTriples / 2, rest = triples.size() - half;
        for (std::size_t i = 0; i < half; ++i)
            triples[half + i] = triples[half + i * rest / half];
        triples.resize(mostTriples);
    }
}

DirectionTriple tripleAt(const Arc& arc, const Indices& indices)
{
    DirectionTriple triple;
    for (std::size_t i = 0; i < 3; ++i) {
        triple.observer[i] = arc.observers[indices[i]];
        triple.direction[i] = arc.directions[indices[i]];
        triple.seconds[i] = (arc.timeOf(indices[i]) - arc.timeOf(indices[1])) * secondsPerDay;
    }
    return triple;
}

/// Mean elements of a state, if it is that of a satellite.
std::optional<Orbit> orbitFrom(const FitRequest& request, const PlaceAndVelocity& state, double mjd)
{
    constexpr double metresPerKm = 1000.0, largest = 0.95;
    const Vec3 r = metresPerKm * state.r, v = metresPerKm * state.v;
    if (!std::isfinite(dot(r, r) + dot(v, v)) || !hasMeanElements(r, v))
        return std::nullopt;
    Orbit orbit = request.start;
    orbit.propagator = Propagator::analytic;
    orbit.elements = {};
    Elements& e = orbit.elements;
    e.epoch = mjd;
    rv2el(r, v, e.inc, e.ra, e.ecc, e.aper, e.m0, e.n0);
    const double energy = 0.5 * dot(state.v, state.v) - gmKm3PerS2 / abs(state.r);
    const double perigee = -0.5 * gmKm3PerS2 / energy * (1.0 - e.ecc);
    return energy < 0.0 && e.ecc < largest && perigee > lowestKm - 100.0 ? std::optional(orbit) : std::nullopt;
}

/// An orbit fitted to the observations of an interval.
struct Candidate
{
    Orbit orbit;
    double rms = 0;
    std::size_t first = 0, last = 0;  // of the observations
};

bool refine(FitRequest request, const Arc& arc, Candidate& candidate, double highestRms)
{
    request.start = candidate.orbit;
    request.free.fill(true);
    request.free[fitted::drag] = false;
    const bool circle = candidate.last - candidate.first < 2;
    request.free[fitted::eccentricity] = request.free[fitted::perigee] = !circle;
    const FitResult fit =
        fitElements(request, std::span(arc.seen).subspan(candidate.first, candidate.last - candidate.first + 1));
    if (!fit.complaint.empty() || !(fit.rms < highestRms))
        return false;
    candidate.orbit = fit.orbit;
    candidate.rms = fit.rms;
    return true;
}

/// Takes in the observations around the arc, in intervals that grow.
bool extend(const FitRequest& request, const Arc& arc, Candidate& candidate)
{
    constexpr double growth = 2.5, highestRms = 3000.0;
    while (candidate.first > 0 || candidate.last + 1 < arc.seen.size()) {
        const double from = arc.timeOf(candidate.first), to = arc.timeOf(candidate.last);
        const double more = growth * (to - from);
        const auto before = candidate;
        while (candidate.first > 0 && arc.timeOf(candidate.first - 1) > from - more)
            --candidate.first;
        while (candidate.last + 1 < arc.seen.size() && arc.timeOf(candidate.last + 1) < to + more)
            ++candidate.last;
        if (candidate.first == before.first && candidate.last == before.last) {  // a gap: the nearer side
            const bool toFirst =
                candidate.first > 0 && (candidate.last + 1 == arc.seen.size() ||
                                        from - arc.timeOf(candidate.first - 1) < arc.timeOf(candidate.last + 1) - to);
            toFirst ? --candidate.first : ++candidate.last;
        }
        if (!refine(request, arc, candidate, highestRms))
            return false;
    }
    return true;
}

/// The candidates of a triple, fitted to all observations. Keeps the best.
void tryTriple(const FitRequest& request, const Arc& arc, const Indices& indices, std::optional<Candidate>& best)
{
    constexpr double highestRms = 100.0;
    const DirectionTriple triple = tripleAt(arc, indices);
    const bool pair = indices[1] == indices[2];
    std::vector<PlaceAndVelocity> states = pair ? std::vector<PlaceAndVelocity>() : gaussStates(triple);
    const auto circles = circleStates(triple);
    states.insert(states.end(), circles.begin(), circles.end());
    for (const PlaceAndVelocity& state : states) {
        const auto orbit = orbitFrom(request, state, arc.timeOf(indices[1]));
        if (!orbit || !tellProgress())
            continue;
        Candidate candidate{*orbit, 0.0, indices[0], indices[2]};
        if (!refine(request, arc, candidate, highestRms) || !extend(request, arc, candidate))
            continue;
        const auto worth = [](const Candidate& c) { return c.rms + c.orbit.elements.ecc; };
        if (!best || worth(candidate) < worth(*best))
            best = candidate;
    }
}

}  // namespace

std::vector<PlaceAndVelocity> gaussStates(const DirectionTriple& triple)
{
    const Gauss gauss(triple);
    std::vector<PlaceAndVelocity> states;
    if (!std::isfinite(gauss.A) || !std::isfinite(gauss.B))
        return states;
    for (const double r2 : rootsAt([&](double x) { return gauss.polynomial(x); }))
        if (gauss.rangesAt(r2)[1] > 0.0)
            states.push_back(gaussState(triple, gauss, r2));
    return states;
}

std::vector<PlaceAndVelocity> circleStates(const DirectionTriple& t)
{
    std::vector<PlaceAndVelocity> states;
    for (const double radius : rootsAt([&](double x) { return aheadOnCircle(t, x); })) {
        const Vec3 a = vnorm(onSphere(t.observer[0], t.direction[0], radius));
        const Vec3 normal = vnorm(a * vnorm(onSphere(t.observer[2], t.direction[2], radius)));
        const double speed = std::sqrt(gmKm3PerS2 / radius), angle = speed / radius * -t.seconds[0];
        const Vec3 ahead = normal * a;
        states.push_back({radius * (std::cos(angle) * a + std::sin(angle) * ahead),
                          speed * (std::cos(angle) * ahead - std::sin(angle) * a)});
    }
    return states;
}

InitialOrbit initialOrbit(const FitRequest& request, std::span<const SitedObservation> observations)
{
    constexpr double goodRms = 2.0, highestRms = 10.0;
    const LongCalculation calculation;
    const Arc arc(request, observations);
    if (arc.seen.size() < 3)
        return {{}, "an orbit needs three observations, there are " + std::to_string(arc.seen.size())};
    std::vector<Indices> triples = triplesOf(arc);
    if (triples.empty())
        return {{}, "no three observations are within half a day"};
    putInOrder(triples, arc);
    std::optional<Candidate> best;
    for (const Indices& indices : triples)
        if (tellProgress() && !(best && best->rms < goodRms && arc.seen.size() > 3))
            tryTriple(request, arc, indices, best);
    if (calculationEnded())
        return {{}, "it was ended"};
    if (!best || best->rms > highestRms)
        return {{}, "no orbit fits the observations"};
    return {best->orbit, {}};
}
