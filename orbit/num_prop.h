// orbit/num_prop.h: moves the state of a numerically propagated satellite to a wanted time.
#pragma once

#include "astro/vec3.h"
#include "record/winp_data.h"

/// The state in which this thread's last integration ended: metres and metres per second, mean equator of date.
extern constinit thread_local double smy[6];

/// Moves the current state of slot k to t: `fly` on the record.
///
/// @param t          MJD, UTC
/// @param sun, moon  Earth radii, true equator of date, at t
/// @param r, v       receive km and km/s, mean equator of date
///
/// Integrates from the current state, or from the epoch state where that is nearer and the jump above 20 minutes.
/// Changes `cstm` and the current state, `moondst`, and with `epu` also the epoch, its state and the elements. Where
/// no state comes out (numbers that are not finite, a jump of more than 100 years, an end by the listener)
/// r = (100, 0, 0), v = (0, 10, 0), and the record stays as it was. Threads may run it at the same time, each on a
/// record of its own.
void NumProp(double t, WinpData* in, int k, const Vec3& sun, const Vec3& moon, Vec3& r, Vec3& v);
