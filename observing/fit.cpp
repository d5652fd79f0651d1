#include "observing/fit.h"

#include "observing/fit_words.h"
#include "observing/seen_orbit.h"

#include <Eigen/Dense>
#include <algorithm>
#include <cmath>
#include <optional>

#include "astro/angles.h"
#include "record/progress.h"

namespace {

constexpr double secondsPerDay = 86400.0;
constexpr double defaultErrorDeg = 1.0 / 60.0;
constexpr double leastErrorDeg = 1.0 / 3600.0;  // what a line claims below this is not believed

using Values = std::array<double, fitted::count>;

// clang-format off
constexpr Values steps{1e-4, 1e-4, 1e-6, 1e-3, 1e-3, 1e-6, 1e-6};
constexpr Values roundSteps{1e-4, 1e-4, 1e-6, 1e-6, 1e-3, 1e-6, 1e-6};
constexpr std::array names{"inclination", "node", "eccentricity", "argument of perigee", "mean anomaly", "mean motion",
                           "drag term"};
// Formal errors above these mean that the observations do not determine the element.
constexpr Values undetermined{5.0, 5.0, 0.05, 90.0, 90.0, 0.05, 0.01};
// clang-format on

/// Within the bounds in which the model is defined.
void putValues(const Values& v, Elements& e)
{
    e.inc = std::clamp(v[fitted::inclination], 0.0, 180.0);
    e.ra = v[fitted::node];
    e.ecc = std::clamp(v[fitted::eccentricity], 1e-8, 0.95);
    e.aper = v[fitted::perigee];
    e.m0 = v[fitted::anomaly];
    e.n0 = std::clamp(v[fitted::meanMotion], 0.05, 17.5);
    e.bstar = std::clamp(v[fitted::drag], -0.1, 0.1);
}

/// The sine and cosine of the perigee times the eccentricity, and the mean longitude, in the places of eccentricity,
/// perigee and anomaly. A nearly circular orbit is determined in these.
Values toRound(Values v)
{
    const double e = v[fitted::eccentricity], perigee = v[fitted::perigee] * radPerDeg;
    v[fitted::anomaly] += v[fitted::perigee];
    v[fitted::eccentricity] = e * std::cos(perigee);
    v[fitted::perigee] = e * std::sin(perigee);
    return v;
}

Values fromRound(Values v)
{
    const double c = v[fitted::eccentricity], s = v[fitted::perigee];
    v[fitted::eccentricity] = std::hypot(c, s);
    v[fitted::perigee] = std::atan2(s, c) * degPerRad;
    v[fitted::anomaly] -= v[fitted::perigee];
    return v;
}

/// The derivatives of `fromRound`, by rows of its results.
Eigen::Matrix<double, fitted::count, fitted::count> fromRoundSlopes(const Values& v)
{
    const double c = v[fitted::eccentricity], s = v[fitted::perigee];
    const double e = std::max(std::hypot(c, s), 1e-9);
    Eigen::Matrix<double, fitted::count, fitted::count> slopes = decltype(slopes)::Identity();
    slopes(fitted::eccentricity, fitted::eccentricity) = c / e;
    slopes(fitted::eccentricity, fitted::perigee) = s / e;
    slopes(fitted::perigee, fitted::eccentricity) = -s / (e * e) * degPerRad;
    slopes(fitted::perigee, fitted::perigee) = c / (e * e) * degPerRad;
    slopes.row(fitted::anomaly) -= slopes.row(fitted::perigee);
    return slopes;
}

/// What of an observation does not depend on the orbit.
struct Look
{
    Sight now, before, after;  // half a second between them
    Vec3 observed;
    double sigma;  // degrees
    double timeError;

    Look(const FitRequest& request, const SitedObservation& sited)
        : now(sightOf(request, sited, 0.0)),
          before(sightOf(request, sited, -0.5)),
          after(sightOf(request, sited, 0.5)),
          observed(observedAs(sited.observation)),
          timeError(sited.observation.timeError)
    {
        const double told = sited.observation.angleError;
        sigma = told > 0.0 ? std::max(told, leastErrorDeg) : defaultErrorDeg;
    }

