// Flares of the Iridium mirrors, and the search for the moment of a transit or flare within a pass.
#pragma once

#include <array>
#include <functional>

#include "engine/pass.h"
#include "engine/pass_search.h"
#include "engine/satpos_data.h"
#include "record/winp_data.h"

/// A reflecting surface of an Iridium satellite: yaw and pitch of its normal in the local attitude.
struct Mirror
{
    const char* name;  // as in reports, padded
    double yaw;        // degrees; that of the solar panel comes from the Sun
    double pitch;      // degrees; minus this for the solar panel with the Sun below
};

constexpr double mirrorPitchDeg = -40.0;

inline constexpr std::array mirrors{
    Mirror{"Front  ", 0.0, mirrorPitchDeg},
    Mirror{"Left   ", -120.0, mirrorPitchDeg},
    Mirror{"Right  ", 120.0, mirrorPitchDeg},
    Mirror{"Solar  ", 0.0, mirrorPitchDeg},
};

/// Sets a record for the search of flares of the mirrors: kind, attitude of the front mirror, no occultations.
void putMirrors(WinpData* in);

/// Values of the entries of `state` in the search: one entry for each mirror.
enum FlareState : int
{
    flareOver = 0,    // no longer followed
    flareSeen = 1,    // being followed
    flareUnseen = 2,  // not seen yet
    flareSought = 3   // looked for; a miss does not end it
};

/// Closes a pass for the event kinds: looks for the transit or flare in it.
///
/// @param flag  not 0: a ground point was seen in the pass
/// @param tm    [0] and [2] start and end of the pass; [1] becomes the time of the event, MJD UTC
/// @param a     [1] becomes the elevation, degrees; for Iridium flares [0] and [2] the satellite's latitude at start
///              and end, which tell the direction of flight
/// @param b     [1] becomes the azimuth, degrees, [2] the distance in km or the magnitude
/// @return      1 for an event, 2 for none (then the arrays may have changed)
///
/// For Iridium flares occdec and occra are changed; occra is the yaw of the best mirror on return.
int GetIrid(WinpData* in, int isat, int flag, double* tm, double* a, double* b);

/// GetIrid on values.
///
/// @param groundPoint  one was seen in the pass
/// @param goTo         finds position and ground point at an instant, as `positionAt`
int findEvent(const PassQuery& query, bool groundPoint, Pass& pass, const std::function<void(double)>& goTo);

/// Tries time `t` for entry `k` of the search: runs GetSatPos on `satpos` and keeps time, distance or magnitude,
/// elevation and azimuth in the entry where they are the best so far. Nothing happens to an entry that is over.
void CkIrid(double t, WinpData* in, int isat, int k, int* state, double* times, double* best, double* el, double* az);
