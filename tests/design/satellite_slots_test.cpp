#include "design/satellite_slots.h"

#include <ctime>

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
                                in->n6dot, in->bstar, in->deltv, in->yaw, in->pitch})
        EXPECT_EQ(field[0], 0.0);
    EXPECT_TRUE(in->suns[0] && !in->ionf[0] && !in->epu[0]);
    EXPECT_EQ(in->Kp[0], in->dKp);
    EXPECT_NEAR(in->mjdep[0], 58138.0 + (17 * 3600 + 5 * 60 + 9) / 86400.0, 1e-8);
}

}  // namespace
