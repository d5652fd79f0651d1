// Commands that select satellites or remove them from the selection.

#include "view/vorlix_view.h"

#include <array>

#include "dialogs/st_rem_sat_dialog.h"
#include "dialogs/st_sel_sat_dialog.h"
#include "elements/element_file.h"
#include "elements/selection.h"
#include "record/files.h"
#include "record/keep.h"
#include "record/text.h"
#include "scan/next_satellites.h"
#include "view/message_boxes.h"

void VorlixView::vSelectSat()
{
    const FilePtr file = openElementFile(indata->tlename);
    if (!file) {
        warnOnlyCancel(this, tr("Unable to open TLE file ") + fieldQString(indata->tlename));
        return;
    }
    const Keep shown(satfle, file.get());
    StSelSatDialog dialog(this);
    dialog.setParams();
    dialog.exec();
}

void VorlixView::vRemoveSat()
{
    if (indata->satn == 0)
        return;
    StRemSatDialog dialog(this);
    dialog.setParams(indata->satn);
    if (dialog.exec() != QDialog::Accepted)
        return;
    std::array<bool, maxSatellites> marked{};
    dialog.getParams(marked.data());
    removeSatellites(indata, marked);
}

int VorlixView::vNextSat()
{
    const Keep kind(indata->iridflg, indata->iridflg == event::iridium ? event::plain : indata->iridflg);
    const WaitCursor wait;
    return Nxt4Pass(indata, horizon.get());
}
