#include "orbit/num_prop.h"

#include "orbit/flight.h"
#include "orbit/integrator.h"

#include <algorithm>
#include <iterator>

constinit thread_local double smy[6] = {};

namespace {

/// The thread's view of its last integration.
void showFlight(const Arrival& end, const WinpData& in, int k)
{
    const auto& [mjd, r, v] = end.state;
    std::copy(std::begin(r.e), std::end(r.e), smy);
    std::copy(std::begin(v.e), std::end(v.e), smy + 3);
    nmrksx = k;
    spos = end.bodies.sun;
    mpos = end.bodies.moon;
    rkf.SetTolerance(in.RKFtol, 1);
    rkf.SetMaxIter(in.mxit);
}

void store(const Arrival& end, WinpData& in, int k)
{
    putCurrentState(end.state, in, k);
    if (!end.moved)
        return;
    in.moondst = *end.moonDistance;
    if (in.epu[k]) {
        putEpochState(end.state, in, k);
        putElements(elementsAt(end.state, elementsOf(in, k)), in, k);
    }
}

}  // namespace

void NumProp(double t, WinpData* in, int k, const Vec3& sun, const Vec3& moon, Vec3& r, Vec3& v)
{
    const Arrival end = fly(orbitOf(*in, k), t, sun, moon);
    showFlight(end, *in, k);
    if (!end.found) {
        r.assign(100, 0, 0);
        v.assign(0, 10, 0);
        return;
    }
    store(end, *in, k);
    const auto& place = end.state.r;
    const auto& speed = end.state.v;
    r.assign(place[0] / 1000.0, place[1] / 1000.0, place[2] / 1000.0);
    v.assign(speed[0] / 1000.0, speed[1] / 1000.0, speed[2] / 1000.0);
}
