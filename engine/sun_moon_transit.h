// Width, duration and direction of a transit of the Sun or Moon.
#pragma once

#include "record/winp_data.h"

/// Estimates a transit as seen from its central line.
///
/// @param t      time of the event, MJD UTC
/// @param dist   distance of the observer from the central line, km
/// @param autow  not 0: `r` tells whether the transit zone reaches the observer, 1, or not, 2; otherwise `r` stays
/// @param text   at least 64 characters: half width in km, duration in seconds and position angle of the motion, to be
///               appended to a table line; a single blank if there is no sensible duration
///
/// occflg is 1 or 2. Uses the record `satpos`, which stands at the last call afterwards.
void SunMoonTr(WinpData* in, double t, int isat, double dist, int autow, int& r, char* text);
