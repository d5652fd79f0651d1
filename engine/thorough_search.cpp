#include "engine/thorough_search.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "astro/angles.h"
#include "astro/earth.h"
#include "astro/time_scales.h"
#include "engine/guide_orbit.h"
#include "engine/horizon_line.h"
#include "engine/lazy_position.h"
#include "engine/pass_bounds.h"
#include "engine/pass_search.h"
#include "engine/pass_walk.h"
#include "record/progress.h"
#include "record/text.h"
#include "record/vector_registers.h"
#include "record/winp_data.h"

namespace {

constexpr double secondsPerDay = 86400.0;
constexpr double worthwhileS = 3.0;  // a shorter time is not worth a look at the guide instead of the model
constexpr double roughS = 0.5;
constexpr int mostRounds = 60;
constexpr double stepShare = 0.15;  // of the time of a radian of the orbit

constexpr double leastStepS = 0.004;       // an interval is not looked for more finely
constexpr double longestStepS = 43200.0;   // whatever the bounds say
constexpr double insideEarthStepS = 30.0;  // a satellite in the Earth needs longer to come out of it
constexpr double insideEarthKm = 6000.0;
constexpr double lowestVisibleKm = 6350.0;

constexpr double gmKm3PerS2 = 398600.8;
constexpr double oblateness = 1.01;  // accelerations of low orbits are not greater than this times the central one
constexpr double earthTurnRadPerS = 7.2921159e-5;
constexpr double velocitySlack = 0.01;     // how much the model's velocity may differ from the change of its place
constexpr double deflectionSlack = 0.007;  // how much the vertical turns while the satellite moves on
constexpr double sunDegPerS = 0.0043;      // the Sun's elevation does not change faster
constexpr double sunRadPerS = 3e-7;        // neither does its place among the stars, nor the doubt about it
constexpr double moonRadPerS = 3e-6;       // the same for the Moon
constexpr double moonKm = 3.5e5;           // not nearer

/// A condition at an instant.
struct Settled
{
    bool holds;
    double seconds;  // for so long after the instant it stays as it is
};

/// A signed quantity and how it may change: in h seconds by no more than `rate` h, give or take `slack` h + `bend` h^2 / 2.
struct Margin
{
    double value = 0;  // km
    double rate = 0;   // km/s
    double slack = 0;  // km/s
    double bend = 0;   // km/s^2
    double reach = 0;  // seconds: the bounds hold for so long
};

/// For how many seconds a margin keeps its sign.
double secondsToZero(const Margin& m)
{
    const double distance = std::abs(m.value);
    const double approach = m.slack - (m.value > 0.0 ? m.rate : -m.rate);
    // distance - approach h - bend h^2 / 2 = 0
    const double root = std::sqrt(approach * approach + 2.0 * m.bend * distance);
    const double h = approach > 0.0 ? 2.0 * distance / (approach + root) : (root - approach) / m.bend;
    return std::min(h, m.reach);
}

/// How far a satellite may get from where it is: bounds on speed and acceleration in a frame that turns with the Earth.
struct Motion
{
    double seconds;       // for so long
    double speed;         // km/s
    double acceleration;  // km/s^2
};

/// While the distance from the Earth's centre stays above a share of what it is. By the energy of the orbit, a satellite
/// is nowhere in there faster than at that share.
Motion motionAbove(double share, const Vec3& r, const Vec3& v)
{
    const double R = abs(r);
    const double lowest = share * R;
    const double fastest = std::sqrt(dot(v, v) + 2.0 * gmKm3PerS2 * (1.0 / lowest - 1.0 / R)) * (1.0 + velocitySlack);
    const double seconds = (1.0 - share) * R / fastest;
    const double farthest = (2.0 - share) * R;
    const double speed = fastest + earthTurnRadPerS * farthest;
    const double acceleration =
        oblateness * gmKm3PerS2 / (lowest * lowest) + earthTurnRadPerS * (2.0 * speed + earthTurnRadPerS * farthest);
    return {seconds, speed, acceleration};
}

/// The bend of a margin that is made of the distance from an axis, times `sine`, and of the distance along it. The first
/// bends by v^2 over itself, and stays above half of what it is for the time that is put into `seconds`.
Margin withBend(Margin margin, const Motion& motion, double aside, double sine)
{
    margin.reach = std::min(motion.seconds, 0.5 * aside / motion.speed);
    margin.bend = 1.5 * motion.acceleration + sine * motion.speed * motion.speed / (0.5 * aside);
    return margin;
}

/// A satellite over the plane of the horizon, in the frame that turns with the Earth.
struct HorizonView
{
    double up, aside;          // km, from the observer: above the plane, and from the vertical
    double upRate, asideRate;  // km/s
};

HorizonView viewOf(const Scene& s)
{
    const double sidereal = lsidtim(s.ut1, s.lngDeg, s.eqeq) * radPerHour;
    const Vec3 outward(std::cos(sidereal), std::sin(sidereal), 0.0);
    const Vec3 observer = Vec3(outward[0] * s.site.rho, outward[1] * s.site.rho, s.site.z) * earthRadiusKm;
    const Vec3 vertical = outward * std::cos(s.lat) + Vec3(0.0, 0.0, std::sin(s.lat));
    const Vec3 sight = s.r - observer;
    const Vec3 velocity = s.v - Vec3(0.0, 0.0, earthTurnRadPerS) * s.r;
    const double up = dot(sight, vertical);
    const double upRate = dot(velocity, vertical);
    const double aside = abs(sight - up * vertical);
    const double asideRate = aside > 0.0 ? (dot(sight, velocity) - up * upRate) / aside : 0.0;
    return {up, aside, upRate, asideRate};
}

constexpr double forEver = std::numeric_limits<double>::infinity();

class ThoroughSearch
{
public:
    /// @param lineOnly  no condition is asked for but that of the line
    explicit ThoroughSearch(const PassQuery& query, bool lineOnly = false)
        : in(*query.in),
          sp(*query.sp),
          isat(query.isat),
          limits(query.limits),
          line(lineOf(query)),
          lineAlone(lineOnly),
          position(query.in, query.sp, query.isat),
          bounds(*query.in, query.isat, 1.0, query.limits.satel)
    {}

