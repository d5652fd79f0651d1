#include "engine/epoch_state.h"

#include "engine/lazy_position.h"
#include "record/vector_registers.h"

void resetForces(WinpData* in, int k)
{
    in->deltv[k] = 0;
    in->yaw[k] = 0;
    in->pitch[k] = 0;
    in->ionf[k] = false;
    in->suns[k] = true;
    in->epu[k] = false;
    in->F107[k] = in->dF107;
    in->FB107[k] = in->dFB107;
    in->Kp[k] = in->dKp;
    in->Cd[k] = in->dCd;
    in->Cr[k] = in->dCr;
    in->Am[k] = in->dAm;
}

void EpochState(WinpData* in, int k, bool reset)
{
    epochStateBy(propagatorOf(*in, k), in, k);
    in->numflg[k] = 0;
    if (reset)
        resetForces(in, k);
}

void epochStateBy(Propagator model, WinpData* in, int k)
{
    releaseVectorRegisters();  // the reader comes here from texts
    in->sgpsat = noSlot;
    LazyPosition position(in, satpos, k);
    position.moveBy(model);
    position.look(in->mjdep[k]);
    position.complete();
    currentToEpochState(in, k);
}
