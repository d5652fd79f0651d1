// Walking through all entries of an element file.
#pragma once

#include "elements/reader.h"
#include "record/winp_data.h"

#include <cstdio>

/// Brings one entry after the other to the work slot, and tells the listener of long calculations its name. The search
/// text becomes "*".
class Entries
{
public:
    /// Of an element file, from its start; both outlive the object.
    Entries(WinpData* in, std::FILE* file);

    /// Reads the next entry; false if there is none, or if the listener has ended the calculation.
    bool next();

private:
    WinpData* record;
    std::FILE* elements;
    bool started = false;
    bool more = true;
    char report[entryTextRoom] = {};
};
