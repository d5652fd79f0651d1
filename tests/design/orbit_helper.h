// Satellites for the tests of orbit design, in the record of the program: the integrator knows no other.
#pragma once

#include <algorithm>
#include <cmath>
#include <string>

#include <gtest/gtest.h>

#include "astro/vec3.h"
#include "elements/reader.h"
#include "engine/epoch_state.h"
#include "engine/position.h"
#include "orbit/mean_motion.h"
#include "record/files.h"
#include "record/text.h"
#include "record/winp_data.h"

constexpr double gmKm3PerS2 = 398600.4415;
constexpr double equatorKm = 6378.137;

/// The record with its defaults, an observer in Vienna on 2018-01-20 0h UTC, coordinates true of date, no satellite.
inline WinpData* freshRecord()
{
    *indata = WinpData{};
    setDefaults(indata);
    indata->lat = 48.25;
    indata->lng = 16.5;
    indata->height = 200.0;
    indata->mjd = 58138.0;
    indata->yrepoch = 0.0;
    indata->visflg = 0;
    indata->sunel = 90.0;
    return indata;
}

/// Adds a circular orbit (km, degrees) of the simple Keplerian model with its node at `ra`, at latitude argument `u` at
/// the time of the record.
inline void addCircle(WinpData* in, double a, double inc, double ra, double u)
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

/// Adds the satellite of a catalogue number as the program reads it from a file of tests/data/elements.
inline void addSatellite(WinpData* in, const char* file, int norad)
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

struct State
{
    Vec3 r, v;  // km, km/s
};

/// The state that the position engine leaves in the record: mean equator of date.
inline State stateAt(WinpData* in, int slot, double t)
{
    GetSatPos(t, in, satpos, slot, 0);
    return {Vec3(in->csr0[slot], in->csr1[slot], in->csr2[slot]) / 1000.0,
            Vec3(in->csv0[slot], in->csv1[slot], in->csv2[slot]) / 1000.0};
}

/// Axis of the orbit of a state, km.
inline double axisOf(const State& state)
{
    return 1.0 / (2.0 / abs(state.r) - dot(state.v, state.v) / gmKm3PerS2);
}

inline double eccentricityOf(const State& state)
{
    return abs(state.v * (state.r * state.v) * (1.0 / gmKm3PerS2) - vnorm(state.r));
}

/// Whether elements and epoch state of a slot are finite numbers.
inline bool elementsAreFinite(const WinpData& in, int k)
{
    const double numbers[] = {in.mjdep[k], in.a[k],    in.ra[k],   in.aper[k], in.inc[k],   in.ecc[k],
                              in.m0[k],    in.n0[k],   in.adot[k], in.ndot[k], in.n6dot[k], in.bstar[k],
                              in.epr0[k],  in.epr1[k], in.epr2[k], in.epv0[k], in.epv1[k],  in.epv2[k]};
    return std::all_of(std::begin(numbers), std::end(numbers), [](double x) { return std::isfinite(x); });
}
