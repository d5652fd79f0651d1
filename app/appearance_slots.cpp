// The slots of the commands for how the canvas looks.

#include "app/vorlix_app.h"

#include "record/further_settings.h"
#include "view/vorlix_view.h"

void VorlixApp::slotViewReadable(bool on)
{
    showStatus(tr("Readable colours."));
    view->vReadable(on);
    openFurtherSettings().setValue(readableKey, on);
    showStatus(tr("Ready."));
}
