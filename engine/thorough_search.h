// Every interval in which the conditions for seeing a satellite hold, none left out.
#pragma once

#include <vector>

#include "engine/pass.h"

struct PassQuery;

/// The times of a pass found by `findNextInterval` are so exact, days (0.01 s).
constexpr double thoroughStepDays = 0.01 / 86400.0;

/// Finds the first interval between `t0` and `t1` in which the conditions of an observer hold throughout: elevation,
/// darkness and light as in `cksatok`. Where a pass is broken by the Earth's shadow, by the Sun or by the horizon, each
/// part is an interval of its own. An interval in progress at `t0` starts there, one that goes on at `t1` ends there.
///
/// Ends and greatest elevation are exact to 0.01 s, and no interval longer than that is left out; thorough_search.md
/// says why. Relative mode and events are not looked for. The records are left as after a GetSatPos at the end.
///
/// @return  false: none, or the listener has ended the search
bool findNextInterval(const PassQuery& query, double t0, double t1, Pass& pass);

/// The parts of a pass that are above the line of the place, in their order and without gaps shorter than 0.01 s;
/// horizon_line.md says why none is left out. A start, end or maximum that the line leaves as it is keeps its figures.
///
/// @param whole  found above the lowest of the line, its start before its end
std::vector<Pass> partsAboveLine(const PassQuery& query, const Pass& whole);
