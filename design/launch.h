// The orbit of a launch, and the launch time for a rendezvous.
#pragma once

#include "record/winp_data.h"

/// Turns the orbit of the prime satellite so that it passes over the launch site at `mjd`, heading north or south.
///
/// Reads shape and inclination of the slot and `lslat`, `lslng`, `lsouth`, `tmeco`; writes epoch, node, perigee and mean
/// anomaly, the azimuth `lazim` (degrees, negative toward the west) and the epoch state. An inclination below the
/// site's latitude leads due east or west. With `aflg` an ellipse ends as mean SGP4 elements; one
/// that has none clears `aflg`.
///
/// With `lsat` not below 0 it is a rendezvous: the launch moves to the time at which the site lies in the plane of the
/// satellite in `rzsat`, corrected for what the two planes drift apart in `rztime` days, and `mjd` to that time. Results
/// that are no finite numbers become 0.
void LaunchOrb(WinpData* in);

/// Makes a slot beside the prime satellite the chasing one, with the elements of the prime one, which becomes the
/// target: `rzsat`, `lsat`, `prs` and, for a new slot, `satn`. With the target in the last slot the chaser takes the
/// one before; what was there is lost.
void chasePrime(WinpData* in);

/// The civil time (`tzone`) of an instant into the date fields of the record, its seconds cut off.
void setStartDate(WinpData* in, double mjd);
