// Commands that make or change an orbit: editor, maneuver, launch, rendezvous, orbit determination.

#include "view/vorlix_view.h"

#include "astro/calendar.h"
#include "design/astrometry.h"
#include "design/delta_v.h"
#include "design/editor_rules.h"
#include "design/launch.h"
#include "design/orbit_determination.h"
#include "design/satellite_slots.h"
#include "dialogs/st_delta_dialog.h"
#include "dialogs/st_edit_orb_dialog.h"
#include "dialogs/st_launch_dialog.h"
#include "dialogs/st_orb_det_dialog.h"
#include "record/keep.h"
#include "record/numbers.h"
#include "record/text.h"
#include "view/calculation.h"
#include "view/message_boxes.h"

namespace {

void fillEditor(StEditOrbDialog& dialog, const WinpData& in)
{
    const int i = in.prs;
    dialog.setParam1(fieldQString(in.fsname[i]), in.norad[i], in.aflg[i], in.paflg, in.mjdep[i], in.lcflg);
    dialog.setParam2(in.a[i], in.ra[i], in.aper[i], in.inc[i], in.ecc[i], in.m0[i], in.n0[i], in.adot[i], in.ndot[i],
                     in.n6dot[i], in.bstar[i]);
    dialog.setParam3(fieldQString(in.ldsn[i]), in.numflg[i]);
}

/// The satellite on show into the prime slot. @return  whether a further one is to be entered
bool storeEdited(StEditOrbDialog& dialog, WinpData* in)
{
    constexpr int nameLength = 20;
    constexpr int designatorLength = 10;
    const int i = in->prs;
    QString name;
    QString designator;
    double year = 0, day = 0, ra = 0, aper = 0, m0 = 0;
    bool further = false;
    dialog.getParam1(name, in->norad[i], in->aflg[i], in->paflg, year, day);
    dialog.getParam2(in->a[i], ra, aper, in->inc[i], in->ecc[i], m0, in->n0[i], in->adot[i], in->ndot[i],
                     in->n6dot[i], in->bstar[i]);
    in->aflg[i] = in->ecc[i] < 1.0 ? in->aflg[i] : 0;
    dialog.getParam3(designator, in->numflg[i], further);
    QsToChar(name, in->fsname[i], nameLength);
    QsToChar(designator, in->ldsn[i], designatorLength);
    if (in->lcflg != 1) {
        if (in->numflg[i] == 0 || in->ecc[i] < 1.0 || !hasState(*in, i))
            in->mjdep[i] = editor::mjdOf(editor::YearDay{truncToInt(year), day});
        in->ra[i] = ra;
        in->aper[i] = aper;
        in->m0[i] = m0;
    }
    followElements(in, i);
    in->satn = in->satn == 0 ? 1 : in->satn;
    return further;
}

bool isAnalytic(const WinpData& in)
{
    return in.aflg[in.prs] != 0;
}

/// After a command that may have left an ellipse of SGP4 to the simple model.
void tellLostElements(QWidget* parent, bool analyticBefore)
{
    if (analyticBefore && !isAnalytic(*indata) && indata->ecc[indata->prs] < 1.0)
        sayNoSgp4Elements(parent);
}

bool askManeuver(VorlixView* view, Maneuver& maneuver)
{
    StDeltaDialog dialog(view);
    dialog.setParams(maneuver.deltv, maneuver.yaw, maneuver.pitch, maneuver.ionf, maneuver.suns,
                     indata->numflg[indata->prs] != 0, maneuver.epu);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    dialog.getParams(maneuver.deltv, maneuver.yaw, maneuver.pitch, maneuver.ionf, maneuver.suns, maneuver.epu);
    return true;
}

bool askLaunchSite(VorlixView* view, WinpData* in)
{
    StLaunchDialog dialog(view);
    dialog.setParams(in->lsx, in->lslat, in->lslng, in->lsouth, in->tmeco);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    dialog.getParams(in->lsx, in->lslat, in->lslng, in->lsouth, in->tmeco);
    return true;
}

bool askSightings(VorlixView* view, WinpData* in)
{
    StOrbDetDialog dialog(view);
    dialog.setParams(in->az1, in->el1, in->az2, in->el2, in->deltm, 1, 1, in->odm,
                     in->picstep >= astrometry::furtherTrailPoint);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    dialog.getParams(in->az1, in->el1, in->az2, in->el2, in->deltm, in->az1flg, in->az2flg, in->odm);
    return true;
}

QString azimuthText(double degrees)
{
    char line[64];
    TextWriter text(line);
    text.addFormatted0("Launch Azimuth (deg):\n\t%8.2lf", degrees);
    return textQString(text.text());
}

QString launchTimeText(const WinpData& in)
{
    char line[128];
    return textQString(formatted(line, "Launch time: %4i-%2i-%2i  %2i:%2i:%2i", in.year, in.month, in.day, in.hour,
                                 in.minute, in.second));
}

}  // namespace

void VorlixView::vEditOrb()
{
    StEditOrbDialog dialog(this);
    indata->sgpsat = noSlot;
    if (indata->satn == 0) {
        indata->prs = 0;
        blankSatellite(indata, 0);
    }
    for (bool added = false;; added = true) {
        fillEditor(dialog, *indata);
        if (dialog.exec() != QDialog::Accepted) {
            if (added)
                dropAddedSatellite(indata);
            return;
        }
        if (!storeEdited(dialog, indata))
            return;
        addBlankSatellite(indata);
    }
}

/// The date of a maneuver, a launch or a sighting into `mjd`. @return  false if the user cancelled
bool VorlixView::askEventDate(const QString& event)
{
    const Keep single(indata->lcflg, 1);
    return askDate(event) == 0;
}

void VorlixView::vDeltaV()
{
    if (indata->satn < 1)
        return sayNoSatellite(this);
    if (!indata->ionf[indata->prs] && !askEventDate(tr("Maneuver")))
        return;
    Maneuver maneuver = lastManeuver(*indata);
    int failed = 0;
    const bool analytic = isAnalytic(*indata);
    if (askManeuver(this, maneuver) && calculated([&] { failed = perform(maneuver, indata); }) && failed != 0)
        inform(this, tr("Vorlix"), tr("Delta-V resulted in a hyperbolic orbit"));
    tellLostElements(this, analytic);
}

void VorlixView::vLaunch()
{
    {
        const Keep launch(indata->lcflg, 1);
        if (askDate(tr("Launch")) != 0)
            return;
        vEditOrb();
    }
    if (!askLaunchSite(this, indata))
        return;
    const bool analytic = isAnalytic(*indata);
    LaunchOrb(indata);
    tellLostElements(this, analytic);
    if (indata->lsat < 0)
        inform(this, tr("Launch Orbit"), azimuthText(indata->lazim));
}

void VorlixView::vRendz()
{
    const QString title = tr("Rendezvous Launch");
    if (indata->satn < 1) {
        inform(this, title, tr("*** No target satellite selected ***"));
        return;
    }
    askNumber(this, title, tr("Time until close approach (days):"), indata->rztime, 1000.0, 2);
    chasePrime(indata);
    vLaunch();
    setStartDate(indata, indata->mjdep[indata->lsat]);
    LaunchOrb(indata);
    setStartDate(indata, indata->mjdep[indata->lsat]);
    inform(this, title, launchTimeText(*indata));
    indata->lsat = -1;
}

void VorlixView::vOrbDet()
{
    if (!askEventDate(tr("First Sighting")) || !askSightings(this, indata))
        return;
    indata->txtrdy = 0;
    OrbitDet(indata);
    vEditOrb();
    if (indata->odm)
        listMatches();
}
