#include "engine/flares.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "astro/angles.h"
#include "engine/position.h"
#include "engine/position_stages.h"
#include "engine/record_helper.h"

namespace {

// Flare geometry by plain vectors, written apart from the engine.

/// A satellite with its Sun (or Moon) and observer; one frame, km.
struct MirrorScene
{
    Vec3 r, v;
    Vec3 sun;
    Vec3 observer;
};

/// Normal of a surface by yaw (to the right of the flight direction) and pitch (up), degrees.
Vec3 mirrorNormal(const MirrorScene& scene, double yaw, double pitch)
{
    const Vec3 forward = vnorm(scene.v);
    const Vec3 left = vnorm(scene.r * scene.v);
    const Vec3 level = std::cos(yaw * radPerDeg) * forward - std::sin(yaw * radPerDeg) * left;
    return std::cos(pitch * radPerDeg) * level + std::sin(pitch * radPerDeg) * (forward * left);
}

/// The Sun over the orbit plane, degrees.
double betaOf(const MirrorScene& scene)
{
    return 90.0 - angleBetween(scene.r * scene.v, scene.sun);
}

bool panelCanFlare(const MirrorScene& scene)
{
    return std::abs(betaOf(scene)) >= 40.0 && std::abs(betaOf(scene)) <= 65.0;
}

/// Normal of the solar panels, which hang 40 degrees off the projection of the Sun on the orbit plane.
Vec3 panelNormal(const MirrorScene& scene)
{
    const Vec3 n = vnorm(scene.r * scene.v);
    const Vec3 inPlane = vnorm(scene.sun - dot(scene.sun, n) * n);
    return std::cos(40 * radPerDeg) * inPlane + (betaOf(scene) < 0 ? -1 : 1) * std::sin(40 * radPerDeg) * n;
}

/// Whether the Sun is above the satellite's horizon, over a sphere of 6378.137 km.
bool isSunlit(const MirrorScene& scene)
{
    const double limb = 180.0 - std::asin(std::min(1.0, 6378.137 / abs(scene.r))) * degPerRad;
    return angleBetween(scene.r, scene.sun - scene.r) < limb;
}

double offsetLaw(double offset, bool panel)
{
    if (panel)
        return offset < 3.5 ? 0.993 * offset - 4.567 : 1.5 * offset - 6.3415;
    return offset < std::exp(-5.91785 / 3.2437) ? -8.9 : 3.2437 * std::log(offset) - 2.98215;
}

/// What an observer has of a mirror.
struct Glint
{
    bool lit;       // the Sun is on the front of the mirror
    double offset;  // between the reflected ray and the observer, at the satellite, degrees
    double mag;     // without the air: range law, incidence and offset; for a solar panel its own offset law
};

Glint glintOf(const MirrorScene& scene, const Vec3& normal, bool panel = false)
{
    const Vec3 d = vnorm(scene.sun - scene.r);
    const double cosIncidence = dot(d, normal);
    const Vec3 toObserver = scene.observer - scene.r;
    const double offset = angleBetween(2.0 * cosIncidence * normal - d, toObserver);
    if (cosIncidence < 0)
        return {false, offset, 99.0};
    const double byRange = 5 * std::log10(abs(toObserver)) - 14.4;
    const double byIncidence = -2.5 * std::log10(std::max(cosIncidence, 1e-4));
    // the law takes the offset inside the cosines 0.9999999999 and 0.0001
    return {true, offset, byRange + byIncidence + offsetLaw(std::clamp(offset, 0.00081, 89.99427), panel)};
}

constexpr double firstDay = 58138.5;
constexpr double fullMoon = 58149.5;

WinpData iridiumRecord(int norad = 25777, const Site& site = vienna)
{
    return recordWith({norad}, site, "iridium_2018.txt");
}

/// The scene of a call, with the Moon as Sun with moonflg.
MirrorScene sceneOf(double t, WinpData& in, const SatPosData& sp)
{
    Scene s;
    SatPosData unused;
    setSatellite(s, &in, &unused, 0);
    setTimes(s, t);
    setNutation(s);
    placeSun(s);
    placeMoon(s);
    setView(s, viewOf(*s.in));
    placeObserver(s);
    return {sp.rsat, sp.vsat, (in.moonflg ? s.moon : s.sun) * earthRadiusKm, s.observer};
}

/// The search mode: one surface of known angles, with its brightness.
void lookForSurface(WinpData& in, int mode, double first, double second)
{
    in.iridflg = event::iridium;
    in.flarflg = 1;
    in.flarmod = mode;
    in.occra = first;
    in.occdec = second;
}

WinpData movedTo(const SatPosData& sp, WinpData in)
{
    in.lat = sp.occlat[0];
    in.lng = sp.occlng[0];
    return in;
}

/// The ellipsoid of the ground points is up to 90 m flatter than that of the observer: so far apart, in degrees at the
/// satellite, the two may see a point.
double flatness(const SatPosData& sp)
{
    return 0.1 / sp.dst[0] * degPerRad;
}

struct SurfaceCase
{
    const char* what;
    int mode;
    double first, second;
    bool panel, moon;
};

constexpr SurfaceCase surfaceCases[] = {
    {"front", 1, 0, -40, false, false},      {"left", 1, -120, -40, false, false},
    {"right", 1, 120, -40, false, false},    {"to the right", 1, 90, 0, false, false},
    {"downward", 1, 30, -70, false, false},  {"inertial", 2, 21.3, -65.3, false, false},
    {"solar panel", 1, 0, -40, true, false}, {"by moonlight", 1, 0, -40, false, true},
};

Glint glintOf(const MirrorScene& scene, const SurfaceCase& c)
{
    if (c.panel)
        return glintOf(scene, panelNormal(scene), true);
    return glintOf(scene, c.mode == 1 ? mirrorNormal(scene, c.first, c.second)
                                      : direction(DmsDegF(c.first) * 15, DmsDegF(c.second)));
}

/// A surface with a maximum of its own never dims the satellite.
void expectOwnMaximum(double t, WinpData in, double magnitude)
{
    in.iridflg = event::plain;
    in.flrmgf = true;
    in.flrmgx = -5.0;
    const double flare = positionAt(t, in).mag;
    in.flarflg = 0;
    EXPECT_NEAR(flare, std::min(magnitude + 8.7 - 5.0, positionAt(t, in).mag), 1e-9);
}

/// The view from places to the north of the ground point, which are to both sides of the kink of the panel's law.
void expectBrightness(double t, const SurfaceCase& c, WinpData in, double north)
{
    in.lat += north;
    const SatPosData sp = positionAt(t, in);
    const Glint glint = glintOf(sceneOf(t, in, sp), c);
    if (north == 0) {
        EXPECT_LT(in.flrang, flatness(sp) + (c.panel ? 0.001 : 0.0));
        EXPECT_GT(sp.el[0], -0.01);
    } else if (sp.el[0] <= 1e-5 || (c.moon && sp.sunel[0] >= 0)) {
        EXPECT_EQ(sp.mag, noFlare);
    } else {
        // the Moon is 14 magnitudes fainter than the Sun (Allen: -12.74 and -26.74); near perigee it gains 0.2
        EXPECT_NEAR(sp.mag - glint.mag, c.moon ? 14.0 : 0.0,
                    3.3 * flatness(sp) / glint.offset + (c.moon    ? 0.3
                                                         : c.panel ? 0.02
                                                                   : 1e-3));
        if (!c.moon && !c.panel)
            expectOwnMaximum(t, in, sp.mag);
    }
}

TEST(KnownSurface, ReflectsAsTheVectorsSay)
{
    for (const SurfaceCase& c : surfaceCases) {
        SCOPED_TRACE(c.what);
        WinpData in = iridiumRecord();
        lookForSurface(in, c.mode, c.first, c.second);
        in.irsolp = c.panel;
        in.moonflg = c.moon;
        in.chlen = 3.0;
        int dark = 0;
        int points = 0;
        for (int minute = 0; minute < 500; ++minute) {
            const double t = fullMoon + minute * minuteDays;
            in.ra[0] = minute;
            in.flrang = -1;
            const SatPosData sp = positionAt(t, in);
            if (std::abs(c.moon ? sp.moonel[0] : sp.sunel[0]) < 0.2)
                continue;  // the horizon of the sphere is not that of the ellipsoid
            const MirrorScene scene = sceneOf(t, in, sp);
            const Glint glint = glintOf(scene, c);
            if (!glint.lit || !isSunlit(scene) || (c.panel && !panelCanFlare(scene))) {
                ++dark;
                EXPECT_EQ(in.flrang, -1);
                EXPECT_EQ(sp.occlat[0], noGroundPoint);
                continue;
            }
            EXPECT_NEAR(in.flrang, glint.offset, 1e-4);  // parallax of the Sun
            if (!(sp.occlat[0] < anglesOnly))
                continue;
            ++points;
            for (const double north : {0.0, 1.0, 3.0, 6.0})
                expectBrightness(t, c, movedTo(sp, in), north);
        }
        EXPECT_GT(dark, 30);
        EXPECT_GT(points, 30);
    }
}

TEST(UnknownSurface, WouldSendTheLightToTheObserver)
{
    for (const int mode : {-1, -2}) {
        SCOPED_TRACE(mode);
        WinpData in = iridiumRecord();
        in.flarflg = 1;
        in.flarmod = mode;
        in.cylflg = true;
        in.cylra = 5.3;
        in.cyldec = -17.3;
        const bool packed = mode == -2;
        const auto byAngles = [&](double first, double second) {
            return packed ? direction(DmsDegF(first) * 15, DmsDegF(second)) : direction(first, second);
        };
        int lit = 0;
        for (double t = firstDay; t < firstDay + 100 * minuteDays; t += 7 * minuteDays) {
            const SatPosData sp = positionAt(t, in);
            const MirrorScene scene = sceneOf(t, in, sp);
            if (!isSunlit(scene)) {
                EXPECT_EQ(sp.occlat[0], noGroundPoint);
                continue;
            }
            ++lit;
            EXPECT_EQ(sp.occlat[0], anglesOnly);
            const Vec3 found = byAngles(in.occra, in.occdec);
            EXPECT_NEAR(in.flrang, angleBetween(found, byAngles(in.cylra, in.cyldec)), 1e-6);
            const Vec3 normal = packed ? found : mirrorNormal(scene, in.occra, in.occdec);
            // half angles through an arc cosine; a packed number rounds seconds from 59.5 on to the minute, which is up
            // to 0.002 degrees of right ascension
            EXPECT_LT(glintOf(scene, normal).offset, packed ? 0.0045 : 2e-6);
            WinpData toSun = in;
            toSun.solflar = true;
            positionAt(t, toSun);
            EXPECT_NEAR(DmsDegF(toSun.occdec), packed ? angleBetween(normal, scene.sun) : DmsDegF(in.occdec), 0.0025);
        }
        EXPECT_GT(lit, 5);
    }
}

TEST(MirrorLoop, GivesTheBestOfAllSurfaces)
{
    WinpData in = iridiumRecord();
    in.iridflg = event::iridium;
    int flares = 0;
    int dark = 0;
    for (int minute = 0; minute < 1440; ++minute) {
        const double t = firstDay + minute * minuteDays;
        in.ra[0] = minute;
        in.irsol = minute % 2 != 0;
        in.flrang = -1;
        SatPosData sp;
        sp.mag = 50;  // of an earlier call
        GetSatPos(t, &in, &sp, 0, 0);
        const MirrorScene scene = sceneOf(t, in, sp);
        if (sp.occlat[0] >= noGroundPoint) {
            dark += sp.el[0] > 0;
            EXPECT_TRUE(sp.el[0] < 0 || !isSunlit(scene));
            continue;
        }
        std::vector<Glint> glints;
        for (const double yaw : {0.0, -120.0, 120.0})
            glints.push_back(glintOf(scene, mirrorNormal(scene, yaw, -40)));
        if (in.irsol && panelCanFlare(scene))
            glints.push_back(glintOf(scene, panelNormal(scene), true));
        double offset = 360;
        double magnitude = 50;
        for (const Glint& glint : glints) {
            offset = glint.lit ? std::min(offset, glint.offset) : offset;
            magnitude = std::min(magnitude, glint.mag);
        }
        ++flares;
        EXPECT_NEAR(in.flrang, offset, 1e-4);
        EXPECT_NEAR(sp.mag, magnitude, 3.3 * flatness(sp) / offset + 1e-3);
    }
    EXPECT_GT(flares, 10);
    EXPECT_GT(dark, 10);
}

TEST(FlareSearch, FindsTheFlaresOfABruteForceSearch)
{
    const std::map<std::string, double> yaws{{"Front", 0}, {"Left", -120}, {"Right", 120}, {"Solar", 0}};
    for (const Section& section : sectionsOf("flares_2018.txt")) {
        for (const std::vector<std::string>& row : section.rows) {
            SCOPED_TRACE(row[0] + ' ' + row[2]);
            const double t = std::stod(row[0]);
            const double magnitude = std::stod(row[3]);
            WinpData in = iridiumRecord(std::stoi(row[1]), section.siteAt(2));
            lookForSurface(in, 1, 0, -40);
            in.atmx = true;
            in.irsolp = row[2] == "Solar";
            in.irmag = magnitude - 0.2;
            EXPECT_EQ(EventSearch(t - 1.3 * minuteDays, t + 1.1 * minuteDays).in(in), 2);
            in.irmag = magnitude + 0.2;
            EventSearch search(t - 1.3 * minuteDays, t + 1.1 * minuteDays);
            ASSERT_EQ(search.in(in), 1);
            EXPECT_NEAR(search.tm[1], t, 0.3 * secondDays);
            // the frames leave 0.02 degrees, by which a bright flare half a degree off changes by 3.24 times 4 %
            EXPECT_NEAR(search.b[2], magnitude, 0.2);
            EXPECT_EQ(in.occra, yaws.at(row[2]));
            const SatPosData sp = positionAt(search.tm[1], in);
            EXPECT_EQ(search.a[1], sp.el[0]);
            EXPECT_EQ(search.b[1], sp.az[0]);
            for (const double tenth : {-0.1, 0.1})
                EXPECT_GE(positionAt(search.tm[1] + tenth * secondDays, in).mag, search.b[2]);
            // latitudes at both ends tell the direction of flight
            const double rise = positionAt(t + secondDays, in).lat[0] - sp.lat[0];
            EXPECT_EQ(search.a[2] > search.a[0], rise > 0);
        }
    }
}

}  // namespace
