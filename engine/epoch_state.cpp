#include "engine/epoch_state.h"

#include "engine/position.h"
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
    releaseVectorRegisters();  // the reader comes here from texts
    in->sgpsat = noSlot;
    absolutePosition(in->mjdep[k], in, satpos, k);
    in->numflg[k] = 0;
    currentToEpochState(in, k);
    if (reset)
        resetForces(in, k);
}
