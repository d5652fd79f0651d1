#include "record/winp_data.h"

#include "record_fields.h"

#include "record/text.h"

#include <array>
#include <gtest/gtest.h>
#include <memory>

namespace {
template <class... Fields>
auto valuesOf(Fields... fields)
{
    return std::array<double, sizeof...(fields)>{static_cast<double>(fields)...};
}

TEST(Defaults, ReplaceEverythingThatWasThere)
{
    const auto record = std::make_unique<WinpData>();
    WinpData& in = *record;
    in.satn = 7;
    in.lat = 51;
    in.astra[4] = 3;
    in.epr2[11] = 5;
    setDefaults(&in);
    EXPECT_EQ(valuesOf(in.satn, in.lat, in.astra[4], in.epr2[11]), valuesOf(0, 0, 0, 0));
    EXPECT_EQ(valuesOf(in.tzauto, in.dur, in.tmstep, in.stepsec), valuesOf(1, 3.1, 1.736111111111111e-4, 15));
    EXPECT_EQ(valuesOf(in.fsz, in.mfsz, in.bf, in.newsave, in.newtle, in.mapprj, in.mgrey),
              valuesOf(10, 10, true, 1, 1, 3, 2));
    EXPECT_EQ(valuesOf(in.visflg, in.satel, in.sunel, in.yrepoch), valuesOf(1, 10, -6, 2000));
    EXPECT_EQ(valuesOf(in.flarmod, in.flrmgx, in.irmag, in.ops, in.maxdst), valuesOf(1, -7.5, 1, 1, 50));
    EXPECT_EQ(valuesOf(in.tmeco, in.rztime, in.lsat, in.mxa, in.tm, in.rdf, in.stref),
              valuesOf(8.8, 1.3, -1, 2, 1, 1, 1));
    EXPECT_EQ(valuesOf(in.sgpsat, in.sdp4, in.mxit, in.RKFtol, in.lift), valuesOf(9999, true, 20, 1e-8, 0.15));
    EXPECT_EQ(valuesOf(in.dF107, in.dFB107, in.dKp, in.dCd, in.dCr, in.dAm), valuesOf(160, 155, 4, 2.3, 1.3, 0.01));
    EXPECT_EQ(valuesOf(in.F107[0], in.FB107[0], in.Kp[0], in.Cd[0], in.Cr[0], in.Am[0]),
              valuesOf(160, 155, 4, 2.3, 1.3, 0.01));
    EXPECT_TRUE(in.moonf && in.sunf && in.refrc && in.atmx && in.suns[0] && !in.suns[1] && in.aflg[11] == 1);
    EXPECT_EQ(fieldText(in.geoname), "Default");
    EXPECT_EQ(fieldText(in.tlename), "./visual.txt");
    EXPECT_EQ(fieldText(in.savename), "*satsave.txt");
    EXPECT_EQ(fieldText(in.tlesave), "*vorlix.tle");
    EXPECT_EQ(fieldText(in.url), "celestrak.org/NORAD/elements/visual.txt");
    EXPECT_EQ(fieldText(in.fsname[9]), std::string(20, ' '));
    EXPECT_EQ(fieldText(in.cfgname[0]), std::string(20, ' '));
    EXPECT_EQ(fieldText(in.ldsn[0]), std::string(11, ' '));
    EXPECT_EQ(fieldText(in.ldraw), std::string(6, ' '));
}

TEST(ShiftElm, MovesASatelliteAndNothingElse)
{
    const auto record = std::make_unique<WinpData>();
    WinpData& in = *record;
    setDefaults(&in);
    int next = 1;  // each field another number, to find one that is left out or crossed
    for (const RecordField& field : recordFields)
        setFields(in, std::string(field.name) + "=" + std::to_string(next++));
    assignField(in.fsname[workSlot], "ISS");
    assignField(in.ldsn[workSlot], "1998-067A");
    assignField(in.cfgname[workSlot], "search text");
    assignField(in.cfgname[3], "kept");
    setFields(in, "prs=2 satn=5 sgpsat=1");
    ShiftElm(&in, 3, workSlot);
    EXPECT_EQ(differences(in, "prs=2 satn=5 sgpsat=9999"), "");
    EXPECT_EQ(fieldText(in.cfgname[3]), "kept");
    EXPECT_EQ(fieldText(in.fsname[3]), "ISS");
    EXPECT_EQ(fieldText(in.ldsn[3]), "1998-067A");
    EXPECT_EQ(slotFields(in, 3), slotFields(in, workSlot));
    EXPECT_EQ(slotFields(in, 3).size(), 40U);
}
}  // namespace
