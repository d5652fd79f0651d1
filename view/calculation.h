// The frame of a command that may calculate for long.
#pragma once

#include <functional>

/// Runs `work` under the wait cursor, while the listener of long calculations is told.
///
/// @return  false if the listener has ended it; `indata`, `outdata`, `satpos` and `satps` are then as before
bool calculated(const std::function<void()>& work);

/// Flies the selected satellites that are propagated numerically to `t`, if one of them has far to go; the next
/// GetSatPos at `t` then finds them there.
///
/// @return  false if the listener has ended it; nothing has changed then
bool flownAhead(double t);
