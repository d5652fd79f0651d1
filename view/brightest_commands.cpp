// The commands about the brightness of satellites.

#include "view/vorlix_view.h"

#include <QFileInfo>

#include "dialogs/st_brightest_dialog.h"
#include "dialogs/st_magnitudes_dialog.h"
#include "dialogs/st_pass_dialog.h"
#include "elements/brightness_files.h"
#include "elements/selection.h"
#include "engine/night.h"
#include "record/clock.h"
#include "record/further_settings.h"
#include "record/keep.h"
#include "record/text.h"
#include "scan/brightest.h"
#include "scan/records_before.h"
#include "view/calculation.h"
#include "view/message_boxes.h"

namespace {

using Values = StBrightestDialog::Values;

/// The group [brightest] of vorlix.ini: what was asked for last.
Values keptValues()
{
    const QSettings settings = openFurtherSettings();
    const Values usual;
    return {settings.value("brightest/faintest", usual.faintest).toDouble(),
            settings.value("brightest/sky", usual.sky).toBool(),
            settings.value("brightest/night", usual.night).toBool(),
            settings.value("brightest/joined", usual.joined).toBool()};
}

void keepValues(const Values& values)
{
    QSettings settings = openFurtherSettings();
    settings.setValue("brightest/faintest", values.faintest);
    settings.setValue("brightest/sky", values.sky);
    settings.setValue("brightest/night", values.night);
    settings.setValue("brightest/joined", values.joined);
}

/// Element file with its date, and place: a list about others is not shown.
QString aboutList(const WinpData& in)
{
    const QString name = fieldQString(in.tlename);
    return VorlixView::tr("%1 of %2, %3 (latitude %4, longitude %5)")
        .arg(QFileInfo(name).fileName(), QFileInfo(name).lastModified().toString(Qt::ISODate),
             fieldQString(in.geoname).trimmed(), QString::number(in.lat), QString::number(in.lng));
}

/// The slot of a selected satellite with these elements; -1 if there is none.
int slotWith(const WinpData& in, const BrightPass& pass)
{
    for (int slot = 0; slot < in.satn; ++slot)
        if (in.norad[slot] == pass.norad && in.mjdep[slot] == pass.epoch)
            return slot;
    return -1;
}

}  // namespace

void VorlixView::vMagnitudes()
{
    StMagnitudesDialog dialog(this);
    dialog.setValues(keptBrightnessSettings(indata->chlen));
    if (dialog.exec() == QDialog::Accepted)
        keepBrightnessSettings(dialog.values());
}

std::optional<BrightList> VorlixView::searchBrightest(const StBrightestDialog::Values& values)
{
    BrightRequest request{startMjd(indata), 0.0, values.faintest, values.sky, horizon.get(), uncertainty};
    request.to = request.from + clampedSpan(indata->dur);
    if (values.night) {
        const auto night = nightAt(request.from, siteOf(*indata));
        if (!night) {
            inform(this, tr("Brightest Passes"), tr("The Sun does not set within a day at this place."));
            return std::nullopt;
        }
        request.from = night->sunset;
        request.to = night->sunrise;
    }
    std::string why;
    const BrightnessBook book = brightnessBook(keptBrightnessSettings(indata->chlen), indata->tlename, &why);
    if (!why.empty())
        warn(this, tr("Brightest Passes"), QString::fromStdString(why));
    std::optional<BrightList> list;
    if (!calculated([&] { list = brightestPasses(indata, book, request); }))
        return std::nullopt;
    if (!list)
        inform(this, tr("Brightest Passes"), tr("*** Unable to open TLE file ***"));
    return list;
}

/// The satellite of a pass to the work slot. @return  false after a message
bool VorlixView::readSatelliteOf(const BrightPass& pass)
{
    if (readEntry(indata, pass.entry) && indata->norad[workSlot] == pass.norad)
        return true;
    inform(this, tr("Brightest Passes"), tr("The element file has changed. Search again."));
    return false;
}

/// Step by step, with the satellite in the place of the prime one meanwhile.
void VorlixView::showBrightDetails(const BrightPass& pass)
{
    const auto before = std::make_unique<RecordsBefore>(*indata);
    WinpData& in = *indata;
    if (readSatelliteOf(pass)) {
        ShiftElm(&in, in.prs, workSlot);
        in.satn = std::max(in.satn, 1);
        in.rlm = in.occflg = in.flarflg = in.moonflg = 0;
        in.iridflg = event::plain;
        in.visflg = 1;
        in.naos = 1;
        in.aossel = 0;
        in.aostm[0] = pass.pass.tm[0];
        StPassDialog dialog(this);
        dialog.setWindowTitle(dialog.windowTitle() + ": " + textQString(pass.name));
        runPassDetails(dialog, horizon);
    }
    const int newsave = in.newsave;
    before->putBack(&in);
    in.newsave = newsave;
}

void VorlixView::vBrightest()
{
    if (!brightest)
        brightest = new StBrightestDialog(this);
    brightest->setUp({aboutList(*indata), indata->tzone, [this](const Values& v) { return searchBrightest(v); },
                      [this](const BrightPass& pass) { showBrightDetails(pass); }});
    brightest->setValues(keptValues());
    brightest->exec();
    keepValues(brightest->values());
    const BrightPass* pass = brightest->chosen();
    if (brightest->wanted() == StBrightestDialog::Wanted::nothing || !pass)
        return;
    int slot = slotWith(*indata, *pass);
    if (slot < 0) {
        if (!readSatelliteOf(*pass))
            return;
        vsSatSel();
        slot = indata->satn - 1;
    }
    indata->prs = slot;
    indata->skymap = brightest->wanted() == StBrightestDialog::Wanted::sky;
    if (indata->skymap) {
        indata->rlm = 0;
        indata->satsky = false;
    }
    redrawBehindPlot();
    indata->pasjmp = 1;
    showPassAt(centredOn(pass->best.mjd));
}
