// The text for a pick on a map: what can be seen from the place, or what lies at a point of the sky.
#pragma once

struct WinpData;

constexpr int localDetailsRoom = 1008;

/// Composes the local details at the time `mjd` of the record.
///
/// On the world map `lat`, `lng` and `height` are the place, and with one satellite selected its state, the Sun and the
/// direction of the place as seen from the satellite follow. On the sky map (`skymap`) `az1`, `el1` and the packed
/// `az2`, `el2` are the point. Uses the record `satpos`; `prs`, `rlm` and `yrepoch` are as before at the end.
///
/// @param text  at least `localDetailsRoom` characters
void LocalInf(WinpData* in, char* text);
