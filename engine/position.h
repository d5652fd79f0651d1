// One satellite at one instant: the position engine.
#pragma once

#include "engine/satpos_data.h"
#include "engine/site.h"
#include "record/winp_data.h"

/// Everything that the program shows about the satellite of slot `isat` at one instant, into `sp`.
///
/// @param mjd   UTC as a Modified Julian Date
/// @param isat  slot, 0 to 11
/// @param vis   not 0: also the visibility circle
///
/// The orbit model is that of the slot: numflg, aflg, else two-body by the eccentricity. In relative mode (rlm with two
/// or more satellites, neither occultations nor flares on) the prime satellite is computed as seen from the next one,
/// which is computed first.
///
/// Changes in `in`: for an analytic model the current state of the slot (cstm, csr0 to csv2) and moondst; sgpsat;
/// ecltyp, smang, eclmag, eclpow, flrang; in the flare modes with an unknown surface and in the solar panel rounds
/// occra and occdec. There is no failure: a state that is no finite number becomes the far-off state of a failed
/// analytic model, and senseless times, places and angles are clamped, so that `sp` is finite.
void GetSatPos(double mjd, WinpData* in, SatPosData* sp, int isat, int vis);

/// GetSatPos as if relative mode were off.
void absolutePosition(double mjd, WinpData* in, SatPosData* sp, int isat, int vis = 0);

/// absolutePosition in another view than that of the record.
void positionIn(const View& view, double mjd, WinpData* in, SatPosData* sp, int isat, int vis = 0);

/// The prime satellite as seen from the second one, any other by positionIn; `view.observer` plays no part for the
/// prime.
void relativePosition(const View& view, double mjd, WinpData* in, SatPosData* sp, int isat, int vis = 0);

/// Apparent elevation for display, degrees: `el` with refraction, if refrc is on, rlm is off and `el` lies between -2
/// and 85 exclusive; otherwise `el` itself.
double ElvRefr(WinpData* in, double el);

/// The same for an observer, with refraction or without.
double apparentElevation(bool refraction, double el);
