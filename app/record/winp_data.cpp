#include "app/record/winp_data.h"

#include "app/record/text.h"

#include <algorithm>

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
    for (int i = 0; i < slots; ++i) {
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

template <class... Arrays>
void copyEntry(int to, int from, Arrays&... arrays)
{
    ((arrays[to] = arrays[from]), ...);
}

template <std::size_t N>
void copyText(char (&to)[N], const char (&from)[N])
{
    std::copy_n(from, N, to);
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
    in->sgpsat = noSlot;
    if (to == from)
        return;
    copyText(in->ldsn[to], in->ldsn[from]);
    copyText(in->fsname[to], in->fsname[from]);
    copyEntry(to, from, in->norad, in->aflg, in->numflg);
    copyEntry(to, from, in->mjdep, in->a, in->ra, in->aper, in->inc, in->ecc, in->m0, in->n0);
    copyEntry(to, from, in->adot, in->ndot, in->n6dot, in->bstar);
    copyEntry(to, from, in->epr0, in->epr1, in->epr2, in->epv0, in->epv1, in->epv2);
    copyEntry(to, from, in->cstm, in->csr0, in->csr1, in->csr2, in->csv0, in->csv1, in->csv2);
    copyEntry(to, from, in->F107, in->FB107, in->Kp, in->Cd, in->Cr, in->Am);
    copyEntry(to, from, in->deltv, in->yaw, in->pitch, in->ionf, in->suns, in->epu);
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
