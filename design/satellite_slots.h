// New satellites of the element editor.
#pragma once

#include "record/winp_data.h"

/// Empties a slot: epoch now, force parameters at their defaults, everything else 0 or blank.
void blankSatellite(WinpData* in, int slot);

/// Makes an empty slot behind the selected satellites the prime one. With ten of these the last one is emptied.
void addBlankSatellite(WinpData* in);

/// Takes the satellite added last away again; the one before becomes the prime one.
void dropAddedSatellite(WinpData* in);
