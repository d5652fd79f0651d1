#include "scan/entries.h"

#include "record/progress.h"
#include "record/text.h"
#include "record/vector_registers.h"

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
    const bool wanted = result != 0 && tellProgress(fieldText(record->fsname[workSlot]));
    releaseVectorRegisters();  // texts were made, calculations follow
    return wanted;
}
