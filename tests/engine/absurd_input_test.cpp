#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "engine/epoch_state.h"
#include "engine/flares.h"
#include "engine/position.h"
#include "engine/record_helper.h"
#include "engine/sun_moon_transit.h"

namespace {

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double absurdities[] = {nan, -inf, 1e300, 1e-300, 0.0, -5.0, 1e17};

/// Every number of a slot and every scalar.
bool allFinite(const SatPosData& sp, int k)
{
    double sum = 0;
    for (const auto* field : {sp.lat, sp.lng, sp.hgt, sp.ra, sp.dec, sp.az, sp.el, sp.dst, sp.sunel, sp.moonel,
                              sp.rrate, sp.occlat, sp.occlng, sp.beta, sp.sunaz})
        sum += field[k] * 1e-30;
    for (const double x : {sp.osunel, sp.osunaz, sp.omoonel, sp.omoonaz, sp.moonrad, sp.moonph, sp.sslat, sp.sslng,
                           sp.sunel1, sp.sunel2, sp.mag})
        sum += x * 1e-30;
    for (int i = 0; i < circlePoints; ++i)
        sum += sp.vlat[k][i] + sp.vlng[k][i];
    for (unsigned i = 0; i < 3; ++i)
        sum += sp.rsat[i] * 1e-30 + sp.vsat[i] * 1e-30;
    return std::isfinite(sum);
}

struct NamedField
{
    const char* name;
    double WinpData::*field;
};

struct NamedElement
{
    const char* name;
    double (WinpData::*field)[slots];
};

constexpr NamedField settings[] = {
    {"lat", &WinpData::lat},         {"lng", &WinpData::lng},       {"height", &WinpData::height},
    {"yrepoch", &WinpData::yrepoch}, {"occra", &WinpData::occra},   {"occdec", &WinpData::occdec},
    {"cylra", &WinpData::cylra},     {"cyldec", &WinpData::cyldec}, {"chlen", &WinpData::chlen},
    {"flrmgx", &WinpData::flrmgx},   {"IERSxp", &WinpData::IERSxp}, {"IERSyp", &WinpData::IERSyp},
    {"Ut1Utc", &WinpData::Ut1Utc},
};

constexpr NamedElement elements[] = {
    {"mjdep", &WinpData::mjdep}, {"a", &WinpData::a},       {"ra", &WinpData::ra},       {"aper", &WinpData::aper},
    {"inc", &WinpData::inc},     {"ecc", &WinpData::ecc},   {"m0", &WinpData::m0},       {"n0", &WinpData::n0},
    {"adot", &WinpData::adot},   {"ndot", &WinpData::ndot}, {"n6dot", &WinpData::n6dot}, {"bstar", &WinpData::bstar},
};

struct Mode
{
    const char* what;
    int occflg, flarflg, flarmod, iridflg, flaryst;
};

constexpr Mode modes[] = {
    {"plain", 0, 0, 1, 0, 0},
    {"Sun transit", 1, 0, 1, 1, 0},
    {"Moon transit", 2, 0, 1, 1, 0},
    {"occultation", 3, 0, 1, 1, 0},
    {"known surface", 0, 1, 1, 2, 0},
    {"yaw steering", 0, 1, 1, 2, 1},
    {"inertial surface", 0, 1, 2, 2, 0},
    {"unknown surface", 0, 1, -1, 0, 0},
    {"unknown, inertial", 0, 1, -2, 0, 0},
    {"mirrors", 0, 0, 1, 3, 0},
    {"one mirror", 0, 1, 1, 3, 0},
};

WinpData recordIn(const Mode& mode)
{
    WinpData in = recordAt(vienna);
    EXPECT_TRUE(loadElements(in, 0, "iridium_2018.txt", 25777));
    EXPECT_TRUE(loadElements(in, 1, "visual_2018.txt", 25544));
    in.satn = 2;
    in.prs = 0;
    in.rlm = 1;
    in.occflg = mode.occflg;
    in.flarflg = mode.flarflg;
    in.flarmod = mode.flarmod;
    in.iridflg = mode.iridflg;
    in.flaryst = mode.flaryst;
    in.cylflg = true;
    in.irsol = true;
    in.flrmgf = true;
    in.eclflg = true;
    in.moonflg = 0;
    in.sunmplt = 1;
    in.chlen = 3.0;
    in.IERSflg = true;
    in.yrepoch = 2000.0;
    return in;
}

void expectFinite(WinpData& in, double t)
{
    SatPosData sp;
    for (int call = 0; call < 2; ++call) {
        in.moonflg = call;
        in.sgpsat = noSlot;
        GetSatPos(t, &in, &sp, 0, 1);
        EXPECT_TRUE(allFinite(sp, 0));
        EXPECT_TRUE(std::isfinite(in.flrang) && std::isfinite(in.smang) && std::isfinite(in.eclmag));
        EXPECT_TRUE(std::isfinite(in.csr0[0]) && std::isfinite(in.csv2[0]) && std::isfinite(in.cstm[0]));
    }
}

TEST(AbsurdInput, SettingsLeaveEveryNumberFinite)
{
    for (const Mode& mode : modes)
        for (const NamedField& field : settings)
            for (const double value : absurdities) {
                SCOPED_TRACE(std::string(mode.what) + " " + field.name + " = " + std::to_string(value));
                WinpData in = recordIn(mode);
                in.*field.field = value;
                expectFinite(in, 58139.4817);
            }
}

TEST(AbsurdInput, ElementsLeaveEveryNumberFinite)
{
    for (const Mode& mode : modes)
        for (const NamedElement& element : elements)
            for (const double value : absurdities)
                for (const int analytic : {0, 1}) {
                    SCOPED_TRACE(std::string(mode.what) + " " + element.name + " = " + std::to_string(value) +
                                 (analytic ? " analytic" : " two-body"));
                    WinpData in = recordIn(mode);
                    in.aflg[0] = analytic;
                    (in.*element.field)[0] = value;
                    expectFinite(in, 58139.4817);
                }
}

TEST(AbsurdInput, TimesLeaveEveryNumberFinite)
{
    for (const Mode& mode : modes)
        for (const double t : absurdities) {
            SCOPED_TRACE(mode.what + std::string(" at ") + std::to_string(t));
            WinpData in = recordIn(mode);
            expectFinite(in, t);
        }
}

TEST(AbsurdInput, NumericStatesLeaveEveryNumberFinite)
{
    constexpr NamedElement states[] = {{"csr0", &WinpData::csr0},
                                       {"csv1", &WinpData::csv1},
                                       {"cstm", &WinpData::cstm},
                                       {"epr2", &WinpData::epr2},
                                       {"epv0", &WinpData::epv0}};
    for (const NamedElement& state : states)
        for (const double value : absurdities) {
            SCOPED_TRACE(std::string(state.name) + " = " + std::to_string(value));
            WinpData in = recordIn(modes[0]);
            in.rlm = 0;
            EpochState(&in, 0, true);
            in.numflg[0] = 1;
            (in.*state.field)[0] = value;
            SatPosData sp;
            GetSatPos(in.mjdep[0] + 0.01, &in, &sp, 0, 1);
            EXPECT_TRUE(allFinite(sp, 0));
        }
}

TEST(AbsurdInput, SearchesEnd)
{
    for (const double start : {58139.4, nan, inf, 1e17})
        for (const double end : {58139.41, nan, -inf, 1e17 + 64}) {
            if (start == 58139.4 && end == 1e17 + 64)
                continue;  // a span of its own length: the callers hold it
            WinpData in = recordIn(modes[1]);
            double tm[3] = {start, start, end};
            double a[3] = {};
            double b[3] = {};
            const int result = GetIrid(&in, 0, 1, tm, a, b);
            EXPECT_TRUE(result == 1 || result == 2);
            int r = 0;
            char text[64];
            SunMoonTr(&in, start, 0, nan, 1, r, text);
            EXPECT_TRUE(r == 1 || r == 2);
        }
}

}  // namespace
