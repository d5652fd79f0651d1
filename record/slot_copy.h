// Copies of the elements of a satellite between two records.
#pragma once

struct WinpData;

/// Copies every per-satellite field but `cfgname` from a slot of `from` to a slot of `to`, and sets `sgpsat` of `to` to
/// `noSlot`.
void copySlot(WinpData* to, int toSlot, const WinpData& from, int fromSlot);
