// The table of the passes or events of the prime satellite, and what it shares with the scan of a whole file.
#pragma once

#include "engine/pass.h"
#include "engine/pass_search.h"

#include <string>

struct WinpData;
struct WoutData;
class TextWriter;

/// Where the search for the next pass starts, MJD: a minute after the end of this one, and after a pass of a satellite
/// with more than 14 revolutions a day an hour later still, unless `rlm` is set.
double timeAfterPass(const WinpData& in, int isat, const Pass& pass);

/// The same on the terms of a search; where passes are intervals, or parts above the line of the place, it goes on where
/// the pass ends.
double timeAfterPass(const PassQuery& query, const Pass& pass);

/// The same whatever `rlm` says.
double timeAfterPass(double revPerDay, const Pass& pass);

/// Appends the time stamps of start, maximum and end, the first one with the date; of a `relative` search those of start
/// and end.
void addPassStamps(TextWriter& line, const WinpData& in, const Pass& pass, bool relative);

/// Appends the time stamp of the event, with the date.
void addEventStamp(TextWriter& line, const WinpData& in, const Pass& pass);

/// Sets `iridflg` by the occultation and flare switches: transit with `occflg`, flare with a known surface. Without
/// these switches it stays.
///
/// @return  whether the search goes by the largest distance `maxdst`
bool chooseEventKind(WinpData* in);

/// Whether transits of the Sun or Moon are looked for.
bool transitsOfDisk(const WinpData& in);

/// Whether the search finds its width itself: transits of the Sun or Moon without a largest distance.
bool automaticWidth(const WinpData& in);

/// The limit `sunel` in a search for Sun transits: every elevation of the Sun lies below.
constexpr double anySunElevationDeg = 90.0;

/// The limits of the record as a list of passes or events goes by them: those of `sunAtAnyHeight` for Sun transits, and
/// 35 km as the largest distance with automatic width.
PassLimits listLimits(const WinpData& in);

/// The limits of the record; with `occflg` 1 the Sun may stand anywhere.
PassLimits sunAtAnyHeight(const WinpData& in);

/// Composes the AOS list of the prime satellite over `dur` days from the start date, and writes it to the save file if
/// `tofile` is 1.
///
/// `naos` and `aostm` describe the selectable lines afterwards. A refusal is a text in `out` and is not written.
/// `iridflg` says what is looked for, see `chooseEventKind`.
/// A span `dur` longer than `longestSpanDays` is clamped to that.
///
/// @return          why the save file could not be written, for a reader; empty otherwise
std::string aospass(WinpData* in, WoutData* out, const SearchStyle& style = {});
