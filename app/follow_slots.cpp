// The slots of the command that follows a satellite with a mount.

#include "app/vorlix_app.h"

#include <QAction>
#include <QStatusBar>

#include "app/follow_control.h"
#include "mounts/follower.h"
#include "view/message_boxes.h"
#include "view/vorlix_view.h"

void VorlixApp::slotPlotFollow()
{
    if (follow->isRunning()) {
        if (agrees(this, tr("Follow"), tr("%1 is being followed. Stop the mount?").arg(follow->name())))
            follow->stop();
        return;
    }
    showStatus(tr("Follow with a mount..."));
    const auto task = view->vFollow();
    if (!task) {
        showStatus(tr("Ready."));
        return;
    }
    viewStatusBar->setChecked(true);  // what the mount does is told there
    follow->start(*task);
}

void VorlixApp::followEnded(const QString& name, const QString& why)
{
    if (why.isEmpty())
        showStatus(tr("Following %1 has ended.").arg(name));
    else
        showStatus(tr("Following %1 has ended: %2").arg(name, why));
}
