#include "orbit/integrator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace {

/// Shows the settings.
class OpenRKF45 : public RKF45
{
public:
    using RKF45::maxit;
    using RKF45::relerr;
    using RKF45::RKF45;
    using RKF45::tol;
};

int evaluations = 0;

void growth(double, const double* y, double* dy)
{
    ++evaluations;
    dy[0] = y[0];
}

/// Nothing that a smaller step could smooth.
void noise(double, const double*, double* dy)
{
    ++evaluations;
    dy[0] = 1.0 + evaluations * evaluations % 7;
}

void brokenNumber(double, const double*, double* dy)
{
    ++evaluations;
    dy[0] = std::numeric_limits<double>::infinity();
}

/// Kepler's problem in a plane with GM 1.
void twoBody(double, const double* y, double* dy)
{
    const double r2 = y[0] * y[0] + y[1] * y[1];
    const double r3 = r2 * std::sqrt(r2);
    dy[0] = y[2];
    dy[1] = y[3];
    dy[2] = -y[0] / r3;
    dy[3] = -y[1] / r3;
}

/// One equation, one step, and what it cost.
struct Step
{
    Step(RightHandSide f, double start, double t0, double h, double tol, int relative = 1, int limit = 0)
    {
        RKF45 rk(1);
        rk.SetTolerance(tol, relative);
        rk.SetMaxIter(limit);
        evaluations = 0;
        rk.RKF45Step(t0, h, &start, f, t, next, &y);
        cost = evaluations;
    }

    double y = 0, t = 0, next = 0;
    int cost = 0;
};

constexpr double tolerances[] = {1e-6, 1e-8, 1e-10, 1e-12};

TEST(Integrator, OneStepOfTheExponentialMeetsItsTolerance)
{
    for (const double tol : tolerances)
        for (const int relative : {0, 1})
            for (const double h : {0.4, -0.4}) {
                const Step s(growth, 1.0, 0.0, h, tol, relative);
                EXPECT_GT(s.t * h, 0);
                EXPECT_LE(std::abs(s.t), 0.4);
                EXPECT_GT(s.next * h, 0);
                EXPECT_NEAR(s.y, std::exp(s.t), tol * std::exp(s.t)) << tol << ' ' << h;
            }
}

// The step error is of the lower order and so an upper bound; ten revolutions are some hundred to ten thousand steps,
// and an error in the period grows with the square of their number: ten thousand tolerances, in proportion to it.
TEST(Integrator, KeplerEllipseComesBackAfterTenRevolutions)
{
    constexpr double e = 0.7;
    const double end = 20.0 * std::numbers::pi;  // ten periods of an ellipse with the axis 1
    double before = 1.0;
    for (const double tol : tolerances) {
        RKF45 rk(4);
        rk.SetTolerance(tol, 0);
        const double start[4] = {1 - e, 0, 0, std::sqrt((1 + e) / (1 - e))};
        double y[4] = {start[0], start[1], start[2], start[3]};
        double t = 0, h = 0.1;
        int steps = 0;
        while (t < end && steps < 40000) {
            rk.RKF45Step(t, std::min(h, end - t), y, twoBody, t, h, y);
            ++steps;
        }
        const double error = std::abs(y[0] - start[0]) + std::abs(y[1] - start[1]);
        EXPECT_LT(error, 1e4 * tol) << tol;
        EXPECT_LT(error, before / 20.0) << tol;  // a hundredth of the tolerance, less room for chance
        EXPECT_LT(steps, 40000);
        before = error;
    }
}

TEST(Integrator, RejectedTriesCostFiveEvaluationsUpToTheLimit)
{
    const Step accepted(growth, 1.0, 0.0, 0.01, 1e-10);
    EXPECT_EQ(accepted.cost, 6);
    EXPECT_EQ(accepted.t, 0.01);
    const Step rejected(growth, 1.0, 0.0, 1.0, 1e-10);
    EXPECT_GT(rejected.cost, 6);
    EXPECT_EQ((rejected.cost - 6) % 5, 0);
    EXPECT_LT(rejected.t, 1.0);
    EXPECT_NEAR(rejected.y, std::exp(rejected.t), 1e-10 * rejected.y);
    for (const int limit : {1, 3}) {
        const Step untested(noise, 1.0, 0.0, 1.0, 1e-50, 1, limit);
        EXPECT_EQ(untested.cost, 6 + 5 * (limit - 1));
        EXPECT_GT(untested.t, 0.0);
        EXPECT_LT(untested.next, untested.t);
    }
}

// A state of 0 has no error: the proposal is bounded by the floor of the error at 1e-15 tolerances.
TEST(Integrator, ProposalGrowsNineHundredfoldAtMost)
{
    const Step s(growth, 0.0, 5.0, 1e-3, 1e-3);
    EXPECT_EQ(s.y, 0.0);
    EXPECT_NEAR(s.next, 0.9 * 1e-3 * std::pow(1e15, 0.2), 1e-9);
}

TEST(Integrator, SettingsAreHeldToSense)
{
    OpenRKF45 rk(6);
    EXPECT_EQ(rk.maxit, 0);
    EXPECT_EQ(rk.relerr, 1);
    EXPECT_EQ(rk.tol, 1e-6);
    rk.SetMaxIter(-5);
    EXPECT_EQ(rk.maxit, 5);
    rk.SetMaxIter(std::numeric_limits<int>::min());
    EXPECT_EQ(rk.maxit, std::numeric_limits<int>::max());
    rk.SetTolerance(-1e-8, 7);
    EXPECT_EQ(rk.tol, 1e-8);
    EXPECT_EQ(rk.relerr, 1);
    for (const double tol : {0.0, 1e-300, std::numeric_limits<double>::quiet_NaN()}) {
        rk.SetTolerance(tol, 0);
        EXPECT_EQ(rk.tol, 1e-50);
        EXPECT_EQ(rk.relerr, 0);
    }
}

// Without an iteration limit: a tolerance below the rounding, jumps everywhere, numbers that are not finite.
TEST(Integrator, StepEndsAtTheResolutionOfItsTime)
{
    for (const RightHandSide f : {growth, noise, brokenNumber})
        for (const double start : {0.0, 0.3, 1e9}) {
            const Step s(f, 1.0, start, 1.0, 1e-50);
            EXPECT_GE(s.t, start);
            EXPECT_LT(s.cost, 2000);
        }
}

}  // namespace
