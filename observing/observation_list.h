// Observations as rows of a list.
#pragma once

#include "exports/rows.h"
#include "observing/fit.h"

ListColumns observationColumns();
ListRow observationRow(const Observation& observation);

/// What a fit leaves of observations.
ListColumns residualColumns();
ListRow residualRow(const Observation& observation, const FitResidual& residual);
