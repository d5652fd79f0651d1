#include "engine/pass_bounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>
#include <string>

#include "astro/angles.h"
#include "engine/epoch_state.h"
#include "engine/lazy_position.h"
#include "engine/pass_walk.h"
#include "engine/position.h"
#include "engine/record_helper.h"
#include "engine/thorough_search.h"
#include "orbit/sgp4.h"
#include "record/slot_copy.h"

namespace {

constexpr Site sites[] = {vienna, {0.3, -78.0, 2500.0}, {-77.8, 166.7, 10.0}, {90.0, 0.0, 0.0}};

/// Uniform figures, the same on every machine.
class Dice
{
public:
    double between(double low, double high)
    {
        return low + (high - low) * (static_cast<double>(generator()) / 4294967296.0);
    }

private:
    std::mt19937 generator{20180120};
};

struct Shape
{
    const char* what;
    double n1, n2;              // revolutions per day
    double perigee1, perigee2;  // km, for orbits with an eccentricity of at most `eccentricity`
    double eccentricity;
    double inc1, inc2;  // degrees
    double bstar;       // either sign
};

constexpr Shape shapes[] = {
    {"low", 11.0, 16.4, 120.0, 1500.0, 0.05, 0.0, 180.0, 1e-3},
    {"decaying", 15.5, 16.5, 110.0, 250.0, 0.05, 20.0, 120.0, 3e-2},
    {"near the equator", 12.0, 16.0, 200.0, 1500.0, 0.1, 0.0, 1.0, 1e-4},
    {"backward", 12.0, 16.0, 200.0, 1500.0, 0.1, 170.0, 180.0, 1e-4},
    {"transfer", 6.5, 10.0, 130.0, 1000.0, 0.9, 0.0, 100.0, 1e-3},
    {"long ellipse", 0.2, 3.0, 130.0, 2000.0, 0.97, 0.0, 180.0, 1e-4},
    {"half a day", 1.98, 2.03, 300.0, 2500.0, 0.78, 50.0, 70.0, 1e-4},
    {"one day", 0.97, 1.03, 20000.0, 36000.0, 0.3, 0.0, 20.0, 0.0},
    {"deep space", 0.3, 6.3, 300.0, 40000.0, 0.9, 0.0, 178.0, 1e-4},
};

constexpr Shape swinging{"swinging", 2.5, 6.0, 300.0, 300.0, 0.05, 0.0, 165.0, 0.0};

/// What Moon and Sun do to an orbit: amplitudes, and a rate.
constexpr double elsetrec::*swings[] = {
    &elsetrec::se2,  &elsetrec::se3,  &elsetrec::si2,  &elsetrec::si3,  &elsetrec::sl2,
    &elsetrec::sl3,  &elsetrec::sl4,  &elsetrec::sh2,  &elsetrec::sh3,  &elsetrec::sgh2,
    &elsetrec::sgh3, &elsetrec::sgh4, &elsetrec::ee2,  &elsetrec::e3,   &elsetrec::xi2,
    &elsetrec::xi3,  &elsetrec::xl2,  &elsetrec::xl3,  &elsetrec::xl4,  &elsetrec::xh2,
    &elsetrec::xh3,  &elsetrec::xgh2, &elsetrec::xgh3, &elsetrec::xgh4, &elsetrec::didt,
};

constexpr double swingRad = 0.06;
constexpr double tiltRadPerMinute = 1.6e-6;  // `didt`; 0.03 radians in 13 days

WinpData madeUp(const Shape& shape, Dice& dice)
{
    WinpData in = recordAt(vienna);
    in.satn = 1;
    in.aflg[0] = 1;
    in.mjdep[0] = 58138.0;
    in.n0[0] = dice.between(shape.n1, shape.n2);
    const double axisKm = std::cbrt(398600.8 / std::pow(in.n0[0] * twoPi / 86400.0, 2.0));
    const double perigeeKm = 6378.0 + dice.between(shape.perigee1, shape.perigee2);
    in.ecc[0] = std::clamp(1.0 - perigeeKm / axisKm, 0.0001, shape.eccentricity);
    in.inc[0] = dice.between(shape.inc1, shape.inc2);
    in.ra[0] = dice.between(0.0, 360.0);
    in.aper[0] = dice.between(0.0, 360.0);
    in.m0[0] = dice.between(0.0, 360.0);
    in.bstar[0] = shape.bstar * dice.between(-0.3, 1.0);
    return in;
}

using Run = std::function<void(const std::string& what, WinpData& in, Dice& dice)>;

/// The analytic state in use is that of the orbit: in the last ones with a single, large swing.
void forEachOrbit(const Run& run)
{
    Dice dice;
    const auto start = [&](const char* what, WinpData in, double elsetrec::*swing = nullptr) {
        positionAt(in.mjdep[0], in);
        for (double elsetrec::*other : swings)
            satrec.*other = swing ? 0.0 : satrec.*other;
        if (swing)
            satrec.*swing = swing == &elsetrec::didt ? tiltRadPerMinute : swingRad;
        run(what, in, dice);
    };
    std::ifstream file(TEST_DATA "/elements/catalogue_2018.txt");
    int n = 0;
    for (std::string line; std::getline(file, line);)
        if (line.rfind("1 ", 0) == 0 && n++ % 9 == 0)
            start("catalogue", recordWith({std::stoi(line.substr(2, 5))}, vienna, "catalogue_2018.txt"));
    for (const Shape& shape : shapes)
        for (int k = 0; k < 25; ++k)
            start(shape.what, madeUp(shape, dice));
    for (double elsetrec::*swing : swings)
        for (int k = 0; k < 16; ++k)
            start(swinging.what, madeUp(swinging, dice), swing);
}

Vec3 inSpace(const GuideOrbit& guide, const GuideOrbit::Place& p)
{
    const double across = p.y * guide.cosInclination();
    return {p.x * std::cos(p.node) - across * std::sin(p.node), p.x * std::sin(p.node) + across * std::cos(p.node),
            p.y * guide.sinInclination()};
}

bool agrees(Verdict verdict, bool exact)
{
    return verdict == Verdict::open || (verdict == Verdict::yes) == exact;
}

}  // namespace

