#include "observing/fit.h"

#include <Eigen/Dense>
#include <algorithm>
#include <cmath>
#include <optional>

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/earth.h"
#include "astro/frames.h"
#include "orbit/sgp4.h"

namespace {

constexpr double secondsPerDay = 86400.0;
constexpr double lightKmPerS = 299792.458;
constexpr double epoch1950 = 33281.0;
constexpr double defaultErrorDeg = 1.0 / 60.0;
constexpr double leastErrorDeg = 1.0 / 3600.0;  // what a line claims below this is not believed

using Values = std::array<double, fitted::count>;

// clang-format off
constexpr Values steps{1e-4, 1e-4, 1e-6, 1e-3, 1e-3, 1e-6, 1e-6};
constexpr std::array names{"inclination", "node", "eccentricity", "argument of perigee", "mean anomaly", "mean motion",
                           "drag term"};
// Formal errors above these mean that the observations do not determine the element.
constexpr Values undetermined{5.0, 5.0, 0.05, 90.0, 90.0, 0.05, 0.01};
// clang-format on

Values valuesOf(const Elements& e)
{
    return {e.inc, e.ra, e.ecc, e.aper, e.m0, e.n0, e.bstar};
}

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

/// An element set ready for the model.
struct Model
{
    gravconsttype constants;
    elsetrec elements{};
    double epoch;

    explicit Model(const Orbit& orbit) : constants(orbit.wgs84 ? wgs84 : wgs72), epoch(orbit.elements.epoch)
    {
        const Elements& e = orbit.elements;
        sgp4init(constants, orbit.deepSpace, epoch - epoch1950, e.bstar, e.ecc, e.aper * radPerDeg, e.inc * radPerDeg,
                 e.m0 * radPerDeg, e.n0 * twoPi / 1440.0, e.ra * radPerDeg, elements);
    }

    /// km, true equator and mean equinox of date.
    std::optional<Vec3> placeAt(double mjd)
    {
        double r[3] = {}, v[3] = {};
        const int error = sgp4(constants, elements, (mjd - epoch) * 1440.0, r, v);
        const Vec3 place(r[0], r[1], r[2]);
        return error == 0 && std::isfinite(dot(place, place)) ? std::optional(place) : std::nullopt;
    }
};

/// Earth and observer at an instant.
struct Stage
{
    double ut1, T, eqeq = 0;
    Mat3 nutation;
    Vec3 observer;  // km, true equator of date

    Stage(const EarthOrientation& earth, const Site& site, double mjd)
    {
        int day = 0, month = 0, year = 0;
        double hour = 0;
        caldat(mjd, day, month, year, hour);
        ut1 = mjd + (earth.iers ? earth.ut1Utc : 0.0) / secondsPerDay;
        T = julcent(ut1 + ttMinusUt(earth, year) / secondsPerDay);
        nutation = nutmat(T, eqeq, true);
        observer = earthRadiusKm *
                   GeoPos(ut1, eqeq, site.lat * radPerDeg, site.lng * radPerDeg, site.height, earth.xp, earth.yp);
    }
};

/// From the observer to where the satellite was when the light left it; km, true equator of date.
std::optional<Vec3> sightLine(Model& model, const Stage& stage, double mjd)
{
    const Mat3 toTrue = zrot(-stage.eqeq * twoPi / secondsPerDay);
    Vec3 line;
    double lightDays = 0;
    for (int pass = 0; pass < 3; ++pass) {
        const auto place = model.placeAt(mjd - lightDays);
        if (!place)
            return std::nullopt;
        line = mxvct(toTrue, *place) - stage.observer;
        lightDays = abs(line) / lightKmPerS / secondsPerDay;
    }
    return line;
}

std::optional<Vec3> directionAt(Model& model, const FitRequest& request, const SitedObservation& sited, double mjd)
{
    const Observation& o = sited.observation;
    const Stage stage(request.earth, sited.site, mjd);
    const auto line = sightLine(model, stage, mjd);
    if (!line)
        return std::nullopt;
    if (o.angles == SkyAngles::horizontal)
        return vnorm(EquHor(stage.ut1, stage.eqeq, sited.site.lat * radPerDeg, sited.site.lng * radPerDeg, *line));
    if (o.equinox == 0.0)
        return vnorm(*line);
    Vec3 u = vnorm(mxvct(mxtrn(stage.nutation), *line));
    if (request.againstStars)
        u = vnorm(u + u - aberrat(stage.T, u));
    return mxvct(pmatequ(stage.T, (o.equinox - 2000.0) / 100.0), u);
}

/// The observed direction in the frame of `directionAt`.
Vec3 directionOf(const Observation& o)
{
    const double longitude = o.angles == SkyAngles::horizontal ? 180.0 - o.first : o.first;
    return polcar({1.0, longitude * radPerDeg, o.second * radPerDeg});
}

std::optional<FitResidual> residualOf(Model& model, const FitRequest& request, const SitedObservation& sited)
{
    constexpr double halfSecondDays = 0.5 / secondsPerDay;
    const Observation& o = sited.observation;
    const auto now = directionAt(model, request, sited, o.mjd);
    const auto before = directionAt(model, request, sited, o.mjd - halfSecondDays);
    const auto after = directionAt(model, request, sited, o.mjd + halfSecondDays);
    if (!now || !before || !after)
        return std::nullopt;
    const Vec3 motion = *after - *before;
    const Vec3 ahead = vnorm(motion);
    const Vec3 off = directionOf(o) - *now;
    const double rate = abs(motion) * degPerRad;
    FitResidual residual;
    residual.along = dot(off, ahead) * degPerRad;
    residual.across = dot(off, *now * ahead) * degPerRad;
    residual.seconds = rate > 0.0 ? residual.along / rate : 0.0;
    residual.sigmaAcross = o.angleError > 0.0 ? std::max(o.angleError, leastErrorDeg) : defaultErrorDeg;
    residual.sigmaAlong = std::hypot(residual.sigmaAcross, rate * o.timeError);
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
        for (const SitedObservation& sited : observations)
            rows += sited.used ? 2 : 0;
    }

