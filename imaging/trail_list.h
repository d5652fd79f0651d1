// Satellites on a picture as rows of a list.
#pragma once

#include "exports/rows.h"
#include "imaging/identify.h"

ListColumns trailColumns();
ListRow trailRow(const PictureTrail& trail);
