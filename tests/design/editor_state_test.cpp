#include "design/editor_state.h"

#include <gtest/gtest.h>

#include "astro/angles.h"
#include "design/orbit_helper.h"

namespace {

using editor::elementsOf;
using editor::geostationary;
using editor::stateOf;

constexpr double epoch = 58138.25;

double turn(double degrees)
{
    return std::remainder(degrees, 360.0);
}

TEST(EditorState, IsThatOfTwoBodiesAndLeadsBack)
{
    Elements e;
    e.epoch = epoch;
    e.inc = 51.6;
    e.ra = 123.0;
    e.aper = 200.0;
    e.m0 = 12.0;
    for (const auto& [a, ecc] : {std::pair{7000.0, 0.01}, {42164.0, 0.7}, {-14000.0, 1.5}}) {
        SCOPED_TRACE(ecc);
        e.a = a;
        e.ecc = ecc;
        const editor::State state = stateOf(e);
        EXPECT_NEAR(axisOf({state.r, state.v}), a, 1e-4 * std::abs(a));
        const Elements back = elementsOf(state, epoch, false);
        EXPECT_NEAR(back.a, a, 1e-7 * std::abs(a));
        EXPECT_NEAR(back.ecc, ecc, 1e-9);
        EXPECT_NEAR(back.inc, e.inc, 1e-7);
        EXPECT_NEAR(turn(back.ra - e.ra), 0.0, 1e-7);
        EXPECT_NEAR(turn(back.aper - e.aper), 0.0, 1e-5);
        EXPECT_NEAR(turn(back.m0 - (ecc < 1.0 ? e.m0 : 0.0)), 0.0, 1e-5);
        EXPECT_NEAR(back.epoch, epoch, 1e-9);
        EXPECT_EQ(back.n0, 0.0);
    }
}

TEST(EditorState, AHyperbolaStandsAtItsPerigee)
{
    Elements e;
    e.epoch = epoch;
    e.ecc = 1.5;
    e.m0 = 100.0;
    for (const auto& [a, perigee] : {std::pair{-20000.0, 10000.0}, {0.0, 500.0}, {7000.0, 500.0}}) {
        e.a = a;
        EXPECT_NEAR(abs(stateOf(e).r), perigee, 1e-6);
    }
    e.a = -20000.0;
    editor::State state = stateOf(e);
    state.r += 10.0 * state.v;  // without the pull of the Earth; with it r.v grows by e / (1 + e) of v v a second
    EXPECT_NEAR(elementsOf(state, epoch, true).epoch, epoch - 10.0 * 2.5 / 1.5 / 86400.0, 0.1 / 86400.0);
    EXPECT_EQ(elementsOf(state, epoch, true).n0, 0.0);
}

// The mean elements give the state back by the model itself.
TEST(EditorState, MeanElementsAreThoseOfTheModel)
{
    WinpData* in = freshRecord();
    addSatellite(in, "visual_2018.txt", 25544);
    const Elements mean = elementsOf({stateAt(in, 0, in->mjdep[0]).r, stateAt(in, 0, in->mjdep[0]).v}, 0, true);
    EXPECT_NEAR(mean.n0, in->n0[0], 2e-4);
    EXPECT_NEAR(mean.inc, in->inc[0], 0.003);
    EXPECT_NEAR(turn(mean.aper + mean.m0 - in->aper[0] - in->m0[0]), 0.0, 0.02);
}

TEST(EditorState, AGeostationarySatelliteStandsAboveItsLongitude)
{
    for (const double longitude : {-180.0, -100.5, 0.0, 19.2, 90.0, 359.0}) {
        SCOPED_TRACE(longitude);
        WinpData* in = freshRecord();
        const Elements e = geostationary(longitude, in->mjd);
        EXPECT_TRUE(e.ra >= 0.0 && e.ra < 360.0) << e.ra;
        in->satn = 1;
        in->mjdep[0] = e.epoch;
        in->a[0] = e.a;
        in->ra[0] = e.ra;
        in->inc[0] = e.inc;
        in->n0[0] = e.n0;
        EXPECT_EQ(e.ecc + e.m0 + e.aper + e.ndot + e.adot + e.n6dot + e.bstar, 0.0);
        EXPECT_EQ(e.inc, 0.001);
        for (const double days : {0.0, 0.3, 3.0}) {
            GetSatPos(in->mjd + days, in, satpos, 0, 0);
            EXPECT_NEAR(turn(satpos->lng[0] - longitude), 0.0, 0.03) << days;
        }
    }
}

}  // namespace
