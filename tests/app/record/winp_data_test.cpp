#include "app/record/winp_data.h"

#include "app/record/text.h"

#include <gtest/gtest.h>
#include <memory>

namespace {
TEST(Defaults, ReplaceEverythingThatWasThere)
{
    const auto in = std::make_unique<WinpData>();
    in->satn = 7;
    in->lat = 51;
    in->astra[4] = 3;
    in->epr2[11] = 5;
    setDefaults(in.get());
    EXPECT_EQ(in->satn, 0);
    EXPECT_EQ(in->lat, 0);
    EXPECT_EQ(in->astra[4], 0);
    EXPECT_EQ(in->epr2[11], 0);
    EXPECT_EQ(in->sgpsat, 9999);
    EXPECT_EQ(fieldText(in->tlename), "./visual.txt");
    EXPECT_EQ(fieldText(in->savename), "*satsave.txt");
    EXPECT_EQ(fieldText(in->tlesave), "*vorlix.tle");
    EXPECT_EQ(fieldText(in->url), "celestrak.org/NORAD/elements/visual.txt");
    EXPECT_EQ(fieldText(in->fsname[9]), "                    ");
    EXPECT_EQ(fieldText(in->ldsn[0]), "           ");
    EXPECT_EQ(in->aflg[11], 1);
    EXPECT_TRUE(in->suns[0]);
    EXPECT_FALSE(in->suns[1]);
    EXPECT_DOUBLE_EQ(in->tmstep * 86400, 15.0);
}

/// Each field of slot 10 another number, to find one that is left out or crossed.
void number(WinpData* in)
{
    // cppcheck-suppress constVariable  ; it is one
    double* const arrays[] = {in->mjdep, in->a,    in->ra,   in->aper,  in->inc,   in->ecc,   in->m0,
                              in->n0,    in->adot, in->ndot, in->n6dot, in->bstar, in->epr0,  in->epr1,
                              in->epr2,  in->epv0, in->epv1, in->epv2,  in->cstm,  in->csr0,  in->csr1,
                              in->csr2,  in->csv0, in->csv1, in->csv2,  in->F107,  in->FB107, in->Kp,
                              in->Cd,    in->Cr,   in->Am,   in->deltv, in->yaw,   in->pitch};
    double next = 1;
    for (double* const array : arrays)
        array[workSlot] = next++;
    in->norad[workSlot] = 25544;
    in->numflg[workSlot] = 1;
    in->aflg[workSlot] = 0;
    in->ionf[workSlot] = in->suns[workSlot] = in->epu[workSlot] = true;
    assignField(in->fsname[workSlot], "ISS");
    assignField(in->ldsn[workSlot], "1998-067A");
    assignField(in->cfgname[workSlot], "search text");
}

TEST(ShiftElm, MovesASatelliteAndNothingElse)
{
    const auto in = std::make_unique<WinpData>();
    setDefaults(in.get());
    number(in.get());
    assignField(in->cfgname[3], "kept");
    in->prs = 2;
    in->satn = 5;
    in->sgpsat = 1;
    ShiftElm(in.get(), 3, workSlot);
    EXPECT_EQ(in->prs, 2);
    EXPECT_EQ(in->satn, 5);
    EXPECT_EQ(in->sgpsat, 9999);
    EXPECT_EQ(fieldText(in->cfgname[3]), "kept");
    EXPECT_EQ(fieldText(in->fsname[3]), "ISS");
    EXPECT_EQ(fieldText(in->ldsn[3]), "1998-067A");
    EXPECT_EQ(in->norad[3], 25544);
    EXPECT_EQ(in->numflg[3], 1);
    EXPECT_EQ(in->aflg[3], 0);
    EXPECT_TRUE(in->ionf[3] && in->suns[3] && in->epu[3]);
    EXPECT_EQ(in->mjdep[3], 1);
    EXPECT_EQ(in->inc[3], 5);
    EXPECT_EQ(in->bstar[3], 12);
    EXPECT_EQ(in->epv2[3], 18);
    EXPECT_EQ(in->csv2[3], 25);
    EXPECT_EQ(in->pitch[3], 34);
    double sum = 0;
    for (const double* array :
         {in->mjdep, in->a,     in->ra,    in->aper, in->inc,   in->ecc,  in->m0,   in->n0,   in->adot,
          in->ndot,  in->n6dot, in->bstar, in->epr0, in->epr1,  in->epr2, in->epv0, in->epv1, in->epv2,
          in->cstm,  in->csr0,  in->csr1,  in->csr2, in->csv0,  in->csv1, in->csv2, in->F107, in->FB107,
          in->Kp,    in->Cd,    in->Cr,    in->Am,   in->deltv, in->yaw,  in->pitch})
        sum += array[3];
    EXPECT_EQ(sum, 34 * 35 / 2);
}
}  // namespace
