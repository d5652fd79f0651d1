#include "design/orbit_helper.h"

#include <cmath>

#include <gtest/gtest.h>

#include "app/record/files.h"
#include "app/record/text.h"
#include "elements/reader.h"
#include "engine/epoch_state.h"
#include "engine/position.h"
#include "orbit/mean_motion.h"

WinpData* freshRecord()
{
    *indata = WinpData{};
    setDefaults(indata);
    indata->lat = 48.25;
    indata->lng = 16.5;
    indata->height = 200.0;
    indata->mjd = 58138.0;
    indata->year = 2018;
    indata->month = 1;
    indata->day = 20;
    indata->yrepoch = 0.0;
    indata->visflg = 0;
    indata->sunel = 90.0;
    return indata;
}

void addCircle(WinpData* in, double a, double inc, double ra, double u)
{
    const int k = in->satn++;
    in->aflg[k] = 0;
    in->mjdep[k] = in->mjd;
    in->a[k] = a;
    in->inc[k] = inc;
    in->ra[k] = ra;
    in->m0[k] = u;
    in->n0[k] = getn0(a, 0.0, inc);
    EpochState(in, k, true);
}

void addSatellite(WinpData* in, const char* file, int norad)
{
    assignField(in->tlename, std::string(TEST_DATA "/elements/") + file);
    const FilePtr elements = openForReading(in->tlename);
    ASSERT_TRUE(elements);
    char report[entryTextRoom];
    in->srcmd = 1;
    in->norad[workSlot] = norad;
    ASSERT_GT(tleread(in, elements.get(), report, 0), 0) << norad;
    ShiftElm(in, in->satn++, workSlot);
}

State stateAt(WinpData* in, int slot, double t)
{
    GetSatPos(t, in, satpos, slot, 0);
    return {Vec3(in->csr0[slot], in->csr1[slot], in->csr2[slot]) / 1000.0,
            Vec3(in->csv0[slot], in->csv1[slot], in->csv2[slot]) / 1000.0};
}

double axisOf(const State& state)
{
    return 1.0 / (2.0 / abs(state.r) - dot(state.v, state.v) / gmKm3PerS2);
}

double eccentricityOf(const State& state)
{
    return abs(state.v * (state.r * state.v) * (1.0 / gmKm3PerS2) - vnorm(state.r));
}

bool elementsAreFinite(const WinpData& in, int slot)
{
    for (const double x : {in.mjdep[slot], in.a[slot], in.ra[slot], in.aper[slot], in.inc[slot], in.ecc[slot],
                           in.m0[slot], in.n0[slot], in.adot[slot], in.ndot[slot], in.n6dot[slot], in.bstar[slot],
                           in.epr0[slot], in.epr1[slot], in.epr2[slot], in.epv0[slot], in.epv1[slot], in.epv2[slot]})
        if (!std::isfinite(x))
            return false;
    return true;
}
