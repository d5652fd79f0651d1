// What a click on the canvas means.

#include "view/vorlix_view.h"

#include <cstring>

#include <QMouseEvent>

#include "dialogs/st_chart_dialog.h"
#include "dialogs/st_local_dialog.h"
#include "dialogs/st_pass_dialog.h"
#include "engine/pass_search.h"
#include "record/keep.h"
#include "record/text.h"
#include "reports/local_details.h"
#include "view/calculation.h"
#include "view/sky_lights.h"

namespace {

/// Place, and what a pick on the sky writes; all put back at the end of a pick.
struct KeptPlace
{
    Keep<double> lat{indata->lat};
    Keep<double> lng{indata->lng};
    Keep<double> height{indata->height};
    Keep<double> az1{indata->az1};
    Keep<double> el1{indata->el1};
    Keep<double> az2{indata->az2};
    Keep<double> el2{indata->el2};
};

}  // namespace

void VorlixView::mousePressEvent(QMouseEvent* event)
{
    const QPoint p = (event->position() / zoom).toPoint();
    const bool left = event->button() == Qt::LeftButton;
    if (indata->picflg && indata->dspmd > 0) {
        astroEvent(p.x(), p.y(), left);
        return;
    }
    if (left && !indata->leftbtn)
        return;
    if (indata->dspmd == -1) {
        showPassDetails(p.y());
        clearFocus();
        return;
    }
    if (indata->dspmd == 1 && indata->diskon == 0)
        getMapPos(p.x(), p.y());
    setFocus(Qt::OtherFocusReason);
}

void VorlixView::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint p = (event->position() / zoom).toPoint();
    if (indata->dspmd == -1)
        pointAtRow(passRowAt(p.y(), indata->naos), event->globalPosition().toPoint());
    else
        tellPlace(p);
}

void VorlixView::leaveEvent(QEvent*)
{
    if (indata->dspmd == -1)
        pointAtRow(-1, {});
}

void VorlixView::getMapPos(int x, int y)
{
    const Keep busy(pickbusy, true);
    const KeptPlace kept;
    const QPoint p(x, y);
    if (indata->skymap) {
        if (indata->satsky && indata->satn > 0)
            observeFromPrime();
        SkyPx(p);
    } else {
        CoordPx(p, indata->lat, indata->lng);
        indata->height = 0;
    }
    vLocalPass();
}

void VorlixView::vLocalInf()
{
    if (indata->skymap)
        return;
    const Keep busy(pickbusy, true);
    const KeptPlace kept;
    char name[sizeof indata->geoname];
    std::memcpy(name, indata->geoname, sizeof name);
    vInputLocation();
    vLocalPass();
    assignField(indata->geoname, fieldText(name));
}

void VorlixView::vLocalPass()
{
    char text[localDetailsRoom];
    LocalInf(indata, text);
    StLocalDialog dialog(this);
    dialog.setParams(fieldQString(text), fsz);
    dialog.exec();
}

void VorlixView::openPassDetails()
{
    StPassDialog dialog(this);
    runPassDetails(dialog, listedHorizon);
}

/// Of the row chosen in the record. Between two satellites there is nothing to be drawn on the observer's sky.
void VorlixView::runPassDetails(StPassDialog& dialog, const std::shared_ptr<const HorizonLine>& line)
{
    dialog.setHorizon(line);
    if (!relativeMode(*indata))
        dialog.offerChart([&dialog, line] {
            PassChart chart = chartOfPass(*indata, indata->aostm[indata->aossel]);
            chart.horizon = line;
            chart.lights = skyLights(chart.middle());
            StChartDialog(chart, &dialog).exec();
        });
    if (calculated([&] { dialog.setParams(fsz); }))
        dialog.exec();
}
