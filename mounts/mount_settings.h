// What is kept in vorlix.ini about the mount, in the group [mount].
#pragma once

#include "mounts/follow_plan.h"
#include "mounts/mount.h"

/// A mount and how far it may go.
struct MountSettings
{
    MountAddress address;
    FollowLimits limits;  // `leastSunDistance` holds while `avoidsSun`
    bool avoidsSun = true;
};

/// Those of the last time; numbers out of range come back into it.
MountSettings mountSettings();

/// Keeps them for the next time.
void keepMountSettings(const MountSettings& settings);
