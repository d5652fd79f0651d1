#include "engine/prediction.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <utility>

#include "astro/angles.h"
#include "engine/aos_list.h"
#include "engine/flares.h"
#include "engine/lazy_position.h"
#include "engine/pass_search.h"
#include "engine/position.h"
#include "engine/thorough_search.h"
#include "orbit/force_model.h"
#include "orbit/integrator.h"
#include "orbit/num_prop.h"
#include "orbit/sgp4.h"
#include "record/vector_registers.h"

namespace {

constexpr int slot = 0;

void putForces(const Forces& f, WinpData& in)
{
    in.sunf = f.sun;
    in.moonf = f.moon;
    in.Cd[slot] = f.Cd;
    in.Cr[slot] = f.Cr;
    in.Am[slot] = f.Am;
    in.lift = f.lift;
    in.F107[slot] = f.F107;
    in.FB107[slot] = f.FB107;
    in.Kp[slot] = f.Kp;
    in.ionf[slot] = f.thrustOn;
    in.suns[slot] = f.thrustNeedsSun;
    in.deltv[slot] = f.thrust;
    in.yaw[slot] = f.yaw;
    in.pitch[slot] = f.pitch;
    in.RKFtol = f.tolerance;
    in.mxit = f.maxIterations;
}

void putOrbit(const Orbit& orbit, WinpData& in)
{
    in.satn = 1;
    std::copy(std::begin(orbit.name), std::end(orbit.name), in.fsname[slot]);
    in.norad[slot] = orbit.norad;
    in.aflg[slot] = orbit.propagator == Propagator::analytic;
    in.numflg[slot] = orbit.propagator == Propagator::numeric;
    in.wgs = orbit.wgs84;
    in.sdp4 = orbit.deepSpace;
    putEpochState(orbit.epochState, in, slot);
    putElements(orbit.elements, in, slot);
    if (in.numflg[slot])
        in.mjdep[slot] = orbit.epochState.mjd;
    putCurrentState(orbit.current, in, slot);
    in.epu[slot] = orbit.epochFollows;
    putForces(orbit.forces, in);
}

void putSite(const Site& site, WinpData& in)
{
    in.lat = site.lat;
    in.lng = site.lng;
    in.height = site.height;
}

void putConditions(const Conditions& c, WinpData& in)
{
    in.satel = c.leastElevation;
    in.sunel = c.highestSun;
    in.visflg = c.visibleOnly;
}

void putModels(const Models& m, WinpData& in)
{
    in.IERSflg = m.earth.iers;
    in.Ut1Utc = m.earth.ut1Utc;
    in.UtcTai = m.earth.utcTai;
    in.IERSxp = m.earth.xp;
    in.IERSyp = m.earth.yp;
    in.yrepoch = m.equinox;
    in.refrc = m.refraction;
    in.chlen = m.sphereDiameter;
    in.moonflg = m.moonlight;
    in.atmx = m.extinction;
    in.eclflg = m.solarEclipses;
    in.models = m.corrections;
}

void putEvents(const EventQuery& search, bool panels, WinpData& in)
{
    const bool amongStars = search.kind == EventKind::occultation || search.inertial;
    in.occra = amongStars ? DegFDms(search.ra) : search.yaw;
    in.occdec = amongStars ? DegFDms(search.dec) : search.pitch;
    in.maxdst = search.maxDistance;
    in.irmag = search.faintest;
    if (search.kind == EventKind::mirrorFlare) {
        putMirrors(&in);
        in.chlen = in.moonflg ? 1.0 : 0.0;  // the brightness of the Moon is needed
        in.irsolp = panels;
        return;
    }
    in.flarflg = search.kind == EventKind::flare;
    in.flarmod = search.inertial ? 2 : 1;
    if (search.kind == EventKind::sunTransit)
        in.occflg = 1;
    else if (search.kind == EventKind::moonTransit)
        in.occflg = 2;
    else if (search.kind == EventKind::occultation)
        in.occflg = 3;
    chooseEventKind(&in);
}

/// What the numeric propagator shows of its last integration.
struct FlightOnShow
{
    std::array<double, 6> state{std::to_array(smy)};
    int slotOnShow = nmrksx;
    Vec3 sun = spos, moon = mpos;
    RKF45 integrator = rkf;

    void putBack()
    {
        std::copy(state.begin(), state.end(), smy);
        nmrksx = slotOnShow;
        spos = sun;
        mpos = moon;
        std::swap(rkf, integrator);
    }
};

/// Whether a state is the one that stands for a failed model, whichever way it has been turned.
bool standsForFailure(const Vec3& r, const Vec3& v)
{
    return std::abs(abs(r) - 100.0) < 1e-6 && std::abs(abs(v) - 10.0) < 1e-6;
}

Position positionOf(const Scene& s)
{
    const SatPosData& sp = *s.sp;
    Position p;
    p.mjd = s.mjd;
    p.found = !standsForFailure(s.r, s.v);
    p.r = s.r;
    p.v = s.v;
    p.lat = sp.lat[slot];
    p.lng = sp.lng[slot];
    p.height = sp.hgt[slot];
    p.elevation = sp.el[slot];
    p.apparentElevation = apparentElevation(s.models.refraction, sp.el[slot]);
    p.azimuth = sp.az[slot];
    p.range = sp.dst[slot];
    p.rangeRate = sp.rrate[slot];
    p.ra = DmsDegF(sp.ra[slot]);
    p.dec = DmsDegF(sp.dec[slot]);
    p.observerSun = sp.osunel;
    p.sunElevation = sp.sunel[slot];
    p.moonElevation = sp.moonel[slot];
    p.beta = sp.beta[slot];
    p.subSolarLat = sp.sslat;
    p.subSolarLng = sp.sslng;
    if (s.models.sphereDiameter > 0.0)
        p.magnitude = sp.mag;
    if (s.models.solarEclipses)
        p.eclipse = SolarEclipse{s.in->ecltyp, s.in->smang, s.in->eclmag, s.in->eclpow, s.eclipseIncrement};
    return p;
}

}  // namespace

