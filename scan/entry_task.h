// An entry of an element file on its way through a scan, with records of its own.
#pragma once

#include "engine/satpos_data.h"
#include "record/winp_data.h"
#include "scan/entries.h"
#include "scan/workers.h"

#include <functional>
#include <vector>

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

/// Brings each entry to slot `isat` of a task of its own, which any thread searches and this one finishes, in the order
/// of the file. Ends early if the listener ends the scan.
template <class Task>
void shareEntries(Entries& entries, const WinpData& in, int isat, const std::function<void(Task&)>& search,
                  const std::function<void(const Task&)>& finish)
{
    std::vector<Task> tasks(EntryRing::placesNeeded());
    EntryRing ring(
        static_cast<int>(tasks.size()), [&](int place) { searchEntry(tasks[place], [&] { search(tasks[place]); }); },
        [&](int place) { finish(tasks[place]); });
    while (entries.next()) {
        const int place = ring.freePlace();
        if (place < 0)
            break;
        beginEntry(tasks[place], in, isat);
        ShiftElm(&tasks[place].in, isat, workSlot);
        ring.filled(in.numflg[workSlot] != 0);  // numeric satellites stay on this thread
    }
    ring.complete();
}
