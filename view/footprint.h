// The part of a map from which a satellite is seen, as an area to fill.
#pragma once

#include <QPainterPath>
#include <vector>

#include "view/map_geometry.h"

/// What lies inside a circle of visibility on a map.
///
/// @param edge    of the circle, in order, degrees
/// @param centre  of the circle, degrees
/// It may reach beyond the map; what it covers twice at the seam of a map of the whole world is one area.
QPainterPath footprint(const MapFrame& map, const std::vector<GeoPlace>& edge, const GeoPlace& centre);

/// The part of the display that such an area may fill.
QPainterPath fieldOf(const MapFrame& map);
