// Which satellites of the element file pass next.
#pragma once

class HorizonLine;
struct WinpData;

/// Selects up to ten satellites of `tlename` whose passes start soonest from the real-time clock on (`RT_MJD`), at
/// least 0.0018 and at most 0.1 days ahead.
///
/// The selection is replaced, earliest first, and the first satellite becomes prime; if none is found only `prs`
/// becomes 0. `rlm` is off afterwards. The kind `iridflg` must not be Iridium.
///
/// @param horizon  the line of the place, see `PassLimits`; null: none
/// @return  number of satellites selected, 0 none found, -1 the element file cannot be opened, `calculationCancelled`
int Nxt4Pass(WinpData* in, const HorizonLine* horizon = nullptr);

/// The same from the time `t` on, MJD UTC.
int nextSatellites(WinpData* in, double t, const HorizonLine* horizon = nullptr);
