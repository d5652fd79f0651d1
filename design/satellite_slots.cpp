#include "design/satellite_slots.h"

#include <algorithm>
#include <string>

#include "engine/epoch_state.h"
#include "orbit/mean_motion.h"
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

void blankStates(WinpData* in, int slot)
{
    for (auto* field : {in->epr0, in->epr1, in->epr2, in->epv0, in->epv1, in->epv2})
        field[slot] = 0;
    returnToEpoch(in, slot);
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
    blankStates(in, slot);
    resetForces(in, slot);
}

void addBlankSatellite(WinpData* in)
{
    in->satn = std::min(in->satn + 1, maxSatellites);
    in->prs = in->satn - 1;
    blankSatellite(in, in->prs);
}

void addFittedSatellite(WinpData* in, int like, const Elements& elements)
{
    constexpr std::string_view mark = "fit";
    addBlankSatellite(in);
    const int slot = in->prs;
    std::string name = "New";
    if (like >= 0) {
        ShiftElm(in, slot, like);
        name = fieldText(in->fsname[like]);
        name.erase(std::min(name.find_last_not_of(' ') + 1, sizeof in->fsname[slot] - mark.size() - 2));
    }
    assignField(in->fsname[slot], name + ' ' + std::string(mark));
    Elements e = elements;
    e.a = getsax(1, e.n0, e.ecc, e.inc);
    putElements(e, *in, slot);
    in->aflg[slot] = 1;
    in->numflg[slot] = 0;
    in->sgpsat = noSlot;
    EpochState(in, slot, false);
    returnToEpoch(in, slot);
}

void dropAddedSatellite(WinpData* in)
{
    in->satn = in->prs;
    in->prs = std::max(in->prs - 1, 0);
}

bool hasState(const WinpData& in, int slot)
{
    return in.epr0[slot] != 0.0 || in.epr1[slot] != 0.0 || in.epr2[slot] != 0.0;
}

void followElements(WinpData* in, int slot)
{
    const int numeric = in->numflg[slot];
    if (numeric != 0 && hasState(*in, slot))
        return;
    in->numflg[slot] = 0;
    EpochState(in, slot, false);
    in->numflg[slot] = numeric;
}

void returnToEpoch(WinpData* in, int slot)
{
    in->csr0[slot] = in->epr0[slot];
    in->csr1[slot] = in->epr1[slot];
    in->csr2[slot] = in->epr2[slot];
    in->csv0[slot] = in->epv0[slot];
    in->csv1[slot] = in->epv1[slot];
    in->csv2[slot] = in->epv2[slot];
    in->cstm[slot] = in->mjdep[slot];
}
