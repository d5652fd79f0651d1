// The selection between two runs: names in the configuration, catalogue numbers in vorlix.ini.
#pragma once

#include "record/winp_data.h"

#include <QStringList>

/// Keeps the catalogue numbers of the selection in vorlix.ini, since the configuration holds names only.
void keepSelectedNumbers(const WinpData& in);

/// Fills the selection after a start: for each of the first `names` texts of `cfgname` the entry of the element file
/// whose name begins with it, and for satellites without a name the entry of the number kept in vorlix.ini. Where
/// several entries have a name, the one of the number kept for it, or else the first that is not yet selected.
///
/// A name that is not found is left out. `cfgname[10]` becomes the last text searched for.
void selectConfigured(WinpData* in, int names);

/// The names read from the configuration that `selectConfigured` found no entry for.
QStringList missingAfterStart(const WinpData& in);
