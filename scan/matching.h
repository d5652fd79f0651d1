// The satellites of the element file that fit a sighting.
#pragma once

struct WinpData;
struct WoutData;

/// Searches `tlename` for satellites that came within `mxa` of the target within `tm` minutes of `mjd`, moving in the
/// given direction if `drf` is set; with `odm` for those that fit two sightings. The report goes to `out`.
///
/// Matches join the selection while there is room for more than one of them. `rlm` plays no part. The search text
/// becomes "*".
///
/// @return  1 if the element file cannot be opened, `calculationCancelled` with an empty report, else 0
int SatMatch(WinpData* in, WoutData* out);

/// Whether the satellite of a slot is a whole one or a larger piece, by the single piece letter of its designator, in no
/// high orbit.
bool isBrighter(const WinpData& in, int slot);

/// Whether the direction of a motion tells anything: not where the search circle reaches the zenith, in which "up" has
/// no meaning.
///
/// @param elevation  of the target, radians
bool directionCounts(double elevation, double radiusDeg);

/// Whether a satellite at (a1, e1) lies near the target (ta, te) and moves on to (a2, e2) in the direction `dir`.
///
/// @param cosmax  cosine of the largest distance; the distance itself does not count as near
/// @param dir     radians from the upward direction, positive to the right; within 45 degrees
/// @param useDir  0 leaves the direction out
/// Azimuths and elevations are radians. A satellite that does not move, or moves through the zenith, fits every
/// direction.
int mtchok(double cosmax, double ta, double te, double a1, double e1, double dir, int useDir, double a2, double e2);
