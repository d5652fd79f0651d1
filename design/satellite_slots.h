// New satellites of the element editor.
#pragma once

#include "orbit/orbit.h"
#include "record/winp_data.h"

/// Empties a slot: epoch now, force parameters at their defaults, everything else 0 or blank, the states too.
void blankSatellite(WinpData* in, int slot);

/// Makes an empty slot after the selected satellites the prime one. With ten of these the last one is emptied.
void addBlankSatellite(WinpData* in);

/// Makes a copy of a satellite (a blank one for no slot below 0), with other elements of SGP4 and "fit" behind its name,
/// the prime one, after the selected ones, of which there are less than ten.
void addFittedSatellite(WinpData* in, int like, const Elements& elements);

/// Takes the satellite added last away again; the one before becomes the prime one.
void dropAddedSatellite(WinpData* in);

/// Whether a slot has an epoch state, which an emptied one lacks until its elements or a state vector are stored.
bool hasState(const WinpData& in, int slot);

/// Brings the states of a slot in line with its elements after these were edited. A numeric satellite keeps the state
/// it has; one without gets that of its elements and stays numeric.
void followElements(WinpData* in, int slot);

/// The epoch state becomes the current one, from which a numeric satellite is integrated.
void returnToEpoch(WinpData* in, int slot);
