// A record for the tests of the reports, with satellites read from the sample elements.
#pragma once

#include "app/record/winp_data.h"

#include <string>

/// The place of the expected texts, 2018-01-20 1h of the zone one hour east, every pass above 10 degrees, coordinates
/// true of date; no satellite.
void observeFromVienna(WinpData* in);

/// Adds the satellite of a catalogue number to the selection, as the program reads it from visual_2018.txt.
void addSatellite(WinpData* in, int norad);

/// A text of tests/data/reports.
std::string expectedText(const char* name);
