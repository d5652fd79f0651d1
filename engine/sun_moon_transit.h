// Width, duration and direction of a transit of the Sun or Moon.
#pragma once

#include "engine/satpos_data.h"
#include "record/winp_data.h"

/// A transit of the Sun or Moon as seen from its centre line.
struct DiskTransit
{
    double halfWidthKm = 0;  // of the zone in which it is seen, across its track; 50 and more are 50
    double seconds = 0;      // that the satellite takes to cross the disk of 0.53 degrees
    double angleDeg = 0;     // position angle of its motion from the zenith, 0 to 360

    /// Whether the duration makes sense: 0.05 to 30 s.
    bool sensible() const { return seconds >= 0.05 && seconds <= 30.0; }
};

/// The transit at `t`, the time of an event, MJD UTC; `occflg` is 1 or 2. Positions are worked out on `sp`.
DiskTransit diskTransit(WinpData* in, SatPosData* sp, double t, int isat);

/// `diskTransit` as a text.
///
/// @param t      time of the event, MJD UTC
/// @param dist   distance of the observer from the central line, km
/// @param autow  not 0: `r` tells whether the transit zone reaches the observer, 1, or not, 2; otherwise `r` stays
/// @param text   at least 64 characters: half width in km, duration in seconds and position angle of the motion, to be
///               appended to a table line; a single blank if there is no sensible duration
///
/// occflg is 1 or 2. Uses the record `satpos`, which stands at the last call afterwards.
void SunMoonTr(WinpData* in, double t, int isat, double dist, int autow, int& r, char* text);
