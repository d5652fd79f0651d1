#include "mounts/mount.h"

#include "mounts/alpaca_mount.h"
#include "mounts/indi_mount.h"
#include "mounts/rotctld_mount.h"

quint16 usualPort(MountKind kind)
{
    switch (kind) {
    case MountKind::indi:
        return 7624;
    case MountKind::alpaca:
        return 11111;
    case MountKind::rotctld:
        break;
    }
    return 4533;
}

std::unique_ptr<Mount> makeMount(const MountAddress& address)
{
    switch (address.kind) {
    case MountKind::indi:
        return std::make_unique<IndiMount>(address);
    case MountKind::alpaca:
        return std::make_unique<AlpacaMount>(address);
    case MountKind::rotctld:
        break;
    }
    return std::make_unique<RotctldMount>(address);
}
