#include "engine/flares.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

#include "astro/angles.h"
#include "engine/mirror_helper.h"
#include "engine/position.h"
#include "engine/position_stages.h"
#include "engine/record_helper.h"

namespace {

constexpr double firstDay = 58138.5;
constexpr double minuteDays = 1.0 / 1440.0;
constexpr double secondDays = 1.0 / 86400.0;
constexpr double degree = std::numbers::pi / 180;

/// An Iridium satellite over Vienna. Refraction and extinction are off, so that the straight lines of the helper hold.
WinpData iridiumRecord(int norad = 25777)
{
    WinpData in = recordAt(vienna);
    EXPECT_TRUE(loadElements(in, 0, "iridium_2018.txt", norad));
    in.satn = 1;
    in.prs = 0;
    in.refrc = false;
    in.atmx = false;
    in.chlen = 0;
    return in;
}

/// Sun (or Moon, with moonflg), satellite and observer of a call, for the helper.
MirrorScene sceneOf(double t, WinpData& in, const SatPosData& sp)
{
    Scene s;
    s.in = &in;
    setTimes(s, t);
    setNutation(s);
    placeSun(s);
    placeMoon(s);
    readObserver(s);
    placeObserver(s);
    return {sp.rsat, sp.vsat, (in.moonflg ? s.moon : s.sun) * earthRadiusKm, s.observer};
}

/// The search mode: one surface of known angles.
void lookForSurface(WinpData& in, double yaw, double pitch)
{
    in.flarflg = 1;
    in.flarmod = 1;
    in.occra = yaw;
    in.occdec = pitch;
}

TEST(KnownSurface, ReflectsAsTheVectorsSay)
{
    struct SurfaceCase
    {
        double yaw, pitch;
    };
    int lit = 0;
    int dark = 0;
    for (const SurfaceCase& c : {SurfaceCase{0, -40}, SurfaceCase{-120, -40}, SurfaceCase{120, -40},
                                 SurfaceCase{90, 0}, SurfaceCase{30, 60}, SurfaceCase{0, -90}}) {
        SCOPED_TRACE(c.yaw);
        WinpData in = iridiumRecord();
        lookForSurface(in, c.yaw, c.pitch);
        SatPosData sp;
        for (int minute = 0; minute < 100; minute += 3) {
            const double t = firstDay + minute * minuteDays;
            in.flrang = -1;
            GetSatPos(t, &in, &sp, 0, 0);
            const MirrorScene scene = sceneOf(t, in, sp);
            const Glint glint = glintOf(scene, mirrorNormal(scene, c.yaw, c.pitch));
            if (!glint.lit || !isSunlit(scene)) {
                ++dark;
                EXPECT_EQ(in.flrang, -1);
                EXPECT_EQ(sp.occlat[0], 100.0);
                continue;
            }
            ++lit;
            EXPECT_NEAR(in.flrang, glint.offset, 1e-6);
        }
    }
    EXPECT_GT(lit, 20);
    EXPECT_GT(dark, 20);
}

TEST(KnownSurface, GroundPointIsWhereTheReflectionIsSeen)
{
    WinpData in = iridiumRecord();
    lookForSurface(in, 0, -40);
    SatPosData sp;
    int points = 0;
    for (int minute = 0; minute < 100; ++minute) {
        const double t = firstDay + minute * minuteDays;
        in.lat = vienna.lat;
        in.lng = vienna.lng;
        GetSatPos(t, &in, &sp, 0, 0);
        if (!(sp.occlat[0] < 99.0))
            continue;
        ++points;
        in.lat = sp.occlat[0];
        in.lng = sp.occlng[0];
        GetSatPos(t, &in, &sp, 0, 0);
        // the ellipsoid of the ground points is up to 90 m flatter than that of the observer
        EXPECT_LT(in.flrang, 0.1 / sp.dst[0] / degree);
        EXPECT_GT(sp.el[0], -0.01);
    }
    EXPECT_GT(points, 20);
}

TEST(UnknownSurface, WouldSendTheLightToTheObserver)
{
    for (const int mode : {-1, -2}) {
        SCOPED_TRACE(mode);
        WinpData in = iridiumRecord();
        in.flarflg = 1;
        in.flarmod = mode;
        SatPosData sp;
        int lit = 0;
        for (int minute = 0; minute < 100; minute += 7) {
            const double t = firstDay + minute * minuteDays;
            GetSatPos(t, &in, &sp, 0, 0);
            const MirrorScene scene = sceneOf(t, in, sp);
            if (!isSunlit(scene)) {
                EXPECT_EQ(sp.occlat[0], 100.0);
                continue;
            }
            ++lit;
            EXPECT_EQ(sp.occlat[0], 99.0);
            const Vec3 normal = mode == -1
                                    ? mirrorNormal(scene, in.occra, in.occdec)
                                    : polcar(Vec3(1, DmsDegF(in.occra) * 15 * degree, DmsDegF(in.occdec) * degree));
            // half angles through an arc cosine; a packed number rounds seconds from 59.5 on to the minute, which is up
            // to 0.002 degrees of right ascension
            EXPECT_LT(glintOf(scene, normal).offset, mode == -1 ? 2e-6 : 0.0045);
        }
        EXPECT_GT(lit, 5);
    }
}

/// A circular orbit whose plane has a given angle to the Sun.
WinpData orbitWithBeta(double wanted)
{
    WinpData in = recordAt(vienna);
    in.satn = 1;
    in.refrc = false;
    in.atmx = false;
    in.aflg[0] = 0;
    in.mjdep[0] = firstDay;
    in.a[0] = 7158.0;
    in.inc[0] = 86.4;
    in.n0[0] = 14.34;
    SatPosData sp;
    double nearest = 1e9;
    double node = 0;
    for (int ra = 0; ra < 360; ++ra) {
        in.ra[0] = ra;
        GetSatPos(firstDay, &in, &sp, 0, 0);
        if (std::abs(sp.beta[0] - wanted) < nearest) {
            nearest = std::abs(sp.beta[0] - wanted);
            node = ra;
        }
    }
    in.ra[0] = node;
    return in;
}

TEST(SolarPanel, HangsFortyDegreesOffTheSunsProjection)
{
    for (const double beta : {50.0, -50.0, 30.0, 68.0}) {
        SCOPED_TRACE(beta);
        WinpData in = orbitWithBeta(beta);
        in.iridflg = 3;
        in.irsolp = true;
        lookForSurface(in, 0, -40);
        SatPosData sp;
        int lit = 0;
        int bright = 0;
        for (int minute = 0; minute < 100; ++minute) {
            const double t = firstDay + minute * minuteDays;
            in.flrang = -1;
            GetSatPos(t, &in, &sp, 0, 0);
            const MirrorScene scene = sceneOf(t, in, sp);
            if (!isSunlit(scene) || !panelCanFlare(scene)) {
                EXPECT_EQ(sp.occlat[0], 100.0);
                EXPECT_EQ(in.flrang, -1);
                continue;
            }
            ++lit;
            const Glint glint = glintOf(scene, panelNormal(scene));
            EXPECT_NEAR(in.flrang, glint.offset, 1e-4);  // parallax of the Sun
            if (!(sp.occlat[0] < 99.0))
                continue;
            // brightness to both sides of the kink of the law at 3.5 degrees
            for (const double aside : {1.0, 3.0, 6.0}) {
                in.lat = sp.occlat[0] + aside;
                in.lng = sp.occlng[0];
                SatPosData there;
                GetSatPos(t, &in, &there, 0, 0);
                const MirrorScene from = sceneOf(t, in, there);
                if (there.el[0] < 1.0)
                    continue;
                ++bright;
                EXPECT_NEAR(there.mag, glintMagnitude(from, glintOf(from, panelNormal(from)), true), 0.02);
            }
            in.lat = vienna.lat;
            in.lng = vienna.lng;
        }
        EXPECT_EQ(lit > 10, std::abs(beta) == 50.0);
        EXPECT_EQ(bright > 10, std::abs(beta) == 50.0);
    }
}

TEST(MirrorLoop, BrightnessFollowsTheLaw)
{
    WinpData in = iridiumRecord();
    in.iridflg = 3;
    int flares = 0;
    for (int minute = 0; minute < 2880; ++minute) {
        const double t = firstDay + minute * minuteDays;
        lookForSurface(in, 0, -40);
        SatPosData sp;
        GetSatPos(t, &in, &sp, 0, 0);
        if (!(sp.occlat[0] < 99.0))
            continue;
        if (sp.el[0] <= 1e-5) {
            EXPECT_EQ(sp.mag, 99.0);
            continue;
        }
        const MirrorScene scene = sceneOf(t, in, sp);
        const Glint glint = glintOf(scene, mirrorNormal(scene, 0, -40));
        const double error = 3.3 * 0.1 / sp.dst[0] / degree / glint.offset;
        EXPECT_NEAR(sp.mag, glintMagnitude(scene, glint, false), error + 1e-4);
        ++flares;
    }
    EXPECT_GT(flares, 5);
}

TEST(MirrorLoop, MoonlightNeedsTheMoonAsSource)
{
    WinpData in = iridiumRecord();
    in.iridflg = 3;
    in.moonflg = 1;
    lookForSurface(in, 0, -40);
    SatPosData sp;
    int dark = 0;
    int sunlit = 0;
    for (int minute = 0; minute < 200; ++minute) {
        const double t = 58149.5 + minute * minuteDays;  // about full Moon
        in.chlen = 0;
        GetSatPos(t, &in, &sp, 0, 0);
        if (!(sp.occlat[0] < 99.0))
            continue;
        in.lat = sp.occlat[0];
        in.lng = sp.occlng[0];
        GetSatPos(t, &in, &sp, 0, 0);
        EXPECT_EQ(sp.mag, 99.0);  // the magnitude stage did not run
        in.chlen = 3.0;
        GetSatPos(t, &in, &sp, 0, 0);
        if (sp.sunel[0] >= 0 || sp.el[0] <= 1e-5) {
            ++sunlit;
            EXPECT_EQ(sp.mag, 99.0);
            continue;
        }
        ++dark;
        // the Moon is 14 magnitudes fainter than the Sun (Allen: -12.74 and -26.74); near perigee it gains 0.2
        const MirrorScene scene = sceneOf(t, in, sp);
        const double bySun = glintMagnitude(scene, glintOf(scene, mirrorNormal(scene, 0, -40)), false);
        EXPECT_NEAR(sp.mag - bySun, 14.0, 0.3);
    }
    EXPECT_GT(dark, 2);
    EXPECT_GT(sunlit, 2);
}

/// The brightest moment of a pass by the helper, on a grid of one second.
struct BruteFlare
{
    double t = 0;
    double magnitude = 99;
    double yaw = 0;
};

BruteFlare bruteForce(WinpData in, double from, double to)
{
    BruteFlare best;
    in.iridflg = 0;
    in.flarflg = 0;
    SatPosData sp;
    for (double t = from; t <= to; t += secondDays) {
        GetSatPos(t, &in, &sp, 0, 0);
        const MirrorScene scene = sceneOf(t, in, sp);
        if (sp.el[0] <= 0 || !isSunlit(scene))
            continue;
        for (const double yaw : {0.0, -120.0, 120.0}) {
            const double m = glintMagnitude(scene, glintOf(scene, mirrorNormal(scene, yaw, -40)), false);
            if (m < best.magnitude)
                best = {t, m, yaw};
        }
    }
    return best;
}

/// The passes above 10 degrees in two days, whole minutes.
std::vector<std::pair<double, double>> passesOf(WinpData in)
{
    std::vector<std::pair<double, double>> passes;
    SatPosData sp;
    bool inside = false;
    for (int minute = 0; minute < 2880; ++minute) {
        const double t = firstDay + minute * minuteDays;
        GetSatPos(t, &in, &sp, 0, 0);
        if (sp.el[0] >= 10.0 && !inside)
            passes.emplace_back(t, t);
        inside = sp.el[0] >= 10.0;
        if (inside)
            passes.back().second = t;
    }
    return passes;
}

TEST(FlareSearch, FindsWhatTheGridFinds)
{
    int bright = 0;
    int none = 0;
    for (const int norad : {25777, 25263, 24870}) {
        WinpData in = iridiumRecord(norad);
        for (const auto& [from, to] : passesOf(in)) {
            SCOPED_TRACE(from);
            const BruteFlare grid = bruteForce(in, from, to);
            WinpData search = in;
            search.iridflg = 3;
            search.irmag = 2.0;
            lookForSurface(search, 0, -40);
            double tm[3] = {from, from, to};
            double a[3] = {};
            double b[3] = {};
            const int result = GetIrid(&search, 0, 1, tm, a, b);
            if (grid.magnitude > 2.2) {
                ++none;
                EXPECT_EQ(result, 2) << grid.magnitude;
            }
            if (grid.magnitude > 0.0)
                continue;
            ++bright;
            EXPECT_EQ(result, 1);
            // the grid has whole seconds, in which a flare passes by 0.5 degrees
            EXPECT_NEAR(tm[1], grid.t, 1.0 * secondDays);
            EXPECT_NEAR(b[2], grid.magnitude, 0.3);
            EXPECT_EQ(search.occra, grid.yaw);
            SatPosData sp;
            GetSatPos(tm[1], &in, &sp, 0, 0);
            EXPECT_EQ(a[1], sp.el[0]);
            EXPECT_EQ(b[1], sp.az[0]);
            for (const double tenth : {-0.1, 0.1}) {
                GetSatPos(tm[1] + tenth * secondDays, &search, &sp, 0, 0);
                EXPECT_GE(sp.mag, b[2]);
            }
            // latitudes at both ends tell the direction of flight
            GetSatPos(from, &in, &sp, 0, 0);
            EXPECT_EQ(a[0], sp.lat[0]);
            const double start = sp.lat[0];
            GetSatPos(to, &in, &sp, 0, 0);
            EXPECT_EQ(a[2] > a[0], sp.lat[0] > start);
        }
    }
    EXPECT_GE(bright, 2);
    EXPECT_GT(none, 5);
}

/// The ISS in a transit of the Sun as seen from its own central line; the middle of the pass is at `t`.
double transitOnTheLine(WinpData& in)
{
    in = recordAt(vienna);
    EXPECT_TRUE(loadElements(in, 0, "visual_2018.txt", 25544));
    in.satn = 1;
    in.height = 0;
    in.refrc = false;
    in.occflg = 1;
    in.iridflg = 1;
    in.maxdst = 100.0;
    const double t = 58139.4 + 75.4 * minuteDays;
    SatPosData sp;
    GetSatPos(t, &in, &sp, 0, 0);
    EXPECT_LT(sp.occlat[0], 99.0);
    in.lat = sp.occlat[0];
    in.lng = sp.occlng[0];
    return t;
}

TEST(TransitSearch, KnowsTheDistanceOfTheCentralLine)
{
    // away from the line along the meridian; the line runs at some angle to it, found from two of its points
    WinpData in;
    const double t = transitOnTheLine(in);
    const Site on{in.lat, in.lng, 0};
    SatPosData sp;
    GetSatPos(t + secondDays, &in, &sp, 0, 0);
    const double east = (sp.occlng[0] - on.lng) * std::cos(on.lat * degree);
    const double north = sp.occlat[0] - on.lat;
    const double across = std::abs(east) / std::sqrt(east * east + north * north);
    for (const double km : {0.0, 3.0, 8.0, 30.0, 60.0}) {
        SCOPED_TRACE(km);
        in.lat = on.lat + km / 6371.0 / degree;
        double tm[3] = {t - 2.2 * minuteDays, t, t + 2.7 * minuteDays};
        double a[3] = {};
        double b[3] = {};
        ASSERT_EQ(GetIrid(&in, 0, 1, tm, a, b), 1);
        // the line is curved: over 60 km it leaves its tangent by a few hundred metres. Beyond 10 km the nearest of
        // points 0.7 km apart is taken.
        EXPECT_NEAR(b[2], km * across, 0.02 + 0.012 * km);
        EXPECT_LT(std::abs(tm[1] - t), (1.0 + km / 6.0) * secondDays);
    }
}

TEST(TransitSearch, RefusesWhatIsTooFarOrNotThere)
{
    WinpData in;
    const double t = transitOnTheLine(in);
    in.lat += 0.5;
    in.maxdst = 20.0;
    double tm[3] = {t - 2.2 * minuteDays, t, t + 2.7 * minuteDays};
    double a[3] = {};
    double b[3] = {};
    EXPECT_EQ(GetIrid(&in, 0, 1, tm, a, b), 2);
    in.maxdst = 100.0;
    EXPECT_EQ(GetIrid(&in, 0, 1, tm, a, b), 1);
    EXPECT_EQ(GetIrid(&in, 0, 0, tm, a, b), 2);  // no ground point in the pass
    // on the night side
    double night[3] = {t + 45 * minuteDays, 0, t + 50 * minuteDays};
    EXPECT_EQ(GetIrid(&in, 0, 1, night, a, b), 2);
}

}  // namespace
