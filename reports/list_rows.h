// Rows of lists from the records: what the command and the window write into files of other forms.
#pragma once

#include "exports/lists.h"
#include "record/winp_data.h"

#include <optional>
#include <string>

struct Pass;

/// How a list calls the satellite of a slot.
SatelliteName nameOf(const WinpData& in, int slot);

ListRow passRowOf(const WinpData& in, int slot, const Pass& pass);

/// A time in which two satellites see each other, as `nextpass` finds it in relative mode.
ListRow contactRow(const WinpData& in, int slot, int other, const Pass& pass);

/// The place of a slot in the sky, as `satpos` holds it for the instant `t`.
///
/// @param frequencyHz  of a transmitter, for the Doppler shift; 0 for none
ListRow lookRow(const WinpData& in, int slot, double t, double frequencyHz);

/// The point below the satellite of a slot, as `satpos` holds it for the instant `t`.
ListRow trackRow(const WinpData& in, int slot, double t);

/// Name, number and designator of a slot, and an instant: how rows of steps begin.
ListRow stepRow(const WinpData& in, int slot, double t);

/// Width, duration and direction of a transit of the Sun or Moon.
struct Crossing
{
    std::optional<double> halfWidthKm, seconds, angleDeg;
    bool reached = true;  // by the transit zone
};

/// @param automatic  a transit whose zone does not reach the observer is not `reached`
Crossing crossingOf(WinpData& in, int slot, const Pass& event, bool automatic);

/// An event that `nextpass` found, with its ground point at the same instant. Uses `satpos`.
ListRow eventRow(WinpData& in, int slot, const Pass& event, const Crossing& crossing);