    bool find(double t0, double t1, Pass& pass);

    /// Start and end of the first interval, and their elevations. @return  false: none before `t1`
    bool findEnds(double& t, double t1, Pass& pass);
    /// The highest point of an interval.
    void findHighest(Pass& pass);
    /// Leaves the records as after a GetSatPos.
    void finishAt(double t);

private:
    Settled all(double t);
    Settled highEnough(double t);
    Settled aboveLine(double t);
    Settled dark(double t);
    Settled light(double t);
    Settled sunlit(double t);
    Settled litBy(const Vec3& body, double elevationDeg, double turn, double parallax) const;

    void goTo(double t);
    bool forward(double& t, double t1, bool whileHolding);
    double elevation(double t);
    double elevationRate(double t);
    void put(Pass& pass, int k, double t);
    double highestBetween(double from, double to);
    double highestNear(double t);

    const WinpData& in;
    const SatPosData& sp;
    int isat;
    PassLimits limits;
    const HorizonLine* line;
    bool lineAlone;
    LazyPosition position;
    PassBounds bounds;
    double now = std::numeric_limits<double>::quiet_NaN();
    unsigned instants = 0;
};

void ThoroughSearch::goTo(double t)
{
    if (t == now)
        return;
    now = t;
    position.look(t);
    bounds.anchor(position.scene());
}

/// By the guide as long as that gains time, else by the position itself.
Settled ThoroughSearch::highEnough(double t)
{
    const PassBounds::Estimate guessed = bounds.outsideLeastElevation(t);
    if (const double seconds = guessed.settled() / bounds.fastestKmPerS(); seconds > worthwhileS)
        return {guessed.value < 0.0, seconds};
    goTo(t);
    const bool holds = position.elevation() >= limits.satel;
    if (!(std::abs(limits.satel) < 90.0))
        return {holds, longestStepS};
    const Scene& s = position.scene();
    if (abs(s.r) < insideEarthKm)
        return {holds, insideEarthStepS};
    const double sine = std::sin(limits.satel * radPerDeg);
    const double cosine = std::cos(limits.satel * radPerDeg);
    const HorizonView view = viewOf(s);
    Margin margin;
    margin.value = sine * view.aside - cosine * view.up;
    margin.rate = sine * view.asideRate - cosine * view.upRate;
    margin.slack = velocitySlack * abs(s.v);
    const double bySpeed = [&] {
        const Motion far = motionAbove(0.5, s.r, s.v);
        return std::min(far.seconds, std::abs(margin.value) / far.speed);
    }();
    const double byBend = secondsToZero(withBend(margin, motionAbove(0.9, s.r, s.v), view.aside, std::abs(sine)));
    return {holds, std::max(bySpeed, byBend)};
}

/// The satellite does not leave the part of the sky around it, as far as to the line, before it has gone as far as that
/// is wide where it is.
Settled ThoroughSearch::aboveLine(double t)
{
    goTo(t);
    const auto [above, awayDeg] = line->stand(position.azimuth(), position.elevation());
    const Scene& s = position.scene();
    const HorizonView view = viewOf(s);
    const Motion motion = motionAbove(0.5, s.r, s.v);
    const double roomKm = std::hypot(view.up, view.aside) * std::sin(awayDeg * radPerDeg);
    return {above, std::min(motion.seconds, roomKm / motion.speed)};
}

Settled ThoroughSearch::dark(double t)
{
    if (limits.sunel > highestSunDeg)
        return {true, forEver};
    PassBounds::Estimate over = bounds.sunOver(limits.sunel, t);
    if (!(over.settled() > 0.0)) {
        goTo(t);
        over = {position.sunAtObserver() - limits.sunel, 0.0};
        bounds.anchorSun(position.scene());
    }
    return {over.value < 0.0, over.settled() / sunDegPerS};
}

/// Whether a body is above the satellite's own horizon: the satellite is outside a cylinder behind the Earth, up to the
/// turns of vertical and body.
///
/// @param turn      of the direction to the body, radians a second
/// @param parallax  the greatest, radians
Settled ThoroughSearch::litBy(const Vec3& body, double elevationDeg, double turn, double parallax) const
{
    const Scene& s = position.scene();
    const bool holds = elevationDeg >= 0.0;
    const double R = abs(s.r);
    if (!(R > earthRadiusKm))
        return {holds, insideEarthStepS / 30.0};
    const double dip = std::acos(earthRadiusKm / R);
    const double below = dip - elevationDeg * radPerDeg;  // of the body, below the horizontal plane
    const Motion motion = motionAbove(0.9, s.r, s.v);
    if (below <= 0.0)
        return {holds, std::min(motion.seconds, (R - earthRadiusKm) / motion.speed)};
    const Vec3 direction = vnorm(body);
    const Vec3 across = s.r - dot(s.r, direction) * direction;
    Margin margin;
    margin.value = R * (std::cos(below) - std::cos(dip));
    margin.rate = dot(s.v, vnorm(across));
    margin.slack = (velocitySlack + deflectionSlack + parallax) * abs(s.v) + turn * R;
    return {holds, secondsToZero(withBend(margin, motion, abs(across), 1.0))};
}

Settled ThoroughSearch::sunlit(double t)
{
    const PassBounds::Estimate guessed = bounds.outsideShadow(t);
    if (const double seconds = guessed.settled() / bounds.fastestKmPerS(); seconds > worthwhileS)
        return {guessed.value > 0.0, seconds};
    goTo(t);
    const double elevationDeg = position.sunAtSatellite();
    bounds.anchorSun(position.scene());
    return litBy(position.scene().sun, elevationDeg, sunRadPerS, 0.0);
}

/// What of the light is asked for.
Settled ThoroughSearch::light(double t)
{
    if (in.visflg == 0)
        return {true, forEver};
    const Settled sun = sunlit(t);
    if (in.moonflg == 0)
        return sun;
    if (sun.holds)
        return {false, sun.seconds};
    goTo(t);
    const double elevationDeg = position.moonAtSatellite();
    const double parallax = abs(position.scene().r) / moonKm;
    const Settled moon = litBy(position.scene().moon, elevationDeg, moonRadPerS, parallax);
    return moon.holds ? Settled{true, std::min(sun.seconds, moon.seconds)} : moon;
}

/// All conditions together. One that fails settles them for as long as it fails; those that hold settle them together.
Settled ThoroughSearch::all(double t)
{
    if (lineAlone)
        return aboveLine(t);
    const Settled night = dark(t);
    if (!night.holds && night.seconds > worthwhileS)
        return night;
    const Settled high = highEnough(t);
    if (!high.holds || !night.holds)
        return {false, std::max(high.holds ? 0.0 : high.seconds, night.holds ? 0.0 : night.seconds)};
    const Settled clear = line ? aboveLine(t) : Settled{true, forEver};
    if (!clear.holds)
        return clear;
    const Settled lit = light(t);
    return {lit.holds, lit.holds ? std::min({night.seconds, high.seconds, clear.seconds, lit.seconds}) : lit.seconds};
}

/// Goes on to the first instant at which the conditions do not hold, or do, any more.
///
/// @return  false: they stay as they are up to `t1`, or the listener has ended the search
bool ThoroughSearch::forward(double& t, double t1, bool whileHolding)
{
    for (;;) {
        const Settled settled = all(t);
        if (settled.holds != whileHolding)
            return true;
        const double step = std::clamp(settled.seconds, leastStepS, longestStepS);
        const double next = std::min(t + step / secondsPerDay, t1);
        if (!(next > t))  // the end, a time too far off for such steps, or no number
            return false;
        t = next;
        if (++instants % instantsPerTelling == 0 && !tellProgress(fieldText(in.fsname[isat]), t))
            return false;
    }
}

double ThoroughSearch::elevation(double t)
{
    goTo(t);
    return position.elevation();
}

/// By the model's own velocity, radians a second.
double ThoroughSearch::elevationRate(double t)
{
    goTo(t);
    const HorizonView view = viewOf(position.scene());
    return (view.upRate * view.aside - view.up * view.asideRate) / (view.up * view.up + view.aside * view.aside);
}

void ThoroughSearch::put(Pass& pass, int k, double t)
{
    pass.tm[k] = t;
    pass.a[k] = elevation(t);
    pass.b[k] = position.azimuth();
}

/// Where the rate falls through zero, by halving.
double ThoroughSearch::highestBetween(double from, double to)
{
    double rateFrom = elevationRate(from);
    double rateTo = elevationRate(to);
    for (int round = 0; round < mostRounds && to - from > roughS / secondsPerDay; ++round) {
        const double share = std::clamp(rateFrom / (rateFrom - rateTo), 0.02, 0.98);
        const double t = from + share * (to - from);
        const double rate = elevationRate(t);
        if (rate > 0.0) {
            from = t;
            rateFrom = rate;
            rateTo *= 0.5;
        } else {
            to = t;
            rateTo = rate;
            rateFrom *= 0.5;
        }
    }
    return highestNear(0.5 * (from + to));
}

/// The vertex of parabolas through three elevations, which do not depend on the model's velocity.
double ThoroughSearch::highestNear(double t)
{
    goTo(t);
    const double swiftness = abs(position.scene().r) / abs(position.scene().v);  // 900 s for a low orbit
    for (const double share : {1e-3, 1e-3, 1e-3, 2e-4}) {
        const double h = share * swiftness / secondsPerDay;
        const double before = elevation(t - h);
        const double at = elevation(t);
        const double after = elevation(t + h);
        const double bend = before - 2.0 * at + after;
        if (!(bend < 0.0))
            return t;
        const double farthest = 0.1 * swiftness / secondsPerDay;
        t += std::clamp(0.5 * h * (before - after) / bend, -farthest, farthest);
    }
    return t;
}

/// The highest of the ends and of every top that shows in steps of a fraction of the revolution.
void ThoroughSearch::findHighest(Pass& pass)
{
    const double start = pass.tm[0];
    const double end = pass.tm[2];
    put(pass, 1, pass.a[2] > pass.a[0] ? end : start);
    double t = start;
    double rate = elevationRate(t);
    while (t < end) {
        const double step = stepShare * abs(position.scene().r) / abs(position.scene().v) / secondsPerDay;
        const double next = std::min(t + step, end);
        if (!(next > t))
            return;
        const double nextRate = elevationRate(next);
        if (rate > 0.0 && nextRate <= 0.0) {
            const double top = std::clamp(highestBetween(t, next), start, end);
            if (elevation(top) > pass.a[1])
                put(pass, 1, top);
            goTo(next);
        }
        t = next;
        rate = nextRate;
    }
}

bool ThoroughSearch::findEnds(double& t, double t1, Pass& pass)
{
    if (!(t < t1) || !forward(t, t1, false) || !(t < t1))
        return false;
    put(pass, 0, t);
    const bool ended = !forward(t, t1, true) && t < t1;
    put(pass, 2, t);
    return !ended;
}

void ThoroughSearch::finishAt(double t)
{
    goTo(t);
    position.complete();
}

bool ThoroughSearch::find(double t0, double t1, Pass& pass)
{
    double t = t0;
    const bool found = findEnds(t, t1, pass);
    if (found)
        findHighest(pass);
    finishAt(t);
    return found;
}

void copyPoint(Pass& to, int k, const Pass& from)
{
    to.tm[k] = from.tm[k];
    to.a[k] = from.a[k];
    to.b[k] = from.b[k];
}

}  // namespace

bool findNextInterval(const PassQuery& query, double t0, double t1, Pass& pass)
{
    releaseVectorRegisters();
    PassQuery aboveLowest = query;
    if (const HorizonLine* line = lineOf(query))
        aboveLowest.limits.satel = std::max(query.limits.satel, line->lowest());
    return ThoroughSearch(aboveLowest).find(t0, t1, pass);
}

std::vector<Pass> partsAboveLine(const PassQuery& query, const Pass& whole)
{
    releaseVectorRegisters();
    ThoroughSearch search(query, true);
    std::vector<Pass> parts;
    double t = whole.tm[0];
    for (Pass part; search.findEnds(t, whole.tm[2], part);) {
        if (part.tm[0] == whole.tm[0])
            copyPoint(part, 0, whole);
        if (part.tm[2] == whole.tm[2])
            copyPoint(part, 2, whole);
        if (whole.tm[1] >= part.tm[0] && whole.tm[1] <= part.tm[2])
            copyPoint(part, 1, whole);
        else
            search.findHighest(part);
        parts.push_back(part);
    }
    search.finishAt(t);
    return parts;
}
