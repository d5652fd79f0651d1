#include "orbit/num_prop.h"

#include "flight_helper.h"
#include "orbit/force_model.h"
#include "orbit/mean_motion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double epoch = 58138.0;  // 2018 January 20
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

    /// A state that no integration has made, so that its use shows.
    void mark(double time) { in->cstm[0] = time; }

    WinpData* in = nullptr;
    const State low = stateOf(7078e3, 0.001, 51.6, 30, 40, 0);
};

TEST_F(NumericFlight, CurrentStateIsReturnedWithoutAnIntegration)
{
    in->csr0[0] = 1;  // at the Earth's centre, and stays there
    in->csr1[0] = in->csr2[0] = 2;
    in->moondst = 77;
    const State s = flyTo(in, epoch);
    EXPECT_DOUBLE_EQ(s.r[0], 1);
    EXPECT_DOUBLE_EQ(s.r[1], 2);
    EXPECT_DOUBLE_EQ(s.v[0], low.v[0]);
    EXPECT_EQ(in->moondst, 77);
    EXPECT_EQ(in->csr0[0], 1);
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
    setState(in, epoch, {Vec3(perigee, 0, 0), Vec3(0, speed, 0)});
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
    const struct
    {
        const char* what;
        State state;
    } cases[] = {
        {"nothing at all", {Vec3(0, 0, 0), Vec3(0, 0, 0)}},
        {"centre of the Earth", {Vec3(1, 2, 3), Vec3(100, 7000, 0)}},
        {"below the surface", {Vec3(6e6, 0, 0), Vec3(0, 7500, 0)}},
        {"beyond the Moon", {Vec3(1e9, 0, 0), Vec3(0, 100, 0)}},
        {"absurdly far", {Vec3(1e200, 0, 0), Vec3(0, 1e150, 0)}},
        {"hyperbolic", {Vec3(7e6, 0, 0), Vec3(0, 20000, 0)}},
        {"faster than light", {Vec3(7e6, 0, 0), Vec3(0, 1e12, 0)}},
        {"infinite place", {Vec3(inf, 0, 0), Vec3(0, 7500, 0)}},
        {"infinite speed", {Vec3(7e6, 0, 0), Vec3(0, -inf, 0)}},
        {"no number", {Vec3(nan, 0, 0), Vec3(0, 7500, 0)}},
        {"no speed", {Vec3(7e6, 0, 0), Vec3(0, 0, nan)}},
    };
    in->sunf = in->moonf = true;
    in->Am[0] = 0.01;
    for (const auto& c : cases)
        for (const double hours : {0.0, 0.1, -0.1, 6.0}) {
            SCOPED_TRACE(c.what);
            setState(in, epoch, c.state);
            const State s = flyTo(in, epoch + hours / 24.0);
            EXPECT_TRUE(finite(s.r) && finite(s.v));
            EXPECT_TRUE(std::isfinite(in->cstm[0]));
        }
}

TEST_F(NumericFlight, BrokenStateGivesThePlaceholderAndStays)
{
    in->csv1[0] = in->epv1[0] = std::numeric_limits<double>::quiet_NaN();
    const State s = flyTo(in, epoch + 0.5);
    EXPECT_NEAR(abs(s.r - Vec3(100e3, 0, 0)), 0, 1e-6);
    EXPECT_NEAR(abs(s.v - Vec3(0, 10e3, 0)), 0, 1e-6);
    EXPECT_EQ(in->cstm[0], epoch);
    EXPECT_EQ(in->csr0[0], low.r[0]);

    // the same for a jump to a broken epoch state
    setState(in, epoch, low);
    flyTo(in, epoch + 0.3);
    const double time = in->cstm[0];
    const State current = currentState(*in);
    in->epr0[0] = std::numeric_limits<double>::infinity();
    EXPECT_NEAR(abs(flyTo(in, epoch + 0.05).r), 100e3, 1e-6);
    EXPECT_EQ(in->cstm[0], time);
    EXPECT_EQ(abs(currentState(*in).r - current.r), 0);
}

TEST_F(NumericFlight, StateAtTheCentreStartsAHundredMetresOff)
{
    setState(in, epoch, {Vec3(0, 0, 0), Vec3(0, 0, 0)});
    EXPECT_NEAR(abs(flyTo(in, epoch + 100 * second).r), 100, 1e-3);
}

}  // namespace
