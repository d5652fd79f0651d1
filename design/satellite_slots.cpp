#include "design/satellite_slots.h"

#include <algorithm>

#include "engine/epoch_state.h"
#include "record/clock.h"
#include "record/text.h"

namespace {

constexpr const char* tenBlanks = "          ";

void blankElements(WinpData* in, int slot)
{
    for (auto* field :
         {in->a, in->ra, in->aper, in->inc, in->ecc, in->m0, in->n0, in->adot, in->ndot, in->n6dot, in->bstar})
        field[slot] = 0;
}

}  // namespace

void blankSatellite(WinpData* in, int slot)
{
    in->norad[slot] = 0;
    assignField(in->fsname[slot], tenBlanks);
    assignField(in->ldsn[slot], tenBlanks);
    in->aflg[slot] = 0;
    in->numflg[slot] = 0;
    in->mjdep[slot] = RT_MJD(in);
    blankElements(in, slot);
    resetForces(in, slot);
}

void addBlankSatellite(WinpData* in)
{
    in->satn = std::min(in->satn + 1, maxSatellites);
    in->prs = in->satn - 1;
    blankSatellite(in, in->prs);
}

void dropAddedSatellite(WinpData* in)
{
    in->satn = in->prs;
    in->prs = std::max(in->prs - 1, 0);
}
