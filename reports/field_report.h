// The satellites that cross a field of the sky, as a report.
#pragma once

#include "observing/field.h"

#include <span>

struct WoutData;

/// Clears the report and writes the crossings and the times without a satellite, as far as there is room; civil time of
/// the record.
void fieldReport(WoutData* out, const WinpData& in, const FieldQuery& query,
                 std::span<const FieldCrossing> crossings);
