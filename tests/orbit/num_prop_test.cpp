#include "orbit/num_prop.h"

#include "flight_helper.h"
#include "orbit/force_model.h"
#include "orbit/mean_motion.h"
#include "record/progress.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <thread>

namespace {

constexpr double second = 1.0 / 86400.0;

bool finite(const Vec3& v)
{
    return std::isfinite(v[0]) && std::isfinite(v[1]) && std::isfinite(v[2]);
}

class NumericFlight : public testing::Test
{
protected:
    void SetUp() override
    {
        in = gravityRecord();
        setState(in, epoch, low);
    }

    WinpData* in = nullptr;
    const State low = stateOf(7078e3, 0.001, 51.6, 30, 40, 0);
};

TEST_F(NumericFlight, CurrentStateIsReturnedWithoutAnIntegration)
{
    const State centre{{1, 2, 2}, low.v};  // a flight from there would start 100 m off
    setState(in, epoch, centre);
    in->moondst = 77;
    EXPECT_NEAR(abs(flyTo(in, epoch).r - centre.r), 0, 1e-12);
    EXPECT_EQ(in->moondst, 77);
    EXPECT_EQ(abs(currentState(*in).r - centre.r), 0);
    setState(in, epoch, {{0, 0, 0}, {0, 0, 0}});
    EXPECT_NEAR(abs(flyTo(in, epoch + 100 * second).r), 100, 1e-3);
}

struct JumpCase
{
    const char* what;
    double current, wanted;  // seconds from the epoch
    bool fromEpoch;
};

// The current state is put 1 km aside, so that the result tells where the flight began.
TEST_F(NumericFlight, FarJumpsStartFromTheNearerState)
{
    constexpr JumpCase cases[] = {
        {"20 minutes less a second, the epoch nearer", 1300, 101, false},
        {"20 minutes and a second, the epoch nearer", 1300, 99, true},
        {"far, but the current state nearer", 7200, 5000, false},
        {"far back, the epoch nearer", 7200, 1800, true},
        {"past the epoch", 7200, -1800, true},
        {"ahead of both", 3600, 7200, false},
        {"exactly at the epoch", 7200, 0, true},
    };
    for (const JumpCase& c : cases) {
        SCOPED_TRACE(c.what);
        setState(in, epoch, low);
        const State straight = flyTo(in, epoch + c.wanted * second);
        setState(in, epoch, low);
        flyTo(in, epoch + c.current * second);
        in->csr2[0] += 1000;
        const State found = flyTo(in, epoch + c.wanted * second);
        if (c.fromEpoch)
            EXPECT_LT(abs(found.r - straight.r), 1.0);
        else
            EXPECT_GT(abs(found.r - straight.r), 100.0);
        EXPECT_NEAR((in->cstm[0] - epoch) * 86400, c.wanted, 0.001);
    }
}

TEST_F(NumericFlight, EpochFollowsWhereAsked)
{
    in->epu[0] = true;
    const State s = flyTo(in, epoch + 0.25);
    EXPECT_EQ(in->mjdep[0], in->cstm[0]);
    EXPECT_NEAR(in->mjdep[0], epoch + 0.25, 1e-8);
    EXPECT_NEAR(in->epr0[0], s.r[0], 1e-8);
    EXPECT_NEAR(in->epv2[0], s.v[2], 1e-11);
    EXPECT_NEAR(in->a[0], 7078, 15);
    EXPECT_NEAR(in->inc[0], 51.6, 0.1);
    EXPECT_EQ(in->n0[0], getn0(in->a[0], in->ecc[0], in->inc[0]));

    const double perigee = 8000e3, e = 1.5;
    const double speed = std::sqrt(gmM3PerS2 * (1 + e) / perigee);
    setState(in, epoch, {{perigee, 0, 0}, {0, speed, 0}});
    flyTo(in, epoch + 100 * second);
    EXPECT_NEAR(in->ecc[0], e, 0.01);
    EXPECT_NEAR(in->n0[0], 8000, 30);  // the perigee distance
    EXPECT_LT(in->a[0], 0);
}

// Bad states and settings: every call ends, and no number that is not finite comes out.
TEST_F(NumericFlight, EndsWithFiniteNumbersWhateverTheState)
{
    constexpr double inf = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const std::pair<const char*, State> cases[] = {
        {"nothing at all", {{0, 0, 0}, {0, 0, 0}}},         {"centre of the Earth", {{1, 2, 3}, {100, 7000, 0}}},
        {"below the surface", {{6e6, 0, 0}, {0, 7500, 0}}}, {"beyond the Moon", {{1e9, 0, 0}, {0, 100, 0}}},
        {"absurdly far", {{1e200, 0, 0}, {0, 1e150, 0}}},   {"hyperbolic", {{7e6, 0, 0}, {0, 20000, 0}}},
        {"faster than light", {{7e6, 0, 0}, {0, 1e12, 0}}}, {"infinite place", {{inf, 0, 0}, {0, 7500, 0}}},
        {"infinite speed", {{7e6, 0, 0}, {0, -inf, 0}}},    {"no number", {{nan, 0, 0}, {0, 7500, 0}}},
        {"no speed", {{7e6, 0, 0}, {0, 0, nan}}},
    };
    in->sunf = in->moonf = true;
    in->Am[0] = 0.01;
    for (const auto& [what, state] : cases)
        for (const double hours : {0.0, 0.1, -0.1, 6.0}) {
            setState(in, epoch, state);
            const State s = flyTo(in, epoch + hours / 24.0);
            EXPECT_TRUE(finite(s.r) && finite(s.v) && std::isfinite(in->cstm[0])) << what;
        }
}

TEST_F(NumericFlight, WithoutAWayThePlaceholderComesAndTheRecordStays)
{
    const auto expectPlaceholder = [this](double t) {
        const double time = in->cstm[0];
        const State before = currentState(*in), s = flyTo(in, t);
        EXPECT_NEAR(abs(s.r - Vec3(100e3, 0, 0)) + abs(s.v - Vec3(0, 10e3, 0)), 0, 1e-6);
        EXPECT_EQ(in->cstm[0], time);
        EXPECT_EQ(abs(currentState(*in).r - before.r), 0);
    };
    flyTo(in, epoch + 0.3);
    in->epr0[0] = std::numeric_limits<double>::infinity();
    expectPlaceholder(epoch + 0.05);  // a jump to a broken epoch state
    in->csv1[0] = std::numeric_limits<double>::quiet_NaN();
    expectPlaceholder(epoch + 0.3 + 0.5);
    setState(in, epoch - 365250.0, low);  // a thousand years
    expectPlaceholder(epoch);
    in->mjdep[0] = epoch;
    in->cstm[0] = std::numeric_limits<double>::quiet_NaN();  // is left for the epoch
    EXPECT_NEAR(abs(flyTo(in, epoch + 0.1).r), 7078e3, 30e3);
}

TEST_F(NumericFlight, EndsWhenTheListenerSaysSoAndLeavesTheRecord)
{
    int told = 0;
    setProgressListener([&](std::string_view) { return ++told < 2; });
    {
        const LongCalculation scope;
        EXPECT_NEAR(flyTo(in, epoch + 30000).r[0], 100e3, 1e-6);  // some minutes of computing
    }
    setProgressListener({});
    EXPECT_EQ(told, 2);
    EXPECT_EQ(in->cstm[0], epoch);
    EXPECT_EQ(abs(currentState(*in).r - low.r), 0);
}

TEST_F(NumericFlight, NearTheMoonItsDistanceIsTold)
{
    UpSunMoon(0, in, 0, spos, mpos);
    const Vec3 moon = mpos;
    in->moonf = true;
    setState(in, epoch, {moon + Vec3(0, 0, 5e6), {0, 0, 0}});
    const State s = flyTo(in, epoch + 60 * second);
    // the Moon of the last step's start; it runs a kilometre a second
    EXPECT_NEAR(in->moondst, abs(s.r - moon), 60e3);
    EXPECT_NEAR(in->moondst, 5e6, 1e4);
    setState(in, epoch, low);
    flyTo(in, epoch + 60 * second);
    EXPECT_EQ(in->moondst, 0);
}

// Two satellites alike but for their area, in records of their own.
TEST_F(NumericFlight, EachRecordFliesWithItsOwnForcesOnItsOwnThread)
{
    WinpData own[2];
    State alone[2], together[2];
    for (int i = 0; i < 2; ++i) {
        in->Am[0] = i == 0 ? 0.2 : 0.002;
        setState(in, epoch, stateOf(6678e3, 0.001, 51.6, 30, 40, 0));
        own[i] = *in;
        alone[i] = flyTo(in, epoch + 0.25);
    }
    in->Am[0] = 1;  // what the global record says does not matter
    std::thread other([&] { together[0] = flyTo(&own[0], epoch + 0.25); });
    together[1] = flyTo(&own[1], epoch + 0.25);
    other.join();
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(abs(together[i].r - alone[i].r) + abs(together[i].v - alone[i].v), 0) << i;
    EXPECT_GT(abs(alone[0].r - alone[1].r), 10e3);
}

TEST_F(NumericFlight, LongJumpsRenewSunAndMoon)
{
    in->moonf = true;
    const Vec3 sun(23454, 0, 0), nearMoon(0, 0, 4), farMoon(0, 0, 1e9);
    for (const double seconds : {590.0, 610.0}) {
        State s[2];
        for (int i = 0; i < 2; ++i) {
            setState(in, epoch, low);
            NumProp(epoch + seconds * second, in, 0, sun, i == 0 ? nearMoon : farMoon, s[i].r, s[i].v);
        }
        EXPECT_EQ(abs(s[0].r - s[1].r) > 0, seconds < 600) << seconds;
    }
}

// The flight ends all the same, near the place of a good one; also where some steps are taken untested the sign of the
// tolerance means nothing.
TEST_F(NumericFlight, TolerancesThatCannotBeMetEnd)
{
    in->RKFtol = 1e-11;
    const State good = flyTo(in, epoch + 100 * second);
    for (const double tol : {0.0, -1e-300, 1e-300})
        for (const int limit : {0, 1, 20}) {
            setState(in, epoch, low);
            in->RKFtol = tol;
            in->mxit = limit;
            const State s = flyTo(in, epoch + 100 * second);
            EXPECT_NEAR(in->cstm[0], epoch + 100 * second, 0.11 * second) << tol << ' ' << limit;
            EXPECT_LT(abs(s.r - good.r), 1500.0) << tol << ' ' << limit;  // 0.1 s of flight, and steps taken untested
        }
    State s[2];
    for (int i = 0; i < 2; ++i) {
        setState(in, epoch, low);
        in->RKFtol = i == 0 ? 2e-16 : -2e-16;
        s[i] = flyTo(in, epoch + 1500 * second);
    }
    EXPECT_EQ(abs(s[0].r - s[1].r), 0);
}

// 1 mm/s^2 of thrust that rests in the shadow: its edges are steps that the error test cannot take.
TEST_F(NumericFlight, ErrorTestComesBackAfterAnEdgeIfWanted)
{
    in->ionf[0] = in->suns[0] = true;
    in->deltv[0] = 1e-3;
    for (const bool restored : {false, true}) {
        double noise = 0;
        for (const double anomaly : {10.0, 100.0, 190.0, 280.0}) {
            State s[2];
            for (int i = 0; i < 2; ++i) {
                setState(in, epoch, stateOf(7378137.0, 0.001, 51.6, 30.0, 0.0, anomaly));
                in->models.iterationLimit = restored;
                in->RKFtol = i == 0 ? 1e-10 : 1.000001e-10;
                s[i] = flyTo(in, epoch + 0.15);
            }
            noise = std::max(noise, abs(s[0].r - s[1].r));
        }
        EXPECT_TRUE(restored ? noise < 2.0 : noise > 10.0) << noise;
    }
}

}  // namespace
