// The selection of satellites: the functions between its dialogs and the record.
#pragma once

#include "record/winp_data.h"

#include <QString>
#include <array>
#include <cstdio>

/// The element file while the selection dialog is open, else null; its owner is the command.
extern std::FILE* satfle;

/// The search as it was left: text, mode, NORAD number, number of satellites, filters.
void vsLastSat(QString& s, int& srcmd, int& norad, int& satn, int& low, int& rec);

/// The element file and the names of the selected satellites.
QString vsSatList();

/// Empties the selection; the elements stay in the slots but no longer count.
void vsResetSatList();

/// Adds the work slot to the selection; with ten satellites it takes the place of the tenth.
void vsSatSel();

/// One call of `tleread` on `satfle`.
///
/// @param s     in: the search text; out: the report
/// @param n     in: the NORAD number; out: the result of `tleread`
/// @param mode  0 name, 1 NORAD number, 2 designator
/// @param more  1 goes on through the matches of a name
void vsReComp(QString& s, int& n, int mode, int more, int low, int rec);

/// The same from the start of the file.
void vsFindSat(QString& s, int& n, int mode, int low, int rec);

void vsLowRecent(int low, int rec);

/// Name of the satellite in slot i - 1.
QString vsSatName(int i);

/// Takes the marked satellites out of the selection; those above move down, and the prime satellite moves with them or
/// passes to the one before it.
void removeSatellites(WinpData* in, const std::array<bool, maxSatellites>& marked);

/// Completes a default name: one that begins with "*" goes to the directory of the element file.
///
/// @param name  a field of 105 characters
void vsFileName(char* name);
