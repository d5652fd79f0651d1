// Writing satellites as Orbit Mean-Elements Messages in the form CSV.
#pragma once

#include "elements/omm_message.h"
#include "record/winp_data.h"

#include <cstdio>
#include <string>

/// Writes the line of keywords.
void writeOmmHeader(std::FILE* file);

/// Writes the elements of a slot. Figures have as many digits as they need to come back the same, the epoch has
/// microseconds. What the record does not hold is written as the services write what they do not know.
void writeOmmLine(std::FILE* file, const WinpData& in, int slot);

/// The line of keywords, and a message under it.
std::string ommHeader();
std::string ommLine(const OmmMessage& message);
