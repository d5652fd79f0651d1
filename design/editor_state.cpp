#include "design/editor_state.h"

#include "astro/time_scales.h"
#include "astro/two_body.h"
#include "orbit/conversions.h"
#include "orbit/mean_motion.h"

namespace editor {

namespace {

constexpr double gmKm3PerDay2 = 2975536351779840.0;
constexpr double secondsPerDay = 86400.0;
constexpr double metresPerKm = 1000.0;
constexpr double geoMeanMotion = 1.00270065;  // rev/day
constexpr double geoInclinationDeg = 0.001;
constexpr double substituteAxisKm = -1000.0;

}  // namespace

State stateOf(const Elements& elements)
{
    const bool open = elements.ecc >= 1.0;
    const double m0 = open ? 0.0 : elements.m0;
    const double a = open && !(elements.a < 0.0) ? substituteAxisKm : elements.a;
    State state;
    kepler(gmKm3PerDay2, elements.epoch, elements.epoch, m0, a, elements.ecc, elements.ra, elements.aper,
           elements.inc, state.r, state.v);
    state.v = state.v / secondsPerDay;
    return state;
}

bool hasSgp4Elements(const State& state)
{
    return hasMeanElements(metresPerKm * state.r, metresPerKm * state.v);
}

Elements elementsOf(const State& state, double epoch, bool sgp4, const AnalyticModel& model)
{
    Elements e;
    double perigeeTime = 0;
    oscelm(gmKm3PerDay2, epoch, state.r, secondsPerDay * state.v, perigeeTime, e.m0, e.a, e.ecc, e.ra, e.aper, e.inc);
    e.epoch = e.ecc >= 1.0 ? perigeeTime : epoch;
    if (sgp4 && hasSgp4Elements(state))
        putMeanElements({epoch, metresPerKm * state.r, metresPerKm * state.v}, model, e);
    return e;
}

Elements geostationary(double longitude, double epoch)
{
    Elements e;
    e.epoch = epoch;
    const double ra = 15.0 * lsidtim(epoch, longitude, 0.0);
    e.ra = ra < 0.0 ? ra + 360.0 : ra;
    e.inc = geoInclinationDeg;
    e.n0 = geoMeanMotion;
    e.a = getsax(0, geoMeanMotion, 0.0, geoInclinationDeg);
    return e;
}

}  // namespace editor
