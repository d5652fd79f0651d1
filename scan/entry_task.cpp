#include "scan/entry_task.h"

#include "record/keep.h"
#include "record/vector_registers.h"

void beginEntry(EntryRecords& records, const WinpData& in, int isat)
{
    records.in = in;
    records.positions = *satpos;
    ShiftElm(&records.in, isat, workSlot);
}

void searchEntry(EntryRecords& records, const std::function<void(WinpData*)>& search)
{
    const Keep ownPositions(satpos, &records.positions);
    releaseVectorRegisters();
    search(&records.in);
}
