// Commands that search through time: pass tables, scans of the whole element file, flares, matches.

#include "view/vorlix_view.h"

#include <cmath>

#include "dialogs/st_iridium_dialog.h"
#include "dialogs/st_match_dialog.h"
#include "elements/selection.h"
#include "engine/aos_list.h"
#include "record/keep.h"
#include "record/progress.h"
#include "record/text.h"
#include "record/wout_data.h"
#include "reports/save_forms.h"
#include "scan/all_satellites.h"
#include "scan/iridium_scan.h"
#include "scan/matching.h"
#include "view/calculation.h"
#include "view/message_boxes.h"

/// Asks for the largest distance of a transit or flare line. @return  false if the user cancelled
bool VorlixView::askDistance()
{
    return askNumber(this, tr("Transit/Flares"), tr("Maximum Distance (km):"), indata->maxdst, 50000.0, 1);
}

void VorlixView::vCalcAOS()
{
    listPasses();
}

/// @param why  receives why the save file could not be written
/// @return     false if the search was ended
bool VorlixView::listPasses(std::string* why)
{
    const Keep kind(indata->iridflg);
    const Keep flareMagnitude(indata->flrmgf, false);
    if (indata->iridflg == event::iridium) {
        const ScratchSaveFile scratch(indata);
        CmIridium();
        return true;
    }
    if (chooseEventKind(indata) && !askDistance())
        return true;
    std::string reason;
    if (!calculated([&] { reason = aospass(indata, outdata, searchStyle()); }))
        return false;
    if (why)
        *why = reason;
    if (indata->tofile)
        return true;
    noteListed();
    indata->dspmd = -1;
    showSattxt();
    warnOfOldElements();
    return true;
}

bool VorlixView::vAllSat()
{
    return listAll() == 0;
}

/// What AllSatAos returns; also `calculationCancelled` if the user cancelled.
int VorlixView::listAll()
{
    vsFileName(indata->savename);
    const auto form = formOfName(fieldText(indata->savename));
    if (form && indata->iridflg == event::iridium) {
        inform(this, tr("All Passes"),
               tr("*** Flares of mirrors are written as text: choose a save file that ends in .txt"));
        return calculationCancelled;
    }
    const Keep kind(indata->iridflg);
    const Keep flareMagnitude(indata->flrmgf, false);
    if (indata->iridflg != event::iridium && chooseEventKind(indata) && !askDistance())
        return calculationCancelled;
    int result = 0;
    std::string why;
    if (form) {
        result = listAllInForm(*form, why);
    } else {
        const WaitCursor wait;
        result = AllSatAos(indata, &why, searchStyle());
    }
    if (result == calculationCancelled)
        return result;
    if (result == 1)
        inform(this, tr("All Passes"),
               tr("*** Problems with the output file") + (why.empty() ? QString() : '\n' + textQString(why)));
    else if (result != 0)
        inform(this, tr("All Passes"), tr("*** Problems with the input file"));
    else if (indata->iridflg != event::iridium)
        inform(this, tr("Vorlix"), tr("List of passes saved on file ") + fieldQString(indata->savename));
    return result;
}

void VorlixView::vIridium()
{
    const IridiumFiles files(indata);
    CmIridium();
}

void VorlixView::CmIridium()
{
    IridiumSearch search(indata);
    StIridiumDialog dialog(this);
    dialog.setParams(indata->irmag, indata->ops == 1, indata->irsol);
    if (dialog.exec() != QDialog::Accepted)
        return;
    double magnitude = 0;
    bool operational = false;
    bool solarPanels = false;
    dialog.getParams(magnitude, operational, solarPanels);
    search.accept(magnitude, operational, solarPanels);
    const int result = listAll();
    if (result == calculationCancelled)
        return;
    outdata->nlines = 0;
    if (result == 0)  // otherwise the file holds the flares of an earlier search
        Iriddspy(indata, outdata);
    showtxt(true);
    noteListed(Listed::mirrorFlares);
}

void VorlixView::vMatch()
{
    WinpData& in = *indata;
    if (!askEventDate(tr("Sighting")))
        return;
    const Keep kind(in.iridflg, in.iridflg == event::iridium ? event::plain : in.iridflg);
    in.odm = false;
    in.txtrdy = 0;
    StMatchDialog dialog(this);
    dialog.setParams(in.az, in.el, in.mxa, in.dra, in.tm, in.rdf, in.drf, in.vis);
    if (dialog.exec() != QDialog::Accepted)
        return;
    dialog.getParams(in.az, in.el, in.mxa, in.dra, in.tm, in.rdf, in.drf, in.vis);
    in.tm = std::abs(in.tm);
    listMatches();
}

/// The satellites of the element file that fit what was seen, as a text on show.
void VorlixView::listMatches()
{
    int failed = 0;
    if (!calculated([&] { failed = SatMatch(indata, outdata); }))
        return;
    if (failed != 0)
        inform(this, tr("Find Matching Sats"), tr("*** Unable to open TLE file ***"));
    indata->txtrdy = 1;
    showtxt(true);
    noteListed(Listed::matches);
}
