// All passes or events of all satellites of the element file, written to the save file and sorted by time.
#pragma once

struct WinpData;

/// Writes all passes or events of every entry of `tlename` between the start date and `dur` days later to `savename`.
///
/// `savename` must be complete (`vsFileName`). The selection, `prs`, `rlm`, `sunel` and `maxdst` are as before at the
/// end, but for satellites with a transit in automatic width: these join the selection. `newsave` becomes 0
/// once the list is written. The search text becomes "*".
///
/// The entries are shared among `scanWorkers` threads, and the list does not depend on their number. The save file
/// keeps its old content until the list is whole and sorted.
///
/// @return  0 done, 1 the save file cannot be written, 2 the element file cannot be opened, -1 input refused,
///          `calculationCancelled`
int AllSatAos(WinpData* in);

/// Sorts the lines of `savename` by month, day and time; headings go to the top, in their order.
///
/// Lines of the same second keep their order. A file with fewer than two lines of passes, or one that cannot be
/// opened, stays as it is. The order is that of one calendar year: January comes first.
void SortAos(WinpData* in);
