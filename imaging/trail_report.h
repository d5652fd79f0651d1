// The satellites on a picture, as a report.
#pragma once

#include "imaging/identify.h"

#include <span>

struct WoutData;

/// Clears the report and writes the satellites, as far as there is room; civil time of the record.
void trailReport(WoutData* out, const WinpData& in, const ExposedPicture& picture,
                 std::span<const PictureTrail> trails);
