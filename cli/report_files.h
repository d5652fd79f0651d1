// The observation reports that a request names.
#pragma once

#include "cli/channels.h"
#include "cli/session.h"
#include "observing/observation.h"

#include <vector>

/// Reads the files one after the other; lines that look like reports and are none become messages.
Problem readReportFiles(const Session& session, const Channels& channels, std::vector<Observation>& observations);