    static Sight sightOf(const FitRequest& request, const SitedObservation& sited, double seconds)
    {
        return {request.earth, sited, sited.observation.mjd + seconds / secondsPerDay, request.againstStars};
    }
};

std::optional<FitResidual> residualOf(SeenOrbit& model, const Look& look)
{
    const auto now = model.directionAt(look.now);
    const auto before = model.directionAt(look.before);
    const auto after = model.directionAt(look.after);
    if (!now || !before || !after)
        return std::nullopt;
    const Vec3 motion = *after - *before;
    const Vec3 ahead = vnorm(motion);
    const Vec3 off = look.observed - *now;
    const double rate = abs(motion) * degPerRad;
    FitResidual residual;
    residual.along = dot(off, ahead) * degPerRad;
    residual.across = dot(off, *now * ahead) * degPerRad;
    residual.seconds = rate > 0.0 ? residual.along / rate : 0.0;
    residual.sigmaAcross = look.sigma;
    residual.sigmaAlong = std::hypot(residual.sigmaAcross, rate * look.timeError);
    return residual;
}

/// The correction of the free elements, one observation after the other.
class Correction
{
public:
    Correction(const FitRequest& theRequest, std::span<const SitedObservation> theObservations)
        : request(theRequest), observations(theObservations)
    {
        for (int k = 0; k < fitted::count; ++k)
            if (request.free[std::size_t(k)])
                columns.push_back(std::size_t(k));
        round = request.free[fitted::eccentricity] && request.free[fitted::perigee] && request.free[fitted::anomaly];
        for (const SitedObservation& sited : observations)
            rows += sited.used ? 2 : 0;
        for (const SitedObservation& sited : observations)
            looks.emplace_back(request, sited);
    }

    FitResult run();

private:
    /// What the corrections work on, and back to elements within their bounds.
    Values inner(const Values& elements) const { return round ? toRound(elements) : elements; }
    Elements outer(const Values& values) const;
    bool residualsAt(const Values& values, std::vector<FitResidual>& residuals) const;
    bool weightedAt(const Values& values, Eigen::VectorXd& weighted) const;
    bool jacobianAt(const Values& values, Eigen::MatrixXd& jacobian) const;
    bool improve(Values& values, Eigen::VectorXd& weighted, double& damping, bool& done) const;
    Eigen::MatrixXd covarianceAt(const Values& values, const Eigen::MatrixXd& jacobian) const;
    void tellErrors(const Values& values, FitResult& result) const;

