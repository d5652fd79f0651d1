#include "design/satellite_slots.h"

#include <ctime>
#include <utility>

#include <gtest/gtest.h>

#include "design/orbit_helper.h"
#include "record/clock.h"
#include "record/keep.h"

namespace {

TEST(SatelliteSlots, NothingIsLeftOfTheFormerSatellite)
{
    const Keep clock(systemSeconds, [] { return std::time_t{1516467909}; });  // 2018-01-20 17:05:09 UTC
    WinpData* in = freshRecord();
    addSatellite(in, "visual_2018.txt", 25544);
    in->deltv[0] = in->yaw[0] = in->pitch[0] = 1.0;
    in->ionf[0] = in->epu[0] = true;
    in->suns[0] = false;
    in->Kp[0] = 9.0;
    in->numflg[0] = 1;
    blankSatellite(in, 0);
    EXPECT_EQ(fieldText(in->fsname[0]), "          ");
    EXPECT_EQ(fieldText(in->ldsn[0]), "          ");
    EXPECT_EQ(in->norad[0] + in->aflg[0] + in->numflg[0], 0);
    for (const double* field : {in->a, in->ra, in->aper, in->inc, in->ecc, in->m0, in->n0, in->adot, in->ndot,
                                in->n6dot, in->bstar, in->deltv, in->yaw, in->pitch, in->epr0, in->epv1, in->csr2})
        EXPECT_EQ(field[0], 0.0);
    EXPECT_TRUE(in->suns[0] && !in->ionf[0] && !in->epu[0]);
    EXPECT_EQ(in->Kp[0], in->dKp);
    EXPECT_NEAR(in->mjdep[0], 58138.0 + (17 * 3600 + 5 * 60 + 9) / 86400.0, 1e-8);
}

// A satellite entered by hand and marked as numeric flies what was typed, not what the slot held before; one that has
// flown keeps its state whatever happens to its elements.
TEST(SatelliteSlots, ANewNumericSatelliteFliesItsElements)
{
    WinpData* in = freshRecord();
    addCircle(in, 26000.0, 10.0, 0.0, 0.0);
    blankSatellite(in, 0);
    EXPECT_FALSE(hasState(*in, 0));
    in->mjdep[0] = in->mjd + 0.5;
    in->a[0] = 7000.0;
    in->inc[0] = 90.0;
    in->m0[0] = 90.0;
    in->n0[0] = getn0(7000.0, 0.0, 90.0);
    in->numflg[0] = 1;
    for (const double axis : {7000.0, 8000.0}) {
        in->a[0] = axis;
        followElements(in, 0);
        EXPECT_EQ(in->numflg[0], 1);
        EXPECT_TRUE(hasState(*in, 0));
        const State state = stateAt(in, 0, in->mjdep[0]);
        EXPECT_NEAR(state.r[2], 7000.0, 0.01);
        EXPECT_NEAR(axisOf(state), 7000.0, 10.0);  // the simple model is a little faster than two bodies
        EXPECT_EQ(in->cstm[0], in->mjdep[0]);
    }
    in->numflg[0] = 0;
    followElements(in, 0);
    EXPECT_NEAR(in->epr2[0], 8000e3, 100.0);
    EXPECT_EQ(in->numflg[0], 0);
}

TEST(SatelliteSlots, AddsUpToTenAndTakesTheLastAway)
{
    const struct
    {
        int before, added, primeAfter, dropped, primeThen;
    } cases[] = {{1, 2, 1, 1, 0}, {9, 10, 9, 9, 8}, {10, 10, 9, 9, 8}};
    for (const auto& c : cases) {
        WinpData* in = freshRecord();
        in->satn = c.before;
        addBlankSatellite(in);
        EXPECT_EQ((std::pair{in->satn, in->prs}), (std::pair{c.added, c.primeAfter}));
        dropAddedSatellite(in);
        EXPECT_EQ((std::pair{in->satn, in->prs}), (std::pair{c.dropped, c.primeThen}));
    }
    WinpData* in = freshRecord();
    in->satn = 1;
    in->prs = 0;
    dropAddedSatellite(in);
    EXPECT_EQ((std::pair{in->satn, in->prs}), (std::pair{0, 0}));
}

TEST(SatelliteSlots, ReturnToTheEpochTakesTheWholeState)
{
    WinpData* in = freshRecord();
    addCircle(in, 7000.0, 51.6, 30.0, 40.0);
    const double epoch = in->mjd;
    const State before = stateAt(in, 0, epoch);
    stateAt(in, 0, epoch + 0.3);
    returnToEpoch(in, 0);
    EXPECT_EQ(in->cstm[0], epoch);
    EXPECT_EQ(abs(Vec3(in->csr0[0], in->csr1[0], in->csr2[0]) / 1000.0 - before.r), 0.0);
    EXPECT_EQ(abs(Vec3(in->csv0[0], in->csv1[0], in->csv2[0]) / 1000.0 - before.v), 0.0);
}

}  // namespace
