// Observations as rows of a list.
#pragma once

#include "exports/rows.h"
#include "observing/observation.h"

ListColumns observationColumns();
ListRow observationRow(const Observation& observation);