    const FitRequest& request;
    std::span<const SitedObservation> observations;
    std::vector<Look> looks;
    std::vector<std::size_t> columns;
    bool round = false;  // the three elements of the ellipse are free together
    int rows = 0;
};

Elements Correction::outer(const Values& values) const
{
    Elements e = request.start.elements;
    putValues(round ? fromRound(values) : values, e);
    return e;
}

bool Correction::residualsAt(const Values& values, std::vector<FitResidual>& residuals) const
{
    if (!tellProgress())
        return false;
    Orbit orbit = request.start;
    orbit.propagator = Propagator::analytic;
    orbit.elements = outer(values);
    SeenOrbit model(orbit);
    residuals.clear();
    for (const Look& look : looks) {
        const auto residual = residualOf(model, look);
        if (!residual)
            return false;
        residuals.push_back(*residual);
    }
    return true;
}

bool Correction::weightedAt(const Values& values, Eigen::VectorXd& weighted) const
{
    std::vector<FitResidual> residuals;
    if (!residualsAt(values, residuals))
        return false;
    weighted.resize(rows);
    int row = 0;
    for (std::size_t i = 0; i < residuals.size(); ++i) {
        if (!observations[i].used)
            continue;
        weighted[row++] = residuals[i].along / residuals[i].sigmaAlong;
        weighted[row++] = residuals[i].across / residuals[i].sigmaAcross;
    }
    return weighted.allFinite();
}

bool Correction::jacobianAt(const Values& values, Eigen::MatrixXd& jacobian) const
{
    jacobian.resize(rows, int(columns.size()));
    for (std::size_t c = 0; c < columns.size(); ++c) {
        const double step = (round ? roundSteps : steps)[columns[c]];
        Values more = values, less = values;
        more[columns[c]] += step;
        less[columns[c]] -= step;
        Eigen::VectorXd above, below;
        if (!weightedAt(more, above) || !weightedAt(less, below))
            return false;
        jacobian.col(int(c)) = (above - below) / (2.0 * step);
    }
    return true;
}

/// A step of Levenberg and Marquardt; the damping grows until the sum of squares falls.
bool Correction::improve(Values& values, Eigen::VectorXd& weighted, double& damping, bool& done) const
{
    Eigen::MatrixXd jacobian;
    if (!jacobianAt(values, jacobian))
        return false;
    const Eigen::VectorXd scale = jacobian.colwise().norm().transpose().cwiseMax(1e-30);
    const Eigen::MatrixXd scaled = jacobian * scale.cwiseInverse().asDiagonal();
    const Eigen::MatrixXd normal = scaled.transpose() * scaled;
    const Eigen::VectorXd right = -scaled.transpose() * weighted;
    for (int attempt = 0; attempt < 20; ++attempt, damping *= 8.0) {
        Eigen::MatrixXd damped = normal;
        damped.diagonal() += damping * normal.diagonal();
        const Eigen::VectorXd step = damped.ldlt().solve(right).cwiseQuotient(scale);
        Values tried = values;
        for (std::size_t c = 0; c < columns.size(); ++c)
            tried[columns[c]] += step[int(c)];
        Eigen::VectorXd after;
        if (!step.allFinite() || !weightedAt(tried, after) || !(after.squaredNorm() <= weighted.squaredNorm()))
            continue;
        done = weighted.squaredNorm() - after.squaredNorm() < 1e-8 * (1.0 + weighted.squaredNorm());
        values = inner(fittedValues(outer(tried)));
        weighted = after;
        damping = std::max(damping / 10.0, 1e-12);
        return true;
    }
    done = true;
    return true;
}

/// Of the free elements themselves.
Eigen::MatrixXd Correction::covarianceAt(const Values& values, const Eigen::MatrixXd& jacobian) const
{
    const int count = int(columns.size());
    const Eigen::VectorXd scale = jacobian.colwise().norm().transpose().cwiseMax(1e-30);
    const Eigen::MatrixXd scaled = jacobian * scale.cwiseInverse().asDiagonal();
    const Eigen::MatrixXd inverse =
        Eigen::MatrixXd(scaled.transpose() * scaled).completeOrthogonalDecomposition().pseudoInverse();
    Eigen::MatrixXd slopes = Eigen::MatrixXd::Identity(count, count);
    if (round) {
        const auto all = fromRoundSlopes(values);
        for (int row = 0; row < count; ++row)
            for (int column = 0; column < count; ++column)
                slopes(row, column) = all(int(columns[std::size_t(row)]), int(columns[std::size_t(column)]));
    }
    const Eigen::MatrixXd turned = slopes * scale.cwiseInverse().asDiagonal();
    return turned * inverse * turned.transpose();
}

void Correction::tellErrors(const Values& values, FitResult& result) const
{
    Eigen::MatrixXd jacobian;
    if (!jacobianAt(values, jacobian))
        return;
    const Eigen::MatrixXd covariance = covarianceAt(values, jacobian);
    const Eigen::VectorXd spread = covariance.diagonal().cwiseMax(0.0).cwiseSqrt();
    for (std::size_t c = 0; c < columns.size(); ++c) {
        const std::size_t k = columns[c];
        result.sigma[k] = spread[int(c)];
        for (std::size_t d = 0; d < columns.size(); ++d)
            result.correlation[k][columns[d]] =
                covariance(int(c), int(d)) / std::max(spread[int(c)] * spread[int(d)], 1e-300);
        if (!(result.sigma[k] < undetermined[k]))
            result.warnings.push_back(std::string("the observations do not determine the ") + names[k]);
    }
}

FitResult Correction::run()
{
    constexpr int mostSteps = 60;
    constexpr double highestRms = 10.0;
    FitResult result;
    result.orbit = request.start;
    if (columns.empty() || rows < int(columns.size())) {
        result.complaint = "there are " + std::to_string(rows) + " measured angles for " +
                           std::to_string(columns.size()) + " elements";
        return result;
    }
    Values values = inner(fittedValues(request.start.elements));
    Eigen::VectorXd weighted;
    bool good = weightedAt(values, weighted);
    double damping = 1e-3;
    for (int step = 0; good && !result.converged && step < mostSteps; ++step)
        good = improve(values, weighted, damping, result.converged);
    if (!good || !residualsAt(values, result.residuals)) {
        result.complaint = calculationEnded()
                               ? "it was ended"
                               : "the model has no place for the satellite at the time of an observation";
        result.converged = false;
        return result;
    }
    Elements& e = result.orbit.elements = outer(values);
    const auto turn = [](double degrees) { return degrees - 360.0 * std::floor(degrees / 360.0); };
    e.ra = turn(e.ra);
    e.aper = turn(e.aper);
    e.m0 = turn(e.m0);
    result.rms = std::sqrt(weighted.squaredNorm() / rows);
    tellErrors(values, result);
    if (result.rms > highestRms)
        result.warnings.emplace_back(
            "the residuals are far beyond the standard errors: look at places, times and frames, "
            "and at the satellite");
    return result;
}

}  // namespace

bool observedDirection(const FitRequest& request, const SitedObservation& sited, double mjd, Vec3& direction)
{
    SeenOrbit model(request.start);
    const auto found = model.directionAt(Sight(request.earth, sited, mjd, request.againstStars));
    if (found)
        direction = *found;
    return found.has_value();
}

FitResult fitElements(const FitRequest& request, std::span<const SitedObservation> observations)
{
    return Correction(request, observations).run();
}
