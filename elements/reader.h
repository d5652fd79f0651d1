// Reading satellites from a file of Two Line Elements and four-line state vector records, or from the stream that
// `openElementFile` makes of Orbit Mean-Elements Messages.
#pragma once

#include "elements/entry_record.h"

#include <cstdio>

/// Finds the next entry that fits the search text `cfgname[10]` in the mode `srcmd`: 0 name, 1 NORAD number
/// `norad[10]`, 2 international designator. A text that begins with "*" takes every entry, in file order.
///
/// The entry comes to the work slot, with its semi-major axis, epoch state and adjustment. An SGP4 state of before the
/// call is no longer valid.
///
/// @param fp    read from where it stands
/// @param out   at least `entryTextRoom` characters: the report of the entry, or that nothing was found, then with
///              the report of the first message that fits and is refused
/// @param more  1 continues a search by name after a result of 2
/// @return      0 nothing found, 1 found and nothing further, 2 found and more follow
int tleread(WinpData* in, std::FILE* fp, char* out, int more);

/// Decodes the entry that starts in `line` into the work slot.
///
/// @param line  80 characters, the name line or line 1 of the entry; used up
/// @param out   at least `entryTextRoom` characters: the report of the entry, empty if it is refused
/// @param eof   becomes 1 if the end of the file was met
/// @return      1 if the entry is complete and passes the filters, else 0
int gettle(WinpData* in, std::FILE* fp, char* line, char* out, int& eof);

/// The six settings behind the adjustment dialog.
void vsGetAdj(bool& sdp4, bool& adjflg, double& adjtim, double& adjn0, double& adjra, int& wgs);

/// Stores them; the SGP4 state is no longer valid after it.
void vsPutAdj(bool sdp4, bool adjflg, double adjtim, double adjn0, double adjra, int wgs);