TEST(GuideOrbit, TheModelIsNoFartherAwayThanTheBound)
{
    int usable[2] = {}, all[2] = {};  // made up, of the catalogue
    double nearest = 0;
    forEachOrbit([&](const std::string& what, WinpData& in, Dice& dice) {
        SCOPED_TRACE(what);
        SatPosData sp;
        const double from = dice.between(-3.0, 12.0);
        GuideOrbit guide;
        if (in.sgpsat == 0)
            guide = GuideOrbit(in, satrec, from * 1440.0, (from + 1.0) * 1440.0);
        ++all[what == "catalogue"];
        usable[what == "catalogue"] += guide.usable();
        GuideOrbit::Place place{};
        GuideOrbit::Place before{};
        double minutes = 0;
        for (int k = 0; guide.usable() && k < 100; ++k, before = place) {
            const double step = dice.between(0.0, 14.4);
            minutes += step;
            if (!guide.place(from * 1440.0 + minutes, place))
                continue;
            GetSatPos(in.mjdep[0] + from + minutes / 1440.0, &in, &sp, 0, 0);
            const double off = abs(sp.rsat - inSpace(guide, place));
            nearest = std::max(nearest, off / place.offKm);
            ASSERT_LE(off, place.offKm) << minutes << " minutes on";
            ASSERT_LE(place.offKm, guide.farthestOffKm());
            if (k > 0) {
                ASSERT_LE(abs(inSpace(guide, place) - inSpace(guide, before)),
                          guide.fastestKmPerMinute() * step + 2.0 * guide.farthestOffKm());
            }
        }
    });
    EXPECT_GT(usable[1], 0.97 * all[1]);
    EXPECT_GT(usable[0], 0.6 * all[0]);
    EXPECT_GT(nearest, 0.8) << "no orbit comes near to its bound";
}

