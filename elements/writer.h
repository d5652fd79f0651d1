// Writing the selected satellites as Two Line Elements or state vector records.
#pragma once

#include "record/winp_data.h"

#include <cstdio>
#include <string>
#include <vector>

/// What of the selection a file of the chosen form cannot hold.
struct LeftOut
{
    std::vector<int> numeric;  // slots: messages have no place for a numeric state
    std::vector<int> numbers;  // slots: catalogue numbers that the five columns of two lines cannot hold
};

/// Whether `tlesave` names a file of messages: it ends in ".csv", in any case.
bool savesMessages(const WinpData& in);

LeftOut leftOut(const WinpData& in);

/// Writes the selection to the file `tlesave`: anew if `newtle` is set, else behind what it holds. `newtle` is 0
/// afterwards, also after a failure. The file changes as a whole or not at all.
///
/// A name that ends in ".csv" makes it a file of Orbit Mean-Elements Messages, one line for each satellite that is not
/// numeric, in figures that round trip. For an eccentricity of 1 or more MEAN_MOTION is the perigee distance in km, as
/// in two lines. Any other name makes it one of Two Line Elements.
///
/// @param shorten  a catalogue number above 339999 goes into two lines with its last five digits; else its satellite
///                 is left out
/// @param why      receives the reason where the file cannot be written
/// @return         0 done, 1 no satellite selected or none that such a file can hold, 2 the file cannot be written
[[nodiscard]] int SaveTle(WinpData* in, bool shorten = false, std::string* why = nullptr);

/// Writes one satellite with its name as Two Line Elements, or as a record of its state if it is numeric. Uses `ldraw`
/// and `ldfull`.
void writeTwoLines(std::FILE* file, WinpData* in, int slot);

/// The exponent field of a Two Line Element: 0.5e-3 gives " 50000-3". A value too large for the field becomes the
/// largest that fits; one that is no number becomes 0.
///
/// @param out  9 characters, the NUL included
void cvtlef(char* out, double value);

/// The checksum character of a line of at least 68 characters.
char tcksum(const char* line);
