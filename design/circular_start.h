// A circular orbit from observations, to begin a fit with.
#pragma once

#include "observing/fit.h"
#include "record/winp_data.h"

#include <optional>
#include <span>

/// The circle through the first observation and the last one from the same place within half an hour of it (`OrbitDet`);
/// nothing where there are no two such, or no circle fits. The settings are those of the record, which stays as it is.
std::optional<Orbit> circularStart(const WinpData& in, std::span<const SitedObservation> observations);
