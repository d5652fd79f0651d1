// Commands that run a dialog and store its values.

#include "view/vorlix_view.h"

#include <cmath>
#include <limits>

#include "astro/time_scales.h"
#include "design/visibility_rules.h"
#include "dialogs/st_date_dialog.h"
#include "dialogs/st_iers_dialog.h"
#include "dialogs/st_map_dialog.h"
#include "dialogs/st_models_dialog.h"
#include "dialogs/st_obs_dialog.h"
#include "dialogs/st_step_dialog.h"
#include "dialogs/st_switch_dialog.h"
#include "dialogs/st_sys_conf_dialog.h"
#include "dialogs/st_vis_dialog.h"
#include "record/clock.h"
#include "record/text.h"
#include "view/message_boxes.h"

namespace {

constexpr double shortestStepSeconds = 0.1;
constexpr double shortestStepDays = 1.1574074074074074e-6;

bool accepted(QDialog& dialog)
{
    return dialog.exec() == QDialog::Accepted;
}

/// The size of a number; the lowest int has none of its own.
int sizeOf(int n)
{
    return n == std::numeric_limits<int>::min() ? std::numeric_limits<int>::max() : std::abs(n);
}

}  // namespace

int VorlixView::vInputDate()
{
    return askDate({});
}

/// The date of what is named, or the start of predictions if nothing is. @return  1 if the user cancelled
int VorlixView::askDate(const QString& event)
{
    WinpData& in = *indata;
    StDateDialog dialog(this);
    if (!event.isEmpty())
        dialog.setPurpose(event);
    const double shownSpan = in.lcflg == 1 ? -in.dur : in.dur;
    dialog.setParams(in.year, in.month, in.day, in.hour, in.minute, in.second, in.tzone, in.tzauto, shownSpan,
                     in.rtoff);
    if (!accepted(dialog))
        return 1;
    double span = 0;
    dialog.getParams(in.year, in.month, in.day, in.hour, in.minute, in.second, in.tzone, in.tzauto, span, in.rtoff);
    if (in.lcflg == 0)
        in.dur = span;
    in.dur = std::abs(in.dur);
    setNewMjd(&in);
    return 0;
}

int VorlixView::vInputLocation()
{
    WinpData& in = *indata;
    StObsDialog dialog(this);
    dialog.setParams(in.lat, in.lng, in.height, in.geoname, in.ddmm != 0);
    if (!accepted(dialog))
        return 1;
    bool packed = false;
    dialog.getParams(in.lat, in.lng, in.height, packed);
    in.ddmm = packed;
    QsToChar(dialog.getGeoname(), in.geoname, sizeof in.geoname - 1);
    return 0;
}

void VorlixView::vSetIERS()
{
    WinpData& in = *indata;
    StIersDialog dialog(this);
    const int shown = in.IERSflg ? in.UtcTai : utcTaiOf(DefTdUt(in.year));
    dialog.setParams(in.IERSflg, in.IERSxp, in.IERSyp, shown, in.Ut1Utc);
    if (!accepted(dialog))
        return;
    dialog.getParams(in.IERSflg, in.IERSxp, in.IERSyp, in.UtcTai, in.Ut1Utc);
    in.ttut = SetTtUt(&in, in.year);
}

