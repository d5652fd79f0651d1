// The stars and bodies of a sky as values.
#pragma once

#include <vector>

#include "reports/pass_chart.h"

/// What stands above the horizon of the observer of the record at an MJD, UTC: the stars of the sky map, then Sun, Moon
/// and planets with their names, whose magnitudes are not told.
std::vector<ChartLight> skyLights(double mjd);
