// The flare variant of the record, taken apart and put together.
#pragma once

/// What `WinpData::flarmod` packs: its sign tells whether the surface is known, its size whether the attitude is local
/// (1) or inertial (2).
struct FlareVariant
{
    bool knownSurface = false;
    bool localAttitude = false;
};

FlareVariant flareVariant(int flarmod);
int flareMode(FlareVariant variant);

/// Whether the two angles of the visibility conditions are the axis of a cylinder (`cylra`, `cyldec`) and not
/// `occra`, `occdec`.
bool anglesAreCylinder(bool cylflg, int flarflg, int flarmod);