void VorlixView::vVisibility()
{
    WinpData& in = *indata;
    StVisDialog dialog(this);
    const bool shownCylinder = anglesAreCylinder(in.cylflg, in.flarflg, in.flarmod);
    dialog.setParams(in.sunel, in.satel, in.yrepoch, shownCylinder ? in.cylra : in.occra,
                     shownCylinder ? in.cyldec : in.occdec, in.visflg, in.moonflg);
    dialog.setParam2(in.sunmplt, in.occflg, in.iridflg, in.flarflg, in.flarmod, in.flaryst, in.eclflg, in.solflar,
                     in.flrmgf, in.flrmgx, in.cylflg);
    if (!accepted(dialog))
        return;
    const int formerBody = in.occflg;
    double firstAngle = 0;
    double secondAngle = 0;
    dialog.getParams(in.sunel, in.satel, in.yrepoch, firstAngle, secondAngle, in.visflg, in.moonflg);
    dialog.getParam2(in.sunmplt, in.occflg, in.iridflg, in.flarflg, in.flarmod, in.flaryst, in.eclflg, in.solflar,
                     in.flrmgf, in.flrmgx, in.cylflg);
    const bool cylinder =
        anglesAreCylinder(in.cylflg, in.flarflg, in.flarmod);  // the new settings decide where the angles go
    (cylinder ? in.cylra : in.occra) = firstAngle;
    (cylinder ? in.cyldec : in.occdec) = secondAngle;
    const bool otherBody = (formerBody == 1 && in.occflg == 2) || (formerBody == 2 && in.occflg == 1);
    if (in.sunmplt && otherBody)
        in.mjdlast = 0;
}

void VorlixView::vStep()
{
    WinpData& in = *indata;
    StStepDialog dialog(this);
    dialog.setParams(in.stepmin, in.stepsec);
    if (!accepted(dialog))
        return;
    dialog.getParams(in.stepmin, in.stepsec);
    in.stepmin = sizeOf(in.stepmin);
    in.stepsec = std::abs(in.stepsec);
    if (in.stepmin == 0 && in.stepsec == 0) {
        in.stepsec = shortestStepSeconds;
        in.tmstep = shortestStepDays;
    } else {
        in.tmstep = in.stepmin / 1440.0 + in.stepsec / 86400.0;
    }
}

void VorlixView::vMag()
{
    askNumber(this, tr("Magnitude"), tr("Charact.Length (meters):"), indata->chlen, 10000.0, 2);
}

void VorlixView::vSwitch()
{
    StSwitchDialog dialog(this);
    dialog.setParams(indata->prs, indata->rlm, indata->satn);
    if (accepted(dialog))
        dialog.getParams(indata->prs, indata->rlm);
}

bool VorlixView::vMapDialog()
{
    WinpData& in = *indata;
    StMapDialog dialog(this);
    dialog.setParams(in.mgrid, in.mgrey, in.skyprj, in.mpnight, in.skymap, in.ra4d, in.skaz, in.satsky);
    dialog.setParamF(in.mfsz, in.bf, in.mapprj == 3 && !in.phwm ? 0 : in.mapprj, in.centmer, in.frequ, in.phwm);
    if (!accepted(dialog))
        return false;
    dialog.getParams(in.mgrid, in.mgrey, in.skyprj, in.mpnight, in.skymap, in.ra4d, in.skaz, in.satsky);
    dialog.getParamF(in.mfsz, in.bf, in.mapprj, in.centmer, in.frequ);
    if (in.centmer < 0)
        in.centmer += 360.0;
    if (in.frequ < 0)
        in.frequ = 0;
    redrawBehindPlot();
    return true;
}

void VorlixView::vModels()
{
    StModelsDialog dialog(this);
    dialog.setValues(indata->models);
    if (!accepted(dialog))
        return;
    indata->models = dialog.values();
    storeCorrections(indata->models);
    indata->sgpsat = noSlot;
    indata->ttut = SetTtUt(indata, indata->year);
}

void VorlixView::vSysConf()
{
    WinpData& in = *indata;
    StSysConfDialog dialog(this);
    dialog.setParams(in.RKFtol, in.dF107, in.dFB107, in.dKp, in.dCd, in.dCr, in.dAm, in.lift, in.sunf, in.moonf,
                     in.refrc, in.mxit, in.atmx);
    if (accepted(dialog))
        dialog.getParams(in.RKFtol, in.dF107, in.dFB107, in.dKp, in.dCd, in.dCr, in.dAm, in.lift, in.sunf, in.moonf,
                         in.refrc, in.mxit, in.atmx);
}
