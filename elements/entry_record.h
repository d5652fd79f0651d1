// What an entry gives: its orbit as a value, and the work slot of the record with all that its fields need.
#pragma once

#include "elements/entry.h"
#include "orbit/orbit.h"
#include "record/winp_data.h"

constexpr int entryTextRoom = 1024;  // for the report of an entry; it fills about 450 characters

/// The elements of an entry and what follows from them.
struct EntryOrbit
{
    Elements elements;
    double n = 0;                        // its mean motion as filters and reports count it
    double perigee = 1.0, apogee = 1.0;  // heights above the equator's radius, km; 1 for e >= 1
    bool finite = true;  // false: a state vector without elements, as that of a satellite at the centre of the Earth
};

/// The elements of an entry, of a state vector those that osculate. The axis comes from the mean motion, which counts
/// as 1e-30 rev/day at least; for an eccentricity of 1 or more the mean motion is the perigee distance in km.
EntryOrbit entryOrbit(const Entry& entry);

/// The satellite of an entry for `predictPasses` and its like, with the models and forces a new record has. It has the
/// values that `orbitOf` gives of a record with this entry, but no epoch state unless it is numeric.
Orbit orbitOf(const Entry& entry);

/// Stores an entry in the work slot: what of it was read; then, if it is whole, passes the filters `lowflg` and
/// `recflg`, with the adjustment, the axis and the epoch state. `fsname` must hold the name already.
///
/// @param out  at least `entryTextRoom` characters: the report of the entry, empty if it is not taken; of a message
///             that is refused, why
/// @return     whether it is taken
bool takeEntry(WinpData* in, const Entry& entry, char* out);

/// Stores the name of an entry in the work slot, as it was read.
void takeName(WinpData* in, const Entry& entry);

/// The designator, `ldraw` (98067A) to `ldfull` (1998-067A) or back. Two-digit years below 57 are of this century.
void convldsn(WinpData* in, bool tofull);

/// Stores the epoch of the work slot, a year and day of the year (January 1st, 0h is 1.0), and writes it as
/// "20-JAN-2018   12: 5:31".
///
/// @param out  at least 40 characters
void cnvepch(WinpData* in, int year, double day, char* out);
