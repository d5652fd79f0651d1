#include "scan/entry_task.h"

#include "record/keep.h"
#include "record/slot_copy.h"
#include "record/vector_registers.h"

namespace {

/// No angle, coordinate, distance or magnitude has this value: it stays where a search writes nothing.
constexpr double untouched = -1e300;

double touchedOr(double value, double before)
{
    return value == untouched ? before : value;
}

}  // namespace

void beginEntry(EntryTask& task, const WinpData& in, int isat)
{
    task.in = in;
    task.positions = *satpos;
    task.searched = false;
    task.in.flrang = untouched;
    task.positions.mag = untouched;
    task.positions.occlng[isat] = untouched;
}

void endEntry(WinpData* in, const EntryTask& task, int isat)
{
    copySlot(in, isat, task.in, isat);
    if (!task.searched)
        return;
    in->occra = task.in.occra;
    in->occdec = task.in.occdec;
    in->moondst = task.in.moondst;
    in->ecltyp = task.in.ecltyp;
    in->smang = task.in.smang;
    in->eclmag = task.in.eclmag;
    in->eclpow = task.in.eclpow;
    in->flrang = touchedOr(task.in.flrang, in->flrang);
    const double mag = touchedOr(task.positions.mag, satpos->mag);
    const double occlng = touchedOr(task.positions.occlng[isat], satpos->occlng[isat]);
    *satpos = task.positions;
    satpos->mag = mag;
    satpos->occlng[isat] = occlng;
}

void searchEntry(EntryTask& task, const std::function<void()>& search)
{
    const Keep ownPositions(satpos, &task.positions);
    releaseVectorRegisters();
    search();
}
