// The configuration file vorlix.cfg in the working directory.
#pragma once

#include "record/winp_data.h"

#include <string>

/// Reads the configuration over the defaults.
///
/// The names of the last selection come into `cfgname`, their number into `satn`; the slots hold no elements then.
/// Time zones beyond 15 hours become 0, `dur` is clamped to 1 to 14 days.
///
/// @return 2 without a file, 1 if it was taken over; 0 if it is damaged (or no file, but a directory): then only
///         `cfgname` may have changed
[[nodiscard]] int getcfg(WinpData* in);

/// Replaces the configuration file. @return  as of `replaceFile`
std::string putcfg(const WinpData* in);
