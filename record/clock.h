// The program clock: start date, real time, time zone of the system.
#pragma once

#include "record/winp_data.h"

#include <ctime>

/// System time zone in seconds West of Greenwich, daylight saving included; set by each call of `DefTime`.
extern double GBL_timezone;

/// The same in hours, East positive; never a negative zero.
double systemZone();

/// Where the clock takes its seconds since 1970 from; a test puts its own in place.
extern std::time_t (*systemSeconds)();

/// The system clock in whole seconds, MJD UTC.
double nowMjd();

/// System clock to the six date fields, in UTC, and to `GBL_timezone`. `second` may be 60.
void DefTime(WinpData* in);

/// The start time of the date fields, civil time of `tzone`, as MJD in UTC. Hours beyond 0 to 24 count on.
double startMjd(const WinpData* in);

/// The date fields to `mjd`, with a `tzone` that follows the system if `tzauto` is set. Renews `ttut`, clears `pasjmp`
/// and the flags of a delta plot about to start.
void setNewMjd(WinpData* in);

/// MJD (UTC) of the real-time display: system clock in whole seconds plus `rtoff`. The date fields come back
/// unchanged, `GBL_timezone` is renewed.
double RT_MJD(WinpData* in);

/// TT minus UT in seconds: by `UtcTai` if the IERS values are in force, else the default of the calendar year. With
/// published leap seconds what these give at `mjd` of the record, or at the start of another year.
double SetTtUt(const WinpData* in, int year);

/// UTC minus TAI in whole seconds that a TT minus UT stands for: 65.184 gives -33.
int utcTaiOf(double ttut);
