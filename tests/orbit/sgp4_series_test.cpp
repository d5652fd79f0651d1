#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include <gtest/gtest.h>

#include "astro/angles.h"
#include "orbit/lane_functions.h"
#include "orbit/sgp4.h"
#include "orbit/sgp4_lanes.h"
#include "orbit/turn.h"
#include "verification_helper.h"

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double inf = std::numeric_limits<double>::infinity();

/// States in which a missing result shows.
std::vector<Sgp4State> untouched(std::size_t count)
{
    return {count, {{7, 7, 7}, {7, 7, 7}, 7}};
}

bool sameNumber(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool sameState(const Sgp4State& a, const Sgp4State& b)
{
    return std::equal(a.r, a.r + 3, b.r, sameNumber) && std::equal(a.v, a.v + 3, b.v, sameNumber) &&
           a.error == b.error;
}

/// Both ways of the series, that of this processor and that of the plainest one.
void expectSeriesOfCalls(const elsetrec& set, const std::vector<double>& tsince, ModelForm form = ModelForm::early)
{
    elsetrec single = set, series = set, plain = set;
    std::vector<Sgp4State> expected = untouched(tsince.size()), states = expected, plainStates = expected;
    for (std::size_t i = 0; i < tsince.size(); ++i)
        expected[i].error = sgp4(wgs72, single, tsince[i], expected[i].r, expected[i].v, form);
    sgp4Series(wgs72, series, tsince, states, form);
    const std::size_t done = propagateSeries(wgs72, plain, tsince, plainStates, form);
    ASSERT_LT(tsince.size() - done, laneCount);
    for (std::size_t i = 0; i < tsince.size(); ++i) {
        ASSERT_TRUE(sameState(states[i], expected[i])) << "minute " << tsince[i];
        ASSERT_TRUE(i >= done || sameState(plainStates[i], expected[i])) << "minute " << tsince[i];
    }
    EXPECT_EQ(series.error, single.error);
    EXPECT_TRUE(sameNumber(series.t, single.t));
    EXPECT_EQ(series.atime, single.atime);
}

TEST(LaneFunctions, GiveTheNumbersOfTheStandardFunctions)
{
    for (const double scale : {1e-300, 1e-9, 1e-3, 0.1, 1.0, 30.0, 2e3, 1.7e4, 1e6, 1e9, 1e300})
        for (int i = -4000; i < 4000; i += int(laneCount)) {
            LaneArray x;
            for (std::size_t k = 0; k < laneCount; ++k)
                x[k] = scale * (0.25 * double(i) + 0.37 * double(k)) / 1000.0;
            const SineCosineOf<Lanes> both = sineCosine(Lanes(x));
            const LaneArray s = sine(Lanes(x)).each(), c = cosine(Lanes(x)).each(),
                            turn = withinTurn(Lanes(x)).each();
            const LaneArray third = cube(Lanes(x)).each(), root = threeHalves(Lanes(x)).each();
            for (std::size_t k = 0; k < laneCount; ++k) {
                SCOPED_TRACE(x[k]);
                ASSERT_TRUE(sameNumber(s[k], std::sin(x[k])) && sameNumber(both.sine.each()[k], s[k]));
                ASSERT_TRUE(sameNumber(c[k], std::cos(x[k])) && sameNumber(both.cosine.each()[k], c[k]));
                ASSERT_TRUE(sameNumber(turn[k], std::fmod(x[k], twoPi)));
                ASSERT_TRUE(sameNumber(third[k], std::pow(x[k], 3.0)));
                ASSERT_TRUE(sameNumber(root[k], std::pow(x[k], 1.5)));
            }
        }
}

TEST(Sgp4Series, GivesTheBitsOfSingleCallsOverTheCatalogue)
{
    std::vector<double> day, months;
    for (int i = 0; i < 1440; i += 13)
        day.push_back(i + 0.37);
    for (int i = -20000; i < 60000; i += 1777)
        months.push_back(i);
    const std::vector<VerificationElements> sets = catalogueElements();
    ASSERT_EQ(sets.size(), 979U);
    for (const VerificationElements& set : sets) {
        SCOPED_TRACE(set.norad);
        elsetrec sat;
        initVerification(set, sat);
        for (const std::vector<double>& span : {day, months})
            expectSeriesOfCalls(sat, span);
    }
}

// decays, low perigees, resonances, Lyddane's modification, wild eccentricities
TEST(Sgp4Series, GivesTheBitsOfSingleCallsForTheVerificationSets)
{
    const std::vector<double> wild{0.0,  -0.0,  nan,  1e-300,  1e5,   -1e6,   inf, 1e9,     -inf,
                                   1e15, 1e300, 12.0, -5e-324, 720.0, -720.0, 1e7, 44640.0, 3.0};
    for (const VerificationElements& set : verificationElements()) {
        SCOPED_TRACE(set.norad);
        elsetrec sat;
        initVerification(set, sat);
        std::vector<double> span = wild;
        for (double t = set.start; t <= set.stop; t += set.step / 3.0)
            span.push_back(t);
        expectSeriesOfCalls(sat, span);
        expectSeriesOfCalls(sat, span, ModelForm::published);
        expectSeriesOfCalls(sat, {0.0, 1.0, nan, 3.0, inf, 1e300, nan, 5000.0});
    }
}

/// Values of a field with which the model comes to its limits, or beyond them.
struct EdgeCase
{
    double elsetrec::*field;
    std::vector<double> values;
};

TEST(Sgp4Series, GivesTheBitsOfSingleCallsWhereTheModelEnds)
{
    const EdgeCase edgeCases[] = {
        {&elsetrec::ecco, {0.0, 1e-9, -5e-4, -0.01, 1.0, 1.7, nan}},
        {&elsetrec::no, {0.0, -0.06, 0.09}},
        {&elsetrec::bstar, {10.0}},
        {&elsetrec::cc1, {1e-3}},
        {&elsetrec::nodedot, {3000.0}},
        {&elsetrec::mdot, {1e12}},
        {&elsetrec::aycof, {1.5}},
        {&elsetrec::inclo, {0.0}},
    };
    std::vector<double> span;
    for (int i = -30; i < 30; ++i)
        span.push_back(i * std::abs(i) * 1.7);
    for (const int norad : {5, 6251, 8195, 24208})
        for (const EdgeCase& c : edgeCases)
            for (const double value : c.values) {
                SCOPED_TRACE(testing::Message() << "row " << &c - edgeCases << ", value " << value);
                elsetrec sat = loadedSet(norad);
                sat.*c.field = value;
                expectSeriesOfCalls(sat, span);
            }
}

TEST(Sgp4Series, TakesSpansOfAnyLengthAndTheShorterOfTwo)
{
    elsetrec sat = loadedSet(5);
    std::vector<double> span;
    for (; span.size() < 20; span.push_back(double(span.size()) * 9.0))
        expectSeriesOfCalls(sat, span);
    std::vector<Sgp4State> states = untouched(span.size());
    sgp4Series(wgs72, sat, span, std::span(states).first(10));
    EXPECT_NE(states[9].r[0], 7.0);
    EXPECT_EQ(states[10].r[0], 7.0);
}

}  // namespace
