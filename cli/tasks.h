// The tasks of the command. Each writes its rows to the answer.
#pragma once

#include "cli/answer.h"
#include "cli/channels.h"
#include "cli/session.h"

/// The list that a task other than `convert` gives.
ListKind listOf(const Request& request);

Problem findPasses(const Session& session, const Channels& channels, Answer& answer);
Problem findEvents(const Session& session, const Channels& channels, Answer& answer);
Problem findContacts(const Session& session, const Channels& channels, Answer& answer);
Problem findNext(const Session& session, const Channels& channels, Answer& answer);
Problem findMatches(const Session& session, const Channels& channels, Answer& answer);
Problem lookAt(const Session& session, const Channels& channels, Answer& answer);
Problem followTracks(const Session& session, const Channels& channels, Answer& answer);
Problem tellStates(const Session& session, const Channels& channels, Answer& answer);
Problem whatIsUp(const Session& session, const Channels& channels, Answer& answer);
Problem tellReports(const Session& session, const Channels& channels, Answer& answer);
Problem fitOrbits(const Session& session, const Channels& channels, Answer& answer);
Problem findCrossings(const Session& session, const Channels& channels, Answer& answer);
Problem identifyPicture(const Session& session, const Channels& channels, Answer& answer);
Problem convertElements(const Session& session, const Channels& channels, Answer& answer);
