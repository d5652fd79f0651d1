// The flare variant of the record, taken apart and put together.
#pragma once

/// What `WinpData::flarmod` packs: its sign tells whether the surface is known, its size whether the attitude is local
/// (1) or inertial (2).
struct FlareVariant
{
    bool knownSurface = false;
    bool localAttitude = false;
};

/// A code above 0 means a known surface, 1 and -1 mean a local attitude; any other size counts as inertial.
FlareVariant flareVariant(int flarmod);
/// 1, 2, -1 or -2.
int flareMode(FlareVariant variant);

/// Whether the two angles of the visibility conditions are the axis of a cylinder (`cylra`, `cyldec`) and not
/// `occra`, `occdec`.
bool anglesAreCylinder(bool cylflg, int flarflg, int flarmod);
