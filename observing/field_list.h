// Crossings of a field as rows of a list.
#pragma once

#include "exports/rows.h"
#include "observing/field.h"

ListColumns crossingColumns();
ListRow crossingRow(const FieldCrossing& crossing);

/// Times without a satellite.
ListColumns freeColumns();
ListRow freeRow(const FreeInterval& interval);
