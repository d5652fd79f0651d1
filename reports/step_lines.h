// What the lines of the pass details and of the orbit track have in common.
#pragma once

#include "record/winp_data.h"

#include <cstddef>

class TextWriter;

/// Whether the lines tell the ground point of an event: transits or occultations are on, or flares with a known
/// surface.
bool groundPointWanted(const WinpData& in);

/// Appends the first characters of the time stamp of t (MJD UTC) in civil time: 7 for the date, 13 with minutes, 16
/// with seconds.
void addStepTime(TextWriter& line, const WinpData& in, double t, std::size_t characters);

/// Appends longitude, latitude and height of a slot of `satpos`.
void addSubPoint(TextWriter& line, int slot);

/// Appends longitude and latitude of the ground point of a slot of `satpos`; 100 stands for a latitude if there is
/// none.
void addGroundPoint(TextWriter& line, int slot);
