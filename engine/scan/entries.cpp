#include "engine/scan/entries.h"

#include "app/record/text.h"

namespace {
constexpr int moreFollow = 2;  // of tleread
}

Entries::Entries(WinpData* in, std::FILE* file) : record(in), elements(file)
{
    assignField(record->cfgname[workSlot], "*");
}

bool Entries::next()
{
    if (!more)
        return false;
    const int result = tleread(record, elements, report, started);
    started = true;
    more = result == moreFollow;
    return result != 0;
}
