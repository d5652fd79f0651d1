// The command that follows a satellite with a mount.

#include "view/vorlix_view.h"

#include "dialogs/st_follow_dialog.h"
#include "mounts/follower.h"
#include "record/text.h"
#include "view/message_boxes.h"

std::optional<FollowTask> VorlixView::vFollow()
{
    const WinpData& in = *indata;
    if (in.satn < 1) {
        sayNoSatellite(this);
        return std::nullopt;
    }
    const QString name = fieldQString(in.fsname[in.prs]).trimmed();
    StFollowDialog dialog(this);
    dialog.setValues(mountSettings(), tr("%1 from latitude %2, longitude %3").arg(name).arg(in.lat).arg(in.lng));
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    MountSettings settings = dialog.values();
    if (settings.address.host.isEmpty()) {
        warn(this, tr("Follow"), tr("No host is given on which the mount could be reached."));
        return std::nullopt;
    }
    keepMountSettings(settings);
    if (!settings.avoidsSun)
        settings.limits.leastSunDistance = 0;
    return FollowTask{name, orbitOf(in, in.prs), siteOf(in), modelsOf(in), settings.limits, settings.address};
}
