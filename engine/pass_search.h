// When a satellite fulfils the visibility conditions: one instant, the next pass, the last one.
#pragma once

#include "engine/pass.h"
#include "engine/site.h"

#include "record/winp_data.h"

class HorizonLine;
struct SatPosData;

/// Whether the command looks at two satellites that see each other instead of an observer and a satellite: `rlm` is
/// set, at least two satellites are selected, and neither occultations nor flares are looked for.
bool relativeMode(const WinpData& in);

/// The slot of the satellite that relative mode looks from: the one after the prime, or the first.
int secondSatellite(const WinpData& in);

/// The search step near the horizon, and the margin after a pass.
constexpr double oneMinuteDays = 0.0006944444444444445;

/// Below this elevation a search takes coarse steps.
constexpr double farBelowHorizonDeg = -25.0;

/// A search over a longer span than this would not end in an acceptable time.
constexpr double longestSpanDays = 100000.0;

/// A span of days clamped to plus and minus `longestSpanDays`; a span that is no number counts as longer.
double clampedSpan(double days);

/// Whether the state in `sp` fulfils the visibility conditions; non-zero if so.
///
/// `GetSatPos` must have run for this slot and time. In relative mode the two satellites must see each other over the
/// limb of a sphere of 6378.137 km, and with `visflg` both must be sunlit; `satel` and the limit `sunel` play no part.
int cksatok(WinpData* in, SatPosData* sp, int isat);

/// Steps forward from `t` by one minute while the conditions hold.
///
/// @return  the first time at which they fail, or the first one beyond `tlimit`
double gpassend(WinpData* in, SatPosData* sp, int isat, double t, double tlimit);

/// The same backward: `tlimit` lies before `t`.
double gpassbeg(WinpData* in, SatPosData* sp, int isat, double t, double tlimit);

/// Finds the first pass of slot `isat` between `t0` and the later `t1`, on `satpos`.
///
/// A pass in progress at `t0` starts there, and one that goes on at `t1` ends there. With `pasjmp` set the pass in
/// which `t0` lies is left first. With an event kind (`iridflg` above 0) the pass is closed by `GetIrid`; then
/// `tm[1]`, `a[1]`, `b[1]` describe the event and `b[2]` is its distance in km or its magnitude.
/// `occra` becomes 0 with `iridflg` 3.
///
/// @param tm  3 values: start, greatest elevation and end, MJD UTC
/// @param a   3 values: elevation at these times, degrees; at both ends in relative mode the latitude of the prime
/// @param b   3 values: azimuth, degrees; at both ends in relative mode the longitude of the prime
/// @return    0 no pass, 1 a pass or an event, 2 a pass without an event
int nextpass(WinpData* in, int isat, double t0, double t1, double* tm, double* a, double* b);

/// Finds the last pass of slot `isat` before `t0` and not before `t1`, on `satpos`: `nextpass` with time reversed.
///
/// Index 0 is the later end of the pass and index 2 the earlier one. Events are not looked for.
///
/// @return  0 no pass, 1 a pass
int lastpass(WinpData* in, int isat, double t0, double t1, double* tm, double* a, double* b);

/// What a search goes by in place of the fields of the record with these names.
struct PassLimits
{
    double satel = 0;   // least elevation of the satellite, degrees
    double sunel = 0;   // highest Sun, degrees
    double maxdst = 0;  // largest distance of an event from the observer, km
    const HorizonLine* horizon =
        nullptr;  // of the place; the satellite has to be above it as well. Null: a plain one
};

/// The limits of the record itself.
PassLimits limitsOf(const WinpData& in);

/// How a list is searched for, beyond what the record says.
struct SearchStyle
{
    bool thorough = false;                 // see `PassQuery`
    const HorizonLine* horizon = nullptr;  // see `PassLimits`
};

/// What a search works on and looks for.
struct PassQuery
{
    WinpData* in;
    SatPosData* sp;
    int isat;
    PassLimits limits = limitsOf(*in);
    int events = in->iridflg;  // the kind looked for
    bool absolute = false;     // as if relative mode were off
    bool thorough = false;     // plain passes at an observer: every interval, as `findNextInterval` does
    bool recordsRead = true;   // the records matter afterwards; false where a search has its own and drops them
};

/// Whether a search goes by intervals, not by steps.
bool thoroughSearch(const PassQuery& query);

/// The line of the place that passes of a search are cut by, if it reaches above the least elevation anywhere; else null.
const HorizonLine* lineOf(const PassQuery& query);

/// Whether a search looks from the second satellite.
bool relativeSearch(const PassQuery& query);

/// How a search looks at the satellites.
View viewOf(const PassQuery& query);

/// The whole position at an instant of a search.
void positionAt(double mjd, const PassQuery& query);

/// `cksatok` on the terms of a search.
bool conditionsHold(const PassQuery& query);

/// Whether a search may be accelerated, for tests.
enum class Pace
{
    plain,
    fast
};

/// `nextpass` on values. With a line of the place a pass is the first part of one that is above it: the search goes by
/// the lowest of the line, start and end are those of the part, to 0.01 s where the line makes them, and a part that
/// follows is found from its end on. An event is left out if the satellite is behind the line.
int findNextPass(const PassQuery& query, double t0, double t1, Pass& pass, Pace pace = Pace::fast);

/// `lastpass` on values; with a line of the place the last part.
int findLastPass(const PassQuery& query, double t0, double t1, Pass& pass, Pace pace = Pace::fast);
