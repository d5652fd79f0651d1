// Searches of the entries of an element file, shared among threads.
#pragma once

#include "engine/satpos_data.h"
#include "record/winp_data.h"
#include "scan/entries.h"
#include "scan/workers.h"

#include <functional>
#include <vector>

/// The records that the search of one entry works on.
struct EntryRecords
{
    WinpData in;
    SatPosData positions;
};

/// Fills the records with the settings of a scan and the entry in its work slot, which comes to slot `isat`.
void beginEntry(EntryRecords& records, const WinpData& in, int isat);

/// Searches on the record, with its positions as `satpos` of the thread.
void searchEntry(EntryRecords& records, const std::function<void(WinpData*)>& search);

/// Searches each entry on records of its own, on any thread, and takes over what was found on this one, in the order of
/// the file. Ends early if the listener ends the scan.
///
/// Nothing passes from one entry to the next, nor into `in` but what `takeOver` writes there.
///
/// @param isat      the slot of the search
/// @param search    works on the given record and `satpos`
/// @param takeOver  is given what was found, and the record of the search
template <class Found>
void shareEntries(Entries& entries, WinpData* in, int isat, const std::function<Found(WinpData*)>& search,
                  const std::function<void(const Found&, const WinpData&)>& takeOver)
{
    struct Place
    {
        EntryRecords records;
        Found found;
    };
    in->sgpsat = noSlot;  // the searches on this thread load its model with other satellites
    std::vector<Place> places(EntryRing::placesNeeded());
    const auto searchAt = [&](int place) {
        Place& at = places[place];
        searchEntry(at.records, [&](WinpData* own) { at.found = search(own); });
    };
    EntryRing ring(static_cast<int>(places.size()), searchAt,
                   [&](int place) { takeOver(places[place].found, places[place].records.in); });
    while (entries.next()) {
        const int place = ring.freePlace();
        if (place < 0)
            break;
        beginEntry(places[place].records, *in, isat);
        ring.filled();
    }
    ring.complete();
}
