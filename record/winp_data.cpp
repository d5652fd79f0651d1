#include "record/winp_data.h"

#include "record/slot_copy.h"
#include "record/text.h"

namespace {
WinpData theInput;

constexpr std::string_view sixBlanks = "      ";
constexpr std::string_view elevenBlanks = "           ";
constexpr std::string_view twentyBlanks = "                    ";

void setTexts(WinpData* in)
{
    assignField(in->ldraw, sixBlanks);
    assignField(in->ldfull, sixBlanks);
    assignField(in->geoname, "Default");
    assignField(in->savename, "*satsave.txt");
    assignField(in->tlename, "./visual.txt");
    assignField(in->tlesave, "*vorlix.tle");
    assignField(in->url, "celestrak.org/NORAD/elements/visual.txt");
}

void setClockAndStep(WinpData* in)
{
    in->tzauto = 1;
    in->dur = 3.1;
    in->tmstep = 1.736111111111111e-4;
    in->stepsec = 15.0;
}

void setDisplay(WinpData* in)
{
    in->fsz = 10;
    in->mfsz = 10;
    in->bf = true;
    in->newsave = 1;
    in->newtle = 1;
    in->mapprj = 3;
    in->mgrey = 2;
}

void setVisibility(WinpData* in)
{
    in->visflg = 1;
    in->satel = 10.0;
    in->sunel = -6.0;
    in->yrepoch = 2000.0;
    in->flarmod = 1;
    in->flrmgx = -7.5;
    in->irmag = 1.0;
    in->ops = 1;
    in->maxdst = 50.0;
}

void setOrbitCommands(WinpData* in)
{
    in->tmeco = 8.8;
    in->rztime = 1.3;
    in->lsat = -1;
    in->mxa = 2.0;
    in->tm = 1.0;
    in->rdf = 1;
    in->stref = 1;
}

void setPropagation(WinpData* in)
{
    in->sgpsat = noSlot;
    in->sdp4 = true;
    in->mxit = 20;
    in->RKFtol = 1e-8;
    in->dF107 = 160.0;
    in->dFB107 = 155.0;
    in->dKp = 4.0;
    in->dCd = 2.3;
    in->dCr = 1.3;
    in->dAm = 0.01;
    in->moonf = true;
    in->sunf = true;
    in->refrc = true;
    in->atmx = true;
    in->lift = 0.15;
}

void setSlots(WinpData* in)
{
    for (int i = 0; i < slotCount; ++i) {
        assignField(in->ldsn[i], elevenBlanks);
        assignField(in->cfgname[i], twentyBlanks);
        assignField(in->fsname[i], twentyBlanks);
        in->aflg[i] = 1;
    }
    in->F107[0] = 160.0;
    in->FB107[0] = 155.0;
    in->Kp[0] = 4.0;
    in->Cd[0] = 2.3;
    in->Cr[0] = 1.3;
    in->Am[0] = 0.01;
    in->suns[0] = true;
}
}  // namespace

WinpData* indata = &theInput;

void setDefaults(WinpData* in)
{
    *in = WinpData{};
    setTexts(in);
    setClockAndStep(in);
    setDisplay(in);
    setVisibility(in);
    setOrbitCommands(in);
    setPropagation(in);
    setSlots(in);
}

void ShiftElm(WinpData* in, int to, int from)
{
    copySlot(in, to, *in, from);
}

void currentToEpochState(WinpData* in, int k)
{
    in->epr0[k] = in->csr0[k];
    in->epr1[k] = in->csr1[k];
    in->epr2[k] = in->csr2[k];
    in->epv0[k] = in->csv0[k];
    in->epv1[k] = in->csv1[k];
    in->epv2[k] = in->csv2[k];
}
