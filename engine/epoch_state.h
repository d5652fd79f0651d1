// The state vector of a satellite at its epoch.
#pragma once

#include "orbit/orbit.h"
#include "record/winp_data.h"

/// Fills the epoch state of slot `k` from its orbit model and makes the slot analytic (numflg 0).
///
/// @param reset  also brings thrust and force parameters of the slot to their defaults
///
/// A slot that is numeric on entry is integrated to its epoch first. Uses the record `satpos`; the current state of the
/// slot is that of the epoch afterwards.
void EpochState(WinpData* in, int k, bool reset);

/// The epoch state by a model of the caller's choice; the slot keeps its own.
void epochStateBy(Propagator model, WinpData* in, int k);

/// Thrust off, and the force parameters of slot `k` at the defaults of the record.
void resetForces(WinpData* in, int k);