TEST(PassBounds, NothingSettledIsContradictedByThePositionItself)
{
    int all = 0, elevations = 0, suns = 0, shadows = 0;
    int count = 0;
    forEachOrbit([&](const std::string& what, WinpData& in, Dice& dice) {
        SCOPED_TRACE(what);
        const Site& s = sites[++count % std::size(sites)];
        in.lat = s.lat;
        in.lng = s.lng;
        in.height = s.height;
        in.satel = dice.between(-20.0, 60.0);
        in.IERSxp = count % 7 ? 0.0 : 1e5;
        double t = in.mjdep[0] + dice.between(-3.0, 12.0);
        SatPosData found, sp;
        LazyPosition position(&in, &found, 0);
        PassBounds bounds(in, 0, 1.0, in.satel);
        position.look(t);
        position.sunAtObserver();
        bounds.anchor(position.scene());
        bounds.anchorSun(position.scene());
        const double sunLimit = dice.between(-18.0, 20.0);
        double best = 0;
        const bool inside = count % 2 == 0;
        if (inside)
            bounds.setBest(best = dice.between(in.satel, 80.0));
        for (int k = 0; k < 150; ++k) {
            t += dice.between(0.0, k % 10 == 0 ? 0.02 : 0.002);
            const Verdict high = bounds.highEnough(t);
            const Verdict other = inside ? bounds.notAboveBest(t) : bounds.farBelow(t);
            const Verdict sun = bounds.sunAbove(sunLimit, t);
            const Verdict lit = bounds.sunlit(t);
            GetSatPos(t, &in, &sp, 0, 0);
            ASSERT_TRUE(agrees(high, sp.el[0] >= in.satel)) << sp.el[0] << " against " << in.satel;
            ASSERT_TRUE(agrees(other, inside ? sp.el[0] <= best : sp.el[0] < -25.0)) << sp.el[0] << ' ' << best;
            ASSERT_TRUE(agrees(sun, sp.osunel > sunLimit)) << sp.osunel << " against " << sunLimit;
            ASSERT_TRUE(agrees(lit, sp.sunel[0] >= 0.0)) << sp.sunel[0];
            if (what == "catalogue" && in.IERSxp == 0.0) {
                ++all;
                elevations += high != Verdict::open;
                suns += sun != Verdict::open;
                shadows += lit != Verdict::open;
            }
        }
    });
    EXPECT_GT(std::min({elevations, suns, shadows}), 0.9 * all);
}

namespace {

/// A search with all that it leaves behind.
struct Outcome
{
    WinpData in;
    SatPosData sp;
    Pass pass;
    int result = 0;

    Outcome(const WinpData& record, double from, double to, Pace pace, bool recordsRead = true)
    {
        std::memcpy(&in, &record, sizeof in);
        std::memset(static_cast<void*>(&sp), 0, sizeof sp);  // the gaps between the fields too
        in.sgpsat = noSlot;
        const PassQuery query{&in, &sp, 0, limitsOf(in), in.iridflg, false, false, recordsRead};
        result = from < to ? findNextPass(query, from, to, pass, pace) : findLastPass(query, from, to, pass, pace);
    }

    /// What a search tells that drops its records.
    bool tellsTheSame(const Outcome& o) const
    {
        return result == o.result && pass.tm[2] == o.pass.tm[2] &&
               (result != 1 || std::memcmp(&pass, &o.pass, sizeof pass) == 0);
    }

