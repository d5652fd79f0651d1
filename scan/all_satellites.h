// All passes or events of all satellites of the element file, written to the save file in the order of time.
#pragma once

#include "engine/pass_search.h"

#include <string>

struct WinpData;

/// Writes all passes or events of every entry of `tlename` between the start date and `dur` days later to `savename`.
///
/// `savename` must be complete (`vsFileName`). `rlm` plays no part. The selection and `prs` are as before at the end, but
/// for satellites with a transit in automatic width: these join the selection. `newsave` becomes 0 once the list is
/// written. The search text becomes "*".
///
/// The entries are shared among `scanWorkers` threads, and the list does not depend on their number. The save file
/// keeps its old content until the list is whole and sorted.
///
/// @param why       receives the reason where the file cannot be written
/// @return          0 done, 1 the save file cannot be written, 2 the element file cannot be opened, -1 input refused,
///                  `calculationCancelled`
int AllSatAos(WinpData* in, std::string* why = nullptr, const SearchStyle& style = {});
