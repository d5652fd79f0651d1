// The start of a run: the input record with its defaults, the configuration, the satellites of the last run, and
// the report that tells the user of all this.
#pragma once

#include "record/winp_data.h"
#include "record/wout_data.h"

/// Brings both records up for a run.
///
/// Every field of `in` gets its default, then `vorlix.cfg` of the working directory overwrites what it holds, and
/// the start date becomes the present civil time of the time zone. An element file that cannot be opened leaves "*"
/// as its name. The satellites named in the configuration are searched in the element file again; those it no
/// longer holds are left out, the others keep their order. The lines of the report are appended to `out`.
void swelcm(WinpData* in, WoutData* out);