    bool operator==(const Outcome& o) const
    {
        return result == o.result && std::memcmp(&pass, &o.pass, sizeof pass) == 0 &&
               std::memcmp(&in, &o.in, sizeof in) == 0 && std::memcmp(&sp, &o.sp, sizeof sp) == 0;
    }
};

void choosePropagator(WinpData& in, int choice)
{
    in.aflg[0] = choice % 5 != 0;
    if (choice % 25 == 5) {
        in.ecc[0] = 1.2;
        in.n0[0] = 7000.0;
    }
    if (choice % 25 == 8) {
        EpochState(&in, 0, true);
        in.numflg[0] = 1;
    }
}

/// Every third search is for contacts with a second satellite, some of them near the first.
void chooseSecond(WinpData& in, int choice, Dice& dice)
{
    if (choice % 3 != 1)
        return;
    WinpData second = in;
    if (choice % 2 == 0)
        second = madeUp(shapes[static_cast<std::size_t>(choice / 3) % std::size(shapes)], dice);
    second.m0[0] += dice.between(-30.0, 30.0);
    in.rlm = 1;
    in.satn = 2;
    copySlot(&in, 1, second, 0);
}

/// Every third search is for transits, occultations or flares. Some are for passes with those in work.
void chooseEvents(WinpData& in, int choice, Dice& dice)
{
    if (choice % 3 != 2 || in.numflg[0])
        return;
    const int kind = static_cast<int>(dice.between(0.0, 6.0));
    in.occflg = kind < 3 ? kind + 1 : 0;
    in.flarflg = kind >= 3;
    in.flarmod = kind == 4 ? 2 : 1;
    in.iridflg = kind < 3 ? event::transit : kind < 5 ? event::flare : event::iridium;
    in.flaryst = kind == 3 && choice % 2;
    in.irsolp = kind == 5 && choice % 5 == 0;
    in.maxdst = dice.between(0.0, 2000.0);
    in.irmag = dice.between(-5.0, 20.0);
    in.occra = dice.between(-180.0, 180.0);
    in.occdec = dice.between(-90.0, 90.0);
    in.chlen = choice % 4 ? 0.0 : 2.0;
    in.eclflg = choice % 7 == 0;
    in.flrmgf = choice % 8 == 0;
    in.satel = std::min(in.satel, 30.0);
    if (choice % 10 == 0)
        in.iridflg = event::plain;
    if (choice % 11 == 0)
        in.prs = 1;  // another slot
}

void chooseConditions(WinpData& in, Dice& dice)
{
    const auto chance = [&](double share) { return dice.between(0.0, 1.0) < share; };
    const Site& site = sites[static_cast<std::size_t>(dice.between(0.0, 3.99))];
    in.lat = site.lat;
    in.lng = site.lng;
    in.height = site.height;
    in.satel = chance(0.2) ? dice.between(-30.0, 0.0) : dice.between(0.0, 70.0);
    in.sunel = chance(0.5) ? 91.0 : dice.between(-18.0, 75.0);
    in.visflg = chance(0.6);
    in.moonflg = chance(0.3);
    in.pasjmp = chance(0.2);
    in.wgs = chance(0.3);
    in.sdp4 = chance(0.8);
    in.IERSflg = chance(0.2);
    in.IERSxp = chance(0.1) ? dice.between(0.0, 20.0) : 0.0;
}

/// In most searches none, in some one alone or all.
void chooseCorrections(WinpData& in, int choice)
{
    const std::size_t which = static_cast<std::size_t>(choice) % (2 * correctionNames.size() + 2);
    if (which == correctionNames.size())
        in.models = modernModels();
    else if (which < correctionNames.size())
        in.models.*correctionNames[which].flag = true;
}

}  // namespace