    FitResult run();

private:
    bool residualsAt(const Values& values, std::vector<FitResidual>& residuals) const;
    bool weightedAt(const Values& values, Eigen::VectorXd& weighted) const;
    bool jacobianAt(const Values& values, Eigen::MatrixXd& jacobian) const;
    bool improve(Values& values, Eigen::VectorXd& weighted, double& damping, bool& done) const;
    void tellErrors(const Values& values, FitResult& result) const;

    const FitRequest& request;
    std::span<const SitedObservation> observations;
    std::vector<std::size_t> columns;
    int rows = 0;
};

bool Correction::residualsAt(const Values& values, std::vector<FitResidual>& residuals) const
{
    Orbit orbit = request.start;
    putValues(values, orbit.elements);
    Model model(orbit);
    residuals.clear();
    for (const SitedObservation& sited : observations) {
        const auto residual = residualOf(model, request, sited);
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
        Values more = values, less = values;
        more[columns[c]] += steps[columns[c]];
        less[columns[c]] -= steps[columns[c]];
        Eigen::VectorXd above, below;
        if (!weightedAt(more, above) || !weightedAt(less, below))
            return false;
        jacobian.col(int(c)) = (above - below) / (2.0 * steps[columns[c]]);
    }
    return true;
}

/// A step of Levenberg and Marquardt; the damping grows until the sum of squares falls.
bool Correction::improve(Values& values, Eigen::VectorXd& weighted, double& damping, bool& done) const
{
    Eigen::MatrixXd jacobian;
    if (!jacobianAt(values, jacobian))
        return false;
    const Eigen::MatrixXd normal = jacobian.transpose() * jacobian;
    const Eigen::VectorXd right = -jacobian.transpose() * weighted;
    for (int attempt = 0; attempt < 20; ++attempt, damping *= 8.0) {
        Eigen::MatrixXd damped = normal;
        damped.diagonal() += damping * normal.diagonal();
        const Eigen::VectorXd step = damped.ldlt().solve(right);
        Values tried = values;
        for (std::size_t c = 0; c < columns.size(); ++c)
            tried[columns[c]] += step[int(c)];
        Eigen::VectorXd after;
        if (!step.allFinite() || !weightedAt(tried, after) || !(after.squaredNorm() <= weighted.squaredNorm()))
            continue;
        done = weighted.squaredNorm() - after.squaredNorm() < 1e-8 * (1.0 + weighted.squaredNorm());
        Orbit bounded;
        putValues(tried, bounded.elements);
        values = valuesOf(bounded.elements);
        weighted = after;
        damping = std::max(damping / 10.0, 1e-12);
        return true;
    }
    done = true;
    return true;
}

void Correction::tellErrors(const Values& values, FitResult& result) const
{
    Eigen::MatrixXd jacobian;
    if (!jacobianAt(values, jacobian))
        return;
    const Eigen::VectorXd scale = jacobian.colwise().norm().transpose().cwiseMax(1e-30);
    const Eigen::MatrixXd scaled = jacobian * scale.cwiseInverse().asDiagonal();
    const Eigen::MatrixXd inverse =
        Eigen::MatrixXd(scaled.transpose() * scaled).completeOrthogonalDecomposition().pseudoInverse();
    for (std::size_t c = 0; c < columns.size(); ++c) {
        const std::size_t k = columns[c];
        result.sigma[k] = std::sqrt(std::max(inverse(int(c), int(c)), 0.0)) / scale[int(c)];
        if (!(result.sigma[k] < undetermined[k]))
            result.warnings.push_back(std::string("the observations do not determine the ") + names[k]);
    }
}

FitResult Correction::run()
{
    constexpr int mostSteps = 60;
    FitResult result;
    result.orbit = request.start;
    if (columns.empty() || rows < int(columns.size())) {
        result.complaint = "there are " + std::to_string(rows) + " measured angles for " +
                           std::to_string(columns.size()) + " elements";
        return result;
    }
    Values values = valuesOf(request.start.elements);
    Eigen::VectorXd weighted;
    bool good = weightedAt(values, weighted);
    double damping = 1e-3;
    for (int step = 0; good && !result.converged && step < mostSteps; ++step)
        good = improve(values, weighted, damping, result.converged);
    if (!good || !residualsAt(values, result.residuals)) {
        result.complaint = "the model has no place for the satellite at the time of an observation";
        result.converged = false;
        return result;
    }
    putValues(values, result.orbit.elements);
    Elements& e = result.orbit.elements;
    const auto turn = [](double degrees) { return degrees - 360.0 * std::floor(degrees / 360.0); };
    e.ra = turn(e.ra);
    e.aper = turn(e.aper);
    e.m0 = turn(e.m0);
    result.rms = std::sqrt(weighted.squaredNorm() / rows);
    tellErrors(values, result);
    return result;
}

}  // namespace

bool observedDirection(const FitRequest& request, const SitedObservation& sited, double mjd, Vec3& direction)
{
    Model model(request.start);
    const auto found = directionAt(model, request, sited, mjd);
    if (found)
        direction = *found;
    return found.has_value();
}

FitResult fitElements(const FitRequest& request, std::span<const SitedObservation> observations)
{
    return Correction(request, observations).run();
}
