// Rows of lists from the records: what the command and the window write into files of other forms.
#pragma once

#include "exports/lists.h"
#include "record/winp_data.h"

#include <string>

struct Entry;
struct Event;
struct Pass;

/// How a list calls the satellite of a slot.
SatelliteName nameOf(const WinpData& in, int slot);

/// How a list calls the satellite of an entry: by its designator if it has no name.
SatelliteName nameOf(const Entry& entry);

/// A pass of the satellite of a slot under `passColumns`.
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

/// An event of the satellite of a slot. Figures of a transit are rounded as in the tables of the window.
ListRow eventRow(const WinpData& in, int slot, const Event& event);