TEST(Walks, LeaveTheSameBitsFastAndPlain)
{
    Dice dice;
    int passes[2] = {};  // backward, forward
    int events = 0;
    for (int k = 0; k < 400; ++k) {
        SCOPED_TRACE(k);
        const Shape& shape = shapes[static_cast<std::size_t>(k) % std::size(shapes)];
        WinpData in = madeUp(shape, dice);
        choosePropagator(in, k);
        chooseConditions(in, dice);
        chooseSecond(in, k, dice);
        chooseEvents(in, k, dice);
        chooseCorrections(in, k);
        const bool forward = k % 4 != 0;
        double t = in.mjdep[0] + dice.between(-3.0, 12.0);
        const double end = t + (in.numflg[0] ? 0.1 : 0.6) * (forward ? 1.0 : -1.0);
        for (int found = 1; found != 0;) {
            const Outcome fast(in, t, end, Pace::fast);
            ASSERT_EQ(fast, Outcome(in, t, end, Pace::plain)) << shape.what;
            if (forward) {
                ASSERT_TRUE(fast.tellsTheSame(Outcome(in, t, end, Pace::fast, false)));
            }
            found = fast.result;
            passes[forward] += found == 1;
            events += found == 1 && in.iridflg != event::plain;
            t = fast.pass.tm[2] + (forward ? 1.0 : -1.0) / 1440.0;
            if (forward ? t >= end : t <= end)
                break;
        }
    }
    EXPECT_GT(passes[0], 60);
    EXPECT_GT(passes[1], 200);
    EXPECT_GT(events, 20);
}

namespace {

/// Every interval with the conditions of a record, found by the thorough search.
std::vector<Pass> intervalsOf(WinpData in, double from, double to)
{
    SatPosData sp;
    std::vector<Pass> found;
    for (Pass pass; findNextInterval({&in, &sp, 0, limitsOf(in)}, from, to, pass); from = pass.tm[2])
        found.push_back(pass);
    return found;
}

/// Whether the conditions hold, by the whole position; and the elevation.
struct Look
{
    bool holds;
    double elevation;

    Look(WinpData& in, double t)
    {
        SatPosData sp;
        GetSatPos(t, &in, &sp, 0, 0);
        holds = cksatok(&in, &sp, 0) != 0;
        elevation = sp.el[0];
    }
};

}  // namespace

TEST(Intervals, CoverWhatAWalkBySecondsSees)
{
    constexpr double steps = 2500.0;
    constexpr double stepDays = 4.7 / 86400.0;
    Dice dice;
    std::size_t intervals = 0;
    int insides = 0;
    for (int k = 0; k < 90; ++k) {
        SCOPED_TRACE(k);
        WinpData in = madeUp(shapes[static_cast<std::size_t>(k) % std::size(shapes)], dice);
        choosePropagator(in, k);
        chooseConditions(in, dice);
        in.satel = std::min(in.satel, 0.3 * in.satel);  // or few would be seen
        in.sunel += 40.0;
        const double from = in.mjdep[0] + dice.between(-3.0, in.bstar[0] > 1e-3 ? 0.0 : 12.0);  // not after its decay
        const std::vector<Pass> found = intervalsOf(in, from, from + steps * stepDays);
        intervals += found.size();
        WinpData walker = in;
        auto interval = found.begin();
        for (double step = 0; step < steps; ++step) {
            const double t = from + step * stepDays;
            while (interval != found.end() && interval->tm[2] < t - thoroughStepDays)
                ++interval;
            const Look look(walker, t);
            const bool inside = interval != found.end() && t >= interval->tm[0] && t < interval->tm[2];
            const bool atAnEnd = interval != found.end() && (std::abs(t - interval->tm[0]) < thoroughStepDays ||
                                                             std::abs(t - interval->tm[2]) < thoroughStepDays);
            insides += inside;
            ASSERT_TRUE(look.holds == inside || atAnEnd) << t << ' ' << look.elevation;
            if (inside) {
                ASSERT_LE(look.elevation, interval->a[1] + 1e-9) << t << ", the highest at " << interval->tm[1];
            }
        }
        for (const Pass& pass : found)
            if (pass.tm[0] > from && !in.numflg[0]) {
                EXPECT_FALSE(Look(walker, pass.tm[0] - thoroughStepDays).holds);
                EXPECT_TRUE(Look(walker, pass.tm[0] + 0.01 * thoroughStepDays).holds);
            }
    }
    EXPECT_GT(intervals, 30u);
    EXPECT_GT(insides, 10000);
}
