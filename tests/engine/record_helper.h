// Input records for the tests of the engine: settings at their defaults, element sets straight from a file.
#pragma once

#include "app/record/winp_data.h"

/// A place on the ground, degrees and metres.
struct Site
{
    double lat, lng, height;
};

constexpr Site vienna{48.25, 16.5, 200.0};

/// A record with the defaults of a run and an observer, and no satellite. Coordinates are true of date.
WinpData recordAt(const Site& site);

/// Puts the analytic element set of a catalogue number into a slot, read from a file of tests/data/elements. The fields
/// are cut out of the columns; the reader of the program has no part in it.
///
/// @return  whether the set was found
bool loadElements(WinpData& in, int slot, const char* file, int norad);
