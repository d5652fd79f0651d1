// An entry of an element file on its way through a scan, with records of its own.
#pragma once

#include "app/record/winp_data.h"
#include "engine/satpos_data.h"

#include <functional>

/// What a thread needs for the search of one entry.
struct EntryTask
{
    WinpData in;
    SatPosData positions;
    bool searched = false;
};

/// Fills the records of a task from the ones of the scan. Slot `isat` is that of the search.
void beginEntry(EntryTask& task, const WinpData& in, int isat);

/// Brings what a search leaves behind into the records of the scan, as if it had run on them: the elements with the
/// state reached, the working values of the engine, and `satpos`. Nothing if the entry was not searched.
void endEntry(WinpData* in, const EntryTask& task, int isat);

/// Searches on the record of a task, with its positions as `satpos` of the thread.
void searchEntry(EntryTask& task, const std::function<void()>& search);