/// The records that the values stand in, and what the thread keeps of the satellite between two calls.
class Predictor::Records
{
public:
    WinpData in;
    SatPosData positions;
    std::shared_ptr<const HorizonLine> horizon;

    /// The search for what the conditions allow.
    PassQuery query()
    {
        PassQuery query{&in, &positions, slot};
        query.limits.horizon = horizon.get();
        return query;
    }

    /// Runs a calculation with the thread's variables set to those of these records, and puts them back.
    template <class Calculation>
    void run(const Calculation& calculation)
    {
        std::optional<FlightOnShow> flight;
        if (in.numflg[slot])
            flight.emplace();
        std::swap(satrec, elements);
        releaseVectorRegisters();
        calculation();
        std::swap(satrec, elements);
        if (flight)
            flight->putBack();
    }

private:
    elsetrec elements{};
};

Predictor::Predictor(const Orbit& orbit, const Site& site, const Conditions& conditions, const Models& models)
    : records(std::make_unique<Records>())
{
    WinpData& in = records->in;
    setDefaults(&in);
    putOrbit(orbit, in);
    putSite(site, in);
    putConditions(conditions, in);
    putModels(models, in);
    records->horizon = conditions.horizon;
}

Predictor::~Predictor() = default;
Predictor::Predictor(Predictor&&) noexcept = default;
Predictor& Predictor::operator=(Predictor&&) noexcept = default;

Position Predictor::position(double mjd)
{
    Position result;
    records->run([&] {
        LazyPosition position(&records->in, &records->positions, slot);
        position.look(mjd);
        position.complete();
        result = positionOf(position.scene());
    });
    return result;
}

std::optional<Pass> Predictor::nextPass(double from, double until)
{
    Pass pass;
    int result = 0;
    const double end = from + clampedSpan(until - from);
    records->run([&] { result = findNextPass(records->query(), from, end, pass); });
    return result ? std::optional(pass) : std::nullopt;
}

std::vector<Pass> Predictor::passes(double from, double until)
{
    std::vector<Pass> found;
    const double end = from + clampedSpan(until - from);
    while (const std::optional<Pass> pass = from <= end ? nextPass(from, end) : std::nullopt) {
        found.push_back(*pass);
        const double next = timeAfterPass(records->query(), *pass);
        if (!(next > from))  // a time too far off for steps of a minute
            break;
        from = next;
    }
    return found;
}

std::vector<Event> Predictor::events(double from, double until, const EventQuery& search)
{
    std::vector<Event> found;
    const HorizonLine* horizon = records->horizon.get();
    const double end = from + clampedSpan(until - from);
    const bool twoRounds = search.kind == EventKind::mirrorFlare;
    for (const bool panels : twoRounds ? std::vector{false, true} : std::vector{false}) {
        Records own(*records);
        putEvents(search, panels, own.in);
        own.run([&] {
            PassQuery query{&own.in, &own.positions, slot, listLimits(own.in)};
            query.limits.horizon = horizon;
            query.recordsRead = false;
            eachEvent(query, from, end, [&](const Event& event) { found.push_back(event); });
        });
    }
    std::stable_sort(found.begin(), found.end(), [](const Event& a, const Event& b) { return a.mjd < b.mjd; });
    return found;
}

std::vector<Pass> Predictor::intervals(double from, double until)
{
    std::vector<Pass> found;
    const double end = from + clampedSpan(until - from);
    records->run([&] {
        Pass pass;
        while (findNextInterval(records->query(), from, end, pass)) {
            found.push_back(pass);
            from = pass.tm[2];
        }
    });
    return found;
}

Position predictPosition(const Orbit& orbit, double mjd, const Site& site, const Models& models)
{
    return Predictor(orbit, site, {}, models).position(mjd);
}

std::optional<Pass> predictNextPass(const Orbit& orbit, const Site& site, double from, double until,
                                    const Conditions& conditions, const Models& models)
{
    return Predictor(orbit, site, conditions, models).nextPass(from, until);
}

std::vector<Pass> predictPasses(const Orbit& orbit, const Site& site, double from, double until,
                                const Conditions& conditions, const Models& models)
{
    return Predictor(orbit, site, conditions, models).passes(from, until);
}

std::vector<Event> predictEvents(const Orbit& orbit, const Site& site, double from, double until,
                                 const EventQuery& search, const Conditions& conditions, const Models& models)
{
    return Predictor(orbit, site, conditions, models).events(from, until, search);
}

Conditions conditionsOf(const WinpData& in)
{
    return {in.satel, in.sunel, in.visflg != 0, nullptr};
}
